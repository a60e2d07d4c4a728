#include "Benches.h"
#include "BenchTable.h"
#include "GiveUp.h"
#include "report/output/PdfJob.h"
#include "report/pages/ReportDocument.h"
#include "report/template/TemplateReader.h"
#include "report/viewer/PageView.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QPixmap>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPdfRows = 10000;
constexpr int kViewerRows = 100000;
constexpr int kRowsPerStation = 40;
constexpr int kReportRuns = 5;

constexpr double kPdfRatio = 1.3;
constexpr double kPdfMegabytes = 60;
constexpr double kFirstPageRatio = 2;
/// A clerk does not see it. Rows that share their values are spread more slowly than others, and a year of
/// them takes half the memory.
constexpr double kSpreadMilliseconds = 60;

/// As an audit of a department looks: grouped, with sums, a page number on every page and no row that wraps.
constexpr auto kTemplate = R"(
<report paper="A4" orientation="landscape" margins="10 10 10 10" size="8">
  <tables><table name="Charges" location="Clinical_Area.dbo.tbCharges"/></tables>
  <query>SELECT * FROM {Charges}</query>
  <page-header height="14">
    <text x="0" y="0" width="200" size="12" bold="yes">Audit Report</text>
    <text x="200" y="0" width="77" align="right">Page {page} of {pages}</text>
    <text x="0" y="8" width="30" bold="yes">Date</text>
    <text x="36" y="8" width="22" bold="yes">Slip</text>
    <text x="60" y="8" width="70" bold="yes">Patient</text>
    <text x="132" y="8" width="85" bold="yes">Particulars</text>
    <text x="219" y="8" width="20" bold="yes" align="right">Quantity</text>
    <text x="241" y="8" width="36" bold="yes" align="right">Amount</text>
  </page-header>
  <group by="Station">
    <header height="6"><text x="0" y="0" width="100" size="10" bold="yes">{Station}</text></header>
    <detail height="4.2">
      <text x="0" y="0" width="34" format="mm/dd/yyyy hh:mm AM/PM">{Date}</text>
      <text x="36" y="0" width="22">{Slip}</text>
      <text x="60" y="0" width="70">{Patient}</text>
      <text x="132" y="0" width="85">{Particulars}</text>
      <text x="219" y="0" width="20" align="right">{Quantity}</text>
      <text x="241" y="0" width="36" align="right" format="#,##0.00">{Amount}</text>
    </detail>
    <footer height="6">
      <text x="0" y="0" width="200" bold="yes">{count} lines</text>
      <text x="221" y="0" width="56" align="right" bold="yes" format="#,##0.00">{sum Amount}</text>
    </footer>
  </group>
  <report-footer height="8">
    <text x="221" y="1" width="56" align="right" bold="yes" format="#,##0.00">{sum Amount}</text>
  </report-footer>
</report>
)";

std::shared_ptr<const RowData> MakeRows(int count) {
    auto rows = std::make_shared<RowData>();
    rows->columns = {u"Station"_s,     u"Date"_s,     u"Slip"_s,  u"Patient"_s,
                     u"Particulars"_s, u"Quantity"_s, u"Amount"_s};
    for (int i = 0; i < count; ++i) {
        rows->Add(u"STATION %1"_s.arg(i / kRowsPerStation));
        rows->Add(*DateTime::FromFields({2026, 1 + i % 12, 1 + i % 28, i % 24, i % 60, 0, 0}));
        rows->Add(u"H%1C"_s.arg(1000 + i));
        rows->Add(u"DELA CRUZ, JUAN MIGUEL %1"_s.arg(i));
        rows->Add(u"HEMODIALYSIS TREATMENT, %1 HOURS"_s.arg(3 + i % 3));
        rows->Add(QString::number(1 + i % 5));
        rows->Add(Decimal{QString::number(100 + i % 9000) + u".5000"_s});
    }
    return rows;
}

std::shared_ptr<const ReportDocument> MakeDocument(const std::shared_ptr<const RowData>& rows) {
    static const auto kRead = ReadTemplate(u"bench"_s, kTemplate);
    return std::make_shared<const ReportDocument>(kRead, ReportValues{}, QueryRows{rows});
}

/// One text of a page, for the bare loop.
struct BareText {
    QPointF start;
    QString text;
    const ReportFont* font;
};

/// The texts of the first pages. Their faces live as long as `fonts`.
std::vector<std::vector<BareText>> BareTexts(const ReportDocument& document, int pages, ReportFonts& fonts) {
    std::vector<std::vector<BareText>> texts(static_cast<size_t>(pages));
    for (int page = 1; page <= pages; ++page) {
        for (const PageBand& band : document.BandsOf(page)) {
            const LaidBand laid = LayOutBand(*band.band, band.place, fonts);
            for (const LaidCell& cell : laid.cells) {
                for (const LaidLine& line : cell.lines)
                    texts[static_cast<size_t>(page - 1)].push_back(
                        {line.start + QPointF(band.x, band.y), line.text, cell.font});
            }
        }
    }
    return texts;
}

void PaintBare(QPainter& painter, const std::vector<BareText>& texts) {
    const ReportFont* font = nullptr;
    for (const BareText& text : texts) {
        if (font != text.font) {
            font = text.font;
            painter.setFont(font->Painted());
        }
        painter.drawText(text.start, text.text);
    }
}

void SaveBarePdf(const ReportDocument& document, const std::vector<std::vector<BareText>>& pages,
                 const QString& file) {
    QPdfWriter writer(file);
    writer.setPageLayout(document.Paper());
    QPainter painter;
    if (!painter.begin(&writer))
        GiveUp(u"cannot write "_s + file);
    painter.scale(writer.logicalDpiX() / 72.0, writer.logicalDpiY() / 72.0);
    for (size_t page = 0; page < pages.size(); ++page) {
        if (page > 0)
            writer.newPage();
        PaintBare(painter, pages[page]);
    }
}

void BenchPdf(BenchTable& table, const QString& folder) {
    const auto rows = MakeRows(kPdfRows);
    ResetPeak();
    const double ours = MedianMilliseconds(kReportRuns, [&] {
        if (const QString failure = PdfJob(*MakeDocument(rows), {}, folder + u"/ours.pdf"_s).Finish();
            !failure.isEmpty())
            GiveUp(failure);
    });
    const double peak = PeakSinceReset();
    const auto document = MakeDocument(rows);
    ReportFonts fonts;
    const auto texts = BareTexts(*document, document->PageCount(), fonts);
    const double bare =
        MedianMilliseconds(kReportRuns, [&] { SaveBarePdf(*document, texts, folder + u"/bare.pdf"_s); });
    table.Add(u"report of 10,000 grouped rows to PDF"_s, ours, bare, u"ms"_s, kPdfRatio);
    table.AddLimit(u"report of 10,000 grouped rows to PDF, peak memory"_s, peak, kPdfMegabytes, u"MB"_s);
}

void BenchFirstPage(BenchTable& table) {
    const auto rows = MakeRows(kViewerRows);
    const double spread = MedianMilliseconds(kReportRuns, [&] { MakeDocument(rows); });
    const auto document = MakeDocument(rows);
    PageView view;
    view.resize(1100, 700);
    view.show();
    QApplication::processEvents();
    QPixmap pixels(view.viewport()->size());
    const double ours = MedianMilliseconds(kReportRuns * kReportRuns, [&] {
        view.SetDocument(document);
        view.viewport()->render(&pixels);
    });
    ReportFonts fonts;
    const auto texts = BareTexts(*document, 1, fonts);
    const double scale = view.ZoomFactor() * view.logicalDpiX() / 72.0;
    const double bare = MedianMilliseconds(kReportRuns * kReportRuns, [&] {
        QPainter painter(&pixels);
        painter.fillRect(pixels.rect(), Qt::white);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        PaintBare(painter, texts.front());
    });
    table.Add(u"first page of 100,000 rows in the viewer"_s, ours, bare, u"ms"_s, kFirstPageRatio);
    table.AddLimit(u"100,000 rows spread over pages, none wrapping"_s, spread, kSpreadMilliseconds, u"ms"_s);
}

} // namespace

void BenchReports(BenchTable& table) {
    const QTemporaryDir folder;
    BenchPdf(table, folder.path());
    BenchFirstPage(table);
}
