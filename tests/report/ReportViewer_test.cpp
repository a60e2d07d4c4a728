#include "report/output/JobRunner.h"
#include "report/output/Printers.h"
#include "support/cups/CupsServer.h"
#include "ViewerGround.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QProcess>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

bool TreeIsShown(const ReportViewer& viewer) {
    return Find<QTreeView>(viewer, "GroupTree").isVisible();
}

} // namespace

TEST_F(ReportViewerTest, ShowsTheFirstPageAndHowManyThereAre) {
    View();
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(Find<QLabel>(*viewer, "lblPages").text(), u"of 4"_s);
    EXPECT_EQ(Find<QSpinBox>(*viewer, "txtPage").value(), 1);
}

TEST_F(ReportViewerTest, NeedsAReport) {
    EXPECT_EQ(TextOfFailure([this] { viewer->ViewReport(); }),
              u"Object variable or With block variable not set"_s);
}

TEST_F(ReportViewerTest, OffersNothingBeforeThereIsAPage) {
    Activate(*viewer);
    for (const QToolButton* button : viewer->findChildren<QToolButton*>())
        EXPECT_FALSE(button->isEnabled()) << button->objectName().toStdString();
    viewer->PrintReport();
    EXPECT_FALSE(Find<QLineEdit>(*viewer, "txtFind").isEnabled());
}

TEST_F(ReportViewerTest, EachButtonHasANameAndATooltipThatTellsItsKey) {
    View();
    for (const QToolButton* button : viewer->findChildren<QToolButton*>()) {
        if (!button->objectName().startsWith(u"cmd"_s))
            continue;
        EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
        const QString key = button->defaultAction()->shortcut().toString(QKeySequence::NativeText);
        EXPECT_FALSE(key.isEmpty()) << button->objectName().toStdString();
        EXPECT_TRUE(button->toolTip().contains(key)) << button->objectName().toStdString();
        EXPECT_FALSE(button->icon().pixmap(16).isNull()) << button->objectName().toStdString();
    }
}

TEST_F(ReportViewerTest, TheIconsOfEveryViewerAreTheSame) {
    const ReportViewer other;
    for (const QString& button : {u"cmdPdf"_s, u"cmdFirst"_s, u"cmdFindNext"_s})
        EXPECT_EQ(viewer->findChild<QToolButton*>(button)->icon().cacheKey(),
                  other.findChild<QToolButton*>(button)->icon().cacheKey());
}

TEST_F(ReportViewerTest, TurnsPagesByKeys) {
    View();
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Page(), 2);
    EXPECT_EQ(Find<QSpinBox>(*viewer, "txtPage").value(), 2);
    Key(Qt::Key_End);
    EXPECT_EQ(Page(), 4);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Page(), 4);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Page(), 3);
    Key(Qt::Key_Home);
    EXPECT_EQ(Page(), 1);
}

TEST_F(ReportViewerTest, TurnsPagesByButtons) {
    View();
    Click(Find<QToolButton>(*viewer, "cmdNext"));
    EXPECT_EQ(Page(), 2);
    Click(Find<QToolButton>(*viewer, "cmdLast"));
    EXPECT_EQ(Page(), 4);
    Click(Find<QToolButton>(*viewer, "cmdPrevious"));
    EXPECT_EQ(Page(), 3);
    Click(Find<QToolButton>(*viewer, "cmdFirst"));
    EXPECT_EQ(Page(), 1);
}

TEST_F(ReportViewerTest, GoesToAPageByItsNumber) {
    View();
    Key(Qt::Key_G);
    auto& box = Find<QSpinBox>(*viewer, "txtPage");
    ASSERT_TRUE(box.hasFocus());
    Press(box, Qt::Key_3);
    EXPECT_EQ(Page(), 1) << "a number still being keyed turns no page";
    Press(box, Qt::Key_Return);
    EXPECT_EQ(Page(), 3);
}

TEST_F(ReportViewerTest, ZoomsByKeysAndByTheSwitch) {
    View();
    const auto& pages = Find<PageView>(*viewer, "PageView");
    const double width = pages.ZoomFactor();
    Key(Qt::Key_2);
    EXPECT_LT(pages.ZoomFactor(), width);
    Key(Qt::Key_1);
    EXPECT_EQ(pages.ZoomFactor(), width);
    Key(Qt::Key_Plus);
    EXPECT_NEAR(pages.ZoomFactor(), width * 1.25, 0.001);
    Key(Qt::Key_Equal);
    EXPECT_NEAR(pages.ZoomFactor(), width * 1.25 * 1.25, 0.001);
    Key(Qt::Key_Minus);
    EXPECT_NEAR(pages.ZoomFactor(), width * 1.25, 0.001);
    viewer->Zoom(80);
    EXPECT_NEAR(pages.ZoomFactor(), 0.8, 0.001);
    EXPECT_EQ(Find<QLabel>(*viewer, "lblZoom").text(), u"80 %"_s);
    viewer->Zoom(ReportViewer::kPageWidth);
    EXPECT_EQ(pages.ZoomFactor(), width);
}

TEST_F(ReportViewerTest, FindsTextAndTheNextMatch) {
    View();
    Key(Qt::Key_F);
    auto& box = Find<QLineEdit>(*viewer, "txtFind");
    ASSERT_TRUE(box.hasFocus());
    Type(box, u"patient 1"_s);
    Press(box, Qt::Key_Return);
    EXPECT_EQ(Page(), 1);
    Key(Qt::Key_F3, Qt::NoModifier);
    EXPECT_EQ(Page(), 3) << "PATIENT 10";
    Key(Qt::Key_F3, Qt::NoModifier);
    Key(Qt::Key_F3, Qt::NoModifier);
    EXPECT_EQ(Page(), 4) << "PATIENT 12";
    Key(Qt::Key_F3, Qt::NoModifier);
    EXPECT_EQ(Page(), 1) << "goes on at the start";
    EXPECT_EQ(Status(), QString());
}

TEST_F(ReportViewerTest, FindsBackwards) {
    View();
    Key(Qt::Key_F);
    auto& box = Find<QLineEdit>(*viewer, "txtFind");
    Type(box, u"patient 1"_s);
    Key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Page(), 4) << "PATIENT 12, the last one";
    Key(Qt::Key_F3, Qt::ShiftModifier);
    Key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Page(), 3) << "PATIENT 10";
    Key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Page(), 1);
    Key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Page(), 4) << "goes on at the end";
    Key(Qt::Key_F3, Qt::NoModifier);
    EXPECT_EQ(Page(), 1);
}

TEST_F(ReportViewerTest, PagesBySpaceAndBackWithShift) {
    View();
    const QScrollBar& bar = *Find<PageView>(*viewer, "PageView").verticalScrollBar();
    Key(Qt::Key_Space, Qt::NoModifier);
    Key(Qt::Key_Space, Qt::NoModifier);
    EXPECT_EQ(bar.value(), 2 * bar.pageStep());
    Key(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(bar.value(), bar.pageStep());
}

TEST_F(ReportViewerTest, LooksForAnotherTextFromTheStart) {
    View();
    Key(Qt::Key_F);
    auto& box = Find<QLineEdit>(*viewer, "txtFind");
    Type(box, u"patient 5"_s);
    Press(box, Qt::Key_Return);
    EXPECT_EQ(Page(), 2);
    Press(box, Qt::Key_Backspace);
    Press(box, Qt::Key_Return);
    EXPECT_EQ(Page(), 1);
}

TEST_F(ReportViewerTest, SaysWhenATextIsNotFound) {
    View();
    Key(Qt::Key_F);
    auto& box = Find<QLineEdit>(*viewer, "txtFind");
    Type(box, u"nobody"_s);
    Press(box, Qt::Key_Return);
    EXPECT_EQ(Status(), u"Not found"_s);
    Type(box, u"x"_s);
    EXPECT_EQ(Status(), QString()) << "another text, another search";
}

TEST_F(ReportViewerTest, SearchWithoutATextAsksForIt) {
    View();
    Key(Qt::Key_F3, Qt::NoModifier);
    EXPECT_TRUE(Find<QLineEdit>(*viewer, "txtFind").hasFocus());
}

TEST_F(ReportViewerTest, EscapeAsksToClose) {
    View();
    QSignalSpy closes(viewer.get(), &ReportViewer::CloseRequested);
    Key(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_EQ(closes.size(), 1);
    Key(Qt::Key_F);
    Key(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_EQ(closes.size(), 2);
}

TEST_F(ReportViewerTest, TheGroupTreeCannotBeOpenedUnlessItIsEnabled) {
    viewer->EnableGroupTree(false);
    View();
    Key(Qt::Key_T);
    EXPECT_FALSE(TreeIsShown(*viewer));
    viewer->DisplayGroupTree(true);
    EXPECT_FALSE(TreeIsShown(*viewer));
}

TEST_F(ReportViewerTest, TheGroupTreeOpensAndGoesToItsGroups) {
    viewer->EnableGroupTree(true);
    View();
    EXPECT_FALSE(TreeIsShown(*viewer)) << "enabled is not yet shown";
    Key(Qt::Key_T);
    ASSERT_TRUE(TreeIsShown(*viewer));
    auto& tree = Find<QTreeView>(*viewer, "GroupTree");
    ASSERT_EQ(tree.model()->rowCount(), 2);
    EXPECT_EQ(tree.model()->index(1, 0).data().toString(), u"WARD 2"_s);
    tree.setCurrentIndex(tree.model()->index(1, 0));
    EXPECT_EQ(Page(), 2);
    Key(Qt::Key_T);
    EXPECT_FALSE(TreeIsShown(*viewer));
    viewer->DisplayGroupTree(true);
    EXPECT_TRUE(TreeIsShown(*viewer));
    viewer->EnableGroupTree(false);
    EXPECT_FALSE(TreeIsShown(*viewer));
}

TEST_F(ReportViewerTest, TheGroupTreeTurnsNoPageUntilAGroupIsChosen) {
    viewer->EnableGroupTree(true);
    View();
    Key(Qt::Key_PageDown);
    Key(Qt::Key_T);
    auto& tree = Find<QTreeView>(*viewer, "GroupTree");
    tree.setFocus();
    EXPECT_EQ(Page(), 2);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                      tree.visualRect(tree.model()->index(0, 0)).center());
    EXPECT_EQ(Page(), 1);
    Press(tree, Qt::Key_Down);
    EXPECT_EQ(Page(), 2);
    viewer->ViewReport();
    EXPECT_EQ(Page(), 1);
}

TEST_F(ReportViewerTest, TheNumberedSwitchesChangeNothing) {
    View();
    const QImage before = viewer->grab().toImage();
    viewer->SetSwitch258(true);
    viewer->SetSwitch259(true);
    viewer->ViewReport();
    EXPECT_EQ(viewer->grab().toImage(), before);
    EXPECT_EQ(database.commands.size(), 1) << "the report stays as it was when it was opened";
}

TEST_F(ReportViewerTest, SavesAsPdf) {
    View();
    AnsweredFile() = programDirectory.filePath(u"census.pdf"_s);
    Key(Qt::Key_S);
    EXPECT_EQ(SuggestedFile(), u"Census.pdf"_s);
    EXPECT_TRUE(TextOfPdf(AnsweredFile()).contains(u"PATIENT 12"_s));
}

TEST_F(ReportViewerTest, SaysWhereItWasSaved) {
    View();
    viewer->resize(2000, 400);
    AnsweredFile() = programDirectory.filePath(u"census.pdf"_s);
    Key(Qt::Key_S);
    EXPECT_EQ(Status(), u"Saved as "_s + AnsweredFile());
    Key(Qt::Key_E);
    EXPECT_EQ(Find<QLabel>(*viewer, "lblStatus").toolTip(), u"Saved as "_s + AnsweredFile());
}

TEST_F(ReportViewerTest, SuggestsTheReportsTitleAndWritesItIntoThePdf) {
    ViewTitled(u"Slip 10/42: {?Day}"_s);
    AnsweredFile() = programDirectory.filePath(u"census.pdf"_s);
    Key(Qt::Key_S);
    EXPECT_EQ(SuggestedFile(), u"Slip 10-42- 2026-11-21.pdf"_s);
    QProcess process;
    process.start(u"pdfinfo"_s, {AnsweredFile()});
    process.waitForFinished();
    EXPECT_TRUE(process.readAllStandardOutput().contains("Slip 10/42: 2026-11-21"));
    Key(Qt::Key_E);
    EXPECT_EQ(SuggestedFile(), u"Slip 10-42- 2026-11-21.csv"_s);
}

TEST_F(ReportViewerTest, SavesItsRows) {
    View();
    AnsweredFile() = programDirectory.filePath(u"census.csv"_s);
    Key(Qt::Key_E);
    EXPECT_EQ(SuggestedFile(), u"Census.csv"_s);
    EXPECT_TRUE(ReadFile(AnsweredFile()).contains("WARD 2,PATIENT 12\r\n"));
}

TEST_F(ReportViewerTest, SavesNothingWhenTheClerkGivesUp) {
    View();
    Key(Qt::Key_S);
    Key(Qt::Key_E);
    EXPECT_TRUE(QDir(programDirectory.path()).isEmpty());
}

TEST_F(ReportViewerTest, AFailureToSaveIsToldAndLeavesTheViewer) {
    View();
    AnsweredFile() = u"/no/such/folder/census.pdf"_s;
    const QString told = u"\"/no/such/folder/census.pdf\" could not be saved.\n\nNo such file or directory"_s;
    messages.Expect({.text = told, .icon = MsgIcon::Exclamation, .title = u"Census Report"_s});
    Key(Qt::Key_S);
    messages.Expect({.text = told, .icon = MsgIcon::Exclamation, .title = u"Census Report"_s});
    Key(Qt::Key_E);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Page(), 2);
}

TEST_F(ReportViewerTest, PrintsOnTheChosenPrinter) {
    View();
    const QString file = programDirectory.filePath(u"paper.pdf"_s);
    const auto printing = PrintDialogSeam().Replace([&](QPrinter& printer, int, QWidget*) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(4, 4);
        return true;
    });
    Key(Qt::Key_P);
    EXPECT_EQ(TextOfPdf(file).simplified(), u"4 of 4 WARD 2 PATIENT 12"_s);
}

TEST_F(ReportViewerTest, PrintsNothingWhenTheClerkGivesUp) {
    View();
    int asked = 0;
    const auto printing = PrintDialogSeam().Replace([&](QPrinter& printer, int, QWidget*) {
        ++asked;
        printer.setOutputFileName(programDirectory.filePath(u"paper.pdf"_s));
        return false;
    });
    Key(Qt::Key_P);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(QDir(programDirectory.path()).isEmpty());
}

TEST_F(ReportViewerTest, AFailureToPrintIsTold) {
    View();
    const auto printing = PrintDialogSeam().Replace([](QPrinter& printer, int, QWidget*) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(u"/no/such/folder/paper.pdf"_s);
        return true;
    });
    messages.Expect(
        {.text = u"The report could not be printed.\n\nThe printer \"\" did not take the report."_s,
         .icon = MsgIcon::Exclamation,
         .title = u"Census Report"_s});
    Key(Qt::Key_P);
}

TEST_F(ReportViewerTest, TheKeyThatPrintsAtOnceIsALetterInABoxThatTakesLetters) {
    View();
    int asked = 0;
    const auto printing = PrintDialogSeam().Replace([&](QPrinter&, int, QWidget*) {
        ++asked;
        return false;
    });
    Key(Qt::Key_F);
    Key(Qt::Key_P, Qt::NoModifier);
    EXPECT_EQ(Find<QLineEdit>(*viewer, "txtFind").text(), u"p"_s);
    EXPECT_EQ(asked, 0);
    viewer->setFocus();
    Key(Qt::Key_P, Qt::NoModifier);
    EXPECT_EQ(asked, 1) << "where no printer was used yet it asks";
}

namespace {

class ViewerOnPrinters : public ReportViewerTest {
  protected:
    void SetUp() override {
        if (const QString missing = CupsServer::Missing(); !missing.isEmpty())
            GTEST_SKIP() << "the machine has no " << missing.toStdString();
        server.emplace();
        ASSERT_TRUE(server->IsRunning());
        viewer->resize(2000, 400);
    }

    /// The clerk chooses a printer in the dialogue.
    static auto Choosing(const QString& name, int& asked) {
        return PrintDialogSeam().Replace([name, &asked](QPrinter& printer, int, QWidget*) {
            ++asked;
            printer.setPrinterName(name);
            return true;
        });
    }

    std::optional<CupsServer> server;
};

} // namespace

TEST_F(ViewerOnPrinters, PrintsAgainOnTheLastOneWithoutAsking) {
    server->AddQueue(u"Office"_s, {u"A4"_s});
    server->AddQueue(u"Ward"_s, {u"A4"_s});
    View();
    int asked = 0;
    const auto printing = Choosing(u"Ward"_s, asked);
    Key(Qt::Key_P);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Status(), u"Printed on \"Ward\"."_s);
    const QString printed = server->Printed(u"Ward"_s);
    EXPECT_TRUE(TextOfPdf(printed).contains(u"PATIENT 12"_s));
    QFile::remove(printed);
    Key(Qt::Key_P, Qt::NoModifier);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(TextOfPdf(server->Printed(u"Ward"_s)).contains(u"PATIENT 12"_s));
    EXPECT_EQ(server->Printed(u"Office"_s), QString());
}

TEST_F(ViewerOnPrinters, BeginsWithTheMachinesPrinterWithoutAsking) {
    server->AddQueue(u"Office"_s, {u"A4"_s});
    server->AddQueue(u"Ward"_s, {u"A4"_s});
    QSettings machine(QSettings::IniFormat, QSettings::SystemScope, u"TARVEN"_s, u"Hemodialysis"_s);
    machine.setValue(u"Printer"_s, u"Ward"_s);
    const auto cleared = qScopeGuard([&machine] { machine.clear(); });
    View();
    const auto printing = PrintDialogSeam().Replace([](QPrinter&, int, QWidget*) {
        ADD_FAILURE() << "it asks";
        return false;
    });
    Key(Qt::Key_P, Qt::NoModifier);
    EXPECT_EQ(Status(), u"Printed on \"Ward\"."_s);
    EXPECT_TRUE(TextOfPdf(server->Printed(u"Ward"_s)).contains(u"PATIENT 12"_s));
    machine.setValue(u"Printer"_s, u"Office"_s);
    machine.sync();
    EXPECT_EQ(LastPrinter(), u"Office"_s) << "what the machine has is no choice of the user's";
}

TEST_F(ViewerOnPrinters, AsksWhenTheLastOneIsGone) {
    server->AddQueue(u"Office"_s, {u"A4"_s});
    RememberPrinter(u"Ward"_s);
    View();
    QString told;
    const auto printing = PrintDialogSeam().Replace([&](QPrinter&, int, QWidget*) {
        told = Status();
        return false;
    });
    Key(Qt::Key_P, Qt::NoModifier);
    EXPECT_EQ(told, u"The printer \"Ward\" is not there any more."_s);
    EXPECT_EQ(server->Printed(u"Office"_s), QString());
}

TEST_F(ViewerOnPrinters, WithoutAnyTellsWhatCanBeDoneInstead) {
    View();
    messages.Expect({.text = u"There is no printer on this machine.\n\n"
                             "The report can be saved as a PDF instead."_s,
                     .icon = MsgIcon::Exclamation,
                     .title = u"Census Report"_s});
    Key(Qt::Key_P);
    EXPECT_EQ(Page(), 1);
}

TEST_F(ViewerOnPrinters, OneThatVanishesInBetweenIsToldAndNothingIsLost) {
    server->AddQueue(u"Office"_s, {u"A4"_s});
    server->AddQueue(u"Ward"_s, {u"A4"_s});
    View();
    viewer->findChild<JobRunner*>()->SetTurn(0);
    int asked = 0;
    const auto printing = Choosing(u"Ward"_s, asked);
    messages.Expect({.text = u"The report could not be printed.\n\n"
                             "The printer \"Ward\" is not there any more."_s,
                     .icon = MsgIcon::Exclamation,
                     .title = u"Census Report"_s});
    Press(*QApplication::focusWidget(), Qt::Key_P, Qt::ControlModifier);
    ASSERT_TRUE(viewer->IsWorking());
    server->RemoveQueue(u"Ward"_s);
    AwaitWork(*viewer);
    EXPECT_EQ(Status(), QString());
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(LastPrinter(), QString()) << "nothing was printed there";
}

TEST_F(ViewerOnPrinters, OneThatRefusesTheJobIsTold) {
    server->AddQueue(u"Ward"_s, {u"A4"_s});
    server->Reject(u"Ward"_s);
    View();
    int asked = 0;
    const auto printing = Choosing(u"Ward"_s, asked);
    messages.Expect({.text = u"The report could not be printed.\n\n"
                             "The printer \"Ward\" did not take the report.\n"
                             "Destination \"Ward\" is not accepting jobs."_s,
                     .icon = MsgIcon::Exclamation,
                     .title = u"Census Report"_s});
    Key(Qt::Key_P);
}

TEST_F(ReportViewerTest, ShowsNoPageWhenTheClerkGivesNoValues) {
    QTimer::singleShot(0, qApp, [] { Press(*QApplication::activeModalWidget(), Qt::Key_Escape); });
    View(u"<parameters><parameter name=\"Day\" type=\"date\" prompt=\"Day\"/></parameters>"_s);
    EXPECT_EQ(Status(), u"The report was not given its values."_s);
    EXPECT_TRUE(database.commands.isEmpty());
    EXPECT_EQ(Page(), 0);
    QTimer::singleShot(0, qApp, [] {
        auto& day = Find<QLineEdit>(*QApplication::activeModalWidget(), "txtDay");
        Type(day, u"11/21/2026"_s);
        Press(day, Qt::Key_Return);
    });
    viewer->ViewReport();
    AwaitWork(*viewer);
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(Status(), QString());
}
