#include "components/clsDiagnosisCodes.h"
#include "components/ComponentRegistry.h"
#include "components/shared.h"
#include "shell/commands.h"
#include "shell/frmMain.h"
#include "shell/frmSetup.h"
#include "shell/Main.h"
#include "support/CaseName.h"
#include "support/shell/RecordingSuite.h"
#include "toolkit/EndProcess.h"
#include "toolkit/Failure.h"
#include "toolkit/Screens.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

class MainTest : public StartTest {
  protected:
    ~MainTest() override {
        Screens::Clear();
        delete MainWindow();
    }
};

TEST_F(MainTest, StartsInThisOrder) {
    WriteConfig("DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
    ExpectHospital(u"SAN ROQUE"_s, u"CEBU"_s, u"000-111"_s, false);
    Main();
    EXPECT_EQ(gIniPath, programDirectory.path() + u"\\tarvenaux.ini"_s);
    QStringList created;
    for (const QString& className : ClassesOfInitComponents())
        created.push_back(u"create %1 []"_s.arg(className));
    created << u"ActiveConnection nothing"_s << u"PasswordDeptCode HC"_s << u"hwndParentForm"_s
            << u"ShowMain"_s;
    EXPECT_EQ(record.mid(0, created.size()), created);
    ASSERT_NE(MainWindow(), nullptr);
    EXPECT_TRUE(MainWindow()->isVisible());
    EXPECT_EQ(MainWindow()->windowTitle(), u"TARVEN HEMODIALYSIS ver.5.5.2"_s);
}

TEST_F(MainTest, MakesAMissingConfigurationFileAndStartsWithZeros) {
    ExpectHospital(u""_s, u""_s, u""_s, false);
    Main();
    EXPECT_TRUE(QFile::exists(programDirectory.filePath(u"tarvenaux.ini"_s)));
    EXPECT_EQ(gDeptCode, u"0"_s);
    EXPECT_EQ(gDeptDesc, u"0"_s);
    EXPECT_EQ(MainWindow()->windowTitle(), u"TARVEN 0 ver.5.5.2"_s);
}

TEST_F(MainTest, AFileWithACodeAloneStartsWithZeroAsTheName) {
    WriteConfig("DeptCode = HC\n");
    ExpectHospital(u""_s, u""_s, u""_s, false);
    Main();
    EXPECT_EQ(gDeptCode, u"HC"_s);
    EXPECT_EQ(MainWindow()->windowTitle(), u"TARVEN 0 ver.5.5.2"_s);
}

TEST_F(MainTest, EndsSilentlyWhenNobodySignsOn) {
    WriteConfig("DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
    signsOn = false;
    EXPECT_THROW(Main(), ProcessEnded);
    EXPECT_TRUE(messages.Shown().empty());
    EXPECT_FALSE(MainWindow()->isVisible());
    EXPECT_EQ(record.last(), u"Connected"_s) << "nothing is read or created any more";
}

TEST_F(MainTest, AConfigurationFileThatCannotBeOpenedIsAFailure) {
    QDir(programDirectory.path()).mkdir(u"tarvenaux.ini"_s);
    EXPECT_THROW(Main(), RunTimeError);
    EXPECT_EQ(record, QStringList());
}

struct BlankCase {
    const char* name;
    QByteArray config;
};

class BlankDepartment : public MainTest, public testing::WithParamInterface<BlankCase> {};

/// Writes down the message boxes between the other events of the start.
class RecordingMessages {
  public:
    explicit RecordingMessages(QStringList& record)
        : mRecord(record) {}

  private:
    MsgAnswer Show(const Message& message) {
        EXPECT_EQ(message.icon, MsgIcon::None);
        EXPECT_EQ(message.title, QString());
        EXPECT_EQ(message.buttons, MsgButtons::Ok);
        mRecord << message.text + (Screens::IsLoaded<frmSetup>() ? u" (setup open)"_s : QString());
        return MsgAnswer::Ok;
    }

    QStringList& mRecord;
    const Seam<MsgAnswer(const Message&)>::Replacement mBoxes =
        MessageSeam().Replace([this](const Message& message) { return Show(message); });
};

TEST_P(BlankDepartment, AsksForTheSetupAndEndsWhateverTheUserDoesThere) {
    for (const char* button : {"cmdOK", "cmdCancel"}) {
        WriteConfig(GetParam().config);
        record.clear();
        RecordingMessages recording(record);
        QTimer::singleShot(0, qApp, [this, button] {
            ASSERT_TRUE(Screens::IsLoaded<frmSetup>());
            auto& setup = Screens::Get<frmSetup>();
            EXPECT_TRUE(setup.IsModal());
            record << u"setup shown"_s;
            Find<QPushButton>(setup, button).click();
        });
        EXPECT_THROW(Main(), ProcessEnded);
        EXPECT_EQ(record, (QStringList{u"Department not set."_s, u"setup shown"_s, u"Restart Program."_s}));
        EXPECT_EQ(MainWindow(), nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, BlankDepartment,
                         testing::Values(BlankCase{"BothBlank", "DeptCode = \nDeptDesc = \n"},
                                         BlankCase{"CodeBlank", "DeptCode =\nDeptDesc = HEMODIALYSIS\n"},
                                         BlankCase{"NameBlank", "DeptCode = HC\nDeptDesc =\n"}),
                         CaseName());

TEST_F(MainTest, LoadDepartmentReadsBothKeys) {
    gIniPath = programDirectory.path() + u"\\tarvenaux.ini"_s;
    WriteConfig("DeptDesc = HEMODIALYSIS\nDeptCode = HC\n");
    LoadDepartment();
    EXPECT_EQ(gDeptCode, u"HC"_s);
    EXPECT_EQ(gDeptDesc, u"HEMODIALYSIS"_s);
}

TEST_F(MainTest, InitComponentsHandsTheSessionsConnectionOnBeforeAnybodySignedOn) {
    EXPECT_TRUE(InitComponents());
    EXPECT_EQ(record.last(), u"ActiveConnection nothing"_s);
    EXPECT_TRUE(gCurrentUser.IsSet() && gStockItem.IsSet() && gResultView.IsSet() && gPersonFinder.IsSet());
    EXPECT_TRUE(gStockListBasic.IsSet() && gListing.IsSet() && gStatement.IsSet() && gDiagnosisCodes.IsSet());
}

class MissingComponent : public MainTest, public testing::WithParamInterface<int> {
  protected:
    static QString ClassName() { return ClassesOfInitComponents()[GetParam()]; }
};

TEST_P(MissingComponent, IsToldAndEndsTheStart) {
    WriteConfig("DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
    RegisterComponent(ClassName(), {});
    messages.Expect({.text = u"ActiveX component can't create objectError Initalizing DLLs..."_s});
    EXPECT_THROW(Main(), ProcessEnded);
    EXPECT_EQ(messages.Shown().size(), 1U) << "there is no further message";
    EXPECT_EQ(record.size(), GetParam()) << "nothing is created behind the missing one";
    EXPECT_EQ(MainWindow(), nullptr);
}

TEST_P(MissingComponent, AFailureThatIsNotTheRunTimesOwnIsToldToo) {
    RegisterComponent(ClassName(), [](const QString&) -> std::shared_ptr<Component> {
        throw std::runtime_error("The licence’s file is gone. ");
    });
    messages.Expect({.text = u"The licence’s file is gone. Error Initalizing DLLs..."_s});
    EXPECT_FALSE(InitComponents());
}

TEST_P(MissingComponent, ItsOwnErrorIsTheOneThatIsTold) {
    RegisterComponent(ClassName(), [](const QString&) -> std::shared_ptr<Component> {
        throw RunTimeError(-2147467259, u"The license has run out. "_s);
    });
    messages.Expect({.text = u"The license has run out. Error Initalizing DLLs..."_s});
    EXPECT_FALSE(InitComponents());
}

INSTANTIATE_TEST_SUITE_P(Classes, MissingComponent, testing::Range(0, 8),
                         [](const testing::TestParamInfo<int>& number) {
                             return "Number" + std::to_string(number.param + 1);
                         });

/// Diagnosis codes that take no connection.
class RefusingCodes : public clsDiagnosisCodes {
  public:
    void SetActiveConnection(CommandGateway*) override {
        throw RunTimeError(-2147467259, u"No connection, please. "_s);
    }
};

TEST_F(MainTest, DiagnosisCodesThatTakeNoConnectionAreToldAndEndTheStart) {
    RegisterComponent(u"DiagnosisCodeLib.clsDiagnosisCodes"_s,
                      [](const QString&) { return std::make_shared<RefusingCodes>(); });
    messages.Expect({.text = u"No connection, please. Error Initalizing DLLs..."_s});
    EXPECT_FALSE(InitComponents());
}

/// A session that has no connection to show, not even an unset one.
class SessionWithoutConnection : public FakeCurrentUser {
  public:
    CommandGateway* SQLConnection() const override {
        throw RunTimeError(-2147467259, u"Nobody has signed on. "_s);
    }
};

TEST_F(MainTest, ASessionThatShowsNoConnectionIsToldAndEndsTheStart) {
    RegisterComponent(u"TARVEN_User.clsCurrentUser"_s,
                      [](const QString&) { return std::make_shared<SessionWithoutConnection>(); });
    messages.Expect({.text = u"Nobody has signed on. Error Initalizing DLLs..."_s});
    EXPECT_FALSE(InitComponents());
    EXPECT_FALSE(record.contains(u"ActiveConnection nothing"_s));
}

TEST_F(MainTest, AComponentOfAnotherKindIsToldToo) {
    RegisterComponent(u"ListingLib.clsListing"_s,
                      [](const QString&) { return std::make_shared<Component>(); });
    messages.Expect({.text = u"Type mismatchError Initalizing DLLs..."_s});
    EXPECT_FALSE(InitComponents());
}

// The starts that end the process, each in a child process with real boxes.

class StartDeathTest : public MainTest {
  protected:
    StartDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    /// The program as its main function runs it, with a user who closes every box and cancels the setup.
    [[noreturn]] static void RunProgram() {
        const auto boxes = MessageSeam().Replace(MessageSeam().Own());
        const auto failures = Failure::EndSeam().Replace(Failure::EndSeam().Own());
        const auto ending = EndProcessSeam().Replace(EndProcessSeam().Own());
        Closer closer;
        try {
            Main();
            std::exit(2);
        } catch (...) {
            Failure::End(std::current_exception());
        }
        std::exit(3);
    }

  private:
    class Closer : public QObject {
      public:
        Closer() { startTimer(0); }

      protected:
        void timerEvent(QTimerEvent*) override {
            QWidget* modal = QApplication::activeModalWidget();
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                std::fprintf(stderr, "[%s]", qPrintable(box->text()));
                box->accept();
            } else if (modal) {
                std::fprintf(stderr, "[%s]", qPrintable(modal->objectName()));
                modal->close();
            }
        }
    };
};

TEST_F(StartDeathTest, AFileThatCannotBeOpenedEndsTheProcessWithExitCode1) {
    EXPECT_EXIT(
        {
            QDir(programDirectory.path()).mkdir(u"tarvenaux.ini"_s);
            RunProgram();
        },
        testing::ExitedWithCode(1), "\\[Run-time error '75':\n\nPath/File access error: .*tarvenaux.ini");
}

TEST_F(StartDeathTest, AMissingDepartmentEndsTheProcessAfterTheSetup) {
    EXPECT_EXIT(
        {
            WriteConfig("DeptCode =\n");
            RunProgram();
        },
        testing::ExitedWithCode(0), "\\[Department not set.\\].*\\[frmSetup\\].*\\[Restart Program.\\]");
}

TEST_F(StartDeathTest, AMissingComponentEndsTheProcessAfterItsBox) {
    EXPECT_EXIT(
        {
            RegisterComponent(u"StockListLib.clsStockList"_s, {});
            RunProgram();
        },
        testing::ExitedWithCode(0), "\\[ActiveX component can't create objectError Initalizing DLLs...\\]");
}

TEST_F(StartDeathTest, ASignOnThatIsCancelledEndsTheProcessWithoutABox) {
    EXPECT_EXIT(
        {
            signsOn = false;
            RunProgram();
        },
        // Each box and screen would be told in brackets.
        testing::ExitedWithCode(0), testing::Not(testing::HasSubstr("[")));
}

TEST_F(StartDeathTest, AHospitalWithoutARecordEndsTheProcessWithExitCode1) {
    EXPECT_EXIT(
        {
            connection.Expect(HospitalRecordCommand(), Rows({u"company"_s}));
            RunProgram();
        },
        testing::ExitedWithCode(1), "\\[Run-time error '3021':");
}

} // namespace
