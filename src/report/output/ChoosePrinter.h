#pragma once

#include "text/Seam.h"

class QPrinter;
class QWidget;
class ReportDocument;

/// Makes a printer ready for the report's paper and lets the clerk choose the printer and the pages, in the
/// print dialogue. False when the clerk gives up.
bool ChoosePrinter(const ReportDocument& document, QPrinter& printer, QWidget* parent);

/// The print dialogue: offers that many pages over the parent, sets the printer up as the clerk wants it and
/// answers whether to print.
Seam<bool(QPrinter& printer, int pages, QWidget* parent)>& PrintDialogSeam();
