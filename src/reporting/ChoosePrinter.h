#pragma once

#include <QString>

#include <functional>

class QPrinter;
class QWidget;
class ReportDocument;
struct RowData;

/// Writes the report as a PDF file. Answers what failed, empty for nothing; a file of that name is then as it
/// was.
QString SavePdf(const ReportDocument& document, const QString& title, const QString& file);

/// Writes rows as comma-separated values: UTF-8 with its mark, so that spreadsheets read names right, the
/// columns' names first, texts in quotes where they need them, lines ended by CR LF. Answers what failed as
/// SavePdf does.
QString SaveCsv(const RowData& rows, const QString& file);

/// Prints the pages that the printer's settings ask for. Answers what failed, empty for nothing.
QString Print(const ReportDocument& document, QPrinter& printer);

/// Makes a printer ready for the report's paper and lets the clerk choose the printer and the pages, in the
/// print dialogue or what stands in its place. False when the clerk gives up.
bool ChoosePrinter(const ReportDocument& document, QPrinter& printer, QWidget* parent);

/// Stands in place of the print dialogue, for tests: sets the printer up and answers whether to print.
using PrinterChooser = std::function<bool(QPrinter& printer)>;

/// An empty chooser brings the dialogue back.
void SetPrinterChooser(PrinterChooser chooser);
