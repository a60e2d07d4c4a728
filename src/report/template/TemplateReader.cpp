#include "report/template/TemplateReader.h"

#include "report/template/BandReader.h"
#include "report/template/TemplateError.h"
#include "report/template/TemplatePieces.h"
#include "report/template/TemplateXml.h"
#include "text/RunTimeError.h"

#include <QPageSize>
#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr double kDefaultMargin = 36;
/// Of a paper's edge, in millimetres.
constexpr double kLongestEdge = 2000;
/// Each level is read within the one around it.
constexpr size_t kMostGroups = 20;

struct Paper {
    const char* name;
    QPageSize::PageSizeId id;
};
constexpr std::array kPapers = {Paper{"A4", QPageSize::A4}, Paper{"A5", QPageSize::A5},
                                Paper{"Letter", QPageSize::Letter},
                                Paper{"Half Letter", QPageSize::Statement}};

QPageSize ReadPaper(const TemplateAttributes& attributes, const QString& name) {
    for (const Paper& paper : kPapers) {
        if (name == QLatin1StringView(paper.name))
            return QPageSize(paper.id);
    }
    static const QRegularExpression kMillimetres(u"^(\\d+(?:\\.\\d+)?)x(\\d+(?:\\.\\d+)?)$"_s);
    const QRegularExpressionMatch size = kMillimetres.match(name);
    const QSizeF millimetres(size.captured(1).toDouble(), size.captured(2).toDouble());
    if (!size.hasMatch() || millimetres.isEmpty() || millimetres.width() > kLongestEdge ||
        millimetres.height() > kLongestEdge)
        attributes.Fail(
            u"The paper \"%1\" is not known: it is A4, A5, Letter, Half Letter or a size in millimetres "
            "such as 216x140."_s.arg(name));
    return QPageSize(millimetres, QPageSize::Millimeter, name, QPageSize::ExactMatch);
}

/// What must stand before what, since the later refers to the earlier.
enum class Stage { Parameters, Tables, Queries, Styles, Bands };

class TemplateReader {
  public:
    TemplateReader(const QString& file, const QByteArray& content)
        : mXml(file, content)
        , mBands(mXml, mReport) {
        mReport.file = file;
    }

    std::shared_ptr<const ReportTemplate> Read() {
        if (!mXml.NextChild() || mXml.Name() != "report"_L1)
            mXml.Fail(u"A template begins with <report>."_s);
        const int line = mXml.Line();
        ReadPage();
        while (mXml.NextChild())
            ReadPart();
        mXml.Finish();
        CheckWhole(line);
        ReadTitle();
        return std::make_shared<const ReportTemplate>(std::move(mReport));
    }

  private:
    void ReadPage() {
        TemplateAttributes attributes = mXml.Attributes();
        const QPageSize paper = ReadPaper(attributes, attributes.RequiredText(u"paper"_s));
        const auto landscape = attributes.Word(u"orientation"_s, {u"portrait"_s, u"landscape"_s});
        const double m = kDefaultMargin;
        const QList<double> margins = attributes.Lengths(u"margins"_s, 4).value_or(QList<double>{m, m, m, m});
        mReport.paper = QPageLayout(
            paper, landscape.value_or(0) == 1 ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
        mReport.margins = {margins[0], margins[1], margins[2], margins[3]};
        if (mReport.Body().width() < kLeastBody || mReport.Body().height() < kLeastBody)
            attributes.Fail(u"The margins leave no room on the page."_s);
        mBands.SetBaseStyle(attributes);
        mReport.title.line = attributes.Line();
        mTitle = attributes.Text(u"title"_s).value_or(QString());
        attributes.Done();
    }

    /// It stands before what it names.
    void ReadTitle() {
        mReport.title.format = u"yyyy-mm-dd"_s;
        mReport.title.text = ReadCellText(mReport, mReport.title.line, mTitle);
        for (const TextPiece& piece : mReport.title.text) {
            const bool paged = piece.kind == TextPiece::Kind::Page || piece.kind == TextPiece::Kind::Pages;
            if (paged || IsOfRows(piece))
                throw TemplateError(
                    mReport.file, mReport.title.line,
                    u"The title cannot show page numbers, nor the fields, sums or counts of the rows."_s);
        }
    }

    void Enter(Stage stage) {
        if (stage < mStage)
            mXml.Fail(
                u"<%1> stands too late: the order is <parameters>, <tables>, <query>, <styles> and then the "
                "bands."_s.arg(mXml.Name()));
        mStage = stage;
    }

    void ReadPart() {
        const QString name = mXml.Name();
        if (name == "parameters"_L1)
            ReadList(Stage::Parameters, u"parameter"_s, [this] { ReadParameter(); });
        else if (name == "tables"_L1)
            ReadList(Stage::Tables, u"table"_s, [this] { ReadTable(); });
        else if (name == "styles"_L1)
            ReadList(Stage::Styles, u"style"_s, [this] { mBands.ReadStyle(); });
        else if (name == "query"_L1)
            ReadQuery();
        else
            ReadBandOrGroup(name);
    }

    template <class ReadEntry> void ReadList(Stage stage, const QString& element, ReadEntry readEntry) {
        Enter(stage);
        mXml.Attributes().Done();
        while (mXml.NextChild()) {
            if (mXml.Name() != element)
                mXml.FailElement();
            readEntry();
        }
    }

    void ReadParameter() {
        TemplateAttributes attributes = mXml.Attributes();
        ReportParameter parameter;
        parameter.name = attributes.RequiredText(u"name"_s);
        constexpr std::array kTypes = {FieldValueType::String, FieldValueType::Number, FieldValueType::Date,
                                       FieldValueType::DateTime};
        attributes.RequiredText(u"type"_s);
        const auto type = attributes.Word(u"type"_s, {u"text"_s, u"number"_s, u"date"_s, u"datetime"_s});
        parameter.type = kTypes.at(static_cast<size_t>(*type));
        parameter.prompt = attributes.RequiredText(u"prompt"_s);
        if (const auto value = attributes.Text(u"value"_s))
            parameter.value = DefaultValue(attributes, parameter.type, *value);
        attributes.Done();
        CheckName(attributes, mReport.parameters, parameter.name);
        mReport.parameters.push_back(parameter);
        mXml.ExpectEnd();
    }

    static Value DefaultValue(const TemplateAttributes& attributes, FieldValueType type,
                              const QString& text) {
        const Value value(text);
        try {
            if (type == FieldValueType::Number)
                return value.ToDouble();
            return type == FieldValueType::String ? value : Value(value.ToDate());
        } catch (const RunTimeError&) {
            attributes.Fail(u"The value \"%1\" does not go with the type."_s.arg(text));
        }
    }

    void ReadTable() {
        TemplateAttributes attributes = mXml.Attributes();
        const ReportTableEntry table{attributes.RequiredText(u"name"_s),
                                     attributes.RequiredText(u"location"_s)};
        attributes.Done();
        if (!IsTableLocation(table.location))
            attributes.Fail(
                u"The location \"%1\" is not of the form Database.dbo.Table."_s.arg(table.location));
        CheckName(attributes, mReport.tables, table.name);
        mReport.tables.push_back(table);
        mXml.ExpectEnd();
    }

    void ReadQuery() {
        Enter(Stage::Queries);
        TemplateAttributes attributes = mXml.Attributes();
        ReportQuery query;
        query.line = attributes.Line();
        query.name = attributes.Text(u"name"_s).value_or(QString());
        attributes.Done();
        CheckName(attributes, mReport.queries, query.name);
        query.pieces = ReadQueryText(mReport, query.line, mXml.ReadText().trimmed());
        if (query.pieces.empty())
            attributes.Fail(u"The query is empty."_s);
        mReport.queries.insert(query.name.isEmpty() ? mReport.queries.begin() : mReport.queries.end(), query);
    }

    template <class Entry>
    static void CheckName(const TemplateAttributes& attributes, const std::vector<Entry>& entries,
                          const QString& name) {
        const bool taken = std::any_of(entries.begin(), entries.end(), [&name](const Entry& entry) {
            return name.compare(entry.name, Qt::CaseInsensitive) == 0;
        });
        if (taken)
            attributes.Fail(name.isEmpty() ? u"There is a second query without a name."_s
                                           : u"The name \"%1\" stands twice."_s.arg(name));
    }

    void ReadBandOrGroup(const QString& name) {
        Enter(Stage::Bands);
        if (name == "page-header"_L1)
            ReadBand(mReport.pageHeader, BandReader::Place::Page);
        else if (name == "page-footer"_L1)
            ReadBand(mReport.pageFooter, BandReader::Place::Page);
        else if (name == "report-header"_L1)
            ReadBand(mReport.reportHeader, BandReader::Place::Rows, Keeps::Next);
        else if (name == "report-footer"_L1)
            ReadBand(mReport.reportFooter, BandReader::Place::Rows, Keeps::Previous);
        else
            ReadDetailOrGroup(name);
    }

    void ReadDetailOrGroup(const QString& name) {
        if (name != "detail"_L1 && name != "group"_L1)
            mXml.FailElement();
        if (mReport.detail || mGroupsClosed)
            mXml.Fail(u"There is a second <%1> beside another; groups stand within each other and the detail "
                      "within the innermost."_s.arg(name));
        if (name == "detail"_L1)
            ReadBand(mReport.detail, BandReader::Place::Detail);
        else
            ReadGroup();
    }

    enum class Keeps { Nothing, Next, Previous };

    void ReadBand(std::optional<ReportBand>& band, BandReader::Place place, Keeps keeps = Keeps::Nothing) {
        if (band)
            mXml.Fail(u"There is a second <%1>."_s.arg(mXml.Name()));
        TemplateAttributes attributes = mXml.Attributes();
        const bool keptNext = keeps == Keeps::Next && attributes.YesNo(u"keep-with-next"_s).value_or(true);
        const bool keptPrevious =
            keeps == Keeps::Previous && attributes.YesNo(u"keep-with-previous"_s).value_or(true);
        band = mBands.Read(attributes, place);
        band->keepWithNext = keptNext;
        band->keepWithPrevious = keptPrevious;
    }

    void ReadGroup() {
        TemplateAttributes attributes = mXml.Attributes();
        const size_t number = mReport.groups.size();
        if (number == kMostGroups)
            attributes.Fail(u"There are more than %1 groups within each other."_s.arg(kMostGroups));
        ReportGroup group;
        group.line = attributes.Line();
        group.by = attributes.RequiredText(u"by"_s);
        group.keepTogether = attributes.YesNo(u"keep-together"_s).value_or(false);
        attributes.Done();
        mReport.groups.push_back(group);
        while (mXml.NextChild()) {
            const QString name = mXml.Name();
            if (name == "header"_L1)
                ReadGroupHeader(number);
            else if (name == "footer"_L1)
                ReadBand(mReport.groups[number].footer, BandReader::Place::Rows, Keeps::Previous);
            else
                ReadDetailOrGroup(name);
        }
        mGroupsClosed = true;
    }

    void ReadGroupHeader(size_t number) {
        auto& header = mReport.groups[number].header;
        if (header)
            mXml.Fail(u"There is a second <header>."_s);
        TemplateAttributes attributes = mXml.Attributes();
        const bool repeats = attributes.YesNo(u"repeat"_s).value_or(true);
        const bool keeps = attributes.YesNo(u"keep-with-next"_s).value_or(true);
        header = mBands.Read(attributes, BandReader::Place::Rows);
        header->repeats = repeats;
        header->keepWithNext = keeps;
    }

    void CheckWhole(int line) const {
        const auto fail = [&](const QString& what) { throw TemplateError(mReport.file, line, what); };
        if (mReport.tables.empty())
            fail(u"The template names no table."_s);
        if (mReport.queries.empty() || !mReport.queries.front().name.isEmpty())
            fail(u"The template has no <query> without a name, which gives the rows."_s);
        const double edges = (mReport.pageHeader ? mReport.pageHeader->height : 0) +
                             (mReport.pageFooter ? mReport.pageFooter->height : 0);
        if (mReport.Body().height() - edges < kLeastBody)
            fail(u"The page header and the page footer leave no room between them."_s);
    }

    ReportTemplate mReport;
    QString mTitle;
    TemplateXml mXml;
    BandReader mBands;
    Stage mStage = Stage::Parameters;
    bool mGroupsClosed = false;
};

} // namespace

std::shared_ptr<const ReportTemplate> ReadTemplate(const QString& file, const QByteArray& content) {
    if (content.size() > kLargestTemplate)
        throw TemplateError(file, 1, u"The file is larger than 1 MB, which no template is."_s);
    return TemplateReader(file, content).Read();
}

bool IsTableLocation(const QString& location) {
    static const QRegularExpression kLocation(
        u"^(\\w+|\\[[^\\[\\]]+\\])\\.(\\w*|\\[[^\\[\\]]+\\])\\.([\\w#$@]+|\\[[^\\[\\]]+\\])$"_s);
    return kLocation.match(location).hasMatch();
}
