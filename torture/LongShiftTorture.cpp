#include "hospital/HospitalScripts.h"
#include "support/hospital/ProgramFolder.h"
#include "torture/EndWithTorture.h"
#include "torture/Flatness.h"
#include "torture/FootprintGraph.h"
#include "torture/JournaledSuite.h"
#include "torture/LiveObjects.h"
#include "torture/LongShift.h"
#include "torture/Marks.h"
#include "torture/RandomShift.h"
#include "torture/Torture.h"
#include "torture/TortureTable.h"
#include "torture/WholeHospital.h"
#include "trial/HospitalFile.h"
#include "workstation/KeyedProgram.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int kNoBound = -1;
constexpr LongShiftPlan kWholeShift = {.patients = 0, .lines = 10, .samples = 100};
constexpr LongShiftPlan kShortShift = {.patients = 12, .lines = 2, .samples = 12};

LongShiftPlan PlanOf(const TortureSize& size) {
    if (size.isShort)
        return kShortShift;
    LongShiftPlan plan = kWholeShift;
    plan.patients = size.patients;
    return plan;
}

/// The ward, which asks for something and takes it back, whenever the shift calls it.
class CallingWard {
  public:
    explicit CallingWard(const QString& hospital)
        : mHospital(HospitalFile::Open(hospital, HospitalScripts())) {}

    void Do(const QString& call) {
        const bool requests = call == WardCall::kRequest;
        mHospital->ExecuteNoResult(
            requests ? u"UPDATE RADIOLOGY..tbNurseRequest SET Status = 'P' WHERE RequestNum = (SELECT "
                       "MAX(RequestNum) FROM RADIOLOGY..tbNurseRequest)"_s
                     : u"UPDATE RADIOLOGY..tbNurseRequest SET Status = 'X' WHERE Status = 'P'"_s);
    }

  private:
    std::unique_ptr<EmbeddedGateway> mHospital;
};

/// The workstation, and the ward beside it.
class LongShift {
  public:
    LongShift(const ProgramFolder& folder, const LongShiftPlan& plan)
        : mFolder(folder)
        , mJournal(folder.File(u"journal"_s))
        , mPlan(plan) {}

    /// Works until the shift is over. Answers what is wrong with its end.
    QStringList Work();
    /// The one journal, as those are taken that look at several.
    std::vector<ReadJournal> Done() const { return {JournalIn(mJournal)}; }

  private:
    void Start();
    void ServeTheWard();
    QStringList ProblemsOfEnd();

    const ProgramFolder& mFolder;
    const QString mJournal;
    const LongShiftPlan& mPlan;
    QProcess mProcess;
};

void LongShift::Start() {
    mProcess.setProcessEnvironment(mFolder.Environment());
    EndWithTorture(mProcess);
    mProcess.start(QCoreApplication::applicationFilePath(),
                   {u"long-shift"_s, mFolder.Path(), mJournal, QString::number(mPlan.patients),
                    QString::number(mPlan.lines), QString::number(mPlan.samples)});
}

void LongShift::ServeTheWard() {
    CallingWard ward(mFolder.HospitalPath());
    while (mProcess.canReadLine() || mProcess.waitForReadyRead(kNoBound)) {
        while (mProcess.canReadLine()) {
            const QString line = QString::fromUtf8(mProcess.readLine()).trimmed();
            if (line != WardCall::kRequest && line != WardCall::kWithdraw)
                continue;
            ward.Do(line);
            mProcess.write("\n");
        }
    }
}

QStringList LongShift::ProblemsOfEnd() {
    mProcess.waitForFinished(kNoBound);
    if (mProcess.exitStatus() == QProcess::CrashExit)
        return {u"the program crashed"_s};
    if (mProcess.exitCode() != 0)
        return {u"the program ended with %1 %2 %3"_s.arg(mProcess.exitCode())
                    .arg(Done().front().Mark(Mark::kFailure),
                         QString::fromUtf8(mProcess.readAllStandardError()).trimmed())};
    return {};
}

QStringList LongShift::Work() {
    Start();
    ServeTheWard();
    return ProblemsOfEnd();
}

std::vector<Footprint::Sample> SamplesIn(const ReadJournal& journal) {
    std::vector<Footprint::Sample> samples;
    for (const QString& mark : journal.marks) {
        if (mark.startsWith(Mark::kSample))
            samples.push_back(Footprint::SampleIn(mark.mid(Mark::kSample.size())));
    }
    return samples;
}

void TellSamples(TortureTable& table, const std::vector<Footprint::Sample>& samples) {
    for (size_t i = 0; i < Footprint::kFigures.size(); ++i) {
        const Footprint::Figure& figure = Footprint::kFigures[i];
        const std::vector<double> series = Flatness::SeriesOf(samples, i);
        const auto number = [&](double value) {
            return QString::number(value / figure.perUnit, 'f',
                                   figure.perUnit == Footprint::kMegabyte ? 2 : 0);
        };
        table.Add(u"%1: first, where judged, last; growth %2"_s.arg(figure.what, figure.unit),
                  u"%1 %2 %3; %4"_s.arg(number(series.front()),
                                        number(series[Flatness::Beginning(series.size())]),
                                        number(series.back()), number(Flatness::Growth(series))));
    }
}

/// How often the monitor has asked, by the clock and by the ticks.
qint64 QuestionsIn(const ReadJournal& journal) {
    return std::ranges::count_if(journal.commands, [](const JournaledCommand& command) {
        return command.outcome == JournaledCommand::Outcome::Answered &&
               command.text.startsWith("RADIOLOGY..spRadio_CheckPending"_L1);
    });
}

/// That the shift has really done what it is judged for.
QStringList MissingWork(const std::vector<ReadJournal>& done, const LongShiftPlan& plan) {
    const WorkDone work = WorkIn(done);
    const ReadJournal& journal = done.front();
    QStringList problems;
    const auto expect = [&](const QString& what, qint64 count, qint64 wanted) {
        if (count < wanted)
            problems << u"%1: %2 of %3"_s.arg(what).arg(count).arg(wanted);
    };
    expect(u"lines charged"_s, work.charges, qint64(plan.patients) * plan.lines);
    expect(u"slips saved"_s, work.numbers, plan.patients);
    expect(u"reports"_s, journal.marks.count(Mark::kReport), plan.patients / 4);
    expect(u"ticks"_s, QuestionsIn(journal), qint64(plan.patients) * LongShiftPlan::kTicksPerPatient);
    expect(u"samples"_s, qint64(SamplesIn(journal).size()), std::min(plan.samples, plan.patients));
    return problems;
}

void TellWork(TortureTable& table, const std::vector<ReadJournal>& done) {
    const WorkDone work = WorkIn(done);
    table.Add(u"slips saved"_s, work.numbers);
    table.Add(u"lines charged"_s, work.charges);
    table.Add(u"reports read"_s, done.front().marks.count(Mark::kReport));
    table.Add(u"questions of the monitor"_s, QuestionsIn(done.front()));
    table.Add(u"commands answered"_s, work.answered);
}

void Draw(const std::vector<Footprint::Sample>& samples, const QString& path, int patients) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(FootprintGraph(samples, u"%1 patients"_s.arg(patients))) < 0)
        throw std::runtime_error("cannot write " + path.toStdString());
}

} // namespace

int RunLongShift(const QStringList& arguments) {
    LiveObjects::Watch();
    const QString folder = arguments.value(0);
    Journal journal(arguments.value(1));
    const LongShiftPlan plan = {.patients = arguments.value(2).toInt(),
                                .lines = arguments.value(3).toInt(),
                                .samples = arguments.value(4).toInt()};
    return RunKeyedProgram(
        folder,
        [&] {
            RegisterJournaledSuite(folder + u"/data"_s, journal);
            ReadFailures(journal);
        },
        [&](Driver& clerk) { WorkLongShift(clerk, plan, journal); });
}

void TortureByLongShift(TortureTable& table, const TortureSize& size) {
    const LongShiftPlan plan = PlanOf(size);
    const ProgramFolder folder;
    WholeHospital hospital(folder.HospitalPath());
    QElapsedTimer clock;
    clock.start();
    LongShift shift(folder, plan);
    table.AddProblems(u"the end"_s, shift.Work());
    const std::vector<ReadJournal> done = shift.Done();
    table.Add(u"seconds"_s, clock.elapsed() / 1000);
    TellWork(table, done);
    table.AddProblems(u"the work"_s, MissingWork(done, plan));
    table.AddProblems(u"the hospital"_s, hospital.Problems(done));
    const std::vector<Footprint::Sample> samples = SamplesIn(done.front());
    if (samples.empty())
        return;
    TellSamples(table, samples);
    table.AddProblems(u"the program"_s, Flatness::Problems(samples));
    if (!size.graph.isEmpty())
        Draw(samples, size.graph, plan.patients);
}
