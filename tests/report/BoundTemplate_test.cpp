#include "report/pages/BandNumbers.h"
#include "report/pages/BoundTemplate.h"
#include "report/template/TemplateAttributes.h"
#include "report/template/TemplateReader.h"
#include "support/CaseName.h"
#include "support/report/ReportFixture.h"

#include <cmath>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

const QString kQueries = u"<query>S</query><query name=\"Head\">H</query>\n"_s;

/// The parts bound to rows of patients; whose hospital it is stands in a query of its own.
BoundTemplate Bound(const QString& parts) {
    const QueryRows queries = {Rows({u"Ward"_s, u"Name"_s, u"Amount"_s}, {{u"A"_s, u"ANA"_s, 1}}),
                               Rows({u"Company"_s}, {{u"HOSPITAL"_s}})};
    return {ReadTemplate(u"t"_s, SmallTemplate(kQueries + parts)), {{}, {}, u"nurse"_s}, queries};
}

QString Cell(const QString& text) {
    return u"<text x=\"0\" y=\"0\" width=\"50\">%1</text>"_s.arg(text);
}

/// The pieces of the one cell of a detail: words as they stand, anything else as its kind and column.
QStringList Pieces(const QString& text) {
    const BoundTemplate report = Bound(u"<detail height=\"5\">"_s + Cell(text) + u"</detail>"_s);
    static const QStringList kKinds = {u"words"_s, u"field"_s, u"page"_s, u"pages"_s, u"sum"_s, u"count"_s};
    QStringList pieces;
    for (const BoundPiece& piece : report.Bands()[BandNumbers(0).Detail()]->cells.at(0).text) {
        pieces << (piece.kind == BoundPiece::Kind::Words
                       ? piece.words
                       : u"%1 %2"_s.arg(kKinds[static_cast<int>(piece.kind)]).arg(piece.column));
    }
    return pieces;
}

} // namespace

TEST(BoundTemplate, FindsColumnsWhateverTheLetterCase) {
    EXPECT_THAT(Pieces(u"{name}{AMOUNT}{sum amount}{Ward}"_s),
                ElementsAre(u"field 1"_s, u"field 2"_s, u"sum 2"_s, u"field 0"_s));
}

TEST(BoundTemplate, MakesOneTextOfWhatIsTheSameAllOverTheReport) {
    EXPECT_THAT(Pieces(u"{head.company}, {user}: {Name}, {count} of {user}"_s),
                ElementsAre(u"HOSPITAL, nurse: "_s, u"field 1"_s, u", "_s, u"count 0"_s, u" of nurse"_s));
}

TEST(BoundTemplate, NumbersItsBandsInTheOrderInWhichTheyPrint) {
    const BoundTemplate report =
        Bound(u"<report-header height=\"1\"/><group by=\"Ward\"><header height=\"2\"/>"
              "<group by=\"Name\"><detail height=\"3\"/><footer height=\"4\"/></group>"
              "<footer height=\"5\"/></group><report-footer height=\"6\"/>"_s);
    std::vector<int> heights;
    for (const std::optional<BoundBand>& band : report.Bands())
        heights.push_back(band ? int(std::lround(band->read->height / MillimetresToPoints(1))) : 0);
    EXPECT_THAT(heights, ElementsAre(1, 2, 0, 3, 4, 5, 6));
    EXPECT_THAT(report.GroupColumns(), ElementsAre(0U, 1U));
    EXPECT_FALSE(report.PageHeader() || report.PageFooter());
}

namespace {

struct Unbound {
    std::string name;
    /// Stands on line 3 of the template.
    QString parts;
    QString column = u"Nobody"_s;
};

class BoundTemplateFailure : public testing::TestWithParam<Unbound> {};

QString Band(const QString& band, const QString& text) {
    return u"<%1 height=\"5\">%2</%1>"_s.arg(band, Cell(text));
}

} // namespace

TEST_P(BoundTemplateFailure, NamesFileLineAndColumn) {
    EXPECT_EQ(TextOfFailure([] { Bound(GetParam().parts); }),
              u"t, line 3: The rows have no field \"%1\"."_s.arg(GetParam().column));
}

INSTANTIATE_TEST_SUITE_P(
    Columns, BoundTemplateFailure,
    testing::Values(
        Unbound{"Field", Band(u"detail"_s, u"{Nobody}"_s)},
        Unbound{"Sum", Band(u"detail"_s, u"{sum Nobody}"_s)},
        Unbound{"FieldAmongWords", Band(u"detail"_s, u"of {Name} and {Nobody}"_s)},
        Unbound{"FieldOfANamedQuery", Band(u"detail"_s, u"{Head.Nobody}"_s)},
        Unbound{"ColumnOfAnotherQuery", Band(u"detail"_s, u"{Company}"_s), u"Company"_s},
        Unbound{"PageHeader", Band(u"page-header"_s, u"{Head.Nobody}"_s)},
        Unbound{"PageFooter", Band(u"page-footer"_s, u"{Head.Nobody}"_s)},
        Unbound{"ReportHeader", Band(u"report-header"_s, u"{Nobody}"_s)},
        Unbound{"ReportFooter", Band(u"report-footer"_s, u"{sum Nobody}"_s)},
        Unbound{"Group", u"<group by=\"Nobody\"/>"_s},
        Unbound{"GroupWithin", u"<group by=\"Ward\"><group by=\"Nobody\"/></group>"_s},
        Unbound{"GroupHeader", u"<group by=\"Ward\">"_s + Band(u"header"_s, u"{Nobody}"_s) + u"</group>"_s},
        Unbound{"GroupFooter", u"<group by=\"Ward\">"_s + Band(u"footer"_s, u"{Nobody}"_s) + u"</group>"_s}),
    CaseName());
