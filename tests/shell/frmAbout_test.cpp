#include "components/shared.h"
#include "shell/frmAbout.h"
#include "support/FakeWorkspace.h"
#include "support/ScreenTest.h"
#include "toolkit/Colors.h"
#include "toolkit/Screens.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class frmAboutTest : public ScreenTest {
  protected:
    frmAboutTest() {
        gDeptDesc = u"HEMODIALYSIS"_s;
        Activate(workspace);
    }

    /// Opens the box with its clock stopped: the test lets it tick.
    frmAbout& Open() {
        auto& screen = Screens::Get<frmAbout>();
        screen.Show();
        mTimer = screen.findChild<QTimer*>();
        EXPECT_TRUE(mTimer->isActive());
        mTimer->stop();
        return screen;
    }

    void Tick() { QMetaObject::invokeMethod(mTimer, "timeout"); }

    static void ExpectStep(const frmAbout& screen, int opacity) {
        // The window system keeps whole parts of 255, and may round down.
        EXPECT_NEAR(screen.windowOpacity(), opacity / 255.0, 0.005);
    }

    FakeWorkspace workspace;
    QTimer* mTimer = nullptr;
};

TEST_F(frmAboutTest, StandsInTheMiddleOfTheWindowThatWasActive) {
    const QPoint middle = workspace.geometry().center();
    const QPoint distance = Open().geometry().center() - middle;
    // Two pixels each way are the window's own frame.
    EXPECT_LE(distance.manhattanLength(), 4);
}

TEST_F(frmAboutTest, TheFactsLookLikeABoxIntoWhichNobodyKeys) {
    const auto* facts = Open().findChild<QPlainTextEdit*>(u"txtFacts"_s);
    EXPECT_EQ(facts->palette().color(QPalette::Base), TheColors().shown);
}

TEST_F(frmAboutTest, TellsTheDepartmentAndTheRelease) {
    QStringList texts;
    for (const QLabel* label : Open().findChildren<QLabel*>())
        texts.push_back(label->text());
    EXPECT_TRUE(texts.contains(u"TARVEN HEMODIALYSIS"_s));
    EXPECT_TRUE(texts.contains(u"Version 5.5.2"_s));
}

TEST_F(frmAboutTest, TellsSupportWhatItAsksForAndCopiesIt) {
    gDeptCode = u"HC"_s;
    user->connected = true;
    const frmAbout& screen = Open();
    const QStringList facts = Find<QPlainTextEdit>(screen, "txtFacts").toPlainText().split(u'\n');
    EXPECT_TRUE(facts.contains(u"Version: 5.5.2"_s));
    EXPECT_TRUE(facts.contains(u"Licence: MIT License"_s));
    EXPECT_TRUE(facts.contains(u"Data source: "_s + user->ServerName()));
    EXPECT_TRUE(facts.contains(u"Server: the tests' own 1.0"_s));
    EXPECT_TRUE(facts.contains(u"User: %1, %2"_s.arg(user->UserId(), user->EmployeeName())));
    EXPECT_TRUE(facts.contains(u"Department: HC, HEMODIALYSIS"_s));
    EXPECT_TRUE(facts.contains(u"Program folder: "_s + programDirectory.path()));
    Click(Find<QPushButton>(screen, "cmdCopy"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), facts.join(u'\n'));
}

TEST_F(frmAboutTest, StandsBesideTheMainWindow) {
    EXPECT_TRUE(Open().isWindow());
    EXPECT_TRUE(workspace.Area()->subWindowList().isEmpty());
}

TEST_F(frmAboutTest, FadesInFrom0To255InStepsOf3) {
    const frmAbout& screen = Open();
    ExpectStep(screen, 0);
    for (int opacity = 3; opacity <= 255; opacity += 3) {
        mTimer->start();
        Tick();
        ExpectStep(screen, opacity);
        EXPECT_EQ(mTimer->isActive(), opacity < 255);
        mTimer->stop();
    }
}

class FadeOut : public frmAboutTest {
  protected:
    void FadesOut(const std::function<void(frmAbout&)>& close) {
        frmAbout& screen = Open();
        for (int i = 0; i < 85; ++i)
            Tick();
        ExpectStep(screen, 255);
        close(screen);
        EXPECT_TRUE(mTimer->isActive());
        mTimer->stop();
        for (int opacity = 252; opacity > 0; opacity -= 3) {
            Tick();
            ExpectStep(screen, opacity);
            EXPECT_TRUE(Screens::IsLoaded<frmAbout>());
        }
        Tick();
        EXPECT_FALSE(Screens::IsLoaded<frmAbout>());
    }
};

TEST_F(FadeOut, OnOKThenTheBoxCloses) {
    FadesOut([](const frmAbout& screen) { Click(Find<QPushButton>(screen, "cmdOK")); });
}

TEST_F(FadeOut, OnTheCloseBoxThenTheBoxCloses) {
    FadesOut([](frmAbout& screen) { EXPECT_FALSE(screen.close()); });
}

TEST_F(FadeOut, OpenedAgainMeanwhileTheBoxStays) {
    frmAbout& screen = Open();
    for (int i = 0; i < 85; ++i)
        Tick();
    screen.close();
    mTimer->stop();
    Tick();
    ExpectStep(screen, 252);
    screen.FadeIn();
    EXPECT_TRUE(mTimer->isActive());
    Tick();
    ExpectStep(screen, 255);
    EXPECT_FALSE(mTimer->isActive());
    EXPECT_TRUE(screen.isVisible());
}

TEST_F(frmAboutTest, UnloadedByTheProgramItIsGoneAtOnce) {
    frmAbout& screen = Open();
    EXPECT_TRUE(screen.Unload());
    EXPECT_FALSE(screen.isVisible());
}

} // namespace
