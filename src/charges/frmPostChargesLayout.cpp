#include "charges/ChargeGrid.h"
#include "charges/ChargeScreenParts.h"
#include "charges/frmPostCharges.h"
#include "shell/shared.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Look.h"
#include "toolkit/Twips.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// How frmPostCharges looks; what it does stands in frmPostCharges.cpp.

namespace {

constexpr int kGridWidth = 9500;
constexpr int kGridHeight = 2900;

} // namespace

void frmPostCharges::Layout() {
    setObjectName(u"frmPostCharges"_s);
    setWindowTitle(u"Post Charges"_s);
    auto* top = new QHBoxLayout;
    top->addWidget(LayoutPatientName(), 1);
    top->addWidget(LayoutHospitalInfo(), 1);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(LayoutDepartments());
    bottom->addWidget(LayoutMessage(), 1);
    bottom->addWidget(LayoutActions());
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addLayout(top);
    layout->addLayout(LayoutRequestingDoctor());
    layout->addWidget(LayoutCharges(), 1);
    layout->addLayout(bottom);
    SetOrderOfWork();
}

QGroupBox* frmPostCharges::LayoutPatientName() {
    QGroupBox* frame3 = NewFrame(u"frame3"_s, u"Patient Name"_s, this);
    txtLastName = NewTextBox(u"txtLastName"_s, frame3);
    txtFirstName = NewShownBox(u"txtFirstName"_s, frame3);
    txtMiddleName = NewShownBox(u"txtMiddleName"_s, frame3);
    txtSex = NewShownBox(u"txtSex"_s, frame3);
    txtDob = NewShownBox(u"txtDob"_s, frame3);
    txtAge = NewShownBox(u"txtAge"_s, frame3);
    auto* grid = new QGridLayout(frame3);
    AddLabelled(*grid, 0, 0, u"Last Name"_s, txtLastName);
    AddLabelled(*grid, 1, 0, u"First Name"_s, txtFirstName);
    AddLabelled(*grid, 2, 0, u"Middle Name"_s, txtMiddleName);
    AddLabelled(*grid, 0, 2, u"Sex"_s, txtSex);
    AddLabelled(*grid, 1, 2, u"Birthdate"_s, txtDob);
    AddLabelled(*grid, 2, 2, u"Age"_s, txtAge);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 1);
    return frame3;
}

QGroupBox* frmPostCharges::LayoutHospitalInfo() {
    QGroupBox* frame1 = NewFrame(u"Frame1"_s, u"Hospital Info"_s, this);
    txtPno = NewShownBox(u"txtPno"_s, frame1);
    txtId = NewShownBox(u"txtId"_s, frame1);
    txtDateAdmitted = NewShownBox(u"txtDateAdmitted"_s, frame1);
    txtRoom = NewShownBox(u"txtRoom"_s, frame1);
    txtDoctor = NewTextBox(u"txtDoctor"_s, frame1);
    txtDoctor->setEnabled(false);
    txtDoctorID = NewShownBox(u"txtDoctorID"_s, frame1);
    txtDoctorID->setAccessibleName(u"Admitting doctor's code"_s);
    txtDoctorID->setMaximumWidth(TwipsToPixels(900));
    auto* grid = new QGridLayout(frame1);
    AddLabelled(*grid, 0, 0, u"Hospital No."_s, txtPno);
    AddLabelled(*grid, 0, 2, u"Admission No."_s, txtId);
    AddLabelled(*grid, 1, 0, u"Admission Date"_s, txtDateAdmitted);
    AddLabelled(*grid, 1, 2, u"Room No."_s, txtRoom);
    AddLabelled(*grid, 2, 0, u"Admitting Dr.:"_s, txtDoctor);
    auto* doctor = new QHBoxLayout;
    doctor->addWidget(txtDoctor, 1);
    doctor->addWidget(txtDoctorID);
    grid->addLayout(doctor, 2, 1, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return frame1;
}

QHBoxLayout* frmPostCharges::LayoutRequestingDoctor() {
    txtDocID = NewTextBox(u"txtDocID"_s, this);
    txtDocID->setMaximumWidth(TwipsToPixels(1200));
    txtRequestingDoc = NewTextBox(u"txtRequestingDoc"_s, this);
    txtRequestingDoc->setAccessibleName(u"Requesting Doctor's name"_s);
    Command2 = NewDoctorPicker(u"Command2"_s, this);
    lblDepartment = new QLabel(gDeptDesc, this);
    lblDepartment->setObjectName(u"lblDepartment"_s);
    lblDeptCode = new QLabel(gDeptCode, this);
    lblDeptCode->setObjectName(u"lblDeptCode"_s);
    auto* code = new QGridLayout;
    AddLabelled(*code, 0, 0, u"Requesting Doctor"_s, txtDocID);
    auto* row = new QHBoxLayout;
    row->addLayout(code);
    row->addWidget(txtRequestingDoc, 1);
    row->addWidget(Command2);
    row->addSpacing(Space::kWide);
    row->addWidget(lblDepartment);
    row->addWidget(lblDeptCode);
    return row;
}

QGroupBox* frmPostCharges::LayoutCharges() {
    Frame2 = NewFrame(u"Frame2"_s, QString(), this);
    Frame2->setAccessibleName(u"Charges"_s);
    Frame2->setEnabled(false);
    txtTAmount = NewTotalBox(u"txtTAmount"_s, Frame2);
    mGrid = new ChargeGrid(Frame2, txtTAmount, kPostChargesDifferences);
    mGrid->Grid()->setMinimumSize(TwipsToPixels(kGridWidth), TwipsToPixels(kGridHeight));
    auto* sum = new QGridLayout;
    AddLabelled(*sum, 0, 1, u"TOTAL AMOUNT :"_s, txtTAmount);
    sum->setColumnStretch(0, 1);
    auto* layout = new QVBoxLayout(Frame2);
    layout->addWidget(mGrid->Grid(), 1);
    layout->addLayout(sum);
    return Frame2;
}

QGroupBox* frmPostCharges::LayoutDepartments() {
    // Kept: the misspelled heading.
    QGroupBox* frame5 = NewFrame(u"Frame5"_s, u"Deparment Code"_s, this);
    auto* layout = new QVBoxLayout(frame5);
    layout->addWidget(new QLabel(u"MD - Medical Fee"_s, frame5));
    layout->addWidget(new QLabel(u"HC - Ear Care Charges"_s, frame5));
    return frame5;
}

QGroupBox* frmPostCharges::LayoutMessage() {
    QGroupBox* fraMessage = NewFrame(u"fraMessage"_s, u"Message"_s, this);
    auto* lblMessage =
        new QLabel(u"Enter moves on, Up and Down change the line. A line whose department is emptied "
                   "is not charged."_s,
                   fraMessage);
    lblMessage->setObjectName(u"lblMessage"_s);
    lblMessage->setWordWrap(true);
    auto* layout = new QVBoxLayout(fraMessage);
    layout->addWidget(lblMessage);
    return fraMessage;
}

QGroupBox* frmPostCharges::LayoutActions() {
    Frame4 = NewFrame(u"Frame4"_s, QString(), this);
    Frame4->setEnabled(false);
    cmdPrint = new QPushButton(u"Save/Print"_s, Frame4);
    cmdPrint->setObjectName(u"cmdPrint"_s);
    Command1 = new QPushButton(u"E&xit"_s, Frame4);
    Command1->setObjectName(u"Command1"_s);
    auto* layout = new QHBoxLayout(Frame4);
    layout->addWidget(cmdPrint);
    layout->addWidget(Command1);
    return Frame4;
}

void frmPostCharges::SetOrderOfWork() {
    const QList<QWidget*> order = {txtLastName,   txtDoctor,       txtDocID, txtRequestingDoc, Command2,
                                   mGrid->Grid(), mGrid->Editor(), cmdPrint, Command1};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    txtLastName->setFocus();
}
