#include "gateway/SqlLexer.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString KindName(TokenKind kind) {
    switch (kind) {
    case TokenKind::Word:
        return u"word"_s;
    case TokenKind::Name:
        return u"name"_s;
    case TokenKind::Text:
        return u"text"_s;
    case TokenKind::Number:
        return u"number"_s;
    case TokenKind::Parameter:
        return u"parameter"_s;
    case TokenKind::Operator:
        return u"operator"_s;
    case TokenKind::UnclosedQuote:
        return u"unclosed quote"_s;
    case TokenKind::UnclosedComment:
        return u"unclosed comment"_s;
    case TokenKind::Unknown:
        return u"unknown"_s;
    case TokenKind::End:
        return u"end"_s;
    }
    return {};
}

/// The tokens without the End, as "kind:content".
QStringList Described(const QString& text) {
    QStringList described;
    for (const Token& token : LexSql(text)) {
        if (token.kind != TokenKind::End)
            described << KindName(token.kind) + u':' + token.Content();
    }
    return described;
}

struct LexerCase {
    std::string name;
    QString text;
    QStringList tokens;
};

class SqlLexer : public testing::TestWithParam<LexerCase> {};

} // namespace

TEST_P(SqlLexer, CutsTheTextIntoItsPieces) {
    EXPECT_EQ(Described(GetParam().text), GetParam().tokens);
}

INSTANTIATE_TEST_SUITE_P(
    Pieces, SqlLexer,
    testing::Values(
        LexerCase{"Nothing", u""_s, {}}, LexerCase{"Blanks", u" \t\r\n "_s, {}},
        LexerCase{"TwoDotName",
                  u"RADIOLOGY..spRadio_CheckPending"_s,
                  {u"word:RADIOLOGY"_s, u"operator:."_s, u"operator:."_s, u"word:spRadio_CheckPending"_s}},
        LexerCase{"BlanksInsideATextAreKept", u"'  a  b '"_s, {u"text:  a  b "_s}},
        LexerCase{"DoubledQuoteIsOne", u"'O''Brien'"_s, {u"text:O'Brien"_s}},
        LexerCase{"EmptyText", u"''"_s, {u"text:"_s}},
        LexerCase{"TwoTextsSideBySide", u"'a' 'b'"_s, {u"text:a"_s, u"text:b"_s}},
        LexerCase{"WordRightBehindAText", u"'a'and"_s, {u"text:a"_s, u"word:and"_s}},
        LexerCase{"NationalText", u"N'Ñ'"_s, {u"text:Ñ"_s}},
        LexerCase{"WordThatBeginsWithN", u"Name"_s, {u"word:Name"_s}},
        LexerCase{"Brackets", u"[hospital #]"_s, {u"name:hospital #"_s}},
        LexerCase{"DoubledBracketIsOne", u"[a]]b]"_s, {u"name:a]b"_s}},
        LexerCase{"DoubleQuotesAreAName", u"\"a\"\"b\""_s, {u"name:a\"b"_s}},
        LexerCase{"Numbers",
                  u"1 12.5 .5 3. 1e5 1.5E-3"_s,
                  {u"number:1"_s, u"number:12.5"_s, u"number:.5"_s, u"number:3."_s, u"number:1e5"_s,
                   u"number:1.5E-3"_s}},
        LexerCase{"LetterEBehindANumberIsNoExponent", u"1e"_s, {u"number:1"_s, u"word:e"_s}},
        LexerCase{"Parameters", u"@HospNum @@x"_s, {u"parameter:@HospNum"_s, u"parameter:@@x"_s}},
        LexerCase{"Operators",
                  u"<= <> != = < ( ) , ;"_s,
                  {u"operator:<="_s, u"operator:<>"_s, u"operator:!="_s, u"operator:="_s, u"operator:<"_s,
                   u"operator:("_s, u"operator:)"_s, u"operator:,"_s, u"operator:;"_s}},
        LexerCase{"LineComment", u"a -- 'not a text\nb"_s, {u"word:a"_s, u"word:b"_s}},
        LexerCase{"LineCommentAtTheEnd", u"a --'"_s, {u"word:a"_s}},
        LexerCase{"NestedComment", u"a /* b /* c */ d */ e"_s, {u"word:a"_s, u"word:e"_s}},
        LexerCase{"CommentSignInsideAText", u"'--' '/*'"_s, {u"text:--"_s, u"text:/*"_s}},
        LexerCase{"UnclosedText", u"a 'b c"_s, {u"word:a"_s, u"unclosed quote:b c"_s}},
        LexerCase{"UnclosedAfterDoubledQuote", u"'b''"_s, {u"unclosed quote:b'"_s}},
        LexerCase{"UnclosedBracket", u"[b"_s, {u"unclosed quote:b"_s}},
        LexerCase{"LoneQuote", u"'"_s, {u"unclosed quote:"_s}},
        LexerCase{"UnclosedComment", u"a /* b"_s, {u"word:a"_s, u"unclosed comment:/* b"_s}},
        LexerCase{"UnclosedInnerComment", u"/* /* */"_s, {u"unclosed comment:/* /* */"_s}},
        LexerCase{"UnknownSigns", u"? {"_s, {u"unknown:?"_s, u"unknown:{"_s}}),
    CaseName());

TEST(SqlLexerPlace, TokensKnowPositionAndLine) {
    const std::vector<Token> tokens = LexSql(u"a\n'b\nc' /* \n */ d");
    ASSERT_EQ(tokens.size(), 4U);
    EXPECT_EQ(tokens[1].position, 2);
    EXPECT_EQ(tokens[1].line, 2);
    EXPECT_EQ(tokens[2].line, 4);
    EXPECT_EQ(tokens[3].kind, TokenKind::End);
}

TEST(SqlLexerPlace, NationalTextsAreMarked) {
    EXPECT_TRUE(LexSql(u"N'a'")[0].national);
    EXPECT_FALSE(LexSql(u"'a'")[0].national);
}

TEST(SqlLexerKeyword, IsFoundInAnyCaseButNotInBrackets) {
    EXPECT_TRUE(LexSql(u"SeLeCt")[0].Is(u"select"));
    EXPECT_FALSE(LexSql(u"[select]")[0].Is(u"select"));
}
