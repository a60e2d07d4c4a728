#pragma once

#include <QString>

/// The command texts of the catalogue. Each argument goes in as it stands; nothing is escaped or trimmed.

/// The revenue centres with exactly that code.
QString ExactRevenueCommand(const QString& code);
/// The revenue centres that begin with the text.
QString PartialRevenueCommand(const QString& text);
/// The list of the revenue picker, with "##" where the search text goes.
QString RevenueListQuery();
/// The rates of a revenue centre.
QString RatesCommand(const QString& revenueID);
/// Every ultrasound examination.
QString UltraExamsCommand();
/// The ultrasound examinations whose name begins with the text.
QString SearchUltraExamCommand(const QString& text);
