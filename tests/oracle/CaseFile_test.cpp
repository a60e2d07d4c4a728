#include "oracle/CaseFile.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"

#include <QTemporaryFile>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

std::vector<OracleCase> CasesOf(const QByteArray& text) {
    QTemporaryFile file;
    EXPECT_TRUE(file.open());
    file.write(text);
    file.close();
    return ReadCases(file.fileName());
}

struct UnreadableCase {
    std::string name;
    QByteArray text;
    std::string complaint;
};

class UnreadableFile : public testing::TestWithParam<UnreadableCase> {};

struct AdmittedCase {
    std::string name;
    QString expected;
    Answer given;
    bool isAdmitted;
};

class AdmittedAnswer : public testing::TestWithParam<AdmittedCase> {};

} // namespace

TEST(CaseFile, ReadsItsSections) {
    const auto cases =
        CasesOf("# head\n[value]\n1 + 1 | int | 2\n\n[condition]\n1 = 2 | false\n1 = 'x' | error 245\n"
                "[into cMoney]\n5 | money | 5.0000\n[statement]\nDELETE FROM t | done\n");
    ASSERT_EQ(cases.size(), 5U);
    EXPECT_EQ(cases[0].command, u"SELECT 1 + 1 AS x"_s);
    EXPECT_EQ(cases[0].line, 3);
    EXPECT_EQ(cases[0].answer.ToText(), u"int | 2"_s);
    EXPECT_EQ(cases[1].command, u"SELECT CASE WHEN 1 = 2 THEN 1 ELSE 0 END AS x"_s);
    EXPECT_EQ(cases[1].answer.ToText(), u"int | 0"_s);
    EXPECT_EQ(cases[2].answer.ToText(), u"error 245"_s);
    EXPECT_EQ(cases[3].before.last(), u"INSERT INTO oracle_columns (cMoney) VALUES (5)"_s);
    EXPECT_EQ(cases[3].command, u"SELECT cMoney FROM oracle_columns"_s);
    EXPECT_EQ(cases[4].command, u"DELETE FROM t"_s);
    EXPECT_EQ(cases[4].answer.ToText(), u"done"_s);
}

TEST_P(UnreadableFile, IsRefusedWithItsLine) {
    try {
        CasesOf(GetParam().text);
        FAIL() << "it was read";
    } catch (const std::runtime_error& error) {
        EXPECT_THAT(error.what(), testing::HasSubstr(GetParam().complaint));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Files, UnreadableFile,
    testing::Values(UnreadableCase{"NoSection", "1 | int | 1\n", ":1: a case before the first section"},
                    UnreadableCase{"UnknownSection", "[values]\n", ":1: no section: values"},
                    UnreadableCase{"NoAnswer", "[value]\n\n1 + 1\n", ":3: a case without an answer"},
                    UnreadableCase{"NoValue", "[value]\n1 | int\n", ":2: neither a type"},
                    UnreadableCase{"UnknownType", "[value]\n1 | integer | 1\n", ":2: no type: integer"},
                    UnreadableCase{"Twice", "[value]\n1 | int | 1\n1 | int | 1\n",
                                   ":3: a case that stands twice"},
                    UnreadableCase{"NoErrorNumber", "[value]\n1 | error x\n", ":2: no error number: x"}),
    CaseName());

TEST_P(AdmittedAnswer, IsOfTheSameTypeAndValue) {
    EXPECT_EQ(Answer::Read(GetParam().expected).Admits(GetParam().given), GetParam().isAdmitted);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, AdmittedAnswer,
    testing::Values(
        AdmittedCase{"SameNumber", u"bigint | 7"_s, {{}, u"whole"_s, {u"7"_s}}, true},
        AdmittedCase{"OtherNumber", u"bigint | 7"_s, {{}, u"whole"_s, {u"8"_s}}, false},
        AdmittedCase{"OtherType", u"int | 7"_s, {{}, u"text"_s, {u"7"_s}}, false},
        AdmittedCase{"MoreDecimals", u"decimal 1 | 7.0"_s, {{}, u"decimal 2"_s, {u"7.00"_s}}, false},
        AdmittedCase{"Money", u"money | 7.0000"_s, {{}, u"decimal 4"_s, {u"7.0000"_s}}, true},
        AdmittedCase{"AlmostTheFloat", u"float | 0.3"_s, {{}, u"float"_s, {u"0.30000000000000004"_s}}, true},
        AdmittedCase{"AnotherFloat", u"float | 0.3"_s, {{}, u"float"_s, {u"0.3000001"_s}}, false},
        AdmittedCase{"Day", u"date | 2026-11-21"_s, {{}, u"moment"_s, {u"2026-11-21 00:00:00.000"_s}}, true},
        AdmittedCase{"Null", u"int | NULL"_s, {{}, {}, {u"NULL"_s}}, true},
        AdmittedCase{"NullForANumber", u"int | 7"_s, {{}, {}, {u"NULL"_s}}, false},
        AdmittedCase{"FewerRows", u"int | 1 ; 2"_s, {{}, u"whole"_s, {u"1"_s}}, false},
        AdmittedCase{"OneOfTheErrors", u"error 536/537"_s, {{537}, {}, {}}, true},
        AdmittedCase{"AnotherError", u"error 536/537"_s, {{8115}, {}, {}}, false},
        AdmittedCase{"AnErrorForAValue", u"int | 1"_s, {{8115}, {}, {}}, false},
        AdmittedCase{"AValueForAnError", u"error 8115"_s, {{}, u"whole"_s, {u"1"_s}}, false}),
    CaseName());
