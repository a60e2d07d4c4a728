#include "report/output/ChoosePrinter.h"

#include "report/pages/ReportDocument.h"
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
    // Its box for a file's name would look into the files of the folder that is typed, and a file that the
    // process closes is without the locks that it held there. The viewer saves as PDF by itself.
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
    dialog.setMinMax(1, document.PageCount());
    return ShowModal(dialog);
}

void SetPrinterChooser(PrinterChooser chooser) {
    currentChooser = std::move(chooser);
}
