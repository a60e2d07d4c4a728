#include "report/pages/Pagination.h"
#include "support/CaseName.h"

#include <gmock/gmock.h>

namespace {

FlowItem Line(float height, quint8 depth = 0) {
    return {.height = height, .depth = depth};
}

FlowItem KeptLine(float height, quint8 depth = 0) {
    return {.height = height, .depth = depth, .keepWithNext = true};
}

FlowItem Head(float height, quint8 depth = 0, quint32 keepEnd = 0) {
    return {.height = height,
            .keepEnd = keepEnd,
            .depth = depth,
            .keepWithNext = true,
            .isHead = true,
            .repeats = true};
}

FlowItem HeadThatDoesNotRepeat(float height) {
    return {.height = height, .keepWithNext = true, .isHead = true};
}

struct Span {
    quint32 first;
    quint32 end;
    std::vector<quint32> heads;
    bool operator==(const Span&) const = default;
    friend void PrintTo(const Span& span, std::ostream* out) {
        *out << span.first << ".." << span.end << " heads " << testing::PrintToString(span.heads);
    }
};

struct Paged {
    std::string name;
    FlowItems items;
    std::vector<Span> pages;
};

class PaginateTest : public testing::TestWithParam<Paged> {};

constexpr double kRoom = 100;

std::vector<Span> Pages(const FlowItems& items) {
    std::vector<Span> spans;
    for (const PageSpan& page : Paginate(items, kRoom))
        spans.push_back({page.first, page.end, page.heads});
    return spans;
}

} // namespace

TEST_P(PaginateTest, SpreadsTheItems) {
    EXPECT_EQ(Pages(GetParam().items), GetParam().pages);
}

INSTANTIATE_TEST_SUITE_P(
    Reports, PaginateTest,
    testing::Values(
        Paged{"NothingIsOneEmptyPage", {}, {{0, 0, {}}}},
        Paged{"OnePageExactlyFull", {Line(50), Line(50)}, {{0, 2, {}}}},
        Paged{"OneLineTooMany", {Line(50), Line(50), Line(0.5F)}, {{0, 2, {}}, {2, 3, {}}}},
        Paged{"AnItemHigherThanAPageHasItsOwn",
              {Line(10), Line(150), Line(10)},
              {{0, 1, {}}, {1, 2, {}}, {2, 3, {}}}},
        Paged{"AHeadGoesWithItsFirstLine", {Line(85), Head(10), Line(10, 1)}, {{0, 1, {}}, {1, 3, {}}}},
        Paged{"AHeadThatFitsWithItsFirstLineStays",
              {Line(70), Head(10), Line(10, 1), Line(20, 1)},
              {{0, 3, {}}, {3, 4, {1}}}},
        Paged{"HeadsAreRepeatedFromTheOutermost",
              {Head(10), Head(10, 1), Line(60, 2), Line(60, 2)},
              {{0, 3, {}}, {3, 4, {0, 1}}}},
        Paged{"RepeatedHeadsTakeTheirRoom",
              {Head(20), Line(80, 1), Line(50, 1), Line(40, 1)},
              {{0, 2, {}}, {2, 3, {0}}, {3, 4, {0}}}},
        Paged{"AHeadThatDoesNotRepeat",
              {HeadThatDoesNotRepeat(10), Line(90, 1), Line(90, 1)},
              {{0, 2, {}}, {2, 3, {}}}},
        Paged{"NoHeadsForWhatStandsOutsideTheGroup",
              {Head(10), Line(90, 1), Line(10)},
              {{0, 2, {}}, {2, 3, {}}}},
        Paged{"AGroupThatBeginsOnTheNewPageShowsTheOuterHeadsOnly",
              {Head(10), Head(10, 1), Line(70, 2), Head(10, 1), Line(20, 2)},
              {{0, 3, {}}, {3, 5, {0}}}},
        Paged{"TheHeadOfAnEndedInnerGroupIsNotRepeated",
              {Head(10), Head(10, 1), Line(70, 2), Line(20, 1)},
              {{0, 3, {}}, {3, 4, {0}}}},
        Paged{
            "HeadsThatLeaveNoRoomAreLeftOut", {Head(60), Line(40, 1), Line(50, 1)}, {{0, 2, {}}, {2, 3, {}}}},
        Paged{"ATotalTakesItsLastLineAlong",
              {Line(40), Line(40), KeptLine(15), Line(10)},
              {{0, 2, {}}, {2, 4, {}}}},
        Paged{"ARunThatNoPageHoldsBreaksWhereItMust",
              {Line(10), KeptLine(60), KeptLine(60), Line(60)},
              {{0, 2, {}}, {2, 3, {}}, {3, 4, {}}}},
        Paged{"AGroupKeptTogetherMovesWhole",
              {Line(50), Head(10, 0, 4), Line(20, 1), Line(30, 1)},
              {{0, 1, {}}, {1, 4, {}}}},
        Paged{"AGroupKeptTogetherThatFitsStays",
              {Line(40), Head(10, 0, 4), Line(20, 1), Line(30, 1)},
              {{0, 4, {}}}},
        Paged{"AGroupThatNoPageHoldsBeginsWhereItStands",
              {Line(50), Head(10, 0, 4), Line(20, 1), Line(80, 1)},
              {{0, 3, {}}, {3, 4, {1}}}}),
    CaseName());

TEST(Paginate, LosesAndDoublesNothing) {
    FlowItems items;
    for (int i = 0; i < 1000; ++i)
        items.push_back(i % 7 == 0 ? Head(5) : Line(float(3 + i % 11), 1));
    quint32 next = 0;
    for (const PageSpan& page : Paginate(items, kRoom)) {
        EXPECT_EQ(page.first, next);
        EXPECT_GT(page.end, page.first);
        double height = 0;
        for (const quint32 head : page.heads)
            height += double(items[head].height);
        for (quint32 i = page.first; i < page.end; ++i)
            height += double(items[i].height);
        EXPECT_LE(height, kRoom + 0.01);
        next = page.end;
    }
    EXPECT_EQ(next, items.size());
}
