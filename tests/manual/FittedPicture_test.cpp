#include "manual/FittedPicture.h"

#include <gtest/gtest.h>

namespace {

QImage PictureOf(int width) {
    return {width, width / 2, QImage::Format_RGB32};
}

TEST(FittedPicture, IsBroughtToTheDotsOfTheDisplay) {
    const QImage fitted = FittedPicture(PictureOf(1280), 600, 1.25);
    EXPECT_EQ(fitted.size(), QSize(750, 375));
    EXPECT_EQ(fitted.deviceIndependentSize(), QSizeF(600, 300));
}

TEST(FittedPicture, KeepsTheDotsThatItHasWhereThereAreMoreOfThem) {
    const QImage fitted = FittedPicture(PictureOf(700), 600, 1.25);
    EXPECT_EQ(fitted.size(), QSize(700, 350));
    EXPECT_EQ(fitted.deviceIndependentSize(), QSizeF(600, 300));
}

TEST(FittedPicture, IsNotMadeLarger) {
    const QImage fitted = FittedPicture(PictureOf(200), 600, 2);
    EXPECT_EQ(fitted.size(), QSize(200, 100));
    EXPECT_DOUBLE_EQ(fitted.devicePixelRatio(), 1);
}

} // namespace
