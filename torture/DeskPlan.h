#pragma once

#include "torture/DeskRecord.h"

#include <chrono>
#include <vector>

/// How often a desk does what.
struct DeskPace {
    using Time = std::chrono::duration<double>;

    /// As the monitor of the wards' requests asks.
    Time asking = std::chrono::milliseconds(250);
    /// From one save to the next, on the average.
    Time slip = std::chrono::seconds(60);
    /// Between two things that are keyed into a slip.
    Time key = std::chrono::milliseconds(1200);
    /// The mean times between searches besides those for slips, between lists, and between reports.
    Time search = std::chrono::seconds(120);
    Time list = std::chrono::seconds(300);
    Time report = std::chrono::seconds(900);

    /// Clerks who are so many times as fast; the monitor's pace is nobody's to change.
    DeskPace Hurried(double times) const;
};

/// Something that a desk does at a moment, without a pause between its commands.
struct DeskDeed {
    DeskPace::Time moment;
    DeskWork work = DeskWork::Asking;
    Conversation said;
};

/// What one desk does in that time from a moment on in the middle of its day, in the order of the moments.
/// Slips follow each other, each with its search, its keying and its save; what else is done comes as calls
/// at random do. The same seed brings the same.
std::vector<DeskDeed> PlanDesk(const DeskRecord& record, const DeskPace& pace, DeskPace::Time length,
                               unsigned seed);
