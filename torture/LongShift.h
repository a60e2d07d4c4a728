#pragma once

#include "driver/Driver.h"
#include "torture/Journal.h"

#include <QString>

/// What the clerk of a long shift does.
struct LongShiftPlan {
    int patients = 0;
    /// Lines of charges for each patient.
    int lines = 0;
    /// How often a footprint is taken.
    int samples = 0;

    static constexpr int kTicksPerPatient = 50;
};

/// A shift that does not end for weeks, in one process: one patient after the other is found and charged, and
/// his slip is read; reports, lists, the queue and the treatment records are opened and closed in between,
/// and the monitor of the wards' requests goes on all the while, with requests and without. What the process
/// holds is marked in the journal.
///
/// The ward is somebody else: what it shall do is a line of the standard output, and a line of the standard
/// input tells that it is done.
void WorkLongShift(Driver& clerk, const LongShiftPlan& plan, Journal& journal);

/// What the ward is asked for, and what it answers.
namespace WardCall {
inline const QString kRequest = QStringLiteral("ward request");
inline const QString kWithdraw = QStringLiteral("ward withdraw");
} // namespace WardCall
