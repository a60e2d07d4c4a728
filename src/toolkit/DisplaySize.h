#pragma once

#include "text/Seam.h"

#include <QSize>

#include <array>

/// How large the program is drawn, in percent of the size for which the screens were drawn. It scales
/// everything alike, beside whatever the desktop scales by itself.
namespace DisplaySize {

/// The choice of one who leaves it to the program: the largest size at which the largest screen fits.
constexpr int kAutomatic = 0;
inline constexpr std::array kPercents = {100, 125, 150, 175, 200};
/// What the largest screen needs with the main window around it, in pixels at 100 %.
constexpr QSize kLargestScreen(1040, 700);
/// What the main window needs at the least, in pixels at 100 %.
constexpr QSize kLeastArea(800, 560);

/// The user's choice: one of the sizes, or kAutomatic.
int Chosen();
/// Keeps the choice. It counts from the next start of the process.
void Choose(int percent);

/// The largest size at which the largest screen fits into a work area of so many pixels; where none does, the
/// least one.
int FittingIn(const QSize& workArea);

/// The size at which a work area of so many pixels shows what was chosen: that one, or the largest one at
/// which it holds the main window; where it holds it at none, the least one.
int HeldBy(const QSize& workArea, int chosen);

/// The size at which this process is drawn; kAutomatic before Apply.
int Drawn();

/// What the desktop leaves to windows, in the pixels that it scales, as the program of that name is told.
Seam<QSize(char* program)>& WorkAreaSeam();

/// Lets the application object that is made next draw at the user's size. `program` is the first word with
/// which the process was begun.
void Apply(char* program);
/// Behind the application object: what the process starts, itself included, is drawn as the desktop wants it.
void LeaveEnvironment();

} // namespace DisplaySize
