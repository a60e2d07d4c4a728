#pragma once

#include <QString>

/// The command texts of the maintenance screens. Each argument goes in as it stands; nothing is escaped or
/// trimmed.

/// Lists the department's cash assessments of the patients whose last name begins with the text; an empty
/// text brings all.
QString AssessmentStatusCommand(const QString& lastName);

/// The lines that bear a reference number, with what a revoke needs of each.
QString LinesOfReferenceCommand(const QString& reference);

/// The lines that bear a reference number, whole, for the re-printed slip.
QString AssessmentSlipCommand(const QString& reference);

/// Revokes one line of an assessment. The reference is empty for a line that stands alone.
QString AssessRevokeCommand(const QString& assessmentNumber, const QString& reference,
                            const QString& revenueCode);
