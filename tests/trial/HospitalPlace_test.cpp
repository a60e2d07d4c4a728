#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "text/RunTimeError.h"
#include "trial/file/HospitalPlace.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class HospitalPlace : public testing::Test {
  protected:
    QString Path() const { return folder.filePath(u"hospital.db"_s); }
    void Make(const QString& path, mode_t mode) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0);
    }
    static mode_t ModeOf(const QString& path) {
        struct stat found = {};
        EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &found), 0);
        return found.st_mode & 0777U;
    }

    /// What is raised to an ordinary user; the administrator is stopped by no rights.
    static RaisedError AsNobody(const std::function<void()>& action) {
        constexpr uid_t kNobody = 65534;
        const uid_t before = ::geteuid();
        EXPECT_TRUE(before != 0 || ::seteuid(kNobody) == 0);
        const RaisedError failure = FailureOf(action);
        EXPECT_EQ(::seteuid(before), 0);
        return failure;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(HospitalPlace, AnOrdinaryFileWillDo) {
    Make(Path(), 0600);
    EXPECT_EQ(FailureOf([this] { RequireOrdinaryFile(Path()); }).number, 0);
}

TEST_F(HospitalPlace, NothingIsError53) {
    EXPECT_EQ(FailureOf([this] { RequireOrdinaryFile(Path()); }).number, RunTime::kFileNotFound);
}

TEST_F(HospitalPlace, APipeAFolderAndADeviceAreNoHospital) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(Path()).constData(), 0600), 0);
    for (const QString& path : {Path(), folder.path(), u"/dev/zero"_s}) {
        const RaisedError failure = FailureOf([&path] { RequireOrdinaryFile(path); });
        EXPECT_EQ(failure.number, 5171) << path.toStdString();
        EXPECT_TRUE(failure.text.contains(u"a folder, a pipe or a device"_s)) << failure.text.toStdString();
    }
}

TEST_F(HospitalPlace, ALinkIsFollowedToTheFileWhereverItStands) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"there"_s));
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"here"_s));
    const QString real = folder.filePath(u"there/hospital.db"_s);
    EXPECT_EQ(RealPath(real), real) << "not there yet";
    Make(real, 0600);
    ASSERT_TRUE(QFile::link(real, folder.filePath(u"here/link.db"_s)));
    ASSERT_TRUE(QFile::link(folder.filePath(u"there"_s), folder.filePath(u"linked"_s)));
    EXPECT_EQ(RealPath(real), real);
    EXPECT_EQ(RealPath(folder.filePath(u"here/link.db"_s)), real);
    EXPECT_EQ(RealPath(folder.filePath(u"linked/hospital.db"_s)), real);
    EXPECT_EQ(RealPath(folder.filePath(u"linked/other.db"_s)), folder.filePath(u"there/other.db"_s))
        << "a file that is not there yet";
    EXPECT_EQ(RealPath(folder.filePath(u"nowhere/hospital.db"_s)), folder.filePath(u"nowhere/hospital.db"_s));
}

TEST_F(HospitalPlace, TheHomeFolderItselfIsNoPlace) {
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(folder.path()));
    const RaisedError inHome = FailureOf([this] { RequireFolderOfItsOwn(Path()); });
    const RaisedError below = FailureOf([this] { RequireFolderOfItsOwn(folder.filePath(u"share/h.db"_s)); });
    qputenv("HOME", home);
    EXPECT_EQ(inHome.number, 5120);
    EXPECT_TRUE(inHome.text.contains(u"home folder"_s)) << inHome.text.toStdString();
    EXPECT_EQ(below.number, 0);
}

TEST_F(HospitalPlace, AFileOnANetworkDriveIsRefusedInWords) {
    QString asked;
    const auto fileSystem = FileSystemSeam().Replace([&asked](const QString& path) {
        asked = path;
        return QByteArray("nfs4");
    });
    const RaisedError failure = FailureOf([this] { RequireLocalDisk(Path()); });
    EXPECT_EQ(asked, Path());
    EXPECT_EQ(failure.number, 5120);
    EXPECT_TRUE(failure.text.contains(u"network drive (nfs4)"_s)) << failure.text.toStdString();
}

TEST_F(HospitalPlace, ThisMachinesDiskWillDo) {
    EXPECT_EQ(FailureOf([this] { RequireLocalDisk(Path()); }).number, 0);
}

TEST_F(HospitalPlace, KnowsTheFileSystemsOfOtherMachines) {
    for (const char* kind :
         {"nfs",         "nfs4",         "cifs",   "smb3",     "afs",        "ceph",
          "lustre",      "gpfs",         "beegfs", "orangefs", "pvfs2",      "gfs2",
          "ocfs2",       "vboxsf",       "prl_fs", "vmhgfs",   "fuse.sshfs", "fuse.vmhgfs-fuse",
          "fuse.rclone", "fuse.anything"})
        EXPECT_TRUE(IsNetworkFileSystem(kind)) << kind;
    for (const char* kind : {"ext4", "xfs", "btrfs", "overlay", "tmpfs", "ntfs3", "vfat", "fuseblk",
                             "fuse.fuse-overlayfs", "9p", "virtiofs", ""})
        EXPECT_FALSE(IsNetworkFileSystem(kind)) << kind;
}

TEST_F(HospitalPlace, AFileThatIsMadeIsItsOwnersWhateverTheProcessLetsOthersDo) {
    const mode_t before = ::umask(0);
    MakePrivateFile(Path());
    ::umask(before);
    EXPECT_EQ(ModeOf(Path()), 0600U);
    EXPECT_EQ(FailureOf([this] { MakePrivateFile(Path()); }).number, 5120)
        << "one that is there is not taken over";
}

TEST_F(HospitalPlace, AFileFoundWiderIsNarrowedWithItsLogAndItsIndex) {
    for (const QString& suffix : {QString(), u"-wal"_s, u"-shm"_s})
        Make(Path() + suffix, 0664);
    Make(Path() + u".txt"_s, 0664);
    KeepPrivate(Path());
    for (const QString& suffix : {QString(), u"-wal"_s, u"-shm"_s})
        EXPECT_EQ(ModeOf(Path() + suffix), 0600U) << suffix.toStdString();
    EXPECT_EQ(ModeOf(Path() + u".txt"_s), 0664U) << "no file of the hospital's";
}

TEST_F(HospitalPlace, WhatIsNoFileKeepsItsRights) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(Path()).constData(), 0600), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(Path()).constData(), 0644), 0);
    ASSERT_TRUE(QDir().mkdir(Path() + u"-wal"_s));
    ASSERT_EQ(::chmod(QFile::encodeName(Path() + u"-wal"_s).constData(), 0755), 0);
    KeepPrivate(Path());
    EXPECT_EQ(ModeOf(Path()), 0644U) << "a pipe";
    EXPECT_EQ(ModeOf(Path() + u"-wal"_s), 0755U) << "a folder";
}

TEST_F(HospitalPlace, WhatIsReadOnlyForItsOwnerStaysSo) {
    const QString place = folder.filePath(u"place"_s);
    ASSERT_TRUE(QDir().mkdir(place));
    for (const auto& [found, left] : {std::pair(0400U, 0400U), std::pair(0444U, 0400U)}) {
        Make(Path(), found);
        KeepPrivate(Path());
        EXPECT_EQ(ModeOf(Path()), left);
        QFile::remove(Path());
    }
    ASSERT_EQ(::chmod(QFile::encodeName(place).constData(), 0555), 0);
    KeepFolderPrivate(place);
    EXPECT_EQ(ModeOf(place), 0500U);
}

TEST_F(HospitalPlace, WhatCannotBeWrittenToIsToldBeforeItIsOpened) {
    struct Rights {
        mode_t folder;
        mode_t file;
        int number;
        QString text;
    };
    Make(Path(), 0600);
    for (const Rights& rights :
         {Rights{0777, 0666, 0, {}}, Rights{0777, 0444, 3906, u"because it is read-only"_s},
          Rights{0777, 0000, 0, {}}, Rights{0555, 0666, 5120, u"its folder cannot be written to"_s},
          Rights{0666, 0666, 5120, u"its folder cannot be written to"_s}}) {
        ASSERT_EQ(::chmod(QFile::encodeName(Path()).constData(), rights.file), 0);
        ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), rights.folder), 0);
        const RaisedError failure = AsNobody([this] { RequireWritable(Path()); });
        ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0700), 0);
        EXPECT_EQ(failure.number, rights.number) << std::oct << rights.folder << ' ' << rights.file;
        EXPECT_TRUE(failure.text.contains(rights.text)) << failure.text.toStdString();
    }
}

TEST_F(HospitalPlace, AnIndexWithoutItsLogIsOfSomebodyWhoseWorkIsMissing) {
    const auto failure = [this] { return FailureOf([this] { RequireLog(Path()); }); };
    Make(Path(), 0600);
    EXPECT_EQ(failure().number, 0) << "a file that was closed";
    Make(Path() + u"-wal"_s, 0600);
    EXPECT_EQ(failure().number, 0) << "a log";
    Make(Path() + u"-shm"_s, 0600);
    EXPECT_EQ(failure().number, 0) << "a log and its index";
    QFile::remove(Path() + u"-wal"_s);
    EXPECT_EQ(failure().number, 5120);
    for (const QString& name : {Path() + u"-wal"_s, Path() + u"-shm"_s})
        EXPECT_TRUE(failure().text.contains(name)) << failure().text.toStdString();
}

TEST_F(HospitalPlace, AFolderFoundWiderIsNarrowed) {
    const QString place = folder.filePath(u"place"_s);
    ASSERT_TRUE(QDir().mkdir(place));
    ASSERT_EQ(::chmod(QFile::encodeName(place).constData(), 0755), 0);
    KeepFolderPrivate(place);
    EXPECT_EQ(ModeOf(place), 0700U);
}
