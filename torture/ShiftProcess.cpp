#include "torture/ShiftProcess.h"

#include "text/RunTimeError.h"
#include "torture/EndWithTorture.h"
#include "torture/JournaledSuite.h"
#include "torture/Torture.h"
#include "workstation/KeyedProgram.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 60000;
const QString kOneSlip = u"one-slip"_s;

} // namespace

ShiftProcess::ShiftProcess(const ProgramFolder& folder, const QString& name, const ShiftPlan& plan)
    : mJournal(JournalFolder(folder) + u'/' + name) {
    QDir().mkpath(JournalFolder(folder));
    mProcess.setProcessEnvironment(folder.Environment());
    mProcess.setStandardOutputFile(QProcess::nullDevice());
    EndWithTorture(mProcess);
    mProcess.start(QCoreApplication::applicationFilePath(),
                   {u"shift"_s, folder.Path(), mJournal, QString::number(plan.seed), plan.user, plan.password,
                    plan.oneSlip ? kOneSlip : QString()});
    mProcess.waitForStarted(kPatience);
}

ShiftProcess::~ShiftProcess() {
    if (!HasEnded())
        Kill();
}

void ShiftProcess::Kill() {
    mKilled = !HasEnded();
    mProcess.kill();
    mProcess.waitForFinished(kPatience);
}

qint64 ShiftProcess::JournalSize() const {
    return QFileInfo(mJournal).size();
}

QStringList ShiftProcess::ProblemsOfEnd() {
    if (mKilled)
        return {};
    const ReadJournal journal = Journal();
    const QString failure = journal.Mark(Mark::kFailure);
    if (mProcess.exitStatus() == QProcess::CrashExit)
        return {u"crashed"_s};
    if (failure.contains(u"'%1'"_s.arg(RunTime::kRowChanged)))
        return {};
    if (!failure.isEmpty())
        return {failure};
    if (mProcess.exitCode() != 0)
        return {u"ended with %1 %2"_s.arg(mProcess.exitCode())
                    .arg(QString::fromUtf8(mProcess.readAllStandardError()).trimmed())};
    return {};
}

int RunShift(const QStringList& arguments) {
    const QString folder = arguments.value(0);
    Journal journal(arguments.value(1));
    const ShiftPlan plan = {.seed = arguments.value(2).toUInt(),
                            .user = arguments.value(3),
                            .password = arguments.value(4),
                            .oneSlip = arguments.value(5) == kOneSlip};
    return RunKeyedProgram(
        folder,
        [&] {
            RegisterJournaledSuite(folder + u"/data"_s, journal);
            ReadFailures(journal);
        },
        [&](Driver& clerk) { WorkShift(clerk, plan, journal); });
}
