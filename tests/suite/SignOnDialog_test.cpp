#include "suite/SignOnDialog.h"
#include "suite/SuiteTest.h"
#include "text/Clock.h"
#include "toolkit/DisplaySize.h"
#include "toolkit/RestartProcess.h"
#include "toolkit/UserSettings.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A sign-on window over two data sources.
class SignOnDialogTest : public SuiteTest {
  protected:
    SignOnDialogTest() {
        for (const QString& name : {u"Trial hospital"_s, u"San Roque"_s}) {
            auto source = std::make_unique<FakeSource>(name, Path());
            (first ? second : first) = source.get();
            sources.push_back(std::move(source));
        }
        first->hint = u"Sign on as NURSE."_s;
        first->canBeMadeAnew = true;
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
        QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, settings.filePath(u"machine"_s));
    }

    /// The dialogue over the data sources, of which the one of that name was kept.
    SignOnDialog& Open(const QString& kept = {}) {
        UserSettings().setValue(u"DataSource"_s, kept);
        dialog = std::make_unique<SignOnDialog>(sources, u"HC"_s);
        Activate(*dialog);
        return *dialog;
    }

    template <class Control> Control& In(const char* name) const { return Find<Control>(*dialog, name); }

    void TryAs(const QString& user, const QString& password) {
        In<QLineEdit>("txtUser").setText(user);
        In<QLineEdit>("txtPassword").setText(password);
        Click(In<QPushButton>("cmdOK"));
    }

    QString Problem() const {
        const auto& label = In<QLabel>("lblProblem");
        EXPECT_EQ(label.isVisible(), !label.text().isEmpty());
        return label.text();
    }

    const QTemporaryDir settings;
    FakeSource* first = nullptr;
    FakeSource* second = nullptr;
    std::vector<std::unique_ptr<DataSource>> sources;
    std::unique_ptr<SignOnDialog> dialog;
};

TEST_F(SignOnDialogTest, BeginsWithTheUserAndHidesThePassword) {
    Open();
    EXPECT_EQ(dialog->windowTitle(), u"Sign On"_s);
    EXPECT_TRUE(In<QLineEdit>("txtUser").hasFocus());
    EXPECT_EQ(In<QLineEdit>("txtPassword").echoMode(), QLineEdit::Password);
    EXPECT_EQ(Problem(), QString());
}

TEST_F(SignOnDialogTest, OffersTheDataSourcesBeginningWithTheOneThatWasKept) {
    Open(u"San Roque"_s);
    const auto& list = In<QComboBox>("cmbDataSource");
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.itemText(0), u"Trial hospital"_s);
    EXPECT_EQ(dialog->SourceName(), u"San Roque"_s);
    Open(u"closed long ago"_s);
    EXPECT_EQ(dialog->SourceName(), u"Trial hospital"_s);
}

TEST_F(SignOnDialogTest, TellsTheHintOfTheDataSourceThatIsChosen) {
    Open();
    EXPECT_EQ(In<QLabel>("lblHint").text(), u"Sign on as NURSE."_s);
    EXPECT_TRUE(In<QPushButton>("cmdMakeAnew").isVisible());
    In<QComboBox>("cmbDataSource").setCurrentIndex(1);
    EXPECT_EQ(In<QLabel>("lblHint").text(), QString());
    EXPECT_FALSE(In<QPushButton>("cmdMakeAnew").isVisible());
}

TEST_F(SignOnDialogTest, OffersTheDisplaySizesBeginningWithTheUsersOwn) {
    Open();
    const auto& sizes = In<QComboBox>("cmbDisplaySize");
    QStringList offered;
    for (int i = 0; i < sizes.count(); ++i)
        offered << sizes.itemText(i);
    EXPECT_EQ(offered,
              (QStringList{u"Automatic"_s, u"100 %"_s, u"125 %"_s, u"150 %"_s, u"175 %"_s, u"200 %"_s}));
    EXPECT_EQ(sizes.currentText(), u"Automatic"_s);
    DisplaySize::Choose(150);
    Open();
    EXPECT_EQ(In<QComboBox>("cmbDisplaySize").currentText(), u"150 %"_s);
}

TEST_F(SignOnDialogTest, TellsWhereTheDisplayIsTooSmallForTheChosenSize) {
    const auto area = DisplaySize::WorkAreaSeam().Replace([](char*) { return QSize(1366, 768); });
    char program[] = "program";
    for (const int percent : {150, 125}) {
        DisplaySize::Choose(percent);
        DisplaySize::Apply(program);
        DisplaySize::LeaveEnvironment();
        Open();
        const auto& told = In<QLabel>("lblProblem");
        EXPECT_EQ(told.isVisible() ? told.text() : QString(),
                  percent == 150 ? u"This display is too small for 150 %; the program is drawn at 125 %."_s
                                 : QString());
    }
}

TEST_F(SignOnDialogTest, AUserWhoHasChosenNothingBeginsWithTheMachinesDataSource) {
    QSettings(QSettings::IniFormat, QSettings::SystemScope, u"TARVEN"_s, u"Hemodialysis"_s)
        .setValue(u"DataSource"_s, u"San Roque"_s);
    dialog = std::make_unique<SignOnDialog>(sources, u"HC"_s);
    EXPECT_EQ(In<QComboBox>("cmbDataSource").currentText(), u"San Roque"_s);
    Open(u"Trial hospital"_s);
    EXPECT_EQ(In<QComboBox>("cmbDataSource").currentText(), u"Trial hospital"_s) << "his own goes before it";
}

TEST_F(SignOnDialogTest, TellsWhereTheDataSourceOfLastTimeIsMissing) {
    Open(u"San Roque"_s);
    EXPECT_EQ(Problem(), QString());
    Open(u"San Lazaro"_s);
    EXPECT_EQ(In<QComboBox>("cmbDataSource").currentText(), u"Trial hospital"_s);
    EXPECT_EQ(Problem(), u"The data source \"San Lazaro\" is not set up on this machine."_s);
}

TEST_F(SignOnDialogTest, ADisplaySizeIsKeptWithTheDataSourceAndTheProcessBeginsAnew) {
    int restarts = 0;
    const auto restart = RestartProcessSeam().Replace([&restarts] {
        ++restarts;
        EXPECT_EQ(DisplaySize::Chosen(), 125) << "it is kept before the process goes";
    });
    Open();
    In<QComboBox>("cmbDataSource").setCurrentIndex(1);
    auto& sizes = In<QComboBox>("cmbDisplaySize");
    sizes.setFocus();
    Press(sizes, Qt::Key_Down);
    EXPECT_EQ(restarts, 0) << "the list opens and waits for the choice";
    QWidget* list = QApplication::activePopupWidget();
    ASSERT_NE(list, nullptr);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(sizes.view(), key);
    EXPECT_EQ(restarts, 1);
    EXPECT_EQ(UserSettings().value(u"DataSource"_s).toString(), u"San Roque"_s);
    EXPECT_EQ(Problem(), u"The display size counts from the next start of the program."_s)
        << "where the process could not begin anew";
    In<QComboBox>("cmbDataSource").setCurrentIndex(0);
    dialog->KeepSource();
    EXPECT_EQ(UserSettings().value(u"DataSource"_s).toString(), u"Trial hospital"_s) << "he has chosen again";
}

TEST_F(SignOnDialogTest, TheDisplaySizeThatStandsBeginsNothingAnew) {
    const auto restart = RestartProcessSeam().Replace([] { ADD_FAILURE() << "the process begins anew"; });
    Open();
    auto& sizes = In<QComboBox>("cmbDisplaySize");
    sizes.setFocus();
    Press(sizes, Qt::Key_Down);
    QTest::keyClick(sizes.view(), Qt::Key_Return);
    QTest::keyClick(&sizes, Qt::Key_1);
    QTest::keyClick(sizes.view(), Qt::Key_Escape);
    EXPECT_EQ(sizes.currentText(), u"Automatic"_s);
}

TEST_F(SignOnDialogTest, SignsAUserOn) {
    Open();
    TryAs(u" NURSE "_s, u"nurse"_s);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_FALSE(dialog->isVisible());
    const auto user = dialog->TakeUser();
    ASSERT_NE(user, nullptr);
    EXPECT_EQ(user->employeeCode, u"NURSE"_s);
}

TEST_F(SignOnDialogTest, EnterInThePasswordSignsOn) {
    Open();
    Type(In<QLineEdit>("txtUser"), u"NURSE"_s);
    Press(In<QLineEdit>("txtUser"), Qt::Key_Tab);
    Type(In<QLineEdit>("txtPassword"), u"nurse"_s);
    Press(In<QLineEdit>("txtPassword"), Qt::Key_Return);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(SignOnDialogTest, ForgetsThePasswordOnceItIsTaken) {
    Open();
    TryAs(u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(dialog->TakePassword(), u"nurse"_s);
    EXPECT_EQ(In<QLineEdit>("txtPassword").text(), QString());
    EXPECT_EQ(dialog->TakePassword(), QString());
}

TEST_F(SignOnDialogTest, CancelAndEscapeSignNobodyOn) {
    Open();
    Click(In<QPushButton>("cmdCancel"));
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(dialog->TakeUser(), nullptr);
    Open();
    Press(In<QLineEdit>("txtUser"), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(SignOnDialogTest, TheThirdWrongTryClosesIt) {
    Open();
    TryAs(u"NURSE"_s, u"wrong"_s);
    EXPECT_EQ(Problem(), u"The user or the password is wrong. Two tries are left."_s);
    EXPECT_EQ(In<QLineEdit>("txtPassword").text(), QString());
    EXPECT_EQ(In<QLineEdit>("txtUser").text(), u"NURSE"_s);
    EXPECT_TRUE(In<QLineEdit>("txtPassword").hasFocus());
    TryAs(u"NOBODY"_s, u"nurse"_s);
    EXPECT_EQ(Problem(), u"The user or the password is wrong. One try is left."_s);
    messages.Expect(
        {.text = u"The user or the password is wrong.\n\nThat was the third try. The program ends."_s,
         .icon = MsgIcon::Critical});
    TryAs(u"NURSE"_s, u"wrong"_s);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(dialog->TakeUser(), nullptr);
}

TEST_F(SignOnDialogTest, ARefusalLeavesRoomForEachLine) {
    first->hint =
        u"In the trial hospital sign on as NURSE with the password nurse, as CLERK with clerk, or as ADMIN "
        "with admin."_s;
    Open();
    TryAs(u"NURSE"_s, u"wrong"_s);
    RunEvents();
    for (const char* name : {"lblHint", "lblProblem"}) {
        const auto& label = In<QLabel>(name);
        EXPECT_GE(label.height(), label.heightForWidth(label.width())) << name;
    }
}

TEST_F(SignOnDialogTest, AFolderThatIsNamedLikeMarkupIsToldAsItIs) {
    first->connectFailure = RunTimeError(75, u"Path/File access error: /data/<b>ward</b>"_s);
    Open();
    TryAs(u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(In<QLabel>("lblProblem").textFormat(), Qt::PlainText);
}

TEST_F(SignOnDialogTest, TheThirdTryMaySucceed) {
    Open();
    TryAs(u"NURSE"_s, u"wrong"_s);
    TryAs(u"NURSE"_s, u"wrong"_s);
    TryAs(u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(SignOnDialogTest, ADepartmentThatIsNotTheUsersCostsATry) {
    Open();
    TryAs(u"LAB"_s, u"lab"_s);
    EXPECT_EQ(Problem(), u"LAB may not sign on for department HC. Two tries are left."_s);
}

TEST_F(SignOnDialogTest, AProblemOfTheDataSourceCostsNoTry) {
    Open();
    first->connectFailure = RunTimeError(17, u"SQL Server does not exist or access denied."_s);
    for (int i = 0; i < 4; ++i) {
        TryAs(u"NURSE"_s, u"nurse"_s);
        EXPECT_EQ(Problem(), u"SQL Server does not exist or access denied."_s);
        EXPECT_EQ(In<QLineEdit>("txtPassword").text(), u"nurse"_s) << "the user need not type it again";
    }
    first->connectFailure.reset();
    TryAs(u"NURSE"_s, u"wrong"_s);
    EXPECT_EQ(Problem(), u"The user or the password is wrong. Two tries are left."_s);
    TryAs(u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(SignOnDialogTest, MakesAHospitalThatHasYetToBeMade) {
    Open();
    first->needsMaking = true;
    TryAs(u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(first->made, 1);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(SignOnDialogTest, TheMakingCannotBeClosedSoNothingReachesTheSignOnUnderIt) {
    Open();
    first->needsMaking = true;
    int looked = 0;
    first->whileMaking = [&] {
        auto* progress = dialog->findChild<QProgressDialog*>(u"MakingProgress"_s);
        ASSERT_NE(progress, nullptr);
        for (const auto& leave :
             {std::function<void()>([&] { QTest::keyClick(progress, Qt::Key_Escape); }),
              std::function<void()>([&] { progress->close(); }),
              std::function<void()>([&] { QTest::keyClick(progress->windowHandle(), Qt::Key_Escape); })}) {
            leave();
            QApplication::processEvents();
            EXPECT_TRUE(progress->isVisible()) << looked;
            EXPECT_EQ(QApplication::activeModalWidget(), progress) << looked;
            ++looked;
        }
        // The window under it is dead to the keys and clicks of the user, which come through its window.
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Return);
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Escape);
        QApplication::processEvents();
        EXPECT_TRUE(dialog->isVisible());
    };
    TryAs(u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(looked, 3);
    EXPECT_EQ(first->made, 1);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(SignOnDialogTest, AWaitForAnotherWorkstationLetsTheWindowLive) {
    Open();
    first->needsMaking = true;
    int told = 0;
    first->whileMaking = [&] {
        auto* progress = dialog->findChild<QProgressDialog*>(u"MakingProgress"_s);
        ASSERT_NE(progress, nullptr);
        for (int i = 0; i < 2; ++i) {
            QTimer::singleShot(0, progress, [&told] { ++told; });
            first->tell(0, 0, u"Another workstation is making the hospital."_s);
            EXPECT_EQ(told, i + 1) << "events are let through each time";
        }
        EXPECT_EQ(progress->labelText(), u"Another workstation is making the hospital."_s);
    };
    TryAs(u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(told, 2);
}

TEST_F(SignOnDialogTest, AHospitalThatCannotBeMadeCostsNoTry) {
    Open();
    first->needsMaking = true;
    first->makeFailure = RunTimeError(75, u"Path/File access error: /data"_s);
    for (int i = 0; i < 4; ++i)
        TryAs(u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(Problem(), u"Path/File access error: /data"_s);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(first->connected, 0);
    EXPECT_EQ(dialog->findChild<QProgressDialog*>(), nullptr) << "the progress is gone";
}

const Message kMakeAnew = {.text =
                               u"Make the trial hospital anew? Everything that was keyed in it is lost."_s,
                           .icon = MsgIcon::Question,
                           .title = u"Sign On"_s,
                           .buttons = MsgButtons::YesNo,
                           .defaultAnswer = MsgAnswer::No};

TEST_F(SignOnDialogTest, MakesTheHospitalAnewOnlyOnYes) {
    Open();
    messages.Expect(kMakeAnew, MsgAnswer::No);
    Click(In<QPushButton>("cmdMakeAnew"));
    EXPECT_EQ(first->madeAnew, 0);
    messages.Expect(kMakeAnew, MsgAnswer::Yes);
    Click(In<QPushButton>("cmdMakeAnew"));
    EXPECT_EQ(first->madeAnew, 1);
    EXPECT_EQ(first->made, 0);
    EXPECT_EQ(second->madeAnew, 0);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(SignOnDialogTest, TellsWhyAHospitalCouldNotBeMadeAnew) {
    Open();
    first->makeFailure = RunTimeError(75, u"Path/File access error: /data"_s);
    messages.Expect(kMakeAnew, MsgAnswer::Yes);
    Click(In<QPushButton>("cmdMakeAnew"));
    EXPECT_EQ(Problem(), u"Path/File access error: /data"_s);
}

TEST_F(SignOnDialogTest, TheDataSourceChosenIsTheOneSignedOnTo) {
    Open();
    In<QComboBox>("cmbDataSource").setCurrentIndex(1);
    TryAs(u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(first->connected, 0);
    EXPECT_EQ(second->connected, 1);
    EXPECT_EQ(dialog->SourceName(), u"San Roque"_s);
}

TEST_F(SignOnDialogTest, WaitsWhereTheHospitalAsksForItAndGoesOnByItself) {
    first->workstation = u"DESK1"_s;
    const auto runningClock = ClockSeam().Replace(ClockSeam().Own());
    for (int i = 0; i < 3; ++i)
        TrySignOn(*first, u"NURSE"_s, u"wrong"_s, {.deptCode = u"HC"_s, .waited = true});
    Open();
    TryAs(u"CLERK"_s, u"clerk"_s);
    EXPECT_EQ(Problem(), u"There were too many failed sign-ons. The password is looked at in 2 seconds."_s);
    EXPECT_TRUE(In<QLineEdit>("txtPassword").hasFocus());
    EXPECT_FALSE(In<QPushButton>("cmdOK").isEnabled());
    Press(In<QLineEdit>("txtPassword"), Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible()) << "an Enter that comes too early ends nothing";
    EXPECT_TRUE(QTest::qWaitFor([this] { return !dialog->isVisible(); }));
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(dialog->TakeUser()->employeeCode, u"CLERK"_s);
}

TEST_F(SignOnDialogTest, AWaitCanBeLeft) {
    first->workstation = u"DESK1"_s;
    for (int i = 0; i < 6; ++i)
        TrySignOn(*first, u"NURSE"_s, u"wrong"_s, {.deptCode = u"HC"_s, .waited = true});
    Open();
    TryAs(u"CLERK"_s, u"clerk"_s);
    Press(In<QLineEdit>("txtPassword"), Qt::Key_Escape);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(SignOnDialogTest, AHospitalInWhichSomebodyHasWorkedIsMadeAnewForItsUsersAlone) {
    first->holdsWork = true;
    Open();
    Click(In<QPushButton>("cmdMakeAnew"));
    EXPECT_EQ(Problem(),
              u"Somebody has worked in this hospital. Key your user and password before you make it anew."_s);
    EXPECT_TRUE(In<QLineEdit>("txtUser").hasFocus());
    In<QLineEdit>("txtUser").setText(u"NURSE"_s);
    In<QLineEdit>("txtPassword").setText(u"wrong"_s);
    messages.Expect(kMakeAnew, MsgAnswer::Yes);
    Click(In<QPushButton>("cmdMakeAnew"));
    EXPECT_EQ(Problem(), u"The user or the password is wrong. Two tries are left."_s);
    EXPECT_EQ(first->madeAnew, 0);
    In<QLineEdit>("txtPassword").setText(u"nurse"_s);
    messages.Expect(kMakeAnew, MsgAnswer::No);
    Click(In<QPushButton>("cmdMakeAnew"));
    EXPECT_EQ(first->madeAnew, 0);
    messages.Expect(kMakeAnew, MsgAnswer::Yes);
    Click(In<QPushButton>("cmdMakeAnew"));
    EXPECT_EQ(first->madeAnew, 1);
    EXPECT_EQ(first->connected, 0);
    EXPECT_EQ(first->connectedToReplace, 2) << "whatever version has made it";
    EXPECT_TRUE(dialog->isVisible()) << "it is not the sign-on yet";
}

} // namespace
