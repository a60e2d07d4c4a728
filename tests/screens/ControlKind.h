#pragma once

#include <QString>

class QObject;
class QWidget;

/// A kind of control by the word that the table of screens has for it.
struct ControlKind {
    const char* word;
    bool (*is)(const QObject& control);
    /// The text on the control itself; none for a control that is told by the label before it.
    QString (*caption)(const QObject& control);

    /// Null for an unknown word.
    static const ControlKind* Named(const QString& word);
};

/// Whether the clerk keys, chooses or presses something there. Parts of such a control, as the header of a
/// grid, are none.
bool IsInput(const QWidget& control);

/// What a screen reader says for a control.
QString SpokenName(QWidget& control);
