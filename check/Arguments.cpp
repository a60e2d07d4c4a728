#include "check/Arguments.h"

#include "suite/ConsoleOptions.h"

#include <QCommandLineParser>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString kTrialHospital = u"Trial hospital"_s;

struct Option {
    const char* name;
    const char* value;
    const char* meaning;
};

constexpr std::array kOptions = {
    Option{"source", "name",
           "the data source, as the sign-on window lists it; without it the trial hospital"},
    Option{"user", "id", "who signs on"},
    Option{"password-file", "file",
           "a file of the owner's alone with the password; without it the password is read from the input"},
    Option{"department", "code", "the department to sign on for; without it the one of tarvenaux.ini"},
    Option{"backup", "file", "writes a copy of the trial hospital, which may be in use, and looks at nothing else"},
    Option{"restore", "file", "puts such a copy in the trial hospital's place, which nobody may have open"},
    Option{"json", nullptr, "tells everything as one JSON object at the end"},
    Option{"help", nullptr, "shows this"},
    Option{"version", nullptr, "shows the version"}};

Arguments::Task TaskOf(const QCommandLineParser& parser) {
    constexpr std::pair<const char*, Arguments::Task> kTasks[] = {{"help", Arguments::Task::Help},
                                                                  {"version", Arguments::Task::Version},
                                                                  {"backup", Arguments::Task::BackUp},
                                                                  {"restore", Arguments::Task::Restore}};
    for (const auto& [name, task] : kTasks) {
        if (parser.isSet(QString::fromLatin1(name)))
            return task;
    }
    return Arguments::Task::Look;
}

void RequireWhole(const Arguments& arguments, const QCommandLineParser& parser) {
    const bool copies =
        arguments.task == Arguments::Task::BackUp || arguments.task == Arguments::Task::Restore;
    if (arguments.task == Arguments::Task::Look && arguments.user.isEmpty())
        throw ArgumentError(u"Who signs on? --user names him."_s);
    if (copies && arguments.source != kTrialHospital)
        throw ArgumentError(u"A server's databases are backed up by the server."_s);
    if (parser.isSet(u"backup"_s) && parser.isSet(u"restore"_s))
        throw ArgumentError(u"--backup and --restore are asked for one at a time."_s);
}

} // namespace

Arguments ReadArguments(const QStringList& words) {
    QCommandLineParser parser;
    for (const Option& option : kOptions)
        parser.addOption(QCommandLineOption(QString::fromLatin1(option.name),
                                            QString::fromLatin1(option.meaning),
                                            QString::fromLatin1(option.value)));
    const QString mistake = ReadConsoleOptions(parser, words);
    if (!mistake.isEmpty())
        throw ArgumentError(mistake);
    Arguments arguments{.task = TaskOf(parser),
                        .source = parser.isSet(u"source"_s) ? parser.value(u"source"_s) : kTrialHospital,
                        .user = parser.value(u"user"_s),
                        .passwordFile = parser.value(u"password-file"_s),
                        .department = parser.value(u"department"_s),
                        .file = parser.value(u"restore"_s) + parser.value(u"backup"_s),
                        .asJson = parser.isSet(u"json"_s)};
    RequireWhole(arguments, parser);
    return arguments;
}

QString HelpText() {
    QString text =
        u"tarven-check: tells whether the program can work here, line by line, and what to do.\n\n"
        "    tarven-check --source \"San Roque\" --user NURSE --password-file ~/nurse\n\n"_s;
    for (const Option& option : kOptions) {
        QString written = u"--"_s + QString::fromLatin1(option.name);
        if (option.value)
            written += u" <%1>"_s.arg(QLatin1StringView(option.value));
        text += u"  %1 %2\n"_s.arg(written, -24).arg(QLatin1StringView(option.meaning));
    }
    return text + u"\nA look only reads; the sign-on alone is kept in the trail of sign-ons. Ends with 0 when all is "
                  "well,\n1 with faults, 2 when it could not look: a wrong command line, a refused sign-on, no "
                  "hospital.\n"_s;
}
