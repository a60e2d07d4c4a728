#pragma once

#include <QString>

/// The marks that a desk leaves in its journal, or what they begin with.
namespace Mark {
/// Behind the sign-on window.
inline const QString kSignedOn = QStringLiteral("signed on");
/// A wrong password was keyed, and refused.
inline const QString kWrongPassword = QStringLiteral("wrong password");
/// What the program has told at the sign-on, in a box.
inline const QString kTold = QStringLiteral("told ");
/// The sign-on is held up, since others have just failed or are signing on too.
inline const QString kWaiting = QStringLiteral("waiting");
/// What the sign-on window refuses a right password with.
inline const QString kRefused = QStringLiteral("refused ");
/// The clerk has chosen the menu's end of the program.
inline const QString kLeaving = QStringLiteral("leaving");
/// The text of the failure that ends the program.
inline const QString kFailure = QStringLiteral("failure ");
/// What the process of a long shift holds.
inline const QString kSample = QStringLiteral("sample ");
/// A report was read.
inline const QString kReport = QStringLiteral("report");
} // namespace Mark
