#pragma once

#include "text/Seam.h"

class QPrinter;
class QWidget;
class ReportDocument;

/// Lets the clerk choose the printer, its paper and the pages, in the print dialogue, which begins with the
/// printer used last; and readies the printer for the report. False when the clerk gives up.
bool ChoosePrinter(const ReportDocument& document, QPrinter& printer, QWidget* parent);
/// Readies the printer used last for the report, without asking. False where there is none, or none any more.
bool TakeLastPrinter(const ReportDocument& document, QPrinter& printer);

/// The print dialogue: offers that many pages over the parent, sets the printer up as the clerk wants it and
/// answers whether to print. Where the machine has no printer it says so instead.
Seam<bool(QPrinter& printer, int pages, QWidget* parent)>& PrintDialogSeam();
