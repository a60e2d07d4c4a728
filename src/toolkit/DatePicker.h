#pragma once

#include "toolkit/KeyedDate.h"
#include "toolkit/TextBox.h"

#include <optional>

class Calendar;
class QDate;

/// A box for a date, month first, as people write it: 8/1/2026, 08/01/2026 or 08012026. It shows the date as
/// "mm/dd/yyyy", and may hold none.
///
/// However the focus comes, the box stands on its first place, and what is keyed takes the place of the date
/// that stood there; only who comes back from another window finds the box as it was left. The arrow keys up
/// and down step the part at the cursor. F4, Alt+Down and the button drop down a calendar.
///
/// A date counts when the last digit of its year is keyed, Enter is pressed or the box is left. A text that
/// is no date never becomes another one: it stays, marked, with the reason in its tip and its spoken
/// description. A year needs its four digits, since two do not tell a child from a centenarian.
class DatePicker : public TextBox {
    Q_OBJECT

  public:
    explicit DatePicker(QWidget* parent = nullptr);

    /// The box always holds a date: left empty, it shows the one before again.
    void SetRequired();
    /// The last day that it takes; the last one of the hospital's server unless told.
    void SetLastDay(DateTime day);

    /// The day at midnight; nothing for an empty box and for a text that is no date.
    std::optional<DateTime> Value() const;
    /// Shows that day, or no date. A picker that becomes null keeps its last date as the one from which the
    /// clerk steps on. Raises no Change.
    void SetValue(std::optional<DateTime> value);
    /// What the box shows in the mask "##/##/####", with blanks in its empty places: an empty box gives
    /// "  /  /    ".
    QString Text() const;

    /// Makes what was keyed the picker's date, as leaving the box does, and raises Change for another one.
    /// For a button that works with the date: pressed by its key it leaves the focus in the box. False for a
    /// text that is no date; the box then takes the focus and tells why.
    bool TakeKeyed();

  Q_SIGNALS:
    /// The clerk has brought the picker to another date, or to none.
    void Change();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// What is pasted takes the place of the whole date.
    void TakeText(const QString& text) override;

  private:
    DateReading Read() const;
    void GoToFirstPlace();
    void Show(std::optional<DateTime> value);
    void Take(std::optional<DateTime> value);
    bool Settle();
    void TakeLeft();
    void Step(int steps);
    void DropDownCalendar();
    void TakePicked(QDate day);
    bool Edit(const QKeyEvent& event);
    void KeyTyped(QChar typed);
    void TakeOut(void (KeyedDate::*remove)());
    KeyedDate Keyed() const;
    void Put(const KeyedDate& keyed);
    void SignWhileKeyed();
    void Sign(const DateReading& reading);
    void Tell(const QString& text);

    std::optional<DateTime> mValue;
    /// Where the clerk starts from when the picker is null.
    DateTime mBase;
    DateTime mLast = LastDayOfTheServer();
    bool mIsRequired = false;
    int mKeyedTo = -1;
    /// The focus left for another window and comes back.
    bool mComesBack = false;
    /// The press that brought the focus is not over.
    bool mIsArriving = false;
    Calendar* mCalendar = nullptr;
};
