#include "bench/figures/BenchFile.h"
#include "bench/figures/Compare.h"
#include "support/CaseName.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

BenchLine Line(const QString& what, const Figure& judged, double promised = 0) {
    return {what, u"ms"_s, 20, 10, judged, promised};
}

struct VerdictCase {
    std::string name;
    Figure before;
    Figure after;
    Verdict verdict;
};

void PrintTo(const VerdictCase& item, std::ostream* out) {
    *out << item.name;
}

class CompareRuns : public testing::TestWithParam<VerdictCase> {};

} // namespace

TEST_P(CompareRuns, TellWhatIsBeyondTheNoise) {
    const auto differences = Differences({Line(u"a"_s, GetParam().before)}, {Line(u"a"_s, GetParam().after)});
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_EQ(differences.front().verdict, GetParam().verdict);
}

INSTANTIATE_TEST_SUITE_P(
    Bench, CompareRuns,
    testing::Values(VerdictCase{"BoundsThatOverlap", {1, 0.9, 1.1}, {1.2, 1.1, 1.3}, Verdict::Same},
                    VerdictCase{"Above", {1, 0.9, 1.1}, {1.3, 1.2, 1.4}, Verdict::Worse},
                    VerdictCase{"Below", {1, 0.9, 1.1}, {0.7, 0.6, 0.8}, Verdict::Better},
                    VerdictCase{"MeasuredOnceBefore", {1, 1, 1}, {2, 1.9, 2.1}, Verdict::Unjudged},
                    VerdictCase{"MeasuredOnceAfter", {1, 0.9, 1.1}, {2, 2, 2}, Verdict::Unjudged}),
    CaseName());

TEST(Compare, TakesLinesOfTheSameTextAlone) {
    const auto differences = Differences({Line(u"a"_s, {1, 1, 2}), Line(u"b"_s, {1, 1, 2})},
                                         {Line(u"c"_s, {1, 1, 2}), Line(u"b"_s, {2, 2, 3})});
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_EQ(differences.front().what, u"b"_s);
    EXPECT_EQ(differences.front().before.value, 1);
    EXPECT_EQ(differences.front().after.value, 2);
}

TEST(Compare, IsWellWhereNothingIsWorse) {
    const std::vector<BenchLine> lines = {Line(u"a"_s, {1, 0.9, 1.1})};
    EXPECT_TRUE(PrintDifferences(lines, lines));
    EXPECT_FALSE(PrintDifferences(lines, {Line(u"a"_s, {2, 1.9, 2.1})}));
}

TEST(BenchLine, IsTooMuchBeyondTheNoiseAlone) {
    EXPECT_TRUE(Line(u"a"_s, {1.3, 1.1, 1.5}, 1.2).IsGood());
    EXPECT_FALSE(Line(u"a"_s, {1.4, 1.3, 1.5}, 1.2).IsGood());
    EXPECT_TRUE(Line(u"a"_s, {1.4, 1.3, 1.5}, 0).IsGood()) << "nothing was promised";
}

TEST(BenchFile, ReadsBackWhatWasSaved) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"figures.json"_s);
    SaveLines(path, {Line(u"Ñ, 10 \"lines\""_s, {1.5, 1.25, 2}, 1.2)});
    const auto lines = LoadLines(path);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines.front().what, u"Ñ, 10 \"lines\""_s);
    EXPECT_EQ(lines.front().unit, u"ms"_s);
    EXPECT_EQ(lines.front().ours, 20);
    EXPECT_EQ(lines.front().bare, 10);
    EXPECT_EQ(lines.front().judged.value, 1.5);
    EXPECT_EQ(lines.front().judged.low, 1.25);
    EXPECT_EQ(lines.front().judged.high, 2);
    EXPECT_EQ(lines.front().promised, 1.2);
}

TEST(BenchFile, GivesUpWithTheNameOfAFileThatIsNone) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"other.json"_s);
    EXPECT_EXIT(LoadLines(path), testing::ExitedWithCode(1), "cannot read .*other.json");
    QFile(path).open(QIODevice::WriteOnly);
    EXPECT_EXIT(LoadLines(path), testing::ExitedWithCode(1), "other.json is no table of the benchmarks");
}
