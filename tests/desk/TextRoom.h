#pragma once

#include <QSize>
#include <QString>

#include <vector>

class QWidget;

/// A text that a control shows, the size that it takes and the size that the control has for it.
struct TextRoom {
    QString text;
    QSize needs;
    QSize room;
};

/// The texts of a control that must be read whole: labels, captions, headings, what stands in a box into
/// which nobody keys. None for other controls.
std::vector<TextRoom> TextsOf(const QWidget& control);
