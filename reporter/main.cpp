#include "components/shared.h"
#include "gateway/CommandTrace.h"
#include "report/Report.h"
#include "reporter/Arguments.h"
#include "reporter/Describe.h"
#include "reporter/MakeReport.h"
#include "reporter/Outcome.h"
#include "reporter/TemplateWatch.h"
#include "shell/ConfigFile.h"
#include "shell/version.h"
#include "suite/ConsoleSignOn.h"
#include "suite/Passwords.h"
#include "suite/RegisterSuite.h"
#include "text/RunTimeError.h"
#include "toolkit/Application.h"
#include "toolkit/NoDisplay.h"
#include "toolkit/ProgramFiles.h"

#include <QStandardPaths>

#include <cstdio>

using namespace Qt::StringLiterals;

// Makes a report from a command line; --help tells how.

namespace {

void Tell(std::FILE* where, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), where);
}

int Refuse(const std::exception& error, int outcome) {
    Tell(stderr, u"tarven-report: %1\n"_s.arg(QString::fromUtf8(error.what())));
    return outcome;
}

QString DataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString Department(const Arguments& arguments) {
    if (!arguments.department.isEmpty())
        return arguments.department;
    gIniPath = ProgramDirectory() + u'\\' + kConfigFileName.toString();
    QString code;
    ReadConfigValue(u"DeptCode"_s, code);
    return code;
}

/// Why nobody was signed on.
class SignOnError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// With what the tables are logged on, once the user has signed on. Raises SignOnError.
ReportLogOn LogOn(const Arguments& arguments) {
    // Unless it is told otherwise, a report stands where the main window has its connection.
    const bool isElsewhere = !arguments.database.isEmpty();
    try {
        const auto source = DataSourceNamed(DataFolder(), arguments.source);
        RequireMade(*source);
        const ConsolePassword password(arguments.passwordFile);
        const auto user = SignOnAtConsole(*source, arguments.user, password, Department(arguments));
        if (isElsewhere)
            user->connection->SetDefaultDatabase(arguments.database);
        return {.server = arguments.source,
                .database = isElsewhere ? arguments.database : u"PASSWORD"_s,
                .user = arguments.user,
                .password = password.Text()};
    } catch (const std::exception& error) {
        throw SignOnError(error.what());
    }
}

std::shared_ptr<Report> FilledReport(const Arguments& arguments) {
    auto report = OpenTemplate(arguments.templateFile);
    Fill(*report, arguments.values);
    if (!arguments.database.isEmpty())
        PointAt(*report, arguments.database);
    return report;
}

int Watch(const Arguments& arguments) {
    const ReportLogOn logOn = LogOn(arguments);
    // Whoever begins a template begins with a file that is none yet: the window tells what it lacks.
    TemplateWatch window(TemplateFile(arguments.templateFile), [&arguments, &logOn] {
        const auto report = FilledReport(arguments);
        LogTablesOn(*report, logOn);
        return report->Document();
    });
    window.show();
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}

int Make(const Arguments& arguments) {
    // What is wrong with it is told before anybody is asked for a password, or has waited for the rows.
    const auto report = FilledReport(arguments);
    RequirePlaceFor(arguments.output);
    ReportLogOn logOn = LogOn(arguments);
    LogTablesOn(*report, logOn);
    WipePassword(logOn.password);
    WriteReport(*report, arguments.output);
    return Outcome::kMade;
}

int Do(const Arguments& arguments) {
    switch (arguments.task) {
    case Arguments::Task::Help:
        Tell(stdout, HelpText());
        return Outcome::kMade;
    case Arguments::Task::Version:
        Tell(stdout,
             u"tarven-report %1.%2.%3\n"_s.arg(Version::kMajor).arg(Version::kMinor).arg(Version::kRevision));
        return Outcome::kMade;
    case Arguments::Task::Describe:
        Tell(stdout, DescribeParameters(*OpenTemplate(arguments.templateFile)));
        return Outcome::kMade;
    case Arguments::Task::Watch:
        return Watch(arguments);
    default:
        return Make(arguments);
    }
}

int DoAndTell(const Arguments& arguments) {
    try {
        CommandTrace::SetCurrent(CommandTrace::OfEnvironment().release());
    } catch (const std::exception& error) {
        return Refuse(error, Outcome::kNotBegun);
    }
    try {
        return Do(arguments);
    } catch (const ArgumentError& error) {
        return Refuse(error, Outcome::kNotBegun);
    } catch (const SignOnError& error) {
        return Refuse(error, Outcome::kNotBegun);
    } catch (const std::exception& error) {
        return Refuse(error, Outcome::kFailed);
    }
}

} // namespace

int main(int argc, char** argv) {
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words << QString::fromLocal8Bit(argv[i]);
    Arguments arguments;
    try {
        arguments = ReadArguments(words);
    } catch (const ArgumentError& error) {
        return Refuse(error, Outcome::kNotBegun);
    }
    // The nightly run has no display, and pages need none.
    if (arguments.task == Arguments::Task::Watch)
        EndInWordsWithoutDisplay();
    else
        Application::WorkWithoutDisplay();
    int wordsOfTheToolkit = 1;
    const Application application(wordsOfTheToolkit, argv);
    RegisterSuite(DataFolder());
    return DoAndTell(arguments);
}
