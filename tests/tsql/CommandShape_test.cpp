#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "tsql/CommandShape.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct TwoTexts {
    std::string name;
    QString one;
    QString other;
};

class SameShape : public testing::TestWithParam<TwoTexts> {};
class OtherShape : public testing::TestWithParam<TwoTexts> {};

} // namespace

TEST_P(SameShape, HasOneKey) {
    EXPECT_EQ(CommandShape(GetParam().one).Key(), CommandShape(GetParam().other).Key());
}

INSTANTIATE_TEST_SUITE_P(CommandShape, SameShape,
                         testing::Values(TwoTexts{"Texts", u"select 'a'"_s, u"select 'it''s longer'"_s},
                                         TwoTexts{"Numbers", u"select 17, 2.50"_s, u"select 23, 9.75"_s},
                                         TwoTexts{"BlanksAndComments", u"select  2 -- two"_s,
                                                  u"select/**/3"_s},
                                         TwoTexts{"Calls", u"A..sp '1', 2"_s, u"A..sp 'x', 9"_s},
                                         TwoTexts{"Signs", u"select -2"_s, u"select - 3"_s}),
                         CaseName());

TEST_P(OtherShape, HasAnotherKey) {
    EXPECT_NE(CommandShape(GetParam().one).Key(), CommandShape(GetParam().other).Key());
}

INSTANTIATE_TEST_SUITE_P(
    CommandShape, OtherShape,
    testing::Values(
        TwoTexts{"Names", u"select a"_s, u"select b"_s}, TwoTexts{"LetterCase", u"select a"_s, u"select A"_s},
        TwoTexts{"NationalText", u"select 'a'"_s, u"select N'a'"_s},
        TwoTexts{"TextBeyondTheServers", u"select 'a'"_s, u"select '"_s + QString(8001, u'a') + u'\''},
        TwoTexts{"NumberAndText", u"select 2"_s, u"select '2'"_s},
        TwoTexts{"Digits", u"select 9"_s, u"select 10"_s},
        TwoTexts{"Scale", u"select 2.5"_s, u"select 2.50"_s},
        TwoTexts{"Exponent", u"select 25.0"_s, u"select 2e1"_s},
        TwoTexts{"WholeNumberTooLong", u"select 2147483647"_s, u"select 2147483648"_s},
        TwoTexts{"Flags", u"select 0"_s, u"select 1"_s},
        TwoTexts{"FlagAndNumber", u"select 1"_s, u"select 2"_s},
        TwoTexts{"NumberTooLarge", u"select 1e300"_s, u"select 1e999"_s},
        TwoTexts{"OtherNumberTooLarge", u"select 2e999"_s, u"select 1e999"_s},
        TwoTexts{"Sign", u"select -2"_s, u"select 2"_s}, TwoTexts{"Null", u"select 'a'"_s, u"select null"_s},
        TwoTexts{"WordsRunTogether", u"select a b"_s, u"select ab"_s},
        TwoTexts{"NameInBrackets", u"select a"_s, u"select [a]"_s},
        TwoTexts{"GroupedTexts", u"select 'a' group by x"_s, u"select 'b' group by x"_s},
        TwoTexts{"DistinctTexts", u"select distinct 'a'"_s, u"select distinct 'b'"_s},
        TwoTexts{"ManyLiterals", u"select "_s + QStringList(101, u"2"_s).join(u','),
                 u"select "_s + QStringList(101, u"3"_s).join(u',')},
        TwoTexts{"OpenQuote", u"select 'a"_s, u"select 'a'"_s}),
    CaseName());

TEST(CommandShape, LiteralsInTheOrderInWhichTheyAreWritten) {
    const QString text = u"select N'ñ''', 12.5 where x = 7 and y = 1"_s;
    const CommandShape shape(text);
    ASSERT_EQ(shape.Literals().size(), 3U);
    EXPECT_EQ(shape.Literals()[0].value, Cell(QByteArray("\xC3\xB1'")));
    EXPECT_EQ(shape.Literals()[0].type, (SqlType{SqlType::Kind::NVarChar, 4000, 0, 0}));
    EXPECT_EQ(shape.Literals()[1].value, Cell(qint64(125)));
    EXPECT_EQ(shape.Literals()[2].value, Cell(qint64(7)));
}

TEST(CommandShape, PiecesBearTheNumbersOfTheirLiterals) {
    const QString text = u"select 'a', 1, 7"_s;
    const CommandShape shape(text);
    std::vector<int> numbers;
    for (const Token& token : shape.Tokens())
        numbers.push_back(token.literal);
    EXPECT_EQ(numbers, (std::vector{-1, 0, -1, -1, -1, 1, -1}));
}

TEST(CommandShape, SomeLiteralsCountToo) {
    const QString one = u"select 'a', 'b', 'c'"_s;
    const QString other = u"select 'a', 'x', 'c'"_s;
    EXPECT_EQ(CommandShape(one).KeyWith({0, 2}), CommandShape(other).KeyWith({0, 2}));
    EXPECT_NE(CommandShape(one).KeyWith({1}), CommandShape(other).KeyWith({1}));
    const QString doubled = u"select 'a', 'a', 'a'"_s;
    EXPECT_NE(CommandShape(doubled).KeyWith({0}), CommandShape(doubled).KeyWith({1}));
    EXPECT_EQ(CommandShape(one).KeyWith({}), CommandShape(one).Key());
}
