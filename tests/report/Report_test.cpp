#include "components/ReportConnector.h"
#include "report/Report.h"
#include "report/template/TemplateReader.h"
#include "support/FixedClock.h"
#include "support/report/ReportFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

constexpr auto kTemplate = R"(<report paper="A4">
<parameters>
  <parameter name="Start" type="date" prompt="First day"/>
  <parameter name="Name" type="text" prompt="Name"/>
  <parameter name="Least" type="number" prompt="Least" value="5"/>
</parameters>
<tables>
  <table name="Lines" location="Clinical_Area.dbo.tbLines"/>
  <table name="Hospital" location="PATIENT_DATA..tbhospitalInfo"/>
</tables>
<query>SELECT A FROM {Lines} WHERE Day = {?Start} AND Name = {?Name} AND A &gt; {?Least}</query>
<query name="Head">SELECT company FROM {Hospital}</query>
<page-header height="5"><text x="0" y="0" width="50">{Head.company} {?Name}</text></page-header>
<detail height="5"><text x="0" y="0" width="50">{A} {now}</text></detail>
</report>)";

class ReportTest : public testing::Test {
  protected:
    ReportTest() {
        database.Set(u"tbLines"_s, Rows({u"A"_s}, {{1}, {2}}));
        database.Set(u"tbhospitalInfo"_s, Rows({u"company"_s}, {{u"HOSPITAL"_s}}));
    }

    const Seam<DateTime()>::Replacement clock =
        FixedClock(*DateTime::FromFields({2026, 11, 21, 10, 30, 15, 0}));

    void LogOn() {
        for (ReportTable& table : report.Tables())
            table.SetLogOnInfo(u"SERVER"_s, u"PASSWORD"_s, u"user"_s, u"secret"_s);
    }

    void FillIn(const QString& name = u"ANA"_s) {
        report.ParameterFields()[0].AddCurrentValue(DateTime::FromFields({2026, 11, 21, 0, 0, 0, 0}).value());
        report.ParameterFields()[1].AddCurrentValue(name);
    }

    ReportDatabase database;
    Report report{ReadTemplate(u"r.rpt"_s, kTemplate)};
};

} // namespace

TEST_F(ReportTest, OffersTablesAndParameterFieldsInTheTemplatesOrder) {
    ASSERT_EQ(report.Tables().size(), 2U);
    EXPECT_EQ(report.Tables()[0].Location(), u"Clinical_Area.dbo.tbLines"_s);
    EXPECT_EQ(report.Tables()[1].Location(), u"PATIENT_DATA..tbhospitalInfo"_s);
    ASSERT_EQ(report.ParameterFields().size(), 3U);
    EXPECT_EQ(report.ParameterFields()[0].Name(), u"Start"_s);
    EXPECT_EQ(int(report.ParameterFields()[0].ValueType()), 10);
    EXPECT_EQ(int(report.ParameterFields()[1].ValueType()), 12);
    EXPECT_EQ(int(report.ParameterFields()[2].ValueType()), 7);
}

TEST_F(ReportTest, PutsLocationsAndLiteralsIntoTheQueries) {
    LogOn();
    FillIn();
    report.Document();
    EXPECT_THAT(
        database.commands,
        ElementsAre(
            u"SELECT A FROM Clinical_Area.dbo.tbLines WHERE Day = '20261121 00:00:00.000' AND Name = 'ANA' "
            "AND A > 5.0000000000000000e+00"_s,
            u"SELECT company FROM PATIENT_DATA..tbhospitalInfo"_s));
}

TEST_F(ReportTest, AnApostropheInAValueStaysWithinItsLiteral) {
    LogOn();
    FillIn(u"O'BRIEN' OR '1'='1"_s);
    report.Document();
    EXPECT_TRUE(database.commands[0].contains(u"Name = 'O''BRIEN'' OR ''1''=''1' AND"_s))
        << database.commands[0].toStdString();
}

TEST_F(ReportTest, ReadsFromTheLocationThatWasSet) {
    report.Tables()[0].SetLocation(u"REPORTS.dbo.tbLines"_s);
    LogOn();
    FillIn();
    report.Document();
    EXPECT_TRUE(database.commands[0].startsWith(u"SELECT A FROM REPORTS.dbo.tbLines WHERE"_s));
}

TEST_F(ReportTest, RefusesALocationThatIsNone) {
    EXPECT_TRUE(TextOfFailure([this] {
                    report.Tables()[0].SetLocation(u"tbLines; DROP TABLE tbLines"_s);
                }).contains(u"is no location of a table"_s));
    EXPECT_EQ(report.Tables()[0].Location(), u"Clinical_Area.dbo.tbLines"_s);
}

TEST_F(ReportTest, FetchesItsRowsOnceOverAConnectionThatIsClosedAgain) {
    LogOn();
    FillIn();
    EXPECT_FALSE(report.HasDocument());
    const auto first = report.Document();
    EXPECT_TRUE(report.HasDocument());
    EXPECT_EQ(report.Document(), first);
    EXPECT_THAT(database.logOns,
                ElementsAre(QStringList{u"SERVER"_s, u"PASSWORD"_s, u"user"_s, u"secret"_s}));
    EXPECT_EQ(database.open, 0);
    EXPECT_EQ(database.commands.size(), 2);
}

TEST_F(ReportTest, NamesTheUserOfItsLogOnAlsoWhenTheLogOnIsForgotten) {
    Report named{ReadTemplate(u"r.rpt"_s, SmallTemplate(u"<detail height=\"5\"><text x=\"0\" y=\"0\" "
                                                        "width=\"90\">by {user}</text></detail>"_s))};
    database.Set(u"D.dbo.T"_s, Rows({u"A"_s}, {{1}}));
    QString user = u"AN"_s;
    user += u'A';
    named.Tables()[0].SetLogOnInfo(u"SERVER"_s, u"PASSWORD"_s, user, u"secret"_s);
    EXPECT_EQ(PageText(*named.Document(), 1).trimmed(), u"by ANA"_s);
}

TEST_F(ReportTest, ForgetsItsLogOnsWithTheRowsFetched) {
    LogOn();
    FillIn();
    report.Document();
    for (const ReportTable& table : report.Tables()) {
        EXPECT_FALSE(table.HasLogOn());
        EXPECT_EQ(table.LogOn().password, QString());
    }
}

TEST_F(ReportTest, ForgetsItsLogOnsWhenTheRowsCannotBeFetched) {
    LogOn();
    FillIn();
    report.Tables()[0].SetLocation(u"REPORTS.dbo.tbNothing"_s);
    EXPECT_EQ(TextOfFailure([this] { report.Document(); }), u"Invalid object name."_s);
    EXPECT_FALSE(report.Tables()[0].HasLogOn());
}

TEST_F(ReportTest, KeepsATextOfItsOwnForTheLogOnAndOverwritesIt) {
    const QString password = u"secret"_s;
    ReportTable& table = report.Tables()[0];
    table.SetLogOnInfo({}, {}, {}, password);
    const QChar* kept = table.LogOn().password.constData();
    EXPECT_NE(kept, password.constData());
    EXPECT_EQ(kept[1], u'e');
    table.ForgetLogOn();
    for (qsizetype i = 0; i < password.size(); ++i)
        EXPECT_EQ(kept[i], QChar());
    EXPECT_EQ(password, u"secret"_s) << "the caller's text stays";
}

TEST_F(ReportTest, ShowsRowsParametersNamedQueriesAndItsMoment) {
    LogOn();
    FillIn();
    EXPECT_EQ(PageText(*report.Document(), 1).simplified(),
              u"HOSPITAL ANA 1 11/21/2026 10:30:15 AM 2 11/21/2026 10:30:15 AM"_s);
}

TEST_F(ReportTest, RefusesToFetchWithoutLogOn) {
    FillIn();
    EXPECT_EQ(TextOfFailure([this] { report.Document(); }),
              u"The report's table \"Lines\" is not logged on."_s);
}

TEST_F(ReportTest, RefusesToFetchWithoutAValue) {
    LogOn();
    EXPECT_EQ(TextOfFailure([this] { report.Document(); }), u"The parameter \"Start\" has no value."_s);
    EXPECT_TRUE(database.logOns.empty());
}

TEST_F(ReportTest, NamesFileAndLineOfAQueryWithoutRows) {
    ReportDatabase other;
    other.Set(u"tbLines"_s, nullptr);
    LogOn();
    FillIn();
    EXPECT_EQ(TextOfFailure([this] { report.Document(); }),
              u"r.rpt, line 11: The query gives no rows at all."_s);
}

TEST_F(ReportTest, CannotBeMadeWithoutAWayToTheDatabase) {
    SetReportConnector({});
    LogOn();
    FillIn();
    EXPECT_EQ(TextOfFailure([this] { report.Document(); }), u"ActiveX component can't create object"_s);
}

TEST(ParameterFieldTest, HoldsTheLastValueGiven) {
    ParameterField field({u"A"_s, FieldValueType::String, u"A"_s, Value(u"own"_s)});
    EXPECT_EQ(field.CurrentValue(), Value(u"own"_s));
    field.AddCurrentValue(u"one"_s);
    EXPECT_EQ(field.CurrentValue(), Value(u"one"_s));
    field.SetCurrentValue(u"two"_s);
    EXPECT_EQ(field.CurrentValue(), Value(u"two"_s));
}
