#include "gateway/embedded/HospitalFile.h"

#include "gateway/embedded/HospitalBuilder.h"
#include "gateway/embedded/ServerError.h"
#include "gateway/embedded/Transaction.h"
#include "gateway/SqlLexer.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kSchemaMark = "schema"_L1;
constexpr auto kProceduresMark = "procedures"_L1;
constexpr auto kSchemaFolder = "schema/"_L1;
constexpr auto kProceduresFolder = "procedures/"_L1;
constexpr int kLongestWait = 10 * 60 * 1000;

/// What the scripts of one folder say, whatever their comments and blanks.
QString Digest(const std::vector<Script>& scripts, QLatin1StringView folder) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const Script& script : scripts) {
        if (!script.name.startsWith(folder))
            continue;
        for (const Token& token : LexSql(script.text)) {
            hash.addData(token.written.toUtf8());
            hash.addData(QByteArrayView("\n"));
        }
    }
    return QString::fromLatin1(hash.result().toHex());
}

[[noreturn]] void RaiseSystem(const QString& path) {
    throw ServerError(Fault::CannotOpen, {path, QString::fromLocal8Bit(std::strerror(errno))});
}

/// Makes sure that a file or folder has reached the disk.
void Flush(const QString& path, int flags) {
    const int file = ::open(QFile::encodeName(path).constData(), flags);
    if (file < 0)
        RaiseSystem(path);
    const bool flushed = ::fsync(file) == 0;
    const int reason = errno;
    ::close(file);
    errno = reason;
    if (!flushed)
        RaiseSystem(path);
}

void RemoveWithCompanions(const QString& path) {
    for (const QString& suffix : {u""_s, u"-wal"_s, u"-shm"_s, u"-journal"_s})
        QFile::remove(path + suffix);
}

void RunScripts(const QString& path, const std::vector<Script>& scripts,
                const HospitalFile::Progress& progress) {
    HospitalEngine engine(path, SqliteDatabase::Mode::New);
    SqliteDatabase& database = engine.Database();
    // Nobody else sees the file yet, and a broken one is thrown away: durability comes at the end, by one
    // flush.
    database.RunForValue(u"PRAGMA journal_mode = MEMORY"_s);
    database.Run(u"PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE"_s);
    engine.Store().Create();
    HospitalBuilder builder(engine);
    const int total = static_cast<int>(scripts.size());
    for (int done = 0; done < total; ++done) {
        const Script& script = scripts[static_cast<size_t>(done)];
        if (progress)
            progress(done, total, script.name);
        builder.Run(script);
    }
    engine.Store().SetMark(kSchemaMark, Digest(scripts, kSchemaFolder));
    engine.Store().SetMark(kProceduresMark, Digest(scripts, kProceduresFolder));
    database.Run(u"PRAGMA locking_mode = NORMAL"_s);
    database.RunForValue(u"PRAGMA journal_mode = WAL"_s);
    if (progress)
        progress(total, total, {});
}

void ReplaceProcedures(HospitalEngine& engine, const std::vector<Script>& scripts, const QString& digest) {
    Transaction transaction(engine.Database(), Transaction::Kind::Writing);
    engine.Store().DropProcedures();
    HospitalBuilder builder(engine);
    for (const Script& script : scripts) {
        if (script.name.startsWith(kProceduresFolder))
            builder.Run(script);
    }
    engine.Store().SetMark(kProceduresMark, digest);
    transaction.Commit();
}

} // namespace

void HospitalFile::Create(const QString& path, const std::vector<Script>& scripts, const Progress& progress) {
    if (QFile::exists(path))
        throw RunTimeError(RunTime::kPathFileAccess,
                           RunTime::TextOf(RunTime::kPathFileAccess) + u": "_s + path);
    // Two workstations that start at the same time make one hospital: the second one waits and finds it made.
    QLockFile lock(path + u".lock"_s);
    lock.setStaleLockTime(0);
    if (!lock.tryLock(kLongestWait)) {
        const bool busy = lock.error() == QLockFile::LockFailedError;
        throw ServerError(Fault::CannotOpen, {path, busy ? u"another process is still making it"_s
                                                         : u"its folder cannot be written to"_s});
    }
    if (QFile::exists(path))
        return;
    const QString unfinished = path + u".new"_s;
    RemoveWithCompanions(unfinished);
    try {
        RunScripts(unfinished, scripts, progress);
        Flush(unfinished, O_RDONLY);
    } catch (...) {
        RemoveWithCompanions(unfinished);
        throw;
    }
    // The journal of a hospital that was deleted by hand must not be played into the new one.
    RemoveWithCompanions(path);
    if (::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(path).constData()) != 0)
        RaiseSystem(path);
    Flush(QFileInfo(path).absolutePath(), O_RDONLY | O_DIRECTORY);
}

std::unique_ptr<EmbeddedGateway> HospitalFile::Open(const QString& path, const std::vector<Script>& scripts) {
    auto gateway = std::make_unique<EmbeddedGateway>(path);
    HospitalStore& store = gateway->Engine().Store();
    if (store.Mark(kSchemaMark) != Digest(scripts, kSchemaFolder))
        throw ServerError(Fault::OtherVersion, {path});
    const QString digest = Digest(scripts, kProceduresFolder);
    if (store.Mark(kProceduresMark) == digest)
        return gateway;
    ReplaceProcedures(gateway->Engine(), scripts, digest);
    return std::make_unique<EmbeddedGateway>(path);
}
