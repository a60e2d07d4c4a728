#include "BandFixture.h"
#include "report/pages/BandMeasure.h"
#include "support/CaseName.h"

#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString kLongText = u"HEMODIALYSIS TREATMENT WITH HIGH FLUX DIALYZER AND ERYTHROPOIETIN"_s;

struct Measured {
    std::string name;
    Value value;
    QString format;
    /// Millimetres.
    int width;
};

/// The quick measuring must tell what the layout then does.
class BandMeasureTest : public BandTest, public testing::WithParamInterface<Measured> {};

} // namespace

TEST_P(BandMeasureTest, AgreesWithTheLayout) {
    a = GetParam().value;
    Read(u"<text x=\"0\" y=\"0\" width=\"%1\" format=\"%2\">{A}</text>"_s.arg(GetParam().width)
             .arg(GetParam().format));
    EXPECT_EQ(Measured(), Laid().height);
}

TEST_P(BandMeasureTest, AgreesWithTheLayoutWhateverTheWidth) {
    a = GetParam().value;
    for (int tenths = 30; tenths <= 600; tenths += 5) {
        Read(u"<text x=\"0\" y=\"0\" width=\"%1\" format=\"%2\">{A}</text>"_s.arg(tenths / 10.0)
                 .arg(GetParam().format));
        EXPECT_EQ(Measured(), Laid().height) << tenths;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Values, BandMeasureTest,
    testing::Values(
        Measured{"Null", Value(), u""_s, 10}, Measured{"ShortText", u"HC"_s, u""_s, 10},
        Measured{"LongText", kLongText, u""_s, 30}, Measured{"TextWithALineBreak", u"a\nb"_s, u""_s, 90},
        Measured{"TextBeyondLatin", u"₱₱₱₱₱₱₱₱₱₱₱₱"_s, u""_s, 10},
        Measured{"MoneyThatFits", Decimal{u"1250.5000"_s}, u"#,##0.00"_s, 20},
        Measured{"MoneyThatDoesNot", Decimal{u"123456789012.5000"_s}, u"#,##0.00"_s, 10},
        Measured{"MoneyByACommaTooWide", Decimal{u"1000000.0000"_s}, u"#,##0.00"_s, 16},
        Measured{"MoneyThatIsRoundedUpToOneDigitMore", Decimal{u"-999999.9990"_s}, u"#,##0.00"_s, 16},
        Measured{"Percentage", Decimal{u"99999.5000"_s}, u"#,##0.00%"_s, 16},
        Measured{"DecimalWithOptionalPlaces", Decimal{u"1250.123456789"_s}, u"#,##0.#########"_s, 16},
        Measured{"DateWithTime", *DateTime::FromFields({2026, 10, 28, 23, 58, 59, 0}),
                 u"mm/dd/yyyy hh:mm AM/PM"_s, 33},
        Measured{"DateOfTheRunTime", *DateTime::FromFields({2026, 10, 28, 10, 58, 59, 0}), u""_s, 33},
        Measured{"NumericText", u"123456789012"_s, u"#,##0.00"_s, 10},
        Measured{"OtherTextInANumberFormat", kLongText, u"#,##0.00"_s, 40},
        Measured{"ShortTextInAWideNumberFormat", u"5"_s, u"0.000000000000"_s, 10},
        Measured{"Date", DateTime(), u"dddd, mmmm d, yyyy"_s, 20},
        Measured{"DateThatFits", DateTime(), u"mm/dd/yyyy"_s, 25},
        Measured{"DateText", u"2026-11-21"_s, u"dddd, mmmm d, yyyy"_s, 20},
        Measured{"WholeNumber", qint64(1234567890123), u"#,##0"_s, 15},
        Measured{"SmallestWholeNumber", std::numeric_limits<qint64>::min(), u"#,##0"_s, 15},
        Measured{"SmallWholeNumber", qint64(-7), u"#,##0"_s, 15},
        Measured{"FloatingNumber", 1234567890.25, u"#,##0.00"_s, 15},
        Measured{"FloatingNumberWithoutFormat", 0.1234567890123, u""_s, 15},
        Measured{"Bool", true, u""_s, 4}),
    CaseName());

TEST_F(BandTest, MeasuresMixedTextsAndSums) {
    a = Decimal{u"123456789.0000"_s};
    Read(
        u"<text x=\"0\" y=\"0\" width=\"20\">Total of the patient: {A}</text><text x=\"30\" y=\"0\" width=\"12\" format=\"0.00\">{sum A}</text>"_s);
    EXPECT_GT(Laid().height, Band().read->height);
    EXPECT_EQ(Measured(), Laid().height);
}

TEST_F(BandTest, MeasuresWordsThatAlwaysWrap) {
    Read(u"<text x=\"0\" y=\"0\" width=\"10\">Professional fee of the doctor</text>"_s);
    EXPECT_GT(Measured(), Band().read->height);
    EXPECT_EQ(Measured(), Laid().height);
}

TEST_F(BandTest, MeasuresTheCommasOfALongNumber) {
    a = Decimal{u"100000000000000000000000000000"_s};
    Read(u"<text x=\"0\" y=\"0\" width=\"72\" font=\"Liberation Mono\" format=\"#,##0\">{A}</text>"_s);
    EXPECT_GT(Laid().height, Band().read->height);
    EXPECT_EQ(Measured(), Laid().height);
}
