#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "tsql/CommandShape.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Pair {
    std::string name;
    QString one;
    QString other;
};

class SameShape : public testing::TestWithParam<Pair> {};
class OtherShape : public testing::TestWithParam<Pair> {};

} // namespace

TEST_P(SameShape, HasOneKey) {
    EXPECT_EQ(CommandShape(GetParam().one).Key(), CommandShape(GetParam().other).Key());
}

INSTANTIATE_TEST_SUITE_P(CommandShape, SameShape,
                         testing::Values(Pair{"Texts", u"select 'a'"_s, u"select 'it''s longer'"_s},
                                         Pair{"Numbers", u"select 17, 2.50"_s, u"select 23, 9.75"_s},
                                         Pair{"BlanksAndComments", u"select  2 -- two"_s, u"select/**/3"_s},
                                         Pair{"Calls", u"A..sp '1', 2"_s, u"A..sp 'x', 9"_s},
                                         Pair{"Signs", u"select -2"_s, u"select - 3"_s}),
                         CaseName());

TEST_P(OtherShape, HasAnotherKey) {
    EXPECT_NE(CommandShape(GetParam().one).Key(), CommandShape(GetParam().other).Key());
}

INSTANTIATE_TEST_SUITE_P(
    CommandShape, OtherShape,
    testing::Values(
        Pair{"Names", u"select a"_s, u"select b"_s}, Pair{"LetterCase", u"select a"_s, u"select A"_s},
        Pair{"NationalText", u"select 'a'"_s, u"select N'a'"_s},
        Pair{"TextBeyondTheServers", u"select 'a'"_s, u"select '"_s + QString(8001, u'a') + u'\''},
        Pair{"NumberAndText", u"select 2"_s, u"select '2'"_s}, Pair{"Digits", u"select 9"_s, u"select 10"_s},
        Pair{"Scale", u"select 2.5"_s, u"select 2.50"_s}, Pair{"Exponent", u"select 25.0"_s, u"select 2e1"_s},
        Pair{"WholeNumberTooLong", u"select 2147483647"_s, u"select 2147483648"_s},
        Pair{"Flags", u"select 0"_s, u"select 1"_s}, Pair{"FlagAndNumber", u"select 1"_s, u"select 2"_s},
        Pair{"NumberTooLarge", u"select 1e300"_s, u"select 1e999"_s},
        Pair{"OtherNumberTooLarge", u"select 2e999"_s, u"select 1e999"_s},
        Pair{"Sign", u"select -2"_s, u"select 2"_s}, Pair{"Null", u"select 'a'"_s, u"select null"_s},
        Pair{"WordsRunTogether", u"select a b"_s, u"select ab"_s},
        Pair{"NameInBrackets", u"select a"_s, u"select [a]"_s},
        Pair{"GroupedTexts", u"select 'a' group by x"_s, u"select 'b' group by x"_s},
        Pair{"DistinctTexts", u"select distinct 'a'"_s, u"select distinct 'b'"_s},
        Pair{"ManyLiterals", u"select "_s + QStringList(101, u"2"_s).join(u','),
             u"select "_s + QStringList(101, u"3"_s).join(u',')},
        Pair{"OpenQuote", u"select 'a"_s, u"select 'a'"_s}),
    CaseName());

TEST(CommandShape, LiteralsInTheOrderInWhichTheyAreWritten) {
    const QString text = u"select N'ñ''', 12.5 where x = 7 and y = 1"_s;
    const CommandShape shape(text);
    ASSERT_EQ(shape.Literals().size(), 3U);
    EXPECT_EQ(shape.Literals()[0].value, Cell(QByteArray("\xC3\xB1'")));
    EXPECT_EQ(shape.Literals()[0].type, (SqlType{SqlType::Kind::NVarChar, 4000, 0, 0}));
    EXPECT_EQ(shape.Literals()[1].value, Cell(12.5));
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
