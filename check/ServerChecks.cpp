#include "check/ServerChecks.h"

#include "check/questions.h"
#include "check/SourceLines.h"
#include "text/Clock.h"
#include "text/RunTimeError.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalFile.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSet>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int kOldestServer = 11;
constexpr qint64 kMostClockError = 60;
constexpr int kReadCommitted = 2;
const QString kTrialNeedsNone = u"the trial hospital is a file on this machine"_s;

/// What the server tells of a database that the program needs.
struct ServerDatabase {
    QString name;
    QString collation;
    bool chains = false;
    bool readOnly = false;
    QString owner;
};

/// Asks each database in turn. One that cannot be entered is told in `refused`.
std::vector<ServerDatabase> DatabasesOf(const Ground& ground, Findings& refused) {
    std::vector<ServerDatabase> databases;
    for (const QString& name : ground.needs.databases) {
        try {
            ground.connection.SetDefaultDatabase(name);
        } catch (const RunTimeError& error) {
            refused.push_back(
                Fails(u"databases"_s, u"%1: %2"_s.arg(name, error.Description()),
                      u"let the login in to it (CREATE USER ... FOR LOGIN ...), or bring it online"_s));
            continue;
        }
        const RowSet rows = ground.connection.Execute(DatabaseQuestion());
        databases.push_back({name, rows.Fields(u"CollationName").TextOrEmpty(),
                             rows.Fields(u"Chaining").ToBoolean(), rows.Fields(u"ReadOnly").ToBoolean(),
                             rows.Fields(u"Owner").TextOrEmpty()});
    }
    return databases;
}

/// Those that can be entered; the others have their lines among the databases.
std::vector<ServerDatabase> DatabasesOf(const Ground& ground) {
    Findings refused;
    return DatabasesOf(ground, refused);
}

QString NumberOf(const std::vector<ServerDatabase>& databases) {
    return u"%1 databases"_s.arg(databases.size());
}

/// The lines of a check that judges one database after the other, in turn.
template <class Judge> Findings Judged(const Ground& ground, const Finding& whole, Judge judge) {
    Findings faults;
    for (const ServerDatabase& database : DatabasesOf(ground))
        judge(database, faults);
    return FaultsOr(std::move(faults), whole);
}

/// The trial hospital's connection is its engine's.
Findings LookThroughFile(const Ground& ground, const QString& name) {
    try {
        HospitalFile::LookThrough(static_cast<EmbeddedGateway&>(ground.connection));
    } catch (const RunTimeError& error) {
        return {Fails(name, error.Description(),
                      u"put a copy back (--restore), or make the trial hospital anew; docs/deployment.md"_s)};
    }
    return {Ok(name, u"%1 in the file, which is whole"_s.arg(ground.needs.databases.size()))};
}

QString Sentence(qint64 seconds) {
    return u"%1 seconds %2 this workstation's"_s.arg(std::abs(seconds))
        .arg(seconds < 0 ? u"behind"_s : u"ahead of"_s);
}

} // namespace

Findings LookAtDriver(const Ground& ground) {
    const QString name = u"driver"_s;
    if (ground.isTrial)
        return {NotLookedAt(name, kTrialNeedsNone + u", no driver leads to it"_s)};
    const QString driver = ground.connection.DriverVersion();
    if (driver.isEmpty())
        return {Fails(name, u"it does not tell its name"_s,
                      u"name a driver for the server in odbc.ini; the texts were tried with FreeTDS 1.3"_s)};
    return {Ok(name, driver)};
}

Findings LookAtEncryption(const Ground& ground) {
    const QString name = u"encryption"_s;
    if (ground.isTrial)
        return {NotLookedAt(name, kTrialNeedsNone)};
    return LookAtSourceLines(name, ground.source, ground.connection.DriverVersion());
}

Findings LookAtVersion(const Ground& ground) {
    static const QRegularExpression version(u"(\\d+)\\.\\d+"_s);
    const QString name = u"server version"_s;
    const QString told = ground.connection.ServerVersion();
    if (ground.isTrial)
        return {Ok(name, told)};
    const auto match = version.match(told);
    if (!match.hasMatch() || match.captured(1).toInt() < kOldestServer)
        return {Fails(name, told.isEmpty() ? u"it does not tell its version"_s : told,
                      u"the program needs version 11 (2012) or later"_s)};
    return {Ok(name, told)};
}

Findings LookAtLanguage(const Ground& ground) {
    const QString name = u"login language"_s;
    if (ground.isTrial)
        return {NotLookedAt(name, u"the trial hospital reads dates as mm/dd/yyyy whoever signs on"_s)};
    const RowSet rows = ground.connection.Execute(SessionQuestion());
    const QString language = rows.Fields(u"Language").TextOrEmpty();
    const QString order = rows.Fields(u"DateOrder").TextOrEmpty();
    const QString seen = u"%1, dates as %2"_s.arg(language, order);
    if (order != "mdy"_L1 || language != "us_english"_L1)
        return {Fails(name, seen,
                      u"ALTER LOGIN [%1] WITH DEFAULT_LANGUAGE = us_english, and no Language in odbc.ini; the "
                      "program sends dates as mm/dd/yyyy"_s.arg(ground.user))};
    return {Ok(name, seen)};
}

Findings LookAtLogin(const Ground& ground) {
    const QString name = u"login name"_s;
    if (ground.isTrial)
        return {NotLookedAt(name, u"the trial hospital goes by the sign-on"_s)};
    const QString login =
        ground.connection.Execute(SessionQuestion()).Fields(u"Login").TextOrEmpty().trimmed();
    if (login.compare(ground.user, Qt::CaseInsensitive) != 0)
        return {Fails(name, u"the server knows %1 as \"%2\", in whose name nothing is recorded"_s.arg(
                                ground.user, login),
                      u"name the login as the user's EmployeeID, and let no data source log on by itself"_s)};
    return {Ok(name, login)};
}

Findings LookAtClock(const Ground& ground) {
    const QString name = u"clock"_s;
    if (ground.isTrial)
        return {NotLookedAt(name, u"the trial hospital has this workstation's"_s)};
    const RowSet rows = ground.connection.Execute(SessionQuestion());
    const qint64 ahead = (rows.Fields(u"Clock").ToDate().Milliseconds() - Now().Milliseconds()) / 1000;
    const qint64 zone = rows.Fields(u"Zone").ToInteger();
    const qint64 own = QDateTime::currentDateTime().offsetFromUtc() / 60;
    Findings faults;
    if (zone != own)
        faults.push_back(Fails(name,
                               u"the server is %1 minutes from universal time, this workstation %2"_s.arg(
                                   zone).arg(own),
                               u"set both to one time zone"_s));
    else if (std::abs(ahead) > kMostClockError)
        faults.push_back(Fails(name, u"the server's is "_s + Sentence(ahead), u"set both by one time server"_s));
    return FaultsOr(std::move(faults), Ok(name, u"the server's is "_s + Sentence(ahead)));
}

Findings LookAtDatabases(const Ground& ground) {
    const QString name = u"databases"_s;
    if (ground.isTrial)
        return LookThroughFile(ground, name);
    Findings faults;
    for (const ServerDatabase& database : DatabasesOf(ground, faults)) {
        if (database.readOnly)
            faults.push_back(Fails(name, database.name + u" cannot be written to"_s,
                                   u"ALTER DATABASE [%1] SET READ_WRITE, or another data source: a replica "
                                   "is read alone"_s.arg(database.name)));
    }
    return FaultsOr(std::move(faults),
                    Ok(name, u"all %1 are there"_s.arg(ground.needs.databases.size())));
}

Findings LookAtCollation(const Ground& ground) {
    const QString name = u"collation"_s;
    if (ground.isTrial)
        return {Ok(name, CollationName())};
    const auto databases = DatabasesOf(ground);
    if (databases.empty())
        return {NotLookedAt(name, u"no database can be entered"_s)};
    const QString first = databases.front().collation;
    return Judged(ground, Ok(name, first), [&](const ServerDatabase& database, Findings& faults) {
        if (!database.collation.contains("_CI"_L1))
            faults.push_back(Fails(name, u"%1 has %2"_s.arg(database.name, database.collation),
                                   u"the program finds names whatever their letter case (%1)"_s.arg(
                                       CollationName())));
        else if (database.collation != first)
            faults.push_back(
                Fails(name, u"%1 has %2, another one %3"_s.arg(database.name, database.collation, first),
                      u"give all databases one collation: texts of two cannot be compared (468)"_s));
    });
}

Findings LookAtIsolation(const Ground& ground) {
    const QString name = u"isolation"_s;
    if (ground.isTrial)
        return {NotLookedAt(name, u"the trial hospital runs one writing command after the other"_s)};
    const RowSet rows = ground.connection.Execute(SessionQuestion());
    const qint64 level = rows.Fields(u"Isolation").ToInteger();
    if (level != kReadCommitted)
        return {Fails(name, u"level %1"_s.arg(level),
                      u"the data source changes it: leave it at READ COMMITTED (2)"_s)};
    return {Ok(name, u"read committed"_s)};
}

Findings LookAtChaining(const Ground& ground) {
    const QString name = u"chaining"_s;
    if (ground.isTrial)
        return {NotLookedAt(name, u"the trial hospital knows no owners"_s)};
    const auto databases = DatabasesOf(ground);
    if (databases.empty())
        return {NotLookedAt(name, u"no database can be entered"_s)};
    const QString owner = databases.front().owner;
    const Finding whole = Ok(name, NumberOf(databases) + u" of one owner use each other"_s);
    return Judged(ground, whole, [&](const ServerDatabase& database, Findings& faults) {
        if (!database.chains)
            faults.push_back(Fails(name, u"%1 has DB_CHAINING OFF"_s.arg(database.name),
                                   u"ALTER DATABASE [%1] SET DB_CHAINING ON"_s.arg(database.name)));
        if (database.owner != owner)
            faults.push_back(Fails(name, u"%1 has another owner than %2"_s.arg(database.name,
                                                                              databases.front().name),
                                   u"ALTER AUTHORIZATION ON DATABASE::[%1] TO tarven_owner"_s.arg(
                                       database.name)));
    });
}
