#pragma once

class FlexGrid;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QString;
class QWidget;

// Pieces of which both charge screens are laid out.

/// The box of the lines' sum, in bold figures.
QLineEdit* NewTotalBox(const QString& name, QWidget* parent);

/// Fills the frame of the lines: the grid, and below it the box of their sum with its label.
void FillChargeFrame(QGroupBox* frame, FlexGrid* grid, const QString& label, QLineEdit* total);

/// The "..." button behind the requesting doctor's name.
QPushButton* NewDoctorPicker(const QString& name, QWidget* parent);
