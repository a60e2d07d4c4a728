#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// The short form of the fuzz targets: their seeds, and so many changes of them that are the same each time. A
// crash, a leak, an exception that nobody may see and what takes far too long end a target with an exit code
// of its own.

namespace {

struct Target {
    const char* name;
    int inputs;
};

class FuzzTest : public testing::TestWithParam<Target> {};

constexpr Target kTargets[] = {{"CommandText", 700}, {"Engine", 700},   {"Grid", 40},  {"Settings", 500},
                               {"Tds", 800},         {"Template", 800}, {"Text", 1000}};

} // namespace

INSTANTIATE_TEST_SUITE_P(Short, FuzzTest, testing::ValuesIn(kTargets),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(FuzzTest, SeedsAndWhatIsMadeOfThemLeadToNoFault) {
    // Leaks are looked for at the end of the target alone, which takes less time than the inputs' own looks.
    // The target keeps what it makes in the first folder, and the input of a fault where the prefix tells.
    const QTemporaryDir made;
    const QString name = QString::fromLatin1(GetParam().name);
    qputenv("LSAN_OPTIONS",
            "suppressions=" TARVEN_SOURCE_DIR "/tests/support/screen_leaks.txt:print_suppressions=0");
    QProcess target;
    target.setProcessChannelMode(QProcess::MergedChannels);
    target.start(u"" TARVEN_BUILD_DIR "/"_s + name + u"_fuzz"_s,
                 {u"-seed=1"_s, u"-runs=%1"_s.arg(GetParam().inputs), u"-keep_seed=1"_s, u"-timeout=60"_s,
                  u"-detect_leaks=0"_s, u"-rss_limit_mb=2048"_s,
                  u"-artifact_prefix=" TARVEN_BUILD_DIR "/fuzz/"_s + name + u'-', made.path(),
                  u"" TARVEN_SOURCE_DIR "/fuzz/seeds/"_s + name});
    ASSERT_TRUE(target.waitForFinished(-1)) << target.errorString().toStdString();
    EXPECT_TRUE(target.exitStatus() == QProcess::NormalExit && target.exitCode() == 0)
        << target.readAll().right(8000).toStdString();
}
