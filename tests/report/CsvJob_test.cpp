#include "OutputGround.h"
#include "report/output/CsvJob.h"
#include "support/CaseName.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray CsvOf(const std::shared_ptr<const RowData>& rows) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"rows.csv"_s);
    EXPECT_EQ(CsvJob(*rows, file).Finish(), QString());
    return ReadFile(file);
}

} // namespace

TEST(CsvJob, TellsOfAFolderThatIsNotThere) {
    EXPECT_FALSE(CsvJob(*Rows({u"A"_s}), u"/no/such/folder/rows.csv"_s).Finish().isEmpty());
}

TEST(CsvJob, TellsOfAFullDiskAndLeavesTheFileThatWasThere) {
    const QTemporaryDir folder;
    const QString file = WriteFile(folder, u"rows.csv"_s, "before");
    {
        const FullDisk full;
        EXPECT_EQ(CsvJob(*Rows({u"A"_s}), file).Finish(), u"The disk is full."_s);
    }
    EXPECT_EQ(ReadFile(file), "before");
}

TEST(CsvJob, WritesHeadAndRowsAsUtf8WithItsMark) {
    EXPECT_EQ(CsvOf(Rows({u"Name"_s, u"Amount"_s, u"Date"_s}, {{u"PEÑA"_s, Decimal{u"12.5000"_s}, Value()}})),
              "\xEF\xBB\xBFName,Amount,Date\r\nPE\xC3\x91"
              "A,12.5,\r\n");
}

namespace {

struct Quoted {
    std::string name;
    QString text;
    QString csv;
};

class CsvCell : public testing::TestWithParam<Quoted> {};

} // namespace

TEST_P(CsvCell, IsQuotedWhereItMustBe) {
    EXPECT_EQ(CsvOf(Rows({u"A"_s, u"B"_s}, {{GetParam().text, 1}})),
              "\xEF\xBB\xBF" + u"A,B\r\n%1,1\r\n"_s.arg(GetParam().csv).toUtf8());
}

INSTANTIATE_TEST_SUITE_P(Texts, CsvCell,
                         testing::Values(Quoted{"Plain", u"HC 100"_s, u"HC 100"_s},
                                         Quoted{"Comma", u"DELA CRUZ, JUAN"_s, u"\"DELA CRUZ, JUAN\""_s},
                                         Quoted{"Semicolon", u"a;b"_s, u"\"a;b\""_s},
                                         Quoted{"Quote", u"3/4\" tube"_s, u"\"3/4\"\" tube\""_s},
                                         Quoted{"LineBreak", u"a\nb"_s, u"\"a\nb\""_s},
                                         Quoted{"BlankAtTheEdge", u" a"_s, u"\" a\""_s},
                                         Quoted{"Apostrophe", u"O'BRIEN"_s, u"O'BRIEN"_s}),
                         CaseName());

INSTANTIATE_TEST_SUITE_P(Formulas, CsvCell,
                         testing::Values(Quoted{"Equals", u"=1+1"_s, u"'=1+1"_s},
                                         Quoted{"Plus", u"+63 917 555 0101"_s, u"'+63 917 555 0101"_s},
                                         Quoted{"Minus", u"-A1"_s, u"'-A1"_s},
                                         Quoted{"At", u"@SUM(A1)"_s, u"'@SUM(A1)"_s},
                                         Quoted{"QuotedToo", u"=A1,B1"_s, u"\"'=A1,B1\""_s},
                                         Quoted{"TextThatIsANumber", u"-12.50"_s, u"-12.50"_s},
                                         Quoted{"SignWithinAText", u"A-1"_s, u"A-1"_s}),
                         CaseName());

TEST(CsvJob, LeavesNumbersBelowZeroAsTheyAre) {
    EXPECT_EQ(CsvOf(Rows({u"A"_s, u"B"_s, u"C"_s}, {{Decimal{u"-3500.0000"_s}, qint64(-2), -0.5}})),
              "\xEF\xBB\xBF"
              "A,B,C\r\n-3500,-2,-0.5\r\n");
}

TEST(CsvJob, GuardsAHeadToo) {
    EXPECT_EQ(CsvOf(Rows({u"=A"_s})), "\xEF\xBB\xBF'=A\r\n");
}

TEST(CsvJob, WritesDatesAsEverySpreadsheetReadsThem) {
    const auto day = DateTime::FromFields({.year = 2026, .month = 11, .day = 2});
    const auto moment =
        DateTime::FromFields({.year = 2026, .month = 11, .day = 21, .hour = 14, .minute = 2, .second = 3});
    EXPECT_EQ(CsvOf(Rows({u"A"_s, u"B"_s}, {{*day, *moment}})), "\xEF\xBB\xBF"
                                                                "A,B\r\n2026-11-02,2026-11-21 14:02:03\r\n");
}
