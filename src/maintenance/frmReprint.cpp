#include "maintenance/frmReprint.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "maintenance/commands.h"
#include "patients/OutpatientSearch.h"
#include "report/output/ChoosePrinter.h"
#include "report/output/PrintJob.h"
#include "report/ReportEngine.h"
#include "reports/Reports.h"
#include "text/Clock.h"
#include "text/Format.h"
#include "text/UCase.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Picker.h"
#include "toolkit/ProgramFiles.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

enum PatientCode { kInPatient, kOutPatient };

namespace ReprintColumn {
constexpr int kSlip = 1;
constexpr int kDate = 2;
constexpr int kItem = 3;
constexpr int kDescription = 4;
constexpr int kQuantity = 5;
constexpr int kAmount = 6;
constexpr int kEncoder = 7;
constexpr int kRevenueCode = 8;
} // namespace ReprintColumn

constexpr std::array kReprintColumns = {GridColumn{.width = 250},
                                        GridColumn{u"REF. #", 1000, u"RefNum"},
                                        GridColumn{u"DATE", 2000, u"TransDate"},
                                        GridColumn{u"CODE", 1000, u"ItemID"},
                                        GridColumn{u"DESCRIPTION", 3000, u"Description"},
                                        GridColumn{u"QTY", 1000, u"Quantity", Qt::AlignRight},
                                        GridColumn{u"AMOUNT", 1000, u"Amount", Qt::AlignRight},
                                        GridColumn{u"ENCODER", 1000, u"UserId"},
                                        GridColumn{u"REVENUEID", 500, u"RevenueID"}};

constexpr int kPrinterError = 482;

/// A number of the list; nothing is shown for zero.
QString NumberText(const Value& value, QStringView pattern) {
    const double number = value.ToDouble();
    return number == 0 ? QString() : Format(number, pattern);
}

/// What a column shows of its field. All but the description raise 94 for a Null.
QString ShownText(int col, const Value& field) {
    switch (col) {
    case ReprintColumn::kDate:
        return Format(field.ToDate(), u"mm/dd/yyyy hh:mmAM/PM");
    case ReprintColumn::kDescription:
        return field.TextOrEmpty();
    case ReprintColumn::kQuantity:
        return NumberText(field, u"0");
    case ReprintColumn::kAmount:
        return NumberText(field, u"0.00");
    default:
        return field.ToText();
    }
}

} // namespace

frmReprint::frmReprint() {
    Layout();
    Wire();
}

void frmReprint::Wire() {
    OnKeyPress(cmbPatientCode, [this](int& key) { cmbPatientCode_KeyPress(key); });
    OnKeyPress(txtIDNum, [this](int& key) { txtIDNum_KeyPress(key); });
    connect(grdTable, &FlexGrid::RowColChange, this, &frmReprint::grdTable_RowColChange);
    WirePicker(
        {.list = grdTable, .pick = [this] { cmdPrint_Click(); }, .keys = PickKeys::None, .button = cmdPrint});
    connect(cmdPrint, &QPushButton::clicked, this, &frmReprint::cmdPrint_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
}

void frmReprint::Form_Load() {
    cmbPatientCode->addItem(u"Inpatient"_s);
    cmbPatientCode->addItem(u"Outpatient"_s);
    cmbPatientCode->setCurrentIndex(kInPatient);
    // The headings come with the first patient.
    grdTable->Cells().SetCols(int(kReprintColumns.size()));
}

void frmReprint::Form_Activate() {
    MoveTo(0, 0);
}

void frmReprint::cmbPatientCode_KeyPress(int& keyAscii) {
    const char16_t key = UCase(QChar(keyAscii)).unicode();
    if (key == u'I')
        cmbPatientCode->setCurrentIndex(kInPatient);
    else if (key == u'O')
        cmbPatientCode->setCurrentIndex(kOutPatient);
    else if (key != Key::kEnter)
        return;
    txtIDNum->setFocus();
}

void frmReprint::txtIDNum_KeyPress(int& keyAscii) {
    // Kept: any key sets the hourglass, and it stays until charges have been loaded.
    SetMousePointer(MousePointer::Wait);
    if (keyAscii != Key::kEnter) {
        keyAscii = UCase(QChar(keyAscii)).unicode();
        return;
    }
    if (!(cmbPatientCode->currentIndex() == kInPatient ? FindInPatient() : FindOutPatient()))
        return;
    SetMousePointer(MousePointer::Wait);
    LoadCharges();
    SetMousePointer(MousePointer::Default);
    grdTable->setFocus();
}

bool frmReprint::FindInPatient() {
    QString number = txtIDNum->text();
    if (!gPersonFinder->ValidateAdmission(number)) {
        cmdPrint->setEnabled(false);
        return false;
    }
    const AdmissionRecord& admission = gPersonFinder->Admission();
    txtIDNum->setText(admission.IDNumber.ToText());
    txtHospNum->setText(admission.HospitalNumber.ToText());
    txtLastName->setText(admission.Patient->LastName.ToText());
    txtFirstName->setText(admission.Patient->FirstName.ToText());
    txtMiddleName->setText(admission.Patient->MiddleName.ToText());
    cmdPrint->setEnabled(true);
    mPatientName = admission.Patient->LastName.ToText() + u", "_s + admission.Patient->FirstName.ToText() +
                   u" "_s + admission.Patient->MiddleName.ToText();
    mCompany = admission.Account->Company.ToText();
    mIdNum = admission.IDNumber.ToText();
    mRoomId = admission.Room->RoomID.ToText();
    return true;
}

bool frmReprint::FindOutPatient() {
    QString number = txtIDNum->text();
    // Kept: a number that is not found leaves the print button as it is, unlike an in-patient's.
    if (!gOutpatientSearch->ValidatePatient(number))
        return false;
    txtIDNum->setText(gOutpatientSearch->IDNumber());
    txtHospNum->setText(gOutpatientSearch->HospitalNumber());
    txtLastName->setText(gOutpatientSearch->LastName());
    txtFirstName->setText(gOutpatientSearch->FirstName());
    txtMiddleName->setText(gOutpatientSearch->MiddleName());
    mIdNum = gOutpatientSearch->IDNumber();
    // Kept: an out-patient goes without the middle name here; the slip takes it from the box.
    mPatientName = gOutpatientSearch->LastName() + u", "_s + gOutpatientSearch->FirstName();
    mCompany = gOutpatientSearch->Company();
    mRoomId = u"OPD"_s;
    return true;
}

void frmReprint::PutUpGrid() {
    grdTable->Cells().Clear();
    grdTable->SetColumns(kReprintColumns);
}

void frmReprint::LoadCharges() {
    RowSet charges = gCurrentUser->SQLConnection()->Execute(ChargesByPatientCommand(mIdNum));
    PutUpGrid();
    if (charges.Eof()) {
        cmdPrint->setEnabled(false);
        return;
    }
    FlexCells& cells = grdTable->Cells();
    for (int row = 1; !charges.Eof(); ++row, charges.MoveNext()) {
        cells.SetRows(row + 1);
        for (int col = ReprintColumn::kSlip; col <= ReprintColumn::kRevenueCode; ++col)
            cells.SetTextMatrix(row, col, ShownText(col, charges.Fields(kReprintColumns[size_t(col)].field)));
    }
    cmdPrint->setEnabled(true);
}

void frmReprint::grdTable_RowColChange() {
    cmdPrint->setEnabled(!grdTable->CurrentText(ReprintColumn::kSlip).isEmpty());
}

void frmReprint::WriteLinesOfSlip() {
    gConnection->ExecuteNoResult(EmptyChargePrintCommand());
    const FlexCells& cells = grdTable->Cells();
    for (int row = 1; row < cells.Rows(); ++row) {
        if (cells.TextMatrix(row, ReprintColumn::kSlip) != mSlipNo)
            continue;
        const QString revenueCode = cells.TextMatrix(row, ReprintColumn::kRevenueCode);
        gCurrentUser->SQLConnection()->ExecuteNoResult(
            SaveDuplicateLineCommand({.code = revenueCode + cells.TextMatrix(row, ReprintColumn::kItem),
                                      .amount = cells.TextMatrix(row, ReprintColumn::kAmount),
                                      .quantity = cells.TextMatrix(row, ReprintColumn::kQuantity),
                                      .revenueCode = revenueCode,
                                      .description = cells.TextMatrix(row, ReprintColumn::kDescription)}));
    }
}

void frmReprint::cmdPrint_Click() {
    mSlipNo = grdTable->CurrentText(ReprintColumn::kSlip);
    mSlipDate = Format(Value(grdTable->CurrentText(ReprintColumn::kDate)).ToDate(), u"mm/dd/yyyy");
    mEncoder = grdTable->CurrentText(ReprintColumn::kEncoder);
    SetMousePointer(MousePointer::Wait);
    WriteLinesOfSlip();
    SetMousePointer(MousePointer::Default);
    const QString name =
        txtLastName->text() + u", "_s + txtFirstName->text() + u" "_s + txtMiddleName->text();
    OpenReport(ProgramDirectory() + u"/Reports/Charge_Slip.RPT"_s,
               {mSlipNo, Format(Now(), u"mm/dd/yyyy"), name, txtIDNum->text(), txtHospNum->text(), mRoomId,
                Format(Now(), u"hh:mm:ss AM/PM"), mCompany, u"HEMODIALYSIS"_s, gCurrentUser->EmployeeName()});
    ShowReport(false, u"Print ChargeSlip"_s, false);
}

/// Empty for a user who is not on file.
QString frmReprint::IssuerName() const {
    const RowSet issuer = gCurrentUser->SQLConnection()->Execute(IssuerCommand(mEncoder));
    if (issuer.Eof())
        return {};
    return issuer.Fields(u"LastName").ToText() + u", "_s + issuer.Fields(u"FirstName").ToText();
}

/// Fills what the older layout prints, each by its name in upper case. Fields of other names keep what the
/// template has.
void frmReprint::SetFormulaTexts() const {
    for (ParameterField& formula : gReport->ParameterFields()) {
        const QString name = UCase(formula.Name());
        if (name == u"TITLE"_s)
            formula.SetCurrentValue(UCase(gHospitalName) + u" CC NO. "_s + mSlipNo);
        else if (name == u"PATIENT"_s)
            formula.SetCurrentValue(mPatientName);
        else if (name == u"COMPANY"_s)
            formula.SetCurrentValue(mCompany);
        else if (name == u"ADMNO"_s)
            formula.SetCurrentValue(mIdNum);
        else if (name == u"ISSUER"_s)
            formula.SetCurrentValue(IssuerName());
        else if (name == u"REMARKS"_s)
            formula.SetCurrentValue(u"/"_s);
        else if (name == u"USERID"_s)
            formula.SetCurrentValue(gCurrentUser->EmployeeCode());
        else if (name == u"CHARGEDATE"_s)
            formula.SetCurrentValue(mSlipDate);
    }
}

void frmReprint::PrintDirect(QPrinter& printer) {
    cmdPrint_Click();
    gReport = ReportEngine().OpenReport(ProgramDirectory() + u"\\ChargeSlip.rpt"_s, kOpenOption);
    for (ReportTable& table : gReport->Tables())
        SetTableLogOn(table, u"REPORTS"_s);
    SetFormulaTexts();
    const auto pages = gReport->Document();
    printer.setPageLayout(pages->Paper());
    const QString problem = PrintAtOnce(*pages, printer);
    if (!problem.isEmpty())
        throw RunTimeError(kPrinterError, problem);
    gReport = {};
}
