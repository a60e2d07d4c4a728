#include "report/ReportEngine.h"

#include "report/template/TemplateReader.h"
#include "text/RunTimeError.h"
#include "toolkit/ProgramFiles.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

std::shared_ptr<Report> ReportEngine::OpenReport(const QString& path, int /*option*/) const {
    const QString name = ResolveFile(path);
    if (!QFileInfo(name).isFile())
        throw RunTimeError(RunTime::kFileNotFound,
                           u"%1: %2"_s.arg(RunTime::TextOf(RunTime::kFileNotFound), name));
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw RunTimeError(RunTime::kPathFileAccess,
                           u"%1: %2"_s.arg(RunTime::TextOf(RunTime::kPathFileAccess), name));
    return std::make_shared<Report>(ReadTemplate(name, file.read(kLargestTemplate + 1)), path);
}
