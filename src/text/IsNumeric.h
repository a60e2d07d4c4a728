#pragma once

#include <QStringView>

/// Whether the run-time takes the whole text for a decimal number: blanks around it, a sign before or behind
/// it or parentheses for a negative one, a currency sign ($ or ₱), commas between the integer digits, one
/// point. A text with a letter in it is not numeric, so a visit number such as "10231B" tells itself from an
/// admission's.
bool IsNumeric(QStringView text);
