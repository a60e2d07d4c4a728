#include "report/template/TemplateReader.h"
#include "report/viewer/FetchThread.h"
#include "report/viewer/PageView.h"
#include "report/viewer/ReportViewer.h"
#include "reports/frmReport.h"
#include "reports/Reports.h"
#include "support/AwaitWork.h"
#include "support/report/ReportFixture.h"
#include "support/ScreenTest.h"
#include "toolkit/Workspace.h"

#include <QLabel>
#include <QMdiArea>
#include <QToolButton>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class FakeWorkspace : public Workspace {
  public:
    FakeWorkspace() { SetCurrent(this); }
    ~FakeWorkspace() override { SetCurrent(nullptr); }

    QMdiArea* Area() override { return &area; }
    void EnableMenuItem(const QString& name, bool enabled) override {
        told << name + (enabled ? u" on"_s : u" off"_s);
    }

    QMdiArea area;
    QStringList told;
};

class frmReportTest : public ScreenTest {
  protected:
    frmReportTest() {
        database.Set(u"SELECT"_s, Rows({u"Station"_s}, {{u"A"_s}, {u"B"_s}}));
        workspace.area.resize(1000, 700);
        Activate(workspace.area);
    }
    ~frmReportTest() override { gReport = nullptr; }

    /// Opens a report directly, as the census does.
    frmReport* Open(bool groupTree) {
        gReport = std::make_shared<Report>(ReadTemplate(
            u"r.rpt"_s,
            SmallTemplate(u"<group by=\"Station\"><header height=\"5\"/><detail height=\"5\"/></group>"_s)));
        SetTableLogOn(gReport->Tables()[0], u"PATIENT_DATA"_s);
        auto* form = new frmReport;
        form->setWindowTitle(u"Census Report"_s);
        form->crvReport->EnableGroupTree(groupTree);
        form->crvReport->SetSwitch259(true);
        report = gReport.Shared();
        form->crvReport->SetReportSource(report);
        form->crvReport->ViewReport();
        form->Show();
        gReport = nullptr;
        AwaitWork(*form);
        return form;
    }

    FakeWorkspace workspace;
    ReportDatabase database;
    std::shared_ptr<Report> report;
};

} // namespace

TEST_F(frmReportTest, GoesOnShowingItsReportAfterTheOpenerHasClearedIt) {
    frmReport* form = Open(false);
    EXPECT_EQ(Find<QLabel>(*form, "lblPages").text(), u"of 1"_s);
    form->crvReport->grab();
    EXPECT_TRUE(database.commands.at(0).contains(u"PATIENT_DATA.dbo.T"_s));
}

TEST_F(frmReportTest, ClosedWhileItsRowsAreFetchedItGivesThemUpAtOnce) {
    frmReport* form = Open(false);
    SetTableLogOn(report->Tables()[0], u"PATIENT_DATA"_s);
    report->SetDocument(nullptr);
    database.Hold();
    form->crvReport->ViewReport();
    EXPECT_TRUE(form->crvReport->IsWorking());
    form->Unload();
    EXPECT_FALSE(form->crvReport->IsWorking());
    WaitForFetchThreads();
    EXPECT_EQ(database.open, 0);
}

TEST_F(frmReportTest, ItsViewerFillsIt) {
    frmReport* form = Open(false);
    form->resize(640, 480);
    RunEvents();
    EXPECT_EQ(form->crvReport->geometry(), form->rect());
    EXPECT_EQ(form->crvReport->objectName(), u"crvReport"_s);
}

TEST_F(frmReportTest, ItsUnloadEnablesTheLedgersMenuItem) {
    frmReport* form = Open(false);
    EXPECT_TRUE(workspace.told.isEmpty());
    EXPECT_TRUE(form->Unload());
    EXPECT_THAT(workspace.told, ElementsAre(u"mnuMLedger on"_s));
}

TEST_F(frmReportTest, TheGroupTreeCanBeOpenedWhereItIsEnabled) {
    EXPECT_TRUE(Find<QToolButton>(*Open(true), "cmdGroupTree").isVisible());
    EXPECT_FALSE(Find<QToolButton>(*Open(false), "cmdGroupTree").isVisible());
}

TEST_F(frmReportTest, SeveralMayBeOpenAndTheKeysGoToTheOneInUse) {
    frmReport* first = Open(false);
    frmReport* second = Open(false);
    RunEvents();
    const double before = Find<PageView>(*first, "PageView").ZoomFactor();
    Press(*second->focusWidget(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(Find<PageView>(*first, "PageView").ZoomFactor(), before);
    EXPECT_NEAR(Find<PageView>(*second, "PageView").ZoomFactor(), before * 1.25, 0.001);
    Press(*second->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(second->isVisible());
    EXPECT_TRUE(first->isVisible());
}
