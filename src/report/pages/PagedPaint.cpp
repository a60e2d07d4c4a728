#include "report/pages/PagedPaint.h"

#include <QPagedPaintDevice>
#include <QPainter>

namespace {

constexpr double kPointsPerInch = 72;

} // namespace

bool BeginPages(QPainter& painter, QPagedPaintDevice& device) {
    if (!painter.begin(&device))
        return false;
    painter.scale(device.logicalDpiX() / kPointsPerInch, device.logicalDpiY() / kPointsPerInch);
    return true;
}
