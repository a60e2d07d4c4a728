#pragma once

#include <QDate>
#include <QFrame>

class QCalendarWidget;

/// The calendar that drops down from a date box. A click on a day or Enter takes it; Escape, F4 or a click
/// elsewhere closes the calendar and takes none.
class Calendar : public QFrame {
    Q_OBJECT

  public:
    explicit Calendar(QWidget* box);

    /// Shows itself at the box with that day marked, and offers the days from the first one to the last.
    void DropDown(QDate marked, QDate first, QDate last);

  Q_SIGNALS:
    /// The clerk took that day, and the calendar has closed.
    void Picked(QDate day);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void Place();
    void Take(QDate day);

    QWidget* mBox;
    QCalendarWidget* mMonth;
};
