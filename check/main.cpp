#include "check/Arguments.h"
#include "check/Checks.h"
#include "check/NoConnection.h"
#include "check/SignOnFault.h"
#include "check/Tell.h"
#include "components/shared.h"
#include "gateway/CommandTrace.h"
#include "odbc/OdbcDataSources.h"
#include "shell/ConfigFile.h"
#include "shell/version.h"
#include "suite/ConsoleSignOn.h"
#include "suite/DataSources.h"
#include "suite/RegisterSuite.h"
#include "suite/TrialHospital.h"
#include "text/RunTimeError.h"
#include "toolkit/Application.h"
#include "toolkit/ProgramFiles.h"
#include "tsql/ServerError.h"

#include <QStandardPaths>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

// Tells whether the program can work here; --help tells how to ask.

namespace {

enum Outcome { AllWell = 0, Faults = 1, CouldNotLook = 2 };

void Print(std::FILE* where, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), where);
    std::fflush(where);
}

int Refuse(const std::exception& error) {
    Print(stderr, u"tarven-check: %1\n"_s.arg(QString::fromUtf8(error.what())));
    return CouldNotLook;
}

QString DataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

/// A configuration file that cannot be read is told by its own check; the sign-on then needs --department.
QString Department(const Arguments& arguments) {
    if (!arguments.department.isEmpty())
        return arguments.department;
    QString code;
    ReadConfigValue(u"DeptCode"_s, code);
    return code;
}

/// What the sign-on window offers on this machine.
QStringList OfferedSources() {
    QStringList names;
    for (const auto& source : DataSources(DataFolder(), OdbcDataSources))
        names << source->Name();
    return names;
}

std::unique_ptr<SignedOnUser> SignOnToLook(DataSource& source, const Arguments& arguments,
                                           const QString& department) {
    RequireMade(source);
    return SignOnAtConsole(source, arguments.user, ConsolePassword(arguments.passwordFile), department);
}

/// Looks, and tells each line as it is known, or all of them, with those `before`, as JSON at the end.
Findings LookAndTell(const Ground& ground, bool asJson, const Findings& before = {}) {
    const bool colored = ::isatty(STDOUT_FILENO) == 1;
    Findings all = before;
    const Findings found = LookAtEverything(ground, [&](const Finding& finding) {
        if (!asJson)
            Print(stdout, LineOf(finding, colored));
    });
    all.insert(all.end(), found.begin(), found.end());
    if (asJson)
        std::fputs(JsonOf(all).constData(), stdout);
    // On a full disk, for one: nobody has been told anything then.
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        throw std::runtime_error("What was found cannot be written.");
    return all;
}

/// What lies on the workstation may be why nobody could be signed on.
int LookAtDesk(const RunTimeError& error, const Ground& ground, bool asJson) {
    const Finding fault = SignOnFault(error, OfferedSources());
    Print(stderr, u"tarven-check: %1\n              -> %2\n"_s.arg(fault.seen, fault.toDo));
    LookAndTell(ground, asJson, {fault});
    return CouldNotLook;
}

int Look(const Arguments& arguments) {
    const Needs needs = NeedsOfProgram();
    const auto source = DataSourceNamed(DataFolder(), arguments.source);
    const auto groundOf = [&](CommandGateway& connection, const QString& user, const QString& department) {
        return Ground{.connection = connection,
                      .needs = needs,
                      .isTrial = source->IsTrial(),
                      .user = user,
                      .source = arguments.source,
                      .department = department,
                      .dataFolder = DataFolder()};
    };
    QString department = arguments.department;
    std::unique_ptr<SignedOnUser> user;
    try {
        department = Department(arguments);
        user = SignOnToLook(*source, arguments, department);
    } catch (const RunTimeError& error) {
        NoConnection none;
        return LookAtDesk(error, groundOf(none, arguments.user, department), arguments.asJson);
    }
    const Ground ground = groundOf(*user->connection, user->employeeCode, department);
    return HasFaults(LookAndTell(ground, arguments.asJson)) ? Faults : AllWell;
}

int BackUp(const Arguments& arguments) {
    TrialHospital(DataFolder()).BackUp(arguments.file);
    Print(stdout, u"The trial hospital is saved and was looked through: %1\n"_s.arg(arguments.file));
    return AllWell;
}

/// A hospital in which somebody has worked gives way to one of its users alone.
void SignOnToReplace(TrialHospital& hospital, const Arguments& arguments) {
    if (!hospital.HoldsWork())
        return;
    if (arguments.user.isEmpty())
        throw ArgumentError(u"Somebody has worked in the hospital that stands. Who signs on? --user names him."_s);
    const ConsolePassword password(arguments.passwordFile);
    try {
        SignOnAtConsole(hospital, arguments.user, password, Department(arguments), true);
    } catch (const RunTimeError& error) {
        // A hospital of which not even the users can be read is nobody's any more.
        if (error.Number() != static_cast<int>(Fault::Damaged))
            throw;
    }
}

int Restore(const Arguments& arguments) {
    TrialHospital hospital(DataFolder());
    SignOnToReplace(hospital, arguments);
    hospital.Restore(arguments.file);
    Print(stdout, u"The trial hospital is the one of %1.\n"_s.arg(arguments.file));
    return AllWell;
}

int Do(const Arguments& arguments) {
    switch (arguments.task) {
    case Arguments::Task::BackUp:
        return BackUp(arguments);
    case Arguments::Task::Restore:
        return Restore(arguments);
    case Arguments::Task::Help:
        Print(stdout, HelpText());
        return AllWell;
    case Arguments::Task::Version:
        Print(stdout,
              u"tarven-check %1.%2.%3\n"_s.arg(Version::kMajor).arg(Version::kMinor).arg(Version::kRevision));
        return AllWell;
    default:
        return Look(arguments);
    }
}

} // namespace

int main(int argc, char** argv) {
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words << QString::fromLocal8Bit(argv[i]);
    try {
        const Arguments arguments = ReadArguments(words);
        // Templates and printers belong to the toolkit; no display is needed for them.
        Application::WorkWithoutDisplay();
        int wordsOfTheToolkit = 1;
        const Application application(wordsOfTheToolkit, argv);
        RegisterSuite(DataFolder());
        CommandTrace::SetCurrent(CommandTrace::OfEnvironment().release());
        gIniPath = ProgramDirectory() + u'\\' + kConfigFileName.toString();
        return Do(arguments);
    } catch (const std::exception& error) {
        return Refuse(error);
    }
}
