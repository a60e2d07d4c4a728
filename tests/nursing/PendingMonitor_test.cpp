#include "components/shared.h"
#include "nursing/commands.h"
#include "nursing/frmNursingRequest.h"
#include "nursing/PendingMonitor.h"
#include "patients/frmSearchPatient.h"
#include "support/CaseName.h"
#include "support/FakeWorkspace.h"
#include "support/ScreenTest.h"
#include "support/WhileModal.h"
#include "toolkit/Screens.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb kDark = qRgb(0xFF, 0x80, 0xFF);
constexpr QRgb kLight = qRgb(0xFF, 0xC0, 0xFF);

/// Counts the events of one type that come to some controls.
class EventCounter : public QObject {
  public:
    EventCounter(QEvent::Type type, const std::vector<QWidget*>& controls)
        : mType(type) {
        for (QWidget* control : controls)
            control->installEventFilter(this);
    }
    int Count() const { return mCount; }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        mCount += event->type() == mType ? 1 : 0;
        return false;
    }

  private:
    QEvent::Type mType;
    int mCount = 0;
};

/// The strip inside a main window. Its timers tick when the test says so, unless it starts them.
class PendingMonitorTest : public ScreenTest {
  protected:
    PendingMonitorTest() {
        workspace.setMenuWidget(monitor);
        Activate(workspace);
        gDeptCode = u"XR"_s;
    }
    ~PendingMonitorTest() override {
        monitor->Stop();
        Screens::Clear();
    }

    QTimer& Timer(const char* name) const {
        auto* timer = monitor->findChild<QTimer*>(QString::fromLatin1(name));
        if (!timer)
            throw std::runtime_error(name);
        return *timer;
    }
    void Tick(const char* timer) const { QMetaObject::invokeMethod(&Timer(timer), "timeout"); }

    void ExpectCount(const Value& count) {
        gateway.Expect(CheckPendingCommand(), Rows({u"TotalPending"_s}, {{count}}));
    }
    void Check(const Value& count) {
        ExpectCount(count);
        Tick("tmrCheckPending");
        EXPECT_TRUE(gateway.IsDone());
    }
    /// A question that fails, and the number of its failure.
    int FailureOfCheck(std::shared_ptr<const RowData> rows) {
        gateway.Expect(CheckPendingCommand(), std::move(rows));
        return FailureOfTick();
    }
    /// A timer's handler runs under the event dispatch, where the failure is caught.
    int FailureOfTick() {
        QTimer::singleShot(0, monitor, [this] { Tick("tmrCheckPending"); });
        RunEvents();
        return TakeFailure();
    }

    /// The strip as it stands between two ticks.
    void ShowStill() {
        const EventCounter painted(QEvent::Paint, {&Picture()});
        Check(1);
        monitor->Stop();
        EXPECT_TRUE(QTest::qWaitFor([&] { return painted.Count() > 0; }));
        RunEvents();
    }

    QFrame& Picture() const { return Find<QFrame>(*monitor, "pctPending"); }
    QFrame& Strip() const { return Find<QFrame>(*monitor, "Picture1"); }
    QRgb Color() const { return Picture().palette().color(QPalette::Window).rgb(); }
    QString Label() const { return Find<QLabel>(*monitor, "Label1").text(); }

    /// Nothing when the four do not go together.
    std::optional<bool> IsPending() const {
        const bool first = Timer("tmrPending").isActive();
        for (const bool other : {Timer("Timer2").isActive(), Strip().isVisible(), Picture().isVisible()}) {
            if (other != first)
                return {};
        }
        return first;
    }

    FakeWorkspace workspace;
    PendingMonitor* monitor = new PendingMonitor(&workspace);
};

struct TimerRow {
    const char* name;
    int interval;
    bool runs;
};

} // namespace

TEST_F(PendingMonitorTest, TimersHaveTheseSettingsAtTheStart) {
    monitor->Start();
    for (const TimerRow& wanted : {TimerRow{"tmrCheckPending", 250, true}, TimerRow{"tmrPending", 250, false},
                                   TimerRow{"Timer2", 50, false}, TimerRow{"Timer1", 1000, false},
                                   TimerRow{"tmrPrepaid", 60000, true}}) {
        const QTimer& timer = Timer(wanted.name);
        EXPECT_EQ(timer.interval(), wanted.interval) << wanted.name;
        EXPECT_EQ(timer.isActive(), wanted.runs) << wanted.name;
        EXPECT_FALSE(timer.isSingleShot()) << wanted.name;
    }
}

TEST_F(PendingMonitorTest, StopsEveryTimer) {
    monitor->Start();
    Check(1);
    Timer("Timer1").start();
    monitor->Stop();
    for (const char* name : {"tmrCheckPending", "tmrPending", "Timer2", "Timer1", "tmrPrepaid"})
        EXPECT_FALSE(Timer(name).isActive()) << name;
}

TEST_F(PendingMonitorTest, ControlsAtTheStart) {
    EXPECT_FALSE(Picture().isVisible());
    EXPECT_FALSE(Strip().isVisible());
    EXPECT_EQ(Color(), kDark);
    EXPECT_TRUE(Picture().autoFillBackground());
    auto& image = Find<QLabel>(Picture(), "Image1");
    EXPECT_FALSE(image.pixmap(Qt::ReturnByValue).isNull());
    auto& label = Find<QLabel>(Strip(), "Label1");
    EXPECT_EQ(label.text(), u"There are pending requests."_s);
    EXPECT_EQ(label.font().family(), u"Courier New"_s);
    auto& prepaid = Find<QPushButton>(*monitor, "cmdPrepaid");
    EXPECT_EQ(prepaid.text(), u"Prepaid Requests"_s);
    EXPECT_FALSE(prepaid.isVisible());
}

TEST_F(PendingMonitorTest, PrepaidButtonAndTimerDoNothing) {
    auto& prepaid = Find<QPushButton>(*monitor, "cmdPrepaid");
    prepaid.show();
    Click(prepaid);
    Tick("tmrPrepaid");
    RunEvents();
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>());
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
}

TEST_F(PendingMonitorTest, AsksNothingBeforeTheSignOn) {
    user->connected = false;
    Tick("tmrCheckPending");
    EXPECT_EQ(IsPending(), false);
    user->connected = true;
    Check(1);
    EXPECT_EQ(IsPending(), true);
}

TEST_F(PendingMonitorTest, AsksThroughTheSessionsConnectionByPlainExecution) {
    gConnection = nullptr;
    Check(0);
    EXPECT_TRUE(gateway.Openings().empty());
}

struct CountCase {
    const char* name;
    Value count;
    bool pending;
};

class PendingCount : public PendingMonitorTest, public testing::WithParamInterface<CountCase> {};

TEST_P(PendingCount, ShowsTheStripOrNot) {
    Check(GetParam().count);
    EXPECT_EQ(IsPending(), GetParam().pending);
}

TEST_P(PendingCount, DecidesAgainAfterOthers) {
    Check(GetParam().pending ? 0 : 3);
    EXPECT_EQ(IsPending(), !GetParam().pending);
    Check(GetParam().count);
    EXPECT_EQ(IsPending(), GetParam().pending);
}

INSTANTIATE_TEST_SUITE_P(Counts, PendingCount,
                         testing::Values(CountCase{"One", 1, true}, CountCase{"Many", 250, true},
                                         CountCase{"Text", u"3"_s, true}, CountCase{"Zero", 0, false},
                                         CountCase{"Negative", -1, false}),
                         CaseName());

TEST_F(PendingMonitorTest, OfTwoRowsTheFirstCounts) {
    for (const auto& [first, second] : {std::pair(0, 5), std::pair(5, 0)}) {
        gateway.Expect(CheckPendingCommand(), Rows({u"TotalPending"_s}, {{first}, {second}}));
        Tick("tmrCheckPending");
        EXPECT_EQ(IsPending(), first > 0);
    }
}

TEST_F(PendingMonitorTest, SetsAllFourOnEveryTick) {
    Check(3);
    // Whatever happened to one of them since, the next question sets it again.
    Timer("tmrPending").stop();
    Timer("Timer2").stop();
    Strip().hide();
    Picture().hide();
    Check(3);
    EXPECT_EQ(IsPending(), true);
    Check(0);
    Timer("tmrPending").start();
    Timer("Timer2").start();
    Strip().show();
    Picture().show();
    Check(0);
    EXPECT_EQ(IsPending(), false);
}

TEST_F(PendingMonitorTest, ATickLeavesRunningTimersInTheirInterval) {
    // A timer that was started anew at each question would never come to its end.
    Check(3);
    QObject::connect(&Timer("tmrPending"), &QTimer::timeout, monitor, [this] { Timer("tmrPending").stop(); });
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
            if (Timer("tmrPending").isActive())
                Check(3);
            return !Timer("tmrPending").isActive();
        },
        20000))
        << "the flash never came to its end";
}

TEST_F(PendingMonitorTest, FromThreeToNoneTheDisplayGoesAndTheLabelKeepsItsText) {
    Check(3);
    for (int i = 0; i < 6; ++i)
        Tick("Timer2");
    EXPECT_EQ(Label(), u"There"_s);
    Check(0);
    EXPECT_EQ(IsPending(), false);
    EXPECT_EQ(Label(), u"There"_s);
    Check(1);
    EXPECT_EQ(Label(), u"There"_s);
    Tick("Timer2");
    EXPECT_EQ(Label(), u"There "_s);
}

TEST_F(PendingMonitorTest, FlashAlternatesBetweenTheTwoPinks) {
    for (const QRgb wanted : {kLight, kDark, kLight}) {
        Tick("tmrPending");
        EXPECT_EQ(Color(), wanted);
    }
}

TEST_F(PendingMonitorTest, FlashStopsAtWhicheverPinkItHasReachedAndGoesOnFromThere) {
    Check(2);
    Tick("tmrPending");
    Check(0);
    EXPECT_EQ(Color(), kLight);
    Check(2);
    EXPECT_EQ(Color(), kLight);
    Tick("tmrPending");
    EXPECT_EQ(Color(), kDark);
}

TEST_F(PendingMonitorTest, FlashLeavesAnyOtherColourAlone) {
    QPalette palette = Picture().palette();
    palette.setColor(QPalette::Window, Qt::green);
    Picture().setPalette(palette);
    Tick("tmrPending");
    EXPECT_EQ(Color(), QColor(Qt::green).rgb());
}

TEST_F(PendingMonitorTest, TextGrowsByALetterStaysForOneTickAndStartsAgain) {
    const QString text = u"There are pending requests."_s;
    ASSERT_EQ(text.size(), 27);
    for (int typed = 0; typed <= 27; ++typed) {
        Tick("Timer2");
        EXPECT_EQ(Label(), text.left(typed));
    }
    Tick("Timer2");
    EXPECT_EQ(Label(), text) << "complete for one more tick";
    for (int typed = 1; typed <= 27; ++typed) {
        Tick("Timer2");
        EXPECT_EQ(Label(), text.left(typed)) << "never empty again";
    }
    Tick("Timer2");
    EXPECT_EQ(Label(), text);
    Tick("Timer2");
    EXPECT_EQ(Label(), u"T"_s);
}

TEST_F(PendingMonitorTest, TypingMovesNothing) {
    Check(1);
    RunEvents();
    const QRect label = Find<QLabel>(*monitor, "Label1").geometry();
    const QRect strip = Strip().geometry();
    for (int i = 0; i < 3; ++i)
        Tick("Timer2");
    RunEvents();
    EXPECT_EQ(Find<QLabel>(*monitor, "Label1").geometry(), label);
    EXPECT_EQ(Strip().geometry(), strip);
}

TEST_F(PendingMonitorTest, TypingPaintsNoWidgetAndLaysNothingOut) {
    ShowStill();
    // A whole line, after which nothing new is kept.
    for (int i = 0; i < 30; ++i)
        Tick("Timer2");
    RunEvents();
    auto& label = Find<QLabel>(Strip(), "Label1");
    const std::vector<QWidget*> around{&workspace, monitor, &Strip(), &Picture(), &label};
    const EventCounter painted(QEvent::Paint, around);
    const EventCounter laidOut(QEvent::LayoutRequest, around);
    for (int i = 1; i <= 3; ++i) {
        const QString before = label.text();
        Tick("Timer2");
        EXPECT_NE(label.text(), before);
        RunEvents();
    }
    EXPECT_EQ(painted.Count(), 0);
    EXPECT_EQ(laidOut.Count(), 0);
}

TEST_F(PendingMonitorTest, AFlashPaintsThePictureAloneAndLaysNothingOut) {
    ShowStill();
    const std::vector<QWidget*> around{&workspace, monitor, &Strip(), &Find<QLabel>(Strip(), "Label1")};
    const EventCounter painted(QEvent::Paint, around);
    const EventCounter laidOut(QEvent::LayoutRequest, around);
    const EventCounter flashed(QEvent::Paint, {&Picture()});
    for (int i = 1; i <= 3; ++i) {
        Tick("tmrPending");
        EXPECT_TRUE(QTest::qWaitFor([&] { return flashed.Count() == i; }));
    }
    EXPECT_EQ(painted.Count(), 0);
    EXPECT_EQ(laidOut.Count(), 0);
}

TEST_F(PendingMonitorTest, TheOtherTimerWouldStopItselfAndOpenTheFinderNotModal) {
    Timer("Timer1").start();
    Tick("Timer1");
    EXPECT_FALSE(Timer("Timer1").isActive());
    ASSERT_TRUE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_TRUE(Screens::Get<frmSearchPatient>().isVisible());
    EXPECT_FALSE(Screens::Get<frmSearchPatient>().IsModal());
}

TEST_F(PendingMonitorTest, ADoubleClickOnTheImageOpensTheQueueModally) {
    Check(1);
    gateway.Expect(NurseRequestCommand(), Rows({u"Hospnum"_s}, {{u"100085"_s}}));
    bool opened = false;
    WhileModal([&opened](Form& screen) {
        opened = &screen == &Screens::Get<frmNursingRequest>();
        EXPECT_TRUE(screen.IsModal());
    });
    auto& image = Find<QLabel>(*monitor, "Image1");
    DoubleClick(image, image.rect().center());
    EXPECT_TRUE(opened);
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>());
}

TEST_F(PendingMonitorTest, F6OpensTheQueueFromABoxOfAScreenAndTheFocusComesBackThere) {
    auto* screen = new QWidget;
    auto* box = new QLineEdit(screen);
    workspace.Area()->addSubWindow(screen)->show();
    box->setFocus();
    Check(1);
    gateway.Expect(NurseRequestCommand(), Rows({u"Hospnum"_s}, {{u"100085"_s}}));
    bool opened = false;
    WhileModal([&opened](Form& shown) { opened = &shown == &Screens::Get<frmNursingRequest>(); });
    Press(*box, Qt::Key_F6);
    EXPECT_TRUE(opened);
    EXPECT_TRUE(QTest::qWaitFor([box] { return box->hasFocus(); }));
}

TEST_F(PendingMonitorTest, F6OpensNothingWhileNoRequestsWait) {
    Check(0);
    Press(workspace, Qt::Key_F6);
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>());
}

struct PictureKey {
    const char* name;
    Qt::Key key;
};

class OnThePicture : public PendingMonitorTest, public testing::WithParamInterface<PictureKey> {};

INSTANTIATE_TEST_SUITE_P(Keys, OnThePicture,
                         testing::Values(PictureKey{"Enter", Qt::Key_Return},
                                         PictureKey{"EnterOfTheKeypad", Qt::Key_Enter},
                                         PictureKey{"Space", Qt::Key_Space}),
                         CaseName());

TEST_P(OnThePicture, OpensTheQueueAndTheFocusIsSeen) {
    Check(1);
    auto& image = Find<QLabel>(*monitor, "Image1");
    EXPECT_NE(image.focusPolicy() & Qt::TabFocus, 0);
    const QImage without = image.grab().toImage();
    image.setFocus();
    EXPECT_NE(image.grab().toImage(), without);
    gateway.Expect(NurseRequestCommand(), Rows({u"Hospnum"_s}, {{u"100085"_s}}));
    bool opened = false;
    WhileModal([&opened](Form& shown) { opened = &shown == &Screens::Get<frmNursingRequest>(); });
    Press(image, GetParam().key);
    EXPECT_TRUE(opened);
}

TEST_F(PendingMonitorTest, ASingleClickOnTheImageOpensNothing) {
    Check(1);
    Click(Find<QLabel>(*monitor, "Image1"));
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>());
}

// Its questions of themselves: the timers run, and a condition is waited for.

TEST_F(PendingMonitorTest, AsksOfItselfAndShowsTheStrip) {
    ExpectCount(0);
    ExpectCount(2);
    monitor->Start();
    EXPECT_TRUE(QTest::qWaitFor([this] { return gateway.IsDone(); }, 60000));
    Timer("tmrCheckPending").stop();
    EXPECT_EQ(IsPending(), true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Color() == kLight; }, 60000)) << "the flash runs";
    EXPECT_TRUE(QTest::qWaitFor([this] { return Label() == u"There"_s; }, 60000)) << "the text is typed";
}

TEST_F(PendingMonitorTest, GoesOnBehindAModalScreen) {
    gateway.Expect(NurseRequestCommand(), Rows({u"Hospnum"_s}, {{u"100085"_s}}));
    WhileModal([this](Form&) {
        ExpectCount(3);
        ExpectCount(0);
        monitor->Start();
        EXPECT_TRUE(QTest::qWaitFor([this] { return IsPending() == true; }, 60000));
        EXPECT_TRUE(QTest::qWaitFor([this] { return gateway.IsDone(); }, 60000));
        monitor->Stop();
    });
    Screens::Get<frmNursingRequest>().ShowModal();
    EXPECT_FALSE(Picture().isVisible());
}

// Failures.

TEST_F(PendingMonitorTest, FailingQuestionIsAFailureOfTheProgram) {
    Check(1);
    gateway.ExpectFailure(CheckPendingCommand(), RunTimeError(2812, u"Could not find stored procedure"_s));
    EXPECT_EQ(FailureOfTick(), 2812);
    EXPECT_EQ(IsPending(), true) << "what was shown stays";
}

TEST_F(PendingMonitorTest, EmptyAnswerIsAFailure) {
    EXPECT_EQ(FailureOfCheck(Rows({u"TotalPending"_s})), RunTime::kNoCurrentRecord);
    EXPECT_EQ(IsPending(), false);
}

TEST_F(PendingMonitorTest, NullCountIsAFailure) {
    EXPECT_EQ(FailureOfCheck(Rows({u"TotalPending"_s}, {{Value()}})), RunTime::kInvalidUseOfNull);
    EXPECT_EQ(IsPending(), false);
}

TEST_F(PendingMonitorTest, AnswerWithoutTheColumnIsAFailure) {
    EXPECT_EQ(FailureOfCheck(Rows({u"Total"_s}, {{1}})), RunTime::kItemNotFound);
}
