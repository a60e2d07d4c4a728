#include "charges/frmAssessment.h"

#include "charges/ChargeGrid.h"
#include "charges/commands.h"
#include "charges/ExpandPackage.h"
#include "charges/RequestingDoctor.h"
#include "components/DepartmentCodes.h"
#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/frmCashWalkIn.h"
#include "patients/PatientContext.h"
#include "reports/commands.h"
#include "reports/ReportFiles.h"
#include "reports/Reports.h"
#include "text/Format.h"
#include "text/Trim.h"
#include "text/UCase.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/MousePointer.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Screens.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumnPrice = kAssessmentDifferences.priceCol;
constexpr int kAssessedQuantity = kAssessmentDifferences.quantityCol;
/// In-patient, out-patient, walk-in.
constexpr auto kTypeLetters = "IOW"_L1;

} // namespace

frmAssessment::frmAssessment() {
    Layout();
    Wire();
}

void frmAssessment::Wire() {
    for (size_t i = 0; i < optType.size(); ++i) {
        connect(optType[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on)
                optType_Click(i);
        });
    }
    OnKeyPress(txtSname, [this](int& key) { txtSname_KeyPress(key); });
    connect(cmdSearch, &QPushButton::clicked, this, &frmAssessment::cmdSearch_Click);
    OnKeyPress(txtDoctorID, [this](int& key) { txtDoctorID_KeyPress(key); });
    connect(cmdDoctor, &QPushButton::clicked, this, &frmAssessment::cmdDoctor_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmAssessment::cmdSave_Click);
    connect(cmdPrint, &QPushButton::clicked, this, &frmAssessment::cmdPrint_Click);
    SetCloseButton(cmdClose);
    connect(cmdClose, &QPushButton::clicked, this, &frmAssessment::cmdClose_Click);
}

void frmAssessment::Form_Load() {
    mGrid->SetupGrid();
    mGrid->DisarmLastRow();
    // The list of cash patients goes by the letter; before anybody has set one there is nothing to list.
    const bool isChosen = gPatientType.size() == 1 && kTypeLetters.contains(gPatientType.front());
    if (!isChosen)
        optType.front()->setChecked(true);
}

void frmAssessment::Form_Unload() {
    ChargeGrid::ResetLineCount();
}

bool frmAssessment::Check_Code(const QString& strCode) const {
    return mGrid->Check_Code(strCode);
}

bool frmAssessment::PatientTypeOn(int index) const {
    return optType.at(static_cast<size_t>(index))->isChecked();
}

void frmAssessment::EnableExams() {
    fraExams->setEnabled(true);
}

void frmAssessment::optType_Click(size_t index) {
    gPatientType = kTypeLetters[static_cast<qsizetype>(index)];
}

void frmAssessment::cmdSearch_Click() {
    gCashSearchText = txtSname->text();
    Screens::Get<frmCashWalkIn>().ShowModal();
}

void frmAssessment::txtSname_KeyPress(int& keyAscii) {
    keyAscii = UCase(QChar(keyAscii)).unicode();
    if (keyAscii != Key::kEnter)
        return;
    cmdSearch_Click();
    if (mGrid->Grid()->isEnabled())
        mGrid->Grid()->setFocus();
}

void frmAssessment::txtDoctorID_KeyPress(int& keyAscii) {
    if (keyAscii == Key::kEnter)
        LookUpRequestingDoctor(*txtDoctorID, *txtDoctor, *txtDoctor);
}

void frmAssessment::cmdDoctor_Click() {
    PickRequestingDoctor(*txtDoctorID, *txtDoctor);
}

void frmAssessment::ExpandPackage(const QString& /*referenceNumber*/, const QString& packageCode,
                                  const QString& /*amount*/) {
    ReadPackage(packageCode);
}

/// Reads and bumps the counter.
QString frmAssessment::TakeAssessmentNumber() {
    RowSet counter = gCurrentUser->SQLConnection()->Open(AssessmentCounterCommand(), CursorType::Dynamic,
                                                         LockType::Optimistic);
    counter.MoveFirst();
    const Value next = counter.Fields(u"AssessmentNum");
    gSlipNumber = Format(next.ToDouble(), u"0");
    counter.SetField(u"AssessmentNum", next.ToInteger() + 1);
    counter.Update();
    counter.Close();
    return gSlipNumber;
}

void frmAssessment::SaveLine(int row, const QString& number) {
    const QString department = mGrid->Text(row, Column::kDepartment);
    if (department.isEmpty())
        return;
    const QString code = mGrid->Text(row, Column::kCode);
    const QString amount = mGrid->Text(row, Column::kAmount);
    if (department == Department::kPackage) {
        ExpandPackage(number, code, amount);
        return;
    }
    gCurrentUser->SQLConnection()->ExecuteNoResult(
        AssessmentCommand({.number = number,
                           .patientName = Trim(txtSname->text()),
                           .code = code,
                           .department = department,
                           .quantity = mGrid->Text(row, kAssessedQuantity),
                           .amount = amount,
                           .userCode = gCurrentUser->EmployeeCode(),
                           .hospitalNumber = txtHospNum->text(),
                           .visitNumber = txtIdnum->text(),
                           .requestingDoctorCode = Trim(txtDoctorID->text()),
                           .requestingDoctorName = txtDoctor->text()}));
}

bool frmAssessment::SaveAssessment(QString& number) {
    if (Trim(txtSname->text()).isEmpty()) {
        MsgBox({.text = u"Please enter the patients name."_s,
                .icon = MsgIcon::Exclamation,
                .title = u"Assessment"_s});
        return false;
    }
    mGrid->SetRedraw(false);
    // Kept: a save without lines leaves the redraw off until the next full one.
    if (!mGrid->HasLines())
        return false;
    mGrid->SetRedraw(true);
    SetMousePointer(MousePointer::Wait);
    number = TakeAssessmentNumber();
    mGrid->SetRedraw(false);
    for (int row = 1; row < mGrid->Cells().Rows(); ++row)
        SaveLine(row, number);
    mGrid->SetRedraw(true);
    SetMousePointer(MousePointer::Default);
    return true;
}

void frmAssessment::FillPrintTable() {
    CommandGateway& connection = *gCurrentUser->SQLConnection();
    connection.ExecuteNoResult(EmptyChargePrintCommand());
    for (int row = 1; row < mGrid->Cells().Rows(); ++row) {
        const AssessmentPrintLine line{.code = mGrid->Text(row, Column::kCode),
                                       .particular = mGrid->Text(row, Column::kParticular),
                                       .quantity = mGrid->Text(row, kAssessedQuantity),
                                       .price = mGrid->Text(row, kColumnPrice),
                                       .amount = mGrid->Text(row, Column::kAmount),
                                       .department = mGrid->Text(row, Column::kDepartment),
                                       .userCode = gCurrentUser->EmployeeCode()};
        if (line.department.isEmpty())
            continue;
        connection.ExecuteNoResult(GlobalDumpChargeSlipCommand(line));
        connection.ExecuteNoResult(DumpChargeSlipCommand(line));
    }
}

void frmAssessment::PrintSlip() {
    OpenReport(PathOf(ReportFile::kAssessmentSlip),
               {gSlipNumber, txtSname->text(), txtHospNum->text(), txtIdnum->text(), u"OPD"_s,
                gCurrentUser->EmployeeName()});
    ShowReport(true, u"Print ChargeSlip"_s, false);
}

void frmAssessment::LeavePatient() {
    txtSname->clear();
    Unload();
}

void frmAssessment::cmdSave_Click() {
    QString number;
    if (SaveAssessment(number))
        LeavePatient();
}

void frmAssessment::cmdPrint_Click() {
    QString number;
    if (!SaveAssessment(number))
        return;
    SetMousePointer(MousePointer::Wait);
    FillPrintTable();
    PrintSlip();
    SetMousePointer(MousePointer::Default);
    LeavePatient();
}

void frmAssessment::cmdClose_Click() {
    // Kept: the question speaks of the program, and only the screen closes.
    if (MsgBox({.text = u"Are you sure to close this program?"_s,
                .icon = MsgIcon::Question,
                .title = u"OPD Registration System"_s,
                .buttons = MsgButtons::OkCancel}) == MsgAnswer::Ok)
        Unload();
}
