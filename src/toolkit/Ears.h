#pragma once

#include <QAccessible>

class QWidget;

/// From here on screen readers hear of screens and tables what a clerk sees of them: a modal screen is a
/// dialogue, and a table has the columns that are shown and no others.
void OpenEars();

/// What a control is for a screen reader, where it is another thing than its class tells.
void SpeakAs(QWidget& control, QAccessible::Role role);

/// The name by which a control is spoken changes while the clerk is on it: a screen reader is told that he
/// has come to another thing.
void SpeakAnew(QWidget& control, const QString& name);

/// Draws a screen reader's attention to a control that has just been shown.
void SpeakAlert(QWidget& control);
