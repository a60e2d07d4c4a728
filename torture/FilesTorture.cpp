#include "torture/FilesCases.h"
#include "torture/Journal.h"
#include "torture/Torture.h"
#include "torture/TortureTable.h"
#include "torture/WholeHospital.h"

#include <atomic>
#include <exception>
#include <future>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using End = FilesCase::End;

/// What a desk on a sound file has shown, posted and printed.
struct SoundFigures {
    QString shown;
    QString charges;
    QString paper;
};

SoundFigures FiguresOf(const FilesPlace& place, const FilesDeskEnd& end) {
    return {.shown = end.shown, .charges = place.Charges(end), .paper = place.Paper()};
}

/// What came of a case.
struct FilesResult {
    /// What the clerk is told, and what is left of the file; empty for nothing.
    QString told;
    QString left;
    QStringList problems;
};

/// One case, from what is done to the file to what is left of it.
class FilesRun {
  public:
    FilesRun(const FilesCase& files, const SoundFigures& sound)
        : mCase(files)
        , mSound(sound)
        , mPlace(files.folder) {}

    FilesResult Run();

  private:
    void Judge(const FilesDeskEnd& end, const FilesLeft& before);
    void JudgeText(const FilesDeskEnd& end);
    void JudgeWork(const FilesDeskEnd& end);
    void JudgeSave();
    void WorkAgain();

    const FilesCase& mCase;
    const SoundFigures& mSound;
    FilesPlace mPlace;
    std::optional<WholeHospital> mWhole;
    FilesResult mResult;
};

FilesResult FilesRun::Run() {
    if (mCase.end == End::Fails)
        mWhole.emplace(mPlace.Hospital());
    if (mCase.prepare)
        mCase.prepare(mPlace);
    const FilesLeft before = mPlace.Left();
    Judge(mCase.beforeSave ? mPlace.Work([this] { mCase.beforeSave(mPlace); }) : mPlace.Work(), before);
    if (mCase.mend)
        WorkAgain();
    return std::move(mResult);
}

void FilesRun::Judge(const FilesDeskEnd& end, const FilesLeft& before) {
    mResult.problems << end.problems;
    mResult.told = QString(end.Told()).replace(mPlace.Path(), u"..."_s);
    if (mCase.end == End::Refused && mPlace.Left() == before)
        mResult.left = u"as it was"_s;
    else if (mCase.end == End::Refused)
        mResult.problems << u"the files are not as they were"_s;
    if (mCase.end == End::Refused || mCase.end == End::Fails)
        JudgeText(end);
    else
        JudgeWork(end);
    if (mCase.end == End::Fails)
        JudgeSave();
}

void FilesRun::JudgeText(const FilesDeskEnd& end) {
    const bool isRefused = mCase.end == End::Refused;
    if ((isRefused ? end.refused : end.failure).isEmpty())
        mResult.problems << u"the clerk was not told, but: "_s + end.Told() + end.shown;
    if (!end.Told().contains(mCase.told))
        mResult.problems << u"the clerk was told: "_s + end.Told();
    if (mCase.namesTheFile && !end.Told().contains(mPlace.DataFolder()))
        mResult.problems << u"the file is not named: "_s + end.Told();
}

void FilesRun::JudgeWork(const FilesDeskEnd& end) {
    const SoundFigures figures = FiguresOf(mPlace, end);
    if (!end.signedOn || !end.Told().isEmpty())
        mResult.problems << u"the clerk cannot work: "_s + end.Told();
    if (figures.shown != mSound.shown || figures.charges != mSound.charges)
        mResult.problems << u"other figures: "_s + figures.shown + u" / "_s + figures.charges;
    if (mCase.end == End::Works ? figures.paper != mSound.paper : figures.paper.isEmpty())
        mResult.problems << u"another paper: "_s + figures.paper;
    if (mResult.problems.isEmpty())
        mResult.left = u"the slip, as on a sound file"_s;
}

void FilesRun::JudgeSave() {
    mResult.problems << mWhole->Problems(JournalsIn(mPlace.Folder().File(u"journals"_s)));
    if (mResult.problems.isEmpty())
        mResult.left = u"every command that was answered"_s;
}

void FilesRun::WorkAgain() {
    mCase.mend(mPlace);
    const FilesDeskEnd end = mPlace.Work();
    mResult.problems << end.problems;
    if (!end.signedOn || !end.Told().isEmpty())
        mResult.problems << u"the next desk cannot work: "_s + end.Told();
    else
        mResult.left += u"; the next desk works"_s;
    if (mWhole)
        mResult.problems << mWhole->Problems(JournalsIn(mPlace.Folder().File(u"journals"_s)));
}

FilesResult ResultOf(const FilesCase& files, const SoundFigures& sound) {
    try {
        return FilesRun(files, sound).Run();
    } catch (const std::exception& error) {
        return {.told = {},
                .left = {},
                .problems = {u"the torture itself: "_s + QString::fromUtf8(error.what())}};
    }
}

/// The cases' results in their order. Two are done at a time: a desk waits for its disk more than it works.
std::vector<FilesResult> ResultsOf(const std::vector<FilesCase>& cases, const SoundFigures& sound) {
    std::vector<FilesResult> results(cases.size());
    std::atomic<size_t> next = 0;
    const auto work = [&] {
        for (size_t i = next++; i < cases.size(); i = next++)
            results[i] = ResultOf(cases[i], sound);
    };
    const auto beside = std::async(std::launch::async, work);
    work();
    beside.wait();
    return results;
}

/// Those of the short form, or all; without those that this system does not allow, which the table tells.
std::vector<FilesCase> CasesToDo(TortureTable& table, bool shortOnes) {
    const bool mayHaveDisks = FilesPlace::MayHaveDisks();
    std::vector<FilesCase> cases;
    for (const FilesCase& files : FilesCases()) {
        if (shortOnes && !files.isShort)
            continue;
        if (files.needsADisk && !mayHaveDisks)
            table.Add(files.name, u"not done: this system gives nobody a disk of his own"_s);
        else
            cases.push_back(files);
    }
    return cases;
}

} // namespace

void TortureByFiles(TortureTable& table, const TortureSize& size) {
    const std::vector<FilesCase> cases = CasesToDo(table, size.isShort);
    FilesPlace place(u"tarven"_s);
    const FilesDeskEnd end = place.Work();
    const SoundFigures sound = FiguresOf(place, end);
    table.AddProblems(u"a sound file"_s, end.problems);
    if (end.shown.isEmpty() || sound.charges.isEmpty() || sound.paper.isEmpty())
        table.AddProblems(u"a sound file"_s, {u"nobody can work with it: "_s + end.Told()});
    const std::vector<FilesResult> results = ResultsOf(cases, sound);
    table.Add(u"case"_s, u"what the clerk is told | what is left of the file"_s);
    for (size_t i = 0; i < cases.size(); ++i) {
        const FilesResult& result = results[i];
        table.Add(cases[i].name,
                  (result.told.isEmpty() ? u"nothing"_s : result.told) + u" | "_s + result.left);
        table.AddProblems(cases[i].name, result.problems);
    }
}
