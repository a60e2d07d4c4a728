#include "charges/ChargeGrid.h"
#include "charges/ChargeScreenParts.h"
#include "charges/frmPostCharges.h"
#include "components/shared.h"
#include "toolkit/Controls.h"
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

void frmPostCharges::Layout() {
    setObjectName(u"frmPostCharges"_s);
    setWindowTitle(u"Post Charges"_s);
    LetMaximize();
    auto* top = new QHBoxLayout;
    top->addWidget(NewPatientNameFrame(*this, this), 1);
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

QGroupBox* frmPostCharges::LayoutHospitalInfo() {
    QGroupBox* frame1 = NewHospitalInfoFrame(*this, this);
    txtDoctor->setEnabled(false);
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
    FillChargeFrame(Frame2, mGrid->Grid(), u"TOTAL AMOUNT :"_s, txtTAmount);
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
    lblMessage = new QLabel(fraMessage);
    lblMessage->setObjectName(u"lblMessage"_s);
    lblMessage->setWordWrap(true);
    auto* layout = new QVBoxLayout(fraMessage);
    layout->addWidget(lblMessage);
    return fraMessage;
}

QGroupBox* frmPostCharges::LayoutActions() {
    Frame4 = NewFrame(u"Frame4"_s, QString(), this);
    Frame4->setEnabled(false);
    cmdPrint = NewButton(u"cmdPrint"_s, u"Save/Print"_s, Frame4);
    Command1 = NewButton(u"Command1"_s, u"E&xit"_s, Frame4);
    auto* layout = new QHBoxLayout(Frame4);
    layout->addWidget(cmdPrint);
    layout->addWidget(Command1);
    return Frame4;
}

void frmPostCharges::SetOrderOfWork() {
    SetTabOrder({txtLastName, txtDoctor, txtDocID, txtRequestingDoc, Command2, mGrid->Grid(), mGrid->Editor(),
                 cmdPrint, Command1});
    txtLastName->setFocus();
}
