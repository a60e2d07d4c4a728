#include "reporter/Arguments.h"

#include "suite/ConsoleOptions.h"

#include <QCommandLineParser>
#include <QFileInfo>

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
    Option{"template", "file", "the report's template, by its path or by its name in Reports"},
    Option{"param", "name=value", "a parameter's value; without a name, the next parameter's. Once for each"},
    Option{"database", "name", "points the report's tables at another database, as the census does"},
    Option{"output", "file", "the file to write: .pdf for the pages, .csv for the rows"},
    Option{"describe", nullptr, "lists the template's parameters and makes nothing"},
    Option{"watch", nullptr, "shows the pages in a window, anew each time that the template is saved"},
    Option{"help", nullptr, "shows this"},
    Option{"version", nullptr, "shows the version"}};

void AddOptions(QCommandLineParser& parser) {
    for (const Option& option : kOptions)
        parser.addOption(QCommandLineOption(QString::fromLatin1(option.name),
                                            QString::fromLatin1(option.meaning),
                                            QString::fromLatin1(option.value)));
}

GivenValue ReadValue(const QString& text) {
    const qsizetype at = text.indexOf(u'=');
    return at < 0 ? GivenValue{{}, text} : GivenValue{text.left(at), text.mid(at + 1)};
}

Arguments::Task TaskOf(const QCommandLineParser& parser) {
    constexpr std::pair<const char*, Arguments::Task> kTasks[] = {{"help", Arguments::Task::Help},
                                                                  {"version", Arguments::Task::Version},
                                                                  {"describe", Arguments::Task::Describe},
                                                                  {"watch", Arguments::Task::Watch}};
    for (const auto& [name, task] : kTasks) {
        if (parser.isSet(QString::fromLatin1(name)))
            return task;
    }
    return Arguments::Task::Make;
}

void RequireWhole(const Arguments& arguments) {
    if (arguments.task == Arguments::Task::Help || arguments.task == Arguments::Task::Version)
        return;
    if (arguments.templateFile.isEmpty())
        throw ArgumentError(u"Which report? --template names it."_s);
    if (arguments.task == Arguments::Task::Describe)
        return;
    if (arguments.user.isEmpty())
        throw ArgumentError(u"Who signs on? --user names him."_s);
    if (arguments.task == Arguments::Task::Watch)
        return;
    const QString ending = QFileInfo(arguments.output).suffix().toLower();
    if (ending != u"pdf"_s && ending != u"csv"_s)
        throw ArgumentError(u"Where to? --output names a file that ends with .pdf or .csv."_s);
}

} // namespace

Arguments ReadArguments(const QStringList& words) {
    QCommandLineParser parser;
    AddOptions(parser);
    const QString mistake = ReadConsoleOptions(parser, words, u"param"_s);
    if (!mistake.isEmpty())
        throw ArgumentError(mistake);
    const auto value = [&parser](const char* name) { return parser.value(QString::fromLatin1(name)); };
    Arguments arguments{.task = TaskOf(parser),
                        .source = parser.isSet(u"source"_s) ? value("source") : kTrialHospital,
                        .user = value("user"),
                        .passwordFile = value("password-file"),
                        .department = value("department"),
                        .database = value("database"),
                        .templateFile = value("template"),
                        .values = {},
                        .output = value("output")};
    for (const QString& given : parser.values(u"param"_s))
        arguments.values.push_back(ReadValue(given));
    RequireWhole(arguments);
    return arguments;
}

QString HelpText() {
    QString text = u"tarven-report: makes a report of a hospital as PDF or CSV.\n\n"
                   "    tarven-report --source \"San Roque\" --user AUDIT --password-file ~/audit \\\n"
                   "        --template IncomeReport.RPT --param PatientType=I --param Start=2026-11-01 \\\n"
                   "        --param End=2026-11-30 --param HospitalName= --param HospitalAddress= \\\n"
                   "        --output income.pdf\n\n"_s;
    for (const Option& option : kOptions) {
        QString written = u"--"_s + QString::fromLatin1(option.name);
        if (option.value)
            written += u" <%1>"_s.arg(QLatin1StringView(option.value));
        text += u"  %1 %2\n"_s.arg(written, -26).arg(QLatin1StringView(option.meaning));
    }
    return text +
           u"\nEnds with 0 when the file is written, 1 when the report failed, 2 when it was not begun:\n"
           "a wrong command line or a refused sign-on.\n"_s;
}
