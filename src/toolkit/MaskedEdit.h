#pragma once

#include <QLineEdit>
#include <QString>

/// A box that takes its text by a mask: "#" is the place of a digit, every other character stands for itself
/// and is there from the start. Places without a digit are blanks.
class MaskedEdit : public QLineEdit {
    Q_OBJECT

  public:
    explicit MaskedEdit(const QString& mask, QWidget* parent = nullptr);

    /// What the box shows, the mask's own characters and the blanks among them: an empty box of the mask
    /// "##/##/####" gives "  /  /    ".
    QString Text() const { return displayText(); }
};
