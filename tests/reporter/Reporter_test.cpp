#include "report/output/CsvJob.h"
#include "report/output/PdfJob.h"
#include "report/ReportEngine.h"
#include "reporter/MakeReport.h"
#include "reporter/ReporterProcess.h"
#include "suite/RegisterSuite.h"
#include "support/Files.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Every charge of the hospital, over several pages, without the moment at which it is printed.
constexpr auto kAllCharges = R"(<report paper="A5" title="All charges">
  <parameters><parameter name="Title" type="text" prompt="What stands above"/></parameters>
  <tables><table name="Charges" location="BILLING.dbo.tbPatientCharges"/></tables>
  <query>SELECT RefNum, ItemID, Quantity, Amount FROM {Charges} ORDER BY RefNum, ItemID</query>
  <page-header height="10"><text x="0" y="0" width="80">{?Title}</text><text x="80" y="0" width="40">{page} of {pages}</text></page-header>
  <detail height="5">
    <text x="0" y="0" width="30">{RefNum}</text><text x="30" y="0" width="30">{ItemID}</text>
    <text x="60" y="0" width="30" format="#,##0.00" align="right">{Amount}</text>
  </detail>
  <report-footer height="6"><text x="60" y="0" width="30" format="#,##0.00" align="right">{sum Amount}</text></report-footer>
</report>
)";

constexpr int kPatienceWithWatch = 20000;

class ReporterTest : public testing::Test {
  protected:
    void SetUp() override { process.Write(u"Reports/All.rpt"_s, kAllCharges); }

    ReporterProcess::Run Make(const QString& output, const QByteArray& input = "nurse\n") const {
        return process.Do({u"--user"_s, u"NURSE"_s, u"--template"_s, u"All.rpt"_s, u"--param"_s,
                           u"Title=Ñandú"_s, u"--output"_s, process.File(output)},
                          input);
    }

    /// The report as the viewer has it, whose own file jobs save it.
    std::shared_ptr<Report> ViewersReport() const {
        RegisterSuite(process.DataFolder(), [] { return QStringList(); });
        auto report = ReportEngine().OpenReport(process.File(u"Reports/All.rpt"_s), kOpenOption);
        report->ParameterFields()[0].AddCurrentValue(u"Ñandú"_s);
        for (ReportTable& table : report->Tables())
            table.SetLogOnInfo(u"Trial hospital"_s, u"PASSWORD"_s, u"NURSE"_s, u"nurse"_s);
        return report;
    }

    ReporterProcess process;
};

TEST_F(ReporterTest, TellsNothingAtNightWhereAllIsWell) {
    const ReporterProcess::Run run = Make(u"all.pdf"_s);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.told + run.errors, QString());
}

TEST_F(ReporterTest, ItsPagesAreTheViewers) {
    const auto run = Make(u"made.pdf"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    const auto takeBack = qScopeGuard([] { SetReportConnector({}); });
    const auto report = ViewersReport();
    const auto document = report->Document();
    ASSERT_GT(document->PageCount(), 3);
    ASSERT_EQ(PdfJob(*document, document->Title(), process.File(u"viewer.pdf"_s)).Finish(), QString());
    const QString words = WordsOfPdf(process.File(u"viewer.pdf"_s));
    EXPECT_TRUE(words.contains(u"Ñandú"_s));
    EXPECT_EQ(WordsOfPdf(process.File(u"made.pdf"_s)), words);
}

TEST_F(ReporterTest, ItsRowsAreTheViewers) {
    const auto run = Make(u"made.csv"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    const auto takeBack = qScopeGuard([] { SetReportConnector({}); });
    const auto document = ViewersReport()->Document();
    ASSERT_EQ(CsvJob(document->Rows(), process.File(u"viewer.csv"_s)).Finish(), QString());
    QFile made(process.File(u"made.csv"_s));
    QFile viewers(process.File(u"viewer.csv"_s));
    ASSERT_TRUE(made.open(QIODevice::ReadOnly));
    ASSERT_TRUE(viewers.open(QIODevice::ReadOnly));
    const QByteArray rows = viewers.readAll();
    EXPECT_GT(rows.count('\n'), 50);
    EXPECT_EQ(made.readAll(), rows);
}

TEST_F(ReporterTest, AWrongPasswordBeginsNothing) {
    const auto run = Make(u"made.pdf"_s, "guess\n");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.errors.contains(u"tarven-report: The user or the password is wrong."_s))
        << run.errors.toStdString();
    EXPECT_FALSE(run.errors.contains(u"guess"_s));
    EXPECT_FALSE(QFileInfo::exists(process.File(u"made.pdf"_s)));
    const auto next = Make(u"made.pdf"_s);
    EXPECT_EQ(next.exitCode, 0);
    EXPECT_TRUE(next.errors.contains(u"1 failed sign-on since"_s)) << "whose name was tried shall know it";
}

TEST_F(ReporterTest, WithoutAPasswordNothingIsBegun) {
    const auto run = Make(u"made.pdf"_s, "");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.errors.contains(u"There is no password: nothing came."_s)) << run.errors.toStdString();
}

TEST_F(ReporterTest, AMistakeInTheTemplateIsToldWithFileAndLine) {
    process.Write(u"Reports/All.rpt"_s, QByteArray(kAllCharges).replace("{ItemID}", "{Item}"));
    const auto run = Make(u"made.pdf"_s);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.errors.contains(u"Reports/All.rpt, line 7:"_s)) << run.errors.toStdString();
    EXPECT_FALSE(QFileInfo::exists(process.File(u"made.pdf"_s)));
}

TEST_F(ReporterTest, AFileThatCannotBeWrittenIsNamedAndTheOneBeforeStays) {
    process.Write(u"made.pdf"_s, "before");
    const auto run = process.Do({u"--user"_s, u"NURSE"_s, u"--template"_s, u"All.rpt"_s, u"--param"_s, u"T"_s,
                                 u"--output"_s, process.File(u"none/made.pdf"_s)});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.errors.contains(u"none/made.pdf"_s)) << run.errors.toStdString();
    process.Write(u"Reports/All.rpt"_s, "<report");
    EXPECT_EQ(Make(u"made.pdf"_s).exitCode, 1);
    EXPECT_EQ(QFileInfo(process.File(u"made.pdf"_s)).size(), 6);
}

TEST_F(ReporterTest, AFolderThatIsMissingIsToldBeforeThePasswordIsRead) {
    const auto run = Make(u"none/made.pdf"_s, "");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.errors.contains(u"there is no folder"_s)) << run.errors.toStdString();
}

TEST_F(ReporterTest, ADatabaseThatIsNotThereBeginsNothing) {
    const QStringList words = {u"--user"_s,    u"NURSE"_s, u"--template"_s, u"All.rpt"_s,
                               u"--param"_s,   u"T"_s,     u"--output"_s,   process.File(u"made.pdf"_s),
                               u"--database"_s};
    const auto unknown = process.Do(words + QStringList(u"NOSUCH"_s));
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_TRUE(unknown.errors.contains(u"Database 'NOSUCH' does not exist."_s))
        << unknown.errors.toStdString();
    const auto noName = process.Do(words + QStringList(u"no name"_s), "");
    EXPECT_EQ(noName.exitCode, 2);
    EXPECT_TRUE(noName.errors.contains(u"\"no name\" is no name of a database."_s))
        << noName.errors.toStdString();
    EXPECT_EQ(process.Do(words + QStringList(u"BILLING"_s)).exitCode, 0);
}

TEST_F(ReporterTest, ATraceThatCannotBeWrittenIsTold) {
    QDir().mkdir(process.TracePath());
    const auto run = Make(u"made.pdf"_s);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.errors.contains(process.TracePath())) << run.errors.toStdString();
}

TEST_F(ReporterTest, AWrongValueIsToldBeforeThePasswordIsRead) {
    const auto run = process.Do(
        {u"--user"_s, u"NURSE"_s, u"--template"_s, u"All.rpt"_s, u"--output"_s, u"made.pdf"_s}, "");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.errors.contains(u"The parameter Title has no value (What stands above)."_s))
        << run.errors.toStdString();
}

TEST_F(ReporterTest, DescribesWithoutASignOn) {
    const auto run = process.Do({u"--describe"_s, u"--template"_s, u"IncomeReport.RPT"_s}, "");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.told.contains(u"Start            date      First day\n"_s)) << run.told.toStdString();
}

TEST_F(ReporterTest, TheWorkedExampleIsMade) {
    const auto run = process.Do({u"--user"_s, u"NURSE"_s, u"--template"_s,
                                 u"" TARVEN_SOURCE_DIR "/docs/examples/SlipWithBarcode.rpt"_s, u"--param"_s,
                                 u"SlipNumber=H1001C"_s, u"--output"_s, process.File(u"slip.pdf"_s)});
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    const QString words = WordsOfPdf(process.File(u"slip.pdf"_s));
    EXPECT_EQ(words.count(u"H1001C"_s), 1) << "the number in letters; its bars are no words\n"
                                           << words.toStdString();
    static const QRegularExpression total(u"TOTAL +[1-9]"_s);
    EXPECT_TRUE(words.contains(total)) << "the slip is one of the trial hospital's\n" << words.toStdString();
}

TEST_F(ReporterTest, TheDepartmentsOwnReportsAreMade) {
    const auto run = process.Do(
        {u"--user"_s, u"NURSE"_s, u"--template"_s, u"incomereport.rpt"_s, u"--param"_s, u"I"_s, u"--param"_s,
         u"Start=2026-01-01"_s, u"--param"_s, u"End=2026-12-31"_s, u"--param"_s, u"HospitalName=SAN RAFAEL"_s,
         u"--param"_s, u"HospitalAddress="_s, u"--output"_s, process.File(u"income.pdf"_s)});
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_TRUE(WordsOfPdf(process.File(u"income.pdf"_s)).contains(u"HEMODIALYSIS TREATMENT"_s));
}

TEST_F(ReporterTest, AWatchWithoutADisplayEndsInWords) {
    const ReporterProcess::Run run =
        process.DoWithoutDisplay({u"--watch"_s, u"--user"_s, u"NURSE"_s, u"--template"_s, u"All.rpt"_s});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.errors.endsWith(u"There is no display that a window could be opened on.\n"_s))
        << run.errors.toStdString();
    EXPECT_FALSE(run.errors.contains(u"plugin"_s)) << run.errors.toStdString();
}

TEST_F(ReporterTest, ATemplateIsWatchedFromItsEmptyFileOn) {
    process.Write(u"Reports/All.rpt"_s, "");
    const auto watch = process.Start(
        {u"--watch"_s, u"--user"_s, u"NURSE"_s, u"--template"_s, u"All.rpt"_s, u"--param"_s, u"Title=T"_s});
    const auto end = qScopeGuard([&watch] {
        watch->kill();
        watch->waitForFinished();
    });
    const QString trace = process.TracePath();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFileInfo(trace).size() > 0; }, kPatienceWithWatch))
        << "the sign-on";
    process.Write(u"Reports/All.rpt"_s, kAllCharges);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ReadFile(trace).contains("SELECT RefNum, ItemID"); },
                                kPatienceWithWatch))
        << watch->readAllStandardError().toStdString();
}

} // namespace
