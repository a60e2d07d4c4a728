#include "reporting/ReportOutput.h"

#include "reporting/CsvJob.h"
#include "reporting/PdfJob.h"
#include "reporting/PrintJob.h"
#include "reporting/ReportDocument.h"

#include <QPrintDialog>
#include <QPrinter>

namespace {

PrinterChooser currentChooser;

} // namespace

QString SavePdf(const ReportDocument& document, const QString& title, const QString& file) {
    return PdfJob(document, title, file).Finish();
}

QString SaveCsv(const RowData& rows, const QString& file) {
    return CsvJob(rows, file).Finish();
}

QString Print(const ReportDocument& document, QPrinter& printer) {
    return PrintJob(document, std::shared_ptr<QPrinter>(std::shared_ptr<void>(), &printer)).Finish();
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
