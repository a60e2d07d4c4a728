#pragma once

#include <QtGlobal>

/// The toolkit's objects that are alive in this process: all of them, whoever made them and wherever they
/// hang, since the toolkit itself tells of each one that begins and ends.
///
/// They are looked at on the user interface's thread while no other one works on objects of its own.
namespace LiveObjects {

/// Begins to count. Called before the application is made; what was made before is not known. Raises
/// std::runtime_error where the toolkit does not tell.
void Watch();

qsizetype Count();
/// Timers, whether they run or not.
qsizetype Timers();
/// What the event loop has to wake for: timers that run, and objects that have a clock of their own.
qsizetype RunningClocks();
/// Whether something is still to be done once, in a while: what it works on may be gone already, and its
/// clock runs nevertheless.
bool IsAnythingPutOff();

} // namespace LiveObjects
