#include "trial/HospitalFile.h"

#include "gateway/SqlLexer.h"
#include "trial/file/DiskAccess.h"
#include "trial/file/HospitalPlace.h"
#include "trial/file/SignOnTrail.h"
#include "trial/HospitalBuilder.h"
#include "trial/sqlite/Transaction.h"
#include "tsql/ServerError.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>
#include <QtEndian>

#include <chrono>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kSchemaMark = "schema"_L1;
constexpr auto kProceduresMark = "procedures"_L1;
constexpr auto kSchemaFolder = "schema/"_L1;
constexpr auto kProceduresFolder = "procedures/"_L1;
constexpr std::chrono::minutes kLongestWait(10);
constexpr std::chrono::seconds kWaitForAnotherMachine(3);
constexpr std::chrono::milliseconds kOneWait(50);

/// How values lie in the file; another number when that changes, so that no file is read in a form that it
/// has not.
constexpr auto kForm = "2"_L1;

/// What the scripts of one folder say, whatever their comments and blanks, and the form of the values.
QString Digest(const std::vector<Script>& scripts, QLatin1StringView folder) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArrayView(kForm));
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

void RemoveCompanions(const QString& path) {
    for (const QString& suffix : {u"-wal"_s, u"-shm"_s, u"-journal"_s})
        QFile::remove(path + suffix);
}

void RemoveWithCompanions(const QString& path) {
    QFile::remove(path);
    RemoveCompanions(path);
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
    engine.Store().SetFresh(true);
    database.Run(u"PRAGMA locking_mode = NORMAL"_s);
    database.RunForValue(u"PRAGMA journal_mode = WAL"_s);
    database.Flush();
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

/// Raises 824, with the path of the file that is at fault, where one of SQLite's own checks finds something.
void RequirePasses(SqliteDatabase& database, const QString& check, const QString& path) {
    const auto found = database.RunForValue(u"PRAGMA %1(1)"_s.arg(check));
    const auto* text = found ? std::get_if<QByteArray>(&*found) : nullptr;
    if (!text || *text != "ok")
        throw ServerError(Fault::Damaged, {path});
}

/// Raises 824 where the file's pages do not fit together.
void RequireWhole(SqliteDatabase& database) {
    RequirePasses(database, u"quick_check"_s, database.Path());
}

/// Raises 824 where the end of the file is missing, of a page that SQLite would fill up with zeros. For a
/// file without a log, which has all its pages in itself.
void RequireWholePages(const SqliteDatabase& database) {
    constexpr qsizetype kPageSizeOffset = 16;
    constexpr int kLargestPage = 65536;
    const int written = qFromBigEndian<quint16>(database.Header().constData() + kPageSizeOffset);
    if (QFileInfo(database.Path()).size() % (written == 1 ? kLargestPage : written) != 0)
        throw ServerError(Fault::Damaged, {database.Path()});
}

/// Holds a hospital's file that nobody else has open: nobody can use it until the hold ends. A file that is
/// no database is nobody's, and is not held.
class Hold {
  public:
    /// Raises 3702 when somebody has the file open.
    explicit Hold(const QString& path) {
        try {
            mFile = std::make_unique<SqliteDatabase>(path, SqliteDatabase::Mode::Existing);
            mFile->SetTimeout(1);
            // A connection in the usual mode of journal holds a lock for as long as it is open, and only
            // without one can the mode be left. It takes the journal along, which would else be played into
            // the file that comes in this one's place.
            mFile->RunForValue(u"PRAGMA journal_mode = DELETE"_s);
            mLock.emplace(*mFile, Transaction::Kind::Exclusive);
        } catch (const RunTimeError& error) {
            if (error.Number() == static_cast<int>(Fault::LockTimeout))
                throw ServerError(Fault::InUse, {path});
            if (error.Number() != static_cast<int>(Fault::Damaged))
                throw;
            mFile.reset();
        }
    }

    /// Takes the trail of sign-ons along into a whole hospital. Of a file that is damaged nothing is taken.
    void CarryTrailInto(const QString& finished) {
        if (!mFile)
            return;
        SqliteDatabase next(finished, SqliteDatabase::Mode::Existing);
        try {
            SignOnTrail::CarryOver(*mFile, next);
        } catch (const RunTimeError& error) {
            if (error.Number() != static_cast<int>(Fault::Damaged))
                throw;
        }
    }

    /// Gives the file back as it was. Where this fails or is not reached, Open makes up for it.
    void Release() {
        if (!mFile)
            return;
        mLock.reset();
        mFile->RunForValue(u"PRAGMA journal_mode = WAL"_s);
    }

  private:
    std::unique_ptr<SqliteDatabase> mFile;
    std::optional<Transaction> mLock;
};

/// The machine whose process holds the lock, where it is not this one. Such a process is not waited for: a
/// hospital lies on this machine's disk, so the lock is most likely left over from when it had another name.
QString OtherMachine(const QLockFile& lock) {
    qint64 process = 0;
    QString machine;
    QString program;
    return lock.getLockInfo(&process, &machine, &program) && machine != QSysInfo::machineHostName()
               ? machine
               : QString();
}

/// The right to make a hospital's file, which one process has at a time. Two workstations that start at the
/// same time make one hospital: the second one waits and finds it made.
class MakingLock {
  public:
    /// Raises 5120 where the lock cannot be had.
    MakingLock(const QString& path, const HospitalFile::Progress& progress)
        : mFile(path + u".lock"_s) {
        mFile.setStaleLockTime(0);
        const auto begin = Clock::now();
        while (!mFile.tryLock(static_cast<int>(kOneWait.count()))) {
            RequireWorthWaiting(path, Clock::now() - begin);
            if (progress)
                progress(0, 0, u"Another workstation is making the hospital."_s);
        }
    }

  private:
    using Clock = std::chrono::steady_clock;

    /// Raises why nobody waits for the lock any longer.
    void RequireWorthWaiting(const QString& path, Clock::duration waited) const {
        if (mFile.error() == QLockFile::PermissionError)
            throw ServerError(Fault::CannotOpen, {path, u"its folder cannot be written to"_s});
        if (mFile.error() == QLockFile::UnknownError)
            throw ServerError(Fault::CannotOpen,
                              {path, u"%1.lock cannot be written; the disk may be full"_s.arg(path)});
        const QString machine = OtherMachine(mFile);
        if (!machine.isEmpty() && waited > kWaitForAnotherMachine)
            throw ServerError(Fault::CannotOpen,
                              {path, u"a process of the machine %1 was making it and has left %2.lock; where "
                                     "nobody is making it, remove that file"_s.arg(machine, path)});
        if (waited > kLongestWait)
            throw ServerError(Fault::CannotOpen, {path, u"another process is still making it"_s});
    }

    QLockFile mFile;
};

/// A hospital's file that is made beside its place; it is gone with this unless it has appeared there.
class UnfinishedHospital {
  public:
    /// `fill` makes the empty file of that path a hospital.
    UnfinishedHospital(const QString& path, const std::function<void(const QString& path)>& fill)
        : mPath(path)
        , mUnfinished{path + u".new"_s} {
        RemoveWithCompanions(mUnfinished.path);
        MakePrivateFile(mUnfinished.path);
        fill(mUnfinished.path);
    }
    UnfinishedHospital(const QString& path, const std::vector<Script>& scripts,
                       const HospitalFile::Progress& progress)
        : UnfinishedHospital(path, [&](const QString& file) { RunScripts(file, scripts, progress); }) {}

    const QString& Path() const { return mUnfinished.path; }

    /// Gives the whole hospital its name, in one step.
    void Appear() {
        // The journal of a hospital that was deleted by hand must not be played into the new one.
        RemoveCompanions(mPath);
        const QString failure = RenameForGood(Path(), mPath);
        if (!failure.isEmpty())
            throw ServerError(Fault::CannotOpen, {mPath, failure});
    }

  private:
    /// Removed at the end, also where its making fails.
    struct File {
        QString path;
        explicit File(const QString& name)
            : path(name) {}
        File(const File&) = delete;
        File& operator=(const File&) = delete;
        ~File() { RemoveWithCompanions(path); }
    };

    QString mPath;
    File mUnfinished;
};

/// Copies a hospital as it is at one moment into an empty file, and looks through what came of it. Raises 824
/// for a copy that does not fit together, and 948 for one of other tables.
void CopyHospital(const QString& from, const QString& to, const std::vector<Script>& scripts) {
    const bool hasAllInItself = !HasLog(from);
    // The engine looks at the file first: what is no hospital is not copied.
    HospitalEngine source(from, SqliteDatabase::Mode::Reading);
    if (hasAllInItself)
        RequireWholePages(source.Database());
    if (source.Store().Mark(kSchemaMark) != Digest(scripts, kSchemaFolder))
        throw ServerError(Fault::OtherVersion, {from});
    SqliteDatabase copy(to, SqliteDatabase::Mode::Existing);
    source.Database().CopyInto(copy);
    // One file: whoever takes it elsewhere need not know of a log.
    copy.RunForValue(u"PRAGMA journal_mode = DELETE"_s);
    // Of the indexes too, which the look at a sign-on passes over.
    RequirePasses(copy, u"integrity_check"_s, from);
    copy.Flush();
}

RunTimeError NoPlace(const QString& path, const QString& why) {
    return RunTimeError(RunTime::kPathFileAccess,
                        u"%1: %2 (%3)"_s.arg(RunTime::TextOf(RunTime::kPathFileAccess), path, why));
}

/// Raises 75 where a copy would take the place of what is somebody's: a file that stands, a link to a disk
/// that is away, or one that the making of the copy would take for its own.
void RequireFree(const QString& path) {
    const QFileInfo folder(QFileInfo(path).absolutePath());
    if (!folder.isDir())
        throw NoPlace(path, u"there is no folder %1"_s.arg(folder.filePath()));
    // A copy that was stopped half-way has left its lock beside it.
    const bool isLeftOver = QFile::exists(path + u".lock"_s);
    for (const QFileInfo& file : {QFileInfo(path), QFileInfo(isLeftOver ? path : path + u".new"_s)}) {
        if (file.exists() || file.isSymLink())
            throw NoPlace(file.filePath(), u"it stands already, and nothing is written over"_s);
    }
}

/// Where the hospital named by a path lies. Raises 5120 where none may lie.
QString PlaceOf(const QString& path) {
    QString place = RealPath(path);
    RequireLocalDisk(place);
    RequireFolderOfItsOwn(place);
    return place;
}

} // namespace

void HospitalFile::Create(const QString& name, const std::vector<Script>& scripts, const Progress& progress) {
    const QString path = PlaceOf(name);
    if (QFile::exists(path))
        throw RunTimeError(RunTime::kPathFileAccess,
                           RunTime::TextOf(RunTime::kPathFileAccess) + u": "_s + path);
    const MakingLock lock(path, progress);
    if (!QFile::exists(path))
        UnfinishedHospital(path, scripts, progress).Appear();
}

void HospitalFile::Replace(const QString& name, const std::vector<Script>& scripts,
                           const Progress& progress) {
    const QString path = PlaceOf(name);
    const MakingLock lock(path, progress);
    if (!QFile::exists(path))
        return UnfinishedHospital(path, scripts, progress).Appear();
    RequireOrdinaryFile(path);
    // Told before the user has waited for the making.
    Hold(path).Release();
    UnfinishedHospital next(path, scripts, progress);
    // Held until the new file stands in its place, so that nobody opens the old one at the last moment.
    Hold held(path);
    held.CarryTrailInto(next.Path());
    next.Appear();
}

void HospitalFile::LookThrough(EmbeddedGateway& hospital) {
    SqliteDatabase& database = hospital.Engine().Database();
    RequirePasses(database, u"integrity_check"_s, database.Path());
}

void HospitalFile::BackUp(const QString& name, const QString& copy, const std::vector<Script>& scripts) {
    const QString path = RealPath(copy);
    RequireOrdinaryFile(RealPath(name));
    RequireFree(path);
    const MakingLock lock(path, {});
    if (QFile::exists(path))
        throw NoPlace(path, u"another process has made it meanwhile"_s);
    UnfinishedHospital(path, [&](const QString& file) {
        CopyHospital(RealPath(name), file, scripts);
    }).Appear();
}

void HospitalFile::Restore(const QString& name, const QString& copy, const std::vector<Script>& scripts) {
    const QString path = PlaceOf(name);
    RequireOrdinaryFile(RealPath(copy));
    const MakingLock lock(path, {});
    const bool stands = QFile::exists(path);
    if (stands)
        Hold(path).Release();
    UnfinishedHospital next(path, [&](const QString& file) { CopyHospital(RealPath(copy), file, scripts); });
    std::optional<Hold> held;
    if (stands) {
        // Held until the copy stands in its place, so that nobody opens the old one at the last moment.
        held.emplace(path);
        held->CarryTrailInto(next.Path());
    }
    next.Appear();
}

std::unique_ptr<EmbeddedGateway> HospitalFile::Open(const QString& name, const std::vector<Script>& scripts) {
    const QString path = PlaceOf(name);
    RequireOrdinaryFile(path);
    RequireWritable(path);
    // A log that is there before anybody here has the file open: its last user did not close it, or another
    // workstation has it open. The two cannot be told apart from outside, and the check is cheap.
    const bool notClosed = HasLog(path);
    auto gateway = std::make_unique<EmbeddedGateway>(path);
    // Not before: the file of another program keeps its rights.
    KeepPrivate(path);
    SqliteDatabase& database = gateway->Engine().Database();
    // A file that is refused stays as it is.
    database.SetPlaysLog(!notClosed);
    if (notClosed)
        RequireWhole(database);
    else
        RequireWholePages(database);
    // A replacement that was stopped at its last step leaves the mode of journal behind in which it held the
    // file.
    database.RunForValue(u"PRAGMA journal_mode = WAL"_s);
    HospitalStore& store = gateway->Engine().Store();
    if (store.Mark(kSchemaMark) != Digest(scripts, kSchemaFolder))
        throw ServerError(Fault::OtherVersion, {path});
    database.SetPlaysLog(true);
    const QString digest = Digest(scripts, kProceduresFolder);
    if (store.Mark(kProceduresMark) == digest)
        return gateway;
    ReplaceProcedures(gateway->Engine(), scripts, digest);
    return std::make_unique<EmbeddedGateway>(path);
}
