#pragma once

#include "text/DateTime.h"
#include "toolkit/MaskedEdit.h"

#include <optional>

/// A box for a date as "mm/dd/yyyy" that may also hold none. The clerk keys it or steps the part under the
/// cursor with the arrow keys up and down.
///
/// A date counts when its last digit is keyed, Enter is pressed or the box is left; what is no date then, or
/// one before the server's first year, 1753, gives way to the date before.
class DatePicker : public MaskedEdit {
    Q_OBJECT

  public:
    explicit DatePicker(QWidget* parent = nullptr);

    /// The day at midnight; nothing when the picker is null.
    std::optional<DateTime> Value() const;
    /// Shows that day, or no date. A picker that becomes null keeps its last date as the one from which the
    /// clerk steps on. Raises no Change.
    void SetValue(std::optional<DateTime> value);
    /// Makes what was keyed the picker's date, as leaving the box does, and raises Change for another one.
    /// For a button whose key was pressed, since it leaves the focus where it is.
    void TakeKeyed();

  Q_SIGNALS:
    /// The clerk has brought the picker to another date, or to none.
    void Change();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Show(std::optional<DateTime> value);
    void Step(int steps);
    void TakeLeft();

    std::optional<DateTime> mValue;
    /// Where the clerk starts from when the picker is null.
    DateTime mBase;
};
