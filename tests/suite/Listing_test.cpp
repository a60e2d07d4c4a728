#include "suite/Listing.h"
#include "suite/StockList.h"
#include "suite/SuiteTest.h"
#include "toolkit/ListView.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

class ListingTest : public SuiteTest {
  protected:
    ListingTest() {
        Run(u"INSERT INTO build_file..tbCoDoctor (DoctorID, LastName, FirstName, MiddleName, Specialty) "
            u"VALUES "
            "('D990', 'ÑAGA', 'TESTA', 'LIM', 'NEPHROLOGY')"_s);
        Run(u"INSERT INTO build_file..tbCoOtherRevenue (RevenueID, ItemID, OtherRevenue, RateA, RateB, "
            u"RateC, RateD, "
            "RateE, RateF, RateG, RateH) VALUES ('HC', 'ZZ01', 'ZZ TEST SERVICE', 1.25, 2, 3, 4, 5, 6, 7, 0)"_s);
        Run(u"INSERT INTO build_file..tbCoOtherRevenue (RevenueID, ItemID, OtherRevenue) VALUES "
            "('LB', 'ZZ02', 'ZZ TEST OF THE LABORATORY')"_s);
        Run(u"INSERT INTO INVENTORY..tbInvMaster (ItemID, ItemName, Unit, SectionID, SellingPriceOut, "
            u"SellingPriceIn) "
            "VALUES ('Q001', 'QUININE 300 MG', 'TAB', '1', 5, 6)"_s);
        listing.SetConnection(mGateway.get());
        listing.SetOtherSectionID(u"HC"_s);
    }

    /// Searches without a list coming.
    bool Exact(QString& code, int kind) {
        const NoDialog none;
        return listing.SearchListing(code, kind);
    }

    /// Searches with a list from which the row of that text is taken.
    bool PickAs(QString& code, int kind, const QString& title, const QString& typed) {
        const OnDialog pick([&title, &typed](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), title);
            Type(Find<QLineEdit>(dialog, "txtPick"), typed);
            Press(Find<QLineEdit>(dialog, "txtPick"), Qt::Key_Return);
        });
        return listing.SearchListing(code, kind);
    }

    Listing listing;
};

TEST_F(ListingTest, ACodeIsFoundAtOnceWhateverItsLetterCase) {
    QString code = u"d990"_s;
    EXPECT_TRUE(Exact(code, ListingKind::kDoctor));
    EXPECT_EQ(code, u"D990"_s);
    EXPECT_EQ(listing.DoctorRecord().ResultCode, u"D990"_s);
    EXPECT_EQ(listing.DoctorRecord().LastName, u"ÑAGA"_s);
    EXPECT_EQ(listing.DoctorRecord().FirstName, u"TESTA"_s);
    EXPECT_EQ(listing.DoctorRecord().MiddleName, u"LIM"_s);
}

TEST_F(ListingTest, ADoctorIsPickedByName) {
    QString text = QString();
    EXPECT_TRUE(PickAs(text, ListingKind::kDoctor, u"Doctors"_s, u"TESTA ÑAG"_s));
    EXPECT_EQ(text, u"D990"_s);
    EXPECT_EQ(listing.DoctorRecord().ResultCode, u"D990"_s);
}

TEST_F(ListingTest, ATextThatIsNoCodeStartsTheList) {
    QString text = u"ÑAG"_s;
    const OnDialog pick([](QDialog& dialog) {
        EXPECT_EQ(Find<QLineEdit>(dialog, "txtPick").text(), u"ÑAG"_s);
        EXPECT_EQ(Find<ListView>(dialog, "lstPick").CurrentText(0), u"D990"_s);
        Press(Find<QLineEdit>(dialog, "txtPick"), Qt::Key_Return);
    });
    EXPECT_TRUE(listing.SearchListing(text, ListingKind::kDoctor));
    EXPECT_EQ(text, u"D990"_s);
}

TEST_F(ListingTest, AListThatIsLeftKeepsTextAndRecord) {
    QString code = u"D990"_s;
    ASSERT_TRUE(Exact(code, ListingKind::kDoctor));
    QString text = u"D"_s;
    const OnDialog leave([](QDialog& dialog) { dialog.reject(); });
    EXPECT_FALSE(listing.SearchListing(text, ListingKind::kDoctor));
    EXPECT_EQ(text, u"D"_s);
    EXPECT_EQ(listing.DoctorRecord().ResultCode, u"D990"_s);
}

TEST_F(ListingTest, InitializingForgetsTheRecords) {
    QString code = u"D990"_s;
    ASSERT_TRUE(Exact(code, ListingKind::kDoctor));
    listing.Initialize_Classes();
    EXPECT_EQ(listing.DoctorRecord().ResultCode, QString());
}

TEST_F(ListingTest, AServiceBringsItsEightRates) {
    QString code = u"ZZ01"_s;
    EXPECT_TRUE(Exact(code, ListingKind::kOtherRevenue));
    EXPECT_EQ(listing.OtherRevenueRecord().ResultCode, u"ZZ01"_s);
    EXPECT_EQ(listing.OtherRevenueRecord().OtherRevenue, u"ZZ TEST SERVICE"_s);
    EXPECT_EQ(listing.OtherRevenueRecord().Rates, (std::array<double, 8>{1.25, 2, 3, 4, 5, 6, 7, 0}));
}

TEST_F(ListingTest, ServicesAreThoseOfTheSection) {
    QString text = u"ZZ TEST"_s;
    const OnDialog pick([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Services"_s);
        EXPECT_EQ(Find<ListView>(dialog, "lstPick").RowCount(), 1);
        Press(Find<QLineEdit>(dialog, "txtPick"), Qt::Key_Return);
    });
    EXPECT_TRUE(listing.SearchListing(text, ListingKind::kOtherRevenue));
    EXPECT_EQ(text, u"ZZ01"_s);
    listing.SetOtherSectionID(u"LB"_s);
    QString other = u"ZZ02"_s;
    EXPECT_TRUE(Exact(other, ListingKind::kOtherRevenue));
}

TEST_F(ListingTest, ATextOfTheStockThatNoServiceMatchesBringsNoList) {
    for (const QString& typed : {u"Q001"_s, u"QUININE"_s, u"quinine 3"_s}) {
        QString text = typed;
        EXPECT_FALSE(Exact(text, ListingKind::kOtherRevenue)) << typed.toStdString();
        EXPECT_EQ(text, typed);
    }
}

/// What the charge screens do with a keyed text: the stock first, the services next.
class StockThenServices : public ListingTest {
  protected:
    StockThenServices() {
        // A text that finds the item and a service alike.
        Run(u"INSERT INTO build_file..tbCoOtherRevenue (RevenueID, ItemID, OtherRevenue) VALUES "
            "('HC', 'ZZ03', 'QUININE LEVEL')"_s);
    }

    QString PickFromStock(const QString& text) {
        const OnDialog pick([](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Stock Items"_s);
            Press(Find<QLineEdit>(dialog, "txtPick"), Qt::Key_Return);
        });
        return stock.ShowList(text, false, u"1"_s);
    }

    StockList stock;
};

TEST_F(StockThenServices, AnItemThatWasPickedByNameBringsNoSecondList) {
    EXPECT_EQ(PickFromStock(u"QUININE"_s), u"Q001"_s);
    QString text = u"QUININE"_s;
    EXPECT_FALSE(Exact(text, ListingKind::kOtherRevenue)) << "what was keyed";
    PickFromStock(u"QUININE"_s);
    text = u"Q001"_s;
    EXPECT_FALSE(Exact(text, ListingKind::kOtherRevenue)) << "what was picked";
}

TEST_F(StockThenServices, AnItemThatWasPickedFromTheWholeListBringsNoSecondList) {
    const OnDialog pick([](QDialog& dialog) {
        Type(Find<QLineEdit>(dialog, "txtPick"), u"QUININE"_s);
        Press(Find<QLineEdit>(dialog, "txtPick"), Qt::Key_Return);
    });
    EXPECT_EQ(stock.ShowList(QString(), false, u"1"_s), u"Q001"_s);
    QString text;
    EXPECT_FALSE(Exact(text, ListingKind::kOtherRevenue));
}

TEST_F(StockThenServices, ACodeThatIsAServiceTooIsStillFoundAmongTheServices) {
    Run(u"INSERT INTO build_file..tbCoOtherRevenue (RevenueID, ItemID, OtherRevenue) VALUES "
        "('HC', 'Q001', 'THE SAME CODE')"_s);
    EXPECT_EQ(stock.ShowList(u"Q001"_s, false, u"1"_s), u"Q001"_s);
    QString code = u"Q001"_s;
    EXPECT_TRUE(Exact(code, ListingKind::kOtherRevenue));
    EXPECT_EQ(listing.OtherRevenueRecord().OtherRevenue, u"THE SAME CODE"_s);
}

TEST_F(StockThenServices, APickCountsForTheNextSearchAlone) {
    PickFromStock(u"QUININE"_s);
    QString text = u"QUININE"_s;
    Exact(text, ListingKind::kOtherRevenue);
    EXPECT_TRUE(PickAs(text = u"QUININE"_s, ListingKind::kOtherRevenue, u"Services"_s, u"QUININE"_s));
    EXPECT_EQ(listing.OtherRevenueRecord().ResultCode, u"ZZ03"_s);
}

TEST_F(StockThenServices, AListThatWasLeftPicksNothing) {
    const OnDialog leave([](QDialog& dialog) { dialog.reject(); });
    stock.ShowList(u"QUININE"_s, false, u"1"_s);
    QString text = u"QUININE"_s;
    EXPECT_TRUE(PickAs(text, ListingKind::kOtherRevenue, u"Services"_s, u"QUININE"_s));
}

TEST_F(ListingTest, ATextThatNobodyKnowsBringsTheWholeListOfServices) {
    QString text = u"XYZZY"_s;
    const OnDialog look([this](QDialog& dialog) {
        EXPECT_EQ(
            Find<ListView>(dialog, "lstPick").RowCount(),
            static_cast<int>(
                Rows(u"SELECT ItemID FROM build_file..tbCoOtherRevenue WHERE RevenueID = 'HC'"_s).size()));
        dialog.reject();
    });
    EXPECT_FALSE(listing.SearchListing(text, ListingKind::kOtherRevenue));
}

TEST_F(ListingTest, AnEmptyTextBringsTheListOfServices) {
    QString text;
    EXPECT_TRUE(PickAs(text, ListingKind::kOtherRevenue, u"Services"_s, u"ZZ TEST"_s));
    EXPECT_EQ(text, u"ZZ01"_s);
}

TEST_F(ListingTest, AddressesAndCivilStatusArePickedLikewise) {
    Run(u"INSERT INTO build_file..tbCoAddress (ZipCode, Town, Province) VALUES ('9999', 'ZAMBALOT', 'BILIRAN')"_s);
    QString zip;
    EXPECT_TRUE(PickAs(zip, ListingKind::kAddress, u"Addresses"_s, u"ZAMBALOT"_s));
    EXPECT_EQ(zip, u"9999"_s);
    EXPECT_EQ(listing.AddressRecord().ResultCode, u"9999"_s);
    EXPECT_EQ(listing.AddressRecord().Town, u"ZAMBALOT"_s);
    EXPECT_EQ(listing.AddressRecord().Province, u"BILIRAN"_s);
    QString status = u"2"_s;
    EXPECT_TRUE(Exact(status, ListingKind::kCivilStatus));
    EXPECT_EQ(listing.CivilStatusRecord().ResultCode, u"2"_s);
    EXPECT_EQ(listing.CivilStatusRecord().CivilStatus,
              Cell(u"SELECT CivilStatus FROM build_file..tbCoCivilStatus WHERE CivilStatusID = '2'"_s));
    EXPECT_TRUE(PickAs(status = QString(), ListingKind::kCivilStatus, u"Civil Status"_s, u"MARRIED"_s));
    EXPECT_EQ(status, u"2"_s);
}

TEST_F(ListingTest, AnApostropheDoesNoHarm) {
    QString text = u"O'BRIEN"_s;
    const OnDialog leave([](QDialog& dialog) { dialog.reject(); });
    EXPECT_FALSE(listing.SearchListing(text, ListingKind::kOtherRevenue));
    EXPECT_EQ(text, u"O'BRIEN"_s);
}

TEST_F(ListingTest, ANumberThatIsNoListingsRaises9) {
    QString code = u"D990"_s;
    try {
        Exact(code, 2);
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 9);
    }
}

TEST_F(ListingTest, WithoutAConnectionItRaises91) {
    Listing unconnected;
    QString code = u"D990"_s;
    try {
        unconnected.SearchListing(code, ListingKind::kDoctor);
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 91);
    }
}

} // namespace
