#include "components/shared.h"
#include "patients/PatientContext.h"
#include "reports/frmCensus.h"
#include "reports/frmLedger.h"
#include "reports/frmReportRange.h"
#include "reports/Reports.h"
#include "shell/frmMain.h"
#include "support/AwaitWork.h"
#include "support/CaseName.h"
#include "support/report/ReportFixture.h"
#include "support/ScreenTest.h"
#include "text/RunTimeError.h"
#include "toolkit/Failure.h"
#include "toolkit/Screens.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMdiArea>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

// The entries of the department's reports.

namespace {

class frmMainReports : public ScreenTest {
  protected:
    frmMainReports() { Activate(*window); }
    ~frmMainReports() override { Screens::Clear(); }

    QAction& Item(const char* name) const { return *window->findChild<QAction*>(QString::fromLatin1(name)); }
    qsizetype OpenScreens() const { return window->findChild<QMdiArea*>()->subWindowList().size(); }

    std::unique_ptr<frmMain> window = std::make_unique<frmMain>();
};

TEST_F(frmMainReports, TheToolbarsLedgerKeyIsTheEntryOfTheBar) {
    gChargeMode = u"List"_s;
    window->Toolbar1_ButtonClick(u"LEDGER"_s);
    EXPECT_TRUE(Screens::IsLoaded<frmLedger>());
    EXPECT_EQ(gChargeMode, u"List"_s);
}

TEST_F(frmMainReports, TheLedgersEntryOfTheBarIsEnabledWhenTheLedgerUnloads) {
    Item("mnuLedger").trigger();
    EXPECT_FALSE(Item("mnuMLedger").isEnabled());
    Screens::Unload<frmLedger>();
    EXPECT_TRUE(Item("mnuMLedger").isEnabled());
}

TEST_F(frmMainReports, TheCensusOpensOnceAndNotModal) {
    for (int i = 0; i < 2; ++i)
        Item("mnuCensus").trigger();
    ASSERT_TRUE(Screens::IsLoaded<frmCensus>());
    EXPECT_FALSE(Screens::Get<frmCensus>().IsModal());
    EXPECT_EQ(OpenScreens(), 1);
}

struct PeriodCase {
    const char* name;
    std::function<void(frmMain&)> action;
    /// The file that is missing names the report that the entry stands for.
    QString file;
    QString title = u"Report Date"_s;
    /// The report's window and its first value tell reports of one file apart.
    QString reportTitle;
    QString firstValue;
};

class PeriodEntry : public frmMainReports, public testing::WithParamInterface<PeriodCase> {};

TEST_P(PeriodEntry, OpensTheReportOfItsTypeOnceAndNotModal) {
    gPatientType = u"O"_s;
    gChargeMode = u"List"_s;
    for (int i = 0; i < 2; ++i)
        GetParam().action(*window);
    ASSERT_TRUE(Screens::IsLoaded<frmReportRange>());
    const auto& screen = Screens::Get<frmReportRange>();
    EXPECT_TRUE(screen.isVisible());
    EXPECT_FALSE(screen.IsModal());
    EXPECT_EQ(OpenScreens(), 1);
    EXPECT_EQ(screen.windowTitle(), GetParam().title);
    EXPECT_EQ(gPatientType, u"O"_s);
    EXPECT_EQ(gChargeMode, u"List"_s);
    Click(Find<QPushButton>(screen, "cmdView"));
    ASSERT_TRUE(failure);
    EXPECT_TRUE(Failure::TextOf(failure).contains(u"/"_s + GetParam().file))
        << Failure::TextOf(failure).toStdString();
    EXPECT_EQ(TakeFailure(), RunTime::kFileNotFound);
}

TEST_P(PeriodEntry, ShowsTheReportOfItsPatientType) {
    ReportDatabase database;
    database.Set(u"SELECT"_s, Rows({u"A"_s}, {{u"row"_s}}));
    QDir(programDirectory.path()).mkdir(u"Reports"_s);
    WriteFile(
        programDirectory, u"Reports/"_s + GetParam().file,
        SmallTemplate(u"<parameters><parameter name=\"First\" type=\"text\" prompt=\"First\"/></parameters>"
                      "<report-header height=\"5\"/>"_s));
    GetParam().action(*window);
    QString shown;
    QTimer::singleShot(0, qApp, [&shown] {
        auto* viewer = qobject_cast<Form*>(QApplication::activeModalWidget());
        ASSERT_TRUE(viewer);
        AwaitWork(*viewer);
        shown = viewer->windowTitle() + u": "_s + gReport->ParameterFields().front().CurrentValue()->ToText();
        viewer->Unload();
    });
    Click(Find<QPushButton>(Screens::Get<frmReportRange>(), "cmdView"));
    EXPECT_EQ(shown, GetParam().reportTitle + u": "_s + GetParam().firstValue);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, PeriodEntry,
    testing::Values(
        PeriodCase{"AuditMenu",
                   [](frmMain& main) { main.findChild<QAction*>(u"mnuReportAudit"_s)->trigger(); },
                   u"AuditReport.RPT"_s, u"Audit Report"_s, u"Audit Report"_s, u"11/21/2026"_s},
        PeriodCase{"AuditDropdown", [](frmMain& main) { main.findChild<QAction*>(u"Audit"_s)->trigger(); },
                   u"AuditReport.RPT"_s, u"Audit Report"_s, u"Audit Report"_s, u"11/21/2026"_s},
        PeriodCase{"OutPatientIncomeMenu",
                   [](frmMain& main) { main.findChild<QAction*>(u"mnuOPDIncome"_s)->trigger(); },
                   u"IncomeReport.RPT"_s, u"Report Date"_s, u"Out-Patient Income Report"_s, u"O"_s},
        PeriodCase{"OutPatientIncomeDropdown",
                   [](frmMain& main) { main.findChild<QAction*>(u"Opd"_s)->trigger(); },
                   u"IncomeReport.RPT"_s, u"Report Date"_s, u"Out-Patient Income Report"_s, u"O"_s},
        PeriodCase{"InPatientIncomeMenu",
                   [](frmMain& main) { main.findChild<QAction*>(u"mnuIPDIncomeReport"_s)->trigger(); },
                   u"IncomeReport.RPT"_s, u"Report Date"_s, u"In-Patient Income Report"_s, u"I"_s},
        PeriodCase{"InPatientIncomeDropdown",
                   [](frmMain& main) { main.findChild<QAction*>(u"IPD"_s)->trigger(); },
                   u"IncomeReport.RPT"_s, u"Report Date"_s, u"In-Patient Income Report"_s, u"I"_s},
        PeriodCase{
            "CashIncome", [](frmMain& main) { main.findChild<QAction*>(u"mnuCashIncome"_s)->trigger(); },
            u"IncomeReportCash.RPT"_s, u"Report Date"_s, u"Cash Patient Income Report"_s, u"11/21/2026"_s},
        PeriodCase{"MonthlySummary",
                   [](frmMain& main) { main.findChild<QAction*>(u"mnuReportMonthly"_s)->trigger(); },
                   u"StatisticsReport.RPT"_s, u"Report Date"_s, u"Monthly Statistical Report"_s,
                   u"11/21/2026"_s},
        PeriodCase{"InPatientCompany", [](frmMain& main) { main.findChild<QAction*>(u"mnuIn"_s)->trigger(); },
                   u"CompanyReport.RPT"_s, u"Report Date"_s, u"In-Patient Company Report"_s, u"I"_s},
        PeriodCase{"OutPatientCompany",
                   [](frmMain& main) { main.findChild<QAction*>(u"mnuOut"_s)->trigger(); },
                   u"CompanyReport.RPT"_s, u"Report Date"_s, u"Out-Patient Company Report"_s, u"O"_s}),
    CaseName());

} // namespace
