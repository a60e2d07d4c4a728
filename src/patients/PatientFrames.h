#pragma once

class QComboBox;
class QGroupBox;
class QLineEdit;
class QWidget;

// The frames in which several screens show the patient in hand. A screen has the boxes of a frame as its own.

/// The boxes of the frame "Patient Name". The last name is keyed, the other ones are shown.
struct PatientNameBoxes {
    QLineEdit* txtLastName;
    QLineEdit* txtFirstName;
    QLineEdit* txtMiddleName;
    QLineEdit* txtSex;
    QLineEdit* txtDob;
    QLineEdit* txtAge;
};

/// The boxes of the frame "Hospital Info". They are shown, but for txtDoctor, a text box that each screen
/// closes to the clerk in its own way.
struct HospitalInfoBoxes {
    QLineEdit* txtPno;
    QLineEdit* txtId;
    QLineEdit* txtDateAdmitted;
    QLineEdit* txtRoom;
    QLineEdit* txtDoctor;
    QLineEdit* txtDoctorID;
};

/// The boxes of the frame "Search Patient". The type, which the screen lists, and the admission number are
/// keyed, the other ones are shown.
struct SearchPatientBoxes {
    QComboBox* cmbPatientCode;
    QLineEdit* txtIDNum;
    QLineEdit* txtHospNum;
    QLineEdit* txtLastName;
    QLineEdit* txtFirstName;
    QLineEdit* txtMiddleName;
};

/// Makes the boxes inside a new frame.
QGroupBox* NewPatientNameFrame(PatientNameBoxes& boxes, QWidget* parent);
QGroupBox* NewHospitalInfoFrame(HospitalInfoBoxes& boxes, QWidget* parent);
QGroupBox* NewSearchPatientFrame(SearchPatientBoxes& boxes, QWidget* parent);
