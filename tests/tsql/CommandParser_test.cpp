#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "tsql/CommandParser.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ProcedureCall ParsedCall(const QString& text) {
    TokenCursor cursor(text);
    return std::get<ProcedureCall>(CommandParser(cursor).ParseCommand());
}

struct CallCase {
    std::string name;
    QString text;
    QString database;
    QString owner;
    QString object;
    QStringList arguments;
};

class CallText : public testing::TestWithParam<CallCase> {};

struct BadCommand {
    std::string name;
    QString text;
    int number;
    QString near;
};

class CommandFailure : public testing::TestWithParam<BadCommand> {};

/// A literal as it is written, texts without quotes.
QString Written(const Expression& value) {
    if (const auto* text = value.As<TextNode>())
        return text->text;
    if (const auto* number = value.As<NumberNode>())
        return number->written;
    if (const auto* negation = value.As<NegationNode>())
        return u'-' + Written(*negation->operand);
    return value.As<NullNode>() ? u"null"_s : u"no literal"_s;
}

QString Described(const CallArgument& argument) {
    const QString name = argument.name.isEmpty() ? QString() : argument.name + u'=';
    return name + Written(*argument.value);
}

} // namespace

TEST_P(CallText, IsRead) {
    const ProcedureCall call = ParsedCall(GetParam().text);
    EXPECT_EQ(call.procedure.database, GetParam().database);
    EXPECT_EQ(call.procedure.owner, GetParam().owner);
    EXPECT_EQ(call.procedure.object, GetParam().object);
    QStringList arguments;
    for (const CallArgument& argument : call.arguments)
        arguments << Described(argument);
    EXPECT_EQ(arguments, GetParam().arguments);
}

INSTANTIATE_TEST_SUITE_P(
    Calls, CallText,
    testing::Values(
        CallCase{"Bare",
                 u"Clinical_Area..spEarCare_NurseRequest"_s,
                 u"Clinical_Area"_s,
                 u""_s,
                 u"spEarCare_NurseRequest"_s,
                 {}},
        CallCase{"OneArgument",
                 u"RADIOLOGY..spRadio_CheckPending 'HC'"_s,
                 u"RADIOLOGY"_s,
                 u""_s,
                 u"spRadio_CheckPending"_s,
                 {u"HC"_s}},
        CallCase{"BothKindsOfCommas",
                 u"a..p 'x','y', 'z' , ''"_s,
                 u"a"_s,
                 u""_s,
                 u"p"_s,
                 {u"x"_s, u"y"_s, u"z"_s, u""_s}},
        CallCase{"Owner", u"a.dbo.p 'x'"_s, u"a"_s, u"dbo"_s, u"p"_s, {u"x"_s}},
        CallCase{"NoDatabase", u"p"_s, u""_s, u""_s, u"p"_s, {}},
        CallCase{"OwnerAlone", u"dbo.p"_s, u""_s, u"dbo"_s, u"p"_s, {}},
        CallCase{"Exec", u"exec a..p 1"_s, u"a"_s, u""_s, u"p"_s, {u"1"_s}},
        CallCase{"Execute", u"EXECUTE a..p 1;"_s, u"a"_s, u""_s, u"p"_s, {u"1"_s}},
        CallCase{"Kinds",
                 u"a..p NULL, -1.5, +2, N'ñ', word"_s,
                 u"a"_s,
                 u""_s,
                 u"p"_s,
                 {u"null"_s, u"-1.5"_s, u"2"_s, u"ñ"_s, u"word"_s}},
        CallCase{
            "Names", u"a..p 'x', @b = 'y', @c=3"_s, u"a"_s, u""_s, u"p"_s, {u"x"_s, u"@b=y"_s, u"@c=3"_s}},
        CallCase{"Brackets", u"[a b]..[p q] 'x'"_s, u"a b"_s, u""_s, u"p q"_s, {u"x"_s}}),
    CaseName());

TEST_P(CommandFailure, NamesWhereItFailed) {
    const RaisedError failure = FailureOf([] {
        TokenCursor cursor(GetParam().text);
        CommandParser(cursor).ParseCommand();
    });
    EXPECT_EQ(failure.number, GetParam().number);
    EXPECT_TRUE(failure.text.contains(u'\'' + GetParam().near + u'\'')) << failure.text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Commands, CommandFailure,
    testing::Values(
        BadCommand{"ApostropheInAnArgument", u"a..p 'O'Brien'"_s, 102, u"Brien"_s},
        BadCommand{"ApostropheBeforeAComma", u"a..p 'O'','x'"_s, 102, u"x"_s},
        BadCommand{"ApostropheAtTheEnd", u"a..p 'x''"_s, 105, u"x'"_s},
        BadCommand{"ApostropheInACondition", u"select * from a..t where b = 'O'Brien'"_s, 102, u"Brien"_s},
        BadCommand{"CommaAtTheEnd", u"a..p 'x',"_s, 102, u","_s},
        BadCommand{"TwoCommas", u"a..p 'x',,'y'"_s, 102, u","_s},
        BadCommand{"TwoArgumentsWithoutComma", u"a..p 'x' 'y'"_s, 102, u"y"_s},
        BadCommand{"Parentheses", u"a..p ('x')"_s, 102, u"("_s},
        BadCommand{"SecondStatement", u"a..p 'x'; delete a..t"_s, 102, u"delete"_s},
        BadCommand{"SecondStatementWithoutSemicolon", u"delete a..t delete a..u"_s, 102, u"delete"_s},
        BadCommand{"SecondCall", u"a..p a..q"_s, 102, u"."_s},
        BadCommand{"QuestionMark", u"a..p ?"_s, 102, u"?"_s},
        BadCommand{"Braces", u"{call a..p}"_s, 102, u"{"_s},
        BadCommand{"Keyword", u"drop table a..t"_s, 156, u"drop"_s},
        BadCommand{"MissingTable", u"delete from"_s, 156, u"from"_s},
        BadCommand{"MissingCondition", u"delete a..t where"_s, 156, u"where"_s}),
    CaseName());
