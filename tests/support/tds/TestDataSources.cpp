#include "support/tds/TestDataSources.h"

#include <QDirIterator>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

TestDataSources& TestDataSources::Instance() {
    static TestDataSources instance;
    return instance;
}

TestDataSources::TestDataSources() {
    qputenv("ODBCSYSINI", mFolder.path().toUtf8());
    qputenv("ODBCINI", mFolder.filePath(u"odbc.ini"_s).toUtf8());
    // The driver has settings of its own, which may change what it sends.
    qputenv("FREETDSCONF", mFolder.filePath(u"freetds.conf"_s).toUtf8());
    for (const QString& name : {u"odbcinst.ini"_s, u"freetds.conf"_s})
        QFile(mFolder.filePath(name)).open(QIODevice::WriteOnly);
    Write();
}

QString TestDataSources::DriverPath() {
    for (const QString& folder : {u"/usr/lib"_s, u"/usr/lib64"_s, u"/usr/local/lib"_s}) {
        QDirIterator files(folder, {u"libtdsodbc.so"_s}, QDir::Files, QDirIterator::Subdirectories);
        if (files.hasNext())
            return files.next();
    }
    return {};
}

QString TestDataSources::Add(int port, QString name) {
    static const QString driver = DriverPath();
    if (driver.isEmpty())
        throw std::runtime_error("libtdsodbc.so is not installed");
    if (name.isEmpty())
        name = u"Responder %1"_s.arg(++mCount);
    Add(name, u"Driver=%1\nServer=127.0.0.1\nPort=%2\nTDS_Version=7.4\n"_s.arg(driver).arg(port));
    return name;
}

void TestDataSources::Add(const QString& name, const QString& lines) {
    mSources[name] = lines;
    Write();
}

void TestDataSources::Remove(const QString& name) {
    mSources.remove(name);
    Write();
}

void TestDataSources::Write() const {
    QFile file(mFolder.filePath(u"odbc.ini"_s));
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("no folder for data sources");
    for (auto source = mSources.begin(); source != mSources.end(); ++source)
        file.write((u'[' + source.key() + u"]\n"_s + source.value() + u'\n').toUtf8());
}
