#include "torture/DeskPlan.h"

#include <algorithm>
#include <random>

namespace {

using Time = DeskPace::Time;

class Planner {
  public:
    Planner(const DeskRecord& record, const DeskPace& pace, Time length, unsigned seed)
        : mRecord(record)
        , mPace(pace)
        , mLength(length)
        , mRandom(seed) {}

    std::vector<DeskDeed> Plan();

  private:
    Time Between(Time first, Time last) {
        return Time(std::uniform_real_distribution<double>(first.count(), last.count())(mRandom));
    }
    Time AnyPause(Time mean) {
        return Time(std::exponential_distribution<double>(1.0 / mean.count())(mRandom));
    }
    void Do(Time moment, DeskWork work, const Conversation& said);
    void DoAll(Time moment, DeskWork work);
    void Ask();
    void KeepAt(DeskWork work, Time mean);
    void WriteSlips();
    /// Hands back the moment of the save.
    Time WriteSlip(Time begin);

    const DeskRecord& mRecord;
    const DeskPace& mPace;
    const Time mLength;
    std::mt19937 mRandom;
    std::vector<DeskDeed> mDeeds;
};

void Planner::Do(Time moment, DeskWork work, const Conversation& said) {
    if (moment >= Time(0) && moment < mLength)
        mDeeds.push_back({.moment = moment, .work = work, .said = said});
}

void Planner::DoAll(Time moment, DeskWork work) {
    for (const Conversation& said : mRecord.works.at(work))
        Do(moment, work, said);
}

void Planner::Ask() {
    for (Time moment = Between(Time(0), mPace.asking); moment < mLength; moment += mPace.asking)
        DoAll(moment, DeskWork::Asking);
}

void Planner::KeepAt(DeskWork work, Time mean) {
    for (Time moment = AnyPause(mean); moment < mLength; moment += AnyPause(mean))
        DoAll(moment, work);
}

Time Planner::WriteSlip(Time begin) {
    DoAll(begin, DeskWork::Search);
    Time moment = begin;
    for (const Conversation& said : mRecord.works.at(DeskWork::Keying)) {
        for (const QString& command : said.commands)
            Do(moment += mPace.key, DeskWork::Keying, {.isApart = false, .commands = {command}});
    }
    DoAll(moment += mPace.key, DeskWork::Save);
    return moment;
}

void Planner::WriteSlips() {
    // From some time before, so that the plan begins anywhere in a slip.
    constexpr double kSlipsBefore = 3;
    Time moment = Between(-kSlipsBefore * mPace.slip, -(kSlipsBefore - 1) * mPace.slip);
    while (moment < mLength) {
        const Time saved = WriteSlip(moment);
        moment = saved + AnyPause(std::max(mPace.slip - (saved - moment), mPace.key));
    }
}

std::vector<DeskDeed> Planner::Plan() {
    Ask();
    WriteSlips();
    KeepAt(DeskWork::Search, mPace.search);
    KeepAt(DeskWork::List, mPace.list);
    KeepAt(DeskWork::Report, mPace.report);
    std::ranges::stable_sort(mDeeds, {}, &DeskDeed::moment);
    return std::move(mDeeds);
}

} // namespace

DeskPace DeskPace::Hurried(double times) const {
    return {.asking = asking,
            .slip = slip / times,
            .key = key / times,
            .search = search / times,
            .list = list / times,
            .report = report / times};
}

std::vector<DeskDeed> PlanDesk(const DeskRecord& record, const DeskPace& pace, DeskPace::Time length,
                               unsigned seed) {
    return Planner(record, pace, length, seed).Plan();
}
