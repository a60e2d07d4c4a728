#pragma once

#include <QComboBox>

/// A drop-down list from which one chooses only while it stands open, for a choice that is carried out at
/// once: keys that would pass through its entries open it, and the wheel passes by.
class OpenedCombo : public QComboBox {
    Q_OBJECT

  public:
    using QComboBox::QComboBox;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};
