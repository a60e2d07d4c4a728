#include "report/template/TemplateReader.h"
#include "report/viewer/FetchThread.h"
#include "report/viewer/PageView.h"
#include "report/viewer/ReportViewer.h"
#include "reports/frmReportviewer.h"
#include "reports/Reports.h"
#include "support/AwaitWork.h"
#include "support/report/ReportFixture.h"
#include "support/ScreenTest.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

class frmReportviewerTest : public ScreenTest {
  protected:
    frmReportviewerTest() {
        database.Set(u"SELECT"_s, Rows({u"A"_s}, {{1}}));
        gReport =
            std::make_shared<Report>(ReadTemplate(u"r.rpt"_s, SmallTemplate(u"<detail height=\"5\"/>"_s)));
        gReport->Tables()[0].SetLogOnInfo({}, {}, {}, {});
    }
    ~frmReportviewerTest() override { gReport = nullptr; }

    ReportDatabase database;
};

} // namespace

TEST_F(frmReportviewerTest, ViewsTheReportWhenItLoads) {
    frmReportviewer form;
    EXPECT_TRUE(database.commands.isEmpty());
    form.Load();
    AwaitWork(form);
    EXPECT_EQ(database.commands.size(), 1);
    EXPECT_EQ(Find<QLabel>(form, "lblPages").text(), u"of 1"_s);
}

TEST_F(frmReportviewerTest, ShowsThePagesWidthWithoutAGroupTreeWhateverItsViewerWasSetTo) {
    frmReportviewer form;
    form.Load();
    AwaitWork(form);
    form.show();
    const double pageWidth = Find<PageView>(form, "PageView").ZoomFactor();
    frmReportviewer other;
    auto& viewer = Find<ReportViewer>(other, "CRViewer1");
    viewer.Zoom(80);
    viewer.EnableGroupTree(true);
    viewer.DisplayGroupTree(true);
    gReport->Tables()[0].SetLogOnInfo({}, {}, {}, {});
    other.Load();
    AwaitWork(other);
    other.show();
    EXPECT_NEAR(Find<PageView>(other, "PageView").ZoomFactor(), pageWidth, 0.001);
    EXPECT_FALSE(Find<QTreeView>(other, "GroupTree").isVisible());
    viewer.DisplayGroupTree(true);
    EXPECT_FALSE(Find<QTreeView>(other, "GroupTree").isVisible()) << "it is not only hidden but off";
    viewer.EnableGroupTree(true);
    EXPECT_FALSE(Find<QTreeView>(other, "GroupTree").isVisible());
}

TEST_F(frmReportviewerTest, ItsWindowTakesNineTenthsOfTheScreen) {
    frmReportviewer form;
    form.Load();
    AwaitWork(form);
    form.show();
    const QRect screen = form.screen()->availableGeometry();
    EXPECT_EQ(form.size(), screen.size() * 0.9);
    EXPECT_EQ(form.geometry().center(), screen.center());
}

TEST_F(frmReportviewerTest, InsideAnotherWindowItKeepsItsSize) {
    QWidget workspace;
    frmReportviewer form;
    form.setParent(&workspace);
    form.Load();
    AwaitWork(form);
    form.resize(300, 200);
    workspace.show();
    form.show();
    EXPECT_EQ(form.size(), QSize(300, 200));
    form.setParent(nullptr);
}

TEST_F(frmReportviewerTest, ItsViewerFillsIt) {
    frmReportviewer form;
    form.Load();
    AwaitWork(form);
    form.show();
    for (const QSize size : {QSize(500, 400), QSize(900, 300)}) {
        form.resize(size);
        RunEvents();
        EXPECT_EQ(Find<ReportViewer>(form, "CRViewer1").geometry(), form.rect());
    }
}

TEST_F(frmReportviewerTest, ItsUnloadClearsTheReport) {
    auto* form = new frmReportviewer;
    form->Load();
    AwaitWork(*form);
    form->show();
    EXPECT_TRUE(gReport.IsSet());
    form->close();
    EXPECT_FALSE(gReport.IsSet());
}

TEST_F(frmReportviewerTest, ClosedWhileItsRowsAreFetchedItGivesThemUpAtOnce) {
    database.Hold();
    auto* form = new frmReportviewer;
    form->Load();
    Activate(*form);
    database.AwaitCommand();
    form->close();
    EXPECT_FALSE(Find<ReportViewer>(*form, "CRViewer1").IsWorking()) << "not only when it is deleted";
    WaitForFetchThreads();
    EXPECT_EQ(database.open, 0);
    EXPECT_FALSE(gReport.IsSet());
}

TEST_F(frmReportviewerTest, EscapeUnloadsIt) {
    const QPointer<frmReportviewer> form = new frmReportviewer;
    form->Load();
    AwaitWork(*form);
    Activate(*form);
    Press(*QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_FALSE(form->isVisible());
}

TEST_F(frmReportviewerTest, TheFirstKeyGoesToThePages) {
    frmReportviewer form;
    form.Load();
    AwaitWork(form);
    Activate(form);
    ASSERT_TRUE(QApplication::focusWidget());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"PageView"_s);
}
