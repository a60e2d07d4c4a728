#include "components/ReportConnector.h"
#include "maintenance/AssessStatusGround.h"
#include "reports/Reports.h"
#include "support/WhileModal.h"
#include "toolkit/ProgramFiles.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// A slip of six parameters over one table.
QByteArray SlipTemplate() {
    QString parameters;
    for (int i = 1; i <= 6; ++i)
        parameters += u"<parameter name=\"P%1\" type=\"text\" prompt=\"%1\"/>"_s.arg(i);
    return (u"<report paper=\"100x100\" margins=\"0 0 0 0\"><parameters>"_s + parameters +
            u"</parameters><tables><table name=\"Lines\" location=\"BILLING.dbo.tbCashAssessment\"/></tables>"
            "<query>SELECT ItemID FROM {Lines}</query></report>"_s)
        .toUtf8();
}

/// A line of tbCashAssessment with the columns that the print reads, in an order of their own.
std::shared_ptr<const RowData> SlipRows(const std::vector<std::vector<Value>>& rows) {
    return Rows({u"AssessNum"_s, u"RefNum"_s, u"Name"_s, u"HospNum"_s, u"IdNum"_s, u"Quantity"_s, u"Amount"_s,
                 u"TransDate"_s},
                rows);
}

} // namespace

class AssessPrintTest : public AssessStatusGround {
  protected:
    AssessPrintTest() {
        const QDir directory(programDirectory.path());
        directory.mkpath(u"Reports"_s);
        QFile file(directory.filePath(u"Reports/ReprintAssesSlip.RPT"_s));
        if (!file.open(QIODevice::WriteOnly) || file.write(SlipTemplate()) <= 0)
            throw std::runtime_error("The template of the test cannot be written.");
        SetReportConnector([](const ReportLogOn&) {
            auto connection = std::make_unique<ScriptedGateway>();
            connection->Expect(u"SELECT ItemID FROM BILLING.dbo.tbCashAssessment"_s,
                               Rows({u"ItemID"_s}, {{u"S1"_s}}));
            return connection;
        });
    }
    ~AssessPrintTest() override { SetReportConnector({}); }

    /// Presses Print and answers the values that the slip got.
    std::vector<QString> PrintedValues() {
        std::vector<QString> values;
        WhileModal([&values](Form& viewer) {
            EXPECT_EQ(viewer.objectName(), u"frmReportviewer"_s);
            EXPECT_EQ(viewer.windowTitle(), u"Re-Print Assessment Slip"_s);
            EXPECT_EQ(gReport->Path(), ProgramDirectory() + u"/Reports/ReprintAssesSlip.RPT"_s);
            for (const ParameterField& field : gReport->ParameterFields())
                values.push_back(field.CurrentValue()->ToText());
        });
        Click(Print());
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
};

TEST_F(AssessPrintTest, FillsTheSlipFromTheFirstLineOfTheReference) {
    Open({{u"741"_s, u"5018"_s, openStatus}, {u"731"_s, u"5017"_s, openStatus}});
    ClickRow(2);
    gateway.Expect(u"SELECT * FROM BILLING..tbCashAssessment WHERE Refnum = '5017'"_s,
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
    gateway.Expect(u"SELECT * FROM BILLING..tbCashAssessment WHERE Refnum = ''"_s,
                   SlipRows({{700, u""_s, u"SANTOS, EVA"_s, u"W000012"_s, u""_s, u"1"_s, Decimal{u"5.0000"_s},
                              DateTime()}}));
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
