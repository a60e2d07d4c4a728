#include "report/output/Printers.h"

#include "toolkit/UserSettings.h"

#include <QLibrary>
#include <QPaintEngine>
#include <QPrinter>
#include <QPrinterInfo>

using namespace Qt::StringLiterals;

namespace {

const QString kPrinterSetting = u"Printer"_s;
/// The print system's numbers of what went wrong begin here.
constexpr int kFirstError = 0x400;

bool IsThePrintSystems(const QPrinter& printer) {
    return printer.outputFormat() == QPrinter::NativeFormat && !printer.printerName().isEmpty();
}

QString Refused(const QPrinter& printer) {
    return u"The printer \"%1\" did not take the report."_s.arg(printer.printerName());
}

QString Gone(const QPrinter& printer) {
    return u"The printer \"%1\" is not there any more."_s.arg(printer.printerName());
}

} // namespace

bool HasPrinters() {
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

bool HasPrinter(const QString& name) {
    return !name.isEmpty() && QPrinterInfo::availablePrinterNames().contains(name);
}

QString LastPrinter() {
    return UserSettings().value(kPrinterSetting).toString();
}

void RememberPrinter(const QString& name) {
    if (name != LastPrinter())
        UserSettings().setValue(kPrinterSetting, name);
}

QString ObstacleOf(const QPrinter& printer) {
    // The toolkit's printer that stands for none makes files, and has none to make.
    if (printer.paintEngine()->type() == QPaintEngine::Pdf && printer.outputFormat() == QPrinter::PdfFormat &&
        printer.outputFileName().isEmpty())
        return u"There is no printer on this machine."_s;
    return IsThePrintSystems(printer) && !HasPrinter(printer.printerName()) ? Gone(printer) : QString();
}

QString RefusalOf(const QPrinter& printer) {
    if (!IsThePrintSystems(printer))
        return {};
    // The library is there wherever the toolkit's printing is, which hands jobs over through it.
    QLibrary library(u"cups"_s, 2);
    const auto lastError = reinterpret_cast<int (*)()>(library.resolve("cupsLastError"));
    const auto lastText = reinterpret_cast<const char* (*)()>(library.resolve("cupsLastErrorString"));
    if (!lastError || !lastText || lastError() < kFirstError)
        return {};
    const QString told = QString::fromUtf8(lastText());
    return HasPrinter(printer.printerName()) ? Refused(printer) + u"\n"_s + told : Gone(printer);
}
