#pragma once

#include "gateway/RowSet.h"

#include <QString>

#include <functional>
#include <memory>

class OdbcHandle;

/// Reads the result set that a statement stands on, whole, each column as its own type: whole numbers, bits,
/// floating numbers, money and decimals as exact text, dates, texts. Raises what stopped the reading; rows
/// that came before a failure are never handed out as if they were all.
///
/// beforeRow is called before each row is fetched; what it raises ends the reading.
std::shared_ptr<const RowData> ReadOdbcRows(const OdbcHandle& statement, int columns,
                                            const std::function<void()>& beforeRow);

/// A decimal's text with a 0 before its point, which some drivers leave out as in "-.5000".
QString WithLeadingZero(QString number);
