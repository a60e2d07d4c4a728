#include "maintenance/frmReprint.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "maintenance/commands.h"
#include "patients/OutpatientSearch.h"
#include "reports/commands.h"
#include "reports/ReportFiles.h"
#include "reports/Reports.h"
#include "reports/SlipHeading.h"
#include "text/Format.h"
#include "text/UCase.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Picker.h"

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
    OpenChargeSlip({.number = mSlipNo,
                    .patientName = name,
                    .admissionNumber = txtIDNum->text(),
                    .hospitalNumber = txtHospNum->text(),
                    .room = mRoomId,
                    .account = mCompany,
                    .station = u"HEMODIALYSIS"_s});
    ShowReport(false, u"Print ChargeSlip"_s, false);
}

/// Empty for a user who is not on file.
QString frmReprint::IssuerName() const {
    const RowSet issuer = gCurrentUser->SQLConnection()->Execute(IssuerCommand(mEncoder));
    if (issuer.Eof())
        return {};
    return issuer.Fields(u"LastName").ToText() + u", "_s + issuer.Fields(u"FirstName").ToText();
}

/// What the older layout prints, by the name of the formula. One of another name keeps what the template has.
std::optional<QString> frmReprint::FormulaText(const QString& formula) const {
    if (formula == u"TITLE"_s)
        return UCase(gHospitalName) + u" CC NO. "_s + mSlipNo;
    if (formula == u"PATIENT"_s)
        return mPatientName;
    if (formula == u"COMPANY"_s)
        return mCompany;
    if (formula == u"ADMNO"_s)
        return mIdNum;
    if (formula == u"ISSUER"_s)
        return IssuerName();
    if (formula == u"REMARKS"_s)
        return u"/"_s;
    if (formula == u"USERID"_s)
        return gCurrentUser->EmployeeCode();
    if (formula == u"CHARGEDATE"_s)
        return mSlipDate;
    return {};
}

void frmReprint::PrintDirect(QPrinter& printer) {
    cmdPrint_Click();
    OpenReportOn(u"REPORTS"_s, PathOf(ReportFile::kOlderChargeSlip),
                 [this](const QString& formula) { return FormulaText(formula); });
    PrintReport(printer);
    gReport = {};
}
