#pragma once

class QApplication;
class QGridLayout;
class QIcon;
class QLabel;
class QLineEdit;
class QString;
class QWidget;

/// The one place of the program's look: style, palette, face and spacing.
void ApplyLook(QApplication& application);

/// The spacing scale, in pixels.
namespace Space {
constexpr int kTight = 4;
constexpr int kNormal = 8;
constexpr int kWide = 16;
} // namespace Space

/// One of the program's own icons by its name, such as "patient".
QIcon ProgramIcon(const QString& name);

/// Puts an input with its label before it into a row of a grid; the label becomes the input's buddy and its
/// accessible name. Columns are the label's column and the one behind it.
QLabel* AddLabelled(QGridLayout& grid, int row, int column, const QString& label, QWidget* input);

/// The heading of a screen, larger and in the accent colour.
QLabel* NewHeading(const QString& text, QWidget* parent);

/// A box that shows what the program fills in and the clerk does not type.
QLineEdit* NewShownBox(const QString& name, QWidget* parent);

/// A text box by its name.
QLineEdit* NewTextBox(const QString& name, QWidget* parent);
