#include "charges/ChargeGrid.h"
#include "charges/ChargeScreenParts.h"
#include "charges/frmAssessment.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Look.h"
#include "toolkit/Twips.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// How frmAssessment looks; what it does stands in frmAssessment.cpp.

void frmAssessment::Layout() {
    setObjectName(u"frmAssessment"_s);
    // Kept: the window has no title; a screen reader names it by its heading.
    setAccessibleName(u"Assessment Entry"_s);
    auto* patient = new QHBoxLayout;
    patient->addWidget(LayoutPatientType());
    patient->addWidget(LayoutPatientName(), 1);
    auto* request = new QHBoxLayout;
    request->addWidget(LayoutRequestingDoctor(), 1);
    request->addWidget(LayoutDepartments());
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addWidget(LayoutHeading());
    layout->addLayout(patient);
    layout->addLayout(request);
    layout->addWidget(LayoutExams(), 1);
    layout->addLayout(LayoutActions());
    SetOrderOfWork();
}

QFrame* frmAssessment::LayoutHeading() {
    auto* Picture1 = new QFrame(this);
    Picture1->setObjectName(u"Picture1"_s);
    QLabel* Label1 = NewHeading(u"Assessment Entry     "_s, Picture1);
    Label1->setObjectName(u"Label1"_s);
    auto* layout = new QHBoxLayout(Picture1);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Label1);
    return Picture1;
}

QGroupBox* frmAssessment::LayoutPatientType() {
    QGroupBox* frame3 = NewFrame(u"Frame3"_s, u"Patient Type"_s, this);
    auto* layout = new QVBoxLayout(frame3);
    layout->setSpacing(Space::kTight);
    const std::array captions = {u"Inpatient"_s, u"Out Patient"_s, u"Walk-In Patient"_s};
    for (size_t i = 0; i < optType.size(); ++i) {
        optType[i] = new QRadioButton(captions[i], frame3);
        optType[i]->setObjectName(u"optType(%1)"_s.arg(i));
        layout->addWidget(optType[i]);
    }
    return frame3;
}

QGroupBox* frmAssessment::LayoutPatientName() {
    QGroupBox* frame1 = NewFrame(u"Frame1"_s, u"Patient's Name"_s, this);
    txtSname = NewTextBox(u"txtSname"_s, frame1);
    cmdSearch = NewButton(u"cmdSearch"_s, QString(), frame1);
    cmdSearch->setIcon(ProgramIcon(u"patient"_s));
    cmdSearch->setAccessibleName(u"Find the patient"_s);
    cmdSearch->setToolTip(u"Find the patient in the list of cash patients"_s);
    txtHospNum = NewShownBox(u"txtHospNum"_s, frame1);
    txtIdnum = NewShownBox(u"txtIdnum"_s, frame1);
    auto* grid = new QGridLayout(frame1);
    AddLabelled(*grid, 0, 0, u"Name "_s, txtSname);
    auto* name = new QHBoxLayout;
    name->addWidget(txtSname, 1);
    name->addWidget(cmdSearch);
    grid->addLayout(name, 0, 1, 1, 3);
    AddLabelled(*grid, 1, 0, u"Hospital No."_s, txtHospNum);
    AddLabelled(*grid, 1, 2, u"Admission No."_s, txtIdnum);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return frame1;
}

QGroupBox* frmAssessment::LayoutRequestingDoctor() {
    QGroupBox* frame4 = NewFrame(u"Frame4"_s, u"Requesting Doctor"_s, this);
    txtDoctorID = NewTextBox(u"txtDoctorID"_s, frame4);
    txtDoctorID->setAccessibleName(u"Requesting Doctor's code"_s);
    txtDoctorID->setMaximumWidth(TwipsToPixels(1200));
    txtDoctor = NewTextBox(u"txtDoctor"_s, frame4);
    txtDoctor->setAccessibleName(u"Requesting Doctor's name"_s);
    txtDoctor->setEnabled(false);
    cmdDoctor = NewDoctorPicker(u"cmdDoctor"_s, frame4);
    auto* layout = new QHBoxLayout(frame4);
    layout->addWidget(txtDoctorID);
    layout->addWidget(txtDoctor, 1);
    layout->addWidget(cmdDoctor);
    return frame4;
}

QGroupBox* frmAssessment::LayoutDepartments() {
    QGroupBox* frame2 = NewFrame(u"Frame2"_s, u"Department Codes"_s, this);
    auto* layout = new QVBoxLayout(frame2);
    layout->addWidget(new QLabel(u"HC - Ear Care Charges"_s, frame2));
    return frame2;
}

QGroupBox* frmAssessment::LayoutExams() {
    fraExams = NewFrame(u"fraExams"_s, u"Examinations"_s, this);
    fraExams->setEnabled(false);
    txtGross = NewTotalBox(u"txtGross"_s, fraExams);
    mGrid = new ChargeGrid(fraExams, txtGross, kAssessmentDifferences);
    FillChargeFrame(fraExams, mGrid->Grid(), u"Total Amount"_s, txtGross);
    return fraExams;
}

QHBoxLayout* frmAssessment::LayoutActions() {
    cmdSave = NewButton(u"cmdSave"_s, u"&Save"_s, this);
    cmdPrint = NewButton(u"cmdPrint"_s, u"Save && &Print"_s, this);
    cmdClose = NewButton(u"cmdClose"_s, u"&Exit"_s, this);
    return RightAligned({cmdSave, cmdPrint, cmdClose});
}

void frmAssessment::SetOrderOfWork() {
    // The two pickers also open by Enter in the boxes before them, so they come last.
    SetTabOrder({optType[0], optType[1], optType[2], txtSname, txtDoctorID, txtDoctor, mGrid->Grid(),
                 mGrid->Editor(), cmdSave, cmdPrint, cmdClose, cmdSearch, cmdDoctor});
    optType[0]->setFocus();
}
