#include "deployment/SentCommands.h"

#include "deployment/HospitalObjects.h"
#include "deployment/SourceText.h"
#include "gateway/SqlText.h"

#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The source files by their names, without comments and includes.
QMap<QString, QString> ReadSources() {
    static const QRegularExpression include(u"^#include.*$"_s, QRegularExpression::MultilineOption);
    QMap<QString, QString> sources;
    for (const QString& path : FilesBelow(u"src"_s, {u"*.cpp"_s, u"*.h"_s}))
        sources.insert(path, WithoutComments(ReadFile(path)).remove(include));
    return sources;
}

const QMap<QString, QString>& Sources() {
    static const QMap<QString, QString> sources = ReadSources();
    return sources;
}

bool IsCommandsFile(const QString& path) {
    return QFileInfo(path).completeBaseName() == u"commands"_s;
}

/// The files that say the word, but for those that compose the commands.
QStringList SendersOf(const QString& word) {
    QStringList senders = FilesThatSay(word);
    senders.removeIf([](const QString& file) { return IsCommandsFile(file); });
    senders.removeDuplicates();
    return senders;
}

/// The function that an expression of a commands.cpp belongs to.
QString FunctionAt(const QString& source, qsizetype position) {
    static const QRegularExpression head(u"^QString (\\w+)\\("_s, QRegularExpression::MultilineOption);
    QString function;
    for (auto heads = head.globalMatch(source.first(position)); heads.hasNext();)
        function = heads.next().captured(1);
    return function;
}

/// Messages name places of the same form; the hospital's names begin in one of two ways.
bool NamesTableOrProcedure(const QString& text) {
    const std::vector<NamedObject> objects = ObjectsNamedIn(LexSql(text));
    return std::any_of(objects.begin(), objects.end(), [](const NamedObject& object) {
        return object.name.contains(u".tb"_s) || object.name.contains(u".sp"_s);
    });
}

std::vector<SentCommand> CollectFromSources() {
    std::vector<SentCommand> commands;
    for (const auto& [path, source] : Sources().asKeyValueRange()) {
        for (const QuotedText& quoted : QuotedTexts(source)) {
            if (!NamesTableOrProcedure(quoted.text))
                continue;
            const QString file = QFileInfo(path).fileName();
            if (!IsCommandsFile(path)) {
                commands.push_back({file, {file}, quoted.text});
                continue;
            }
            const QString function = FunctionAt(source, quoted.position);
            commands.push_back({function, SendersOf(function), quoted.text});
        }
    }
    return commands;
}

/// Reads one template: its tables, then its queries with the locations in the tables' places.
std::vector<SentCommand> ReadQueries(const QString& path) {
    static const QRegularExpression value(u"\\{\\?[^}]*\\}"_s);
    const QString name = QFileInfo(path).fileName();
    std::vector<SentCommand> commands;
    QMap<QString, QString> locations;
    QXmlStreamReader xml(ReadFile(path));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"table"_s) {
            locations.insert(u"{%1}"_s.arg(xml.attributes().value(u"name"_s)),
                             xml.attributes().value(u"location"_s).toString());
        } else if (xml.name() == u"query"_s) {
            QString query = xml.readElementText().replace(value, u"?"_s).trimmed();
            for (const auto& [table, location] : locations.asKeyValueRange())
                query.replace(table, location);
            commands.push_back({name, SendersOf(name), query});
        }
    }
    EXPECT_FALSE(xml.hasError()) << path.toStdString() << ": " << xml.errorString().toStdString();
    EXPECT_FALSE(commands.empty()) << path.toStdString() << " asks for nothing";
    return commands;
}

/// What a screen writes through the rows of a command: the statement that the row set composes.
SentCommand WriteThrough(const std::vector<SentCommand>& commands, const QString& command,
                         const QString& column, const QString& file) {
    const auto read = std::find_if(commands.begin(), commands.end(),
                                   [&](const SentCommand& sent) { return sent.composer == command; });
    const auto table = read == commands.end() ? std::nullopt : BaseTableOf(read->text);
    EXPECT_TRUE(table) << file.toStdString()
                       << " writes through the rows of no table: " << command.toStdString();
    return {command, {file}, u"UPDATE %1 SET [%2]=? WHERE ?"_s.arg(table.value_or(QString()), column)};
}

std::vector<SentCommand> CollectWritesThroughRows(const std::vector<SentCommand>& commands) {
    // RowSet rows = …(SomeCommand(…)…); … rows.SetField(u"Column"
    static const QRegularExpression write(
        u"RowSet (\\w+) =[^;]*\\b(\\w+Command)\\((?:(?!RowSet \\w+ =).)*?\\1\\.SetField\\(u\"(\\w+)\""_s,
        QRegularExpression::DotMatchesEverythingOption);
    std::vector<SentCommand> writes;
    for (const auto& [path, source] : Sources().asKeyValueRange()) {
        // A row set's own files define the call.
        if (path.startsWith(u"src/gateway/"_s))
            continue;
        qsizetype seen = 0;
        for (auto found = write.globalMatch(source); found.hasNext(); ++seen) {
            const auto match = found.next();
            writes.push_back(
                WriteThrough(commands, match.captured(2), match.captured(3), QFileInfo(path).fileName()));
        }
        EXPECT_EQ(seen, source.count(u"SetField("_s)) << path.toStdString() << " writes through other rows";
    }
    return writes;
}

} // namespace

std::vector<SentCommand> CollectSentCommands() {
    std::vector<SentCommand> commands = CollectFromSources();
    for (const SentCommand& write : CollectWritesThroughRows(commands))
        commands.push_back(write);
    for (const QString& path : FilesBelow(u"Reports"_s, {u"*.rpt"_s, u"*.RPT"_s})) {
        for (const SentCommand& query : ReadQueries(path))
            commands.push_back(query);
    }
    return commands;
}

QStringList FilesThatSay(const QString& word) {
    const QRegularExpression whole(u"\\b%1\\b"_s.arg(QRegularExpression::escape(word)));
    QStringList files;
    for (const auto& [path, source] : Sources().asKeyValueRange()) {
        // A template is named there once, and said by its constant from then on.
        if (path.endsWith(u"/ReportFiles.h"_s)) {
            const QRegularExpression constant(
                u"(k\\w+) = u\".*\\b%1\\b"_s.arg(QRegularExpression::escape(word)));
            for (auto named = constant.globalMatch(source); named.hasNext();)
                files << FilesThatSay(named.next().captured(1));
            continue;
        }
        for (qsizetype i = source.count(whole); i > 0; --i)
            files << QFileInfo(path).fileName();
    }
    return files;
}
