#include "suite/ConsoleSignOn.h"
#include "suite/SuiteTest.h"
#include "support/CaseName.h"
#include "support/ErrorOf.h"
#include "support/process/ChildProcess.h"

#include <QFile>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// What a console tells of a password that it does not get.
QString RefusalOfConsole(const QString& file, int input = -1) {
    try {
        const ConsolePassword password(file, input);
        return u"taken: "_s + password.Text();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), RunTime::kPathFileAccess);
        return error.Description();
    }
}

class PasswordFileTest : public testing::Test {
  protected:
    QString Write(const QByteArray& content, QFile::Permissions rights = QFile::ReadOwner) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        EXPECT_TRUE(file.setPermissions(rights));
        return path;
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(u"password"_s);
};

TEST_F(PasswordFileTest, ItsFirstLineIsThePassword) {
    EXPECT_EQ(ConsolePassword(Write("contraseña 5\nrest\n")).Text(), u"contraseña 5"_s);
}

TEST_F(PasswordFileTest, NoLineEndBelongsToIt) {
    for (const QByteArray& content : {QByteArray("geheim"), QByteArray("geheim\r\n")}) {
        QFile::remove(path);
        EXPECT_EQ(ConsolePassword(Write(content)).Text(), u"geheim"_s);
    }
}

TEST_F(PasswordFileTest, AnEmptyLineIsAnEmptyPassword) {
    EXPECT_EQ(ConsolePassword(Write("\n")).Text(), QString());
}

TEST_F(PasswordFileTest, OneThatOthersMayReadIsRefused) {
    for (const auto other : {QFile::ReadGroup, QFile::ReadOther, QFile::WriteOther}) {
        QFile::remove(path);
        EXPECT_EQ(
            RefusalOfConsole(Write("geheim\n", QFile::ReadOwner | other)),
            u"There is no password: others than its owner may read %1 (chmod 600 keeps it from them)."_s.arg(
                path));
    }
}

TEST_F(PasswordFileTest, OneThatIsNotThereOrEmptyOrTooLongIsNoPassword) {
    EXPECT_EQ(RefusalOfConsole(path), u"There is no password: %1: No such file or directory"_s.arg(path));
    EXPECT_EQ(RefusalOfConsole(Write({})), u"There is no password: nothing came."_s);
    QFile::remove(path);
    EXPECT_EQ(RefusalOfConsole(Write(QByteArray(1025, 'x'))),
              u"There is no password: its line is longer than 1,024 bytes."_s);
    QFile::remove(path);
    EXPECT_EQ(ConsolePassword(Write(QByteArray(1024, 'x'))).Text(), QString(1024, u'x'));
}

TEST(PasswordOfAPipe, LeavesWhatFollowsIt) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ASSERT_EQ(::write(ends[1], "geheim\nrest", 11), 11);
    ::close(ends[1]);
    EXPECT_EQ(ConsolePassword({}, ends[0]).Text(), u"geheim"_s);
    char rest[8] = {};
    EXPECT_EQ(::read(ends[0], rest, sizeof rest), 4);
    EXPECT_STREQ(rest, "rest");
    EXPECT_EQ(RefusalOfConsole({}, ends[0]), u"There is no password: nothing came."_s);
    ::close(ends[0]);
}

/// A terminal, and the side of it at which somebody types and sees.
class PasswordOfATerminal : public testing::Test {
  protected:
    void SetUp() override {
        screen = ::posix_openpt(O_RDWR | O_NOCTTY);
        ASSERT_GE(screen, 0);
        ASSERT_EQ(::grantpt(screen), 0);
        ASSERT_EQ(::unlockpt(screen), 0);
        terminal = ::open(::ptsname(screen), O_RDWR | O_NOCTTY);
        ASSERT_GE(terminal, 0);
    }
    void TearDown() override {
        ::close(terminal);
        ::close(screen);
    }

    /// What the terminal shows until a text stands there, or nothing more comes for ten seconds.
    QByteArray Shown(const QByteArray& until) const {
        constexpr int kPatience = 10000;
        QByteArray shown;
        pollfd more{.fd = screen, .events = POLLIN, .revents = 0};
        while (!shown.contains(until) && ::poll(&more, 1, kPatience) == 1) {
            char bytes[256];
            const ssize_t count = ::read(screen, bytes, sizeof bytes);
            if (count <= 0)
                break;
            shown.append(bytes, qsizetype(count));
        }
        return shown;
    }

    bool Echoes() const {
        termios state{};
        tcgetattr(terminal, &state);
        return state.c_lflag & ECHO;
    }

    void Type(const QByteArray& keys) const {
        EXPECT_EQ(::write(screen, keys.constData(), size_t(keys.size())), keys.size());
    }

    int screen = -1;
    int terminal = -1;
};

TEST_F(PasswordOfATerminal, IsAskedForAndNotShown) {
    QByteArray shown;
    bool echoedMeanwhile = true;
    std::thread clerk([&] {
        shown = Shown("Password: ");
        echoedMeanwhile = Echoes();
        Type("geheimX\177\n");
    });
    const ConsolePassword password({}, terminal);
    clerk.join();
    shown += Shown("\n");
    EXPECT_EQ(password.Text(), u"geheim"_s);
    EXPECT_EQ(shown, "Password: \r\n");
    EXPECT_FALSE(echoedMeanwhile);
    EXPECT_TRUE(Echoes()) << "what is typed afterwards is shown again";
}

TEST_F(PasswordOfATerminal, ASignalEndsTheProcessAndLeavesTheTerminalAsItWas) {
    EXPECT_TRUE(Echoes());
    const pid_t test = ::getpid();
    const int ended = RunInChild([&] {
        std::thread clerk([&] {
            Shown("Password: ");
            ::kill(::getpid(), SIGINT);
        });
        clerk.detach();
        const ConsolePassword password({}, terminal);
        return ::getpid() == test ? 1 : 2;
    });
    EXPECT_EQ(ended, -SIGINT);
    EXPECT_TRUE(Echoes());
}

class ConsoleSignOnTest : public SuiteTest {
  protected:
    /// A console at which a password is typed.
    std::unique_ptr<SignedOnUser> SignOnWith(const QByteArray& typed, const QString& department = u"HC"_s) {
        int ends[2];
        EXPECT_EQ(::pipe(ends), 0);
        EXPECT_EQ(::write(ends[1], typed.constData(), size_t(typed.size())), typed.size());
        ::close(ends[1]);
        const ConsolePassword password({}, ends[0]);
        ::close(ends[0]);
        return SignOnAtConsole(source, u"nurse"_s, password, department);
    }

    FakeSource source{u"Trial hospital"_s, Path()};
};

TEST_F(ConsoleSignOnTest, IsTheWindowsOwn) {
    const auto user = SignOnWith("nurse\n");
    EXPECT_EQ(user->employeeCode, u"NURSE"_s);
    EXPECT_EQ(user->connection->Execute(u"select SUSER_SNAME() as u"_s).Fields(u"u").ToText(), u"NURSE"_s);
}

TEST_F(ConsoleSignOnTest, ARefusalIsRaisedInItsWords) {
    const auto refusal = [this](const QByteArray& typed, const QString& department) {
        try {
            SignOnWith(typed, department);
            return u"nobody was refused"_s;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number(), 18456);
            return error.Description();
        }
    };
    EXPECT_EQ(refusal("wrong\n", u"HC"_s), u"The user or the password is wrong."_s);
    EXPECT_EQ(refusal("nurse\n", u"XX"_s), u"NURSE may not sign on for department XX."_s);
}

TEST_F(ConsoleSignOnTest, ServesTheWaitThatTheHospitalAsksFor) {
    source.workstation = u"DESK1"_s;
    for (int i = 0; i < 3; ++i)
        EXPECT_THROW(SignOnWith("wrong\n"), RunTimeError);
    DateTime now = Moment();
    const auto clock = ClockSeam().Replace([&now] { return now; });
    const auto wait = ConsoleWaitSeam().Replace([&now](std::chrono::seconds seconds) {
        now = DateTime::FromMilliseconds(now.Milliseconds() + std::chrono::milliseconds(seconds).count());
    });
    EXPECT_NE(SignOnWith("nurse\n"), nullptr);
    EXPECT_EQ(now.Milliseconds() - Moment().Milliseconds(), 2000);
}

TEST_F(ConsoleSignOnTest, MakesNoHospital) {
    source.needsMaking = true;
    try {
        SignOnWith("nurse\n");
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 53);
        EXPECT_EQ(error.Description(),
                  u"Trial hospital has yet to be made: sign on to it once in the program."_s);
    }
    EXPECT_EQ(source.made, 0);
}

} // namespace
