#include "support/CaseName.h"
#include "toolkit/DisplaySize.h"
#include "toolkit/UserSettings.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct WorkAreaCase {
    const char* name;
    QSize workArea;
    int percent;
};

class FittingSize : public testing::TestWithParam<WorkAreaCase> {};

TEST_P(FittingSize, IsTheLargestAtWhichTheLargestScreenFits) {
    EXPECT_EQ(DisplaySize::FittingIn(GetParam().workArea), GetParam().percent);
}

struct HeldCase {
    const char* name;
    QSize workArea;
    int chosen;
    int percent;
};

class HeldSize : public testing::TestWithParam<HeldCase> {};

TEST_P(HeldSize, IsTheChosenOneWhereItHoldsTheMainWindow) {
    EXPECT_EQ(DisplaySize::HeldBy(GetParam().workArea, GetParam().chosen), GetParam().percent);
}

INSTANTIATE_TEST_SUITE_P(WorkAreas, HeldSize,
                         testing::Values(HeldCase{"OldScreen", {1024, 768}, 125, 125},
                                         HeldCase{"OldScreenTooLarge", {1024, 768}, 150, 125},
                                         HeldCase{"Laptop", {1366, 768}, 125, 125},
                                         HeldCase{"LaptopTooLarge", {1366, 768}, 150, 125},
                                         HeldCase{"LaptopFarTooLarge", {1366, 768}, 200, 125},
                                         HeldCase{"Just", {1200, 840}, 150, 150},
                                         HeldCase{"JustTooNarrow", {1199, 2000}, 150, 125},
                                         HeldCase{"JustTooLow", {2000, 839}, 150, 125},
                                         HeldCase{"LessIsTheUsersOwn", {3840, 2160}, 100, 100},
                                         HeldCase{"AtNone", {640, 480}, 175, 100}),
                         CaseName());

INSTANTIATE_TEST_SUITE_P(
    WorkAreas, FittingSize,
    testing::Values(WorkAreaCase{"TooSmall", {800, 600}, 100}, WorkAreaCase{"OldScreen", {1024, 768}, 100},
                    WorkAreaCase{"Laptop", {1366, 728}, 100},
                    WorkAreaCase{"JustTooNarrow", {1299, 2000}, 100},
                    WorkAreaCase{"JustWideEnough", {1300, 875}, 125},
                    WorkAreaCase{"JustTooLow", {2000, 874}, 100}, WorkAreaCase{"FullHd", {1920, 1080}, 150},
                    WorkAreaCase{"FullHdWithABar", {1920, 1040}, 125},
                    WorkAreaCase{"Tall", {2080, 1224}, 150}, WorkAreaCase{"Wide", {2560, 1400}, 200},
                    WorkAreaCase{"Huge", {3840, 2160}, 200}),
    CaseName());

/// The user's settings lie in a folder of the test's own.
class DisplaySizeTest : public testing::Test {
  protected:
    DisplaySizeTest() { QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path()); }
    ~DisplaySizeTest() override { qunsetenv("QT_SCALE_FACTOR"); }

    /// The scale that the toolkit reads.
    static double Scale() { return qgetenv("QT_SCALE_FACTOR").toDouble(); }

    const QTemporaryDir settings;
    QSize workArea{3840, 2160};
    const Seam<QSize(char*)>::Replacement area =
        DisplaySize::WorkAreaSeam().Replace([this](char*) { return workArea; });
    char program[8] = "program";
};

TEST_F(DisplaySizeTest, AChosenSizeThatDoesNotHoldTheMainWindowIsNotDrawn) {
    workArea = {1366, 768};
    DisplaySize::Choose(150);
    DisplaySize::Apply(program);
    EXPECT_DOUBLE_EQ(Scale(), 1.25);
    EXPECT_EQ(DisplaySize::Drawn(), 125);
    EXPECT_EQ(DisplaySize::Chosen(), 150) << "a larger display shows it again";
}

TEST_F(DisplaySizeTest, IsAutomaticUntilOneIsChosen) {
    EXPECT_EQ(DisplaySize::Chosen(), DisplaySize::kAutomatic);
    DisplaySize::Choose(175);
    EXPECT_EQ(DisplaySize::Chosen(), 175);
    DisplaySize::Choose(DisplaySize::kAutomatic);
    EXPECT_EQ(DisplaySize::Chosen(), DisplaySize::kAutomatic);
}

TEST_F(DisplaySizeTest, IsAutomaticWhereNoSuchSizeWasKept) {
    for (const QString& kept : {u"130"_s, u"-100"_s, u"large"_s, u"100000"_s}) {
        UserSettings().setValue(u"DisplaySize"_s, kept);
        EXPECT_EQ(DisplaySize::Chosen(), DisplaySize::kAutomatic) << kept.toStdString();
    }
}

TEST_F(DisplaySizeTest, ScalesTheToolkitAndLeavesNothingBehind) {
    DisplaySize::Choose(150);
    DisplaySize::Apply(program);
    EXPECT_DOUBLE_EQ(Scale(), 1.5);
    DisplaySize::LeaveEnvironment();
    EXPECT_FALSE(qEnvironmentVariableIsSet("QT_SCALE_FACTOR"));
}

TEST_F(DisplaySizeTest, MultipliesTheDesktopsOwnScaleOnceHoweverOftenTheProcessBeginsAnew) {
    qputenv("QT_SCALE_FACTOR", "1.25");
    DisplaySize::Choose(200);
    for (int start = 0; start < 2; ++start) {
        DisplaySize::Apply(program);
        EXPECT_DOUBLE_EQ(Scale(), 2.5);
        DisplaySize::LeaveEnvironment();
        EXPECT_EQ(qgetenv("QT_SCALE_FACTOR"), "1.25") << "what it starts has the desktop's";
    }
}

TEST_F(DisplaySizeTest, TakesADesktopsScaleThatIsNoneForOne) {
    for (const char* scale : {"", "0", "-2", "large"}) {
        qputenv("QT_SCALE_FACTOR", scale);
        DisplaySize::Choose(125);
        DisplaySize::Apply(program);
        EXPECT_DOUBLE_EQ(Scale(), 1.25) << scale;
        DisplaySize::LeaveEnvironment();
    }
}

} // namespace
