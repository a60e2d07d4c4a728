#include "trial/EmbeddedGateway.h"

#include "gateway/Boundary.h"
#include "trial/file/HospitalPlace.h"
#include "trial/HospitalEngine.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

/// In kilobytes, and as much again for what a command sorts in memory. A desk's holds a hospital of 100,000
/// patients; it grows only as far as it is used. A report reads once what it reads, and the rows of a year
/// need the room.
int CacheSize(EmbeddedGateway::Access access) {
    return access == EmbeddedGateway::Access::Reading ? 16384 : 65536;
}

std::unique_ptr<HospitalEngine> OpenEngine(const QString& path, EmbeddedGateway::Access access) {
    return WithinBoundary([&] {
        // SQLite would wait at a pipe for ever.
        RequireOrdinaryFile(path);
        // Opened, it would have a log again, and nobody would be told any more.
        RequireLog(path);
        return std::make_unique<HospitalEngine>(path, access == EmbeddedGateway::Access::Reading
                                                          ? SqliteDatabase::Mode::Reading
                                                          : SqliteDatabase::Mode::Existing);
    });
}

} // namespace

EmbeddedGateway::EmbeddedGateway(const QString& path, Access access)
    : mConnectionString(u"Provider=TarvenEmbedded;Data Source="_s + path)
    , mEngine(OpenEngine(path, access)) {
    // What a command has answered stays, even if the machine stops at that moment.
    mEngine->Database().Run(u"PRAGMA synchronous = FULL; PRAGMA cache_size = -%1"_s.arg(CacheSize(access)));
    mEngine->Database().SetTimeout(CommandTimeout());
}

EmbeddedGateway::~EmbeddedGateway() = default;

QString EmbeddedGateway::ServerVersion() const {
    return u"SQLite "_s + QLatin1StringView(sqlite3_libversion());
}

void EmbeddedGateway::SetDefaultDatabase(const QString& name) {
    mEngine->SetDefaultDatabase(name);
    CommandGateway::SetDefaultDatabase(name);
}

void EmbeddedGateway::SetCommandTimeout(int seconds) {
    CommandGateway::SetCommandTimeout(seconds);
    mEngine->Database().SetTimeout(seconds);
}

void EmbeddedGateway::Cancel() {
    mEngine->Database().Cancel();
}

void EmbeddedGateway::SetSessionUser(const QString& user) {
    mEngine->Database().SetSessionUser(user);
}

QStringList EmbeddedGateway::QueryPlan(const QString& command) {
    return WithinBoundary([&] { return mEngine->QueryPlan(command); });
}

CommandGateway::Outcome EmbeddedGateway::Run(const QString& command) {
    return WithinBoundary([&] {
        CommandResult result = mEngine->Run(command);
        return Outcome{std::move(result.rows), result.rowsAffected};
    });
}
