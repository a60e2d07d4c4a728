#include "manual/Help.h"
#include "manual/HelpWindow.h"
#include "manual/Manual.h"
#include "support/FakeWorkspace.h"
#include "support/ScreenTest.h"
#include "toolkit/Ears.h"
#include "toolkit/Focus.h"
#include "toolkit/ModalStack.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

QWidget* OpenManual() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == u"HelpWindow"_s && window->isVisible())
            return window;
    }
    return nullptr;
}

class HelpWindowTest : public ScreenTest {
  protected:
    HelpWindowTest() {
        box = new QLineEdit(&workspace);
        Activate(workspace);
        box->show();
        box->setFocus();
    }
    ~HelpWindowTest() override {
        if (QWidget* manual = OpenManual())
            manual->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QWidget& Open(const QString& page) {
        HelpWindow::Open(page);
        QWidget* manual = OpenManual();
        if (!manual || !QTest::qWaitForWindowActive(manual))
            throw std::runtime_error("the manual did not open");
        return *manual;
    }
    static QString Source(const QWidget& manual) {
        return Find<QTextBrowser>(manual, "brwPage").source().fileName();
    }

    FakeWorkspace workspace;
    QLineEdit* box;
};

TEST_F(HelpWindowTest, OpensAtAPageAndLeadsToAnotherInTheSameWindow) {
    const QWidget& manual = Open(u"charges"_s);
    EXPECT_EQ(Source(manual), u"charges.md"_s);
    EXPECT_EQ(manual.windowTitle(), u"Manual - Charging a patient"_s);
    EXPECT_FALSE(manual.isModal());
    EXPECT_EQ(&Open(u"viewer"_s), &manual);
    EXPECT_EQ(Source(manual), u"viewer.md"_s);
    EXPECT_EQ(Find<QListWidget>(manual, "lstPages").currentItem()->text(),
              u"Slips and reports in the viewer"_s);
}

TEST_F(HelpWindowTest, IsADialogueWithItsTitleForAScreenReader) {
    OpenEars();
    QWidget& manual = Open(u"charges"_s);
    const auto* ear = QAccessible::queryAccessibleInterface(&manual);
    ASSERT_TRUE(ear);
    EXPECT_EQ(ear->role(), QAccessible::Dialog);
    EXPECT_EQ(ear->text(QAccessible::Name), u"Manual - Charging a patient"_s);
}

TEST_F(HelpWindowTest, ListsThePagesThatHaveATextAndOpensTheFirst) {
    const QWidget& manual = Open(u"census"_s);
    Find<QLineEdit>(manual, "txtSearchManual").setText(u"clipboard"_s);
    EXPECT_EQ(Find<QListWidget>(manual, "lstPages").count(), 1);
    EXPECT_EQ(Source(manual), u"about.md"_s);
    EXPECT_FALSE(Find<QTextBrowser>(manual, "brwPage").extraSelections().isEmpty());
    Find<QLineEdit>(manual, "txtSearchManual").setText(u"no such word"_s);
    EXPECT_EQ(Find<QListWidget>(manual, "lstPages").count(), 0);
    EXPECT_EQ(Find<QLabel>(manual, "lblHint").text(), u"No page has this text."_s);
}

TEST_F(HelpWindowTest, GoesFromPlaceToPlaceAndOnToTheNextPage) {
    const QWidget& manual = Open(u"sign-on"_s);
    auto& search = Find<QLineEdit>(manual, "txtSearchManual");
    auto& page = Find<QTextBrowser>(manual, "brwPage");
    search.setText(u"end of a shift"_s);
    ASSERT_EQ(Source(manual), u"sign-on.md"_s);
    search.setFocus();
    Press(search, Qt::Key_Return);
    const int first = page.textCursor().position();
    EXPECT_EQ(page.textCursor().selectedText().toLower(), u"end of a shift"_s);
    Press(search, Qt::Key_Return);
    EXPECT_TRUE(Source(manual) == u"main-window.md"_s || page.textCursor().position() > first);
    for (int i = 0; i < 3 && Source(manual) == u"sign-on.md"_s; ++i)
        Press(search, Qt::Key_Return);
    EXPECT_EQ(Source(manual), u"main-window.md"_s);
    EXPECT_EQ(page.textCursor().selectedText().toLower(), u"end of a shift"_s);
}

TEST_F(HelpWindowTest, AltLeftGoesBack) {
    const QWidget& manual = Open(u"charges"_s);
    Open(u"viewer"_s);
    QTest::keyClick(&Find<QTextBrowser>(manual, "brwPage"), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Source(manual), u"charges.md"_s);
}

TEST_F(HelpWindowTest, LeavesNoTraceInTheFocusOfTheScreen) {
    int heard = 0;
    OnGotFocus(box, [&heard] { ++heard; });
    QWidget& manual = Open(u"charges"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(OpenManual());
    ASSERT_TRUE(QTest::qWaitFor([this] { return box->hasFocus(); }));
    EXPECT_EQ(heard, 0);
    EXPECT_FALSE(manual.isVisible());
}

TEST_F(HelpWindowTest, TakesKeysOverAModalWindowAndOutlivesIt) {
    QDialog modal(&workspace);
    modal.setObjectName(u"frmSetup"_s);
    auto* layout = new QVBoxLayout(&modal);
    auto* inModal = new QLineEdit(&modal);
    layout->addWidget(inModal);
    modal.setModal(true);
    modal.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&modal));
    EXPECT_EQ(PageInHand(inModal), u"setup"_s);
    QWidget& manual = Open(PageInHand(inModal));
    EXPECT_EQ(ModalStack::Top(), &modal);
    Find<QLineEdit>(manual, "txtSearchManual").setFocus();
    QTest::keyClick(manual.windowHandle(), Qt::Key_X);
    EXPECT_EQ(Find<QLineEdit>(manual, "txtSearchManual").text(), u"x"_s);
    modal.hide();
    EXPECT_TRUE(manual.isVisible());
    QTest::keyClick(manual.windowHandle(), Qt::Key_Y);
    EXPECT_EQ(Find<QLineEdit>(manual, "txtSearchManual").text(), u"xy"_s);
}

TEST_F(HelpWindowTest, ThePageInHandIsThatOfTheWindowAroundTheControl) {
    EXPECT_EQ(PageInHand(box), u"main-window"_s);
    EXPECT_EQ(PageInHand(nullptr), u"main-window"_s);
    QWidget& manual = Open(u"charges"_s);
    EXPECT_EQ(PageInHand(&manual), QString::fromLatin1(kContentsPage));
}

} // namespace
