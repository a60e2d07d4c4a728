#include "odbc/OdbcRows.h"
#include "odbc/OdbcServer.h"
#include "support/CaseName.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// A column of the server's with what is in it, and what comes out of it where that is something else.
struct TypeCase {
    std::string name;
    TdsColumn column;
    Value onTheServer;
    std::optional<Value> here = std::nullopt;
};

class OdbcRowsTypes : public OdbcServer, public testing::WithParamInterface<TypeCase> {};

Value Moment(int hour, int minute, int second, int millisecond) {
    return *DateTime::FromFields({2026, 11, 21, hour, minute, second, millisecond});
}

const TypeCase kTypes[] = {
    {"tinyint", {.type = TdsType::TinyInt}, 255},
    {"smallint", {.type = TdsType::SmallInt}, -32768},
    {"int", {.type = TdsType::Int}, -2147483647},
    {"bigint", {.type = TdsType::BigInt}, qint64(-9007199254740993)},
    {"bit_true", {.type = TdsType::Bit}, true},
    {"bit_false", {.type = TdsType::Bit}, false},
    {"real", {.type = TdsType::Real}, 0.5},
    {"float", {.type = TdsType::Float}, 0.1},
    {"smallmoney", {.type = TdsType::SmallMoney}, Decimal{u"-214748.3648"_s}},
    {"money", {.type = TdsType::Money}, Decimal{u"1250.5000"_s}},
    {"money_negative", {.type = TdsType::Money}, Decimal{u"-0.0001"_s}},
    {"money_largest", {.type = TdsType::Money}, Decimal{u"922337203685477.5807"_s}},
    {"decimal", {.type = TdsType::Decimal, .precision = 9, .scale = 2}, Decimal{u"12.35"_s}},
    {"decimal_long",
     {.type = TdsType::Decimal, .precision = 18, .scale = 4},
     Decimal{u"-12345678901234.5678"_s}},
    {"decimal_whole", {.type = TdsType::Decimal, .precision = 18, .scale = 0}, Decimal{u"0"_s}},
    {"datetime", {.type = TdsType::DateTime}, Moment(14, 2, 3, 457)},
    {"datetime_midnight", {.type = TdsType::DateTime}, Moment(0, 0, 0, 0)},
    {"datetime_last_tick", {.type = TdsType::DateTime}, Moment(23, 59, 59, 997)},
    {"datetime_first_day", {.type = TdsType::DateTime}, *DateTime::FromFields({1753, 1, 1, 0, 0, 0, 0})},
    {"datetime2", {.type = TdsType::DateTime2}, Moment(14, 2, 3, 456)},
    {"smalldatetime", {.type = TdsType::SmallDateTime}, Moment(14, 2, 0, 0)},
    {"date", {.type = TdsType::Date}, Moment(0, 0, 0, 0)},
    {"date_first", {.type = TdsType::Date}, *DateTime::FromFields({1, 1, 1, 0, 0, 0, 0})},
    {"char", {.type = TdsType::Char, .length = 6}, u"ÑU"_s, u"ÑU    "_s},
    {"varchar", {.type = TdsType::VarChar}, u"PEÑA, Niño "_s},
    {"varchar_of_the_code_page", {.type = TdsType::VarChar}, u"€ ‚„… “ÑÿŸ” – ™"_s},
    {"varchar_empty", {.type = TdsType::VarChar}, QString()},
    {"nvarchar", {.type = TdsType::NVarChar}, u"Peña 漢字 😀"_s},
    {"varchar_max", {.type = TdsType::VarCharMax}, u"one"_s},
    {"varchar_max_long", {.type = TdsType::VarCharMax}, QString(10000, u'ñ')},
    {"nvarchar_max_long", {.type = TdsType::NVarCharMax}, QString(20000, u'漢') + u"😀"_s},
    {"nvarchar_max_empty", {.type = TdsType::NVarCharMax}, QString()},
};

} // namespace

INSTANTIATE_TEST_SUITE_P(All, OdbcRowsTypes, testing::ValuesIn(kTypes), CaseName());

TEST_P(OdbcRowsTypes, ValueAndNullComeAsTheColumnsType) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        TdsColumn column = GetParam().column;
        column.name = u"It"_s;
        answer.Columns({column, {.name = u"Next"_s, .type = TdsType::Int}});
        answer.Row({GetParam().onTheServer, 1});
        answer.Row({Value(), 2});
        answer.Done(2);
    });
    RowSet rows = mGateway->Execute(u"x"_s);
    EXPECT_EQ(rows.Fields(u"It"), GetParam().here.value_or(GetParam().onTheServer));
    EXPECT_EQ(rows.Fields(u"Next"), Value(1)) << "the columns behind are read as well";
    rows.MoveNext();
    EXPECT_TRUE(rows.Fields(u"It").IsNull());
    EXPECT_EQ(rows.Fields(u"Next"), Value(2));
}

TEST(OdbcRows, ADecimalHasADigitBeforeItsPointWhateverTheDriverLeavesOut) {
    EXPECT_EQ(WithLeadingZero(u".5000"_s), u"0.5000"_s);
    EXPECT_EQ(WithLeadingZero(u"-.5000"_s), u"-0.5000"_s);
    for (const QString& whole : {u"0.5000"_s, u"-0.5000"_s, u"12.35"_s, u"-12"_s, u"7"_s})
        EXPECT_EQ(WithLeadingZero(whole), whole);
}

using OdbcRowsTest = OdbcServer;

TEST_F(OdbcRowsTest, ColumnNamesComeAsTheyAre) {
    const std::vector<QString> names = {u"hospital #"_s, u"Niño"_s, QString(), u"hospital #"_s,
                                        QString(128, u'n')};
    AnswerWith([&names](const QString&, TdsAnswer& answer) {
        std::vector<TdsColumn> columns;
        for (const QString& name : names)
            columns.push_back({.name = name, .type = TdsType::Int});
        answer.Columns(columns);
        answer.Row({1, 2, 3, 4, 5});
        answer.Done(1);
    });
    const RowSet rows = mGateway->Execute(u"x"_s);
    EXPECT_EQ(rows.Data()->columns, names);
    EXPECT_EQ(rows.Fields(u"HOSPITAL #"), Value(1)) << "the first of two with one name";
}

TEST_F(OdbcRowsTest, LongTextThatFillsItsPieceExactlyComesOnce) {
    for (const int length : {2046, 2047, 2048, 4094, 4095}) {
        const QString text(length, u'x');
        AnswerWith([&text](const QString&, TdsAnswer& answer) {
            answer.Columns({{.name = u"It"_s, .type = TdsType::NVarCharMax}});
            answer.Row({text});
            answer.Done(1);
        });
        EXPECT_EQ(mGateway->Execute(u"x"_s).Fields(0), Value(text)) << length;
    }
}

TEST_F(OdbcRowsTest, ATextThatTheRowsRepeatIsHeldOnce) {
    const std::vector<Value> column = {u"TAN, ROSA"_s, u"TAN, ROSA"_s, Value(), u"TAN, ROSA"_s,
                                       QString(),      u"TAN"_s,       u"Tan"_s};
    AnswerWith([&column](const QString&, TdsAnswer& answer) {
        answer.Columns({{.name = u"Patient"_s, .type = TdsType::VarChar}});
        for (const Value& value : column)
            answer.Row({value});
        answer.Done(qint64(column.size()));
    });
    const auto data = mGateway->Execute(u"x"_s).Data();
    ASSERT_EQ(data->RowCount(), column.size());
    for (size_t row = 0; row < column.size(); ++row)
        EXPECT_EQ(data->Cell(row, 0), column[row]) << row;
    const auto bytes = [&data](size_t row) {
        return std::get<QString>(data->Cell(row, 0).Get()).constData();
    };
    EXPECT_EQ(bytes(0), bytes(1));
    EXPECT_EQ(bytes(0), bytes(3)) << "a Null in between changes nothing";
    EXPECT_NE(bytes(5), bytes(6));
}
