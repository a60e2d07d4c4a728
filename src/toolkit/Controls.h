#pragma once

#include <QList>
#include <QStringList>

class DatePicker;
class FlexGrid;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSize;
class QString;
class QWidget;

// What screens are made of. A name is the control's object name, by which others find it.

/// A text box by its name.
QLineEdit* NewTextBox(const QString& name, QWidget* parent);

/// A box for a date.
DatePicker* NewDatePicker(const QString& name, QWidget* parent);

/// A box that shows what the program fills in and the clerk does not type.
QLineEdit* NewShownBox(const QString& name, QWidget* parent);

/// A drop-down list with its entries, the first of which stands.
QComboBox* NewCombo(const QString& name, const QStringList& entries, QWidget* parent);

/// A button; an ampersand in the caption marks its key.
QPushButton* NewButton(const QString& name, const QString& caption, QWidget* parent);

/// The narrow "..." button behind a box, which opens a list to pick from. It is spoken by what it is for; the
/// tip may be empty.
QPushButton* NewPicker(const QString& name, const QString& purpose, const QString& tip, QWidget* parent);

/// The heading of a screen, larger and in the accent colour.
QLabel* NewHeading(const QString& text, QWidget* parent);

/// A frame with its caption. One that nobody asks for has an empty name.
QGroupBox* NewFrame(const QString& name, const QString& caption, QWidget* parent);

/// A list from which whole rows are picked, with what it is spoken by and its least size in twips.
FlexGrid* NewList(const QString& name, const QString& spoken, const QSize& startTwips, QWidget* parent);

/// Puts an input with its label before it into a row of a grid; the label becomes the input's buddy and its
/// accessible name. Columns are the label's column and the one behind it.
QLabel* AddLabelled(QGridLayout& grid, int row, int column, const QString& label, QWidget* input);

/// A row of controls that stand at its right end.
QHBoxLayout* RightAligned(const QList<QWidget*>& controls);

/// The order of work: Tab walks the controls as they are listed.
void SetTabOrder(const QList<QWidget*>& order);
