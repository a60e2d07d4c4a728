#include "report/output/Sheet.h"

#include "report/pages/ReportDocument.h"

#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>

namespace {

/// Points; descriptions of printers round theirs.
constexpr int kSameSize = 2;
/// What the arithmetic of lengths may be off by, so that a page that just fits keeps its size.
constexpr double kFitTolerance = 0.01;

bool SameSheet(const QPageSize& a, const QPageSize& b) {
    const QSize left = a.sizePoints();
    const QSize right = b.sizePoints();
    return std::abs(left.width() - right.width()) <= kSameSize &&
           std::abs(left.height() - right.height()) <= kSameSize;
}

/// The printer's own of a size, invalid where it has none. A printer that takes any size is asked for what no
/// maker lists; a listed one that it does not list is not in it.
QPageSize SheetOf(const QPrinterInfo& info, const QPageSize& wanted) {
    const QList<QPageSize> sizes = info.supportedPageSizes();
    const auto found = std::find_if(sizes.begin(), sizes.end(),
                                    [&wanted](const QPageSize& size) { return SameSheet(size, wanted); });
    if (found != sizes.end())
        return *found;
    const QSizeF largest = info.maximumPhysicalPageSize().size(QPageSize::Point);
    const QSizeF asked = wanted.size(QPageSize::Point);
    const bool taken = info.supportsCustomPageSizes() && wanted.id() == QPageSize::Custom &&
                       asked.width() <= largest.width() && asked.height() <= largest.height();
    return taken ? wanted : QPageSize();
}

/// A file of any size is as good as any sheet.
bool MakesFiles(const QPrinter& printer) {
    return printer.outputFormat() != QPrinter::NativeFormat;
}

double ScaleTurned(QPrinter& printer, QPageLayout::Orientation orientation, const QRectF& body) {
    printer.setPageOrientation(orientation);
    return PlaceOnSheet(body, PaintableOf(printer)).scale;
}

} // namespace

SheetPlace PlaceOnSheet(const QRectF& body, const QRectF& paintable) {
    SheetPlace place;
    if (paintable.isEmpty())
        return place;
    const double fitting = std::min(paintable.width() / body.width(), paintable.height() / body.height());
    if (fitting < 1 - kFitTolerance)
        place.scale = fitting;
    const auto shift = [&place](double from, double to, double least, double most) {
        return std::max(least - from * place.scale, std::min(0.0, most - to * place.scale));
    };
    place.shift = {shift(body.left(), body.right(), paintable.left(), paintable.right()),
                   shift(body.top(), body.bottom(), paintable.top(), paintable.bottom())};
    return place;
}

void SetUpSheet(QPrinter& printer, const ReportDocument& document) {
    const QPageLayout& paper = document.Paper();
    if (MakesFiles(printer)) {
        printer.setPageLayout(paper);
        return;
    }
    const QPrinterInfo info(printer);
    const QPageSize own = SheetOf(info, paper.pageSize());
    printer.setPageSize(own.isValid() ? own : info.defaultPageSize());
    TurnSheet(printer, document);
}

void TurnSheet(QPrinter& printer, const ReportDocument& document) {
    const QPageLayout& paper = document.Paper();
    if (MakesFiles(printer))
        return;
    if (SameSheet(printer.pageLayout().pageSize(), paper.pageSize())) {
        printer.setPageOrientation(paper.orientation());
        return;
    }
    const double lying = ScaleTurned(printer, QPageLayout::Landscape, document.Body());
    if (ScaleTurned(printer, QPageLayout::Portrait, document.Body()) < lying)
        printer.setPageOrientation(QPageLayout::Landscape);
}

QRectF PaintableOf(const QPrinter& printer) {
    QPageLayout sheet = printer.pageLayout();
    sheet.setUnits(QPageLayout::Point);
    return sheet.fullRect().marginsRemoved(sheet.minimumMargins());
}

bool HasItsSheet(const QPrinter& printer) {
    return SheetOf(QPrinterInfo(printer), printer.pageLayout().pageSize()).isValid();
}
