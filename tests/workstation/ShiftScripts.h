#pragma once

#include "driver/Driver.h"

// What happens at one desk while others work on the same hospital.

/// Signs on, saves a slip, prints a report, saves another slip and leaves by the menu. Behind each step it
/// tells the test so and waits for a line of its input.
void ShiftInSteps(Driver& clerk);

/// Keys a wrong password for another user than the shift's and gives up.
void WrongPassword(Driver& clerk);

/// Keys two wrong passwords and then the right one, and tells the box that comes.
void ThirdTry(Driver& clerk);
