#include "catalogue/frmRates.h"

#include "catalogue/commands.h"
#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Twips.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The rates show under the names of their fields.
constexpr std::array<GridColumn, 8> kRateColumns = {
    {{.width = 300}, {}, {.width = 3000}, {}, {}, {}, {}, {}}};
constexpr int kRatesWidth = 9900;
constexpr int kRatesHeight = 4500;

} // namespace

frmRates::frmRates() {
    Layout();
    Wire();
}

void frmRates::Layout() {
    setObjectName(u"frmRates"_s);
    setWindowTitle(u"List of Rates"_s);
    QLabel* heading = NewHeading(u"List of Rates     "_s, this);
    heading->setObjectName(u"Label1"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addLayout(LayoutCentre());
    layout->addWidget(LayoutList(), 1);
    cmdClose = NewButton(u"cmdClose"_s, u"Close"_s, this);
    layout->addWidget(cmdClose, 0, Qt::AlignRight);
}

QHBoxLayout* frmRates::LayoutCentre() {
    txtRevenueID = NewTextBox(u"txtRevenueID"_s, this);
    cmdSearch = NewPicker(u"cmdSearch"_s, u"Search revenue center"_s, {}, this);
    txtRevenueCenter = NewShownBox(u"txtRevenueCenter"_s, this);
    txtRevenueCenter->setAccessibleName(u"Revenue Center"_s);
    auto* label = new QLabel(u"Select Revenue Center"_s, this);
    label->setObjectName(u"Label2"_s);
    label->setBuddy(txtRevenueID);
    txtRevenueID->setAccessibleName(label->text());
    auto* centre = new QHBoxLayout;
    centre->addWidget(label);
    centre->addWidget(txtRevenueID, 1);
    centre->addWidget(cmdSearch);
    centre->addWidget(txtRevenueCenter, 3);
    return centre;
}

QGroupBox* frmRates::LayoutList() {
    fraList = NewFrame(u"fraList"_s, {}, this);
    grdRates = new FlexGrid(fraList);
    grdRates->setObjectName(u"grdRates"_s);
    grdRates->setAccessibleName(u"Rates"_s);
    grdRates->SetStartSize({kRatesWidth, kRatesHeight});
    auto* list = new QVBoxLayout(fraList);
    list->addWidget(grdRates);
    return fraList;
}

void frmRates::Wire() {
    connect(cmdSearch, &QPushButton::clicked, this, &frmRates::cmdSearch_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
    OnKeyPress(txtRevenueID, [this](int& key) { txtRevenueID_KeyPress(key); });
}

void frmRates::Form_Load() {
    grdRates->Cells().SetCols(int(kRateColumns.size()));
    grdRates->SetColumns(kRateColumns);
}

void frmRates::Form_Activate() {
    MoveTo(0, 0);
}

void frmRates::txtRevenueID_KeyPress(int& keyAscii) {
    if (keyAscii == Key::kEnter)
        cmdSearch_Click();
}

void frmRates::cmdSearch_Click() {
    if (!mRevenue)
        mRevenue = std::make_unique<clsRevenueCode>();
    if (!mRevenue->ValidateRevenue(txtRevenueID->text()))
        return;
    txtRevenueID->setText(mRevenue->RevenueID());
    txtRevenueCenter->setText(mRevenue->Revenue());
    ShowRates(*mRevenue);
}

void frmRates::ShowRates(const clsRevenueCode& centre) {
    if (centre.WithItems() != u"Y"_s) {
        grdRates->Cells().Clear();
        // The frame would go on naming the centre before.
        fraList->setTitle({});
        MsgBox({.text = centre.Revenue() + u" does not have items."_s, .icon = MsgIcon::Exclamation});
        return;
    }
    fraList->setTitle(centre.Revenue());
    RowSet rows = gConnection->Open(RatesCommand(centre.RevenueID()), CursorType::Dynamic,
                                    LockType::Optimistic, CursorLocation::Client);
    grdRates->Cells().Bind(rows.Data());
    rows.Close();
}
