#include "workstation/Workstation.h"

#include "hospital/HospitalScripts.h"
#include "trial/HospitalFile.h"
#include "trial/sqlite/SqlFunctions.h"
#include "trial/sqlite/SqliteDatabase.h"

#include <QCryptographicHash>
#include <QFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 100000;

QString BuiltProgram(const char* name) {
    return QString::fromLatin1(TARVEN_BUILD_DIR) + u'/' + QString::fromLatin1(name);
}

/// One pragma or query through SQLite itself.
QString AskSqlite(const QString& path, const char* sql) {
    sqlite3* database = nullptr;
    QString answer;
    if (sqlite3_open_v2(path.toUtf8().constData(), &database, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        // A process that has just ended may still be letting go of the file.
        sqlite3_busy_timeout(database, 10000);
        sqlite3_exec(
            database, sql,
            [](void* out, int columns, char** values, char**) {
                for (int i = 0; i < columns; ++i)
                    *static_cast<QString*>(out) += QString::fromUtf8(values[i] ? values[i] : "NULL") + u'|';
                return 0;
            },
            &answer, nullptr);
    }
    sqlite3_close(database);
    return answer;
}

} // namespace

std::unique_ptr<QProcess> Workstation::Start(const QString& program, const QStringList& arguments,
                                             const std::map<QString, QString>& settings) {
    auto child = std::make_unique<QProcess>();
    QProcessEnvironment environment = mFolder.Environment();
    for (const auto& [name, value] : settings)
        environment.insert(name, value);
    child->setProcessEnvironment(environment);
    child->start(program, arguments);
    EXPECT_TRUE(child->waitForStarted());
    return child;
}

std::unique_ptr<QProcess> Workstation::StartScript(const QString& script) {
    return Start(BuiltProgram("workstation-child"), {script, mFolder.Path()});
}

std::unique_ptr<QProcess> Workstation::StartProgram(const QStringList& arguments,
                                                    std::map<QString, QString> settings) {
    // The program takes the folder that it lies in for its own.
    const QString program = ProgramFile(u"tarven-hemodialysis"_s);
    EXPECT_TRUE(QFile::exists(program) || QFile::copy(BuiltProgram("tarven-hemodialysis"), program));
    // Nobody sees the windows of this platform; what a reader of the screen is told can be read by the test.
    settings.insert({{u"QT_LOGGING_RULES"_s, u"qt.accessibility.cache.debug=true"_s},
                     {u"QT_LOGGING_TO_CONSOLE"_s, u"1"_s}});
    return Start(program, arguments, settings);
}

bool Workstation::ReachesTheSignOn(QProcess& program) {
    QByteArray told;
    program.setReadChannel(QProcess::StandardError);
    while (program.waitForReadyRead(kPatience)) {
        told += program.readAllStandardError();
        if (told.contains("role=Dialog") && told.contains("SignOnDialog"))
            return true;
    }
    return false;
}

Workstation::Run Workstation::WaitForEnd(QProcess& child) {
    Run run;
    if (!child.waitForFinished(kPatience)) {
        ADD_FAILURE() << "the program did not end";
        child.kill();
        child.waitForFinished();
    }
    run.exitCode = child.exitCode();
    run.crashed = child.exitStatus() == QProcess::CrashExit;
    run.errors = QString::fromUtf8(child.readAllStandardError());
    EXPECT_FALSE(run.errors.contains(u"Run-time error"_s))
        << "a failure's text goes to its box alone: " << run.errors.toStdString();
    for (const QByteArray& line : child.readAllStandardOutput().split('\n')) {
        if (!line.isEmpty())
            run.told.push_back(QString::fromUtf8(line));
    }
    return run;
}

Workstation::Run Workstation::RunScript(const QString& script) {
    return WaitForEnd(*StartScript(script));
}

std::unique_ptr<EmbeddedGateway> Workstation::OpenHospital() const {
    return HospitalFile::Open(HospitalPath(), HospitalScripts());
}

std::vector<QString> Workstation::Query(const QString& command) const {
    return mFolder.Query(command);
}

QString Workstation::QueryOne(const QString& command) const {
    const std::vector<QString> rows = Query(command);
    EXPECT_EQ(rows.size(), 1U) << command.toStdString();
    return rows.empty() ? QString() : rows.front();
}

QString Workstation::HospitalContent(const QStringList& leftOut) const {
    QString content;
    const QString tables =
        AskSqlite(HospitalPath(),
                  "SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE '%..%' ORDER BY name");
    for (const QString& table : tables.split(u'|', Qt::SkipEmptyParts)) {
        if (leftOut.contains(table))
            continue;
        content += table + u'\n' +
                   AskSqlite(HospitalPath(), ("SELECT * FROM \"" + table.toUtf8() + "\"").constData());
    }
    EXPECT_FALSE(content.isEmpty());
    return QString::fromLatin1(
        QCryptographicHash::hash(content.toUtf8(), QCryptographicHash::Sha256).toHex());
}

bool Workstation::HospitalIsWhole() const {
    SqliteDatabase database(HospitalPath(), SqliteDatabase::Mode::Existing);
    AddSqlFunctions(database);
    const auto answer = database.RunForValue(u"PRAGMA integrity_check"_s);
    return answer == Cell(QByteArray("ok"));
}
