#include "toolkit/Twips.h"

#include <gtest/gtest.h>

namespace {

TEST(Twips, RoundToTheNearestPixel) {
    EXPECT_EQ(TwipsToPixels(0), 0);
    EXPECT_EQ(TwipsToPixels(kTwipsPerPixel), 1);
    EXPECT_EQ(TwipsToPixels(kTwipsPerPixel / 2 - 1), 0);
    EXPECT_EQ(TwipsToPixels(kTwipsPerPixel / 2), 1);
    EXPECT_EQ(TwipsToPixels(1200), 100);
    EXPECT_EQ(TwipsToPixels(4000), 333);
}

} // namespace
