#include "ReportFixture.h"
#include "reporting/frmReportviewer.h"
#include "reporting/Reports.h"
#include "reporting/ReportViewer.h"
#include "reporting/TemplateReader.h"
#include "support/ScreenTest.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>

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
    EXPECT_EQ(database.commands.size(), 1);
    EXPECT_EQ(Find<QLabel>(form, "lblPages").text(), u"of 1"_s);
}

TEST_F(frmReportviewerTest, ItsViewerFillsIt) {
    frmReportviewer form;
    form.Load();
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
    form->show();
    EXPECT_TRUE(gReport.IsSet());
    form->close();
    EXPECT_FALSE(gReport.IsSet());
}

TEST_F(frmReportviewerTest, EscapeUnloadsIt) {
    const QPointer<frmReportviewer> form = new frmReportviewer;
    form->Load();
    Activate(*form);
    Press(*QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_FALSE(form->isVisible());
}

TEST_F(frmReportviewerTest, TheFirstKeyGoesToThePages) {
    frmReportviewer form;
    form.Load();
    Activate(form);
    ASSERT_TRUE(QApplication::focusWidget());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"PageView"_s);
}
