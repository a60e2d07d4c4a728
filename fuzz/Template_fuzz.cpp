#include "fuzz/Fuzz.h"
#include "report/pages/PageText.h"
#include "report/pages/PaintPage.h"
#include "report/pages/ReportDocument.h"
#include "report/pages/ReportFont.h"
#include "report/template/TemplateReader.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <fuzzer/FuzzedDataProvider.h>
#include <limits>

using namespace Qt::StringLiterals;

// Report templates: read, bound to rows that have every field they name, spread over pages, and the first and
// the last page shown.

namespace {

constexpr size_t kRows = 12;

const std::array<Value, 11>& Cells() {
    static const std::array<Value, 11> cells = {Value(),
                                                Value(u"DELA CRUZ, JUAN"_s),
                                                Value(qint64(42)),
                                                Value(Decimal{u"-1250.5000"_s}),
                                                Value(0.1),
                                                Value(*DateTime::FromFields({2026, 11, 21, 14, 2, 3, 456})),
                                                Value(QString(300, u'N')),
                                                Value(u"line\nline\n\nline"_s),
                                                Value(true),
                                                Value(std::numeric_limits<qint64>::min()),
                                                Value(u"Peña 漢字 😀"_s)};
    return cells;
}

void AddName(std::vector<QString>& names, const QString& name) {
    if (std::find(names.begin(), names.end(), name) == names.end())
        names.push_back(name);
}

/// The fields that a query of the template is asked for.
class AskedFields {
  public:
    AskedFields(const ReportTemplate& report, size_t query)
        : mQuery(query) {
        for (const auto* band : {&report.pageHeader, &report.pageFooter, &report.reportHeader,
                                 &report.reportFooter, &report.detail})
            Look(*band);
        for (const ReportGroup& group : report.groups) {
            if (query == 0)
                AddName(names, group.by);
            Look(group.header);
            Look(group.footer);
        }
    }

    std::vector<QString> names;

  private:
    void Look(const std::optional<ReportBand>& band) {
        if (!band)
            return;
        for (const ReportCell& cell : band->cells) {
            for (const TextPiece& piece : cell.text) {
                const bool named = piece.kind == TextPiece::Kind::Field || piece.kind == TextPiece::Kind::Sum;
                if (named && piece.query.value_or(0) == mQuery)
                    AddName(names, piece.text);
            }
        }
        for (const ReportChart& chart : band->charts)
            Look(chart);
    }

    void Look(const ReportChart& chart) {
        if (mQuery != 0)
            return;
        AddName(names, chart.by);
        AddName(names, chart.label);
        if (!chart.only.isEmpty())
            AddName(names, chart.only);
        for (const ChartSeries& series : chart.series)
            AddName(names, series.value);
    }

    size_t mQuery;
};

std::shared_ptr<const RowData> RowsFor(const ReportTemplate& report, size_t query) {
    auto rows = std::make_shared<RowData>();
    rows->columns = AskedFields(report, query).names;
    for (size_t i = 0; i < kRows * rows->columns.size(); ++i)
        rows->Add(Cells()[i * i % Cells().size()]);
    return rows;
}

void Show(const ReportDocument& document, int page) {
    ReportFonts fonts;
    TextOfPage(document, page, fonts);
    QImage paper(200, 280, QImage::Format_RGB32);
    QPainter painter(&paper);
    painter.scale(0.3, 0.3);
    PaintPage(painter, document, page, fonts);
}

/// Writes a template that the reader mostly takes, so that the pages have their share: an input that begins
/// with no element says what stands in it.
class Writer {
  public:
    explicit Writer(FuzzedDataProvider& input)
        : mInput(input) {}

    QByteArray Write() {
        mText =
            u"<report paper=\"%1x%2\" margins=\"1 1 1 1\" size=\"%3\"><tables><table name=\"T\" location=\"D..T\"/>"
            "</tables><query>SELECT 1 FROM {T}</query>"_s.arg(Number(10, 300), Number(10, 300),
                                                              Number(0, 40));
        AddBand(u"page-header"_s);
        AddBand(u"report-header"_s);
        const int groups = mInput.ConsumeIntegralInRange(0, 4);
        for (int i = 0; i < groups; ++i) {
            mText += u"<group by=\"g%1\" keep-together=\"%2\">"_s.arg(QString::number(i), YesNo());
            AddBand(u"header"_s, u" repeat=\"%1\" keep-with-next=\"%2\""_s.arg(YesNo(), YesNo()));
        }
        AddBand(u"detail"_s);
        for (int i = 0; i < groups; ++i) {
            AddBand(u"footer"_s, u" keep-with-previous=\"%1\""_s.arg(YesNo()));
            mText += u"</group>"_s;
        }
        AddBand(u"report-footer"_s);
        AddBand(u"page-footer"_s);
        return (mText + u"</report>"_s).toUtf8();
    }

  private:
    QString YesNo() { return mInput.ConsumeBool() ? u"yes"_s : u"no"_s; }
    QString Number(int least, int most) {
        const int tenths = mInput.ConsumeIntegralInRange(10 * least, 10 * most);
        return QString::number(tenths / 10.0);
    }
    QString Words() { return QString::fromUtf8(mInput.ConsumeRandomLengthString(40)).toHtmlEscaped(); }

    void AddBand(const QString& name, const QString& more = {}) {
        if (mInput.ConsumeIntegralInRange(0, 3) == 0)
            return;
        mText += u"<%1 height=\"%2\"%3>"_s.arg(name, Number(0, 60), more);
        for (int cells = mInput.ConsumeIntegralInRange(0, 4); cells > 0; --cells)
            AddCell();
        if (name.endsWith(u"r"_s) && !name.startsWith(u"page"_s) && mInput.ConsumeBool())
            AddChart();
        mText += u"</%1>"_s.arg(name);
    }

    void AddCell() {
        static const QStringList formats = {
            {}, u"0.00"_s, u"#,##0.0#"_s, u"mm/dd/yyyy hh:nn AM/PM"_s, u"dddd"_s};
        static const QStringList aligns = {u"left"_s, u"center"_s, u"right"_s};
        static const QStringList fields = {
            {}, u"{a}"_s, u"{b}"_s, u"{sum c}"_s, u"{count} {page}/{pages}"_s, u"{now}"_s};
        mText +=
            u"<text x=\"%1\" y=\"%2\" width=\"%3\" size=\"%4\" format=\"%5\" align=\"%6\" border=\"all\">%7%8"
            "</text>"_s.arg(Number(0, 20), Number(0, 20), Number(0, 60), Number(0, 90), One(formats),
                            One(aligns), Words(), One(fields));
    }

    void AddChart() {
        mText +=
            u"<chart x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" size=\"%5\" kind=\"%6\" by=\"a\" "
            "title=\"%7\" format=\"%8\">"_s.arg(Number(0, 20), Number(0, 5), Number(20, 60), Number(20, 50),
                                                Number(1, 40), One({u"bars"_s, u"stacked"_s, u"line"_s}),
                                                Words(), One({u"#,##0"_s, u"0.00"_s, u"dddd"_s}));
        for (int series = mInput.ConsumeIntegralInRange(1, 4); series > 0; --series)
            mText += u"<series value=\"%1\" label=\"%2\"/>"_s.arg(One({u"b"_s, u"c"_s}), Words());
        mText += u"</chart>"_s;
    }

    QString One(const QStringList& texts) {
        return texts[mInput.ConsumeIntegralInRange<qsizetype>(0, texts.size() - 1)];
    }

    FuzzedDataProvider& mInput;
    QString mText;
};

QByteArray ContentOf(const std::uint8_t* data, std::size_t size) {
    const QByteArray content = BytesOf(data, size);
    if (content.startsWith('<'))
        return content;
    FuzzedDataProvider input(data, size);
    return Writer(input).Write();
}

void Make(const QByteArray& content) {
    const auto report = ReadTemplate(u"fuzz.rpt"_s, content);
    ReportValues values{
        std::vector<Value>(report->parameters.size(), Value(u"11/21/2026"_s)), {}, u"NURSE"_s};
    QueryRows queries;
    for (size_t query = 0; query < report->queries.size(); ++query)
        queries.push_back(RowsFor(*report, query));
    const ReportDocument document(report, values, queries);
    document.Groups();
    Show(document, 1);
    Show(document, document.PageCount());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    [[maybe_unused]] static const auto* const application = new QGuiApplication(*count, *words);
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Allowing([&] { Make(ContentOf(data, size)); });
    return 0;
}
