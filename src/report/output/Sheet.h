#pragma once

#include <QPointF>
#include <QRectF>

class QPrinter;
class ReportDocument;

/// How a report's page lies on a sheet: scaled, then moved, both from the sheet's top left corner.
struct SheetPlace {
    double scale = 1;
    /// In points.
    QPointF shift;
};

/// The page at the sheet's top left corner in its own size. It is made smaller as far as what stands on it,
/// `body`, would else be cut, and moved as far as it would lie where the sheet takes no ink. Both in points,
/// `paintable` from the sheet's corner; an empty one stands for a sheet that nothing is known of.
SheetPlace PlaceOnSheet(const QRectF& body, const QRectF& paintable);

/// Readies a printer for a report: the report's own paper where the printer has it, or else the paper that
/// lies in the printer, turned so that the page stands upright on it and is made smaller as little as
/// possible.
void SetUpSheet(QPrinter& printer, const ReportDocument& document);
/// Likewise, on the paper that is set by now.
void TurnSheet(QPrinter& printer, const ReportDocument& document);
/// Where the sheet that is set takes ink, in points from its corner.
QRectF PaintableOf(const QPrinter& printer);
/// Whether the printer has the paper that is set.
bool HasItsSheet(const QPrinter& printer);
