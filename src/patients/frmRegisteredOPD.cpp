#include "patients/frmRegisteredOPD.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "text/Format.h"
#include "text/Trim.h"
#include "text/UCase.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/Look.h"
#include "toolkit/MousePointer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRegistrationNumber = 1;

/// A column of the list: its heading and its width in twips.
struct RegisteredColumn {
    const char16_t* heading;
    int width;
};
constexpr std::array kRegisteredColumns = {RegisteredColumn{u"", 200},
                                           RegisteredColumn{u"Adm #", 1000},
                                           RegisteredColumn{u"Last Name", 2000},
                                           RegisteredColumn{u"First Name", 2000},
                                           RegisteredColumn{u"Middle Name", 2000},
                                           RegisteredColumn{u"Adm. Date", 1500}};
constexpr QSize kRegisteredListSize(9200, 3600);

} // namespace

frmRegisteredOPD::frmRegisteredOPD() {
    Layout();
    Wire();
}

void frmRegisteredOPD::ResetMembers() {
    ResultCode = QString();
    Valid = false;
    PatientRecord.clear();
    mPatientType = QString();
}

void frmRegisteredOPD::Layout() {
    setObjectName(u"frmRegisteredOPD"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addLayout(LayoutSearch());
    layout->addWidget(LayoutList(), 1);
    layout->addLayout(LayoutActions());
    SetTabOrder({cmbSearch, txtSearch, chkCurrent, grdTable, cmdSelect, cmdClose});
}

QGridLayout* frmRegisteredOPD::LayoutSearch() {
    cmbSearch = NewCombo(u"cmbSearch"_s, {u"Last Name"_s, u"Admission #"_s}, this);
    txtSearch = NewTextBox(u"txtSearch"_s, this);
    txtSearch->setAccessibleName(u"Search text"_s);
    chkCurrent = new QCheckBox(u"Current Registration Only"_s, this);
    chkCurrent->setObjectName(u"chkCurrent"_s);
    auto* search = new QGridLayout;
    QLabel* label = AddLabelled(*search, 0, 0, u"Search"_s, cmbSearch);
    label->setObjectName(u"lblLabel(1)"_s);
    search->addWidget(txtSearch, 0, 2);
    search->addWidget(chkCurrent, 0, 3);
    search->setColumnStretch(2, 1);
    return search;
}

QGroupBox* frmRegisteredOPD::LayoutList() {
    QGroupBox* frame = NewFrame({}, u"Patient List"_s, this);
    grdTable = NewList(u"grdTable"_s, u"Patient List"_s, kRegisteredListSize, frame);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(grdTable);
    return frame;
}

QHBoxLayout* frmRegisteredOPD::LayoutActions() {
    cmdSelect = NewButton(u"cmdSelect"_s, u"&Select"_s, this);
    cmdClose = NewButton(u"cmdClose"_s, u"&Close"_s, this);
    return RightAligned({cmdSelect, cmdClose});
}

void frmRegisteredOPD::Wire() {
    OnKeyDown(txtSearch, [this](int keyCode) { return txtSearch_KeyDown(keyCode); });
    OnKeyPress(txtSearch, [this](int& key) { txtSearch_KeyPress(key); });
    connect(chkCurrent, &QCheckBox::clicked, this, &frmRegisteredOPD::Search);
    connect(grdTable, &FlexGrid::DblClick, this, &frmRegisteredOPD::grdTable_DblClick);
    OnKeyPress(grdTable, [this](int& key) { grdTable_KeyPress(key); });
    connect(cmdSelect, &QPushButton::clicked, this, &frmRegisteredOPD::cmdSelect_Click);
    SetCloseButton(cmdClose);
    connect(cmdClose, &QPushButton::clicked, this, &frmRegisteredOPD::cmdClose_Click);
}

void frmRegisteredOPD::Form_Load() {
    cmbSearch->setCurrentIndex(0);
    ResultCode = QString();
    Valid = false;
    setWindowTitle(PatientRecord);
    grdTable->Cells().SetCols(int(kRegisteredColumns.size()));
    EmptyGrid();
    SetWidths();
    cmdSelect->setEnabled(false);
}

void frmRegisteredOPD::Form_Activate() {
    txtSearch->setFocus();
}

bool frmRegisteredOPD::txtSearch_KeyDown(int keyCode) {
    if (keyCode != Key::kDown)
        return false;
    grdTable->Cells().SetRow(1);
    grdTable->setFocus();
    return true;
}

void frmRegisteredOPD::txtSearch_KeyPress(int& keyAscii) {
    keyAscii = UCase(QChar(keyAscii)).unicode();
    if (keyAscii == Key::kEnter)
        Search();
}

void frmRegisteredOPD::Search() {
    SetMousePointer(MousePointer::Wait);
    RowSet found = gConnection->Open(RegisteredOPDCommand(Format(chkCurrent->isChecked() ? 1 : 0, u"0"),
                                                          Format(cmbSearch->currentIndex(), u"0"),
                                                          Trim(txtSearch->text())),
                                     CursorType::Dynamic, LockType::Optimistic, CursorLocation::Client);
    if (found.Eof()) {
        // Kept: the button stays as the search before has left it.
        EmptyGrid();
    } else {
        grdTable->SetRedraw(false);
        grdTable->Cells().Bind(found.Data());
        SetWidths();
        SetHeadings();
        grdTable->SetRedraw(true);
        cmdSelect->setEnabled(true);
    }
    found.Close();
    SetMousePointer(MousePointer::Default);
}

void frmRegisteredOPD::EmptyGrid() {
    grdTable->Cells().Clear();
    grdTable->Cells().SetRows(2);
    SetHeadings();
}

void frmRegisteredOPD::SetWidths() {
    for (size_t col = 0; col < kRegisteredColumns.size(); ++col)
        grdTable->SetColWidth(int(col), kRegisteredColumns[col].width);
}

void frmRegisteredOPD::SetHeadings() {
    for (size_t col = 1; col < kRegisteredColumns.size(); ++col)
        grdTable->Cells().SetTextMatrix(0, int(col), QString::fromUtf16(kRegisteredColumns[col].heading));
}

void frmRegisteredOPD::grdTable_DblClick() {
    if (cmdSelect->isEnabled())
        cmdSelect_Click();
}

void frmRegisteredOPD::grdTable_KeyPress(int& keyAscii) {
    if (keyAscii == Key::kEnter)
        grdTable_DblClick();
}

void frmRegisteredOPD::cmdSelect_Click() {
    const FlexCells& cells = grdTable->Cells();
    Valid = true;
    ResultCode = cells.TextMatrix(cells.Row(), kRegistrationNumber);
    Unload();
}

void frmRegisteredOPD::cmdClose_Click() {
    Valid = false;
    Unload();
}
