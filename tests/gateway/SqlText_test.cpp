#include "gateway/SqlText.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

DateTime Moment() {
    return *DateTime::FromFields({2026, 11, 21, 14, 2, 3, 45});
}

struct LiteralCase {
    std::string name;
    Value value;
    QString literal;
};

class SqlLiteralOf : public testing::TestWithParam<LiteralCase> {};

struct BaseTableCase {
    std::string name;
    QString command;
    std::optional<QString> table;
};

class BaseTable : public testing::TestWithParam<BaseTableCase> {};

} // namespace

TEST_P(SqlLiteralOf, Value) {
    EXPECT_EQ(SqlLiteral(GetParam().value), GetParam().literal);
}

INSTANTIATE_TEST_SUITE_P(
    Types, SqlLiteralOf,
    testing::Values(LiteralCase{"Null", Value(), u"NULL"_s}, LiteralCase{"True", Value(true), u"1"_s},
                    LiteralCase{"False", Value(false), u"0"_s}, LiteralCase{"Integer", Value(-5), u"-5"_s},
                    LiteralCase{"Decimal", Value(Decimal{u"1250.5000"_s}), u"1250.5000"_s},
                    LiteralCase{"Text", Value(u"a  b "_s), u"'a  b '"_s},
                    LiteralCase{"QuotesAreDoubled", Value(u"O'Brien''"_s), u"'O''Brien'''''"_s},
                    LiteralCase{"LatinLetter", Value(u"PEÑA"_s), u"'PEÑA'"_s},
                    LiteralCase{"LetterBeyondTheCodePage", Value(u"Ž"_s), u"N'Ž'"_s},
                    LiteralCase{"Moment", Value(Moment()), u"'20261121 14:02:03.045'"_s}),
    CaseName());

TEST(SqlLiteralOfDouble, BringsBackTheSameDouble) {
    EXPECT_EQ(SqlLiteral(Value(0.1)).toDouble(), 0.1);
    EXPECT_TRUE(SqlLiteral(Value(2.0)).contains(u'e'))
        << "without an exponent the server would read a decimal";
}

TEST(SqlNameOf, PutsBracketsAround) {
    EXPECT_EQ(SqlName(u"hospital #"), u"[hospital #]"_s);
    EXPECT_EQ(SqlName(u"a]b"), u"[a]]b]"_s);
}

TEST_P(BaseTable, IsFoundWhereRowsAreTheTablesOwn) {
    EXPECT_EQ(BaseTableOf(GetParam().command), GetParam().table);
}

INSTANTIATE_TEST_SUITE_P(
    Commands, BaseTable,
    testing::Values(BaseTableCase{"Star", u"Select * from Clinical_Area..tbEarCareChargeSlip"_s,
                                  u"Clinical_Area..tbEarCareChargeSlip"_s},
                    BaseTableCase{"Column", u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum"_s,
                                  u"BILLING..tbAssessmentNum"_s},
                    BaseTableCase{"Where", u"select * from a.dbo.[t b] where x = 'from b'"_s,
                                  u"a.dbo.[t b]"_s},
                    BaseTableCase{"Alias", u"select x from a..t as q where q.x = 1"_s, u"a..t"_s},
                    BaseTableCase{"OrderBy", u"select x, y from a..t order by x"_s, u"a..t"_s},
                    BaseTableCase{"Top", u"select top (1) * from a..t"_s, u"a..t"_s},
                    BaseTableCase{"GroupInsideASubquery",
                                  u"select x from t where x in (select y from u group by y)"_s, u"t"_s},
                    BaseTableCase{"Procedure", u"Clinical_Area..spEarCare_GetPatient 'I',''"_s, std::nullopt},
                    BaseTableCase{"Join", u"select x from a..t join a..u on 1 = 1"_s, std::nullopt},
                    BaseTableCase{"LeftJoin", u"select x from a..t left join a..u on 1 = 1"_s, std::nullopt},
                    BaseTableCase{"TwoTables", u"select x from a..t, a..u"_s, std::nullopt},
                    BaseTableCase{"Distinct", u"select distinct x from a..t"_s, std::nullopt},
                    BaseTableCase{"Group", u"select x from a..t group by x"_s, std::nullopt},
                    BaseTableCase{"Union", u"select x from a..t where 1 = 1 union all select x from a..u"_s,
                                  std::nullopt},
                    BaseTableCase{"Expression", u"select x + 1 from a..t"_s, std::nullopt},
                    BaseTableCase{"RenamedColumn", u"select x as y from a..t"_s, std::nullopt},
                    BaseTableCase{"Function", u"select count(*) from a..t"_s, std::nullopt},
                    BaseTableCase{"DerivedTable", u"select x from (select x from a..t) as q"_s, std::nullopt},
                    BaseTableCase{"NoFrom", u"select x"_s, std::nullopt},
                    BaseTableCase{"Delete", u"delete a..t"_s, std::nullopt},
                    BaseTableCase{"AliasMissingBehindAs", u"select x from a..t as"_s, u"a..t"_s}),
    CaseName());
