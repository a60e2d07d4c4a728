#include "gateway/embedded/HospitalPlace.h"
#include "gateway/GatewayTexts.h"
#include "support/PrintQt.h"
#include "text/RunTimeError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class HospitalPlace : public testing::Test {
  protected:
    ~HospitalPlace() override { SetFileSystemOf({}); }

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
        const Failure failure = FailureOf([&path] { RequireOrdinaryFile(path); });
        EXPECT_EQ(failure.number, 5171) << path.toStdString();
        EXPECT_TRUE(failure.text.contains(u"a folder, a pipe or a device"_s)) << failure.text.toStdString();
    }
}

TEST_F(HospitalPlace, AFileOnANetworkDriveIsRefusedInWords) {
    QString asked;
    SetFileSystemOf([&asked](const QString& path) {
        asked = path;
        return QByteArray("nfs4");
    });
    const Failure failure = FailureOf([this] { RequireLocalDisk(Path()); });
    EXPECT_EQ(asked, Path());
    EXPECT_EQ(failure.number, 5120);
    EXPECT_TRUE(failure.text.contains(u"network drive (nfs4)"_s)) << failure.text.toStdString();
}

TEST_F(HospitalPlace, ThisMachinesDiskWillDo) {
    EXPECT_EQ(FailureOf([this] { RequireLocalDisk(Path()); }).number, 0);
}

TEST_F(HospitalPlace, KnowsTheFileSystemsOfOtherMachines) {
    for (const char* kind : {"nfs", "nfs4", "cifs", "smb3", "fuse.sshfs", "ceph"})
        EXPECT_TRUE(IsNetworkFileSystem(kind)) << kind;
    for (const char* kind : {"ext4", "xfs", "btrfs", "overlay", "tmpfs", "ntfs3", "vfat", "fuseblk", ""})
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

TEST_F(HospitalPlace, AFileThatIsReadOnlyForItsOwnerStaysSo) {
    Make(Path(), 0400);
    KeepPrivate(Path());
    EXPECT_EQ(ModeOf(Path()), 0400U);
}

TEST_F(HospitalPlace, AFolderFoundWiderIsNarrowed) {
    const QString place = folder.filePath(u"place"_s);
    ASSERT_TRUE(QDir().mkdir(place));
    ASSERT_EQ(::chmod(QFile::encodeName(place).constData(), 0755), 0);
    KeepFolderPrivate(place);
    EXPECT_EQ(ModeOf(place), 0700U);
}
