#pragma once

#include <QLabel>

/// What the viewer says, on one line: of a text that is longer than the line, such as a file's path, the
/// middle is left out, and the whole text stands in the tip.
class StatusLine : public QLabel {
    Q_OBJECT

  public:
    explicit StatusLine(QWidget* parent);

    void Tell(const QString& what);

  protected:
    void paintEvent(QPaintEvent* event) override;
};
