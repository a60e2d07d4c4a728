#include "reporting/ReportOutput.h"

#include "reporting/ReportDocument.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr double kPointsPerInch = 72;
constexpr int kPdfResolution = 1200;

PrinterChooser currentChooser;

void ScaleToPoints(QPainter& painter) {
    const QPaintDevice* device = painter.device();
    painter.scale(device->logicalDpiX() / kPointsPerInch, device->logicalDpiY() / kPointsPerInch);
}

bool PaintPages(const ReportDocument& document, QPagedPaintDevice& device, int first, int last) {
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    ScaleToPoints(painter);
    for (int page = first; page <= last; ++page) {
        if (page > first && !device.newPage())
            return false;
        document.PaintPage(painter, page);
    }
    return painter.end();
}

QString QuotedCsv(const QString& text) {
    static constexpr QStringView kSpecial = u",;\"\r\n";
    bool quoted = text.startsWith(u' ') || text.endsWith(u' ');
    for (const QChar c : text)
        quoted |= kSpecial.contains(c);
    if (!quoted)
        return text;
    QString doubled = text;
    doubled.replace(u'"', u"\"\""_s);
    return u'"' + doubled + u'"';
}

QString CsvLine(const RowData& rows, size_t row) {
    QString line;
    for (size_t column = 0; column < rows.columns.size(); ++column) {
        if (column > 0)
            line += u',';
        line += QuotedCsv(rows.Cell(row, column).TextOrEmpty());
    }
    return line + u"\r\n"_s;
}

QString CsvHead(const RowData& rows) {
    QStringList names;
    for (const QString& column : rows.columns)
        names << QuotedCsv(column);
    return names.join(u',') + u"\r\n"_s;
}

/// Puts the content in place of the file, whole or not at all.
QString WriteWhole(const QString& file, const QByteArray& content) {
    QSaveFile output(file);
    if (!output.open(QIODevice::WriteOnly))
        return output.errorString();
    // A disk that runs full takes the beginning of a file without a word.
    const bool whole =
        output.write(content) == content.size() && output.flush() && output.size() == content.size();
    if (!whole)
        return output.error() == QFileDevice::NoError ? u"The disk is full."_s : output.errorString();
    return output.commit() ? QString() : output.errorString();
}

} // namespace

QString SavePdf(const ReportDocument& document, const QString& title, const QString& file) {
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kPdfResolution);
        writer.setTitle(title);
        writer.setPageLayout(document.Paper());
        if (!PaintPages(document, writer, 1, document.PageCount()))
            return u"The pages cannot be painted."_s;
    }
    return WriteWhole(file, content);
}

QString SaveCsv(const RowData& rows, const QString& file) {
    QByteArray content = "\xEF\xBB\xBF" + CsvHead(rows).toUtf8();
    for (size_t row = 0; row < rows.RowCount(); ++row)
        content += CsvLine(rows, row).toUtf8();
    return WriteWhole(file, content);
}

QString Print(const ReportDocument& document, QPrinter& printer) {
    int first = 1;
    int last = document.PageCount();
    if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
        first = qBound(1, printer.fromPage(), last);
        last = qBound(first, printer.toPage(), last);
    }
    printer.setFullPage(true);
    const int copies = printer.supportsMultipleCopies() ? 1 : printer.copyCount();
    for (int copy = 0; copy < copies; ++copy) {
        if (!PaintPages(document, printer, first, last))
            return u"The printer \"%1\" did not take the report."_s.arg(printer.printerName());
    }
    return {};
}

bool ChoosePrinter(const ReportDocument& document, QPrinter& printer, QWidget* parent) {
    printer.setPageLayout(document.Paper());
    if (currentChooser)
        return currentChooser(printer);
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, document.PageCount());
    return dialog.exec() == QDialog::Accepted;
}

void SetPrinterChooser(PrinterChooser chooser) {
    currentChooser = std::move(chooser);
}
