#include "support/CaseName.h"
#include "torture/Flatness.h"
#include "torture/FootprintGraph.h"

#include <QXmlStreamReader>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Whether a shift's figures stay as they are: what grows is told, and what only moves is not.

namespace {

constexpr int kSamples = 30;

/// One figure by the number of the sample.
using Course = double (*)(int sample);

struct GrowthCase {
    const char* name;
    Course course;
    double growth;
};

class GrowthTest : public testing::TestWithParam<GrowthCase> {};

TEST_P(GrowthTest, IsWhatTheLineRises) {
    std::vector<double> samples;
    for (int i = 0; i < kSamples; ++i)
        samples.push_back(GetParam().course(i));
    EXPECT_NEAR(Flatness::Growth(samples), GetParam().growth, 0.01);
}

// Twenty samples are judged, nineteen steps from the first of them to the last.
INSTANTIATE_TEST_SUITE_P(Courses, GrowthTest,
                         testing::Values(GrowthCase{"Level", [](int) { return 7.0; }, 0},
                                         GrowthCase{"Rising", [](int i) { return 2.0 * i; }, 38},
                                         GrowthCase{"Falling", [](int i) { return -1.0 * i; }, -19},
                                         GrowthCase{"WarmingUp", [](int i) { return i < 10 ? i : 10.0; }, 0},
                                         GrowthCase{"ToAndFro", [](int i) { return i % 2 ? 3.0 : 1.0; },
                                                    0.29}),
                         CaseName());

TEST(Growth, OfTooFewSamplesIsNone) {
    EXPECT_EQ(Flatness::Growth({}), 0);
    EXPECT_EQ(Flatness::Growth({5.0}), 0);
}

// The places of the figures that the cases below move.
constexpr size_t kHeap = 0;
constexpr size_t kPages = 2;
constexpr size_t kDescriptors = 3;

std::vector<Footprint::Sample> ShiftIn(size_t figure, Course course) {
    std::vector<Footprint::Sample> samples(kSamples);
    for (int i = 0; i < kSamples; ++i)
        samples[size_t(i)][figure] = course(i);
    return samples;
}

struct ShiftCase {
    const char* name;
    size_t figure;
    Course course;
    bool isFlat;
};

class FlatnessTest : public testing::TestWithParam<ShiftCase> {};

TEST_P(FlatnessTest, TellsWhatGrowsByMoreThanItMay) {
    const ShiftCase& shift = GetParam();
    const QStringList problems = Flatness::Problems(ShiftIn(shift.figure, shift.course));
    if (shift.isFlat)
        EXPECT_THAT(problems, IsEmpty());
    else
        EXPECT_THAT(problems.join(u'\n').toStdString(),
                    HasSubstr(Footprint::kFigures[shift.figure].what.toString().toStdString()));
}

INSTANTIATE_TEST_SUITE_P(
    Shifts, FlatnessTest,
    testing::Values(
        ShiftCase{"AHandleNowAndThen", kDescriptors, [](int i) { return 14.0 + i / 10; }, false},
        ShiftCase{"SteadyHandles", kDescriptors, [](int) { return 14.0; }, true},
        ShiftCase{"FewerHandles", kDescriptors, [](int i) { return 40.0 - i; }, true},
        ShiftCase{"ThreeMegabytes", kHeap, [](int i) { return i * 3 * Footprint::kMegabyte / 19; }, false},
        ShiftCase{"OneMegabyte", kHeap, [](int i) { return i * Footprint::kMegabyte / 19; }, true},
        ShiftCase{"PagesOfAGrowingFile", kPages, [](int i) { return i * Footprint::kMegabyte; }, true}),
    CaseName());

TEST(FootprintText, ReadsBackAsItWasWritten) {
    const Footprint::Sample sample = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    EXPECT_EQ(Footprint::SampleIn(Footprint::TextOf(sample)), sample);
    EXPECT_THROW(Footprint::SampleIn(u"1 2 3"_s), std::runtime_error);
}

TEST(FootprintGraph, HasACurveForEachFigureAndItsNumbers) {
    QXmlStreamReader picture(
        FootprintGraph(ShiftIn(kDescriptors, [](int i) { return i < 20 ? 14.0 : 15.0; }), u"400 patients"_s));
    size_t curves = 0;
    QStringList words;
    while (!picture.atEnd()) {
        if (picture.readNext() != QXmlStreamReader::StartElement)
            continue;
        curves += picture.name() == "polyline"_L1 ? 1 : 0;
        if (picture.name() == "text"_L1)
            words << picture.readElementText();
    }
    EXPECT_FALSE(picture.hasError()) << picture.errorString().toStdString();
    EXPECT_EQ(curves, Footprint::kFigures.size());
    EXPECT_TRUE(words.contains(u"14 to 15"_s));
    EXPECT_TRUE(words.contains(u"400 patients"_s));
}

} // namespace
