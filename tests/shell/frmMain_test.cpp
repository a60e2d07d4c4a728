#include "charges/frmAssessment.h"
#include "charges/frmPostCharges.h"
#include "components/shared.h"
#include "maintenance/commands.h"
#include "maintenance/frmAssessStatus.h"
#include "maintenance/frmListCharges.h"
#include "maintenance/frmReprint.h"
#include "nursing/commands.h"
#include "patients/frmSearchPatient.h"
#include "patients/frmWalkInUpdate.h"
#include "patients/PatientContext.h"
#include "reports/frmLedger.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"
#include "shell/frmSetup.h"
#include "shell/StatusPanel.h"
#include "support/CaseName.h"
#include "support/FakeWorkspace.h"
#include "support/ScreenTest.h"
#include "support/WhileModal.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QFile>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Opens the charge grid's editor on a screen without a patient, and gives it the focus.
QLineEdit& OpenEditor(const frmPostCharges& screen) {
    auto& grid = Find<FlexGrid>(screen, "grdTable");
    for (QWidget* frame = grid.parentWidget(); frame != &screen; frame = frame->parentWidget())
        frame->setEnabled(true);
    grid.setFocus();
    return Find<QLineEdit>(screen, "txtEntry");
}

/// The main window as it stands after the sign-on.
class frmMainTest : public ScreenTest {
  protected:
    frmMainTest() {
        gIniPath = programDirectory.path() + u"\\tarvenaux.ini"_s;
        QFile file(programDirectory.filePath(u"tarvenaux.ini"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        Activate(*window);
    }

    ~frmMainTest() override { Screens::Clear(); }

    QAction& Item(const char* name) const {
        auto* action = window->findChild<QAction*>(QString::fromLatin1(name));
        if (!action)
            throw std::runtime_error(name);
        return *action;
    }

    qsizetype OpenScreens() const { return window->findChild<QMdiArea*>()->subWindowList().size(); }

    std::unique_ptr<frmMain> window = std::make_unique<frmMain>();
};

TEST_F(frmMainTest, IsTheWorkspaceOfTheScreensWhileItStands) {
    EXPECT_NE(Workspace::Current(), nullptr);
    Workspace::Current()->EnableMenuItem(u"mnuMLedger"_s, true);
    EXPECT_TRUE(Item("mnuMLedger").isEnabled());
    Workspace::Current()->EnableMenuItem(u"mnuMLedger"_s, false);
    EXPECT_FALSE(Item("mnuMLedger").isEnabled());
    Workspace::Current()->EnableMenuItem(u"no such item"_s, true);
    window.reset();
    EXPECT_EQ(Workspace::Current(), nullptr);
}

TEST_F(frmMainTest, LeavesAnotherWorkspaceAloneWhenItGoes) {
    FakeWorkspace another;
    window.reset();
    EXPECT_EQ(Workspace::Current(), &another);
}

TEST_F(frmMainTest, TheToolbarStandsAtTheTop) {
    auto* toolbar = window->findChild<QToolBar*>(u"Toolbar1"_s);
    ASSERT_NE(toolbar, nullptr);
    EXPECT_EQ(window->toolBarArea(toolbar), Qt::TopToolBarArea);
}

TEST_F(frmMainTest, ARightClickOffersNoMenuThatCouldHideTheToolbar) {
    for (QWidget* place :
         {static_cast<QWidget*>(window->menuBar()), static_cast<QWidget*>(window->statusBar()),
          static_cast<QWidget*>(window->findChild<QToolBar*>(u"Toolbar1"_s))}) {
        const QPoint middle = place->rect().center();
        QContextMenuEvent rightClick(QContextMenuEvent::Mouse, middle, place->mapToGlobal(middle));
        QApplication::sendEvent(place, &rightClick);
        QWidget* menu = QApplication::activePopupWidget();
        EXPECT_EQ(menu, nullptr) << place->metaObject()->className();
        if (menu)
            menu->close();
    }
}

struct ButtonRow {
    QString key;
    QString tip;
    /// Captions and keys of the dropdown.
    std::vector<std::pair<QString, QString>> items;
};

TEST_F(frmMainTest, TheToolbarHasTheseButtons) {
    const std::vector<ButtonRow> wanted = {
        {u"Assess"_s, u"Assessment Entry"_s, {}},
        {u"Trans"_s,
         u"Transaction Entry"_s,
         {{u"Inpatient Request"_s, u"Inpatient"_s}, {u"Out-Patient Request"_s, u"Outpatient"_s}}},
        {u"Reports"_s,
         QString(),
         {{u"Audit Report"_s, u"Audit"_s},
          {u"OPD Income Report"_s, u"Opd"_s},
          {u"IPD Income Report"_s, u"IPD"_s}}}};
    const QList<QToolButton*> buttons = window->findChild<QToolBar*>(u"Toolbar1"_s)
                                            ->findChildren<QToolButton*>(QRegularExpression(u"^[A-Z]"_s));
    ASSERT_EQ(static_cast<size_t>(buttons.size()), wanted.size());
    for (size_t i = 0; i < wanted.size(); ++i) {
        const QToolButton& button = *buttons[static_cast<qsizetype>(i)];
        EXPECT_EQ(button.objectName(), wanted[i].key);
        EXPECT_EQ(button.toolTip(), wanted[i].tip);
        EXPECT_FALSE(button.icon().isNull());
        ASSERT_EQ(button.menu() != nullptr, !wanted[i].items.empty());
        if (!button.menu())
            continue;
        EXPECT_EQ(button.popupMode(), QToolButton::MenuButtonPopup);
        std::vector<std::pair<QString, QString>> items;
        for (const QAction* action : button.menu()->actions())
            items.emplace_back(action->text(), action->objectName());
        EXPECT_EQ(items, wanted[i].items);
    }
}

TEST_F(frmMainTest, TheStatusBarHasThreePanels) {
    const QList<StatusPanel*> panels =
        window->findChild<QStatusBar*>(u"sbStatusBar"_s)->findChildren<StatusPanel*>();
    ASSERT_EQ(panels.size(), 3);
    EXPECT_EQ(panels[0]->objectName(), u"Status"_s);
    EXPECT_EQ(panels[0]->text(), u"Status"_s);
    EXPECT_EQ(panels[1]->text(), u"11/21/2026"_s);
    EXPECT_EQ(panels[2]->text(), u"10:30 AM"_s);
}

// The mode variables and the screens behind the menu.

struct EntryCase {
    const char* name;
    std::function<void(frmMain&)> action;
    QString patientType;
};

class TransactionEntry : public frmMainTest, public testing::WithParamInterface<EntryCase> {};

TEST_P(TransactionEntry, SetsBothModesBeforeItOpensThePostingScreenOnce) {
    gPatientType = u"W"_s;
    gChargeMode = u"List"_s;
    GetParam().action(*window);
    EXPECT_EQ(gPatientType, GetParam().patientType);
    EXPECT_EQ(gChargeMode, u"Post"_s);
    ASSERT_TRUE(Screens::IsLoaded<frmPostCharges>());
    EXPECT_TRUE(Screens::Get<frmPostCharges>().isVisible());
    EXPECT_FALSE(Screens::Get<frmPostCharges>().IsModal());
    const frmPostCharges* first = &Screens::Get<frmPostCharges>();
    GetParam().action(*window);
    EXPECT_EQ(&Screens::Get<frmPostCharges>(), first);
    EXPECT_EQ(OpenScreens(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, TransactionEntry,
    testing::Values(
        EntryCase{"InPatientMenu",
                  [](frmMain& main) { main.findChild<QAction*>(u"mnuInTransactionEntry"_s)->trigger(); },
                  u"I"_s},
        EntryCase{"OutPatientMenu",
                  [](frmMain& main) { main.findChild<QAction*>(u"mnuOutTransaction"_s)->trigger(); }, u"O"_s},
        EntryCase{"InPatientDropdown",
                  [](frmMain& main) { main.findChild<QAction*>(u"Inpatient"_s)->trigger(); }, u"I"_s},
        EntryCase{"OutPatientDropdown",
                  [](frmMain& main) { main.findChild<QAction*>(u"Outpatient"_s)->trigger(); }, u"O"_s},
        EntryCase{"InPatientKey", [](frmMain& main) { main.Toolbar1_ButtonMenuClick(u"Inpatient"_s); },
                  u"I"_s},
        EntryCase{"OutPatientKey", [](frmMain& main) { main.Toolbar1_ButtonMenuClick(u"Outpatient"_s); },
                  u"O"_s}),
    CaseName());

struct AssessmentCase {
    const char* name;
    std::function<void(frmMain&)> action;
};

class AssessmentEntry : public frmMainTest, public testing::WithParamInterface<AssessmentCase> {};

TEST_P(AssessmentEntry, OpensTheAssessmentModallyAndLeavesTheModesAsTheyStand) {
    gPatientType = u"O"_s;
    gChargeMode = u"List"_s;
    bool opened = false;
    WhileModal([&opened](Form& screen) {
        opened = &screen == &Screens::Get<frmAssessment>();
        EXPECT_TRUE(screen.IsModal());
        EXPECT_TRUE(screen.isVisible());
    });
    GetParam().action(*window);
    EXPECT_TRUE(opened);
    EXPECT_FALSE(Screens::IsLoaded<frmAssessment>());
    EXPECT_EQ(OpenScreens(), 0);
    EXPECT_EQ(gPatientType, u"O"_s);
    EXPECT_EQ(gChargeMode, u"List"_s);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, AssessmentEntry,
    testing::Values(
        AssessmentCase{"Menu",
                       [](frmMain& main) { main.findChild<QAction*>(u"mnuAssessment"_s)->trigger(); }},
        AssessmentCase{"CtrlA",
                       [](frmMain& main) { QTest::keyClick(&main, Qt::Key_A, Qt::ControlModifier); }},
        AssessmentCase{"ToolbarButton", [](frmMain& main) { Click(Find<QToolButton>(main, "Assess")); }},
        AssessmentCase{"ToolbarKey", [](frmMain& main) { main.Toolbar1_ButtonClick(u"Assess"_s); }}),
    CaseName());

TEST_F(frmMainTest, AssessmentStatusOpensModallyAndLeavesTheModesAsTheyStand) {
    gPatientType = u"O"_s;
    gChargeMode = u"Post"_s;
    gateway.Expect(AssessmentStatusCommand(u""_s), Rows({u"AssessNum"_s}, {{u"731"_s}}));
    messages.Expect({.text = u"Are you sure to close this program?"_s,
                     .icon = MsgIcon::Question,
                     .title = u"OPD Registration System"_s,
                     .buttons = MsgButtons::OkCancel});
    bool opened = false;
    WhileModal([&opened](Form& screen) {
        opened = &screen == &Screens::Get<frmAssessStatus>();
        EXPECT_TRUE(screen.IsModal());
    });
    Item("mnuReportStatus").trigger();
    EXPECT_TRUE(opened);
    EXPECT_FALSE(Screens::IsLoaded<frmAssessStatus>());
    EXPECT_EQ(OpenScreens(), 0);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(gPatientType, u"O"_s);
    EXPECT_EQ(gChargeMode, u"Post"_s);
}

TEST_F(frmMainTest, AnotherEntryKeepsTheOneOpenScreen) {
    Item("mnuInTransactionEntry").trigger();
    Item("mnuOutTransaction").trigger();
    EXPECT_EQ(OpenScreens(), 1);
    EXPECT_EQ(gPatientType, u"O"_s);
}

TEST_F(frmMainTest, TheLedgerEntryResetsTheModeAndTheOneOfTheBarDoesNot) {
    gPatientType = u"I"_s;
    gChargeMode = u"Post"_s;
    Workspace::Current()->EnableMenuItem(u"mnuMLedger"_s, true);
    Item("mnuMLedger").trigger();
    EXPECT_EQ(gChargeMode, u"Post"_s);
    ASSERT_TRUE(Screens::IsLoaded<frmLedger>());
    Item("mnuLedger").trigger();
    EXPECT_EQ(gChargeMode, u"Ledger"_s);
    EXPECT_EQ(gPatientType, u"I"_s);
    EXPECT_FALSE(Screens::Get<frmLedger>().IsModal());
    EXPECT_EQ(OpenScreens(), 1);
}

TEST_F(frmMainTest, TheListOfChargesSetsItsModeAndOpensTheListNotModalAndOnce) {
    gPatientType = u"O"_s;
    for (int i = 0; i < 2; ++i)
        Item("mnuListCharges").trigger();
    EXPECT_EQ(gChargeMode, u"List"_s);
    ASSERT_TRUE(Screens::IsLoaded<frmListCharges>());
    EXPECT_FALSE(Screens::Get<frmListCharges>().IsModal());
    EXPECT_EQ(OpenScreens(), 1);
    // The list chooses the patient type itself as it loads.
    EXPECT_EQ(gPatientType, u"I"_s);
}

TEST_F(frmMainTest, TheDuplicateOfASlipIsOutOfReachAndWouldOpenNotModal) {
    Item("mnuDuplicate").trigger();
    EXPECT_FALSE(Screens::IsLoaded<frmReprint>());
    Workspace::Current()->EnableMenuItem(u"mnuDuplicate"_s, true);
    Item("mnuDuplicate").trigger();
    ASSERT_TRUE(Screens::IsLoaded<frmReprint>());
    EXPECT_FALSE(Screens::Get<frmReprint>().IsModal());
    EXPECT_EQ(OpenScreens(), 1);
}

TEST_F(frmMainTest, SetupAndAboutOpenOnceAndNotModal) {
    for (int i = 0; i < 2; ++i) {
        Item("mSetup").trigger();
        Item("mnuAbout").trigger();
    }
    ASSERT_TRUE(Screens::IsLoaded<frmSetup>() && Screens::IsLoaded<frmAbout>());
    EXPECT_FALSE(Screens::Get<frmSetup>().IsModal());
    EXPECT_FALSE(Screens::Get<frmAbout>().IsModal());
    EXPECT_TRUE(Screens::Get<frmAbout>().isVisible());
    EXPECT_EQ(OpenScreens(), 1);
}

TEST_F(frmMainTest, AboutOpenedAgainWhileItFadesOutStays) {
    Item("mnuAbout").trigger();
    auto& about = Screens::Get<frmAbout>();
    auto& timer = *about.findChild<QTimer*>();
    about.close();
    Item("mnuAbout").trigger();
    for (int i = 0; i < 100; ++i)
        QMetaObject::invokeMethod(&timer, "timeout");
    EXPECT_TRUE(Screens::IsLoaded<frmAbout>());
    EXPECT_NEAR(about.windowOpacity(), 1, 0.005);
}

TEST_F(frmMainTest, TheFinderOpensWithoutBeingModal) {
    window->OpenSearchPatient();
    ASSERT_TRUE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_TRUE(Screens::Get<frmSearchPatient>().isVisible());
    EXPECT_FALSE(Screens::Get<frmSearchPatient>().IsModal());
}

TEST_F(frmMainTest, TheWalkInUpdateOpensModally) {
    WhileModal([](Form& screen) {
        EXPECT_EQ(screen.objectName(), u"frmWalkInUpdate"_s);
        EXPECT_TRUE(screen.IsModal());
    });
    window->OpenWalkInUpdate();
    EXPECT_FALSE(Screens::IsLoaded<frmWalkInUpdate>());
}

TEST_F(frmMainTest, EntriesWithoutAHandlerDoNothing) {
    gChargeMode = u"List"_s;
    gPatientType = u"O"_s;
    for (const char* name : {"mnuCash", "mnuResultEntry", "mnuRandomResult", "mnuResultInquiry"}) {
        QAction& item = Item(name);
        int chosen = 0;
        QObject::connect(&item, &QAction::triggered, window.get(), [&chosen] { ++chosen; });
        // Where it is hidden or disabled it cannot be chosen at all.
        item.setVisible(true);
        item.setEnabled(true);
        item.trigger();
        EXPECT_EQ(chosen, 1) << name;
    }
    EXPECT_EQ(OpenScreens(), 0);
    EXPECT_EQ(gChargeMode, u"List"_s);
    EXPECT_EQ(gPatientType, u"O"_s);
}

// The strip of the wards' requests.

TEST_F(frmMainTest, CarriesThePendingStripWithItsControlsHidden) {
    for (const char* name : {"pctPending", "Picture1", "cmdPrepaid"})
        EXPECT_FALSE(Find<QWidget>(*window, name).isVisible()) << name;
    for (const char* name : {"Image1", "Label1"})
        EXPECT_NE(window->findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;
    for (const char* name : {"tmrCheckPending", "tmrPending", "Timer2", "Timer1", "tmrPrepaid"})
        EXPECT_NE(window->findChild<QTimer*>(QString::fromLatin1(name)), nullptr) << name;
}

TEST_F(frmMainTest, ThePendingStripShowsInsideTheWindowAndMovesNothing) {
    auto& area = *window->findChild<QMdiArea*>();
    const QRect before = area.geometry();
    gateway.Expect(CheckPendingCommand(), Rows({u"TotalPending"_s}, {{2}}));
    QMetaObject::invokeMethod(window->findChild<QTimer*>(u"tmrCheckPending"_s), "timeout");
    RunEvents();
    EXPECT_TRUE(Find<QWidget>(*window, "pctPending").isVisible());
    EXPECT_TRUE(Find<QWidget>(*window, "Image1").isVisible());
    EXPECT_TRUE(Find<QWidget>(*window, "Label1").isVisible());
    EXPECT_EQ(area.geometry(), before);
    auto& picture = Find<QWidget>(*window, "pctPending");
    EXPECT_EQ(picture.grab().toImage().pixelColor(3, picture.height() / 2), QColor(0xFF, 0x80, 0xFF));
    for (const char* name : {"tmrPending", "Timer2"})
        window->findChild<QTimer*>(QString::fromLatin1(name))->stop();
}

class InertKey : public frmMainTest, public testing::WithParamInterface<const char*> {};

TEST_P(InertKey, DoesNothing) {
    gChargeMode = u"List"_s;
    window->Toolbar1_ButtonClick(QString::fromLatin1(GetParam()));
    window->Toolbar1_ButtonMenuClick(QString::fromLatin1(GetParam()));
    EXPECT_EQ(OpenScreens(), 0);
    EXPECT_EQ(gChargeMode, u"List"_s);
    EXPECT_TRUE(window->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Keys, InertKey,
                         testing::Values("Trans", "Reports", "Reprots", "exit", "Exit", "ledger", "inpatient",
                                         ""));

TEST_F(frmMainTest, TheButtonsWithADropdownDoNothingByThemselves) {
    for (const char* key : {"Trans", "Reports"})
        Click(Find<QToolButton>(*window, key));
    EXPECT_EQ(OpenScreens(), 0);
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(frmMainTest, EveryButtonAndDropdownItemIsHeardByTheWindow) {
    // What most of them open is not there yet; a connection that can be cut has been made.
    for (const char* key : {"Assess", "Trans", "Reports"}) {
        const auto& button = Find<QToolButton>(*window, key);
        EXPECT_TRUE(QObject::disconnect(&button, &QToolButton::clicked, window.get(), nullptr)) << key;
    }
    for (const char* key : {"Inpatient", "Outpatient", "Audit", "Opd", "IPD"})
        EXPECT_TRUE(QObject::disconnect(&Item(key), &QAction::triggered, window.get(), nullptr)) << key;
}

// The end of the program.

const Message kClosingQuestion = {.text = u"Are you sure to close this program?"_s,
                                  .icon = MsgIcon::Question,
                                  .title = u"Hemodialysis System"_s,
                                  .buttons = MsgButtons::OkCancel};

TEST_F(frmMainTest, TheKeyEXITAsksAndClosesOnOk) {
    messages.Expect(kClosingQuestion, MsgAnswer::Ok);
    window->Toolbar1_ButtonClick(u"EXIT"_s);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(frmMainTest, TheKeyEXITAsksAndStaysOnCancel) {
    messages.Expect(kClosingQuestion, MsgAnswer::Cancel);
    window->Toolbar1_ButtonClick(u"EXIT"_s);
    EXPECT_TRUE(window->isVisible());
}

struct EndCase {
    const char* name;
    std::function<void(frmMain&)> action;
};

class EndOfTheProgram : public frmMainTest, public testing::WithParamInterface<EndCase> {};

TEST_P(EndOfTheProgram, AsksNothingAndClosesTheScreensWithTheWindow) {
    Item("mnuInTransactionEntry").trigger();
    QTimer::singleShot(0, window.get(), [this] { GetParam().action(*window); });
    QApplication::exec();
    EXPECT_TRUE(messages.Shown().empty());
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(Screens::IsLoaded<frmPostCharges>());
}

INSTANTIATE_TEST_SUITE_P(
    Ways, EndOfTheProgram,
    testing::Values(EndCase{"Exit", [](frmMain& main) { main.findChild<QAction*>(u"mnuExit"_s)->trigger(); }},
                    EndCase{"CloseBox", [](frmMain& main) { main.close(); }},
                    EndCase{"CtrlX",
                            [](frmMain& main) { QTest::keyClick(&main, Qt::Key_X, Qt::ControlModifier); }},
                    EndCase{"CtrlXInATextBox",
                            [](frmMain&) {
                                auto& screen = Screens::Get<frmPostCharges>();
                                auto& box = Find<QLineEdit>(screen, "txtLastName");
                                box.setFocus();
                                box.setText(u"SANTOS"_s);
                                box.selectAll();
                                Press(box, Qt::Key_X, Qt::ControlModifier);
                            }},
                    EndCase{"CtrlXInTheChargeGrid",
                            [](frmMain&) {
                                auto& editor = OpenEditor(Screens::Get<frmPostCharges>());
                                editor.setText(u"HC"_s);
                                editor.selectAll();
                                Press(editor, Qt::Key_X, Qt::ControlModifier);
                            }}),
    CaseName());

TEST_F(frmMainTest, TheEndClosesSetupAndAboutAtOnce) {
    Item("mSetup").trigger();
    Item("mnuAbout").trigger();
    const QPointer<frmAbout> about = &Screens::Get<frmAbout>();
    Item("mnuExit").trigger();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(about && about->isVisible());
    EXPECT_FALSE(Screens::IsLoaded<frmSetup>());
    EXPECT_FALSE(Screens::IsLoaded<frmAbout>());
}

/// A screen that stays open.
class Stubborn : public Form {
  protected:
    bool Form_QueryUnload() override { return false; }
};

TEST_F(frmMainTest, AScreenThatRefusesKeepsTheProgramOpen) {
    Screens::Get<Stubborn>().Show();
    Item("mnuExit").trigger();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(Screens::IsLoaded<Stubborn>());
}

// Shortcuts come before a text box's own use of the same keys.

using Shortcuts = frmMainTest;

TEST_F(Shortcuts, CtrlAOpensTheAssessmentWhileATextBoxHasTheFocus) {
    Item("mSetup").trigger();
    auto& box = Find<QLineEdit>(Screens::Get<frmSetup>(), "txtDeptCode");
    box.setText(u"HC"_s);
    box.deselect();
    box.setFocus();
    bool opened = false;
    WhileModal([&opened](Form& screen) { opened = screen.objectName() == u"frmAssessment"_s; });
    Press(box, Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(opened);
    EXPECT_EQ(box.selectedText(), QString()) << "the text box did not take the key for itself";
}

TEST_F(Shortcuts, CtrlAOpensTheAssessmentWhileTheChargeGridIsKeyedIn) {
    Item("mnuInTransactionEntry").trigger();
    auto& editor = OpenEditor(Screens::Get<frmPostCharges>());
    editor.setText(u"HC"_s);
    editor.deselect();
    bool opened = false;
    WhileModal([&opened](Form& screen) { opened = screen.objectName() == u"frmAssessment"_s; });
    Press(editor, Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(opened);
    EXPECT_EQ(editor.selectedText(), QString());
}

TEST_F(Shortcuts, InsideAModalScreenTheKeysAreTheTextBoxes) {
    bool keyed = false;
    WhileModal([&](Form& assessment) {
        Activate(assessment);
        auto& box = Find<QLineEdit>(assessment, "txtSname");
        box.setFocus();
        box.setText(u"CRUZ"_s);
        box.deselect();
        Press(box, Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(QApplication::activeModalWidget(), &assessment) << "no second screen is opened";
        EXPECT_EQ(OpenScreens(), 0);
        EXPECT_EQ(box.selectedText(), u"CRUZ"_s);
        Press(box, Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(box.text(), QString()) << "the text is cut";
        EXPECT_TRUE(assessment.isVisible());
        EXPECT_TRUE(window->isVisible()) << "the program goes on";
        keyed = true;
    });
    Item("mnuAssessment").trigger();
    EXPECT_TRUE(keyed);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(Screens::IsLoaded<frmAssessment>());
}

TEST_F(Shortcuts, OtherKeysStayWithTheTextBox) {
    Item("mSetup").trigger();
    auto& box = Find<QLineEdit>(Screens::Get<frmSetup>(), "txtDeptCode");
    box.setFocus();
    box.setText(u"HC"_s);
    Press(box, Qt::Key_Z, Qt::ControlModifier);
    Type(box, u"A"_s);
    EXPECT_EQ(box.text(), u"HCA"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmAssessment>());
}

TEST_F(Shortcuts, ATextBoxOfAnotherWindowKeepsCtrlA) {
    QLineEdit box;
    box.setText(u"HC"_s);
    Activate(box);
    box.deselect();
    Press(box, Qt::Key_A, Qt::ControlModifier);
    EXPECT_FALSE(Screens::IsLoaded<frmAssessment>());
    EXPECT_EQ(box.selectedText(), u"HC"_s);
}

} // namespace
