#include "components/shared.h"
#include "shell/frmSetup.h"
#include "support/CaseName.h"
#include "support/FakeWorkspace.h"
#include "support/Files.h"
#include "support/ScreenTest.h"
#include "toolkit/Screens.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

class frmSetupTest : public ScreenTest {
  protected:
    frmSetupTest() {
        gIniPath = programDirectory.path() + u"\\tarvenaux.ini"_s;
        Write("DeptCode = HC\nDeptDesc = HEMODIALYSIS\nOther = 1\n");
        Activate(workspace);
    }

    QString Path() const { return programDirectory.filePath(u"tarvenaux.ini"_s); }

    void Write(const QByteArray& content) const { WriteFile(programDirectory, u"tarvenaux.ini"_s, content); }
    QByteArray Content() const { return ReadFile(Path()); }

    frmSetup& Open() const {
        auto& screen = Screens::Get<frmSetup>();
        screen.Show();
        return screen;
    }

    FakeWorkspace workspace;
};

TEST_F(frmSetupTest, ShowsWhatTheFileHolds) {
    const frmSetup& screen = Open();
    EXPECT_EQ(Find<QLineEdit>(screen, "txtDeptCode").text(), u"HC"_s);
    EXPECT_EQ(Find<QLineEdit>(screen, "txtDeptDesc").text(), u"HEMODIALYSIS"_s);
}

TEST_F(frmSetupTest, AnAbsentKeyShowsZero) {
    Write("DeptDesc =\n");
    const frmSetup& screen = Open();
    EXPECT_EQ(Find<QLineEdit>(screen, "txtDeptCode").text(), u"0"_s);
    EXPECT_EQ(Find<QLineEdit>(screen, "txtDeptDesc").text(), QString());
}

TEST_F(frmSetupTest, OKWritesExactlyTwoLinesAndClosesTheScreen) {
    const frmSetup& screen = Open();
    Find<QLineEdit>(screen, "txtDeptCode").setText(u"LB"_s);
    Find<QLineEdit>(screen, "txtDeptDesc").setText(u"LABORATORY"_s);
    Click(Find<QPushButton>(screen, "cmdOK"));
    EXPECT_EQ(Content(), "DeptCode = LB\nDeptDesc = LABORATORY\n");
    EXPECT_FALSE(Screens::IsLoaded<frmSetup>());
}

TEST_F(frmSetupTest, BlankFieldsAreWrittenAsSuch) {
    const frmSetup& screen = Open();
    Find<QLineEdit>(screen, "txtDeptCode").clear();
    Find<QLineEdit>(screen, "txtDeptDesc").clear();
    Click(Find<QPushButton>(screen, "cmdOK"));
    EXPECT_EQ(Content(), "DeptCode = \nDeptDesc = \n");
}

TEST_F(frmSetupTest, TheRunningProgramKeepsItsDepartment) {
    gDeptCode = u"HC"_s;
    gDeptDesc = u"HEMODIALYSIS"_s;
    const frmSetup& screen = Open();
    Find<QLineEdit>(screen, "txtDeptCode").setText(u"LB"_s);
    Click(Find<QPushButton>(screen, "cmdOK"));
    EXPECT_EQ(gDeptCode, u"HC"_s);
    EXPECT_EQ(gDeptDesc, u"HEMODIALYSIS"_s);
}

TEST_F(frmSetupTest, CancelLeavesTheFileUntouched) {
    const QByteArray before = Content();
    const frmSetup& screen = Open();
    Find<QLineEdit>(screen, "txtDeptCode").setText(u"LB"_s);
    Click(Find<QPushButton>(screen, "cmdCancel"));
    EXPECT_EQ(Content(), before);
    EXPECT_FALSE(Screens::IsLoaded<frmSetup>());
}

TEST_F(frmSetupTest, TheSelectButtonAndTheCheckBoxHaveNoEffect) {
    const QByteArray before = Content();
    const frmSetup& screen = Open();
    Click(Find<QPushButton>(screen, "cmdSelDepartment"));
    Find<QCheckBox>(screen, "chkOneInstance").setChecked(true);
    EXPECT_EQ(Find<QLineEdit>(screen, "txtDeptCode").text(), u"HC"_s);
    EXPECT_EQ(Content(), before);
    Click(Find<QPushButton>(screen, "cmdOK"));
    EXPECT_EQ(Content(), "DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
    EXPECT_FALSE(Find<QCheckBox>(Open(), "chkOneInstance").isChecked());
}

TEST_F(frmSetupTest, AFailingSaveTellsWhyAndKeepsTheScreenOpen) {
    const frmSetup& screen = Open();
    QFile::remove(Path());
    QDir(programDirectory.path()).mkdir(u"tarvenaux.ini"_s);
    messages.Expect({.text = u"Path/File access error: "_s + Path() +
                             u" (Is a directory)Cannot Save. You may not have rights. "_s});
    Click(Find<QPushButton>(screen, "cmdOK"));
    EXPECT_EQ(messages.Shown().size(), 1U);
    EXPECT_TRUE(Screens::IsLoaded<frmSetup>());
    EXPECT_TRUE(screen.isVisible());
}

/// While it lives no file grows beyond that size, as on a full disk.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes)
        : mSignalBefore(std::signal(SIGXFSZ, SIG_IGN)) {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &mBefore), 0);
        const rlimit limit = {bytes, mBefore.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &mBefore);
        std::signal(SIGXFSZ, mSignalBefore);
    }

  private:
    void (*mSignalBefore)(int);
    rlimit mBefore{};
};

struct FullDiskCase {
    const char* name;
    rlim_t bytes;
    QByteArray left;
};

class FullDisk : public frmSetupTest, public testing::WithParamInterface<FullDiskCase> {};

TEST_P(FullDisk, FailsTheSaveAfterTheFileWasEmptied) {
    const frmSetup& screen = Open();
    Find<QLineEdit>(screen, "txtDeptCode").setText(u"LB"_s);
    messages.Expect({.text = u"Path/File access error: "_s + Path() +
                             u" (File too large)Cannot Save. You may not have rights. "_s});
    {
        const FileSizeLimit limit(GetParam().bytes);
        Click(Find<QPushButton>(screen, "cmdOK"));
    }
    EXPECT_EQ(messages.Shown().size(), 1U);
    EXPECT_EQ(Content(), GetParam().left);
    EXPECT_TRUE(Screens::IsLoaded<frmSetup>());
    EXPECT_TRUE(screen.isVisible());
}

INSTANTIATE_TEST_SUITE_P(Sizes, FullDisk,
                         testing::Values(FullDiskCase{"NoRoomAtAll", 0, ""},
                                         FullDiskCase{"RoomForTheFirstLine", 14, "DeptCode = LB\n"}),
                         CaseName());

TEST_F(frmSetupTest, AFileThatCannotBeReadEndsTheProgram) {
    gIniPath = programDirectory.path();
    EXPECT_THROW(Screens::Get<frmSetup>(), RunTimeError);
}

} // namespace
