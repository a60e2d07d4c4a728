#include "patients/frmCashPatients.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "patients/frmWalkIn.h"
#include "text/Format.h"
#include "text/Trim.h"
#include "text/UCase.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Picker.h"
#include "toolkit/Screens.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The entries of cmbPatientType.
constexpr int kWalkIn = 0;
constexpr int kOutPatient = 1;
constexpr int kInPatient = 2;
/// Their keys, and the letters by which the caller tells them.
constexpr auto kTypeKeys = "WOI"_L1;
constexpr auto kTypeLetters = "COI"_L1;

constexpr int kNumber = 1;
constexpr std::array kCashColumns = {GridColumn{.width = 200}, GridColumn{u"Adm #", 1000, u"HospNum"},
                                     GridColumn{u"Last Name", 2500, u"LastName"},
                                     GridColumn{u"First Name", 2500, u"FirstName"},
                                     GridColumn{u"Middle Name", 2500, u"MiddleName"}};
constexpr QSize kCashListSize(8950, 3600);

} // namespace

frmCashPatients::frmCashPatients() {
    Layout();
    Wire();
}

void frmCashPatients::Layout() {
    setObjectName(u"frmCashPatients"_s);
    setWindowTitle(u"Cash Patients"_s);
    QLabel* heading = NewHeading(u"Cash Patients    "_s, this);
    heading->setObjectName(u"lblLabel(0)"_s);
    lblPatient = new QLabel(u"Search record of "_s, this);
    lblPatient->setObjectName(u"lblPatient"_s);
    cmbPatientType = NewCombo(u"cmbPatientType"_s, {u"WALK-IN"_s, u"OUTPATIENT"_s, u"INPATIENT"_s}, this);
    cmbSearch = NewCombo(u"cmbSearch"_s, {u"Last Name"_s, u"Cash Patient #"_s}, this);
    cmbSearch->setAccessibleName(u"Search by"_s);
    txtSearch = NewTextBox(u"txtSearch"_s, this);
    txtSearch->setAccessibleName(u"Search text"_s);
    grdTable = NewList(u"grdTable"_s, u"Patients found"_s, kCashListSize, this);
    cmdSelect = NewButton(u"cmdSelect"_s, u"&Select"_s, this);
    cmdAdd = NewButton(u"cmdAdd"_s, u"&Add Patient"_s, this);
    cmdClose = NewButton(u"cmdClose"_s, u"&Close"_s, this);

    auto* search = new QGridLayout;
    AddLabelled(*search, 0, 0, u"Patient Type"_s, cmbPatientType);
    AddLabelled(*search, 0, 2, u"Search by"_s, cmbSearch);
    search->addWidget(txtSearch, 0, 4);
    search->setColumnStretch(4, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(lblPatient);
    layout->addLayout(search);
    layout->addWidget(grdTable, 1);
    layout->addLayout(RightAligned({cmdSelect, cmdAdd, cmdClose}));
    SetTabOrder({cmbPatientType, cmbSearch, txtSearch, grdTable, cmdSelect, cmdAdd, cmdClose});
}

void frmCashPatients::Wire() {
    connect(cmbPatientType, &QComboBox::currentIndexChanged, this, &frmCashPatients::cmbPatientType_Click);
    WirePicker({.list = grdTable,
                .pick = [this] { cmdSelect_Click(); },
                .button = cmdSelect,
                .box = txtSearch,
                .enter = [this] { txtSearch_Enter(); },
                .markFirst = [this] { grdTable->Cells().SetRow(1); }});
    connect(cmdSelect, &QPushButton::clicked, this, &frmCashPatients::cmdSelect_Click);
    connect(cmdAdd, &QPushButton::clicked, this, &frmCashPatients::cmdAdd_Click);
    SetCloseButton(cmdClose);
    connect(cmdClose, &QPushButton::clicked, this, &frmCashPatients::cmdClose_Click);
    OnKeyPress(cmbPatientType, [this](int& key) { cmbPatientType_KeyPress(key); });
}

void frmCashPatients::Form_Load() {
    cmbPatientType->setCurrentIndex(kWalkIn);
    cmbSearch->setCurrentIndex(0);
    ResultCode = QString();
    Valid = false;
    lblPatient->setText(mPatientRecord);
    ResetGrid();
}

void frmCashPatients::Form_Activate() {
    cmbPatientType->setFocus();
}

void frmCashPatients::cmbPatientType_Click() {
    cmdAdd->setEnabled(cmbPatientType->currentIndex() == kWalkIn);
}

void frmCashPatients::cmbPatientType_KeyPress(int& keyAscii) {
    if (keyAscii == Key::kEscape)
        return;
    const QChar key = UCase(QChar(keyAscii));
    const bool isEnter = keyAscii == Key::kEnter;
    // No other key reaches the box, which would look for an entry by itself.
    keyAscii = 0;
    const qsizetype type = kTypeKeys.indexOf(key);
    if (type >= 0)
        cmbPatientType->setCurrentIndex(static_cast<int>(type));
    if (type >= 0 || isEnter)
        txtSearch->setFocus();
}

void frmCashPatients::txtSearch_Enter() {
    switch (cmbPatientType->currentIndex()) {
    case kOutPatient:
        FindOutPatient();
        break;
    case kInPatient:
        FindInPatient();
        break;
    default:
        SearchWalkIns();
    }
}

void frmCashPatients::FindOutPatient() {
    if (!outPatientSearch->ValidatePatient(txtSearch->text()))
        return;
    ResultCode = outPatientSearch->IDNumber();
    cmdSelect_Click();
}

void frmCashPatients::FindInPatient() {
    if (!admissionSearch->ValidateAdmission(txtSearch->text(), QString()))
        return;
    ResultCode = admissionSearch->Admission().IDNumber;
    cmdSelect_Click();
}

void frmCashPatients::ResetGrid() {
    FlexCells& cells = grdTable->Cells();
    cells.Clear();
    cells.SetRows(2);
    cells.SetCols(static_cast<int>(kCashColumns.size()));
    grdTable->SetColumns(kCashColumns);
    cmdSelect->setEnabled(false);
}

void frmCashPatients::SearchWalkIns() {
    SetMousePointer(MousePointer::Wait);
    RowSet found =
        gConnection->Execute(WalkInCommand(Format(cmbSearch->currentIndex(), u"0"), Trim(txtSearch->text())));
    ResetGrid();
    if (!found.Eof()) {
        grdTable->SetRedraw(false);
        FillGrid(found);
        grdTable->SetRedraw(true);
        cmdSelect->setEnabled(true);
    }
    found.Close();
    SetMousePointer(MousePointer::Default);
}

void frmCashPatients::FillGrid(const RowSet& found) {
    const std::shared_ptr<const RowData> rows = found.Data();
    FlexCells& cells = grdTable->Cells();
    cells.SetRows(static_cast<int>(rows->RowCount()) + 1);
    for (int col = kNumber; col < cells.Cols(); ++col) {
        const size_t field = found.ColumnNumber(kCashColumns[static_cast<size_t>(col)].field);
        for (size_t row = 0; row < rows->RowCount(); ++row)
            cells.SetTextMatrix(static_cast<int>(row) + 1, col, rows->Cell(row, field).ToText());
    }
}

void frmCashPatients::cmdSelect_Click() {
    const int type = cmbPatientType->currentIndex();
    PatientType = QString(kTypeLetters[type]);
    Valid = true;
    if (type == kWalkIn)
        ResultCode = grdTable->CurrentText(kNumber);
    Unload();
}

void frmCashPatients::cmdClose_Click() {
    Valid = false;
    Unload();
}

void frmCashPatients::cmdAdd_Click() {
    Screens::Get<frmWalkIn>().ShowModal();
}
