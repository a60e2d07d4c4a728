#include "support/golden/GoldenCommands.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

std::map<std::string, QString> ReadGolden() {
    static const QRegularExpression row(u"^(\\w+) \\|(.*)\\|$"_s, QRegularExpression::MultilineOption);
    QFile file(u"" TARVEN_SOURCE_DIR "/tests/golden/commands.txt"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the golden commands cannot be read");
    std::map<std::string, QString> commands;
    auto rows = row.globalMatch(QString::fromUtf8(file.readAll()));
    while (rows.hasNext()) {
        const QRegularExpressionMatch found = rows.next();
        commands[found.captured(1).toStdString()] = found.captured(2);
    }
    return commands;
}

} // namespace

const std::vector<ArgumentOf>& GoldenArguments() {
    static const std::vector<ArgumentOf> arguments = {
        [](const char* name) { return QString::fromLatin1(name); },
        [](const char*) { return QString(); },
        [](const char* name) { return u"  O'B, Ñ % "_s + QLatin1StringView(name) + u' '; },
    };
    return arguments;
}

const std::map<std::string, QString>& GoldenCommands() {
    static const auto commands = ReadGolden();
    return commands;
}

QString WithArguments(const QString& golden, const ArgumentOf& argument) {
    static const QRegularExpression place(u"\\{(\\w+)\\}"_s);
    QString text;
    qsizetype behind = 0;
    auto places = place.globalMatch(golden);
    while (places.hasNext()) {
        const QRegularExpressionMatch found = places.next();
        text += golden.mid(behind, found.capturedStart() - behind);
        text += argument(found.captured(1).toLatin1());
        behind = found.capturedEnd();
    }
    return text + golden.mid(behind);
}
