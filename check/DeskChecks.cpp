#include "check/DeskChecks.h"

#include "check/ObjectChecks.h"
#include "check/TemplateFields.h"
#include "components/shared.h"
#include "report/output/Printers.h"
#include "report/template/TemplateReader.h"
#include "reports/PeriodReports.h"
#include "reports/ReportFiles.h"
#include "shell/ConfigFile.h"
#include "text/RunTimeError.h"
#include "toolkit/ProgramFiles.h"

#include <QFile>
#include <QFileInfo>
#include <QPrinterInfo>

using namespace Qt::StringLiterals;

namespace {

/// What a key that is not there gives.
constexpr auto kNoValue = "0"_L1;

void LookAtTemplate(const QString& path, const Needs& needs, Findings& faults) {
    const QString name = u"templates"_s;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        faults.push_back(Fails(name, u"%1: %2"_s.arg(path, file.errorString()),
                               u"lay it there from the package"_s));
        return;
    }
    try {
        const auto read = ReadTemplate(path, file.read(kLargestTemplate + 1));
        for (const QString& problem : ProblemsOfFields(*read, needs))
            faults.push_back(Fails(name, u"%1: %2"_s.arg(path, problem),
                                   u"set the line right; docs/templates.md"_s));
    } catch (const RunTimeError& error) {
        faults.push_back(Fails(name, error.Description(), u"set the line right; docs/templates.md"_s));
    }
}

} // namespace

QStringList TemplatesOfProgram() {
    QStringList files;
    for (const QStringView file :
         {ReportFile::kChargeSlip, ReportFile::kOlderChargeSlip, ReportFile::kAssessmentSlip,
          ReportFile::kAssessmentDuplicate, ReportFile::kConsultation, ReportFile::kCensusByName,
          ReportFile::kCensusByStation, ReportFile::kLedger})
        files << ResolveFile(PathOf(file));
    for (int type = 0; type <= static_cast<int>(ReportType::OutPatientCompany); ++type) {
        if (const PeriodReport* report = FindPeriodReport(static_cast<ReportType>(type)))
            files << ResolveFile(PathOf(report->file));
    }
    files.removeDuplicates();
    return files;
}

Findings LookAtTemplates(const Ground& ground) {
    const QStringList templates = TemplatesOfProgram();
    const Needs needs = NeedsAsTold(ground);
    Findings faults;
    for (const QString& path : templates)
        LookAtTemplate(path, needs, faults);
    return FaultsOr(std::move(faults), Ok(u"templates"_s, u"%1 read"_s.arg(templates.size())));
}

Findings LookAtPrinters(const Ground&) {
    const QString name = u"printers"_s;
    if (!HasPrinters())
        return {Fails(name, u"none"_s, u"set one up in the machine's print system (CUPS)"_s)};
    const QString last = LastPrinter();
    if (!last.isEmpty() && !HasPrinter(last))
        return {Fails(name, u"the one used last, %1, is gone"_s.arg(last),
                      u"set it up again, or choose another one at the next slip"_s)};
    const QString usual = QPrinterInfo::defaultPrinterName();
    return {Ok(name, u"%1, the usual one %2"_s.arg(QPrinterInfo::availablePrinterNames().size())
                         .arg(usual.isEmpty() ? u"is not chosen"_s : u"is "_s + usual))};
}

Findings LookAtConfiguration(const Ground&) {
    const QString name = u"configuration"_s;
    const QString toDo = u"File, Setup in the program writes it; or write DeptCode = HC into it"_s;
    try {
        QString code;
        ReadConfigValue(u"DeptCode"_s, code);
        if (code.isEmpty() || code == kNoValue)
            return {Fails(name, ResolveFile(gIniPath) + u" names no department"_s, toDo)};
        return {Ok(name, u"%1, department %2"_s.arg(ResolveFile(gIniPath), code))};
    } catch (const RunTimeError& error) {
        return {Fails(name, error.Description(), toDo)};
    }
}

Findings LookAtFolders(const Ground& ground) {
    const QString name = u"folders"_s;
    Findings faults;
    const QFileInfo data(ground.dataFolder);
    if (data.exists() && !(data.isDir() && data.isWritable()))
        faults.push_back(Fails(name, u"%1 cannot be written to"_s.arg(ground.dataFolder),
                               u"give it to the user who works here"_s));
    const QFileInfo reports(ResolveFile(ProgramDirectory() + u"/Reports"_s));
    if (reports.isWritable() && !ground.isTrial)
        faults.push_back(Fails(name, u"%1 may be written to by who works here"_s.arg(reports.filePath()),
                               u"a template is as good as a command in the clerk's name: give the folder to "
                               "the administrator, and run the check as the clerk: root may write everywhere"_s));
    return FaultsOr(std::move(faults), Ok(name, ground.dataFolder));
}
