#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A print server (cupsd) of a test's own: its configuration, spool and socket lie in a folder that goes with
/// it, and it runs as whoever runs the test. While it lives, it is the one that this process prints through.
/// Its queues put what a printer would get into a PDF file, through the same filters as for a printer.
class CupsServer {
  public:
    /// What of the print system is not installed here; empty where a server can run.
    static QString Missing();

    /// Starts it and waits until it answers; a test that finds it not running tells so by IsRunning.
    CupsServer();
    CupsServer(const CupsServer&) = delete;
    CupsServer& operator=(const CupsServer&) = delete;
    ~CupsServer();

    bool IsRunning();
    /// A printer with those papers, of the names that such printers have ("A4", "Statement"); the first one
    /// lies in it. No paper is printed nearer to its edges than kEdge points.
    void AddQueue(const QString& name, const QStringList& papers);
    void RemoveQueue(const QString& name);
    /// From now on the printer refuses what it is sent.
    void Reject(const QString& name);
    /// Waits until the queue is done with its jobs. Answers the file of its last page or pages, empty where
    /// nothing was printed.
    QString Printed(const QString& name);

    /// How another process is told of it, in the variable CUPS_SERVER.
    QString Address() const { return PathOf(QStringLiteral("socket")); }

    static constexpr int kEdge = 12;

  private:
    /// Runs a program of the print system on this server and answers what it says.
    QString Run(const QString& program, const QStringList& arguments) const;
    QString PathOf(const QString& name) const { return mFolder.filePath(name); }
    void WriteConfiguration() const;
    /// Has the print system's library in this process ask that server, the machine's own for an empty one.
    static void PrintThrough(const QString& server);

    QTemporaryDir mFolder;
    QProcess mServer;
};
