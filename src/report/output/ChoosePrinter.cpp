#include "report/output/ChoosePrinter.h"

#include "report/pages/ReportDocument.h"
#include "toolkit/ShowModal.h"

#include <QPrintDialog>
#include <QPrinter>

namespace {

bool AskInDialog(QPrinter& printer, int pages, QWidget* parent) {
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    // Its box for a file's name would look into the files of the folder that is typed, and a file that the
    // process closes is without the locks that it held there. The viewer saves as PDF by itself.
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
    dialog.setMinMax(1, pages);
    return ShowModal(dialog);
}

} // namespace

bool ChoosePrinter(const ReportDocument& document, QPrinter& printer, QWidget* parent) {
    printer.setPageLayout(document.Paper());
    return PrintDialogSeam()(printer, document.PageCount(), parent);
}

Seam<bool(QPrinter&, int, QWidget*)>& PrintDialogSeam() {
    static Seam<bool(QPrinter&, int, QWidget*)> seam(AskInDialog);
    return seam;
}
