#include "reporter/ReporterProcess.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 60000;

} // namespace

ReporterProcess::ReporterProcess() {
    QDir(mFolder.Path()).mkpath(DataFolder());
    QFile::rename(mFolder.HospitalPath(), DataFolder() + u"/trial-hospital.db"_s);
}

std::unique_ptr<QProcess> ReporterProcess::Start(const QStringList& words, const QByteArray& input) const {
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = mFolder.Environment();
    environment.insert(u"TARVEN_FOLDER"_s, mFolder.Path());
    environment.insert(u"TARVEN_TRACE"_s, TracePath());
    // As a nightly run has it, which belongs to no session.
    environment.remove(u"XDG_RUNTIME_DIR"_s);
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(mFolder.Path());
    process->start(u"" TARVEN_BUILD_DIR "/tarven-report"_s, words);
    process->write(input);
    process->closeWriteChannel();
    return process;
}

ReporterProcess::Run ReporterProcess::Do(const QStringList& words, const QByteArray& input) const {
    const auto process = Start(words, input);
    if (!process->waitForFinished(kPatience) || process->exitStatus() != QProcess::NormalExit)
        return {};
    return {.exitCode = process->exitCode(),
            .told = QString::fromUtf8(process->readAllStandardOutput()),
            .errors = QString::fromUtf8(process->readAllStandardError())};
}

QString WordsOfPdf(const QString& file) {
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
    reader.waitForFinished(kPatience);
    return QString::fromUtf8(reader.readAllStandardOutput());
}
