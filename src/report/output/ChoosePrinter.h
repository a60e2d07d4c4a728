#pragma once

#include <functional>

class QPrinter;
class QWidget;
class ReportDocument;

/// Makes a printer ready for the report's paper and lets the clerk choose the printer and the pages, in the
/// print dialogue or what stands in its place. False when the clerk gives up.
bool ChoosePrinter(const ReportDocument& document, QPrinter& printer, QWidget* parent);

/// Stands in place of the print dialogue, for tests: sets the printer up and answers whether to print.
using PrinterChooser = std::function<bool(QPrinter& printer)>;

/// An empty chooser brings the dialogue back.
void SetPrinterChooser(PrinterChooser chooser);
