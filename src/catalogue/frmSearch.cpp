#include "catalogue/frmSearch.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Focus.h"
#include "toolkit/Keys.h"
#include "toolkit/Picker.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The fields show under their own names; the first two are what one picks by.
constexpr std::array kPickColumns = {GridColumn{.width = 200}, GridColumn{.width = 4150},
                                     GridColumn{.width = 1500}};
/// However many fields stand behind them, their names have to fit.
constexpr int kFurtherWidth = 1500;

constexpr QSize kListSize(6600, 4000);

} // namespace

frmSearch::frmSearch() {
    Layout();
    Wire();
}

void frmSearch::Layout() {
    setObjectName(u"frmSearch"_s);
    lblHospital = new QLabel(this);
    lblHospital->setObjectName(u"lblHospital"_s);
    lblTitle = NewHeading(QString(), this);
    lblTitle->setObjectName(u"lblTitle"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblHospital);
    layout->addWidget(lblTitle);
    layout->addLayout(LayoutSearch());
    layout->addWidget(LayoutRecords(), 1);
    layout->addLayout(LayoutActions());
}

QHBoxLayout* frmSearch::LayoutSearch() {
    lblSTitle = new QLabel(this);
    lblSTitle->setObjectName(u"lblSTitle"_s);
    txtSearchStr = NewTextBox(u"txtSearchStr"_s, this);
    lblSTitle->setBuddy(txtSearchStr);
    txtSearchStr->setAccessibleName(u"Search"_s);
    auto* search = new QHBoxLayout;
    search->addWidget(lblSTitle);
    search->addWidget(txtSearchStr, 1);
    return search;
}

QGroupBox* frmSearch::LayoutRecords() {
    QGroupBox* records = NewFrame({}, u"Records List"_s, this);
    grdDispWindow = NewList(u"grdDispWindow"_s, u"Records List"_s, kListSize, records);
    grdDispWindow->Cells().SetCols(int(kPickColumns.size()));
    auto* layout = new QVBoxLayout(records);
    layout->addWidget(grdDispWindow);
    return records;
}

QHBoxLayout* frmSearch::LayoutActions() {
    lblHelpTip =
        new QLabel(u"Press [Select] Enter or Double Click on the Table to Select, Cancel to Abort"_s, this);
    lblHelpTip->setObjectName(u"lblHelpTip"_s);
    cmdSelect = NewButton(u"cmdSelect"_s, u"&Select"_s, this);
    cmdCancel = NewButton(u"cmdCancel"_s, u"Cancel"_s, this);
    auto* actions = new QHBoxLayout;
    actions->addWidget(lblHelpTip, 1);
    actions->addWidget(cmdSelect);
    actions->addWidget(cmdCancel);
    return actions;
}

void frmSearch::Wire() {
    connect(txtSearchStr, &QLineEdit::textChanged, this, &frmSearch::txtSearchStr_Change);
    connect(grdDispWindow, &FlexGrid::RowColChange, this, &frmSearch::grdDispWindow_RowColChange);
    connect(cmdSelect, &QPushButton::clicked, this, &frmSearch::cmdSelect_Click);
    SetCloseButton(cmdCancel);
    connect(cmdCancel, &QPushButton::clicked, this, &frmSearch::cmdCancel_Click);
    WirePicker({.list = grdDispWindow,
                .pick = [this] { cmdSelect_Click(); },
                .button = cmdSelect,
                .box = txtSearchStr,
                .enter = [this] { PickTopVisibleRow(); },
                .markFirst = [this] { GoToTopVisibleRow(); }});
    OnKeyDown(txtSearchStr, [this](int keyCode) { return txtSearchStr_KeyDown(keyCode); });
    OnGotFocus(txtSearchStr, [this] { txtSearchStr->selectAll(); });
}

void frmSearch::Form_Load() {
    // The close box picks nothing, whatever an earlier caller picked.
    mValid = false;
    lblHospital->setText(gHospitalName);
    lblTitle->setText(SearchCaption);
    lblSTitle->setText(SearchCaption);
    setWindowTitle(SearchCaption);
    if (DisableSearch)
        txtSearchStr->setEnabled(false);
    else
        FillGrid(Criteria);
    FlexCells& cells = grdDispWindow->Cells();
    for (int col = 1; col < cells.Cols(); ++col)
        cells.SetHeaderBold(col, true);
    if (cells.Rows() >= 2)
        cells.SetRow(1);
    cells.SetCol(1);
    grdDispWindow->SetColumns(kPickColumns);
    for (int col = int(kPickColumns.size()); col < cells.Cols(); ++col)
        grdDispWindow->SetColWidth(col, kFurtherWidth);
    mRow = cells.Row();
}

void frmSearch::Form_Activate() {
    if (DisableSearch)
        grdDispWindow->setFocus();
    else
        txtSearchStr->setFocus();
}

void frmSearch::FillGrid(const QString& text) {
    QString command = Query;
    command.replace(u"##"_s, text);
    RowSet rows =
        gConnection->Open(command, CursorType::Dynamic, LockType::Optimistic, CursorLocation::Client);
    grdDispWindow->Cells().Bind(rows.Data());
    rows.Close();
    mRow = grdDispWindow->Cells().Row();
    cmdSelect->setEnabled(grdDispWindow->Cells().Rows() >= 2);
    mSearchDue = false;
}

bool frmSearch::txtSearchStr_KeyDown(int keyCode) {
    if (keyCode != Key::kEnter)
        mSearchDue = true;
    return false;
}

void frmSearch::PickTopVisibleRow() {
    if (grdDispWindow->Cells().Rows() < 2)
        return;
    GoToTopVisibleRow();
    cmdSelect_Click();
}

void frmSearch::txtSearchStr_Change() {
    if (mSearchDue)
        FillGrid(txtSearchStr->text());
}

void frmSearch::GoToTopVisibleRow() {
    FlexCells& cells = grdDispWindow->Cells();
    if (cells.Rows() < 2)
        return;
    cells.SetRow(grdDispWindow->TopRow());
    grdDispWindow_RowColChange();
}

void frmSearch::grdDispWindow_RowColChange() {
    FlexCells& cells = grdDispWindow->Cells();
    if (cells.Row() == mRow)
        return;
    mRow = cells.Row();
    // What the program writes itself searches for nothing.
    mSearchDue = false;
    txtSearchStr->setText(grdDispWindow->CurrentText(1));
}

void frmSearch::cmdSelect_Click() {
    mResultCode = grdDispWindow->CurrentText(2);
    mValid = true;
    Unload();
}

void frmSearch::cmdCancel_Click() {
    mValid = false;
    Unload();
}
