#include "report/template/BandReader.h"

#include "report/template/TemplateError.h"
#include "report/template/TemplatePieces.h"
#include "text/RunTimeError.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The height of a line of text for its size.
constexpr double kLineHeight = 1.2;
/// Lengths are keyed in tenths of millimetres; less than a tenth of a point is nothing.
constexpr double kReadTolerance = 0.1;
/// A chart smaller than that, in points, shows nothing.
constexpr double kLeastChart = MillimetresToPoints(20) - kReadTolerance;
/// Of the words round a chart.
constexpr double kChartSize = 7.5;

/// The text of an element without the indentation of the file.
QString WithoutIndentation(const QString& text) {
    QStringList lines;
    const QStringList written = text.trimmed().split(u'\n');
    for (const QString& line : written)
        lines << line.trimmed();
    return lines.join(u'\n');
}

CellBorder ReadBorder(const TemplateAttributes& attributes, const QString& words) {
    CellBorder border;
    const QStringList edges = words.split(u' ', Qt::SkipEmptyParts);
    for (const QString& edge : edges) {
        const bool all = edge == "all"_L1;
        if (!all && edge != "left"_L1 && edge != "top"_L1 && edge != "right"_L1 && edge != "bottom"_L1 &&
            edge != "none"_L1)
            attributes.Fail(
                u"A border is made of left, top, right, bottom, all or none, not \"%1\"."_s.arg(edge));
        border.left |= all || edge == "left"_L1;
        border.top |= all || edge == "top"_L1;
        border.right |= all || edge == "right"_L1;
        border.bottom |= all || edge == "bottom"_L1;
    }
    return border;
}

} // namespace

BandReader::BandReader(TemplateXml& xml, const ReportTemplate& report)
    : mXml(xml)
    , mReport(report) {}

void BandReader::SetBaseStyle(TemplateAttributes& attributes) {
    // The same faces as on the screens; the second is on every machine that the workstation is installed on.
    mBase.families = {u"Liberation Sans"_s, u"DejaVu Sans"_s};
    if (const auto font = attributes.Text(u"font"_s))
        mBase.families.prepend(*font);
    if (const auto size = attributes.Number(u"size"_s))
        mBase.size = *size;
    if (mBase.size <= 0)
        attributes.Fail(u"The attribute \"size\" must be above 0."_s);
}

void BandReader::ReadStyle() {
    TemplateAttributes attributes = mXml.Attributes();
    const QString name = attributes.RequiredText(u"name"_s);
    CellStyle style = mBase;
    ReadStyleAttributes(attributes, style);
    attributes.Done();
    if (mStyles.contains(name))
        attributes.Fail(u"There are two styles \"%1\"."_s.arg(name));
    mStyles.insert(name, style);
    mXml.ExpectEnd();
}

void BandReader::ReadStyleAttributes(TemplateAttributes& attributes, CellStyle& style) const {
    if (const auto font = attributes.Text(u"font"_s))
        style.families.prepend(*font);
    style.size = attributes.Number(u"size"_s).value_or(style.size);
    if (style.size <= 0)
        attributes.Fail(u"The attribute \"size\" must be above 0."_s);
    style.bold = attributes.YesNo(u"bold"_s).value_or(style.bold);
    style.italic = attributes.YesNo(u"italic"_s).value_or(style.italic);
    if (const auto align = attributes.Word(u"align"_s, {u"left"_s, u"center"_s, u"right"_s}))
        style.align = static_cast<CellAlign>(*align);
    style.color = attributes.Color(u"color"_s).value_or(style.color);
    style.fill = attributes.Color(u"fill"_s).value_or(style.fill);
    if (const auto border = attributes.Text(u"border"_s))
        style.border = ReadBorder(attributes, *border);
}

CellStyle BandReader::StyleOf(TemplateAttributes& attributes) const {
    CellStyle style = mBase;
    if (const auto name = attributes.Text(u"style"_s)) {
        const auto named = mStyles.constFind(*name);
        if (named == mStyles.constEnd())
            attributes.Fail(u"There is no style \"%1\"."_s.arg(*name));
        style = *named;
    }
    ReadStyleAttributes(attributes, style);
    return style;
}

ReportBand BandReader::Read(TemplateAttributes& attributes, Place place) {
    ReportBand band;
    band.line = attributes.Line();
    band.height = attributes.RequiredLength(u"height"_s);
    attributes.Done();
    while (mXml.NextChild()) {
        const QString name = mXml.Name();
        if (name == "text"_L1)
            band.cells.push_back(ReadCell(place));
        else if (name == "barcode"_L1)
            band.cells.push_back(ReadBarcode(place));
        else if (name == "line"_L1)
            band.lines.push_back(ReadLine());
        else if (name == "box"_L1)
            band.boxes.push_back(ReadBox());
        else if (name == "image"_L1)
            band.images.push_back(ReadImage());
        else if (name == "chart"_L1)
            band.charts.push_back(ReadChart(place));
        else
            mXml.FailElement();
    }
    CheckWithin(band);
    return band;
}

QRectF BandReader::ReadRect(TemplateAttributes& attributes, double height) const {
    const QRectF rect(attributes.RequiredLength(u"x"_s), attributes.RequiredLength(u"y"_s),
                      attributes.RequiredLength(u"width"_s), height);
    CheckRight(attributes, rect.right());
    return rect;
}

void BandReader::CheckRight(const TemplateAttributes& attributes, double right) const {
    if (right > mReport.Body().width() + kReadTolerance)
        attributes.Fail(u"This reaches beyond the right margin."_s);
}

ReportCell BandReader::ReadCell(Place place) {
    TemplateAttributes attributes = mXml.Attributes();
    ReportCell cell;
    cell.line = attributes.Line();
    cell.style = StyleOf(attributes);
    cell.box = ReadRect(attributes, attributes.Length(u"height"_s).value_or(cell.style.size * kLineHeight));
    cell.format = attributes.Text(u"format"_s).value_or(QString());
    cell.onlySeveralPages = attributes.Word(u"show"_s, {u"always"_s, u"several-pages"_s}).value_or(0) == 1;
    attributes.Done();
    ReadText(cell, place);
    return cell;
}

ReportCell BandReader::ReadBarcode(Place place) {
    TemplateAttributes attributes = mXml.Attributes();
    ReportCell cell;
    cell.line = attributes.Line();
    cell.isBarcode = true;
    cell.style = mBase;
    cell.style.color = attributes.Color(u"color"_s).value_or(cell.style.color);
    cell.box = ReadRect(attributes, attributes.RequiredLength(u"height"_s));
    attributes.Done();
    ReadText(cell, place);
    return cell;
}

void BandReader::ReadText(ReportCell& cell, Place place) {
    cell.text = ReadCellText(mReport, cell.line, WithoutIndentation(mXml.ReadText()));
    CheckPieces(cell, place);
}

/// The strips at the page's edges stand on every page alike and belong to no row.
void BandReader::CheckPieces(const ReportCell& cell, Place place) const {
    if (place != Place::Page) {
        if (cell.onlySeveralPages)
            throw TemplateError(mReport.file, cell.line,
                                u"show=\"several-pages\" belongs into a page header or page footer."_s);
        return;
    }
    for (const TextPiece& piece : cell.text) {
        if (IsOfRows(piece))
            throw TemplateError(
                mReport.file, cell.line,
                u"A page header or page footer cannot show the fields, sums or counts of the rows."_s);
    }
}

ReportLine BandReader::ReadLine() {
    TemplateAttributes attributes = mXml.Attributes();
    ReportLine line;
    line.line = QLineF(attributes.RequiredLength(u"x1"_s), attributes.RequiredLength(u"y1"_s),
                       attributes.RequiredLength(u"x2"_s), attributes.RequiredLength(u"y2"_s));
    CheckRight(attributes, std::max(line.line.x1(), line.line.x2()));
    line.thickness = attributes.Length(u"thickness"_s).value_or(line.thickness);
    line.color = attributes.Color(u"color"_s).value_or(line.color);
    line.dashed = attributes.YesNo(u"dashed"_s).value_or(false);
    attributes.Done();
    mXml.ExpectEnd();
    return line;
}

ReportBox BandReader::ReadBox() {
    TemplateAttributes attributes = mXml.Attributes();
    ReportBox box;
    box.box = ReadRect(attributes, attributes.RequiredLength(u"height"_s));
    box.thickness = attributes.Length(u"thickness"_s).value_or(box.thickness);
    box.color = attributes.Color(u"color"_s).value_or(box.color);
    box.fill = attributes.Color(u"fill"_s).value_or(box.fill);
    attributes.Done();
    mXml.ExpectEnd();
    return box;
}

ReportImage BandReader::ReadImage() {
    TemplateAttributes attributes = mXml.Attributes();
    ReportImage image;
    image.box = ReadRect(attributes, attributes.RequiredLength(u"height"_s));
    const QString file = attributes.RequiredText(u"file"_s);
    attributes.Done();
    image.image = QImage(QFileInfo(mReport.file).path() + u'/' + file);
    if (image.image.isNull())
        attributes.Fail(u"The picture \"%1\" cannot be read."_s.arg(file));
    mXml.ExpectEnd();
    return image;
}

ReportChart BandReader::ReadChart(Place place) {
    TemplateAttributes attributes = mXml.Attributes();
    if (place != Place::Rows)
        attributes.Fail(u"A chart stands in the header or the footer of a group or of the report."_s);
    ReportChart chart;
    chart.line = attributes.Line();
    chart.box = ReadRect(attributes, attributes.RequiredLength(u"height"_s));
    if (chart.box.width() < kLeastChart || chart.box.height() < kLeastChart)
        attributes.Fail(u"A chart is at least 20 mm wide and high."_s);
    attributes.RequiredText(u"kind"_s);
    chart.kind = static_cast<ChartKind>(*attributes.Word(u"kind"_s, {u"bars"_s, u"stacked"_s, u"line"_s}));
    chart.title = attributes.Text(u"title"_s).value_or(QString());
    chart.by = attributes.RequiredText(u"by"_s);
    chart.label = attributes.Text(u"label"_s).value_or(chart.by);
    chart.only = attributes.Text(u"only"_s).value_or(QString());
    chart.is = attributes.Text(u"is"_s).value_or(QString());
    if (chart.only.isEmpty() != chart.is.isEmpty())
        attributes.Fail(u"\"only\" and \"is\" go together: a column and the text that it shows."_s);
    chart.format = attributes.Text(u"format"_s).value_or(u"#,##0"_s);
    chart.style = mBase;
    chart.style.size = attributes.Number(u"size"_s).value_or(kChartSize);
    if (chart.style.size <= 0)
        attributes.Fail(u"The attribute \"size\" must be above 0."_s);
    attributes.Done();
    while (mXml.NextChild())
        chart.series.push_back(ReadSeries());
    if (chart.series.empty() || chart.series.size() > kMostSeries)
        attributes.Fail(u"A chart has one to %1 <series>."_s.arg(kMostSeries));
    return chart;
}

ChartSeries BandReader::ReadSeries() {
    if (mXml.Name() != "series"_L1)
        mXml.FailElement();
    TemplateAttributes attributes = mXml.Attributes();
    ChartSeries series;
    series.line = attributes.Line();
    series.value = attributes.RequiredText(u"value"_s);
    series.label = attributes.Text(u"label"_s).value_or(series.value);
    attributes.Done();
    mXml.ExpectEnd();
    return series;
}

void BandReader::CheckWithin(const ReportBand& band) const {
    const double limit = band.height + kReadTolerance;
    for (const ReportCell& cell : band.cells) {
        if (cell.box.bottom() > limit)
            throw TemplateError(mReport.file, cell.line,
                                u"This text reaches below the height of its band."_s);
    }
    for (const ReportChart& chart : band.charts) {
        if (chart.box.bottom() > limit)
            throw TemplateError(mReport.file, chart.line,
                                u"This chart reaches below the height of its band."_s);
    }
    const bool beyond =
        std::any_of(band.boxes.begin(), band.boxes.end(),
                    [limit](const ReportBox& box) { return box.box.bottom() > limit; }) ||
        std::any_of(band.images.begin(), band.images.end(),
                    [limit](const ReportImage& image) { return image.box.bottom() > limit; }) ||
        std::any_of(band.lines.begin(), band.lines.end(), [limit](const ReportLine& line) {
            return std::max(line.line.y1(), line.line.y2()) > limit;
        });
    if (beyond)
        throw TemplateError(mReport.file, band.line,
                            u"A line, box or picture reaches below the height of this band."_s);
}
