#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// The tortures in their short form. What fails is made again by the command that the output ends with.

namespace {

class Torture : public testing::TestWithParam<const char*> {};

} // namespace

TEST_P(Torture, LeavesAWholeHospital) {
    constexpr int kPatience = 300000;
    QProcess torture;
    torture.setProcessChannelMode(QProcess::MergedChannels);
    torture.start(u"" TARVEN_BUILD_DIR "/tarven-torture"_s, {QString::fromLatin1(GetParam()), u"--short"_s});
    ASSERT_TRUE(torture.waitForFinished(kPatience));
    const std::string told = torture.readAll().toStdString();
    EXPECT_EQ(torture.exitStatus(), QProcess::NormalExit) << told;
    EXPECT_EQ(torture.exitCode(), 0) << told;
}

INSTANTIATE_TEST_SUITE_P(Short, Torture, testing::Values("kill", "crowd", "files", "longshift", "desks"),
                         [](const auto& test) { return std::string(test.param); });
