#include "catalogue/commands.h"
#include "catalogue/frmRates.h"
#include "support/FakeWorkspace.h"
#include "support/RevenueRows.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const RevenueCentre kRatedCentre{u"EAR CARE"_s, u"HC"_s};
const RevenueCentre kRatedFees{u"MEDICAL FEE"_s, u"MD"_s, u"N"_s};

} // namespace

class frmRatesTest : public ScreenTest {
  protected:
    frmRates& Open() {
        auto& rates = Screens::Get<frmRates>();
        rates.Show();
        Activate(*rates.window());
        return rates;
    }

    void ExpectRates() {
        gateway.Expect(RatesCommand(u"HC"_s), Rows({u"Code"_s, u"Item"_s, u"RateA"_s},
                                                   {{u"HC01"_s, u"CLEANING"_s, Decimal{u"100.0000"_s}},
                                                    {u"HC02"_s, u"TEST"_s, Value()}}));
    }

    static FlexGrid& Grid(const frmRates& rates) { return Find<FlexGrid>(rates, "grdRates"); }

    FakeWorkspace workspace;
};

TEST_F(frmRatesTest, GridHasEightColumnsOfTheirWidths) {
    const FlexGrid& grid = Grid(Open());
    EXPECT_EQ(grid.Cells().Cols(), 8);
    EXPECT_EQ(grid.ColWidth(0), 300);
    EXPECT_EQ(grid.ColWidth(2), 3000);
    for (const int col : {3, 4, 5, 6, 7})
        EXPECT_EQ(grid.ColWidth(col), grid.ColWidth(1));
}

TEST_F(frmRatesTest, EachActivationMovesItToTheTopLeftCorner) {
    auto& rates = Open();
    QMdiSubWindow& window = *workspace.Area()->subWindowList().front();
    EXPECT_EQ(window.pos(), QPoint(0, 0));
    auto& other = Screens::Get<Form>();
    other.Show();
    window.move(200, 100);
    rates.Show();
    EXPECT_EQ(window.pos(), QPoint(0, 0));
}

TEST_F(frmRatesTest, SearchShowsTheCentreAndItsRates) {
    const auto& rates = Open();
    Type(Find<QLineEdit>(rates, "txtRevenueID"), u"hc"_s);
    gateway.Expect(ExactRevenueCommand(u"hc"_s), RevenueRows({kRatedCentre}));
    ExpectRates();
    Click(Find<QPushButton>(rates, "cmdSearch"));
    EXPECT_EQ(Find<QLineEdit>(rates, "txtRevenueID").text(), u"HC"_s);
    EXPECT_EQ(Find<QLineEdit>(rates, "txtRevenueCenter").text(), u"EAR CARE"_s);
    EXPECT_EQ(Find<QGroupBox>(rates, "fraList").title(), u"EAR CARE"_s);
    const FlexCells& cells = Grid(rates).Cells();
    EXPECT_EQ(cells.Rows(), 3);
    EXPECT_EQ(cells.Cols(), 4);
    EXPECT_EQ(cells.TextMatrix(0, 2), u"Item"_s);
    EXPECT_EQ(cells.TextMatrix(1, 3), u"100"_s);
    EXPECT_EQ(cells.TextMatrix(2, 3), u""_s);
    EXPECT_EQ(gateway.Openings().back().cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings().back().lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings().back().location, CursorLocation::Client);
}

TEST_F(frmRatesTest, EnterInTheCodeSearches) {
    const auto& rates = Open();
    Type(Find<QLineEdit>(rates, "txtRevenueID"), u"HC"_s);
    ExpectExact(gateway, kRatedCentre);
    ExpectRates();
    Press(Find<QLineEdit>(rates, "txtRevenueID"), Qt::Key_Return);
    EXPECT_EQ(Grid(rates).Cells().Rows(), 3);
}

TEST_F(frmRatesTest, CentreWithoutItemsClearsTheGridAndSaysSo) {
    const auto& rates = Open();
    auto& code = Find<QLineEdit>(rates, "txtRevenueID");
    code.setText(u"HC"_s);
    ExpectExact(gateway, kRatedCentre);
    ExpectRates();
    Press(code, Qt::Key_Return);
    code.setText(u"MD"_s);
    ExpectExact(gateway, kRatedFees);
    messages.Expect({.text = u"MEDICAL FEE does not have items."_s, .icon = MsgIcon::Exclamation});
    Press(code, Qt::Key_Return);
    EXPECT_EQ(Find<QLineEdit>(rates, "txtRevenueCenter").text(), u"MEDICAL FEE"_s);
    EXPECT_EQ(Find<QGroupBox>(rates, "fraList").title(), u""_s) << "not the centre before";
    for (int col = 0; col < 4; ++col)
        EXPECT_EQ(Grid(rates).Cells().TextMatrix(1, col), u""_s);
    EXPECT_EQ(Grid(rates).Cells().TextMatrix(0, 2), u""_s);
}

TEST_F(frmRatesTest, UnknownCentreChangesNothing) {
    const auto& rates = Open();
    auto& code = Find<QLineEdit>(rates, "txtRevenueID");
    code.setText(u"QQ"_s);
    gateway.Expect(ExactRevenueCommand(u"QQ"_s), RevenueRows({}));
    gateway.Expect(PartialRevenueCommand(u"QQ"_s), RevenueRows({}));
    messages.Expect({.text = u"Item does not exists."_s, .icon = MsgIcon::Exclamation});
    Press(code, Qt::Key_Return);
    EXPECT_EQ(code.text(), u"QQ"_s);
    EXPECT_EQ(Find<QLineEdit>(rates, "txtRevenueCenter").text(), u""_s);
    EXPECT_EQ(Grid(rates).Cells().Cols(), 8);
}

TEST_F(frmRatesTest, CloseUnloadsWithoutAQuestion) {
    const auto& rates = Open();
    Click(Find<QPushButton>(rates, "cmdClose"));
    EXPECT_FALSE(Screens::IsLoaded<frmRates>());
}
