#include "torture/FilesPlace.h"

#include "torture/EndWithTorture.h"
#include "torture/FilesDesk.h"
#include "torture/Journal.h"
#include "torture/Marks.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>

#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <stdexcept>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceWithADesk = 90000;
constexpr unsigned kNobodysId = 65534;
const QString kFiller = u"/filler"_s;

void RequireDone(int result, const QString& what) {
    if (result != 0)
        throw std::runtime_error(
            (what + u": "_s + QString::fromLocal8Bit(std::strerror(errno))).toStdString());
}

bool WriteWhole(const char* file, const QByteArray& text) {
    const int handle = ::open(file, O_WRONLY | O_CLOEXEC);
    const bool written = handle >= 0 && ::write(handle, text.constData(), size_t(text.size())) == text.size();
    ::close(handle);
    return written;
}

/// Whoever is not the administrator becomes one over his own mounts, and stays who he is.
bool EnterOwnMounts() {
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (::unshare(CLONE_NEWNS | (user == 0 ? 0 : CLONE_NEWUSER)) != 0)
        return false;
    if (user != 0) {
        const auto self = [](unsigned id) {
            return QByteArray::number(id) + ' ' + QByteArray::number(id) + " 1";
        };
        if (!WriteWhole("/proc/self/uid_map", self(user)) || !WriteWhole("/proc/self/setgroups", "deny") ||
            !WriteWhole("/proc/self/gid_map", self(group)))
            return false;
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

QByteArray Options(int kilobytes) {
    return "size=" + QByteArray::number(kilobytes) + "k,mode=0700";
}

QByteArray ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString TextOfPdf(const QString& file) {
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
    reader.waitForFinished();
    return QString::fromUtf8(reader.readAllStandardOutput());
}

} // namespace

FilesPlace::FilesPlace(const QString& name)
    : mFolder(name) {
    mFolder.Write(u"tarvenaux.ini"_s, "DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
    QDir().mkpath(mFolder.File(u"journals"_s));
}

FilesPlace::~FilesPlace() {
    if (mHasDisk)
        ::umount2(QFile::encodeName(DataFolder()).constData(), MNT_DETACH);
}

bool FilesPlace::MayHaveDisks() {
    static const bool may = EnterOwnMounts();
    return may;
}

void FilesPlace::PutOnADisk(int kilobytes) {
    const FilesLeft files = Left();
    const QByteArray folder = QFile::encodeName(DataFolder());
    RequireDone(::mount("tarven", folder.constData(), "tmpfs", 0, Options(kilobytes).constData()),
                u"a disk"_s);
    mHasDisk = true;
    for (auto file = files.begin(); file != files.end(); ++file)
        mFolder.Write(u"data/"_s + file.key(), file->content);
}

void FilesPlace::ResizeDisk(int kilobytes) const {
    QFile::remove(DataFolder() + kFiller);
    RequireDone(::mount("tarven", QFile::encodeName(DataFolder()).constData(), "tmpfs", MS_REMOUNT,
                        Options(kilobytes).constData()),
                u"a larger disk"_s);
}

void FilesPlace::MakeDiskReadOnly() {
    GiveToTheClerk();
    RequireDone(::mount("tarven", QFile::encodeName(DataFolder()).constData(), "tmpfs",
                        MS_REMOUNT | MS_RDONLY, nullptr),
                u"a read-only disk"_s);
}

void FilesPlace::FillDisk(int kilobytesLeft) const {
    struct statvfs disk = {};
    RequireDone(::statvfs(QFile::encodeName(DataFolder()).constData(), &disk), u"the disk"_s);
    const qint64 free = qint64(disk.f_bfree) * qint64(disk.f_bsize) - kilobytesLeft * 1024LL;
    const int filler =
        ::open(QFile::encodeName(DataFolder() + kFiller).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    RequireDone(::posix_fallocate(filler, 0, free), u"filling the disk"_s);
    ::close(filler);
}

FilesLeft FilesPlace::Left() const {
    FilesLeft left;
    const QDir folder(DataFolder());
    for (const QString& name : folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
        const QString path = folder.filePath(name);
        struct stat found = {};
        // A log without a command in it is none.
        if (path == Index() || (path == Log() && QFileInfo(path).size() == 0) ||
            ::lstat(QFile::encodeName(path).constData(), &found) != 0)
            continue;
        left.insert(name, {.mode = found.st_mode, .content = ContentOf(path)});
    }
    return left;
}

void FilesPlace::GiveToTheClerk() const {
    if (::geteuid() != 0)
        return;
    const auto give = [](const QString& path) {
        // What lies on a read-only disk has been given already.
        if (::lchown(QFile::encodeName(path).constData(), kNobodysId, kNobodysId) != 0 && errno != EROFS)
            RequireDone(-1, path);
    };
    give(Path());
    for (QDirIterator files(Path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                            QDirIterator::Subdirectories);
         files.hasNext();)
        give(files.next());
}

QProcessEnvironment FilesPlace::Environment() const {
    QProcessEnvironment environment = mFolder.Environment();
    for (auto variable = mVariables.begin(); variable != mVariables.end(); ++variable) {
        if (variable.value().isNull())
            environment.remove(variable.key());
        else
            environment.insert(variable.key(), variable.value());
    }
    return environment;
}

FilesDeskEnd FilesPlace::Work(const std::function<void()>& beforeSave) {
    GiveToTheClerk();
    const FilesDesk desk = {.folder = Path(),
                            .data = mLooksItself ? QString() : DataFolder(),
                            .journal = mFolder.File(u"journals/desk-%1"_s.arg(++mDesks)),
                            .moment = mMoment,
                            .waits = bool(beforeSave)};
    QProcess process;
    process.setProcessEnvironment(Environment());
    EndWithTorture(process);
    process.start(QCoreApplication::applicationFilePath(), QStringList{u"files-desk"_s} + desk.Arguments());
    QByteArray shown;
    while (beforeSave && !shown.contains(kBeforeSave) && process.waitForReadyRead(kPatienceWithADesk))
        shown += process.readAllStandardOutput();
    if (shown.contains(kBeforeSave)) {
        beforeSave();
        process.write("\n");
    }
    FilesDeskEnd end;
    if (!process.waitForFinished(kPatienceWithADesk)) {
        end.problems << u"it hangs"_s;
        process.kill();
        process.waitForFinished();
    } else if (process.exitStatus() == QProcess::CrashExit) {
        end.problems << u"it crashed"_s;
    }
    const ReadJournal journal = JournalIn(desk.journal);
    end.signedOn = journal.marks.contains(Mark::kSignedOn);
    end.refused = journal.Mark(Mark::kRefused);
    end.failure = journal.Mark(Mark::kFailure);
    end.shown = QString::fromUtf8(shown + process.readAllStandardOutput()).trimmed();
    if (end.Told().isEmpty() && process.exitCode() != 0)
        end.problems << u"it ended with %1: %2"_s.arg(process.exitCode())
                            .arg(QString::fromUtf8(process.readAllStandardError()).trimmed());
    return end;
}

QString FilesPlace::Paper() const {
    QString paper;
    for (const QString& name : QDir(Path()).entryList({u"*.pdf"_s}))
        paper += TextOfPdf(mFolder.File(name));
    return paper;
}

QString FilesPlace::Charges(const FilesDeskEnd& end) const {
    const auto rows = mFolder.Query(
        u"select RevenueID, ItemID, Description, Quantity, Amount, UserID, RoomID, DoctorName, RefNum "
        "from BILLING..tbPatientCharges where RefNum = '%1' order by ChargeID"_s.arg(
            end.shown.section(u' ', -1)));
    return QStringList(rows.begin(), rows.end()).join(u'\n');
}
