#include "patients/PatientFrames.h"

#include "toolkit/Controls.h"
#include "toolkit/Twips.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

QGroupBox* NewPatientNameFrame(PatientNameBoxes& boxes, QWidget* parent) {
    QGroupBox* frame = NewFrame(u"frame3"_s, u"Patient Name"_s, parent);
    boxes.txtLastName = NewTextBox(u"txtLastName"_s, frame);
    boxes.txtFirstName = NewShownBox(u"txtFirstName"_s, frame);
    boxes.txtMiddleName = NewShownBox(u"txtMiddleName"_s, frame);
    boxes.txtSex = NewShownBox(u"txtSex"_s, frame);
    boxes.txtDob = NewShownBox(u"txtDob"_s, frame);
    boxes.txtAge = NewShownBox(u"txtAge"_s, frame);
    auto* grid = new QGridLayout(frame);
    AddLabelled(*grid, 0, 0, u"Last Name"_s, boxes.txtLastName);
    AddLabelled(*grid, 1, 0, u"First Name"_s, boxes.txtFirstName);
    AddLabelled(*grid, 2, 0, u"Middle Name"_s, boxes.txtMiddleName);
    AddLabelled(*grid, 0, 2, u"Sex"_s, boxes.txtSex);
    AddLabelled(*grid, 1, 2, u"Birthdate"_s, boxes.txtDob);
    AddLabelled(*grid, 2, 2, u"Age"_s, boxes.txtAge);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 1);
    return frame;
}

QGroupBox* NewHospitalInfoFrame(HospitalInfoBoxes& boxes, QWidget* parent) {
    QGroupBox* frame = NewFrame(u"Frame1"_s, u"Hospital Info"_s, parent);
    boxes.txtPno = NewShownBox(u"txtPno"_s, frame);
    boxes.txtId = NewShownBox(u"txtId"_s, frame);
    boxes.txtDateAdmitted = NewShownBox(u"txtDateAdmitted"_s, frame);
    boxes.txtRoom = NewShownBox(u"txtRoom"_s, frame);
    boxes.txtDoctor = NewTextBox(u"txtDoctor"_s, frame);
    boxes.txtDoctorID = NewShownBox(u"txtDoctorID"_s, frame);
    boxes.txtDoctorID->setAccessibleName(u"Admitting doctor's code"_s);
    boxes.txtDoctorID->setMaximumWidth(TwipsToPixels(900));
    auto* grid = new QGridLayout(frame);
    AddLabelled(*grid, 0, 0, u"Hospital No."_s, boxes.txtPno);
    AddLabelled(*grid, 0, 2, u"Admission No."_s, boxes.txtId);
    AddLabelled(*grid, 1, 0, u"Admission Date"_s, boxes.txtDateAdmitted);
    AddLabelled(*grid, 1, 2, u"Room No."_s, boxes.txtRoom);
    AddLabelled(*grid, 2, 0, u"Admitting Dr.:"_s, boxes.txtDoctor);
    auto* doctor = new QHBoxLayout;
    doctor->addWidget(boxes.txtDoctor, 1);
    doctor->addWidget(boxes.txtDoctorID);
    grid->addLayout(doctor, 2, 1, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return frame;
}

QGroupBox* NewSearchPatientFrame(SearchPatientBoxes& boxes, QWidget* parent) {
    QGroupBox* frame = NewFrame(u"Frame1"_s, u"Search Patient"_s, parent);
    boxes.cmbPatientCode = NewCombo(u"cmbPatientCode"_s, {}, frame);
    boxes.txtIDNum = NewTextBox(u"txtIDNum"_s, frame);
    boxes.txtHospNum = NewShownBox(u"txtHospNum"_s, frame);
    boxes.txtLastName = NewShownBox(u"txtLastName"_s, frame);
    boxes.txtFirstName = NewShownBox(u"txtFirstName"_s, frame);
    boxes.txtMiddleName = NewShownBox(u"txtMiddleName"_s, frame);
    auto* grid = new QGridLayout(frame);
    AddLabelled(*grid, 0, 0, u"Patient Code:"_s, boxes.cmbPatientCode);
    AddLabelled(*grid, 1, 0, u"Admission No.:"_s, boxes.txtIDNum);
    AddLabelled(*grid, 2, 0, u"Hospital No.:"_s, boxes.txtHospNum);
    AddLabelled(*grid, 0, 2, u"Last Name:"_s, boxes.txtLastName);
    AddLabelled(*grid, 1, 2, u"First Name:"_s, boxes.txtFirstName);
    AddLabelled(*grid, 2, 2, u"Middle Name:"_s, boxes.txtMiddleName);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 2);
    return frame;
}
