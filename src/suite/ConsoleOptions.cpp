#include "suite/ConsoleOptions.h"

#include <QCommandLineParser>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What the parser says of options that it does not know; it takes "-psecret" apart, letter by letter.
QString MistakeOf(const QCommandLineParser& parser, const QStringList& words) {
    const bool isOneDash = std::ranges::any_of(words, [](const QString& word) {
        return word.size() > 1 && word.startsWith(u'-') && !word.startsWith("--"_L1);
    });
    return isOneDash ? u"Options begin with two dashes; --help lists them."_s : parser.errorText();
}

} // namespace

QString ReadConsoleOptions(QCommandLineParser& parser, const QStringList& words, const QString& repeated) {
    if (!parser.parse(words))
        return MistakeOf(parser, words);
    if (!parser.positionalArguments().isEmpty())
        return u"A word belongs to no option."_s;
    for (const QString& name : parser.optionNames()) {
        const QStringList values = parser.values(name);
        if (name == repeated || values.isEmpty())
            continue;
        if (values.size() > 1)
            return u"--%1 is given twice."_s.arg(name);
        if (values.front().isEmpty())
            return u"Nothing stands behind --%1."_s.arg(name);
    }
    return {};
}
