#include "support/PrintQt.h"
#include "text/RunTimeError.h"
#include "toolkit/Failure.h"
#include "toolkit/MousePointer.h"
#include "toolkit/MsgBox.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMessageBox>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

// Each test of the end of the process runs its failure in a child process, whose error stream tells what it
// showed.

namespace {

/// Ends a process that outlives its failure, so late that only a broken program gets there.
class GiveUp : public QObject {
  public:
    GiveUp() { startTimer(kPatience); }

  protected:
    void timerEvent(QTimerEvent*) override {
        if (!Failure::IsEnding())
            std::exit(0);
    }

  private:
    static constexpr int kPatience = 20000;
};

/// Closes the failure's box some time after it has opened, and tells what it looked like.
class BoxCloser : public QObject {
  public:
    BoxCloser() { startTimer(0); }

    std::function<void()> whileOpen;
    /// Tells no more than that it has closed the box when it is off.
    bool tells = true;

  protected:
    void timerEvent(QTimerEvent*) override {
        QList<QMessageBox*> boxes;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* box = qobject_cast<QMessageBox*>(widget))
                boxes.push_back(box);
        }
        if (boxes.isEmpty())
            return;
        if (++mTicks == 5 && whileOpen)
            whileOpen();
        if (mTicks < kTicks)
            return;
        const QMessageBox& box = *boxes.first();
        if (!tells) {
            std::fprintf(stderr, "closed\n");
            return boxes.first()->accept();
        }
        std::fprintf(stderr, "boxes=%d name=%s title=%s critical=%d plain=%d modal=%d pointer=%d text=[%s]\n",
                     static_cast<int>(boxes.size()), qPrintable(box.objectName()),
                     qPrintable(box.windowTitle()), box.icon() == QMessageBox::Critical,
                     box.textFormat() == Qt::PlainText, box.isModal(),
                     static_cast<int>(CurrentMousePointer()), qPrintable(box.text()));
        boxes.first()->accept();
    }

  private:
    static constexpr int kTicks = 20;
    int mTicks = 0;
};

/// Runs the event loop; a process that outlives its failure ends with 0.
[[noreturn]] void RunProgram() {
    new GiveUp;
    QApplication::exec();
    std::exit(0);
}

[[noreturn]] void FailInATimer() {
    new BoxCloser;
    QTimer::singleShot(0, qApp, [] { throw RunTime::Error(RunTime::kNoCurrentRecord); });
    RunProgram();
}

class FailureDeathTest : public testing::Test {
  protected:
    FailureDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(FailureDeathTest, ShowsOneCriticalBoxAndEndsTheProcessWithExitCode1) {
    EXPECT_EXIT(FailInATimer(), testing::ExitedWithCode(1),
                "boxes=1 name=Failure title=TARVEN critical=1 plain=1 modal=1 pointer=0 "
                "text=\\[Run-time error '3021':\n\nEither BOF or EOF is True.*\\]");
}

TEST_F(FailureDeathTest, EndsTheProcessHoweverDeepTheEventLoopsAreNested) {
    EXPECT_EXIT(
        {
            new BoxCloser;
            QDialog dialog;
            QTimer::singleShot(0, qApp, [&dialog] {
                QTimer::singleShot(0, qApp, [] {
                    QEventLoop inner;
                    QTimer::singleShot(0, qApp, [] { throw RunTime::Error(RunTime::kInvalidUseOfNull); });
                    inner.exec();
                    std::exit(0);
                });
                dialog.exec();
                std::exit(0);
            });
            RunProgram();
        },
        testing::ExitedWithCode(1), "boxes=1 .*Run-time error '94'");
}

TEST_F(FailureDeathTest, StaysUnderAKeyThatIsHeldDown) {
    EXPECT_EXIT(
        {
            (new BoxCloser)->whileOpen = [] {
                QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
                QApplication::sendEvent(QApplication::activeModalWidget(), &repeat);
            };
            QTimer::singleShot(0, qApp, [] { throw RunTime::Error(RunTime::kNoCurrentRecord); });
            RunProgram();
        },
        testing::ExitedWithCode(1), "boxes=1 name=Failure");
}

TEST_F(FailureDeathTest, RunsNoMoreOfTheHandlerThatFailed) {
    EXPECT_EXIT(
        {
            new BoxCloser;
            QWidget control;
            QObject::connect(&control, &QWidget::windowTitleChanged, &control,
                             [] { throw RunTime::Error(RunTime::kTypeMismatch); });
            QTimer::singleShot(0, qApp, [&control] {
                control.setWindowTitle(u"changed"_s);
                std::exit(0);
            });
            RunProgram();
        },
        testing::ExitedWithCode(1), "Run-time error '13'");
}

/// A control that cannot be painted.
class Unpaintable : public QWidget {
  protected:
    void paintEvent(QPaintEvent*) override { throw RunTimeError(30009, u"Invalid Row value"_s); }
};

TEST_F(FailureDeathTest, WaitsForAPaintingToEndBeforeItsBoxOpens) {
    EXPECT_EXIT(
        {
            new BoxCloser;
            Unpaintable control;
            control.show();
            RunProgram();
        },
        testing::ExitedWithCode(1), "boxes=1 .*Run-time error '30009'");
}

TEST_F(FailureDeathTest, DropsASecondFailureWhileTheBoxIsOpen) {
    EXPECT_EXIT(
        {
            auto* closer = new BoxCloser;
            closer->whileOpen = [] { throw RunTimeError(50000, u"second failure"_s); };
            QTimer::singleShot(0, qApp, [] { throw RunTimeError(547, u"first failure"_s); });
            RunProgram();
        },
        testing::ExitedWithCode(1), "boxes=1 .*first failure");
}

TEST_F(FailureDeathTest, LetsTheProgramsTimersRestWhileTheBoxIsOpen) {
    EXPECT_EXIT(
        {
            auto* closer = new BoxCloser;
            QTimer pendingCheck;
            int ticks = 0;
            QObject::connect(&pendingCheck, &QTimer::timeout, &pendingCheck, [&ticks] {
                if (Failure::IsEnding())
                    ++ticks;
            });
            pendingCheck.start(0);
            closer->whileOpen = [&ticks] { std::fprintf(stderr, "ticks=%d\n", ticks); };
            QTimer::singleShot(0, qApp, [] { throw RunTime::Error(RunTime::kObjectNotSet); });
            RunProgram();
        },
        testing::ExitedWithCode(1), "ticks=0.*boxes=1");
}

TEST_F(FailureDeathTest, ShowsTheTextOfAnyOtherException) {
    EXPECT_EXIT(
        {
            new BoxCloser;
            QTimer::singleShot(0, qApp, [] { throw std::runtime_error("out of paper"); });
            RunProgram();
        },
        testing::ExitedWithCode(1), "boxes=1 .*text=\\[out of paper\\]");
}

TEST_F(FailureDeathTest, BringsThePointerBackFromTheHourglass) {
    EXPECT_EXIT(
        {
            SetMousePointer(MousePointer::Wait);
            FailInATimer();
        },
        testing::ExitedWithCode(1), "boxes=1 .*pointer=0");
}

TEST_F(FailureDeathTest, EndsTheStartOfTheProgramTheSameWay) {
    EXPECT_EXIT(
        {
            new BoxCloser;
            try {
                throw RunTime::Error(RunTime::kPathFileAccess);
            } catch (...) {
                Failure::End(std::current_exception());
            }
            std::exit(0);
        },
        testing::ExitedWithCode(1), "boxes=1 .*Run-time error '75':\n\nPath/File access error");
}

TEST_F(FailureDeathTest, AnExceptionThatNoDispatchSeesEndsTheProcessWithExitCode1) {
    EXPECT_EXIT(
        {
            new BoxCloser;
            Failure::InstallTerminateHandler();
            try {
                throw RunTime::Error(RunTime::kObjectNotSet);
            } catch (...) {
                std::terminate();
            }
        },
        testing::ExitedWithCode(1), "boxes=1 .*Run-time error '91':\n\nObject variable or With block");
}

TEST_F(FailureDeathTest, AnExceptionBesideTheUserInterfacesThreadEndsTheProcessWithoutABox) {
    EXPECT_EXIT(
        {
            new BoxCloser;
            Failure::InstallTerminateHandler();
            std::thread fails([] { throw RunTimeError(547, u"CASTRO, ANA"_s); });
            RunProgram();
        },
        testing::ExitedWithCode(1), testing::Not(testing::AnyOf(HasSubstr("boxes="), HasSubstr("CASTRO"))));
}

TEST_F(FailureDeathTest, ItsTextGoesToTheBoxAlone) {
    EXPECT_EXIT(
        {
            auto* closer = new BoxCloser;
            closer->tells = false;
            QTimer::singleShot(0, qApp, [] { throw RunTimeError(547, u"CASTRO, ANA"_s); });
            RunProgram();
        },
        testing::ExitedWithCode(1),
        testing::AllOf(HasSubstr("closed"),
                       testing::Not(testing::AnyOf(HasSubstr("CASTRO"), HasSubstr("Run-time error")))));
}

TEST(Failure, ItsTextIsTheRunTimesNumberAndDescription) {
    const auto failure = std::make_exception_ptr(RunTimeError(105, u"Unclosed quotation mark"_s, u"42000"_s));
    EXPECT_EQ(Failure::TextOf(failure), u"Run-time error '105':\n\nUnclosed quotation mark"_s);
    EXPECT_EQ(Failure::TextOf(std::make_exception_ptr(7)), u"Unknown failure"_s);
}

TEST(Failure, AStandInTakesFailuresInPlaceOfTheEnd) {
    int taken = 0;
    const auto failures = Failure::EndSeam().Replace([&taken](const std::exception_ptr&, bool) { ++taken; });
    QTimer::singleShot(0, qApp, [] { throw RunTime::Error(RunTime::kNoCurrentRecord); });
    QCoreApplication::processEvents();
    EXPECT_EQ(taken, 1);
    EXPECT_FALSE(Failure::IsEnding());
}

} // namespace
