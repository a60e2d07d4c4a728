#include "support/hospital/HospitalTest.h"

using namespace Qt::StringLiterals;

namespace {

class Catalogue : public HospitalTest {
  protected:
    std::vector<QStringList> Search(const QString& kind, const QString& text) {
        return Rows(Call(u"Clinical_Area..spEarCare_SearchRevenue"_s, {kind, text}));
    }
};

TEST_F(Catalogue, EveryKindOfSearchGivesTheNamedColumnsWithTheCodeSecond) {
    const QStringList expected = {u"Revenue"_s, u"RevenueID"_s, u"WithItems"_s, u"SearchInventory"_s,
                                  u"LocationID"_s};
    for (const QString& kind : {u"0"_s, u"1"_s, u"2"_s})
        EXPECT_EQ(Columns(Call(u"Clinical_Area..spEarCare_SearchRevenue"_s, {kind, u"HC"_s})), expected);
}

TEST_F(Catalogue, ExactSearchFindsTheWholeCodeInAnyLetterCaseAndNothingElse) {
    ASSERT_EQ(Search(u"1"_s, u"hc"_s).size(), 1U);
    EXPECT_EQ(Search(u"1"_s, u"hc"_s).front(),
              QStringList({u"HEMODIALYSIS"_s, u"HC"_s, u"Y"_s, u"False"_s, u"HC"_s}));
    EXPECT_TRUE(Search(u"1"_s, u"H"_s).empty());
    EXPECT_TRUE(Search(u"1"_s, u"HEMODIALYSIS"_s).empty());
    EXPECT_TRUE(Search(u"1"_s, u""_s).empty());
}

TEST_F(Catalogue, PartialSearchFindsTheBeginningOfTheCodeOrOfTheName) {
    EXPECT_EQ(Column(Search(u"2"_s, u"H"_s), 1), QStringList({u"HC"_s, u"HB"_s, u"YP"_s, u"HD"_s}));
    EXPECT_EQ(Column(Search(u"2"_s, u"MED"_s), 1), QStringList({u"MD"_s}));
    EXPECT_EQ(Column(Search(u"2"_s, u"yp"_s), 1), QStringList({u"YP"_s}));
    EXPECT_TRUE(Search(u"2"_s, u"DIALYSIS"_s).empty());
    EXPECT_TRUE(Search(u"2"_s, u"%"_s).empty());
}

TEST_F(Catalogue, ThePickersListIsSearchedAsItIsTyped) {
    EXPECT_EQ(Column(Search(u"0"_s, u"HEMO"_s), 1), Column(Search(u"2"_s, u"HEMO"_s), 1));
    EXPECT_EQ(Search(u"0"_s, u""_s).size(), 13U);
}

TEST_F(Catalogue, CentresOfEveryMakeStand) {
    const auto makeOf = [this](const QString& code) { return Search(u"1"_s, code).front().mid(2); };
    EXPECT_EQ(makeOf(u"HB"_s), QStringList({u"N"_s, u"True"_s, u"1"_s}));
    EXPECT_EQ(makeOf(u"HD"_s), QStringList({u"N"_s, u"True"_s, u"52"_s}));
    EXPECT_EQ(makeOf(u"MD"_s), QStringList({u"N"_s, u"False"_s, u"NULL"_s}));
    EXPECT_EQ(makeOf(u"MS"_s), QStringList({u"N"_s, u"False"_s, u"NULL"_s}));
    EXPECT_EQ(makeOf(u"YP"_s), QStringList({u"Y"_s, u"False"_s, u"NULL"_s}));
}

TEST_F(Catalogue, RateListHasTheItemsOfTheCentreWithEightRates) {
    const QString command = Call(u"Hemodialysis..spKidney_Rates"_s, {u"OX"_s});
    EXPECT_EQ(Columns(command),
              QStringList({u"Code"_s, u"Description"_s, u"Rate A"_s, u"Rate B"_s, u"Rate C"_s, u"Rate D"_s,
                           u"Rate E"_s, u"Rate F"_s, u"Rate G"_s, u"Rate H"_s}));
    EXPECT_EQ(Column(Rows(command), 1),
              QStringList({u"OXYGEN CANNULA SET-UP"_s, u"OXYGEN, PER HOUR"_s, u"OXYGEN, PER TANK"_s,
                           u"VENTILATOR SUPPORT, PER HOUR"_s}));
    EXPECT_EQ(Rows(command)[2].mid(2), QStringList({u"950"_s, u"1045"_s, u"1140"_s, u"1283"_s, u"1425"_s,
                                                    u"1520"_s, u"1235"_s, u"760"_s}));
    EXPECT_TRUE(Rows(Call(u"Hemodialysis..spKidney_Rates"_s, {u"MD"_s})).empty());
}

TEST_F(Catalogue, SomeRatesAreZeroForOneClassAndSomeForAll) {
    EXPECT_NE(Cell(u"SELECT COUNT(*) FROM build_file..tbCoOtherRevenue WHERE RateA > 0 AND RateH = 0"_s),
              u"0"_s);
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM build_file..tbCoOtherRevenue WHERE RateA = 0"_s),
              Cell(u"SELECT COUNT(*) FROM build_file..tbCoOtherRevenue WHERE RateA = 0 AND RateB = 0 AND "
                   u"RateC = 0 AND "
                   "RateD = 0 AND RateE = 0 AND RateF = 0 AND RateG = 0 AND RateH = 0"_s));
    EXPECT_NE(Cell(u"SELECT COUNT(*) FROM build_file..tbCoOtherRevenue WHERE RateA = 0"_s), u"0"_s);
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM INVENTORY..tbInvMaster WHERE SellingPriceIn = 0"_s), u"1"_s);
}

TEST_F(Catalogue, OneCodeIsBothAStockItemAndAService) {
    const QString both =
        u"SELECT COUNT(*) FROM build_file..tbCoOtherRevenue AS s INNER JOIN INVENTORY..tbInvMaster "
        "AS i ON i.ItemID = s.ItemID WHERE s.RevenueID = '%1'"_s;
    EXPECT_EQ(Cell(both.arg(u"HC"_s)), u"1"_s);
    EXPECT_EQ(Cell(both.arg(u"HD"_s)), u"1"_s);
}

TEST_F(Catalogue, PackagesHaveItemsThatExistAndAPriceThatIsTheirSum) {
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM build_file..tbCoOtherRevenue WHERE RevenueID = 'YP'"_s), u"6"_s);
    EXPECT_EQ(
        Cell(u"SELECT COUNT(*) FROM HEMODIALYSIS..tbhemopackage AS p WHERE NOT EXISTS (SELECT s.ItemID FROM "
             "build_file..tbCoOtherRevenue AS s WHERE s.RevenueID = p.RevenueID AND s.ItemID = p.ItemID) AND "
             "NOT "
             "EXISTS (SELECT i.ItemID FROM INVENTORY..tbInvMaster AS i WHERE i.ItemID = p.ItemID)"_s),
        u"0"_s);
    for (const QStringList& row :
         Rows(u"SELECT s.RateA, (SELECT SUM(p.Amount) FROM HEMODIALYSIS..tbhemopackage AS p WHERE "
              u"p.PackageCode = "
              "s.ItemID) FROM build_file..tbCoOtherRevenue AS s WHERE s.RevenueID = 'YP'"_s))
        EXPECT_NEAR(row[0].toDouble(), row[1].toDouble(), 1.0);
}

TEST_F(Catalogue, StockOfBothSectionsStands) {
    EXPECT_EQ(Rows(u"SELECT SectionID, COUNT(*) AS n FROM INVENTORY..tbInvMaster GROUP BY SectionID ORDER BY "
                   "SectionID"_s),
              (std::vector<QStringList>{{u"1"_s, u"90"_s}, {u"52"_s, u"110"_s}}));
}

TEST_F(Catalogue, HospitalRecordHasOneRowWithItsFlagClear) {
    const auto rows = Rows(u"select * from PATIENT_DATA..tbhospitalInfo"_s);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows.front().last(), u"False"_s);
    EXPECT_EQ(Columns(u"select * from PATIENT_DATA..tbhospitalInfo"_s),
              QStringList({u"company"_s, u"Address1"_s, u"TinNo"_s, u"Bygeneric"_s}));
}

} // namespace
