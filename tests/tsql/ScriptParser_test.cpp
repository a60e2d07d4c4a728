#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "tsql/ScriptParser.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

template <class Kind> Kind Parsed(const QString& text) {
    TokenCursor cursor(text);
    return std::get<Kind>(ScriptParser(cursor).ParseNext());
}

struct BadScript {
    std::string name;
    QString text;
    int number;
};

class ScriptFailure : public testing::TestWithParam<BadScript> {};

const QString kProcedure = u"CREATE PROCEDURE dbo.p "_s;

} // namespace

TEST(Batches, AreDividedByLinesThatSayGo) {
    const QString script = u"a\nb\nGO\n\n  go  \nc GO\n'GO'\nGo\r\nd"_s;
    const std::vector<Batch> batches = SplitBatches(script);
    ASSERT_EQ(batches.size(), 3U);
    EXPECT_EQ(batches[0].text, u"a\nb\n");
    EXPECT_EQ(batches[1].text, u"c GO\n'GO'\n");
    EXPECT_EQ(batches[1].firstLine, 6);
    EXPECT_EQ(batches[2].text, u"d");
    EXPECT_EQ(batches[2].firstLine, 9);
    EXPECT_TRUE(SplitBatches(u" \n\nGO\n").empty());
}

TEST(ScriptTable, ColumnsKeysAndDefaults) {
    const auto table = Parsed<TableDefinition>(
        u"CREATE TABLE dbo.tbX (ID int IDENTITY(1,1) NOT NULL PRIMARY KEY, [a b] varchar(20) COLLATE "
        "SQL_Latin1_General_CP1_CI_AS NULL DEFAULT 'x', Price decimal(9, 2), Note varchar(max), "
        "CONSTRAINT uqX UNIQUE (Price, Note))"_s);
    ASSERT_EQ(table.columns.size(), 4U);
    EXPECT_TRUE(table.columns[0].identity);
    EXPECT_FALSE(table.columns[0].nullable);
    EXPECT_EQ(table.columns[1].name, u"a b"_s);
    EXPECT_EQ(table.columns[1].type, SqlType::Text(20));
    ASSERT_TRUE(table.columns[1].defaultValue);
    EXPECT_EQ(std::get<TextNode>(table.columns[1].defaultValue->node).text, u"x"_s);
    EXPECT_EQ(table.columns[2].type, SqlType::Decimal(9, 2));
    EXPECT_EQ(table.columns[3].type, SqlType::Text());
    ASSERT_EQ(table.keys.size(), 2U);
    EXPECT_TRUE(table.keys[0].primary);
    EXPECT_EQ(table.keys[1].columns, (QStringList{u"Price"_s, u"Note"_s}));
}

TEST(ScriptIndex, ColumnsWithTheirDirection) {
    const auto index = Parsed<IndexDefinition>(u"CREATE UNIQUE INDEX ix ON dbo.tbX (a, b DESC, c ASC);"_s);
    EXPECT_TRUE(index.unique);
    EXPECT_EQ(index.table.object, u"tbX"_s);
    ASSERT_EQ(index.columns.size(), 3U);
    EXPECT_FALSE(index.columns[0].descending);
    EXPECT_TRUE(index.columns[1].descending);
    EXPECT_FALSE(index.columns[2].descending);
}

TEST(ScriptProcedure, ParametersAndBodyWithoutItsFrame) {
    const auto procedure = Parsed<ProcedureDefinition>(
        kProcedure +
        u"@a varchar(20), @b money = -1.5, @c varchar(5) = NULL AS BEGIN SET NOCOUNT ON; SET XACT_ABORT ON; "
        "BEGIN TRANSACTION; DELETE FROM X..t; SELECT 1 AS n; COMMIT TRAN; END;"_s);
    EXPECT_EQ(procedure.name.object, u"p"_s);
    ASSERT_EQ(procedure.parameters.size(), 3U);
    EXPECT_EQ(procedure.parameters[0].name, u"@a"_s);
    EXPECT_FALSE(procedure.parameters[0].defaultValue);
    EXPECT_TRUE(procedure.parameters[1].defaultValue->As<NegationNode>());
    EXPECT_TRUE(procedure.parameters[2].defaultValue->As<NullNode>());
    ASSERT_EQ(procedure.body.size(), 2U);
    EXPECT_TRUE(std::holds_alternative<DeleteStatement>(procedure.body[0]));
    EXPECT_TRUE(std::holds_alternative<SelectStatement>(procedure.body[1]));
}

TEST(ScriptProcedure, ParametersInParentheses) {
    EXPECT_EQ(Parsed<ProcedureDefinition>(kProcedure + u"(@a int, @b int) AS BEGIN SELECT @a AS a; END"_s)
                  .parameters.size(),
              2U);
}

TEST(ScriptProcedure, RefusalsNameTheirNumberAndText) {
    const auto procedure = Parsed<ProcedureDefinition>(
        kProcedure + u"@User varchar(10) AS BEGIN SET NOCOUNT ON; IF @User <> SUSER_SNAME() THROW 50001, "
                     "'It''s another''s.', 1; DELETE FROM tbX; END"_s);
    ASSERT_EQ(procedure.body.size(), 2U);
    const auto& refusal = std::get<RefusalStatement>(procedure.body[0]);
    EXPECT_EQ(refusal.number, 50001);
    EXPECT_EQ(refusal.text, u"It's another's."_s);
    EXPECT_TRUE(refusal.condition->IsCondition());
}

TEST(ScriptProcedure, ABranchPassesOverWhatItDoesNotTake) {
    const auto procedure = Parsed<ProcedureDefinition>(
        kProcedure +
        u"@a int AS BEGIN IF @a = 1 SELECT 1 AS x; ELSE IF @a = 2 SELECT 2 AS x; ELSE SELECT 3 AS x; "
        "SELECT 4 AS y; END"_s);
    const auto passedOver = [&procedure](size_t step) {
        const auto* branch = std::get_if<BranchStatement>(&procedure.body.at(step));
        return branch ? int(branch->passedOver) * (branch->condition ? 1 : -1) : 0;
    };
    ASSERT_EQ(procedure.body.size(), 8U);
    EXPECT_EQ(passedOver(0), 2);
    EXPECT_EQ(passedOver(2), -4) << "an ELSE is passed over by whoever comes to it";
    EXPECT_EQ(passedOver(3), 2);
    EXPECT_EQ(passedOver(5), -1);
    for (const size_t select : {1, 4, 6, 7})
        EXPECT_TRUE(std::holds_alternative<SelectStatement>(procedure.body[select])) << select;
}

TEST(ScriptStatementTest, SeveralInOneBatch) {
    const QString text = u"USE X; DELETE FROM a..b; ;; UPDATE a..b SET c = 1;"_s;
    TokenCursor cursor(text);
    ScriptParser parser(cursor);
    EXPECT_EQ(std::get<UseDatabase>(parser.ParseNext()).database, u"X"_s);
    parser.ParseNext();
    EXPECT_FALSE(parser.AtEnd());
    parser.ParseNext();
    EXPECT_TRUE(parser.AtEnd());
}

TEST_P(ScriptFailure, IsTheServersError) {
    EXPECT_EQ(FailureOf([] {
                  TokenCursor cursor(GetParam().text);
                  ScriptParser(cursor).ParseNext();
              }).number,
              GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, ScriptFailure,
    testing::Values(
        BadScript{"UnknownType", u"CREATE TABLE dbo.t (a number)"_s, 2715},
        BadScript{"OtherCollation", u"CREATE TABLE dbo.t (a varchar(5) COLLATE Latin1_General_BIN)"_s, 448},
        BadScript{"TableWithoutColumns", u"CREATE TABLE dbo.t"_s, 102},
        BadScript{"IdentityFromTen", u"CREATE TABLE dbo.t (a int IDENTITY(10,1))"_s, 102},
        BadScript{"View", u"CREATE VIEW v AS SELECT 1 AS a"_s, 156},
        BadScript{"Drop", u"DROP TABLE t"_s, 156},
        BadScript{"MissingSemicolon", kProcedure + u"AS BEGIN SELECT 1 AS a END"_s, 156},
        BadScript{"Variable", kProcedure + u"AS BEGIN DECLARE @x int; END"_s, 156},
        BadScript{"WritingBranch", kProcedure + u"AS BEGIN IF 1 = 1 DELETE FROM a..b; END"_s, 156},
        BadScript{"WritingElse",
                  kProcedure + u"AS BEGIN IF 1 = 1 SELECT 1 AS a; ELSE DELETE FROM a..b; END"_s, 156},
        BadScript{"ElseAlone", kProcedure + u"AS BEGIN ELSE SELECT 1 AS a; END"_s, 156},
        BadScript{"IfAlone", kProcedure + u"AS BEGIN IF 1 = 1; END"_s, 102},
        BadScript{"ErrorOfTheServersOwn", kProcedure + u"AS BEGIN IF 1 = 1 THROW 49999, 'x', 1; END"_s, 102},
        BadScript{"RefusalWithoutText", kProcedure + u"AS BEGIN IF 1 = 1 THROW 50001; END"_s, 102},
        BadScript{"RefusalWithoutCondition", kProcedure + u"AS BEGIN THROW 50001, 'x', 1; END"_s, 102},
        BadScript{"TextBehindTheEnd", kProcedure + u"AS BEGIN SELECT 1 AS a; END SELECT 2 AS b"_s, 156},
        BadScript{"NoBegin", kProcedure + u"AS SELECT 1 AS a;"_s, 156},
        BadScript{"ParameterWithoutType", kProcedure + u"@a AS BEGIN SELECT 1 AS a; END"_s, 156},
        BadScript{"UnclosedText", u"DELETE FROM a..b WHERE c = 'x"_s, 105},
        BadScript{"UnclosedComment", u"USE /* x"_s, 113}),
    CaseName());
