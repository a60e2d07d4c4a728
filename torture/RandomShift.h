#pragma once

#include "driver/Driver.h"
#include "torture/Journal.h"
#include "torture/Marks.h"

#include <QString>

/// Whose shift it is, and on which hospital.
struct ShiftPlan {
    unsigned seed = 0;
    QString user;
    QString password;
    /// Whether the shift is one slip of three lines instead of work at random.
    bool oneSlip = false;
};

/// A shift at a desk, keyed at random: charges of in-patients and out-patients, assessments of walk-ins who
/// are registered for them, cancellations and revokes, until the clerk leaves by the menu or the process is
/// ended. Some begin with a wrong password.
void WorkShift(Driver& clerk, const ShiftPlan& plan, Journal& journal);

/// Marks the failure that ends the program, and presses the button of its box, for as long as the process
/// lives.
void ReadFailures(Journal& journal);
