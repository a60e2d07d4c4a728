#pragma once

#include "tsql/Convert.h"
#include "tsql/SqlType.h"

#include <QString>

#include <utility>

/// The type of a sum, difference, product, quotient or remainder of two numbers, by the server's rules: the
/// higher kind wins, and a decimal's digits follow from those of its operands. A literal NULL takes the
/// other's type.
SqlType ArithmeticType(QChar sign, const SqlType& left, const SqlType& right);

/// The types of SUM and AVG of money or decimals.
SqlType SumType(const SqlType& type);
SqlType AverageType(const SqlType& type);

/// The value and type of a number as written: int for whole ones, decimal with a point or beyond an int,
/// float with an exponent. Raises 168 and 1007 for a float or decimal beyond all of its kind.
std::pair<Cell, SqlType> NumberLiteral(const QString& text);

/// The operator's name in the server's error texts, "add" for "+".
QString OperatorName(QChar sign);
