#pragma once

#include <QString>
#include <QStringList>

#include <stdexcept>
#include <vector>

/// A parameter of a report as it was given.
struct GivenValue {
    /// Empty for the next one in the template's order.
    QString name;
    QString text;
};

/// What a command line asks for.
struct Arguments {
    enum class Task { Make, Describe, Watch, Help, Version };

    Task task = Task::Make;
    QString source;
    QString user;
    QString passwordFile;
    /// The department for which the user signs on; empty for the one of the configuration file.
    QString department;
    /// The database to which the report's tables are pointed; empty for the template's own.
    QString database;
    QString templateFile;
    std::vector<GivenValue> values;
    QString output;
};

/// A command line that asks for nothing that can be done; the text says why.
class ArgumentError : public std::runtime_error {
  public:
    explicit ArgumentError(const QString& text)
        : std::runtime_error(text.toStdString()) {}
};

/// Reads the words of a command line, the program's own first. Raises ArgumentError.
Arguments ReadArguments(const QStringList& words);

/// What --help shows.
QString HelpText();
