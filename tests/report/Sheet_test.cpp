#include "report/output/Sheet.h"

#include <gtest/gtest.h>

namespace {

/// A slip of half a letter, lying, within its margins.
const QRectF kSlip(28, 23, 555, 351);

} // namespace

TEST(Sheet, KeepsThePagesSizeWhereItFits) {
    const SheetPlace place = PlaceOnSheet(kSlip, QRectF(12, 12, 571, 818));
    EXPECT_EQ(place.scale, 1);
    EXPECT_EQ(place.shift, QPointF());
}

TEST(Sheet, MovesAPageThatReachesWhereTheSheetTakesNoInk) {
    const SheetPlace right = PlaceOnSheet(kSlip, QRectF(12, 12, 560, 818));
    EXPECT_EQ(right.scale, 1);
    EXPECT_EQ(right.shift, QPointF(12 + 560 - 583, 0));
    const SheetPlace left = PlaceOnSheet(kSlip, QRectF(40, 50, 600, 818));
    EXPECT_EQ(left.shift, QPointF(12, 27));
}

TEST(Sheet, MakesAPageSmallerThatWouldBeCut) {
    const QRectF paintable(12, 12, 400, 600);
    const SheetPlace place = PlaceOnSheet(kSlip, paintable);
    EXPECT_NEAR(place.scale, 400.0 / 555, 1e-9);
    const QRectF body(place.shift + kSlip.topLeft() * place.scale, kSlip.size() * place.scale);
    EXPECT_NEAR(body.left(), paintable.left(), 1e-6);
    EXPECT_NEAR(body.right(), paintable.right(), 1e-6);
    EXPECT_GE(body.top(), paintable.top());
    EXPECT_LT(body.top(), 23) << "at the sheet's top";
}

TEST(Sheet, OfWhichNothingIsKnownTakesThePageAsItIs) {
    EXPECT_EQ(PlaceOnSheet(kSlip, QRectF()).scale, 1);
}
