#include "toolkit/Twips.h"

#include <gtest/gtest.h>

namespace {

TEST(Twips, RoundToTheNearestPixel) {
    EXPECT_EQ(TwipsToPixels(0), 0);
    EXPECT_EQ(TwipsToPixels(15), 1);
    EXPECT_EQ(TwipsToPixels(7), 0);
    EXPECT_EQ(TwipsToPixels(8), 1);
    EXPECT_EQ(TwipsToPixels(1800), 120);
    EXPECT_EQ(TwipsToPixels(2000), 133);
    EXPECT_EQ(TwipsToPixels(1440), 96) << "an inch";
}

} // namespace
