#pragma once

#include "text/DateTime.h"

#include <QStringView>

#include <optional>

/// The moment that a text names by the run-time's rules, or nothing.
///
/// Understood are "mm/dd/yyyy" (also with "-" or ".", day first where the first number cannot be a month, and
/// two-digit years: 30 to 99 lie in the 1900s), "yyyy-mm-dd", "mm/dd" of the clock's year, month names in
/// English, whole or three letters long, before or behind the day ("Nov 21, 2026", "21 November 2026"), each
/// with or without a time "hh:mm[:ss] [AM|PM]", and a time alone.
std::optional<DateTime> ParseDate(QStringView text);

/// Whether ParseDate understands the text.
bool IsDate(QStringView text);
