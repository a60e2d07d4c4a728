#include "charges/frmPostCharges.h"

#include "charges/ChargeGrid.h"
#include "charges/commands.h"
#include "charges/ExpandPackage.h"
#include "charges/RequestingDoctor.h"
#include "components/DepartmentCodes.h"
#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/frmSearchPatient.h"
#include "patients/LoadPatient.h"
#include "patients/PatientContext.h"
#include "reports/Reports.h"
#include "reports/SlipHeading.h"
#include "text/Clock.h"
#include "text/Format.h"
#include "text/IsNumeric.h"
#include "text/Trim.h"
#include "text/UCase.h"
#include "toolkit/Controls.h"
#include "toolkit/Ears.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Screens.h"
#include "toolkit/SendKeys.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPostedQuantity = kPostChargesDifferences.quantityCol;

const QString kHowToKey =
    u"Enter moves on, Up and Down change the line. A line whose department is emptied is "
    "not charged."_s;
const QString kOtherInHand =
    u"Another patient is in hand: lines are priced for him, and the slip bears his account. "
    "Take this one again by the menu."_s;

/// What pricing and the slip take from the patient in hand.
QStringList PatientInHand() {
    return {gRoomClass, gAccountNumber, gStationName};
}

} // namespace

frmPostCharges::frmPostCharges() {
    Layout();
    Wire();
    TellPatientInHand();
}

void frmPostCharges::Wire() {
    OnKeyPress(txtLastName, [this](int& key) { txtLastName_KeyPress(key); });
    connect(txtFirstName, &QLineEdit::textChanged, this, &frmPostCharges::txtFirstName_Change);
    OnKeyPress(txtDocID, [this](int& key) { txtDocID_KeyPress(key); });
    connect(Command2, &QPushButton::clicked, this, &frmPostCharges::Command2_Click);
    connect(cmdPrint, &QPushButton::clicked, this, &frmPostCharges::cmdPrint_Click);
    connect(Command1, &QPushButton::clicked, this, &Form::Unload);
}

void frmPostCharges::Form_Load() {
    mGrid->SetupGrid();
    mGrid->DisarmLastRow();
    mGrid->ComputeTotal();
}

void frmPostCharges::Form_Activate() {
    // Kept: each time the clerk comes back the grid has eight lines again, and what was keyed below them is
    // gone.
    mGrid->SetupGrid();
    TellPatientInHand();
}

void frmPostCharges::HoldPatient() {
    mHeld = PatientInHand();
    TellPatientInHand();
}

void frmPostCharges::TellPatientInHand() {
    const bool isOther = !txtId->text().isEmpty() && !mHeld.isEmpty() && PatientInHand() != mHeld;
    lblMessage->setText(isOther ? kOtherInHand : kHowToKey);
    lblMessage->setProperty("problem", isOther);
    // The look is asked for a property when a control is polished.
    lblMessage->style()->polish(lblMessage);
    if (isOther)
        SpeakAlert(*lblMessage);
}

void frmPostCharges::Form_Unload() {
    ChargeGrid::ResetLineCount();
}

bool frmPostCharges::Check_Code(const QString& strCode) const {
    return mGrid->Check_Code(strCode);
}

QString frmPostCharges::FinderText() const {
    return txtLastName->text();
}

void frmPostCharges::LoadPick() {
    if (LoadForPost({.name = *this, .info = *this}))
        HoldPatient();
}

void frmPostCharges::Picked() {
    Show();
}

void frmPostCharges::txtLastName_KeyPress(int& keyAscii) {
    keyAscii = UCase(QChar(keyAscii)).unicode();
    if (keyAscii == Key::kEnter) {
        SendTab();
        Screens::Get<frmSearchPatient>().Show();
    }
}

void frmPostCharges::txtFirstName_Change(const QString& text) {
    if (text.isEmpty())
        return;
    Frame2->setEnabled(true);
    Frame4->setEnabled(true);
}

void frmPostCharges::txtDocID_KeyPress(int& keyAscii) {
    if (keyAscii == Key::kEnter)
        LookUpRequestingDoctor(*txtDocID, *txtRequestingDoc, *txtDoctor);
}

void frmPostCharges::Command2_Click() {
    PickRequestingDoctor(*txtDocID, *txtRequestingDoc);
}

void frmPostCharges::ExpandPackage(QString& referenceNumber, const QString& packageCode) {
    IssuePackage(referenceNumber, packageCode, [this] {
        return PackagePatient{
            .hospitalNumber = txtPno->text(), .admissionNumber = txtId->text(), .room = txtRoom->text()};
    });
}

/// Reads and bumps the counter and empties the print table. Kept: without a counter row the save goes on
/// under an empty number, and the print table keeps what it has.
QString frmPostCharges::TakeSlipNumber() {
    QString slipNumber;
    RowSet counter = gCurrentUser->SQLConnection()->Open(ChargeSlipCounterCommand(), CursorType::Dynamic,
                                                         LockType::Optimistic);
    if (!counter.Eof()) {
        const Value number = counter.Fields(u"ChargeSlip");
        slipNumber = u"H"_s + Trim(number.ToText()) + u"C"_s;
        counter.SetField(u"ChargeSlip", number.ToInteger() + 1);
        counter.Update();
        gCurrentUser->SQLConnection()->ExecuteNoResult(ClearChargePrintCommand());
        gSlipTableCleared = true;
    }
    counter.Close();
    return slipNumber;
}

void frmPostCharges::SaveLine(int row) {
    const QString department = mGrid->Text(row, Column::kDepartment);
    // Kept: a package is passed over without a word.
    if (department.isEmpty() || department == Department::kPackage)
        return;
    // Kept: each line that is sent decides the patient's type anew.
    gPatientType = IsNumeric(txtId->text()) ? u"I"_s : u"O"_s;
    const QString code = mGrid->Text(row, Column::kCode);
    const QString particular = mGrid->Text(row, Column::kParticular);
    const QString quantity = mGrid->Text(row, kPostedQuantity);
    const QString amount = mGrid->Text(row, Column::kAmount);
    CommandGateway& connection = *gCurrentUser->SQLConnection();
    connection.ExecuteNoResult(AppendChargingCommand({.hospitalNumber = txtPno->text(),
                                                      .admissionNumber = txtId->text(),
                                                      .moment = Format(Now(), u"MM/DD/YYYY hh:mm:ss AM/PM"),
                                                      .department = department,
                                                      .code = code,
                                                      .quantity = quantity,
                                                      .slipNumber = gSlipNumber,
                                                      .amount = amount,
                                                      .userCode = gCurrentUser->EmployeeCode(),
                                                      .room = txtRoom->text(),
                                                      .requestingDoctorCode = txtDocID->text(),
                                                      .admittingDoctorName = txtDoctor->text(),
                                                      .patientType = gPatientType,
                                                      .particular = particular}));
    connection.ExecuteNoResult(SaveChargePrintCommand({.code = code,
                                                       .amount = amount,
                                                       .quantity = quantity,
                                                       .department = department,
                                                       .particular = particular}));
}

bool frmPostCharges::SaveCharges() {
    mGrid->SetRedraw(false);
    // Kept: a refused save leaves the redraw off until the next full one.
    if (!mGrid->HasLines())
        return false;
    mGrid->SetRedraw(true);
    SetMousePointer(MousePointer::Wait);
    gSlipNumber = TakeSlipNumber();
    mGrid->SetRedraw(false);
    for (int row = 1; row < mGrid->Cells().Rows(); ++row)
        SaveLine(row);
    mGrid->SetRedraw(true);
    SetMousePointer(MousePointer::Default);
    return true;
}

void frmPostCharges::PrintSlip() {
    SlipPatientName = txtLastName->text() + u", "_s + txtFirstName->text() + u" "_s + txtMiddleName->text();
    OpenChargeSlip({.number = gSlipNumber,
                    .patientName = SlipPatientName,
                    .admissionNumber = txtId->text(),
                    .hospitalNumber = txtPno->text(),
                    .room = txtRoom->text(),
                    .account = gAccountNumber,
                    .station = gStationName});
    ShowReport(true, u"Print ChargeSlip"_s, false);
}

void frmPostCharges::cmdPrint_Click() {
    if (!SaveCharges())
        return;
    SetMousePointer(MousePointer::Wait);
    PrintSlip();
    SetMousePointer(MousePointer::Default);
    Unload();
}
