#include "patients/frmRegisteredOPD.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "text/Format.h"
#include "text/Trim.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Look.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Picker.h"

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
constexpr std::array kRegisteredColumns = {GridColumn{.width = 200},         GridColumn{u"Adm #", 1000},
                                           GridColumn{u"Last Name", 2000},   GridColumn{u"First Name", 2000},
                                           GridColumn{u"Middle Name", 2000}, GridColumn{u"Adm. Date", 1500}};
constexpr QSize kRegisteredListSize(9200, 3600);

} // namespace

frmRegisteredOPD::frmRegisteredOPD() {
    Layout();
    Wire();
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
    WirePicker({.list = grdTable,
                .pick = [this] { cmdSelect_Click(); },
                .button = cmdSelect,
                .box = txtSearch,
                .enter = [this] { Search(); },
                .markFirst = [this] { grdTable->Cells().SetRow(1); }});
    connect(chkCurrent, &QCheckBox::clicked, this, &frmRegisteredOPD::Search);
    connect(cmdSelect, &QPushButton::clicked, this, &frmRegisteredOPD::cmdSelect_Click);
    SetCloseButton(cmdClose);
    connect(cmdClose, &QPushButton::clicked, this, &frmRegisteredOPD::cmdClose_Click);
}

void frmRegisteredOPD::Form_Load() {
    cmbSearch->setCurrentIndex(0);
    ResultCode = QString();
    Valid = false;
    setWindowTitle(PatientRecord);
    EmptyGrid();
    grdTable->SetColumns(kRegisteredColumns);
    cmdSelect->setEnabled(false);
}

void frmRegisteredOPD::Form_Activate() {
    txtSearch->setFocus();
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
        grdTable->SetColumns(kRegisteredColumns);
        grdTable->SetRedraw(true);
        cmdSelect->setEnabled(true);
    }
    found.Close();
    SetMousePointer(MousePointer::Default);
}

void frmRegisteredOPD::EmptyGrid() {
    grdTable->Cells().Clear();
    grdTable->Cells().SetRows(2);
    grdTable->Cells().SetColumns(kRegisteredColumns);
}

void frmRegisteredOPD::cmdSelect_Click() {
    Valid = true;
    ResultCode = grdTable->CurrentText(kRegistrationNumber);
    Unload();
}

void frmRegisteredOPD::cmdClose_Click() {
    Valid = false;
    Unload();
}
