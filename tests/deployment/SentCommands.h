#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// One command text that the program can send, with a "?" for each value.
struct SentCommand {
    /// What composes it: a function of a room's commands.cpp, a source file that composes its own, or a
    /// template.
    QString composer;
    /// The source files that send it.
    QStringList senders;
    QString text;
};

/// Every text of the sources that names an object of a database, every query of the templates, and what row
/// sets write. What cannot be made out fails the test.
std::vector<SentCommand> CollectSentCommands();

/// The source files in which a word stands, without comments and includes, once for each time.
QStringList FilesThatSay(const QString& word);
