#include "torture/Journal.h"

#include <QDir>

#include <chrono>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr char kSent = '>';
constexpr char kAnswered = '<';
constexpr char kFailed = '!';
constexpr char kMark = '#';

qint64 Microseconds() {
    return std::chrono::duration_cast<std::chrono::microseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

void Take(ReadJournal& journal, char kind, qint64 moment, const QString& text) {
    if (kind == kSent)
        journal.commands.push_back({.text = text, .sent = moment});
    else if (kind == kMark)
        journal.marks << text;
    else if (!journal.commands.empty()) {
        JournaledCommand& command = journal.commands.back();
        command.outcome =
            kind == kAnswered ? JournaledCommand::Outcome::Answered : JournaledCommand::Outcome::Failed;
        command.rowsAffected = text.toLongLong();
        command.ended = moment;
    }
}

} // namespace

Journal::Journal(const QString& path)
    : mFile(path) {
    if (!mFile.open(QIODevice::Append | QIODevice::Unbuffered))
        throw std::runtime_error("cannot write " + path.toStdString());
}

void Journal::Write(char kind, const QString& text) {
    QString line = u"%1 %2 %3"_s.arg(QChar::fromLatin1(kind)).arg(Microseconds()).arg(text);
    line.replace(u'\n', u' ');
    const QByteArray bytes = line.toUtf8() + '\n';
    const std::lock_guard lock(mMutex);
    if (mFile.write(bytes) != bytes.size())
        throw std::runtime_error("the journal cannot be written");
}

void Journal::Sent(const QString& command) {
    Write(kSent, command);
}

void Journal::Answered(qint64 rowsAffected) {
    Write(kAnswered, QString::number(rowsAffected));
}

void Journal::Failed() {
    Write(kFailed, {});
}

void Journal::Mark(const QString& what) {
    Write(kMark, what);
}

QString ReadJournal::Mark(const QString& beginning) const {
    for (const QString& mark : marks) {
        if (mark.startsWith(beginning))
            return mark.mid(beginning.size());
    }
    return {};
}

bool ReadJournal::EndsInACommand() const {
    return !commands.empty() && commands.back().outcome == JournaledCommand::Outcome::Open;
}

ReadJournal JournalIn(const QString& path) {
    ReadJournal journal;
    journal.name = path.section(u'/', -1);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return journal;
    for (QByteArray line = file.readLine(); line.endsWith('\n'); line = file.readLine()) {
        const QString text = QString::fromUtf8(line.chopped(1));
        Take(journal, line[0], text.section(u' ', 1, 1).toLongLong(), text.section(u' ', 2));
    }
    return journal;
}

std::vector<ReadJournal> JournalsIn(const QString& folder) {
    std::vector<ReadJournal> journals;
    for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name))
        journals.push_back(JournalIn(folder + u'/' + name));
    return journals;
}
