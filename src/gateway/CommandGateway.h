#pragma once

#include "gateway/RowSet.h"

#include <QString>

#include <memory>

/// The run-time's cursor kinds, with their published numbers.
enum class CursorType { Unspecified = -1, ForwardOnly = 0, Dynamic = 2, Static = 3 };

/// The run-time's lock kinds, with their published numbers. Only Optimistic row sets can be updated.
enum class LockType { Unspecified = -1, ReadOnly = 1, Optimistic = 3 };

/// Where the cursor lives. A row set with its cursor at the client knows its RecordCount.
enum class CursorLocation { Server = 2, Client = 3 };

/// The one path to the database: complete command texts in, rows out.
///
/// A text reaches the database exactly as it was composed. Nothing is escaped, trimmed or retried, no answer
/// is kept, and a text stands for one round trip. A database may keep its own reading of a text for the next
/// time, as the embedded hospital does with the last of them. A failing command, a lost connection and a
/// timeout raise RunTimeError with the database's own number and text. A connection is used from one thread
/// only, which is the user interface's but for the connections of reports; Cancel alone may come from any.
class CommandGateway {
  public:
    CommandGateway() = default;
    CommandGateway(const CommandGateway&) = delete;
    CommandGateway& operator=(const CommandGateway&) = delete;
    virtual ~CommandGateway() = default;

    /// Runs the text and hands back its first result set, which is closed for a text without one.
    RowSet Execute(const QString& command);
    /// Runs the text and drops what comes back.
    void ExecuteNoResult(const QString& command);
    /// Runs the text with the given cursor settings. An optimistic row set over a single table can be
    /// updated. Virtual so that a stand-in can see the settings.
    virtual RowSet Open(const QString& command, CursorType cursor, LockType lock,
                        CursorLocation location = CursorLocation::Server);

    /// Gives up the command that is running, and with it every later one of this connection: each raises a
    /// failure as soon as the database lets go. For a connection that nobody needs any more; it can only be
    /// closed then. May be called from any thread, and when nothing is running. A gateway that cannot
    /// interrupt its database lets the command come to its end.
    virtual void Cancel() {}

    /// Tells in whose name commands work from now on, where the database does not know it by the logon.
    virtual void SetSessionUser(const QString&) {}

    virtual bool Connected() const = 0;
    /// As the session component opened the connection; never with the password in it.
    virtual QString ConnectionString() const = 0;

    /// The database's product and version, for support; empty where it does not tell them. Sends no command.
    virtual QString ServerVersion() const { return {}; }
    /// The same of the driver that leads to it; empty where none does.
    virtual QString DriverVersion() const { return {}; }

    const QString& DefaultDatabase() const { return mDefaultDatabase; }
    virtual void SetDefaultDatabase(const QString& name) { mDefaultDatabase = name; }
    /// Seconds after which a command is given up.
    int CommandTimeout() const { return mCommandTimeout; }
    virtual void SetCommandTimeout(int seconds) { mCommandTimeout = seconds; }

  protected:
    /// What one text brought: the first result set, null where there was none, and the number of rows that
    /// the text's last writing statement touched (0 for none).
    struct Outcome {
        std::shared_ptr<const RowData> rows;
        qint64 rowsAffected = 0;
    };

    /// Sends one text to the database and waits for the whole answer.
    virtual Outcome Run(const QString& command) = 0;

  private:
    friend class RowSet;

    /// Runs the text, and writes its line where there is a trace.
    Outcome Send(const QString& command);
    RowSet OpenRows(const QString& command, CursorType cursor, LockType lock, CursorLocation location);

    QString mDefaultDatabase;
    int mCommandTimeout = 30;
};
