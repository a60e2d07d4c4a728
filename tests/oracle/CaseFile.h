#pragma once

#include "gateway/CommandGateway.h"

#include <QString>
#include <QStringList>

#include <set>
#include <vector>

/// What a server answers: a column of typed values, nothing, or an error.
///
/// As a text: "type | value", where further rows' values follow behind " ; " and "no rows" stands for none;
/// "done" for what brings no rows; "error 8115" for a failure, with further numbers behind "/" where servers
/// of different age differ. The types are bit, int, bigint, money, decimal with its decimals ("decimal 6"),
/// float, date, datetime and text. An answer does not tell int from bigint, nor the three kinds of text from
/// each other; the tables do, for whoever reads them. A text is written in quotes; the other values are 1,
/// -7.50, 2026-11-21, 2026-11-21 14:02:03.457 and NULL.
struct Answer {
    std::set<int> errors;
    QString type;
    QStringList values;

    /// The answer as a text; throws std::invalid_argument for what cannot be read.
    static Answer Read(const QString& text);
    QString ToText() const;
    /// Whether an engine that gave `given` answered as this one says.
    bool Admits(const Answer& given) const;
};

/// One case: a text for the server, and its answer.
struct OracleCase {
    QString file;
    int line = 0;
    QString section;
    /// The line as it was written.
    QString written;
    /// Run first, one after another; a failure of one of them is the case's.
    QStringList before;
    QString command;
    Answer answer;
};

/// The cases of a file, in its order; throws std::runtime_error that names file and line where one cannot be
/// read.
///
/// A line is a case: its text, " | ", its answer. What the text is, the section tells that it stands in:
///
///     [value]         an expression, which is selected
///     [condition]     a condition; the answer is true, false (also for "unknown") or an error
///     [into cMoney]   an expression that is put into this column of oracle_columns; the answer is what the
///     column holds [statement]     a whole text; the cases of a file run in order, so a later one may look
///     at what an earlier one did
///
/// Empty lines and those that begin with # are for the reader. No line stands twice in a section.
std::vector<OracleCase> ReadCases(const QString& path);

/// What an engine answers to a case. Anything but a RunTimeError that leaves the gateway is error 0.
Answer Ask(CommandGateway& gateway, const OracleCase& asked);
/// The answer of one command for each of its columns; a single one for an error and for what brings no rows.
std::vector<Answer> AskColumns(CommandGateway& gateway, const QString& command);
