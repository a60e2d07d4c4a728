#pragma once

#include <QMap>
#include <QString>
#include <QTemporaryDir>

/// The ODBC data sources of a test program: none of the machine's, and those that its tests add. They stand
/// in a folder of the program's own, which must be named in the environment before the first use of ODBC.
class TestDataSources {
  public:
    static TestDataSources& Instance();

    /// Adds a data source for a responder on that loopback port, by default under a name of its own. Hands
    /// back its name.
    QString Add(int port, QString name = {});
    /// Adds a data source with the given lines, or replaces the one of that name.
    void Add(const QString& name, const QString& lines);
    void Remove(const QString& name);

    /// Where the driver for the server's protocol lies; empty when it is not installed.
    static QString DriverPath();

  private:
    TestDataSources();

    void Write() const;

    QTemporaryDir mFolder;
    QMap<QString, QString> mSources;
    int mCount = 0;
};
