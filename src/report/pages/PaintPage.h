#pragma once

class QPainter;
class ReportDocument;
class ReportFonts;

/// Paints a page, from 1, with a painter whose unit is the point and whose origin is the page's top left
/// corner, whatever the device is. The painter's pen, brush and font are left as the page's last.
void PaintPage(QPainter& painter, const ReportDocument& document, int page, ReportFonts& fonts);
