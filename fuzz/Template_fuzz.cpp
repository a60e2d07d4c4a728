#include "fuzz/Fuzz.h"
#include "report/pages/PageText.h"
#include "report/pages/PaintPage.h"
#include "report/pages/ReportDocument.h"
#include "report/pages/ReportFont.h"
#include "report/template/TemplateReader.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <array>
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
    }

    size_t mQuery;
};

std::shared_ptr<const RowData> RowsFor(const ReportTemplate& report, size_t query) {
    auto rows = std::make_shared<RowData>();
    rows->columns = AskedFields(report, query).names;
    for (size_t i = 0; i < kRows * rows->columns.size(); ++i)
        rows->cells.push_back(Cells()[i * i % Cells().size()]);
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
    static const QGuiApplication application(*count, *words);
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Allowing([&] { Make(BytesOf(data, size)); });
    return 0;
}
