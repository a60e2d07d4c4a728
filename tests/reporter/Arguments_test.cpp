#include "reporter/Arguments.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

Arguments Read(const QStringList& words) {
    return ReadArguments(QStringList(u"tarven-report"_s) + words);
}

QString RefusalOf(const QStringList& words) {
    try {
        Read(words);
        return {};
    } catch (const ArgumentError& error) {
        return QString::fromUtf8(error.what());
    }
}

TEST(ReporterArguments, TellWhatToMake) {
    const Arguments read = Read({u"--source"_s, u"San Roque"_s, u"--user=AUDIT"_s, u"--password-file"_s,
                                 u"p"_s, u"--template"_s, u"a.rpt"_s, u"--param"_s, u"Start=2026-11-01"_s,
                                 u"--param"_s, u"plain"_s, u"--param=Title=a=b"_s, u"--database"_s, u"OLD"_s,
                                 u"--department"_s, u"LB"_s, u"--output"_s, u"x.PDF"_s});
    EXPECT_EQ(read.task, Arguments::Task::Make);
    EXPECT_EQ(read.source, u"San Roque"_s);
    EXPECT_EQ(read.user, u"AUDIT"_s);
    EXPECT_EQ(read.passwordFile, u"p"_s);
    EXPECT_EQ(read.department, u"LB"_s);
    EXPECT_EQ(read.database, u"OLD"_s);
    EXPECT_EQ(read.templateFile, u"a.rpt"_s);
    EXPECT_EQ(read.output, u"x.PDF"_s);
    ASSERT_EQ(read.values.size(), 3u);
    EXPECT_EQ(read.values[0].name, u"Start"_s);
    EXPECT_EQ(read.values[0].text, u"2026-11-01"_s);
    EXPECT_EQ(read.values[1].name, QString());
    EXPECT_EQ(read.values[1].text, u"plain"_s);
    EXPECT_EQ(read.values[2].text, u"a=b"_s) << "the first sign parts name and value";
}

TEST(ReporterArguments, AValueMayBeEmpty) {
    const Arguments read =
        Read({u"--describe"_s, u"--template"_s, u"a"_s, u"--param"_s, u""_s, u"--param"_s, u"Address="_s});
    ASSERT_EQ(read.values.size(), 2u);
    EXPECT_EQ(read.values[0].text + read.values[1].text, QString());
}

TEST(ReporterArguments, TakeTheTrialHospitalWhereNoSourceIsNamed) {
    EXPECT_EQ(Read({u"--describe"_s, u"--template"_s, u"a"_s}).source, u"Trial hospital"_s);
}

struct RefusalCase {
    const char* name;
    QStringList words;
    QString text;
};

class ReporterRefusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(ReporterRefusals, SayWhatIsMissing) {
    EXPECT_EQ(RefusalOf(GetParam().words), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ReporterRefusals,
    testing::Values(RefusalCase{"Nothing", {}, u"Which report? --template names it."_s},
                    RefusalCase{"NoUser",
                                {u"--template"_s, u"a"_s, u"--output"_s, u"a.pdf"_s},
                                u"Who signs on? --user names him."_s},
                    RefusalCase{"NoOutput",
                                {u"--template"_s, u"a"_s, u"--user"_s, u"U"_s},
                                u"Where to? --output names a file that ends with .pdf or .csv."_s},
                    RefusalCase{"AnotherEnding",
                                {u"--template"_s, u"a"_s, u"--user"_s, u"U"_s, u"--output"_s, u"a.doc"_s},
                                u"Where to? --output names a file that ends with .pdf or .csv."_s},
                    RefusalCase{"UnknownOption", {u"--pasword"_s}, u"Unknown option 'pasword'."_s},
                    RefusalCase{"NothingBehindAnOption",
                                {u"--template"_s, u"a"_s, u"--database"_s, u""_s},
                                u"Nothing stands behind --database."_s},
                    RefusalCase{"AnOptionTwice",
                                {u"--output"_s, u"a.pdf"_s, u"--template"_s, u"a"_s, u"--output=b.pdf"_s},
                                u"--output is given twice."_s},
                    RefusalCase{"APasswordBehindOneDashIsNotRepeated",
                                {u"--template"_s, u"a"_s, u"-psecret"_s},
                                u"Options begin with two dashes; --help lists them."_s},
                    RefusalCase{"AStrayWordIsNotRepeated",
                                {u"--template"_s, u"a"_s, u"--user"_s, u"U"_s, u"secret"_s},
                                u"A word belongs to no option."_s}),
    CaseName());

TEST(ReporterArguments, HelpNamesEveryOption) {
    const QString help = HelpText();
    for (const char* option :
         {"--source", "--user", "--password-file", "--department", "--template", "--param", "--database",
          "--output", "--describe", "--watch", "--help", "--version"})
        EXPECT_TRUE(help.contains(QLatin1StringView(option))) << option;
}

} // namespace
