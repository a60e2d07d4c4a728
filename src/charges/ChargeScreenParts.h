#pragma once

class QGroupBox;
class QLineEdit;
class QPushButton;
class QString;
class QWidget;

// Pieces of which both charge screens are laid out.

/// A frame by its name.
QGroupBox* NewFrame(const QString& name, const QString& caption, QWidget* parent);

/// The box of the lines' sum, in bold figures.
QLineEdit* NewTotalBox(const QString& name, QWidget* parent);

/// The "..." button behind the requesting doctor's name.
QPushButton* NewDoctorPicker(const QString& name, QWidget* parent);
