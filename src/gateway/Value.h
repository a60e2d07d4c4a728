#pragma once

#include "text/DateTime.h"

#include <QString>

#include <variant>

/// An exact decimal number of the database (money, decimal) as its text, for instance "1250.5000". Never a
/// double: what the database holds is what the screen shows.
struct Decimal {
    QString text;
    friend bool operator==(const Decimal&, const Decimal&) = default;
};

/// One column's value in one row, of the column's own type. Null is a value of its own.
class Value {
  public:
    using Storage = std::variant<std::monostate, bool, qint64, Decimal, double, DateTime, QString>;

    Value() = default;
    Value(bool value)
        : mStorage(value) {}
    Value(int value)
        : mStorage(qint64(value)) {}
    Value(qint64 value)
        : mStorage(value) {}
    Value(Decimal value)
        : mStorage(std::move(value)) {}
    Value(double value)
        : mStorage(value) {}
    Value(DateTime value)
        : mStorage(value) {}
    Value(QString value)
        : mStorage(std::move(value)) {}
    /// A character pointer would turn into a bool.
    Value(const char*) = delete;
    Value(const char16_t*) = delete;

    bool IsNull() const { return std::holds_alternative<std::monostate>(mStorage); }

    /// The value as the run-time turns it into a text. Raises 94 on Null.
    QString ToText() const;
    /// The guarded read: the empty text for Null, else ToText().
    QString TextOrEmpty() const;
    /// The value as a number; a text must be numeric as a whole. Raises 94 on Null, 13 on any other text. A
    /// date is its days since 1899-12-30.
    double ToDouble() const;
    /// The value as a whole number, rounded half to even as the run-time does. Raises as ToDouble(), and 6
    /// for a number that no whole one of 64 bits comes near.
    qint64 ToInteger() const;
    /// "True" and "False" in any letter case, or a number that is not 0. Raises 94 on Null, 13 on any other
    /// text, the empty one included.
    bool ToBoolean() const;
    /// The value as a date: a date, a text that names one, a number of days since 1899-12-30. Raises 94 on
    /// Null, 6 for a number of days outside the run-time's calendar, which has the years 100 to 9999, 13
    /// otherwise.
    DateTime ToDate() const;

    const Storage& Get() const { return mStorage; }

    friend bool operator==(const Value&, const Value&) = default;

  private:
    Storage mStorage;
};
