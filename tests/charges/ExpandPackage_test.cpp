#include "charges/commands.h"
#include "charges/ExpandPackage.h"
#include "charges/frmAssessment.h"
#include "charges/frmPostCharges.h"
#include "components/shared.h"
#include "patients/commands.h"
#include "patients/FinderTarget.h"
#include "patients/frmSearchPatient.h"
#include "patients/PatientContext.h"
#include "support/CaseName.h"
#include "support/ErrorOf.h"
#include "support/ScreenTest.h"
#include "text/Clock.h"
#include "text/RunTimeError.h"
#include "toolkit/Screens.h"

#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

const QString kItems = PackageCommand(u"PKG01"_s);

std::shared_ptr<const RowData> PackageRows(const std::vector<std::vector<Value>>& items) {
    std::vector<std::vector<Value>> rows;
    for (const std::vector<Value>& item : items)
        rows.push_back({u"PKG01"_s, item[0], item[1], item[2], item[3]});
    return Rows({u"PackageCode"_s, u"RevenueID"_s, u"ItemID"_s, u"Quantity"_s, u"Amount"_s}, std::move(rows));
}

const std::vector<std::vector<Value>> kTwoItems = {{u"HB"_s, u"M0002"_s, 2.5, 2034.75},
                                                   {u"HD"_s, u"S0011"_s, 1.0, 1850.0}};

} // namespace

/// Both forms over a fresh process, in which no screen waits for the finder.
class ExpandPackageTest : public ScreenTest {
  protected:
    void Issue() {
        IssuePackage(reference, u" PKG01 "_s, [] {
            return PackagePatient{u"100085"_s, u"104233"_s, u"301-A"_s};
        });
    }
    void ExpectLink(const QString& item, const QString& number = u"5017"_s) {
        gateway.Expect(LinkStockCardCommand(u" PKG01 "_s, item, number));
    }

    QString reference = u"5017"_s;
};

TEST_F(ExpandPackageTest, ReadingAsksForTheTrimmedCodeOverADynamicReadOnlyCursorAndSendsNothingElse) {
    gateway.Expect(kItems, PackageRows(kTwoItems));
    ReadPackage(u" PKG01 "_s);
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::ReadOnly);
    EXPECT_TRUE(stockItem->entries.empty());
}

TEST_F(ExpandPackageTest, PackageWithoutItemsIsReadAndTheFinderIsNotAsked) {
    gateway.Expect(kItems, PackageRows({}));
    ReadPackage(u"PKG01"_s);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
}

TEST_F(ExpandPackageTest, AFinderThatIsMadeForTheQuestionIsGoneAfterIt) {
    gateway.Expect(kItems, PackageRows(kTwoItems));
    ReadPackage(u"PKG01"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
}

TEST_F(ExpandPackageTest, AFinderThatIsOpenAnswersAndStays) {
    Screens::Get<frmSearchPatient>().optPatientType[0]->setChecked(true);
    gateway.Expect(kItems, PackageRows({kTwoItems[0]}));
    ExpectLink(u"M0002"_s);
    Issue();
    EXPECT_EQ(stockItem->entries[0].patientType, u"I"_s);
    EXPECT_TRUE(Screens::IsLoaded<frmSearchPatient>());
}

TEST_F(ExpandPackageTest, HiddenFinderFillsItselfOnceByTheScreenThatStillWaitsForIt) {
    RegisterFinderTarget(u"Post"_s, []() -> FinderTarget& { return Screens::Get<frmPostCharges>(); });
    gChargeMode = u"Post"_s;
    gPatientType = u"I"_s;
    gateway.Expect(kItems, PackageRows(kTwoItems));
    gateway.Expect(
        GetPatientCommand(u"I"_s, u""_s),
        Rows({u"hospital #"_s, u"Admission #"_s, u"Patient Name"_s, u"admission date"_s, u"Billing Date"_s}));
    ReadPackage(u"PKG01"_s);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(ExpandPackageTest, ItemWithANullCentreOrCodeIsRead) {
    gateway.Expect(kItems, PackageRows({{Value(), Value(), 1.0, 1.0}}));
    ReadPackage(u"PKG01"_s);
    EXPECT_TRUE(gateway.IsDone());
}

struct NullCase {
    const char* name;
    std::vector<Value> item;
};

class NullInAPackage : public ExpandPackageTest, public testing::WithParamInterface<NullCase> {};

INSTANTIATE_TEST_SUITE_P(Columns, NullInAPackage,
                         testing::Values(NullCase{"Quantity", {u"HB"_s, u"M0002"_s, Value(), 1.0}},
                                         NullCase{"Amount", {u"HB"_s, u"M0002"_s, 1.0, Value()}}),
                         CaseName());

TEST_P(NullInAPackage, FailsInTheReadingForm) {
    gateway.Expect(kItems, PackageRows({GetParam().item}));
    EXPECT_EQ(ErrorOf([] { ReadPackage(u"PKG01"_s); }), RunTime::kInvalidUseOfNull);
}

TEST_P(NullInAPackage, FailsInTheFullFormBehindTheItemsBeforeIt) {
    gateway.Expect(kItems, PackageRows({kTwoItems[0], GetParam().item}));
    ExpectLink(u"M0002"_s);
    EXPECT_EQ(ErrorOf([this] { Issue(); }), RunTime::kInvalidUseOfNull);
    EXPECT_EQ(stockItem->entries.size(), 1U);
}

TEST_F(ExpandPackageTest, FullFormWritesAStockCardEntryForEachItemAndLinksItByTheUntrimmedCode) {
    gateway.Expect(kItems, PackageRows(kTwoItems));
    ExpectLink(u"M0002"_s);
    ExpectLink(u"S0011"_s);
    Issue();
    ASSERT_EQ(stockItem->entries.size(), 2U);
    const StockCardEntry& entry = stockItem->entries[0];
    EXPECT_EQ(entry.hospitalNumber, u"100085"_s);
    EXPECT_EQ(entry.idNumber, u"104233"_s);
    EXPECT_EQ(entry.itemID, u"M0002"_s);
    EXPECT_EQ(entry.moment, u"11/21/2026 10:30:15 AM"_s);
    EXPECT_EQ(entry.referenceNumber, u"5017"_s);
    EXPECT_EQ(entry.quantity, 2.5);
    EXPECT_EQ(entry.position7, 0);
    EXPECT_EQ(entry.amount, 2034.75);
    EXPECT_EQ(entry.userCode, u"NURSE"_s);
    EXPECT_EQ(entry.position10, u"PRN"_s);
    EXPECT_EQ(entry.position11, QString());
    EXPECT_EQ(entry.chargeLine, QString());
    EXPECT_EQ(entry.position13, QString());
    EXPECT_EQ(entry.room, u"301-A"_s);
    EXPECT_EQ(entry.position15, 1);
    EXPECT_EQ(entry.position16, u"PH"_s);
    EXPECT_EQ(entry.position17, u"PH"_s);
    for (const auto& leftOut : {entry.position18, entry.recordType, entry.position20, entry.position21,
                                entry.position23, entry.position24, entry.position25})
        EXPECT_FALSE(leftOut.has_value());
    EXPECT_EQ(entry.patientType, u"O"_s);
    EXPECT_EQ(entry.position26, 0);
    EXPECT_EQ(stockItem->entries[1].itemID, u"S0011"_s);
    EXPECT_EQ(stockItem->entries[1].position16, u"PH"_s) << "the centre HD counts for nothing";
}

TEST_F(ExpandPackageTest, ItemThatIsItselfCalledHDGoesAsASupply) {
    gateway.Expect(kItems, PackageRows({{u"HB"_s, u"HD"_s, 1.0, 1.0}}));
    ExpectLink(u"HD"_s);
    Issue();
    EXPECT_EQ(stockItem->entries.at(0).position16, u"CS"_s);
    EXPECT_EQ(stockItem->entries.at(0).position17, u"CS"_s);
}

TEST_F(ExpandPackageTest, FinderWithInPatientOnMakesTheEntryAnInPatients) {
    Screens::Get<frmSearchPatient>().optPatientType[0]->setChecked(true);
    gateway.Expect(kItems, PackageRows({kTwoItems[0]}));
    ExpectLink(u"M0002"_s);
    Issue();
    EXPECT_EQ(stockItem->entries.at(0).patientType, u"I"_s);
}

TEST_F(ExpandPackageTest, EachEntryBearsTheTimeOfItsOwn) {
    int second = 0;
    const auto clock = ClockSeam().Replace([&second] {
        return DateTime::FromFields({2026, 11, 21, 13, 5, second++, 0}).value();
    });
    gateway.Expect(kItems, PackageRows(kTwoItems));
    ExpectLink(u"M0002"_s);
    ExpectLink(u"S0011"_s);
    Issue();
    EXPECT_EQ(stockItem->entries.at(0).moment, u"11/21/2026 01:05:00 PM"_s);
    EXPECT_EQ(stockItem->entries.at(1).moment, u"11/21/2026 01:05:01 PM"_s);
}

/// A component that rewrites what it is handed by reference.
class RewritingStockItem : public FakeStockItem {
  public:
    void AppendStockCard(StockCardEntry& entry) override {
        FakeStockItem::AppendStockCard(entry);
        entry.itemID += u"-A"_s;
        entry.referenceNumber += u"-1"_s;
    }
};

TEST_F(ExpandPackageTest, LinkGoesByWhatTheComponentHasMadeOfItemAndNumber) {
    const auto rewriting = std::make_shared<RewritingStockItem>();
    gStockItem = rewriting;
    gateway.Expect(kItems, PackageRows(kTwoItems));
    ExpectLink(u"M0002-A"_s, u"5017-1"_s);
    ExpectLink(u"S0011-A"_s, u"5017-1-1"_s);
    Issue();
    EXPECT_EQ(rewriting->entries.at(1).referenceNumber, u"5017-1"_s);
    EXPECT_EQ(reference, u"5017-1-1"_s);
}

TEST_F(ExpandPackageTest, FailingEntryIsNotLinkedAndEndsTheExpansion) {
    stockItem->failure = RunTimeError(50000, u"out of stock"_s);
    gateway.Expect(kItems, PackageRows(kTwoItems));
    EXPECT_EQ(ErrorOf([this] { Issue(); }), 50000);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(ExpandPackageTest, ApostropheInTheCodeGoesOutAsItStands) {
    gateway.ExpectFailure(PackageCommand(u"P'1"_s), RunTimeError(105, u"Unclosed quotation mark"_s));
    EXPECT_EQ(ErrorOf([] { ReadPackage(u"P'1"_s); }), 105);
}

TEST_F(ExpandPackageTest, PostingScreenHasTheFullFormForThePatientItShows) {
    auto& screen = Screens::Get<frmPostCharges>();
    Find<QLineEdit>(screen, "txtPno").setText(u"100085"_s);
    Find<QLineEdit>(screen, "txtId").setText(u"104233"_s);
    Find<QLineEdit>(screen, "txtRoom").setText(u"301-A"_s);
    gateway.Expect(kItems, PackageRows({kTwoItems[0]}));
    gateway.Expect(LinkStockCardCommand(u"PKG01"_s, u"M0002"_s, u"5017"_s));
    screen.ExpandPackage(reference, u"PKG01"_s);
    ASSERT_EQ(stockItem->entries.size(), 1U);
    EXPECT_EQ(stockItem->entries[0].hospitalNumber, u"100085"_s);
    EXPECT_EQ(stockItem->entries[0].idNumber, u"104233"_s);
    EXPECT_EQ(stockItem->entries[0].room, u"301-A"_s);
}

/// A component that changes what the screen shows while an entry is written.
class RelabellingStockItem : public FakeStockItem {
  public:
    void AppendStockCard(StockCardEntry& entry) override {
        FakeStockItem::AppendStockCard(entry);
        auto& screen = Screens::Get<frmPostCharges>();
        for (const char* box : {"txtPno", "txtId", "txtRoom"})
            Find<QLineEdit>(screen, box).setText(QString::fromLatin1(box) + u" moved"_s);
    }
};

TEST_F(ExpandPackageTest, PostingScreenReadsThePatientAnewForEachItem) {
    const auto relabelling = std::make_shared<RelabellingStockItem>();
    gStockItem = relabelling;
    auto& screen = Screens::Get<frmPostCharges>();
    Find<QLineEdit>(screen, "txtPno").setText(u"100085"_s);
    Find<QLineEdit>(screen, "txtId").setText(u"104233"_s);
    Find<QLineEdit>(screen, "txtRoom").setText(u"301-A"_s);
    gateway.Expect(kItems, PackageRows(kTwoItems));
    for (const QString& item : {u"M0002"_s, u"S0011"_s})
        gateway.Expect(LinkStockCardCommand(u"PKG01"_s, item, u"5017"_s));
    screen.ExpandPackage(reference, u"PKG01"_s);
    ASSERT_EQ(relabelling->entries.size(), 2U);
    EXPECT_EQ(relabelling->entries[0].hospitalNumber, u"100085"_s);
    EXPECT_EQ(relabelling->entries[1].hospitalNumber, u"txtPno moved"_s);
    EXPECT_EQ(relabelling->entries[1].idNumber, u"txtId moved"_s);
    EXPECT_EQ(relabelling->entries[1].room, u"txtRoom moved"_s);
}

TEST_F(ExpandPackageTest, AssessmentHasTheReadingFormWhateverTheAmount) {
    gateway.Expect(kItems, PackageRows(kTwoItems));
    Screens::Get<frmAssessment>().ExpandPackage(u"5017"_s, u"PKG01"_s, u"900.00"_s);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_TRUE(stockItem->entries.empty());
}
