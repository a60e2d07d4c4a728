#include "patients/frmARPatients.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "text/Trim.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Look.h"
#include "toolkit/Picker.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int kAdmissionNumber = 2;
// Kept: the first heading belongs to the narrow fixed column, so each one stands a column before what it
// names. The field behind the last heading shows under its own name, for which the usual width is too narrow.
constexpr std::array kARColumns = {GridColumn{u"Hospital Num ", 100},
                                   GridColumn{u" Adm. Num ", 1200},
                                   GridColumn{u" Patient Name ", 1200},
                                   GridColumn{u" Billing Date ", 3000},
                                   GridColumn{u" Charging Status ", 1800},
                                   GridColumn{u" Discharge Date ", 1800},
                                   GridColumn{.width = 1800}};
constexpr QSize kARListSize(11600, 3600);

} // namespace

frmARPatients::frmARPatients() {
    Layout();
    Wire();
}

void frmARPatients::Layout() {
    setObjectName(u"frmARPatients"_s);
    setWindowTitle(u"Search Patient"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addLayout(LayoutSearch());
    layout->addWidget(LayoutList(), 1);
    layout->addLayout(LayoutActions());
    SetTabOrder({cmbSearch, txtSearch, grdTable, cmdSelect, cmdClose});
    txtSearch->setFocus();
}

QHBoxLayout* frmARPatients::LayoutSearch() {
    cmbSearch = NewCombo(u"cmbSearch"_s, {u"Admission#"_s, u"Hospital#"_s, u"LastName"_s}, this);
    cmbSearch->setAccessibleName(u"Search by"_s);
    txtSearch = NewTextBox(u"txtSearch"_s, this);
    txtSearch->setAccessibleName(u"Search text"_s);
    auto* search = new QHBoxLayout;
    search->addWidget(cmbSearch);
    search->addWidget(txtSearch, 1);
    return search;
}

QGroupBox* frmARPatients::LayoutList() {
    QGroupBox* frame = NewFrame({}, u"Patient List"_s, this);
    grdTable = NewList(u"grdTable"_s, u"Patient List"_s, kARListSize, frame);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(grdTable);
    return frame;
}

QHBoxLayout* frmARPatients::LayoutActions() {
    cmdSelect = NewButton(u"cmdSelect"_s, u"&Select"_s, this);
    cmdClose = NewButton(u"cmdClose"_s, u"&Close"_s, this);
    return RightAligned({cmdSelect, cmdClose});
}

void frmARPatients::Wire() {
    WirePicker({.list = grdTable,
                .pick = [this] { cmdSelect_Click(); },
                .keys = PickKeys::None,
                .box = txtSearch,
                .capitals = false,
                .enter = [this] { Search(); },
                .downToList = false});
    connect(cmdSelect, &QPushButton::clicked, this, &frmARPatients::cmdSelect_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
}

void frmARPatients::Form_Load() {
    // Kept: the choice of what to search by is not sent; the hospital finds the text in any of the three.
    cmbSearch->setCurrentText(u"LastName"_s);
    grdTable->SetColumns(kARColumns);
}

void frmARPatients::Search() {
    if (mFound.State() == RowSet::Status::Open)
        mFound.Close();
    mFound = gConnection->Open(SearchBilledPatientCommand(Trim(PatientType), txtSearch->text()),
                               CursorType::Dynamic, LockType::ReadOnly, CursorLocation::Client);
    if (mFound.RecordCount() <= 0)
        return;
    grdTable->SetColumns(kARColumns);
    grdTable->Cells().Bind(mFound.Data());
    mFound.Close();
}

void frmARPatients::cmdSelect_Click() {
    mValid = true;
    mResultCode = grdTable->CurrentText(kAdmissionNumber);
    Unload();
}
