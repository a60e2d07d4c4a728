#include "maintenance/AssessStatusGround.h"
#include "reports/Reports.h"
#include "support/slip/SlipPrint.h"

#include <QApplication>
#include <QFile>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// A line of tbCashAssessment with the columns that the print reads, in an order of their own.
std::shared_ptr<const RowData> SlipRows(const std::vector<std::vector<Value>>& rows) {
    return Rows({u"AssessNum"_s, u"RefNum"_s, u"Name"_s, u"HospNum"_s, u"IdNum"_s, u"Quantity"_s, u"Amount"_s,
                 u"TransDate"_s},
                rows);
}

} // namespace

class AssessPrintTest : public AssessStatusGround {
  protected:
    /// Presses Print and answers the values that the slip got.
    std::vector<QString> PrintedValues() {
        const std::vector<QString> values =
            slip.Values(u"Re-Print Assessment Slip"_s, [] { Click(Print()); });
        EXPECT_FALSE(gReport.IsSet());
        EXPECT_TRUE(gateway.IsDone());
        return values;
    }

    /// Presses Print and answers the number of the failure; a slip that shows all the same is closed.
    int PrintFails() {
        QTimer::singleShot(0, qApp, [] {
            if (auto* viewer = qobject_cast<Form*>(QApplication::activeModalWidget()))
                viewer->Unload();
        });
        Click(Print());
        return TakeFailure();
    }

    const SlipPrint slip{programDirectory, u"ReprintAssesSlip.RPT"_s, 6};
};

TEST_F(AssessPrintTest, FillsTheSlipFromTheFirstLineOfTheReference) {
    Open({{u"741"_s, u"5018"_s, openStatus}, {u"731"_s, u"5017"_s, openStatus}});
    ClickRow(2);
    gateway.Expect(AssessmentSlipCommand(u"5017"_s),
                   SlipRows({{731, u"5017"_s, u"CRUZ, JUAN"_s, u"100482"_s, u"104233B"_s, u"1"_s,
                              Decimal{u"250.0000"_s}, DateTime()},
                             {732, u"other"_s, u"other"_s, u"other"_s, u"other"_s, u"2"_s,
                              Decimal{u"1.0000"_s}, DateTime()}}));
    EXPECT_EQ(PrintedValues(), (std::vector<QString>{u"5017"_s, u"CRUZ, JUAN"_s, u"100482"_s, u"104233B"_s,
                                                     u"CASH"_s, u"ANA REYES"_s}));
}

TEST_F(AssessPrintTest, ReadsTheLinesDynamicReadOnlyAtTheClient) {
    Open({{u"731"_s, u"5017"_s, openStatus}});
    gateway.Expect(AssessmentSlipCommand(u"5017"_s), SlipRows({}));
    PrintedValues();
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::ReadOnly);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Client);
}

TEST_F(AssessPrintTest, ReferenceIsTrimmed) {
    Open({{u"731"_s, u" 5017 "_s, openStatus}});
    gateway.Expect(AssessmentSlipCommand(u"5017"_s), SlipRows({}));
    PrintedValues();
}

TEST_F(AssessPrintTest, BlankReferenceSelectsOnAnEmptyOneAndTheSlipShowsWhatThatReturns) {
    Open({{u"731"_s, u""_s, openStatus}});
    gateway.Expect(AssessmentSlipCommand(u""_s), SlipRows({{700, u""_s, u"SANTOS, EVA"_s, u"W000012"_s, u""_s,
                                                            u"1"_s, Decimal{u"5.0000"_s}, DateTime()}}));
    EXPECT_EQ(PrintedValues(), (std::vector<QString>{u""_s, u"SANTOS, EVA"_s, u"W000012"_s, u""_s, u"CASH"_s,
                                                     u"ANA REYES"_s}));
}

TEST_F(AssessPrintTest, WithoutARowTheSlipIsOpenedAllTheSameWithEmptyValues) {
    Open({{u"731"_s, u"5017"_s, openStatus}});
    gateway.Expect(AssessmentSlipCommand(u"5017"_s), SlipRows({}));
    EXPECT_EQ(PrintedValues(), (std::vector<QString>{u""_s, u""_s, u""_s, u""_s, u"CASH"_s, u"ANA REYES"_s}));
}

TEST_F(AssessPrintTest, NullsOfTheRowBecomeEmpty) {
    Open({{u"731"_s, u"5017"_s, openStatus}});
    gateway.Expect(AssessmentSlipCommand(u"5017"_s),
                   SlipRows({{731, Value(), Value(), Value(), Value(), Value(), Value(), Value()}}));
    EXPECT_EQ(PrintedValues(), (std::vector<QString>{u""_s, u""_s, u""_s, u""_s, u"CASH"_s, u"ANA REYES"_s}));
}

TEST_F(AssessPrintTest, QuantityAmountAndDateAreReadThoughNothingTakesThem) {
    Open({{u"731"_s, u"5017"_s, openStatus}});
    gateway.Expect(AssessmentSlipCommand(u"5017"_s), Rows({u"RefNum"_s, u"Name"_s, u"HospNum"_s, u"IdNum"_s},
                                                          {{u"5017"_s, u"A"_s, u"1"_s, u"2"_s}}));
    EXPECT_EQ(PrintFails(), RunTime::kItemNotFound);
}

TEST_F(AssessPrintTest, FailingSlipCommandOpensNoSlip) {
    Open({{u"731"_s, u"5017"_s, openStatus}});
    gateway.ExpectFailure(AssessmentSlipCommand(u"5017"_s),
                          RunTimeError(1205, u"Transaction was deadlocked"_s));
    EXPECT_EQ(PrintFails(), 1205);
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_TRUE(Screens::IsLoaded<frmAssessStatus>());
}

TEST_F(AssessPrintTest, TellsTheDatabaseNothingAndLeavesTheListAsItIs) {
    Open({{u"741"_s, u"5018"_s, openStatus}, {u"731"_s, u"5017"_s, openStatus}});
    ClickRow(2);
    gateway.Expect(AssessmentSlipCommand(u"5017"_s), SlipRows({}));
    PrintedValues();
    EXPECT_EQ(Cells().Row(), 2);
    EXPECT_TRUE(ButtonsAre(true));
    EXPECT_TRUE(Screens::IsLoaded<frmAssessStatus>());
}

TEST_F(AssessPrintTest, MissingTemplateFails) {
    ASSERT_TRUE(QFile::remove(programDirectory.filePath(u"Reports/ReprintAssesSlip.RPT"_s)));
    Open({{u"731"_s, u"5017"_s, openStatus}});
    gateway.Expect(AssessmentSlipCommand(u"5017"_s), SlipRows({}));
    EXPECT_NE(PrintFails(), 0);
}
