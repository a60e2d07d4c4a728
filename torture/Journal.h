#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

#include <mutex>
#include <vector>

/// What one desk has sent to the hospital and what was answered, in a file of its own. Each line is written
/// at once, so that the file of a desk that was killed tells how far it had come: a command without an answer
/// is the one that it was killed in.
class Journal {
  public:
    /// Begins a journal, or goes on with one. Raises std::runtime_error when it cannot be written.
    explicit Journal(const QString& path);
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    void Sent(const QString& command);
    /// How many rows the command has written.
    void Answered(qint64 rowsAffected);
    /// The command has raised an error.
    void Failed();
    /// Something else that is worth telling. May be called from any thread.
    void Mark(const QString& what);

  private:
    void Write(char kind, const QString& text);

    std::mutex mMutex;
    QFile mFile;
};

/// One command of a journal. Moments are microseconds of the machine's steady clock.
struct JournaledCommand {
    enum class Outcome { Open, Answered, Failed };

    QString text;
    Outcome outcome = Outcome::Open;
    qint64 rowsAffected = 0;
    qint64 sent = 0;
    qint64 ended = 0;
};

/// A journal as it was read. What a desk was killed in the middle of writing is left out.
struct ReadJournal {
    QString name;
    std::vector<JournaledCommand> commands;
    QStringList marks;

    /// The first mark that begins so, without that; empty where there is none.
    QString Mark(const QString& beginning) const;
    /// Whether the desk was still waiting for an answer.
    bool EndsInACommand() const;
};

/// The journal of a file; an empty one where a desk was killed before it began.
ReadJournal JournalIn(const QString& path);

/// The journals of a folder, in the order of their names.
std::vector<ReadJournal> JournalsIn(const QString& folder);
