#include "reporting/ChoosePrinter.h"

#include "reporting/ReportDocument.h"
#include "toolkit/ShowModal.h"

#include <QPrintDialog>
#include <QPrinter>

namespace {

PrinterChooser currentChooser;

} // namespace

bool ChoosePrinter(const ReportDocument& document, QPrinter& printer, QWidget* parent) {
    printer.setPageLayout(document.Paper());
    if (currentChooser)
        return currentChooser(printer);
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, document.PageCount());
    return ShowModal(dialog);
}

void SetPrinterChooser(PrinterChooser chooser) {
    currentChooser = std::move(chooser);
}
