#include "support/PrintQt.h"
#include "workstation/Workstation.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

// How the program comes and goes.

class StartAndEnd : public Workstation {};

TEST_F(StartAndEnd, NothingOnTheCommandLineMatters) {
    // The toolkit would refuse to start on that platform if it were told of it.
    const auto program = StartProgram({u"-nonsense"_s, u"-platform"_s, u"nonsense"_s});
    EXPECT_TRUE(ReachesTheSignOn(*program));
    EXPECT_EQ(program->state(), QProcess::Running);
    program->kill();
    program->waitForFinished();
}

TEST_F(StartAndEnd, WithoutADisplayItEndsInWords) {
    const auto program = StartProgram({}, {{u"QT_QPA_PLATFORM"_s, u"xcb"_s}, {u"DISPLAY"_s, QString()}});
    ASSERT_TRUE(program->waitForFinished());
    EXPECT_EQ(program->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program->exitCode(), 2);
    EXPECT_THAT(program->readAllStandardError().toStdString(),
                testing::HasSubstr("There is no display that a window could be opened on."));
}

TEST_F(StartAndEnd, ASecondOneStartsBesideTheFirst) {
    const auto first = StartProgram({});
    ASSERT_TRUE(ReachesTheSignOn(*first));
    const auto second = StartProgram({});
    EXPECT_TRUE(ReachesTheSignOn(*second));
    for (QProcess* program : {first.get(), second.get()}) {
        EXPECT_EQ(program->state(), QProcess::Running);
        program->kill();
        program->waitForFinished();
    }
}

TEST_F(StartAndEnd, TheMenuEndsTheProgramWithExitCode0) {
    const Run run = RunScript(u"exit-by-menu"_s);
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_FALSE(run.crashed);
    EXPECT_THAT(run.told, ElementsAre(u"the program ended"_s));
}
