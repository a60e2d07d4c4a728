#include "support/CaseName.h"
#include "support/ScriptedMessages.h"
#include "support/WhileModal.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Focus.h"
#include "toolkit/Form.h"
#include "toolkit/FormTest.h"
#include "toolkit/ListView.h"
#include "toolkit/ShowModal.h"
#include "toolkit/Twips.h"

#include <QComboBox>
#include <QDialog>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

class FormLife : public FormTest {
  protected:
    /// Runs the action when the event loop comes round next, inside the modal screen that the test opens
    /// then.
    static void Inside(std::function<void()> action) { QTimer::singleShot(0, qApp, std::move(action)); }

    QMdiSubWindow* SubWindowOf(const QWidget& form) {
        return qobject_cast<QMdiSubWindow*>(form.parentWidget());
    }
};

TEST_F(FormLife, ShowPutsTheScreenInsideTheMainWindow) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    EXPECT_TRUE(screen.isVisible());
    ASSERT_NE(SubWindowOf(screen), nullptr);
    EXPECT_EQ(workspace.Area()->subWindowList().size(), 1);
    EXPECT_FALSE(screen.IsModal());
    EXPECT_TRUE(screen.box->hasFocus());
}

TEST_F(FormLife, ASecondShowBringsNoSecondCopyAndActivatesNothing) {
    Screens::Get<FormA>().Show();
    Screens::Get<FormA>().Show();
    RunEvents();
    EXPECT_EQ(workspace.Area()->subWindowList().size(), 1);
    EXPECT_EQ(TakeEvents(), (QStringList{u"A load"_s, u"A activate"_s}));
}

TEST_F(FormLife, ShowLoadsAScreenThatNobodyHasLoaded) {
    FormA screen;
    screen.Show();
    screen.Load();
    EXPECT_EQ(TakeEvents(), (QStringList{u"A load"_s, u"A activate"_s}));
    screen.hide();
}

TEST_F(FormLife, ShowBringsAnOpenScreenToTheFront) {
    FormA& first = Screens::Get<FormA>();
    first.Show();
    Screens::Get<FormB>().Show();
    EXPECT_EQ(workspace.Area()->activeSubWindow(), SubWindowOf(Screens::Get<FormB>()));
    first.Show();
    EXPECT_EQ(workspace.Area()->activeSubWindow(), SubWindowOf(first));
}

TEST_F(FormLife, AScreenThatStandsAloneShowsBesideTheMainWindow) {
    FormA& screen = Screens::Get<FormA>();
    screen.StandAlone();
    screen.Show();
    EXPECT_TRUE(screen.isWindow());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(workspace.Area()->subWindowList().isEmpty());
}

TEST_F(FormLife, WithoutAMainWindowTheScreenIsAWindowOfItsOwn) {
    Workspace::SetCurrent(nullptr);
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    EXPECT_TRUE(screen.isWindow());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(screen.Unload());
    EXPECT_FALSE(screen.isVisible());
}

TEST_F(FormLife, MoveToPlacesTheScreenInTwipsBeforeItShowsOrAfter) {
    FormA& screen = Screens::Get<FormA>();
    screen.MoveTo(3500, 1000);
    screen.Show();
    EXPECT_EQ(SubWindowOf(screen)->pos(), QPoint(TwipsToPixels(3500), TwipsToPixels(1000)));
    screen.MoveTo(0, 0);
    EXPECT_EQ(SubWindowOf(screen)->pos(), QPoint(0, 0));
}

TEST_F(FormLife, WithoutATakenPlaceAScreenOpensInTheMiddle) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    const QPoint away =
        SubWindowOf(screen)->geometry().center() - workspace.Area()->viewport()->rect().center();
    EXPECT_LE(away.manhattanLength(), 4);
}

/// Gives a screen a list that would like to be larger than the area.
void AddLargeList(QWidget& screen) {
    auto* list = new FlexGrid(&screen);
    list->SetStartSize({30000, 20000});
    screen.layout()->addWidget(list);
}

TEST_F(FormLife, AScreenBeginsNoLargerThanTheAreaWhereItsListCanSpareTheRoom) {
    FormA& screen = Screens::Get<FormA>();
    AddLargeList(screen);
    screen.Show();
    EXPECT_EQ(SubWindowOf(screen)->size(), workspace.Area()->viewport()->size());
    EXPECT_EQ(SubWindowOf(screen)->pos(), QPoint(0, 0));
}

TEST_F(FormLife, AScreenWithAPlaceTakesTheRoomFromThereOn) {
    FormA& screen = Screens::Get<FormA>();
    AddLargeList(screen);
    screen.MoveTo(900, 600);
    screen.Show();
    const QRect place = SubWindowOf(screen)->geometry();
    EXPECT_EQ(place.topLeft(), QPoint(TwipsToPixels(900), TwipsToPixels(600)));
    EXPECT_EQ(place.bottomRight(), workspace.Area()->viewport()->rect().bottomRight());
}

TEST_F(FormLife, AScreenThatCannotShrinkKeepsItsSizeAtItsPlace) {
    FormA& screen = Screens::Get<FormA>();
    const QSize told = workspace.Area()->viewport()->size() * 3 / 4;
    auto* list = new FlexGrid(&screen);
    list->setFixedSize(told);
    screen.layout()->addWidget(list);
    screen.MoveTo(6000, 6000);
    screen.Show();
    RunEvents();
    EXPECT_EQ(list->size(), told);
    EXPECT_TRUE(screen.rect().contains(list->geometry()));
}

TEST_F(FormLife, AScreenBeginsWithTheSizeOfItsListAndGrowsWithTheClerk) {
    FormA& screen = Screens::Get<FormA>();
    auto* list = new FlexGrid(&screen);
    list->SetStartSize({6000, 3000});
    screen.layout()->addWidget(list);
    screen.Show();
    RunEvents();
    EXPECT_EQ(list->size(), QSize(TwipsToPixels(6000), TwipsToPixels(3000)));
    SubWindowOf(screen)->resize(SubWindowOf(screen)->size() + QSize(120, 80));
    RunEvents();
    EXPECT_EQ(list->size(), QSize(TwipsToPixels(6000) + 120, TwipsToPixels(3000) + 80));
}

TEST_F(FormLife, AKeyGivesAScreenTheWholeAreaAndTakesItBack) {
    FormA& screen = Screens::Get<FormA>();
    screen.LetMaximize();
    const QString title = workspace.windowTitle();
    screen.Show();
    const QRect before = SubWindowOf(screen)->geometry();
    QTest::keyClick(screen.box, Qt::Key_F10, Qt::ControlModifier);
    EXPECT_TRUE(SubWindowOf(screen)->isMaximized());
    QTest::keyClick(screen.box, Qt::Key_F10, Qt::ControlModifier);
    EXPECT_EQ(SubWindowOf(screen)->geometry(), before);
    QTest::keyClick(screen.box, Qt::Key_F10, Qt::ControlModifier);
    EXPECT_TRUE(screen.Unload());
    DeleteUnloaded();
    EXPECT_EQ(workspace.windowTitle(), title);
    EXPECT_TRUE(workspace.Area()->subWindowList().isEmpty());
}

TEST_F(FormLife, AScreenThatIsAsLargeAsItNeedsStaysSo) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    QTest::keyClick(screen.box, Qt::Key_F10, Qt::ControlModifier);
    EXPECT_FALSE(SubWindowOf(screen)->isMaximized());
    EXPECT_FALSE(SubWindowOf(screen)->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
}

TEST_F(FormLife, UnloadAsksThenTellsThenHidesAndDeletesLater) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    TakeEvents();
    FormA::onUnload = [](FormA& form) { EXPECT_TRUE(form.isVisible()); };
    EXPECT_TRUE(screen.Unload());
    EXPECT_EQ(TakeEvents(), (QStringList{u"A query"_s, u"A unload"_s}));
    EXPECT_FALSE(screen.isVisible());
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
    EXPECT_TRUE(workspace.Area()->subWindowList().isEmpty());
    DeleteUnloaded();
    EXPECT_EQ(TakeEvents(), QStringList{u"A gone"_s});
}

TEST_F(FormLife, AScreenMayUnloadItselfInsideItsOwnHandler) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    bool wentOn = false;
    screen.onButton = [&screen, &wentOn] {
        screen.Unload();
        // The handler goes on with a screen that is still there.
        screen.box->setText(u"after"_s);
        wentOn = screen.box->text() == u"after"_s && !screen.isVisible();
    };
    TakeEvents();
    Click(*screen.button);
    EXPECT_TRUE(wentOn);
    DeleteUnloaded();
    EXPECT_EQ(TakeEvents(), (QStringList{u"A query"_s, u"A unload"_s, u"A gone"_s}));
}

TEST_F(FormLife, ASecondUnloadDoesNothing) {
    FormA& screen = Screens::Get<FormA>();
    FormA::onUnload = [](FormA& form) { EXPECT_TRUE(form.Unload()); };
    TakeEvents();
    EXPECT_TRUE(screen.Unload());
    EXPECT_TRUE(screen.Unload());
    EXPECT_EQ(TakeEvents(), (QStringList{u"A query"_s, u"A unload"_s}));
}

TEST_F(FormLife, TheCloseBoxUnloadsTheScreen) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    TakeEvents();
    SubWindowOf(screen)->close();
    EXPECT_EQ(TakeEvents(), (QStringList{u"A query"_s, u"A unload"_s}));
    EXPECT_TRUE(workspace.Area()->subWindowList().isEmpty());
}

TEST_F(FormLife, ARefusalHoldsAgainstTheCloseBox) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    screen.refuses = true;
    SubWindowOf(screen)->close();
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(Screens::IsLoaded<FormA>());
    EXPECT_EQ(workspace.Area()->subWindowList().size(), 1);
}

TEST_F(FormLife, EnterPressesTheButtonThatHasTheFocusAndNothingElse) {
    FormA& screen = Screens::Get<FormA>();
    int clicks = 0;
    screen.onButton = [&clicks] { ++clicks; };
    screen.Show();
    Press(*screen.box, Qt::Key_Return);
    EXPECT_EQ(clicks, 0);
    screen.button->setFocus();
    Press(*screen.button, Qt::Key_Return);
    Press(*screen.button, Qt::Key_Enter);
    EXPECT_EQ(clicks, 2);
    screen.check->setFocus();
    Press(*screen.check, Qt::Key_Return);
    EXPECT_FALSE(screen.check->isChecked());
    EXPECT_EQ(clicks, 2);
}

struct LeavingKey {
    const char* name;
    QKeyCombination keys;
};

class LeavingByKey : public FormLife, public testing::WithParamInterface<LeavingKey> {
  protected:
    ScriptedMessages messages;
};

INSTANTIATE_TEST_SUITE_P(Keys, LeavingByKey,
                         testing::Values(LeavingKey{"Escape", Qt::Key_Escape},
                                         LeavingKey{"CtrlW", Qt::CTRL | Qt::Key_W},
                                         LeavingKey{"CtrlF4", Qt::CTRL | Qt::Key_F4}),
                         CaseName());

TEST_P(LeavingByKey, UnloadsTheScreen) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    QTest::keyClick(screen.box, GetParam().keys.key(), GetParam().keys.keyboardModifiers());
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
}

TEST_P(LeavingByKey, HeldDownItStaysWhereItHasLed) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    QKeyEvent repeated(QEvent::KeyPress, GetParam().keys.key(), GetParam().keys.keyboardModifiers(), {},
                       true);
    QApplication::sendEvent(screen.box, &repeated);
    EXPECT_TRUE(Screens::IsLoaded<FormA>());
}

TEST_P(LeavingByKey, PressesTheButtonThatClosesTheScreen) {
    FormA& screen = Screens::Get<FormA>();
    int clicks = 0;
    screen.onButton = [&clicks] { ++clicks; };
    screen.SetCloseButton(screen.button);
    screen.Show();
    QTest::keyClick(screen.box, GetParam().keys.key(), GetParam().keys.keyboardModifiers());
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(Screens::IsLoaded<FormA>()) << "what it asks and whether it closes is the button's";
}

TEST_P(LeavingByKey, AsksWhereSomethingKeyedWouldBeLost) {
    FormA& screen = Screens::Get<FormA>();
    screen.holdsWork = true;
    screen.Show();
    for (const MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Yes}) {
        messages.Expect({.text = u"What was keyed here is not saved yet. Leave it unsaved?"_s,
                         .icon = MsgIcon::Question,
                         .buttons = MsgButtons::YesNo,
                         .defaultAnswer = MsgAnswer::No},
                        answer);
        QTest::keyClick(screen.box, GetParam().keys.key(), GetParam().keys.keyboardModifiers());
        EXPECT_EQ(Screens::IsLoaded<FormA>(), answer == MsgAnswer::No);
    }
}

struct ControlCase {
    const char* name;
    QWidget* (*make)(QWidget* parent);
};

template <class T> QWidget* Make(QWidget* parent) {
    return new T(parent);
}

class LeavingFrom : public FormLife, public testing::WithParamInterface<ControlCase> {};

INSTANTIATE_TEST_SUITE_P(
    Controls, LeavingFrom,
    testing::Values(ControlCase{"TextBox", Make<QLineEdit>}, ControlCase{"Combo", Make<QComboBox>},
                    ControlCase{"Button", Make<QPushButton>}, ControlCase{"Option", Make<QRadioButton>},
                    ControlCase{"CheckBox", Make<QCheckBox>}, ControlCase{"Grid", Make<FlexGrid>},
                    ControlCase{"List", Make<ListView>}, ControlCase{"Tabs", Make<QTabBar>}),
    CaseName());

TEST_P(LeavingFrom, ByEscape) {
    FormA& screen = Screens::Get<FormA>();
    QWidget* control = GetParam().make(&screen);
    screen.layout()->addWidget(control);
    screen.Show();
    control->setFocus();
    Press(*control, Qt::Key_Escape);
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
}

// Modal screens.

TEST_F(FormLife, AModalScreenWithoutATitleHasAnEmptyBar) {
    QString title;
    WhileModal([&title](Form& shown) { title = shown.windowHandle()->title(); });
    Screens::Get<FormA>().ShowModal();
    EXPECT_EQ(title, u" "_s) << "the window system writes the program's name where it is told nothing";
}

TEST_F(FormLife, AModalScreenAfterAnotherOpensInTheMiddleToo) {
    workspace.move(300, 200);
    RunEvents();
    const auto open = [](Form& screen) {
        QPoint middle;
        WhileModal([&middle](Form& shown) { middle = shown.frameGeometry().center(); });
        screen.ShowModal();
        return middle;
    };
    // Straight after one another: nothing has been activated in between.
    const QPoint first = open(Screens::Get<FormA>());
    const QPoint second = open(Screens::Get<FormB>());
    EXPECT_LT((first - workspace.frameGeometry().center()).manhattanLength(), 12);
    EXPECT_LT((second - workspace.frameGeometry().center()).manhattanLength(), 12);
}

TEST_F(FormLife, ShowModalReturnsWhenTheScreenIsUnloaded) {
    FormA& screen = Screens::Get<FormA>();
    Inside([&screen] {
        EXPECT_TRUE(screen.IsModal());
        EXPECT_TRUE(screen.isVisible());
        EXPECT_EQ(QApplication::activeModalWidget(), &screen);
        formEvents.push_back(u"inside"_s);
        screen.Unload();
    });
    screen.ShowModal();
    formEvents.push_back(u"returned"_s);
    EXPECT_EQ(TakeEvents(), (QStringList{u"A load"_s, u"A activate"_s, u"inside"_s, u"A query"_s,
                                         u"A unload"_s, u"returned"_s}));
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
    DeleteUnloaded();
    EXPECT_EQ(TakeEvents(), QStringList{u"A gone"_s});
}

TEST_F(FormLife, AModalScreenIsNeverInsideTheMainWindow) {
    FormA& screen = Screens::Get<FormA>();
    Inside([this, &screen] {
        EXPECT_TRUE(workspace.Area()->subWindowList().isEmpty());
        EXPECT_TRUE(screen.isWindow());
        EXPECT_EQ(screen.windowHandle()->transientParent(), workspace.windowHandle());
        screen.Unload();
    });
    screen.ShowModal();
}

TEST_F(FormLife, TheCloseBoxOfAModalScreenEndsIt) {
    FormA& screen = Screens::Get<FormA>();
    Inside([&screen] { screen.close(); });
    screen.ShowModal();
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
}

TEST_F(FormLife, AModalScreenThatRefusesStaysOpen) {
    FormA& screen = Screens::Get<FormA>();
    screen.refuses = true;
    Inside([&screen] {
        screen.close();
        EXPECT_TRUE(screen.isVisible());
        screen.refuses = false;
        screen.Unload();
    });
    screen.ShowModal();
    EXPECT_EQ(formEvents.count(u"A query"_s), 2);
}

TEST_F(FormLife, TimersGoOnWhileAModalScreenIsOpen) {
    FormA& screen = Screens::Get<FormA>();
    QTimer timer;
    int ticks = 0;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (++ticks == 3)
            screen.Unload();
    });
    timer.start(0);
    screen.ShowModal();
    EXPECT_EQ(ticks, 3);
}

TEST_F(FormLife, AModalScreenMayUnloadItselfAsSoonAsItIsActivated) {
    FormA::onActivate = [](FormA& form) { form.Unload(); };
    Screens::Get<FormA>().ShowModal();
    EXPECT_EQ(TakeEvents(), (QStringList{u"A load"_s, u"A activate"_s, u"A query"_s, u"A unload"_s}));
}

TEST_F(FormLife, ModalScreensNest) {
    FormA& outer = Screens::Get<FormA>();
    outer.onButton = [] {
        Inside([] { Screens::Get<FormB>().Unload(); });
        Screens::Get<FormB>().ShowModal();
        formEvents.push_back(u"B returned"_s);
        Screens::Get<FormA>().Unload();
    };
    Inside([&outer] { outer.button->click(); });
    TakeEvents();
    outer.ShowModal();
    formEvents.push_back(u"A returned"_s);
    EXPECT_EQ(TakeEvents(),
              (QStringList{u"A activate"_s, u"B load"_s, u"B activate"_s, u"B query"_s, u"B unload"_s,
                           u"A activate"_s, u"B returned"_s, u"A query"_s, u"A unload"_s, u"A returned"_s}));
}

TEST_F(FormLife, UnloadingTheOuterOfTwoModalScreensWaitsForTheInnerOne) {
    FormA& outer = Screens::Get<FormA>();
    Inside([&outer] {
        Inside([&outer] {
            outer.Unload();
            Inside([] {
                EXPECT_TRUE(Screens::Get<FormB>().isVisible());
                Screens::Get<FormB>().Unload();
            });
        });
        Screens::Get<FormB>().ShowModal();
    });
    outer.ShowModal();
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
    EXPECT_FALSE(Screens::IsLoaded<FormB>());
}

TEST_F(FormLife, UnloadAllEndsModalScreensToo) {
    Inside([] {
        Inside([] { EXPECT_TRUE(Screens::UnloadAll()); });
        Screens::Get<FormB>().ShowModal();
    });
    Screens::Get<FormA>().ShowModal();
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
    EXPECT_FALSE(Screens::IsLoaded<FormB>());
}

TEST_F(FormLife, AMessageBoxBehindAModalScreenOutlivesIt) {
    Inside([] {
        FormA& modal = Screens::Get<FormA>();
        EXPECT_TRUE(QTest::qWaitFor([&modal] { return modal.box->hasFocus(); }));
        modal.Unload();
    });
    Screens::Get<FormA>().ShowModal();
    const auto boxes = MessageSeam().Replace(MessageSeam().Own());
    Inside([] {
        auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(message, nullptr);
        EXPECT_TRUE(QTest::qWaitFor([] { return formEvents.last() == u"A gone"_s; }));
        ASSERT_EQ(QApplication::activeModalWidget(), message);
        message->accept();
    });
    EXPECT_EQ(MsgBox({.text = u"Restart Program."_s}), MsgAnswer::Ok);
}

TEST_F(FormLife, AScreenThatIsDestroyedWithTheMainWindowIsForgotten) {
    Screens::Get<FormA>().Show();
    delete SubWindowOf(Screens::Get<FormA>());
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
}

TEST_F(FormLife, TheFocusComesBackFromAModalScreenBeforeItsCallerGoesOn) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    int gotFocus = 0;
    OnGotFocus(screen.box, [&gotFocus] { ++gotFocus; });
    screen.button->setFocus();
    screen.box->setFocus();
    Inside([] {
        FormB& modal = Screens::Get<FormB>();
        EXPECT_TRUE(QTest::qWaitFor([&modal] { return modal.box->hasFocus(); }));
        modal.Unload();
    });
    ASSERT_EQ(gotFocus, 1);
    Screens::Get<FormB>().ShowModal();
    EXPECT_EQ(gotFocus, 2);
    EXPECT_TRUE(QTest::qWaitFor([&screen] { return screen.box->hasFocus(); }));
    EXPECT_EQ(gotFocus, 2);
}

// What activates a screen and what does not.

TEST_F(FormLife, EachShowOfAnotherScreenActivatesIt) {
    Screens::Get<FormA>().Show();
    Screens::Get<FormB>().Show();
    Screens::Get<FormA>().Show();
    RunEvents();
    EXPECT_EQ(TakeEvents(),
              (QStringList{u"A load"_s, u"A activate"_s, u"B load"_s, u"B activate"_s, u"A activate"_s}));
    EXPECT_EQ(Form::Active(), &Screens::Get<FormA>());
}

TEST_F(FormLife, AClickOnAnotherScreenActivatesIt) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    Screens::Get<FormB>().Show();
    TakeEvents();
    workspace.Area()->setActiveSubWindow(SubWindowOf(screen));
    EXPECT_EQ(TakeEvents(), QStringList{u"A activate"_s});
}

TEST_F(FormLife, AScreenIsActivatedBeforeShowReturns) {
    Screens::Get<FormA>().Show();
    EXPECT_EQ(TakeEvents(), (QStringList{u"A load"_s, u"A activate"_s}));
}

TEST_F(FormLife, ClosingTheFrontScreenActivatesTheOneBehindIt) {
    Screens::Get<FormA>().Show();
    Screens::Get<FormB>().Show();
    TakeEvents();
    Screens::Unload<FormB>();
    RunEvents();
    EXPECT_EQ(TakeEvents(), (QStringList{u"B query"_s, u"B unload"_s, u"A activate"_s}));
    EXPECT_EQ(Form::Active(), &Screens::Get<FormA>());
}

/// Several screens inside the main window, in other orders than that in which they were made.
class SeveralScreens : public FormLife {
  protected:
    SeveralScreens() {
        Screens::Get<FormA>().Show();
        Screens::Get<FormB>().Show();
    }

    /// What was activated since the last look, once the program has come to rest.
    static QStringList TakeActivated() {
        RunEvents();
        return TakeEvents().filter(u" activate"_s);
    }
};

TEST_F(SeveralScreens, AScreenThatClosesGivesWayToTheOneFromWhichTheClerkCame) {
    Screens::Get<FormC>().Show();
    TakeActivated();
    Screens::Unload<FormC>();
    EXPECT_EQ(TakeActivated(), QStringList{u"B activate"_s}) << "not to the one that was made first";
    EXPECT_EQ(Form::Active(), &Screens::Get<FormB>());
    EXPECT_EQ(workspace.Area()->activeSubWindow(), SubWindowOf(Screens::Get<FormB>()));
}

TEST_F(SeveralScreens, EachOfFourGivesWayToTheOneBeforeIt) {
    Screens::Get<FormC>().Show();
    Screens::Get<FormA>().Show();
    Screens::Get<FormD>().Show();
    TakeActivated();
    Screens::Unload<FormD>();
    EXPECT_EQ(TakeActivated(), QStringList{u"A activate"_s});
    Screens::Unload<FormA>();
    EXPECT_EQ(TakeActivated(), QStringList{u"C activate"_s});
    Screens::Unload<FormC>();
    EXPECT_EQ(TakeActivated(), QStringList{u"B activate"_s});
    Screens::Unload<FormB>();
    EXPECT_EQ(TakeActivated(), QStringList());
}

TEST_F(SeveralScreens, AScreenThatClosesBehindTheOneInUseActivatesNothing) {
    Screens::Get<FormC>().Show();
    TakeActivated();
    Screens::Unload<FormB>();
    EXPECT_EQ(TakeActivated(), QStringList());
    EXPECT_EQ(Form::Active(), &Screens::Get<FormC>());
    Screens::Unload<FormC>();
    EXPECT_EQ(TakeActivated(), QStringList{u"A activate"_s});
}

TEST_F(SeveralScreens, TheCloseBoxGivesWayToTheSameScreen) {
    Screens::Get<FormC>().Show();
    TakeActivated();
    SubWindowOf(Screens::Get<FormC>())->close();
    EXPECT_EQ(TakeActivated(), QStringList{u"B activate"_s});
}

TEST_F(SeveralScreens, TheFocusIsWhereTheClerkLeftItInTheScreenThatComesBack) {
    Screens::Get<FormB>().button->setFocus();
    Screens::Get<FormC>().Show();
    Screens::Unload<FormC>();
    RunEvents();
    EXPECT_TRUE(Screens::Get<FormB>().button->hasFocus());
}

TEST_F(SeveralScreens, AScreenUnderAModalOneClosesWithoutAnyoneComingToTheFront) {
    TakeActivated();
    Inside([] {
        EXPECT_EQ(TakeActivated(), QStringList{u"C activate"_s}) << "the modal one";
        Screens::Unload<FormB>();
        EXPECT_EQ(TakeActivated(), QStringList());
        Screens::Unload<FormC>();
    });
    Screens::Get<FormC>().ShowModal();
    EXPECT_EQ(TakeActivated(), QStringList{u"A activate"_s}) << "once the modal one has gone";
}

TEST_F(SeveralScreens, AModalScreenThatCameInAnothersPlaceBringsNobodyBackUnderTheModalOneBelow) {
    Inside([] {
        Inside([] {
            // As the list of cash patients gives way to the registration, over the assessment.
            Screens::Unload<FormD>();
            Inside([] {
                TakeActivated();
                Screens::Unload<FormD>();
            });
            Screens::Get<FormD>().ShowModal();
            EXPECT_EQ(TakeActivated(), QStringList());
        });
        Screens::Get<FormD>().ShowModal();
        Screens::Unload<FormC>();
    });
    Screens::Get<FormC>().ShowModal();
}

TEST_F(FormLife, TheReturnFromAModalScreenActivatesOnceBeforeItsCallerGoesOn) {
    Screens::Get<FormA>().Show();
    Inside([] { Screens::Get<FormB>().Unload(); });
    TakeEvents();
    Screens::Get<FormB>().ShowModal();
    formEvents.push_back(u"returned"_s);
    Activate(workspace);
    RunEvents();
    EXPECT_EQ(TakeEvents(), (QStringList{u"B load"_s, u"B activate"_s, u"B query"_s, u"B unload"_s,
                                         u"A activate"_s, u"returned"_s}));
}

TEST_F(FormLife, AScreenShownByAModalOneThatHasJustUnloadedItselfStaysInFront) {
    Screens::Get<FormA>().Show();
    Screens::Get<FormA>().box->setFocus();
    FormB& modal = Screens::Get<FormB>();
    modal.onButton = [&modal] {
        modal.Unload();
        Screens::Get<FormC>().Show();
    };
    Inside([&modal] { modal.button->click(); });
    modal.ShowModal();
    RunEvents();
    EXPECT_EQ(Form::Active(), &Screens::Get<FormC>());
    EXPECT_TRUE(Screens::Get<FormC>().box->hasFocus());
    EXPECT_EQ(formEvents.count(u"A activate"_s), 1) << "the screen before it is not in use any more";
}

TEST_F(FormLife, AScreenShownBeforeAModalOneDoesNotKeepTheReturnFromIt) {
    Screens::Get<FormA>().Show();
    FormB& modal = Screens::Get<FormB>();
    Inside([&modal] {
        Screens::Get<FormC>().Show();
        modal.Unload();
    });
    modal.ShowModal();
    EXPECT_EQ(Form::Active(), &Screens::Get<FormA>());
}

TEST_F(FormLife, AMessageBoxActivatesNothing) {
    Screens::Get<FormA>().Show();
    TakeEvents();
    const auto boxes = MessageSeam().Replace(MessageSeam().Own());
    Inside([] {
        auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(message, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(message));
        message->accept();
    });
    MsgBox({.text = u"Item does not exists."_s});
    Activate(workspace);
    RunEvents();
    EXPECT_EQ(TakeEvents(), QStringList());
    EXPECT_EQ(Form::Active(), &Screens::Get<FormA>());
}

TEST_F(FormLife, ADialogueOfAComponentActivatesNothing) {
    Screens::Get<FormA>().Show();
    TakeEvents();
    QDialog dialog;
    Inside([&dialog] {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        dialog.accept();
    });
    ShowModal(dialog);
    Activate(workspace);
    RunEvents();
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(FormLife, TheReturnFromAnotherProgramActivatesNothing) {
    Screens::Get<FormA>().Show();
    TakeEvents();
    QWindow foreign;
    foreign.show();
    foreign.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&foreign));
    Activate(workspace);
    RunEvents();
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(FormLife, TheReturnFromAScreenThatStandsAloneActivates) {
    Screens::Get<FormA>().Show();
    FormB& beside = Screens::Get<FormB>();
    beside.StandAlone();
    beside.Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&beside));
    TakeEvents();
    Activate(workspace);
    RunEvents();
    EXPECT_EQ(TakeEvents(), QStringList{u"A activate"_s});
}

TEST_F(FormLife, NoScreenIsActiveWhenTheActiveOneIsUnloaded) {
    Screens::Get<FormA>().Show();
    EXPECT_EQ(Form::Active(), &Screens::Get<FormA>());
    Screens::Unload<FormA>();
    EXPECT_EQ(Form::Active(), nullptr);
}

TEST_F(FormLife, AScreenThatIsOnlyTouchedIsNotActivated) {
    Screens::Get<FormA>().Show();
    TakeEvents();
    Screens::Get<FormB>();
    EXPECT_EQ(Form::Active(), &Screens::Get<FormA>());
    Screens::Unload<FormB>();
    RunEvents();
    EXPECT_EQ(TakeEvents(), (QStringList{u"B load"_s, u"B query"_s, u"B unload"_s}));
}

} // namespace
