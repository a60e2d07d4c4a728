#pragma once

#include "text/Seam.h"

#include <QString>

#include <exception>

/// The one end of every failure that no handler traps: its text in a critical message box, then the end of
/// the process with exit code 1, without any more of the program's code running. The text goes nowhere else:
/// it may hold a patient's name, and desktops keep what programs write to standard error.
namespace Failure {

/// Ends the process with the text of the failure. A second failure while the box is open is dropped, so the
/// box shows once. `inPaint` puts the box off until the painting has ended.
void End(const std::exception_ptr& failure, bool inPaint = false) noexcept;

/// True from the first failure on. Timers and other windows do nothing more then.
bool IsEnding();

/// The text shown for a failure: "Run-time error '3021':" and the description.
QString TextOf(const std::exception_ptr& failure);

/// What End does with a failure: the box, then the end of the process.
Seam<void(const std::exception_ptr& failure, bool inPaint)>& EndSeam();

/// Makes an exception that no event dispatch sees end the process the same way; without the box where none
/// can open, as from a static constructor or beside the user interface's thread.
void InstallTerminateHandler();

} // namespace Failure
