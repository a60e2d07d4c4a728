#pragma once

#include <QEvent>
#include <QWidget>

/// Counts the repaints of a widget.
class PaintCounter : public QObject {
  public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    int paints = 0;

    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};
