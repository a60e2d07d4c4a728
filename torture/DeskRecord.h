#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <map>
#include <vector>

/// What a desk does, as far as the server can tell.
enum class DeskWork { Asking, SignOn, Search, Keying, Save, List, Report };

/// What it is called in the table.
QString NameOf(DeskWork work);

/// Commands that follow each other on one connection.
struct Conversation {
    /// Whether it has a connection of its own, as a report does, which is closed behind it. The others are
    /// the desk's.
    bool isApart = false;
    QStringList commands;
};

/// One desk's shift as it went over the wire, work by work, with the server's answers.
struct DeskRecord {
    std::map<DeskWork, std::vector<Conversation>> works;
    /// The answer to each text; where it was asked for twice, the last one.
    QHash<QString, QByteArray> answers;
    /// In which work a text was sent first.
    QHash<QString, DeskWork> workOf;
};

/// Lets a clerk work through a short shift with the whole program, on a server behind which a fresh trial
/// hospital lies: sign-on, a patient looked for, a slip of ten lines keyed, saved and printed, the list of
/// charges, a report of a month, and a moment of doing nothing. Raises std::runtime_error when that does not
/// go through.
DeskRecord RecordDesk();
