#include "report/output/JobRunner.h"
#include "report/viewer/FetchThread.h"
#include "report/viewer/WorkBar.h"
#include "toolkit/MousePointer.h"
#include "ViewerGround.h"

#include <QDir>
#include <QLineEdit>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

// What the clerk sees and can do while a report's rows are fetched, and while something long is made of its
// pages.

namespace {

class ViewerWorkTest : public ReportViewerTest {
  protected:
    /// The rows are being fetched, and the database does not answer.
    void WaitForRows() {
        database.Hold();
        BeginToView();
        Activate(*viewer);
        viewer->setFocus();
        database.AwaitCommand();
    }

    /// Every turn is one step, so that the work on four pages is long.
    void SlowDown() { viewer->findChild<JobRunner*>()->SetTurn(0); }

    WorkBar& Bar() const { return Find<WorkBar>(*viewer, "WorkBar"); }
    /// The work has lasted so long that the clerk is told.
    void AwaitBar() const {
        ASSERT_TRUE(QTest::qWaitFor([this] { return Bar().isVisible(); }));
    }
    QString Work() const { return Find<QLabel>(*viewer, "lblWork").text(); }
    bool Offers(const char* button) const { return Find<QToolButton>(*viewer, button).isEnabled(); }

    /// A key pressed while something goes on.
    static void KeyMeanwhile(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        Press(*QApplication::focusWidget(), key, modifiers);
    }

    QString WriteBefore(const QString& name) const { return WriteFile(programDirectory, name, "before"); }
    QStringList FilesThere() const {
        return QDir(programDirectory.path()).entryList(QDir::Files | QDir::Hidden);
    }
};

} // namespace

TEST_F(ViewerWorkTest, TheWindowStandsWhileTheRowsAreFetched) {
    WaitForRows();
    EXPECT_TRUE(viewer->IsWorking());
    EXPECT_TRUE(viewer->isVisible());
    EXPECT_EQ(Page(), 0);
    EXPECT_FALSE(Offers("cmdPdf"));
    database.Release();
    AwaitWork(*viewer);
    EXPECT_EQ(Page(), 1);
    EXPECT_TRUE(Offers("cmdPdf"));
    EXPECT_EQ(database.open, 0);
}

TEST_F(ViewerWorkTest, TimersGoOnWhileTheRowsAreFetched) {
    WaitForRows();
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (++ticks == 3)
            database.Release();
    });
    timer.start(1);
    AwaitWork(*viewer);
    EXPECT_GE(ticks, 3);
    EXPECT_EQ(Page(), 1);
}

TEST_F(ViewerWorkTest, TheBarShowsOnlyWhenTheRowsKeepTheClerkWaiting) {
    WaitForRows();
    EXPECT_FALSE(Bar().isVisible());
    AwaitBar();
    EXPECT_EQ(Work(), u"Fetching the rows"_s);
    database.Release();
    AwaitWork(*viewer);
    EXPECT_FALSE(Bar().isVisible());
}

TEST_F(ViewerWorkTest, ThePagesShowThatTheyAreBusyAndTheProgramsPointerStays) {
    WaitForRows();
    const QWidget* pages = Find<PageView>(*viewer, "PageView").viewport();
    EXPECT_EQ(pages->cursor().shape(), Qt::BusyCursor);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    database.Release();
    AwaitWork(*viewer);
    EXPECT_EQ(pages->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ViewerWorkTest, EscapeGivesTheRowsUpAndTheNextOneClosesTheWindow) {
    QSignalSpy closes(viewer.get(), &ReportViewer::CloseRequested);
    WaitForRows();
    AwaitBar();
    Key(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_FALSE(viewer->IsWorking());
    EXPECT_EQ(Status(), u"The report was cancelled."_s);
    EXPECT_EQ(Page(), 0);
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_FALSE(Offers("cmdPrint"));
    EXPECT_TRUE(closes.isEmpty());
    WaitForFetchThreads();
    EXPECT_EQ(database.open, 0) << "the command was cancelled at the database";
    Key(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_EQ(closes.size(), 1);
}

TEST_F(ViewerWorkTest, EscapeClosesTheWindowAsLongAsThereIsNothingToSeeThatCouldBeGivenUp) {
    QSignalSpy closes(viewer.get(), &ReportViewer::CloseRequested);
    WaitForRows();
    KeyMeanwhile(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_EQ(closes.size(), 1);
}

TEST_F(ViewerWorkTest, TheBarsButtonIsReachedByTabAndGivesTheFocusBack) {
    WaitForRows();
    AwaitBar();
    auto& cancel = Find<QPushButton>(*viewer, "cmdCancel");
    for (int i = 0; i < 10 && !cancel.hasFocus(); ++i)
        KeyMeanwhile(Qt::Key_Tab, Qt::NoModifier);
    ASSERT_TRUE(cancel.hasFocus());
    KeyMeanwhile(Qt::Key_Space, Qt::NoModifier);
    EXPECT_FALSE(viewer->IsWorking());
    EXPECT_TRUE(Find<PageView>(*viewer, "PageView").hasFocus());
}

TEST_F(ViewerWorkTest, AFailureOfTheQueryReachesTheTopOnce) {
    BeginToView(u"<query>spNowhere {T}</query>"_s);
    Activate(*viewer);
    AwaitWork(*viewer);
    EXPECT_EQ(TakeFailure(), 208);
    RunEvents();
    EXPECT_EQ(TakeFailure(), 0);
    EXPECT_EQ(Page(), 0);
    EXPECT_FALSE(Bar().isVisible());
}

TEST_F(ViewerWorkTest, AFieldThatTheRowsDoNotHaveReachesTheTopToo) {
    BeginToView(u"<detail height=\"5\"><text x=\"0\" y=\"0\" width=\"9\">{Nothing}</text></detail>"_s);
    AwaitWork(*viewer);
    EXPECT_NE(TakeFailure(), 0);
    EXPECT_EQ(Page(), 0);
}

TEST_F(ViewerWorkTest, DestroyedWhileTheRowsAreFetchedItLeavesNothingBehind) {
    WaitForRows();
    viewer.reset();
    WaitForFetchThreads();
    EXPECT_EQ(database.open, 0);
    RunEvents();
}

TEST_F(ViewerWorkTest, DestroyedWithTheRowsOnTheirWayItDoesNotTakeThem) {
    BeginToView();
    database.AwaitCommand();
    viewer.reset();
    WaitForFetchThreads();
    RunEvents();
    EXPECT_EQ(TakeFailure(), 0);
}

TEST_F(ViewerWorkTest, AnotherReportTakesThePlaceOfTheOneThatIsFetched) {
    WaitForRows();
    database.Release();
    BeginToView(u"<detail height=\"5\"/>"_s);
    AwaitWork(*viewer);
    EXPECT_EQ(Find<QLabel>(*viewer, "lblPages").text(), u"of 1"_s);
    WaitForFetchThreads();
    EXPECT_EQ(database.open, 0);
}

TEST_F(ViewerWorkTest, APdfIsWrittenPageByPageWhileTheClerkReadsOn) {
    View();
    SlowDown();
    AnsweredFile() = programDirectory.filePath(u"census.pdf"_s);
    KeyMeanwhile(Qt::Key_S);
    EXPECT_TRUE(viewer->IsWorking());
    EXPECT_FALSE(QFile::exists(AnsweredFile())) << "not before it is whole";
    EXPECT_EQ(Work(), u"Writing the PDF"_s);
    for (const char* button : {"cmdPrint", "cmdPdf", "cmdCsv", "cmdFindNext"})
        EXPECT_FALSE(Offers(button)) << button;
    KeyMeanwhile(Qt::Key_PageDown);
    EXPECT_EQ(Page(), 2);
    AwaitWork(*viewer);
    EXPECT_TRUE(TextOfPdf(AnsweredFile()).contains(u"PATIENT 12"_s));
    for (const char* button : {"cmdPrint", "cmdPdf", "cmdCsv", "cmdFindNext"})
        EXPECT_TRUE(Offers(button)) << button;
}

TEST_F(ViewerWorkTest, TheBarTellsHowManyPagesAreWritten) {
    View();
    SlowDown();
    AnsweredFile() = programDirectory.filePath(u"census.pdf"_s);
    QSignalSpy progress(&Find<QProgressBar>(*viewer, "prgWork"), &QProgressBar::valueChanged);
    KeyMeanwhile(Qt::Key_S);
    AwaitWork(*viewer);
    EXPECT_EQ(Find<QProgressBar>(*viewer, "prgWork").maximum(), 4);
    ASSERT_FALSE(progress.isEmpty());
    EXPECT_EQ(progress.last()[0].toInt(), 3);
}

TEST_F(ViewerWorkTest, ACancelledPdfLeavesTheFolderAsItWas) {
    View();
    SlowDown();
    AnsweredFile() = WriteBefore(u"census.pdf"_s);
    KeyMeanwhile(Qt::Key_S);
    ASSERT_TRUE(viewer->IsWorking());
    // As when it lasts.
    Bar().show();
    KeyMeanwhile(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_FALSE(viewer->IsWorking());
    EXPECT_EQ(Status(), u"Cancelled"_s);
    EXPECT_EQ(FilesThere(), QStringList{u"census.pdf"_s});
    EXPECT_EQ(ReadFile(AnsweredFile()), "before");
    EXPECT_TRUE(Offers("cmdPdf"));
    Key(Qt::Key_S);
    EXPECT_TRUE(TextOfPdf(AnsweredFile()).contains(u"PATIENT 12"_s)) << "and it can be written again";
}

TEST_F(ViewerWorkTest, DestroyedWhileAPdfIsWrittenItLeavesTheFolderAsItWas) {
    View();
    SlowDown();
    AnsweredFile() = WriteBefore(u"census.pdf"_s);
    KeyMeanwhile(Qt::Key_S);
    ASSERT_TRUE(viewer->IsWorking());
    viewer.reset();
    EXPECT_EQ(FilesThere(), QStringList{u"census.pdf"_s});
    EXPECT_EQ(ReadFile(AnsweredFile()), "before");
}

TEST_F(ViewerWorkTest, AKeyCannotBeginASecondJob) {
    View();
    SlowDown();
    AnsweredFile() = programDirectory.filePath(u"census.pdf"_s);
    KeyMeanwhile(Qt::Key_S);
    AnsweredFile() = programDirectory.filePath(u"census.csv"_s);
    KeyMeanwhile(Qt::Key_E);
    viewer->PrintReport();
    AwaitWork(*viewer);
    EXPECT_EQ(FilesThere(), QStringList{u"census.pdf"_s});
}

TEST_F(ViewerWorkTest, ThePrintersPagesAreToldWhenPrintingIsCancelled) {
    View();
    SlowDown();
    const auto printing = PrintDialogSeam().Replace([this](QPrinter& printer, int, QWidget*) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(programDirectory.filePath(u"paper.pdf"_s));
        return true;
    });
    KeyMeanwhile(Qt::Key_P);
    ASSERT_TRUE(viewer->IsWorking());
    EXPECT_EQ(Work(), u"Printing"_s);
    Bar().show();
    KeyMeanwhile(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_EQ(Status(), u"Cancelled. Pages printed: 1"_s);
}

TEST_F(ViewerWorkTest, ALongSearchIsShownWhenItsTextStillStands) {
    View();
    SlowDown();
    KeyMeanwhile(Qt::Key_F);
    auto& box = Find<QLineEdit>(*viewer, "txtFind");
    Type(box, u"patient 10"_s);
    KeyMeanwhile(Qt::Key_Return, Qt::NoModifier);
    ASSERT_TRUE(viewer->IsWorking());
    AwaitWork(*viewer);
    EXPECT_EQ(Page(), 3);
    KeyMeanwhile(Qt::Key_Return, Qt::NoModifier);
    ASSERT_TRUE(viewer->IsWorking());
    Type(box, u"x"_s);
    AwaitWork(*viewer);
    EXPECT_EQ(Status(), QString()) << "of a text that nobody looks for any more nothing is told";
}

TEST_F(ViewerWorkTest, TheFocusDoesNotStayOnAButtonThatIsClosed) {
    View();
    SlowDown();
    AnsweredFile() = programDirectory.filePath(u"census.pdf"_s);
    Find<QToolButton>(*viewer, "cmdPdf").setFocus();
    KeyMeanwhile(Qt::Key_Space, Qt::NoModifier);
    ASSERT_TRUE(viewer->IsWorking());
    EXPECT_TRUE(Find<PageView>(*viewer, "PageView").hasFocus());
    AwaitWork(*viewer);
}
