#include "patients/PatientFrames.h"
#include "support/PrintQt.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// The names of the boxes in a frame, those behind a star that the clerk cannot type in.
QStringList BoxesOf(const QGroupBox& frame) {
    QStringList names;
    for (const QLineEdit* box : frame.findChildren<QLineEdit*>())
        names << (box->isReadOnly() ? u"*"_s : QString()) + box->objectName();
    return names;
}

TEST(PatientFrames, PatientNameHasTheKeyedLastNameAndTheShownBoxes) {
    QWidget screen;
    PatientNameBoxes boxes;
    const QGroupBox* frame = NewPatientNameFrame(boxes, &screen);
    EXPECT_EQ(frame->objectName(), u"frame3"_s);
    EXPECT_EQ(frame->title(), u"Patient Name"_s);
    EXPECT_THAT(BoxesOf(*frame), ElementsAre(u"txtLastName"_s, u"*txtFirstName"_s, u"*txtMiddleName"_s,
                                             u"*txtSex"_s, u"*txtDob"_s, u"*txtAge"_s));
    EXPECT_EQ(boxes.txtDob->accessibleName(), u"Birthdate"_s);
}

TEST(PatientFrames, HospitalInfoLeavesTheDoctorToTheScreen) {
    QWidget screen;
    HospitalInfoBoxes boxes;
    const QGroupBox* frame = NewHospitalInfoFrame(boxes, &screen);
    EXPECT_EQ(frame->objectName(), u"Frame1"_s);
    EXPECT_EQ(frame->title(), u"Hospital Info"_s);
    EXPECT_THAT(BoxesOf(*frame), ElementsAre(u"*txtPno"_s, u"*txtId"_s, u"*txtDateAdmitted"_s, u"*txtRoom"_s,
                                             u"txtDoctor"_s, u"*txtDoctorID"_s));
    EXPECT_EQ(boxes.txtDoctorID->accessibleName(), u"Admitting doctor's code"_s);
}

TEST(PatientFrames, SearchPatientKeysTypeAndAdmissionNumber) {
    QWidget screen;
    SearchPatientBoxes boxes;
    const QGroupBox* frame = NewSearchPatientFrame(boxes, &screen);
    EXPECT_EQ(frame->objectName(), u"Frame1"_s);
    EXPECT_EQ(frame->title(), u"Search Patient"_s);
    EXPECT_EQ(boxes.cmbPatientCode->objectName(), u"cmbPatientCode"_s);
    EXPECT_EQ(boxes.cmbPatientCode->parentWidget(), frame);
    EXPECT_THAT(BoxesOf(*frame), ElementsAre(u"txtIDNum"_s, u"*txtHospNum"_s, u"*txtLastName"_s,
                                             u"*txtFirstName"_s, u"*txtMiddleName"_s));
}

} // namespace
