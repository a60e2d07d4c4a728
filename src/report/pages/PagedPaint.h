#pragma once

class QPagedPaintDevice;
class QPainter;

/// Begins to paint pages on a printer or into a PDF file, in points. False when the device takes none.
bool BeginPages(QPainter& painter, QPagedPaintDevice& device);
