#include "Benches.h"
#include "BenchSession.h"
#include "BenchTable.h"
#include "components/shared.h"
#include "GiveUp.h"
#include "MeasuredReports.h"
#include "RecordedStatements.h"
#include "report/output/PdfJob.h"
#include "report/pages/PagedPaint.h"
#include "report/pages/PaintPage.h"
#include "reports/Reports.h"
#include "toolkit/ProgramFiles.h"
#include "trial/HospitalEngine.h"
#include "YearHospital.h"

#include <QCoreApplication>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QStandardPaths>
#include <QTextStream>

#include <array>
#include <cstdio>
#include <malloc.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kYearRuns = 3;
constexpr double kYearFirstPageRatio = 1.5;
/// What a window, a connection and a page cost however few rows there are.
constexpr double kAtOnce = 150;
constexpr int kMonths = 12;
constexpr int kManyPages = 50;
/// What a year's report may hold with its window and its PDF under way.
constexpr double kYearMegabytes = 150;
constexpr double kPdfOfPainting = 1.2;
/// Rows of the comparison with another tool, which takes a multiple of them for a multiple of the time.
constexpr int kToolRows = 10000;

struct Period {
    const char* name;
    int days;
};
constexpr std::array kPeriods = {Period{"day", 1}, Period{"month", 30}, Period{"year", 360}};

QString Name(const char* text) {
    return QString::fromLatin1(text);
}

/// Takes what is written and keeps nothing.
class Nowhere : public QIODevice {
  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 length) override { return length; }
};

void PaintIntoNothing(const ReportDocument& document) {
    Nowhere nowhere;
    nowhere.open(QIODevice::WriteOnly);
    QPdfWriter writer(&nowhere);
    writer.setPageLayout(document.Paper());
    QPainter painter;
    ReportFonts fonts;
    BeginPages(painter, writer);
    for (int page = 1; page <= document.PageCount(); ++page) {
        if (page > 1)
            writer.newPage();
        PaintPage(painter, document, page, fonts);
    }
}

struct Figures {
    double bare = 0;
    double fetch = 0;
    double firstPage = 0;
    double pdf = 0;
    /// The pages painted as the PDF has them, into nothing.
    double painting = 0;
    double megabytes = 0;
    /// Above those of the opened report.
    double pdfMegabytes = 0;
    size_t rows = 0;
    int pages = 0;
};

class ReportsOfTheYear {
  public:
    /// `only` is the beginning of the names of the reports that are measured; empty for all.
    ReportsOfTheYear(BenchTable& table, const ReportConnections& connections, QString only)
        : mTable(table)
        , mOnly(std::move(only))
        , mConnections(connections)
        , mLastDay(connections.LastDay()) {}

    void MeasurePeriods(const PeriodReport& report) {
        if (!IsThere(report.name, report.file))
            return;
        std::vector<Figures> figures;
        for (const Period& period : kPeriods) {
            const QString what = Name(report.name) + u", one "_s + Name(period.name);
            figures.push_back(Measure(
                what, [&] { OpenPeriod(report, mLastDay, period.days); }, period.days == kPeriods[1].days));
        }
        const QString growth = Name(report.name) + u", from one month to twelve: "_s;
        mTable.AddLimit(growth + u"first page, times"_s, figures[2].firstPage / figures[1].firstPage, kMonths,
                        u""_s);
        // What a file costs whatever is in it would hide the pages of a short one.
        if (figures[1].pages >= kManyPages) {
            const double page = figures[2].pdf / figures[2].pages;
            mTable.AddLimit(growth + u"PDF, times a page"_s, page / (figures[1].pdf / figures[1].pages), 1.1,
                            u""_s);
            mTable.AddLimit(growth + u"PDF, times the painting"_s,
                            page / (figures[1].painting / figures[1].pages), kPdfOfPainting, u""_s);
        }
        mTable.AddLimit(Name(report.name) + u", one year: memory with its PDF"_s,
                        figures[2].megabytes + figures[2].pdfMegabytes, kYearMegabytes, u"MB"_s);
    }

    void MeasureCensus(const DirectReport& report) {
        if (!IsThere(report.name, report.file))
            return;
        Measure(Name(report.name), [&] { OpenCensus(report); });
    }

    void MeasureLedger() {
        if (!IsThere(kLedger.name, kLedger.file))
            return;
        const QString id = mConnections.LongestAccount();
        Measure(Name(kLedger.name), [&] { OpenLedger(id); });
    }

    /// Beside the program's own pages, the same rows as a table of HTML through a public tool.
    void CompareWithTool() {
        const QString tool = QStandardPaths::findExecutable(u"wkhtmltopdf"_s);
        if (tool.isEmpty()) {
            std::printf("no wkhtmltopdf here: the PDF is not compared with another tool's\n");
            return;
        }
        if (!IsThere("audit", kPeriodReports[0].file))
            return;
        int days = 1;
        do {
            OpenPeriod(kPeriodReports[0], mLastDay, days++);
        } while (gReport->Document()->Rows().RowCount() < kToolRows);
        const auto document = gReport->Document();
        const RowData& rows = document->Rows();
        const double ours =
            Milliseconds([&] { PdfJob(*document, {}, mFolder.filePath(u"ours.pdf"_s)).Finish(); });
        WriteHtml(rows, mFolder.filePath(u"rows.html"_s));
        const double theirs = Milliseconds([&] {
            if (QProcess::execute(tool, {u"-q"_s, u"-s"_s, u"A4"_s, mFolder.filePath(u"rows.html"_s),
                                         mFolder.filePath(u"tool.pdf"_s)}) != 0)
                GiveUp(tool + u" failed"_s);
        });
        mTable.Add(u"audit of %1 rows to PDF; bare: an HTML table through wkhtmltopdf"_s.arg(rows.RowCount()),
                   ours, theirs, u"ms"_s, 1.0);
    }

  private:
    bool IsThere(const char* name, const char* file) const {
        if (!Name(name).startsWith(mOnly))
            return false;
        if (QFile::exists(ResolveFile(ProgramDirectory() + Name(file))))
            return true;
        std::printf("no template %s: %s is not measured\n", file, name);
        return false;
    }

    /// With `paints` the pages are painted once more without a file.
    template <class Open> Figures Measure(const QString& what, Open open, bool paints = false) {
        std::fprintf(stderr, "%s\n", qPrintable(what));
        Figures figures;
        open();
        const QStringList commands = gReport->Order().commands;
        std::vector<QByteArray> statements;
        {
            const auto gateway = mConnections.Connect();
            const RecordedStatements recorded(gateway->Engine().Database());
            for (const QString& command : commands)
                gateway->Execute(command);
            statements = recorded.Statements();
        }
        std::vector<double> bare;
        std::vector<double> fetch;
        std::vector<double> first;
        for (int run = 0; run < kYearRuns; ++run) {
            bare.push_back(Milliseconds([&] {
                const auto gateway = mConnections.Connect();
                RunBare(gateway->Engine().Database(), statements);
            }));
            fetch.push_back(Milliseconds([&] {
                const auto gateway = mConnections.Connect();
                for (const QString& command : commands)
                    gateway->Execute(command);
            }));
            open();
            malloc_trim(0);
            const double before = CurrentMegabytes();
            ResetPeak();
            first.push_back(Milliseconds([] { ShowFirstPage(); }));
            figures.megabytes = PeakSinceReset() - before;
        }
        figures.bare = Median(bare);
        figures.fetch = Median(fetch);
        figures.firstPage = Median(first);
        const auto document = gReport->Document();
        figures.rows = document->Rows().RowCount();
        figures.pages = document->PageCount();
        if (paints)
            figures.painting = Milliseconds([&] { PaintIntoNothing(*document); });
        const double opened = CurrentMegabytes();
        ResetPeak();
        figures.pdf =
            Milliseconds([&] { PdfJob(*document, {}, mFolder.filePath(u"report.pdf"_s)).Finish(); });
        figures.pdfMegabytes = PeakSinceReset() - opened;
        gReport = nullptr;
        mTable.Add(what + u": first page; bare: the query to its last row"_s, figures.firstPage,
                   qMax(figures.bare, kAtOnce / kYearFirstPageRatio), u"ms"_s, kYearFirstPageRatio);
        std::printf("%s: %zu rows, %d pages; query bare %.0f ms, fetch %.0f ms, first page %.0f ms, PDF %.0f "
                    "ms, memory %.0f MB, for the PDF %.0f MB more\n",
                    qPrintable(what), figures.rows, figures.pages, figures.bare, figures.fetch,
                    figures.firstPage, figures.pdf, figures.megabytes, figures.pdfMegabytes);
        std::fflush(stdout);
        return figures;
    }

    static void WriteHtml(const RowData& rows, const QString& path) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            GiveUp(u"cannot write "_s + path);
        QTextStream html(&file);
        html << "<meta charset=utf-8><style>table{font:8pt sans-serif;border-collapse:collapse}"
                "thead{display:table-header-group}tr{page-break-inside:avoid}</style><table><thead><tr>";
        for (const QString& column : rows.columns)
            html << "<th>" << column.toHtmlEscaped();
        html << "</thead>";
        for (size_t row = 0; row < rows.RowCount(); ++row) {
            html << "<tr>";
            for (size_t column = 0; column < rows.columns.size(); ++column)
                html << "<td>" << rows.Cell(row, column).TextOrEmpty().toHtmlEscaped();
        }
        html << "</table>";
        html.flush();
        if (html.status() != QTextStream::Ok)
            GiveUp(u"cannot write "_s + path);
    }

    BenchTable& mTable;
    QString mOnly;
    const ReportConnections& mConnections;
    DateTime mLastDay;
    QTemporaryDir mFolder;
};

} // namespace

void BenchYearReports(BenchTable& table, const QString& only) {
    const QString hospital = YearHospital();
    const auto session = SignOnTo(hospital);
    const ReportConnections connections(hospital);
    const RowSet year =
        connections.Connect()->Execute(u"select count(*) as Lines, count(distinct RefNum) as Slips from "
                                       "BILLING..tbPatientCharges"_s);
    std::printf("a year of %s lines in %s slips\n", qPrintable(year.Fields(0).ToText()),
                qPrintable(year.Fields(1).ToText()));
    ReportsOfTheYear reports(table, connections, only);
    for (const PeriodReport& report : kPeriodReports)
        reports.MeasurePeriods(report);
    for (const DirectReport& report : kCensusReports)
        reports.MeasureCensus(report);
    reports.MeasureLedger();
    reports.CompareWithTool();
    gReport = nullptr;
    gConnection = nullptr;
    gCurrentUser = {};
}
