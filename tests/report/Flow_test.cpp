#include "report/pages/Flow.h"
#include "report/template/TemplateAttributes.h"
#include "report/template/TemplateReader.h"
#include "support/report/ReportFixture.h"

#include <gmock/gmock.h>
#include <optional>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

const QString kGroups = uR"(
<report-header height="1"/>
<group by="Ward"><header height="2"/>
  <group by="Patient"><header height="3"/><detail height="4"><text x="0" y="0" width="90">{Text}</text></detail>
  <footer height="5"/></group>
<footer height="6"/></group>
<report-footer height="7"/>)"_s;

/// The bands of a report by what they are.
class FlowTest : public testing::Test {
  protected:
    FlowItems Build(const QString& parts, std::vector<std::vector<Value>> rows, double room = 1000) {
        queries = {Rows({u"Ward"_s, u"Patient"_s, u"Text"_s}, std::move(rows))};
        report.emplace(ReadTemplate(u"t"_s, SmallTemplate(parts)), ReportValues{}, queries);
        Flow flow = BuildFlow(*report, *queries.front(), fonts, room);
        sums = std::move(flow.sums);
        return std::move(flow.items);
    }

    /// Each item as the millimetres of its height, which tell the bands of kGroups apart, and its rows.
    static QStringList Told(const FlowItems& items) {
        QStringList told;
        for (const FlowItem& item : items)
            told << u"%1:%2-%3"_s.arg(std::lround(double(item.height) / MillimetresToPoints(1)))
                        .arg(item.firstRow)
                        .arg(item.endRow);
        return told;
    }

    TextPlace Place(const FlowItem& item) const { return PlaceOf(item, *report, *queries.front(), sums); }

    QueryRows queries;
    std::optional<BoundTemplate> report;
    ReportSums sums;
    ReportFonts fonts;
};

} // namespace

TEST_F(FlowTest, RunsThroughTheGroups) {
    const auto items = Build(kGroups, {{u"A"_s, u"1"_s, u"x"_s},
                                       {u"A"_s, u"1"_s, u"x"_s},
                                       {u"A"_s, u"2"_s, u"x"_s},
                                       {u"B"_s, u"2"_s, u"x"_s}});
    EXPECT_THAT(Told(items),
                ElementsAre(u"1:0-4"_s, u"2:0-3"_s, u"3:0-2"_s, u"4:0-1"_s, u"4:1-2"_s, u"5:0-2"_s,
                            u"3:2-3"_s, u"4:2-3"_s, u"5:2-3"_s, u"6:0-3"_s, u"2:3-4"_s, u"3:3-4"_s,
                            u"4:3-4"_s, u"5:3-4"_s, u"6:3-4"_s, u"7:0-4"_s));
}

TEST_F(FlowTest, AnInnerGroupEndsWithItsOuterOneThoughItsValueStays) {
    const auto items = Build(kGroups, {{u"A"_s, u"1"_s, u"x"_s}, {u"B"_s, u"1"_s, u"x"_s}});
    EXPECT_THAT(Told(items),
                ElementsAre(u"1:0-2"_s, u"2:0-1"_s, u"3:0-1"_s, u"4:0-1"_s, u"5:0-1"_s, u"6:0-1"_s,
                            u"2:1-2"_s, u"3:1-2"_s, u"4:1-2"_s, u"5:1-2"_s, u"6:1-2"_s, u"7:0-2"_s));
}

TEST_F(FlowTest, NoRowsGiveTheReportsHeaderAndFooterOnly) {
    EXPECT_THAT(Told(Build(kGroups, {})), ElementsAre(u"1:0-0"_s, u"7:0-0"_s));
}

TEST_F(FlowTest, GroupsDoNotEndWhereOnlyTheLetterCaseChanges) {
    const auto items = Build(u"<group by=\"Ward\"><header height=\"2\"/><detail height=\"4\"/></group>"_s,
                             {{u"Ward B"_s, 1, 1}, {u"WARD B"_s, 1, 1}});
    EXPECT_THAT(Told(items), ElementsAre(u"2:0-2"_s, u"4:0-1"_s, u"4:1-2"_s));
}

TEST_F(FlowTest, GroupsDoNotEndWhereOnlyTrailingBlanksChange) {
    const auto items = Build(u"<group by=\"Ward\"><header height=\"2\"/><detail height=\"4\"/></group>"_s,
                             {{u"Ward B"_s, 1, 1}, {u"WARD B  "_s, 1, 1}, {u" Ward B"_s, 1, 1}});
    EXPECT_THAT(Told(items), ElementsAre(u"2:0-2"_s, u"4:0-1"_s, u"4:1-2"_s, u"2:2-3"_s, u"4:2-3"_s));
}

TEST_F(FlowTest, GroupsByNumbersDatesAndNull) {
    const auto items = Build(u"<group by=\"Ward\"><header height=\"2\"/></group>"_s,
                             {{Value(), 1, 1}, {Value(), 1, 1}, {1, 1, 1}, {2, 1, 1}, {DateTime(), 1, 1}});
    EXPECT_THAT(Told(items), ElementsAre(u"2:0-2"_s, u"2:2-3"_s, u"2:3-4"_s, u"2:4-5"_s));
}

TEST_F(FlowTest, AFooterShowsItsLastRowAndAHeaderItsFirst) {
    const auto items = Build(u"<group by=\"Ward\"><header height=\"2\"/><footer height=\"3\"/></group>"_s,
                             {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}});
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(Place(items[0]).row, 0U);
    EXPECT_EQ(Place(items[1]).row, 2U);
    EXPECT_EQ(Place(items[1]).firstRow, 0U);
    EXPECT_EQ(Place(items[1]).endRow, 3U);
}

TEST_F(FlowTest, AddsUpForEachBandWhatItShows) {
    const QString sum = u"<text x=\"0\" y=\"0\" width=\"90\">{sum %1}</text>"_s;
    const auto items = Build(u"<group by=\"Ward\"><header height=\"9\">"_s + sum.arg(u"Patient"_s) +
                                 u"</header><footer height=\"9\">"_s + sum.arg(u"Text"_s) +
                                 u"</footer></group><report-footer height=\"9\">"_s + sum.arg(u"Text"_s) +
                                 u"</report-footer>"_s,
                             {{1, 1, 10}, {1, 2, 20}, {2, 3, 30}});
    const auto sumOf = [&](size_t item, size_t column) {
        return sums.Of(column, items.at(item).firstRow, items.at(item).endRow).ToDouble();
    };
    ASSERT_EQ(items.size(), 5U);
    EXPECT_EQ(sumOf(0, 1), 3);
    EXPECT_EQ(sumOf(1, 2), 30);
    EXPECT_EQ(sumOf(2, 1), 3);
    EXPECT_EQ(sumOf(3, 2), 30);
    EXPECT_EQ(sumOf(4, 2), 60);
}

TEST_F(FlowTest, CarriesTheKeepsOfTheBands) {
    const auto items =
        Build(u"<group by=\"Ward\" keep-together=\"yes\"><header height=\"2\"/><detail height=\"4\"/>"
              "<footer height=\"3\"/></group><report-footer height=\"5\" keep-with-previous=\"no\"/>"_s,
              {{1, 1, 1}, {1, 1, 1}, {2, 1, 1}});
    ASSERT_EQ(items.size(), 8U);
    EXPECT_TRUE(items[0].isHead && items[0].repeats && items[0].keepWithNext);
    EXPECT_EQ(items[0].keepEnd, 4U);
    EXPECT_EQ(items[4].keepEnd, 7U);
    EXPECT_FALSE(items[1].keepWithNext);
    EXPECT_TRUE(items[2].keepWithNext) << "the last line stays with the footer";
    EXPECT_FALSE(items[6].keepWithNext) << "the report's footer may stand alone";
    EXPECT_EQ(items[0].depth, 0);
    EXPECT_EQ(items[1].depth, 1);
    EXPECT_EQ(items[3].depth, 1);
    EXPECT_EQ(items[7].depth, 0);
}

TEST_F(FlowTest, AGroupIsNotKeptTogetherUnlessTheTemplateSaysSo) {
    const auto items =
        Build(u"<group by=\"Ward\"><header height=\"2\"/><detail height=\"4\"/></group>"_s, {{1, 1, 1}});
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].keepEnd, 0U);
}

TEST_F(FlowTest, MeasuresRowsThatWrap) {
    const auto items =
        Build(u"<detail height=\"4\"><text x=\"0\" y=\"0\" width=\"20\">{Text}</text></detail>"_s,
              {{1, 1, u"short"_s}, {1, 1, u"a text that does not go into one line"_s}});
    EXPECT_NEAR(double(items[0].height), MillimetresToPoints(4), 0.01);
    EXPECT_GT(double(items[1].height), MillimetresToPoints(8));
}

TEST_F(FlowTest, CutsWhatIsTallerThanAPage) {
    const QString text = QString(u"line\n"_s).repeated(40);
    const auto items =
        Build(QString(u"<group by=\"Ward\" keep-together=\"yes\"><header height=\"2\"/><detail height=\"4\">"
                      "<text x=\"0\" y=\"0\" width=\"20\">{Text}</text></detail></group>"_s),
              {{1, 1, text}, {1, 1, u"short"_s}}, 150);
    ASSERT_GT(items.size(), 4U);
    EXPECT_EQ(items[0].keepEnd, items.size());
    double top = 0;
    for (size_t i = 1; i + 1 < items.size(); ++i) {
        EXPECT_TRUE(items[i].isPiece);
        EXPECT_LE(double(items[i].height), 150);
        EXPECT_NEAR(double(items[i].top), top, 0.1);
        top += double(items[i].height);
    }
    EXPECT_FALSE(items.back().isPiece);
}
