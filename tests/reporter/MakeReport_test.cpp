#include "report/ReportEngine.h"
#include "reporter/Describe.h"
#include "reporter/MakeReport.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "text/RunTimeError.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

constexpr auto kTemplate = R"(<report paper="A4">
  <parameters>
    <parameter name="Start" type="date" prompt="First day"/>
    <parameter name="Moment" type="datetime" prompt="Until"/>
    <parameter name="Least" type="number" prompt="Least amount" value="0"/>
    <parameter name="Title" type="text" prompt="What stands above"/>
  </parameters>
  <tables><table name="Charges" location="BILLING.dbo.tbPatientCharges"/></tables>
  <query>SELECT ItemID FROM {Charges} WHERE Amount &gt; {?Least}</query>
  <detail height="5"><text x="0" y="0" width="40">{ItemID}</text></detail>
</report>
)";

class ReporterValues : public testing::Test {
  protected:
    void SetUp() override {
        QFile file(folder.filePath(u"a.rpt"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(kTemplate);
        file.close();
        report = OpenTemplate(file.fileName());
    }

    QString RefusalOf(const std::vector<GivenValue>& values) const {
        try {
            Fill(*report, values);
            return {};
        } catch (const ArgumentError& error) {
            return QString::fromUtf8(error.what());
        }
    }

    QString TextOf(size_t field) const { return report->ParameterFields()[field].CurrentValue()->ToText(); }

    QTemporaryDir folder;
    std::shared_ptr<Report> report;
};

TEST_F(ReporterValues, GoToTheirParametersByNameAndInOrder) {
    EXPECT_EQ(
        RefusalOf(
            {{{}, u"2026-11-01"_s}, {u"title"_s, u"Ñ"_s}, {{}, u"11/30/2026 5:00 PM"_s}, {{}, u"12.5"_s}}),
        QString());
    EXPECT_EQ(TextOf(0), u"11/1/2026"_s);
    EXPECT_EQ(TextOf(1), u"11/30/2026 5:00:00 PM"_s);
    EXPECT_EQ(TextOf(2), u"12.5"_s);
    EXPECT_EQ(TextOf(3), u"Ñ"_s);
}

TEST_F(ReporterValues, ATemplatesOwnValueStandsWhereNoneIsGiven) {
    EXPECT_EQ(RefusalOf({{u"Start"_s, u"1/1/2026"_s}, {u"Moment"_s, u"1/1/2026"_s}, {u"Title"_s, {}}}),
              QString());
    EXPECT_EQ(TextOf(2), u"0"_s);
}

TEST_F(ReporterValues, AreRefusedInWords) {
    EXPECT_EQ(RefusalOf({{u"Start"_s, u"1/1/2026"_s}}), u"The parameter Moment has no value (Until)."_s);
    EXPECT_EQ(RefusalOf({{u"Start"_s, u"tomorrow"_s}}),
              u"The parameter Start is \"tomorrow\" and must be a date such as 2026-12-31 or 12/31/2026."_s);
    EXPECT_EQ(RefusalOf({{u"Least"_s, u"much"_s}}),
              u"The parameter Least is \"much\" and must be a number."_s);
    EXPECT_EQ(RefusalOf({{u"Stop"_s, u"1/1/2026"_s}}),
              u"The report has no parameter Stop; --describe lists them."_s);
    EXPECT_EQ(RefusalOf({{u"Start"_s, u"1/1/2026"_s}, {{}, u"1/2/2026"_s}}),
              u"The parameter Start is given twice."_s);
    EXPECT_EQ(RefusalOf({{{}, u"1/1/2026"_s}, {{}, u"1/1/2026"_s}, {{}, u"1"_s}, {{}, u"T"_s}, {{}, u"T"_s}}),
              u"The report has 4 parameters and is given more."_s);
}

TEST_F(ReporterValues, AreDescribedWithTheirTypes) {
    EXPECT_EQ(DescribeParameters(*report), u"Start   date      First day\n"
                                           "Moment  datetime  Until\n"
                                           "Least   number    =0  Least amount\n"
                                           "Title   text      What stands above\n"_s);
}

TEST_F(ReporterValues, TheTablesAreLoggedOnWhereTheyLieOrInAnotherDatabase) {
    LogTablesOn(*report, {.server = u"S"_s, .database = u"D"_s, .user = u"U"_s, .password = u"P"_s});
    EXPECT_EQ(report->Tables()[0].Location(), u"BILLING.dbo.tbPatientCharges"_s);
    EXPECT_EQ(report->Tables()[0].LogOn().user, u"U"_s);
    PointAt(*report, u"OLD"_s);
    EXPECT_EQ(report->Tables()[0].Location(), u"OLD.dbo.tbPatientCharges"_s);
    EXPECT_THROW(PointAt(*report, u"no name"_s), ArgumentError);
}

std::string ProblemOfPlace(const QString& file) {
    try {
        RequirePlaceFor(file);
        return {};
    } catch (const RunTimeError& error) {
        return error.what();
    }
}

TEST_F(ReporterValues, AFileWithoutAPlaceIsToldBeforeAnythingIsMade) {
    EXPECT_EQ(ProblemOfPlace(folder.filePath(u"a b ñ.pdf"_s)), "");
    EXPECT_THAT(ProblemOfPlace(folder.path()), HasSubstr("it is a folder"));
    EXPECT_THAT(ProblemOfPlace(folder.filePath(u"none/a.pdf"_s)), HasSubstr("there is no folder"));
}

} // namespace
