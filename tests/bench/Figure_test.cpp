#include "bench/figures/Figure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numeric>

namespace {

std::vector<double> OneTo(int count) {
    std::vector<double> figures(size_t(count), 0.0);
    std::iota(figures.begin(), figures.end(), 1.0);
    return figures;
}

} // namespace

TEST(Figure, OfOneMeasurementHasNoBounds) {
    const Figure figure = MiddleOf({7});
    EXPECT_EQ(figure.value, 7);
    EXPECT_TRUE(figure.WasMeasuredOnce());
}

TEST(Figure, OfAFewHasTheSmallestAndTheLargestForBounds) {
    const Figure figure = MiddleOf({3, 1, 2});
    EXPECT_EQ(figure.value, 2);
    EXPECT_EQ(figure.low, 1);
    EXPECT_EQ(figure.high, 3);
}

TEST(Figure, OfAHundredHasTheRanksOfTheSignTestForBounds) {
    // Of 100 coins 40 to 60 heads: the 41st and the 60th figure.
    const Figure figure = MiddleOf(OneTo(100));
    EXPECT_EQ(figure.value, 51);
    EXPECT_EQ(figure.low, 41);
    EXPECT_EQ(figure.high, 60);
}

TEST(Figure, IsTheSurerTheMoreWasMeasured) {
    EXPECT_LT(MiddleOf(OneTo(1000)).Doubt(), MiddleOf(OneTo(100)).Doubt());
}

TEST(Figure, IsNotMovedByAFewWildOnes) {
    std::vector<double> figures(100, 1.0);
    figures[3] = figures[50] = figures[99] = 1000;
    EXPECT_EQ(MiddleOf(figures).high, 1);
}
