#include "torture/FilesCases.h"

#include "hospital/HospitalScripts.h"
#include "trial/HospitalFile.h"
#include "trial/sqlite/SqliteDatabase.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

using End = FilesCase::End;
using Prepare = std::function<void(FilesPlace&)>;

constexpr int kPage = 4096;
/// More room than the hospital takes, less than it takes to be made.
constexpr int kRoomForTheFile = 64 * 1024;
constexpr int kRoomForHalf = 1024;

const QString kOddName = u"Señor <b>Peña's  100%20 %1 \"#2\" what?"_s;

const QString kClosedFolder = u"its folder cannot be written to"_s;
const QString kForeignLog = u"is another database's"_s;
const QString kDamaged = u"is damaged"_s;
const QString kNoDatabase = u"it is not a database file"_s;
const QString kOtherVersion = u"was made by another version of this program"_s;

void Write(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

QByteArray Read(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    return file.readAll();
}

/// Cuts the file; a negative size counts from its end.
Prepare Cut(qint64 size) {
    return [size](FilesPlace& place) {
        QFile file(place.Hospital());
        file.resize(size >= 0 ? size : file.size() + size);
    };
}

void CutInHalf(FilesPlace& place) {
    Cut(QFile(place.Hospital()).size() / 2)(place);
}

/// As it comes from a disk whose contents were mixed up: other bytes, no pattern.
QByteArray Garbage(qint64 size) {
    QByteArray bytes(size, '\0');
    quint32 next = 1;
    for (char& byte : bytes) {
        next = next * 1664525 + 1013904223;
        byte = char(next >> 24);
    }
    return bytes;
}

void FillWithGarbage(FilesPlace& place) {
    Write(place.Hospital(), Garbage(QFile(place.Hospital()).size()));
}

void FillWithGarbageBehindTheFirstPage(FilesPlace& place) {
    const QByteArray whole = Read(place.Hospital());
    Write(place.Hospital(), whole.first(kPage) + Garbage(whole.size() - kPage));
}

Prepare SetMode(bool folder, mode_t mode) {
    return [folder, mode](FilesPlace& place) {
        ::chmod(QFile::encodeName(folder ? place.DataFolder() : place.Hospital()).constData(), mode);
    };
}

/// A database of another program's, open, with all that it holds in its log.
std::unique_ptr<SqliteDatabase> ForeignDatabase(const QString& path, int pageSize) {
    auto database = std::make_unique<SqliteDatabase>(path, SqliteDatabase::Mode::New);
    database->RunForValue(u"PRAGMA page_size = %1"_s.arg(pageSize));
    database->RunForValue(u"PRAGMA journal_mode = WAL"_s);
    database->Run(u"CREATE TABLE stamps (name TEXT); INSERT INTO stamps VALUES ('penny');"
                  "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 500) "
                  "INSERT INTO stamps SELECT hex(randomblob(200)) FROM n"_s);
    return database;
}

void PutForeignDatabase(FilesPlace& place) {
    QFile::remove(place.Hospital());
    ForeignDatabase(place.Hospital(), kPage);
}

/// Another program's log beside the hospital.
Prepare PutForeignLog(int pageSize) {
    return [pageSize](FilesPlace& place) {
        const QTemporaryDir elsewhere;
        const QString foreign = elsewhere.filePath(u"stamps.db"_s);
        const auto open = ForeignDatabase(foreign, pageSize);
        Write(place.Log(), Read(foreign + u"-wal"_s));
    };
}

/// The log of a hospital whose rows lie on other pages.
void PutOtherHospitalsLog(FilesPlace& place) {
    const QTemporaryDir elsewhere;
    const QString other = elsewhere.filePath(u"hospital.db"_s);
    QFile::copy(place.Hospital(), other);
    SqliteDatabase(other, SqliteDatabase::Mode::Existing)
        .Run(u"DELETE FROM \"BILLING..tbPatientCharges\" WHERE ChargeID % 2 = 0; VACUUM"_s);
    SqliteDatabase database(other, SqliteDatabase::Mode::Existing);
    database.Run(u"UPDATE \"BILLING..tbPatientCharges\" SET Amount = 0"_s);
    Write(place.Log(), Read(other + u"-wal"_s));
}

Prepare Alter(const QString& sql) {
    return [sql](FilesPlace& place) {
        SqliteDatabase(place.Hospital(), SqliteDatabase::Mode::Existing).Run(sql);
    };
}

/// Somebody was killed behind a slip that he had saved, and somebody else has tidied up.
void LoseTheLog(FilesPlace& place) {
    place.Work();
    QFile::remove(place.Log());
}

void PutFolderInItsPlace(FilesPlace& place) {
    QFile::remove(place.Hospital());
    QDir().mkdir(place.Hospital());
}

Prepare PutOnDisk(int kilobytes) {
    return [kilobytes](FilesPlace& place) { place.PutOnADisk(kilobytes); };
}

Prepare BeginWithADiskOf(int kilobytes) {
    return [kilobytes](FilesPlace& place) {
        QFile::remove(place.Hospital());
        place.PutOnADisk(kilobytes);
    };
}

Prepare FillUpTo(int kilobytesLeft) {
    return [kilobytesLeft](FilesPlace& place) { place.FillDisk(kilobytesLeft); };
}

void MakeRoom(FilesPlace& place) {
    place.ResizeDisk(kRoomForTheFile);
}

Prepare WithoutAHome(const QString& home) {
    return [home](FilesPlace& place) {
        for (const QString& variable : {u"XDG_CONFIG_HOME"_s, u"XDG_DATA_HOME"_s})
            place.Set(variable, QString());
        place.Set(u"HOME"_s, home);
        place.LookWhereTheProgramDoes();
    };
}

Prepare AtTheMoment(const QString& moment) {
    return [moment](FilesPlace& place) { place.SetMoment(moment); };
}

/// The machine speaks that language. Where the C library does not know it, the toolkit does.
Prepare InTheLanguage(const QString& name) {
    return [name](FilesPlace& place) {
        const QString folder = place.Folder().File(u"locales"_s);
        QDir().mkpath(folder);
        QProcess::execute(u"localedef"_s,
                          {u"-i"_s, name, u"-f"_s, u"UTF-8"_s, folder + u'/' + name + u".UTF-8"_s});
        place.Set(u"LOCPATH"_s, folder);
        place.Set(u"LC_ALL"_s, name + u".UTF-8"_s);
        place.Set(u"LANGUAGE"_s, name);
    };
}

std::vector<FilesCase> Disks() {
    std::vector<FilesCase> cases = {{.name = u"full disk, nothing made yet"_s,
                                     .told = u"the disk is full"_s,
                                     .prepare = BeginWithADiskOf(kRoomForHalf),
                                     .mend = MakeRoom,
                                     .needsADisk = true},
                                    {.name = u"disk full to the last byte, nothing made yet"_s,
                                     .told = u"the disk may be full"_s,
                                     .prepare =
                                         [](FilesPlace& place) {
                                             BeginWithADiskOf(kRoomForHalf)(place);
                                             place.FillDisk(0);
                                         },
                                     .mend = MakeRoom,
                                     .needsADisk = true},
                                    {.name = u"disk full at the sign-on"_s,
                                     .told = u"the disk is full"_s,
                                     .prepare =
                                         [](FilesPlace& place) {
                                             place.PutOnADisk(kRoomForTheFile);
                                             place.FillDisk(0);
                                         },
                                     .mend = MakeRoom,
                                     .needsADisk = true},
                                    {.name = u"read-only disk"_s,
                                     .told = u"it lies on a read-only disk"_s,
                                     .prepare =
                                         [](FilesPlace& place) {
                                             place.PutOnADisk(kRoomForTheFile);
                                             place.MakeDiskReadOnly();
                                         },
                                     .needsADisk = true}};
    for (const int left : {0, 4, 16, 32, 64})
        cases.push_back({.name = u"disk full in the middle of a save, %1 KB left"_s.arg(left),
                         .end = End::Fails,
                         .told = u"the disk is full"_s,
                         .prepare = PutOnDisk(kRoomForTheFile),
                         .beforeSave = FillUpTo(left),
                         .mend = MakeRoom,
                         .isShort = left == 16,
                         .needsADisk = true});
    return cases;
}

std::vector<FilesCase> Rights() {
    return {{.name = u"read-only file"_s, .told = u"read-only"_s, .prepare = SetMode(false, 0400)},
            {.name = u"file that all may read and nobody write"_s,
             .told = u"read-only"_s,
             .prepare = SetMode(false, 0444)},
            {.name = u"file that nobody may read"_s,
             .told = u"Permission denied"_s,
             .prepare = SetMode(false, 0)},
            {.name = u"read-only folder"_s,
             .told = kClosedFolder,
             .prepare = SetMode(true, 0500),
             .isShort = true},
            {.name = u"folder that all may read and nobody write"_s,
             .told = kClosedFolder,
             .prepare = SetMode(true, 0555)},
            {.name = u"folder that nobody may enter"_s, .told = kClosedFolder, .prepare = SetMode(true, 0)},
            {.name = u"a folder in the file's place"_s,
             .told = u"it is a folder, a pipe or a device"_s,
             .prepare = PutFolderInItsPlace}};
}

std::vector<FilesCase> Contents() {
    return {{.name = u"empty file"_s, .told = kNoDatabase, .prepare = Cut(0)},
            {.name = u"cut behind 1 byte"_s, .told = kNoDatabase, .prepare = Cut(1)},
            {.name = u"cut behind 100 bytes"_s, .told = kDamaged, .prepare = Cut(100)},
            {.name = u"cut behind one page"_s, .told = kDamaged, .prepare = Cut(kPage)},
            {.name = u"cut in half"_s, .told = kDamaged, .prepare = CutInHalf},
            {.name = u"its last byte missing"_s, .told = kDamaged, .prepare = Cut(-1), .isShort = true},
            {.name = u"its last page missing"_s, .told = kDamaged, .prepare = Cut(-kPage)},
            {.name = u"garbage of its size"_s, .told = kNoDatabase, .prepare = FillWithGarbage},
            {.name = u"garbage behind the first page"_s,
             .told = kDamaged,
             .prepare = FillWithGarbageBehindTheFirstPage},
            {.name = u"another program's database"_s,
             .told = u"another program"_s,
             .prepare = PutForeignDatabase},
            {.name = u"older hospital"_s,
             .told = kOtherVersion,
             .prepare = Alter(u"UPDATE tarven_mark SET value = 'older' WHERE name = 'schema'"_s)},
            {.name = u"much older hospital, without marks"_s,
             .told = kOtherVersion,
             .prepare = Alter(u"DROP TABLE tarven_mark"_s)},
            {.name = u"newer hospital, with a type that is not known"_s,
             .told = kOtherVersion,
             .prepare = Alter(u"UPDATE tarven_mark SET value = 'newer' WHERE name = 'schema';"
                              "UPDATE tarven_table SET text = replace(text, ' int', ' hierarchy')"_s),
             .isShort = true},
            {.name = u"newer hospital, whose tables stand elsewhere"_s,
             .told = kOtherVersion,
             .prepare = Alter(u"ALTER TABLE tarven_table RENAME TO tarven_structure"_s)}};
}

std::vector<FilesCase> Logs() {
    return {{.name = u"log missing behind a kill"_s,
             .told = u"with what was saved last is missing"_s,
             .prepare = LoseTheLog,
             .mend = [](FilesPlace& place) { QFile::remove(place.Index()); },
             .isShort = true},
            {.name = u"another program's log"_s,
             .told = kForeignLog,
             .prepare = PutForeignLog(kPage),
             .isShort = true},
            {.name = u"another program's log, of other pages"_s,
             .told = kForeignLog,
             .prepare = PutForeignLog(1024)},
            {.name = u"another hospital's log"_s, .told = kDamaged, .prepare = PutOtherHospitalsLog},
            {.name = u"garbage for a log"_s, .end = End::Works, .prepare = [](FilesPlace& place) {
                 Write(place.Log(), Garbage(100000));
             }}};
}

std::vector<FilesCase> Names() {
    std::vector<FilesCase> cases;
    for (const QString& name : {u"Señor Peña"_s, u"two  blanks "_s, u"100%20 %1"_s, u"O'Brien \"1\""_s,
                                u"what?"_s, u"file:#1?mode=memory&x"_s, u"<b>ward"_s})
        cases.push_back({.name = u"in the folder "_s + name, .end = End::Works, .folder = name});
    cases.push_back({.name = u"cut in a folder with all of these"_s,
                     .told = kDamaged,
                     .prepare = CutInHalf,
                     .folder = kOddName});
    cases.push_back({.name = u"in a folder with all of these, the machine speaks tr_TR"_s,
                     .end = End::Works,
                     .prepare = InTheLanguage(u"tr_TR"_s),
                     .isShort = true,
                     .folder = kOddName});
    return cases;
}

std::vector<FilesCase> Machines() {
    std::vector<FilesCase> cases = {
        {.name = u"HOME not set"_s, .told = u"/.local"_s, .prepare = WithoutAHome({}), .namesTheFile = false},
        {.name = u"HOME that is not there"_s,
         .told = u"/nowhere/at/all"_s,
         .prepare = WithoutAHome(u"/nowhere/at/all"_s),
         .namesTheFile = false},
        {.name = u"HOME that is no folder"_s,
         .told = u"/dev/null"_s,
         .prepare = WithoutAHome(u"/dev/null"_s),
         .namesTheFile = false}};
    for (const QString& moment :
         {u"1970-01-01 00:00"_s, u"1999-12-31 23:59"_s, u"2038-01-19 03:15"_s, u"2100-02-28 12:00"_s})
        cases.push_back(
            {.name = u"the clock at "_s + moment, .end = End::WorksOnItsDay, .prepare = AtTheMoment(moment)});
    // A stay of more days than the program counts.
    cases.push_back({.name = u"the clock at 2999-12-31 23:58"_s,
                     .end = End::Fails,
                     .told = u"Run-time error '6': Overflow"_s,
                     .prepare = AtTheMoment(u"2999-12-31 23:58"_s),
                     .namesTheFile = false});
    for (const QString& language : {u"de_DE"_s, u"tr_TR"_s, u"ar_EG"_s, u"fa_IR"_s})
        cases.push_back({.name = u"the machine speaks "_s + language,
                         .end = End::Works,
                         .prepare = InTheLanguage(language)});
    return cases;
}

} // namespace

std::vector<FilesCase> FilesCases() {
    std::vector<FilesCase> cases;
    for (const auto& group : {Disks(), Rights(), Contents(), Logs(), Names(), Machines()})
        cases.insert(cases.end(), group.begin(), group.end());
    return cases;
}
