#pragma once

#include <QString>
#include <QStringList>

class QCommandLineParser;

/// Reads the words of a command line, the program's own first, by the parser's options. Returns what is wrong
/// with them, empty for nothing. An option may be given once, but for `repeated`, and with something behind
/// it: what a script leaves out by mistake must not pass for a choice. A word that may be a password, keyed
/// where none belongs, is not repeated.
QString ReadConsoleOptions(QCommandLineParser& parser, const QStringList& words,
                           const QString& repeated = {});
