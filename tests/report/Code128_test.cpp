#include "report/pages/Code128.h"
#include "report/pages/PageText.h"
#include "report/pages/PaintPage.h"
#include "report/template/TemplateAttributes.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/report/ReportFixture.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <gtest/gtest.h>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

QString WidthsOf(const QString& text) {
    QString written;
    for (const int width : Code128(text))
        written += QString::number(width);
    return written;
}

struct KnownBars {
    const char* name;
    QString text;
    /// Start character, the text's, check character, stop character; blanks between them.
    QString bars;
};

class Code128Bars : public testing::TestWithParam<KnownBars> {};

TEST_P(Code128Bars, AreTheStandards) {
    EXPECT_EQ(WidthsOf(GetParam().text), QString(GetParam().bars).remove(u' '));
}

INSTANTIATE_TEST_SUITE_P(Texts, Code128Bars,
                         testing::Values(
                             // Start B (104) + 1*33 + 2*34 + 3*35 = 310, 310 % 103 = 1.
                             KnownBars{"Letters", u"ABC"_s, u"211214 111323 131123 131321 222122 2331112"_s},
                             // Start C (105) + 1*12 + 2*34 = 185, 185 % 103 = 82.
                             KnownBars{"Digits", u"1234"_s, u"211232 112232 131123 121241 2331112"_s},
                             // Start C (105) + 1*42 = 147, 147 % 103 = 44.
                             KnownBars{"TwoDigitsAlone", u"42"_s, u"211232 112133 132131 2331112"_s},
                             // A slip's number: start B (104) + 1*40 + 2*18 + 3*20 + 4*23 + 5*18 + 6*35 =
                             // 632, 632 % 103 = 14. Four digits within are no shorter in set C.
                             KnownBars{"DigitsWithin", u"H2472C"_s,
                                       u"211214 231113 223211 221231 312131 223211 131321 122231 2331112"_s},
                             // An odd number of digits at the end: the first one stays in set B. Start B
                             // (104) + 1*33 + 2*17 + 3*99 + 4*23 + 5*45 = 785, 785 % 103 = 64.
                             KnownBars{"OddDigitsAtTheEnd", u"A12345"_s,
                                       u"211214 111323 123221 113141 312131 113123 111422 2331112"_s}),
                         CaseName());

TEST(Code128, EveryCharacterHasItsElevenModules) {
    for (char16_t c = u' '; c <= u'~'; ++c) {
        const std::vector<int> widths = Code128(QString(QChar(c)));
        // Start, the character, check, stop.
        ASSERT_EQ(widths.size(), 3 * 6u + 7u) << int(c);
        for (size_t character = 0; character < 3; ++character) {
            const auto begin = widths.begin() + ptrdiff_t(6 * character);
            EXPECT_EQ(std::accumulate(begin, begin + 6, 0), 11) << int(c);
            EXPECT_EQ((begin[0] + begin[2] + begin[4]) % 2, 0)
                << int(c) << ": the bars of a character are even";
        }
        EXPECT_EQ(std::accumulate(widths.end() - 7, widths.end(), 0), 13);
    }
}

TEST(Code128, WhatHasNoBarsGetsNone) {
    for (const QString& text : {QString(), u"Ñ"_s, u"A\tB"_s, u"1\u00a02"_s})
        EXPECT_TRUE(Code128(text).empty()) << text.toStdString();
}

/// What a page shows at a height in millimetres from its margin: the widths of ink and white in modules.
std::vector<int> ScannedWidths(const ReportDocument& document, double y, double module) {
    constexpr int kDots = 20;
    const double unit = MillimetresToPoints(1);
    QImage image((document.PageSize() * kDots).toSize(), QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(kDots, kDots);
    ReportFonts fonts;
    PaintPage(painter, document, 1, fonts);
    painter.end();
    const int row = int((document.Body().top() + y * unit) * kDots);
    std::vector<int> widths;
    int length = 0;
    bool isInk = false;
    for (int x = 0; x < image.width(); ++x) {
        const bool ink = qGray(image.pixel(x, row)) < 128;
        if (ink != isInk) {
            if (isInk || !widths.empty())
                widths.push_back(int(std::lround(length / (module * kDots))));
            length = 0;
            isInk = ink;
        }
        ++length;
    }
    return widths;
}

std::shared_ptr<const ReportDocument> DocumentWithBars(const QString& width) {
    return SmallDocument(u"<detail height=\"20\"><barcode x=\"5\" y=\"2\" width=\"%1\" "
                         "height=\"10\">{A}</barcode></detail>"_s.arg(width),
                         Rows({u"A"_s}, {{u"H2472C "_s}}));
}

TEST(Barcode, IsPaintedInItsModulesWithQuietZones) {
    const std::vector<int> bars = Code128(u"H2472C"_s);
    const int modules = std::accumulate(bars.begin(), bars.end(), 2 * kQuietModules);
    const double module = MillimetresToPoints(60) / modules;
    EXPECT_EQ(ScannedWidths(*DocumentWithBars(u"60"_s), 5, module), bars);
}

TEST(Barcode, IsFoundAndReadAsItsText) {
    ReportFonts fonts;
    EXPECT_TRUE(TextOfPage(*DocumentWithBars(u"60"_s), 1, fonts).contains(u"H2472C"_s));
}

TEST(Barcode, StandsInWordsWhereItsBarsWouldBeTooNarrow) {
    const auto scanned = ScannedWidths(*DocumentWithBars(u"15"_s), 5, 1);
    EXPECT_TRUE(scanned.empty()) << "half-way down a barcode there is no ink of a text";
    EXPECT_FALSE(ScannedWidths(*DocumentWithBars(u"15"_s), 3.5, 0.05).empty()) << "its words";
}

} // namespace
