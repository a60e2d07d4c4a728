#pragma once

#include "gateway/OwnersLog.h"

#include <QString>

#include <chrono>
#include <exception>
#include <memory>

/// A file with a line for each command that goes to the database, for those who look for what is slow or
/// fails: when it was sent, how long the answer took, how many rows came or were written, or the number of
/// the error, and the text. It holds nothing else.
///
/// What the texts say of patients stays out: literals are question marks, and comments are left out. So is
/// all that stands behind a text whose quotes do not close where they should, since nobody can tell any more
/// what is a literal there. An error is told by its number alone. The file is its owner's alone.
class CommandTrace {
  public:
    /// Whether a trace holds the texts of commands and errors as they are.
    enum class Texts { Masked, Whole };

    /// Goes on with the file, or begins it. Raises 75 with its path where it cannot be written, is no plain
    /// file or is another user's.
    CommandTrace(const QString& path, Texts texts);

    /// The trace of TARVEN_TRACE, the path of its file, and TARVEN_TRACE_TEXTS, 1 for whole texts; null
    /// without the first. Raises what the constructor raises.
    static std::unique_ptr<CommandTrace> OfEnvironment();

    /// The trace that gateways write, null for none. It is set before the first command and stays.
    static CommandTrace* Current() { return current; }
    static void SetCurrent(CommandTrace* trace) { current = trace; }

    /// Runs one command and writes its line. The answer has `rows`, null where none came, and
    /// `rowsAffected`. What the command raises goes on to the caller. May be called from any thread.
    template <class Command> auto Follow(const QString& text, Command command) {
        const auto begin = std::chrono::steady_clock::now();
        const QString sent = Moment();
        try {
            auto outcome = command();
            Write(sent, begin, outcome.rows ? qint64(outcome.rows->RowCount()) : outcome.rowsAffected, text);
            return outcome;
        } catch (...) {
            WriteFailure(sent, begin, std::current_exception(), text);
            throw;
        }
    }

  private:
    using Begin = std::chrono::steady_clock::time_point;

    static QString Moment();
    void Write(const QString& sent, Begin begin, qint64 rows, const QString& text);
    void WriteFailure(const QString& sent, Begin begin, const std::exception_ptr& thrown,
                      const QString& text);
    void WriteLine(const QString& sent, Begin begin, const QString& outcome, const QString& text);

    static CommandTrace* current;

    const Texts mTexts;
    OwnersLog mFile;
};

/// The text of a command without what stands in its literals and comments.
QString MaskedCommand(const QString& command);
