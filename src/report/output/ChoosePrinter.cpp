#include "report/output/ChoosePrinter.h"

#include "report/output/Printers.h"
#include "report/output/Sheet.h"
#include "report/pages/ReportDocument.h"
#include "toolkit/MsgBox.h"
#include "toolkit/ShowModal.h"

#include <QPrintDialog>
#include <QPrinter>

using namespace Qt::StringLiterals;

namespace {

bool AskInDialog(QPrinter& printer, int pages, QWidget* parent) {
    if (!HasPrinters()) {
        MsgBox(
            {.text = u"There is no printer on this machine.\n\nThe report can be saved as a PDF instead."_s,
             .icon = MsgIcon::Exclamation,
             .title = parent ? parent->window()->windowTitle() : QString()});
        return false;
    }
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
    if (const QString last = LastPrinter(); HasPrinter(last))
        printer.setPrinterName(last);
    SetUpSheet(printer, document);
    const QPageSize offered = printer.pageLayout().pageSize();
    if (!PrintDialogSeam()(printer, document.PageCount(), parent))
        return false;
    // A paper that the clerk has chosen counts; one that was offered may be none of the printer chosen.
    if (printer.pageLayout().pageSize() == offered || !HasItsSheet(printer))
        SetUpSheet(printer, document);
    else
        TurnSheet(printer, document);
    return true;
}

bool TakeLastPrinter(const ReportDocument& document, QPrinter& printer) {
    const QString last = LastPrinter();
    if (!HasPrinter(last))
        return false;
    printer.setPrinterName(last);
    SetUpSheet(printer, document);
    return true;
}

Seam<bool(QPrinter&, int, QWidget*)>& PrintDialogSeam() {
    static Seam<bool(QPrinter&, int, QWidget*)> seam(AskInDialog);
    return seam;
}
