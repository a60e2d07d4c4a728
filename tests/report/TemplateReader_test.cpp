#include "report/template/TemplateAttributes.h"
#include "report/template/TemplateReader.h"
#include "support/CaseName.h"
#include "support/report/ReportFixture.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kWhole = R"(<?xml version="1.0"?>
<!-- A comment may stand anywhere. -->
<report paper="A4" orientation="landscape" margins="10 20 30 40" font="DejaVu Serif" size="8">
  <parameters>
    <parameter name="Start" type="date" prompt="First day"/>
    <parameter name="At" type="datetime" prompt="Moment"/>
    <parameter name="@RequestNum" type="text" prompt="Request"/>
    <parameter name="Least" type="number" prompt="Least amount" value="12.5"/>
  </parameters>
  <tables>
    <table name="Charges" location="Clinical_Area.dbo.tbCharges"/>
    <table name="Hospital" location="PATIENT_DATA..tbhospitalInfo"/>
  </tables>
  <query name="Head">SELECT company FROM {Hospital}</query>
  <query>SELECT * FROM {charges} WHERE Day &gt;= {?start}</query>
  <styles>
    <style name="strong" size="12" bold="yes" italic="yes" align="right" color="#ff0000" fill="white" border="top left"/>
  </styles>
  <page-header height="10">
    <text x="1" y="2" width="30" height="5" style="strong">{Head.company}</text>
    <text x="40" y="2" width="30" align="center" show="several-pages">{page} / {pages}</text>
  </page-header>
  <report-header height="5" keep-with-next="no"/>
  <group by="Station" keep-together="yes">
    <header height="6"/>
    <group by="Patient">
      <header height="5" repeat="no" keep-with-next="no"/>
      <detail height="4">
        <text x="0" y="0" width="40" format="#,##0.00">
          first
          second {Amount}
        </text>
        <line x1="0" y1="4" x2="100" y2="4" thickness="0.5" color="gray" dashed="yes"/>
        <box x="0" y="0" width="10" height="4" fill="yellow"/>
      </detail>
      <footer height="5"/>
    </group>
    <footer height="6" keep-with-previous="no"><text x="0" y="0" width="40">{count} {sum Amount} {now}</text></footer>
  </group>
  <report-footer height="8"/>
  <page-footer height="9"/>
</report>
)";

ReportTemplate Whole() {
    return *ReadTemplate(u"whole.rpt"_s, kWhole);
}

} // namespace

TEST(TemplateReader, ReadsPaperAndMargins) {
    const ReportTemplate report = Whole();
    EXPECT_NEAR(report.PageSize().width(), 842, 1);
    EXPECT_NEAR(report.PageSize().height(), 595, 1);
    EXPECT_NEAR(report.Body().left(), MillimetresToPoints(10), 0.1);
    EXPECT_NEAR(report.Body().top(), MillimetresToPoints(20), 0.1);
    EXPECT_NEAR(report.Body().right(), 842 - MillimetresToPoints(30), 1);
    EXPECT_NEAR(report.Body().bottom(), 595 - MillimetresToPoints(40), 1);
}

TEST(TemplateReader, ReadsPaperOfAnySize) {
    const ReportTemplate report = *ReadTemplate(u"t"_s, SmallTemplate({}));
    EXPECT_NEAR(report.PageSize().width(), MillimetresToPoints(100), 1);
    EXPECT_NEAR(report.PageSize().height(), MillimetresToPoints(100), 1);
}

TEST(TemplateReader, ReadsParametersInTheirOrderWithTypesAndDefaults) {
    const auto parameters = Whole().parameters;
    ASSERT_EQ(parameters.size(), 4U);
    EXPECT_EQ(parameters[0].name, u"Start"_s);
    EXPECT_EQ(parameters[0].type, FieldValueType::Date);
    EXPECT_EQ(parameters[0].prompt, u"First day"_s);
    EXPECT_FALSE(parameters[0].value.has_value());
    EXPECT_EQ(parameters[1].type, FieldValueType::DateTime);
    EXPECT_EQ(parameters[2].name, u"@RequestNum"_s);
    EXPECT_EQ(parameters[2].type, FieldValueType::String);
    EXPECT_EQ(parameters[3].type, FieldValueType::Number);
    EXPECT_EQ(parameters[3].value, Value(12.5));
}

TEST(TemplateReader, PutsTheQueryOfTheRowsFirst) {
    const auto queries = Whole().queries;
    ASSERT_EQ(queries.size(), 2U);
    EXPECT_EQ(queries[0].name, QString());
    EXPECT_EQ(queries[1].name, u"Head"_s);
    ASSERT_EQ(queries[0].pieces.size(), 4U);
    EXPECT_EQ(queries[0].pieces[0].text, u"SELECT * FROM "_s);
    EXPECT_EQ(queries[0].pieces[1].kind, QueryPiece::Kind::Table);
    EXPECT_EQ(queries[0].pieces[1].number, 0U);
    EXPECT_EQ(queries[0].pieces[3].kind, QueryPiece::Kind::Parameter);
    EXPECT_EQ(queries[0].pieces[3].number, 0U);
}

TEST(TemplateReader, ReadsStylesAndWhatACellChangesInThem) {
    const auto cells = Whole().pageHeader->cells;
    ASSERT_EQ(cells.size(), 2U);
    const CellStyle& strong = cells[0].style;
    EXPECT_EQ(strong.size, 12);
    EXPECT_TRUE(strong.bold && strong.italic && strong.border.top && strong.border.left);
    EXPECT_FALSE(strong.border.bottom || strong.border.right);
    EXPECT_EQ(strong.align, CellAlign::Right);
    EXPECT_EQ(strong.color, QColor(Qt::red));
    EXPECT_EQ(strong.fill, QColor(Qt::white));
    EXPECT_EQ(strong.families.first(), u"DejaVu Serif"_s);
    EXPECT_EQ(cells[1].style.size, 8);
    EXPECT_EQ(cells[1].style.align, CellAlign::Center);
    EXPECT_TRUE(cells[1].onlySeveralPages);
    EXPECT_FALSE(cells[0].onlySeveralPages);
}

TEST(TemplateReader, ReadsGroupsFromTheOutermostWithTheirKeeps) {
    const ReportTemplate report = Whole();
    ASSERT_EQ(report.groups.size(), 2U);
    EXPECT_EQ(report.groups[0].by, u"Station"_s);
    EXPECT_TRUE(report.groups[0].keepTogether);
    EXPECT_TRUE(report.groups[0].header->repeats && report.groups[0].header->keepWithNext);
    EXPECT_FALSE(report.groups[0].footer->keepWithPrevious);
    EXPECT_EQ(report.groups[1].by, u"Patient"_s);
    EXPECT_FALSE(report.groups[1].keepTogether);
    EXPECT_FALSE(report.groups[1].header->repeats || report.groups[1].header->keepWithNext);
    EXPECT_TRUE(report.groups[1].footer->keepWithPrevious);
    EXPECT_FALSE(report.reportHeader->keepWithNext);
    EXPECT_TRUE(report.reportFooter->keepWithPrevious);
    EXPECT_TRUE(report.pageFooter.has_value());
}

TEST(TemplateReader, ReadsTheCellsAndMarksOfABand) {
    const ReportBand detail = *Whole().detail;
    EXPECT_NEAR(detail.height, MillimetresToPoints(4), 0.01);
    const ReportCell& cell = detail.cells.at(0);
    EXPECT_EQ(cell.text.at(0).text, u"first\nsecond "_s);
    EXPECT_EQ(cell.text.at(1).kind, TextPiece::Kind::Field);
    EXPECT_EQ(cell.text.at(1).text, u"Amount"_s);
    EXPECT_EQ(cell.format, u"#,##0.00"_s);
    EXPECT_TRUE(detail.lines.at(0).dashed);
    EXPECT_NEAR(detail.lines.at(0).line.x2(), MillimetresToPoints(100), 0.01);
    EXPECT_EQ(detail.boxes.at(0).fill, QColor(Qt::yellow));
}

TEST(TemplateReader, ReadsPicturesFromTheFolderOfTheTemplate) {
    const QTemporaryDir folder;
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(folder.filePath(u"logo.png"_s)));
    const ReportTemplate report = *ReadTemplate(
        folder.filePath(u"t.rpt"_s),
        SmallTemplate(
            u"<page-header height=\"9\"><image x=\"1\" y=\"1\" width=\"8\" height=\"8\" file=\"logo.png\"/></page-header>"_s));
    EXPECT_EQ(report.pageHeader->images.at(0).image.size(), QSize(2, 2));
}

namespace {

struct Mistake {
    std::string name;
    /// Line 3 of the file is where this stands.
    QString line;
    /// What the message must say.
    QString says;
};

/// Each mistake stands on line 3 of an otherwise good template.
class TemplateMistake : public testing::TestWithParam<Mistake> {};

QByteArray AroundBands(const QString& line) {
    return (u"<report paper=\"A4\"><tables><table name=\"T\" location=\"D.dbo.T\"/></tables>\n"
            "<query>SELECT 1 FROM {T}</query>\n"_s +
            line + u"\n</report>"_s)
        .toUtf8();
}

QString Text(const QString& attributes, const QString& text = u"a"_s) {
    return u"<detail height=\"5\"><text "_s + attributes + u">"_s + text + u"</text></detail>"_s;
}

} // namespace

TEST_P(TemplateMistake, IsAnErrorWithFileAndLine) {
    const QString failure =
        TextOfFailure([] { ReadTemplate(u"/r/Slip.RPT"_s, AroundBands(GetParam().line)); });
    EXPECT_TRUE(failure.startsWith(u"/r/Slip.RPT, line 3: "_s)) << failure.toStdString();
    EXPECT_TRUE(failure.contains(GetParam().says)) << failure.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Bands, TemplateMistake,
    testing::Values(
        Mistake{"UnclosedElement", u"<detail height=\"5\"></wrong>"_s, u"tag mismatch"_s},
        Mistake{"UnknownEntity", u"&name;"_s, u"ntity"_s},
        Mistake{"UnknownElement", u"<details height=\"5\"/>"_s, u"<details> does not belong here"_s},
        Mistake{"UnknownElementInABand", u"<detail height=\"5\"><cell/></detail>"_s, u"<cell>"_s},
        Mistake{"ElementWithinText", Text(u"x=\"0\" y=\"0\" width=\"9\""_s, u"<b>a</b>"_s),
                u"cannot hold <b>"_s},
        Mistake{"TextOutsideOfText", u"<detail height=\"5\">Total</detail>"_s,
                u"\"Total\" stands outside of <text>"_s},
        Mistake{"UnknownAttribute", Text(u"x=\"0\" y=\"0\" width=\"9\" colour=\"red\""_s),
                u"no attribute \"colour\""_s},
        Mistake{"UnknownAttributeOfABand", u"<detail height=\"5\" repeat=\"yes\"/>"_s,
                u"no attribute \"repeat\""_s},
        Mistake{"MissingAttribute", Text(u"x=\"0\" y=\"0\""_s), u"<text> needs the attribute \"width\""_s},
        Mistake{"MissingHeight", u"<detail/>"_s, u"needs the attribute \"height\""_s},
        Mistake{"BadNumber", Text(u"x=\"0\" y=\"0,5\" width=\"9\""_s),
                u"\"y\" of <text> is \"0,5\" and must be a number"_s},
        Mistake{"NegativeNumber", Text(u"x=\"-1\" y=\"0\" width=\"9\""_s), u"\"-1\""_s},
        Mistake{"NotANumberAtAll", Text(u"x=\"nan\" y=\"0\" width=\"9\""_s), u"\"nan\""_s},
        Mistake{"NumberBeyondAnyPaper", u"<detail height=\"5000\"/>"_s, u"\"5000\""_s},
        Mistake{"BadYesNo", Text(u"x=\"0\" y=\"0\" width=\"9\" bold=\"true\""_s), u"one of no, yes"_s},
        Mistake{"BadColor", Text(u"x=\"0\" y=\"0\" width=\"9\" color=\"redd\""_s), u"a colour such as"_s},
        Mistake{"BadAlign", Text(u"x=\"0\" y=\"0\" width=\"9\" align=\"middle\""_s),
                u"left, center, right"_s},
        Mistake{"BadBorder", Text(u"x=\"0\" y=\"0\" width=\"9\" border=\"under\""_s), u"not \"under\""_s},
        Mistake{"SizeOfNothing", Text(u"x=\"0\" y=\"0\" width=\"9\" size=\"0\""_s), u"above 0"_s},
        Mistake{"UnknownStyle", Text(u"x=\"0\" y=\"0\" width=\"9\" style=\"big\""_s), u"no style \"big\""_s},
        Mistake{"BeyondTheMargin", Text(u"x=\"150\" y=\"0\" width=\"50\""_s), u"beyond the right margin"_s},
        Mistake{"LineBeyondTheMargin",
                u"<detail height=\"5\"><line x1=\"0\" y1=\"0\" x2=\"200\" y2=\"0\"/></detail>"_s,
                u"beyond the right margin"_s},
        Mistake{"LineFromBeyondTheMargin",
                u"<detail height=\"5\"><line x1=\"200\" y1=\"0\" x2=\"0\" y2=\"0\"/></detail>"_s,
                u"beyond the right margin"_s},
        Mistake{"BelowTheBand", Text(u"x=\"0\" y=\"3\" width=\"9\" height=\"4\""_s),
                u"below the height of its band"_s},
        Mistake{"BoxBelowTheBand",
                u"<detail height=\"5\"><box x=\"0\" y=\"0\" width=\"9\" height=\"6\"/></detail>"_s,
                u"below the height of this band"_s},
        Mistake{"LineBelowTheBand",
                u"<detail height=\"5\"><line x1=\"0\" y1=\"0\" x2=\"9\" y2=\"6\"/></detail>"_s,
                u"below the height of this band"_s},
        Mistake{"UnknownParameter", Text(u"x=\"0\" y=\"0\" width=\"9\""_s, u"{?Room}"_s),
                u"no parameter \"Room\""_s},
        Mistake{"UnclosedBrace", Text(u"x=\"0\" y=\"0\" width=\"9\""_s, u"{Room"_s), u"without a \"}\""_s},
        Mistake{"UnopenedBrace", Text(u"x=\"0\" y=\"0\" width=\"9\""_s, u"Room}"_s), u"without a \"{\""_s},
        Mistake{"EmptyBraces", Text(u"x=\"0\" y=\"0\" width=\"9\""_s, u"{ }"_s), u"no name"_s},
        Mistake{
            "MissingPicture",
            u"<detail height=\"5\"><image x=\"0\" y=\"0\" width=\"9\" height=\"5\" file=\"none.png\"/></detail>"_s,
            u"\"none.png\" cannot be read"_s},
        Mistake{"FieldInAPageHeader",
                u"<page-header height=\"5\"><text x=\"0\" y=\"0\" width=\"9\">{Room}</text></page-header>"_s,
                u"cannot show the fields"_s},
        Mistake{"SumInAPageFooter",
                u"<page-footer height=\"5\"><text x=\"0\" y=\"0\" width=\"9\">{sum A}</text></page-footer>"_s,
                u"cannot show the fields"_s},
        Mistake{"SeveralPagesInARow", Text(u"x=\"0\" y=\"0\" width=\"9\" show=\"several-pages\""_s),
                u"belongs into a page header"_s},
        Mistake{"GroupWithoutColumn", u"<group><detail height=\"5\"/></group>"_s,
                u"<group> needs the attribute \"by\""_s},
        Mistake{"TwoDetails", u"<detail height=\"5\"/><detail height=\"5\"/>"_s, u"second <detail>"_s},
        Mistake{"TwoGroupsBesideEachOther", u"<group by=\"A\"/><group by=\"B\"/>"_s, u"second <group>"_s},
        Mistake{"TwoPageHeaders", u"<page-header height=\"1\"/><page-header height=\"1\"/>"_s,
                u"second <page-header>"_s},
        Mistake{"TwoGroupHeaders", u"<group by=\"A\"><header height=\"1\"/><header height=\"1\"/></group>"_s,
                u"second <header>"_s},
        Mistake{"QueryBehindTheBands", u"<detail height=\"5\"/><query name=\"B\">SELECT</query>"_s,
                u"stands too late"_s}),
    CaseName());

TEST(TemplateReader, RefusesAPictureBelowItsBand) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QImage(2, 2, QImage::Format_RGB32).save(folder.filePath(u"logo.png"_s)));
    const QString file = folder.filePath(u"t.rpt"_s);
    const QString band =
        u"<detail height=\"5\"><image x=\"0\" y=\"1\" width=\"9\" height=\"%1\" file=\"logo.png\"/></detail>"_s;
    EXPECT_EQ(TextOfFailure([&] { ReadTemplate(file, AroundBands(band.arg(4))); }), u"nothing was raised"_s);
    EXPECT_EQ(TextOfFailure([&] { ReadTemplate(file, AroundBands(band.arg(5))); }),
              file + u", line 3: A line, box or picture reaches below the height of this band."_s);
}

TEST(TemplateReader, NamesAFolderWithAPercentSignAsItIs) {
    const QString failure =
        TextOfFailure([] { ReadTemplate(u"/r %1 %2/Slip.RPT"_s, AroundBands(u"<cell/>"_s)); });
    EXPECT_EQ(failure, u"/r %1 %2/Slip.RPT, line 3: The element <cell> does not belong here."_s);
}

namespace {

struct HeadMistake {
    std::string name;
    QByteArray content;
    int line;
    QString says;
};

class TemplateHeadMistake : public testing::TestWithParam<HeadMistake> {};

} // namespace

TEST_P(TemplateHeadMistake, IsAnErrorWithFileAndLine) {
    const QString failure = TextOfFailure([] { ReadTemplate(u"a.rpt"_s, GetParam().content); });
    EXPECT_TRUE(failure.startsWith(u"a.rpt, line %1: "_s.arg(GetParam().line))) << failure.toStdString();
    EXPECT_TRUE(failure.contains(GetParam().says)) << failure.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Heads, TemplateHeadMistake,
    testing::Values(
        HeadMistake{"EmptyFile", "", 1, u"Premature end of document"_s},
        HeadMistake{"NoXml", "Slip", 1, u""_s},
        HeadMistake{"OtherRoot", "<slip/>", 1, u"A template begins with <report>"_s},
        HeadMistake{"Doctype", "<!DOCTYPE report [<!ENTITY a \"b\">]>\n<report paper=\"A4\"/>", 1,
                    u"DOCTYPE"_s},
        HeadMistake{"NoPaper", "<report/>", 1, u"needs the attribute \"paper\""_s},
        HeadMistake{"UnknownPaper", "\n<report paper=\"A7\"/>", 2, u"\"A7\" is not known"_s},
        HeadMistake{"WallOfPaper", "<report paper=\"2001x100\"/>", 1, u"\"2001x100\" is not known"_s},
        HeadMistake{"PaperBeyondAnyNumber", "<report paper=\"100x99999999999999999999\"/>", 1,
                    u"is not known"_s},
        HeadMistake{"AMillionCells",
                    "<report paper=\"A4\">" +
                        QByteArray("<text x=\"0\" y=\"0\" width=\"9\">a</text>").repeated(1000000),
                    1, u"larger than 1 MB"_s},
        HeadMistake{
            "GroupsWithoutEnd",
            "<report paper=\"A4\"><tables><table name=\"T\" location=\"D.dbo.T\"/></tables><query>S</query>"
            "\n" +
                QByteArray("<group by=\"A\">").repeated(70000),
            2, u"more than 20 groups within each other"_s},
        HeadMistake{"FlatPaper", "<report paper=\"0x10\"/>", 1, u"\"0x10\" is not known"_s},
        HeadMistake{"ThreeMargins", "<report paper=\"A4\" margins=\"1 2 3\"/>", 1, u"must be 4 numbers"_s},
        HeadMistake{"MarginsOverEachOther", "<report paper=\"A4\" margins=\"150 0 150 0\"/>", 1,
                    u"leave no room"_s},
        HeadMistake{"BadOrientation", "<report paper=\"A4\" orientation=\"wide\"/>", 1,
                    u"portrait, landscape"_s},
        HeadMistake{"NoTable", "<report paper=\"A4\"><query>SELECT 1</query></report>", 1,
                    u"names no table"_s},
        HeadMistake{"NoQuery",
                    "<report paper=\"A4\"><tables><table name=\"T\" location=\"D.dbo.T\"/></tables></report>",
                    1, u"no <query> without a name"_s},
        HeadMistake{
            "NoRoomBetweenTheEdges",
            "<report paper=\"A4\"><tables><table name=\"T\" location=\"D.dbo.T\"/></tables><query>S</query>"
            "<page-header height=\"200\"/><page-footer height=\"70\"/></report>",
            1, u"leave no room between them"_s},
        HeadMistake{"EmptyQuery",
                    "<report paper=\"A4\"><tables><table name=\"T\" location=\"D.dbo.T\"/></tables>\n<query> "
                    "</query></report>",
                    2, u"The query is empty"_s},
        HeadMistake{"TwoQueries",
                    "<report paper=\"A4\"><tables><table name=\"T\" "
                    "location=\"D.dbo.T\"/></tables>\n<query>S</query>\n"
                    "<query>S</query></report>",
                    3, u"second query without a name"_s},
        HeadMistake{"UnknownTable", "<report paper=\"A4\">\n<query>SELECT 1 FROM {T}</query></report>", 2,
                    u"no table \"T\""_s},
        HeadMistake{"UnknownParameterInAQuery", "<report paper=\"A4\">\n<query>SELECT {?A}</query></report>",
                    2, u"no parameter \"A\""_s},
        HeadMistake{"ParameterWithinQuotes",
                    "<report paper=\"A4\"><parameters><parameter name=\"A\" type=\"text\" "
                    "prompt=\"A\"/></parameters>\n"
                    "<query>SELECT 'it''s %{?A}%'</query></report>",
                    2, u"{?A} stands within quotes"_s},
        HeadMistake{"TableOfTwoParts",
                    "<report paper=\"A4\"><tables>\n<table name=\"T\" location=\"D.T\"/></tables></report>",
                    2, u"not of the form Database.dbo.Table"_s},
        HeadMistake{"TableNameTwice",
                    "<report paper=\"A4\"><tables><table name=\"T\" location=\"D.dbo.T\"/>\n"
                    "<table name=\"t\" location=\"D.dbo.U\"/></tables></report>",
                    2, u"\"t\" stands twice"_s},
        HeadMistake{"OtherElementAmongTables", "<report paper=\"A4\"><tables>\n<view/></tables></report>", 2,
                    u"<view>"_s},
        HeadMistake{"ParametersBehindTheTables", "<report paper=\"A4\"><tables/>\n<parameters/></report>", 2,
                    u"<parameters> stands too late"_s},
        HeadMistake{"UnknownType",
                    "<report paper=\"A4\"><parameters>\n<parameter name=\"A\" type=\"money\" "
                    "prompt=\"A\"/></parameters></report>",
                    2, u"one of text, number, date, datetime"_s},
        HeadMistake{
            "NoPrompt",
            "<report paper=\"A4\"><parameters>\n<parameter name=\"A\" type=\"text\"/></parameters></report>",
            2, u"needs the attribute \"prompt\""_s},
        HeadMistake{"DefaultOfAnotherType",
                    "<report paper=\"A4\"><parameters>\n<parameter name=\"A\" type=\"date\" prompt=\"A\" "
                    "value=\"soon\"/>"
                    "</parameters></report>",
                    2, u"\"soon\" does not go with the type"_s},
        HeadMistake{"StyleTwice",
                    "<report paper=\"A4\"><styles><style name=\"a\"/>\n<style name=\"a\"/></styles></report>",
                    2, u"two styles \"a\""_s},
        HeadMistake{"ElementWithinAStyle",
                    "<report paper=\"A4\"><styles><style name=\"a\">\n<b/></style></styles></report>", 2,
                    u"<b>"_s}),
    CaseName());

namespace {

struct Location {
    std::string name;
    QString text;
    bool valid;
};

class TableLocation : public testing::TestWithParam<Location> {};

} // namespace

TEST_P(TableLocation, IsToldFromOtherTexts) {
    EXPECT_EQ(IsTableLocation(GetParam().text), GetParam().valid);
}

INSTANTIATE_TEST_SUITE_P(Texts, TableLocation,
                         testing::Values(Location{"WithOwner", u"Clinical_Area.dbo.tbX"_s, true},
                                         Location{"TwoDots", u"PATIENT_DATA..tbX"_s, true},
                                         Location{"Brackets", u"[My Data].[dbo].[tb X]"_s, true},
                                         Location{"NoDatabase", u"dbo.tbX"_s, false},
                                         Location{"AStatementBehind", u"D.dbo.T; DELETE D.dbo.T"_s, false},
                                         Location{"ABracketWithin", u"D.dbo.[a]]b]"_s, false},
                                         Location{"Empty", u""_s, false}),
                         CaseName());
