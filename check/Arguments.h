#pragma once

#include <QString>
#include <QStringList>

#include <stdexcept>

/// What a command line asks for.
struct Arguments {
    enum class Task { Look, BackUp, Restore, Help, Version };

    Task task = Task::Look;
    QString source;
    QString user;
    QString passwordFile;
    /// The department for which the user signs on; empty for the one of the configuration file.
    QString department;
    /// The copy to be written or put back.
    QString file;
    bool asJson = false;
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
