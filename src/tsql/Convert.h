#pragma once

#include "tsql/SqlType.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

#include <variant>

/// A value as the hospital's file holds it: null, a whole number, a real number, a text in UTF-8. Dates are
/// texts, money and decimals are whole numbers, units of their last decimal; a decimal of more than 18 digits
/// is a text that sorts as the numbers do.
using Cell = std::variant<std::monostate, qint64, double, QByteArray>;

/// Where a conversion happens: the server reports and cuts differently in each place.
enum class ConversionPlace {
    /// Inside a statement; a text that is too long is cut.
    Expression,
    /// Into a column; a text that is too long is error 8152.
    Column,
    /// Into a procedure's parameter; a text that is too long is cut, every failure is error 8114.
    Parameter,
};

/// The default style of CONVERT.
constexpr int kDefaultStyle = -1;

/// Raises what the server raises where a value of one type never becomes one of the other: 206 and 257, or
/// 529 where it was asked for by CAST or CONVERT.
void RequireConvertible(const SqlType& from, const SqlType& to, bool asked);

/// Turns a value of one type into another as the server does: '' becomes 0 or 1900-01-01, a number a date's
/// day, a date a text in the given style. Raises the server's conversion errors.
Cell Convert(const Cell& value, const SqlType& from, const SqlType& to, ConversionPlace place,
             int style = kDefaultStyle);

/// Whether a value of one type already has the form of the other, so that nothing has to be converted or
/// checked.
bool SameForm(const SqlType& from, const SqlType& to);

/// The number of characters of a text in UTF-8.
qint64 CountCharacters(QByteArrayView text);
/// The first so many characters of a text in UTF-8.
QByteArray FirstCharacters(const QByteArray& text, qint64 count);
