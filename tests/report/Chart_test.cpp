#include "report/output/PdfJob.h"
#include "report/pages/ChartLayout.h"
#include "report/pages/PaintPage.h"
#include "report/template/TemplateReader.h"
#include "support/CaseName.h"
#include "support/report/ReportFixture.h"

#include <QImage>
#include <QPainter>
#include <QProcess>

#include <algorithm>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

QString ChartOf(const QString& attributes,
                const QString& series = u"<series value=\"Amount\"/><series value=\"Lost\"/>"_s) {
    return u"<report-footer height=\"60\"><chart x=\"0\" y=\"0\" width=\"90\" height=\"60\" by=\"Day\" %1>%2"
           "</chart></report-footer>"_s.arg(attributes, series);
}

/// A chart over rows, as the pages show it.
class Chart : public testing::Test {
  protected:
    void Make(const QString& attributes, const std::shared_ptr<const RowData>& shown) {
        rows = shown;
        document = SmallDocument(ChartOf(attributes), rows);
        band.emplace(document->BandsOf(1).at(0));
    }
    const BoundChart& Bound() const { return band->band->charts.at(0); }
    ChartData Data() const { return DataOf(Bound(), band->place); }
    LaidChart Laid() { return LayOutChart(Bound(), band->place, fonts); }
    QStringList Words() {
        QStringList words;
        for (const ChartWord& word : Laid().words)
            words << word.text;
        return words;
    }

    static std::shared_ptr<const RowData> ThreeDays() {
        return Rows({u"Ward"_s, u"Day"_s, u"Amount"_s, u"Lost"_s},
                    {{u"A"_s, u"MON"_s, Decimal{u"100.50"_s}, 10},
                     {u"B"_s, u"MON"_s, Decimal{u"50.00"_s}, Value()},
                     {u"A"_s, u"TUE"_s, Decimal{u"-40.00"_s}, 5},
                     {u"A"_s, u"WED"_s, Decimal{u"200.00"_s}, u"20"_s}});
    }

    std::shared_ptr<const RowData> rows;
    std::shared_ptr<const ReportDocument> document;
    std::optional<PageBand> band;
    ReportFonts fonts;
};

/// Pixels to the point.
constexpr int kMagnified = 4;

QImage Painted(const ReportDocument& document) {
    QImage paper(300 * kMagnified, 300 * kMagnified, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(kMagnified, kMagnified);
    ReportFonts fonts;
    PaintPage(painter, document, 1, fonts);
    return paper;
}

} // namespace

TEST_F(Chart, AddsUpTheRowsOfEachPlace) {
    Make(u"kind=\"bars\""_s, ThreeDays());
    const ChartData data = Data();
    EXPECT_THAT(data.labels, ElementsAre(u"MON"_s, u"TUE"_s, u"WED"_s));
    EXPECT_THAT(data.values[0], ElementsAre(150.5, -40, 200));
    EXPECT_THAT(data.values[1], ElementsAre(10, 5, 20));
}

TEST_F(Chart, CountsOnlyTheRowsThatShowAText) {
    Make(u"kind=\"bars\" only=\"Ward\" is=\"A\""_s, ThreeDays());
    EXPECT_THAT(Data().values[0], ElementsAre(100.5, -40, 200));
}

TEST_F(Chart, WritesAnotherColumnBelowItsPlaces) {
    Make(u"kind=\"bars\" label=\"Lost\""_s, ThreeDays());
    EXPECT_THAT(Data().labels, ElementsAre(u"10"_s, u"5"_s, u"20"_s));
}

TEST_F(Chart, ShowsTheRowsOfItsGroupAlone) {
    document = SmallDocument(u"<group by=\"Day\"><footer height=\"40\"><chart x=\"0\" y=\"0\" width=\"90\" "
                             "height=\"40\" kind=\"bars\" by=\"Ward\"><series value=\"Amount\"/></chart>"
                             "</footer></group>"_s,
                             ThreeDays());
    const PageBand first = document->BandsOf(1).at(0);
    EXPECT_THAT(DataOf(first.band->charts.at(0), first.place).labels, ElementsAre(u"A"_s, u"B"_s));
}

TEST_F(Chart, HasBarsFromZeroUpAndDownWithinItsField) {
    Make(u"kind=\"bars\""_s, ThreeDays());
    const LaidChart laid = Laid();
    ASSERT_EQ(laid.bars.size(), 6U);
    EXPECT_NEAR(laid.bars[0].box.bottom(), laid.zero, 1e-6);
    EXPECT_NEAR(laid.bars[1].box.top(), laid.zero, 1e-6) << "below zero";
    EXPECT_NEAR(laid.bars[2].box.height() / laid.bars[0].box.height(), 200 / 150.5, 1e-6);
    EXPECT_LT(laid.bars[0].box.right(), laid.bars[3].box.right() + 1e-6) << "the second series stands beside";
    for (const ChartBar& bar : laid.bars)
        EXPECT_TRUE(laid.plot.adjusted(-0.01, -0.01, 0.01, 0.01).contains(bar.box));
}

TEST_F(Chart, StacksOneSeriesUponTheOther) {
    Make(u"kind=\"stacked\""_s, ThreeDays());
    const LaidChart laid = Laid();
    ASSERT_EQ(laid.bars.size(), 6U);
    EXPECT_NEAR(laid.bars[1].box.bottom(), laid.bars[0].box.top(), 1e-6);
    EXPECT_EQ(laid.bars[1].box.left(), laid.bars[0].box.left());
}

TEST_F(Chart, DrawsALineThroughItsValues) {
    Make(u"kind=\"line\""_s, ThreeDays());
    const LaidChart laid = Laid();
    ASSERT_EQ(laid.lines.size(), 2U);
    EXPECT_EQ(laid.lines[0].size(), 3U);
    EXPECT_GT(laid.lines[0][1].y(), laid.zero);
}

TEST_F(Chart, HasRoundMarksALegendAndItsWordsWithinItsBox) {
    Make(u"kind=\"bars\" title=\"Days\" format=\"#,##0.00\""_s, ThreeDays());
    EXPECT_THAT(Words(), testing::IsSupersetOf({u"Days"_s, u"Amount"_s, u"Lost"_s, u"MON"_s, u"WED"_s,
                                                u"-50.00"_s, u"0.00"_s, u"200.00"_s}));
    EXPECT_EQ(Laid().keys.size(), 2U);
    const QRectF box = Bound().read->box.adjusted(-0.1, -0.1, 0.1, 0.1);
    for (const ChartWord& word : Laid().words) {
        EXPECT_TRUE(box.contains(word.start)) << word.text.toStdString();
        EXPECT_LE(word.start.x() + Laid().font->Width(word.text), box.right()) << word.text.toStdString();
    }
}

TEST_F(Chart, LeavesLabelsOutThatWouldRunIntoEachOther) {
    std::vector<std::vector<Value>> days;
    for (int i = 1; i <= 31; ++i)
        days.push_back({u"A"_s, u"10/%1/2026"_s.arg(i, 2, 10, QChar(u'0')), i, i});
    Make(u"kind=\"bars\""_s, Rows({u"Ward"_s, u"Day"_s, u"Amount"_s, u"Lost"_s}, days));
    double last = -1;
    int written = 0;
    for (const ChartWord& word : Laid().words) {
        if (!word.text.startsWith(u"10/"_s))
            continue;
        EXPECT_GT(word.start.x(), last) << word.text.toStdString();
        last = word.start.x() + Laid().font->Width(word.text);
        ++written;
    }
    EXPECT_GT(written, 3);
    EXPECT_EQ(Laid().bars.size(), 62U);
}

TEST_F(Chart, WithMoreValuesThanItCanTellApartSaysSo) {
    std::vector<std::vector<Value>> many;
    for (int i = 0; i < 2000; ++i)
        many.push_back({u"A"_s, i, 1, 1});
    Make(u"kind=\"bars\""_s, Rows({u"Ward"_s, u"Day"_s, u"Amount"_s, u"Lost"_s}, many));
    EXPECT_TRUE(Words().contains(u"2000 values are too many for this chart."_s));
    EXPECT_TRUE(Laid().bars.empty());
}

TEST_F(Chart, WithoutRowsSaysSo) {
    Make(u"kind=\"bars\""_s, Rows({u"Ward"_s, u"Day"_s, u"Amount"_s, u"Lost"_s}));
    EXPECT_TRUE(Words().contains(u"No values"_s));
    EXPECT_EQ(WordsOf(Bound(), band->place), u"[Chart: by Day; no values]"_s);
}

TEST_F(Chart, OfNothingButZeroesStandsAllTheSame) {
    Make(u"kind=\"stacked\""_s,
         Rows({u"Ward"_s, u"Day"_s, u"Amount"_s, u"Lost"_s}, {{u"A"_s, u"MON"_s, 0, Value()}}));
    EXPECT_TRUE(Laid().bars.empty());
    EXPECT_TRUE(Laid().plot.contains(QPointF(Laid().plot.center().x(), Laid().zero)));
}

TEST_F(Chart, IsOneLineWhereThePageIsReadAsText) {
    Make(u"kind=\"bars\" title=\"Days\""_s, ThreeDays());
    EXPECT_EQ(PageText(*document, 1), u"[Chart: Days; Amount from -40 to 200, Lost from 5 to 20]\n"_s);
}

TEST_F(Chart, IsPaintedOnThePageInInksThatNeedNoColour) {
    Make(u"kind=\"bars\""_s,
         Rows({u"Ward"_s, u"Day"_s, u"Amount"_s, u"Lost"_s}, {{u"A"_s, u"MON"_s, 90, 80}}));
    const LaidChart laid = Laid();
    const QImage paper = Painted(*document);
    const auto ink = [&paper](const QRectF& bar) {
        const QRectF box(bar.topLeft() * kMagnified, bar.size() * kMagnified);
        int dark = 0;
        int all = 0;
        for (int y = int(box.top()) + 2; y < int(box.bottom()) - 2; ++y) {
            for (int x = int(box.left()) + 2; x < int(box.right()) - 2; ++x, ++all)
                dark += qGray(paper.pixel(x, y)) < 128;
        }
        return double(dark) / all;
    };
    ASSERT_EQ(laid.bars.size(), 2U);
    EXPECT_EQ(ink(laid.bars[0].box), 1) << "the first series is dark";
    EXPECT_LT(ink(laid.bars[1].box), 0.8) << "the second one is stroked";
    EXPECT_GT(ink(laid.bars[1].box), 0.05);
}

TEST_F(Chart, IsInThePdf) {
    Make(u"kind=\"bars\" title=\"Days\""_s, ThreeDays());
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"chart.pdf"_s);
    EXPECT_EQ(PdfJob(*document, {}, file).Finish(), QString());
    const QString text = TextOfPdf(file);
    EXPECT_TRUE(text.contains(u"Days"_s) && text.contains(u"WED"_s)) << text.toStdString();
}

TEST_F(Chart, MovesDownWithTheTextThatGrowsAboveIt) {
    const auto parts = [](const QString& text) {
        return u"<report-footer height=\"50\"><text x=\"0\" y=\"0\" width=\"30\">%1</text><chart x=\"0\" y=\"10\" "
               "width=\"90\" height=\"40\" kind=\"bars\" by=\"Day\"><series value=\"Amount\"/></chart>"
               "</report-footer>"_s.arg(text);
    };
    const auto darkest = [](const QImage& paper) {
        for (int y = paper.height() - 1; y > 0; --y) {
            if (qGray(paper.pixel(150 * kMagnified, y)) < 128)
                return y;
        }
        return 0;
    };
    const int before = darkest(Painted(*SmallDocument(parts(u"A"_s), ThreeDays())));
    const int after = darkest(Painted(*SmallDocument(parts(u"A\nB\nC\nD"_s), ThreeDays())));
    EXPECT_GT(after, before + 20 * kMagnified);
}

namespace {

struct BadChart {
    const char* name;
    QString parts;
    QString told;
};

class BadCharts : public testing::TestWithParam<BadChart> {};

} // namespace

TEST_P(BadCharts, AreToldWithFileAndLine) {
    const QString told = TextOfFailure([] {
        SmallDocument(GetParam().parts, Rows({u"Day"_s, u"Amount"_s}));
    });
    EXPECT_TRUE(told.contains(u", line 1: "_s + GetParam().told) || told.contains(u": "_s + GetParam().told))
        << told.toStdString();
    EXPECT_TRUE(told.contains(u"line "_s)) << told.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, BadCharts,
    testing::Values(
        BadChart{"Kind", ChartOf(u"kind=\"pie\""_s),
                 u"The attribute \"kind\" of <chart> is \"pie\" and must be one of bars, stacked, line."_s},
        BadChart{"NoKind", ChartOf({}), u"<chart> needs the attribute \"kind\"."_s},
        BadChart{"NoSeries", ChartOf(u"kind=\"bars\""_s, {}), u"A chart has one to 4 <series>."_s},
        BadChart{"FiveSeries", ChartOf(u"kind=\"bars\""_s, u"<series value=\"Amount\"/>"_s.repeated(5)),
                 u"A chart has one to 4 <series>."_s},
        BadChart{"OtherElement", ChartOf(u"kind=\"bars\""_s, u"<text/>"_s),
                 u"The element <text> does not belong here."_s},
        BadChart{"SeriesWithoutValue", ChartOf(u"kind=\"bars\""_s, u"<series/>"_s),
                 u"<series> needs the attribute \"value\"."_s},
        BadChart{"UnknownColumn", ChartOf(u"kind=\"bars\""_s, u"<series value=\"Nothing\"/>"_s),
                 u"The rows have no field \"Nothing\"."_s},
        BadChart{"OnlyWithoutText", ChartOf(u"kind=\"bars\" only=\"Day\""_s),
                 u"\"only\" and \"is\" go together: a column and the text that it shows."_s},
        BadChart{"UnknownAttribute", ChartOf(u"kind=\"bars\" colour=\"red\""_s),
                 u"<chart> has no attribute \"colour\"."_s},
        BadChart{"NoSize", ChartOf(u"kind=\"bars\" size=\"0\""_s),
                 u"The attribute \"size\" must be above 0."_s},
        BadChart{"InADetail",
                 u"<detail height=\"40\"><chart x=\"0\" y=\"0\" width=\"90\" height=\"40\"/></detail>"_s,
                 u"A chart stands in the header or the footer of a group or of the report."_s},
        BadChart{
            "AtThePagesEdge",
            u"<page-footer height=\"40\"><chart x=\"0\" y=\"0\" width=\"90\" height=\"40\"/></page-footer>"_s,
            u"A chart stands in the header or the footer of a group or of the report."_s},
        BadChart{
            "TooSmall",
            u"<report-footer height=\"40\"><chart x=\"0\" y=\"0\" width=\"90\" height=\"10\"/></report-footer>"_s,
            u"A chart is at least 20 mm wide and high."_s},
        BadChart{
            "TooWide",
            u"<report-footer height=\"40\"><chart x=\"20\" y=\"0\" width=\"90\" height=\"40\"/></report-footer>"_s,
            u"This reaches beyond the right margin."_s},
        BadChart{
            "BelowItsBand",
            u"<report-footer height=\"30\"><chart x=\"0\" y=\"0\" width=\"90\" height=\"40\" kind=\"bars\" "
            "by=\"Day\"><series value=\"Amount\"/></chart></report-footer>"_s,
            u"This chart reaches below the height of its band."_s}),
    CaseName());

TEST(ReportTitle, CannotShowWhatChangesFromPageToPage) {
    for (const QString& piece : {u"{page}"_s, u"{A}"_s, u"{sum A}"_s, u"{count}"_s}) {
        QByteArray content = SmallTemplate({});
        content.replace("<report ", "<report title=\"" + piece.toUtf8() + "\" ");
        EXPECT_TRUE(TextOfFailure([&] {
                        ReadTemplate(u"t"_s, content);
                    }).contains(u"t, line 1: The title cannot show page numbers"_s))
            << piece.toStdString();
    }
}
