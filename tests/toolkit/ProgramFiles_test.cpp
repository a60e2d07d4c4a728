#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/ProgramDirectoryAt.h"
#include "toolkit/ProgramFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void WriteFile(const QString& path) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

struct PathCase {
    const char* name;
    /// A file below the program's directory, and how the system asks for it.
    QString file;
    QString asked;
};

class ResolveFileTest : public testing::TestWithParam<PathCase> {
  protected:
    QTemporaryDir folder;
};

TEST_P(ResolveFileTest, FindsTheFile) {
    const auto directory = ProgramDirectoryAt(folder.path());
    WriteFile(folder.path() + GetParam().file);
    EXPECT_EQ(ResolveFile(ProgramDirectory() + GetParam().asked), folder.path() + GetParam().file);
}

TEST_P(ResolveFileTest, FindsItBelowAProgramDirectoryThatBearsABackslash) {
    const QString path = folder.path() + u"/ward\\Hemo Dialysis"_s;
    const auto directory = ProgramDirectoryAt(path);
    WriteFile(path + GetParam().file);
    EXPECT_EQ(ResolveFile(ProgramDirectory() + GetParam().asked), path + GetParam().file);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ResolveFileTest,
    testing::Values(
        PathCase{"Slash", u"/Reports/Charge_Slip.RPT"_s, u"/Reports/Charge_Slip.RPT"_s},
        PathCase{"Backslash", u"/tarvenaux.ini"_s, u"\\tarvenaux.ini"_s},
        PathCase{"BothSlashes", u"/Reports/Charge_Slip.RPT"_s, u"\\Reports/Charge_Slip.RPT"_s},
        PathCase{"LetterCaseOfTheFile", u"/Reports/Charge_Slip.RPT"_s, u"/Reports/charge_slip.rpt"_s},
        PathCase{"LetterCaseOfTheFolder", u"/Reports/Charge_Slip.RPT"_s, u"/REPORTS/Charge_Slip.RPT"_s},
        PathCase{"EverythingElse", u"/Reports/Charge_Slip.RPT"_s, u"\\rePorts\\CHARGE_slip.rpt"_s},
        PathCase{"Hidden", u"/.Settings"_s, u"\\.settings"_s}),
    CaseName());

class ProgramFiles : public testing::Test {
  protected:
    QTemporaryDir folder;
    const Seam<QString()>::Replacement directory = ProgramDirectoryAt(folder.path());
};

TEST_F(ProgramFiles, AnExactNameStandsBeforeOneInAnotherLetterCase) {
    WriteFile(folder.filePath(u"A.txt"_s));
    WriteFile(folder.filePath(u"a.txt"_s));
    EXPECT_EQ(ResolveFile(folder.path() + u"\\a.txt"_s), folder.filePath(u"a.txt"_s));
    EXPECT_EQ(ResolveFile(folder.path() + u"\\A.txt"_s), folder.filePath(u"A.txt"_s));
}

TEST_F(ProgramFiles, AFileThatDoesNotExistKeepsTheNameAskedForInTheFolderThatDoes) {
    QDir(folder.path()).mkdir(u"Reports"_s);
    EXPECT_EQ(ResolveFile(folder.path() + u"\\tarvenaux.ini"_s), folder.filePath(u"tarvenaux.ini"_s));
    EXPECT_EQ(ResolveFile(folder.path() + u"\\reports\\None.RPT"_s), folder.filePath(u"Reports/None.RPT"_s));
}

TEST_F(ProgramFiles, APathFromTheWorkingDirectoryStaysOne) {
    const QString before = QDir::currentPath();
    const auto back = qScopeGuard([&] { QDir::setCurrent(before); });
    QDir::setCurrent(folder.path());
    WriteFile(folder.filePath(u"Reports/Charge_Slip.RPT"_s));
    EXPECT_EQ(ResolveFile(u"tarvenaux.ini"_s), u"tarvenaux.ini"_s);
    EXPECT_EQ(ResolveFile(u"none\\tarvenaux.ini"_s), u"none/tarvenaux.ini"_s);
    EXPECT_EQ(ResolveFile(u"reports\\charge_slip.rpt"_s), u"Reports/Charge_Slip.RPT"_s);
    EXPECT_EQ(ResolveFile(QString()), QString());
}

TEST_F(ProgramFiles, AFolderWhoseNameBeginsLikeTheProgramsIsAnother) {
    const auto hemo = ProgramDirectoryAt(folder.filePath(u"Hemo"_s));
    WriteFile(folder.filePath(u"Hemo/2/Notes.txt"_s));
    WriteFile(folder.filePath(u"Hemo2/Letters.txt"_s));
    EXPECT_EQ(ResolveFile(folder.filePath(u"Hemo2/notes.txt"_s)), folder.filePath(u"Hemo2/notes.txt"_s));
    EXPECT_EQ(ResolveFile(folder.filePath(u"Hemo2/letters.txt"_s)), folder.filePath(u"Hemo2/Letters.txt"_s));
    EXPECT_EQ(ResolveFile(folder.filePath(u"hemo2\\letters.txt"_s)), folder.filePath(u"Hemo2/Letters.txt"_s));
}

TEST_F(ProgramFiles, TheDirectoryIsTheProgramsOwn) {
    EXPECT_EQ(ProgramDirectory(), folder.path());
    const auto own = ProgramDirectorySeam().Replace(ProgramDirectorySeam().Own());
    EXPECT_EQ(ProgramDirectory(), QCoreApplication::applicationDirPath());
    EXPECT_FALSE(ProgramDirectory().endsWith(u'/'));
}

TEST_F(ProgramFiles, TheDirectoryIsAnotherDepartmentsThatTheEnvironmentNames) {
    const auto own = ProgramDirectorySeam().Replace(ProgramDirectorySeam().Own());
    qputenv("TARVEN_FOLDER", QFile::encodeName(folder.path() + u'/'));
    EXPECT_EQ(ProgramDirectory(), folder.path());
    EXPECT_EQ(ResolveFile(ProgramDirectory() + u"\\letters.txt"_s), folder.path() + u"/letters.txt"_s);
    qunsetenv("TARVEN_FOLDER");
}

TEST(FileErrorTest, NamesThePathAndTheReasonWhereThereIsOne) {
    EXPECT_EQ(FileError(u"/ward/a.txt"_s).Number(), 75);
    EXPECT_EQ(FileError(u"/ward/a.txt"_s).Description(), u"Path/File access error: /ward/a.txt"_s);
    EXPECT_EQ(FileError(u"/ward/a.txt"_s, u"Is a directory"_s).Description(),
              u"Path/File access error: /ward/a.txt (Is a directory)"_s);
}

} // namespace
