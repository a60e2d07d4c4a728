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

QProcessEnvironment ReporterProcess::Environment() const {
    QProcessEnvironment environment = mFolder.Environment();
    environment.insert(u"TARVEN_FOLDER"_s, mFolder.Path());
    environment.insert(u"TARVEN_TRACE"_s, TracePath());
    // As a nightly run has it, which belongs to no session.
    environment.remove(u"XDG_RUNTIME_DIR"_s);
    return environment;
}

void ReporterProcess::StartIn(QProcess& process, const QStringList& words, const QByteArray& input) {
    process.start(u"" TARVEN_BUILD_DIR "/tarven-report"_s, words);
    process.write(input);
    process.closeWriteChannel();
}

ReporterProcess::Run ReporterProcess::EndOf(QProcess& process) {
    if (!process.waitForFinished(kPatience) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {.exitCode = process.exitCode(),
            .told = QString::fromUtf8(process.readAllStandardOutput()),
            .errors = QString::fromUtf8(process.readAllStandardError())};
}

std::unique_ptr<QProcess> ReporterProcess::Start(const QStringList& words, const QByteArray& input) const {
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(Environment());
    process->setWorkingDirectory(mFolder.Path());
    StartIn(*process, words, input);
    return process;
}

ReporterProcess::Run ReporterProcess::Do(const QStringList& words, const QByteArray& input) const {
    return EndOf(*Start(words, input));
}

ReporterProcess::Run ReporterProcess::DoWithoutDisplay(const QStringList& words) const {
    QProcess process;
    QProcessEnvironment environment = Environment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    environment.remove(u"DISPLAY"_s);
    process.setProcessEnvironment(environment);
    StartIn(process, words, {});
    return EndOf(process);
}

QString WordsOfPdf(const QString& file) {
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
    reader.waitForFinished(kPatience);
    return QString::fromUtf8(reader.readAllStandardOutput());
}
