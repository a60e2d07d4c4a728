#include "components/shared.h"
#include "shell/ConfigFile.h"
#include "support/CaseName.h"
#include "support/Files.h"
#include "support/FreshVariables.h"
#include "support/PrintQt.h"
#include "text/RunTimeError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ConfigFile : public testing::Test {
  protected:
    ConfigFile() { gIniPath = folder.path() + u"\\tarvenaux.ini"_s; }
    ~ConfigFile() override { ResetShared(); }

    QString Path() const { return folder.filePath(u"tarvenaux.ini"_s); }

    void Write(const QByteArray& content) const { WriteFile(folder, u"tarvenaux.ini"_s, content); }
    QByteArray Content() const { return ReadFile(Path()); }

    static QString Read(const QString& key) {
        QString value = u"former"_s;
        ReadConfigValue(key, value);
        return value;
    }

    QTemporaryDir folder;
};

TEST_F(ConfigFile, IsMadeEmptyWhereThereIsNone) {
    EXPECT_TRUE(EnsureConfigFile());
    EXPECT_TRUE(QFile::exists(Path()));
    EXPECT_EQ(Content(), QByteArray());
}

TEST_F(ConfigFile, IsLeftAloneWhereThereIsOne) {
    Write("DeptCode = HC\n");
    EXPECT_TRUE(EnsureConfigFile());
    EXPECT_EQ(Content(), "DeptCode = HC\n");
}

TEST_F(ConfigFile, LiesBesideTheProgramUnderThatNameWhateverItsSlash) {
    EnsureConfigFile();
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"tarvenaux.ini"_s});
}

TEST_F(ConfigFile, ResettingEmptiesIt) {
    Write("DeptCode = HC\nOther = 1\n");
    ResetConfigFile();
    EXPECT_EQ(Content(), QByteArray());
}

TEST_F(ConfigFile, EachAppendAddsOneLine) {
    Write("Other=1\n");
    AppendConfigValue(u"DeptCode"_s, u"HC"_s);
    AppendConfigValue(u"DeptDesc"_s, QString());
    EXPECT_EQ(Content(), "Other=1\nDeptCode = HC\nDeptDesc = \n");
}

TEST_F(ConfigFile, AppendingMakesTheFile) {
    AppendConfigValue(u"DeptCode"_s, u"HC"_s);
    EXPECT_EQ(Content(), "DeptCode = HC\n");
}

TEST_F(ConfigFile, ItsTextIsOneBytePerCharacter) {
    ResetConfigFile();
    AppendConfigValue(u"DeptDesc"_s, u"NIÑO"_s);
    EXPECT_EQ(Content(), "DeptDesc = NI\xD1O\n");
    EXPECT_EQ(Read(u"DeptDesc"_s), u"NIÑO"_s);
}

TEST_F(ConfigFile, ACharacterThatOneByteCannotHoldIsWrittenAsAQuestionMark) {
    AppendConfigValue(u"DeptDesc"_s, u"5 € UNIT"_s);
    EXPECT_EQ(Content(), "DeptDesc = 5 ? UNIT\n");
    EXPECT_EQ(Read(u"DeptDesc"_s), u"5 ? UNIT"_s);
}

TEST_F(ConfigFile, NothingIsCached) {
    Write("DeptCode = HC\n");
    EXPECT_EQ(Read(u"DeptCode"_s), u"HC"_s);
    Write("DeptCode = LB\n");
    EXPECT_EQ(Read(u"DeptCode"_s), u"LB"_s);
}

struct ReadCase {
    const char* name;
    QByteArray content;
    QString expected;
};

class ConfigFileValue : public ConfigFile, public testing::WithParamInterface<ReadCase> {};

TEST_P(ConfigFileValue, IsThis) {
    Write(GetParam().content);
    EXPECT_EQ(Read(u"DeptCode"_s), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ConfigFileValue,
    testing::Values(
        ReadCase{"EmptyFileReadsAsZero", "", u"0"_s},
        ReadCase{"AbsentKeyReadsAsZero", "DeptDesc = HEMODIALYSIS\n", u"0"_s},
        ReadCase{"Plain", "DeptCode = HC\n", u"HC"_s}, ReadCase{"WithoutBlanks", "DeptCode=HC\n", u"HC"_s},
        ReadCase{"UpperCaseKey", "DEPTCODE=HC\n", u"HC"_s},
        ReadCase{"LowerCaseKey", "deptcode = HC\n", u"HC"_s},
        ReadCase{"ValueKeepsItsLetterCase", "DeptCode = hC\n", u"hC"_s},
        ReadCase{"ManyBlanks", "   DeptCode   =    HC   \n", u"HC"_s},
        ReadCase{"BlanksInsideTheValue", "DeptCode = H C\n", u"H C"_s},
        ReadCase{"ATabIsNoBlank", "DeptCode = \tHC\n", u"\tHC"_s},
        ReadCase{"ValueWithEqualSigns", "DeptCode = H=C=1\n", u"H=C=1"_s},
        ReadCase{"NothingBehindTheEqualSign", "DeptCode =\n", QString()},
        ReadCase{"BlanksAloneBehindTheEqualSign", "DeptCode =   \n", QString()},
        ReadCase{"FirstOfTwoLinesCounts", "DeptCode = HC\nDeptCode = LB\n", u"HC"_s},
        ReadCase{"FirstOfTwoLinesCountsEvenIfEmpty", "DeptCode =\nDeptCode = LB\n", QString()},
        ReadCase{"LinesWithoutEqualSignAreSkipped", "\n[Setup]\nDeptCode\n; HC\nDeptCode = HC\n", u"HC"_s},
        ReadCase{"ACommentWithEqualSignIsALineOfItsOwnKey", ";DeptCode = LB\nDeptCode = HC\n", u"HC"_s},
        ReadCase{"QuotesBelongToTheValue", "DeptCode = \"HC\"\n", u"\"HC\""_s},
        ReadCase{"AKeyThatOnlyBeginsSo", "DeptCodes = LB\nDeptCode = HC\n", u"HC"_s},
        ReadCase{"LastLineWithoutItsEnd", "Other=1\nDeptCode = HC", u"HC"_s},
        ReadCase{"LineEndsOfAnotherSystem", "Other=1\r\nDeptCode = HC\r\n", u"HC"_s},
        ReadCase{"ACarriageReturnInsideTheLineIsKept", "DeptCode = H\rC\n", u"H\rC"_s},
        ReadCase{"OneCarriageReturnBelongsToTheLineEnd", "DeptCode = HC\r\r\n", u"HC\r"_s},
        ReadCase{"ACarriageReturnAtTheFilesEndIsKept", "DeptCode = HC\r", u"HC\r"_s}),
    CaseName());

struct FaultCase {
    const char* name;
    std::function<void()> action;
};

class ConfigFileFault : public ConfigFile, public testing::WithParamInterface<FaultCase> {
  protected:
    static void ExpectError75() {
        try {
            GetParam().action();
            FAIL() << "nothing was raised";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number(), 75);
            EXPECT_TRUE(error.Description().startsWith(u"Path/File access error"_s));
            EXPECT_TRUE(error.Description().contains(u"tarvenaux.ini"_s))
                << error.Description().toStdString();
        }
    }
};

TEST_P(ConfigFileFault, AFolderInItsPlaceRaises75) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"tarvenaux.ini"_s));
    ExpectError75();
}

TEST_P(ConfigFileFault, AFolderThatIsNotThereRaises75) {
    gIniPath = folder.path() + u"\\gone\\tarvenaux.ini"_s;
    ExpectError75();
}

INSTANTIATE_TEST_SUITE_P(Operations, ConfigFileFault,
                         testing::Values(FaultCase{"Read",
                                                   [] {
                                                       QString value;
                                                       ReadConfigValue(u"DeptCode"_s, value);
                                                   }},
                                         FaultCase{"Reset", [] { ResetConfigFile(); }},
                                         FaultCase{"Append",
                                                   [] { AppendConfigValue(u"DeptCode"_s, u"HC"_s); }}),
                         CaseName());

TEST_F(ConfigFile, MakingItBelowAFileRaises75) {
    Write("");
    gIniPath = Path() + u"\\tarvenaux.ini"_s;
    EXPECT_THROW(EnsureConfigFile(), RunTimeError);
}

TEST_F(ConfigFile, AFileThatFailsWhileItIsReadRaises75) {
    // Address 0 of a process can never be read.
    gIniPath = u"/proc/self/mem"_s;
    if (!QFile::exists(gIniPath))
        GTEST_SKIP() << "this system has no such file at hand";
    EXPECT_THROW(Read(u"DeptCode"_s), RunTimeError);
}

TEST_F(ConfigFile, AFullDiskRaises75) {
    if (!QFile::exists(u"/dev/full"_s))
        GTEST_SKIP() << "this system has no full disk at hand";
    gIniPath = u"/dev/full"_s;
    EXPECT_THROW(AppendConfigValue(u"DeptCode"_s, u"HC"_s), RunTimeError);
}

TEST_F(ConfigFile, AByteOrderMarkIsNoPartOfTheFirstKey) {
    Write("\xEF\xBB\xBF"
          "DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
    EXPECT_EQ(Read(u"DeptCode"_s), u"HC"_s);
    EXPECT_EQ(Read(u"DeptDesc"_s), u"HEMODIALYSIS"_s);
}

TEST_F(ConfigFile, AFileOfMoreThanAMegabyteIsRefusedInWords) {
    const QByteArray line = "DeptCode = HC\n";
    Write(line + QByteArray(1024 * 1024 - line.size(), 'x'));
    EXPECT_EQ(Read(u"DeptCode"_s), u"HC"_s) << "to the byte";
    Write(line + QByteArray(1024 * 1024 - line.size() + 1, 'x'));
    try {
        Read(u"DeptCode"_s);
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), RunTime::kPathFileAccess);
        EXPECT_TRUE(error.Description().contains(Path())) << error.what();
        EXPECT_TRUE(error.Description().contains(u"larger than 1 MB"_s)) << error.what();
    }
}

} // namespace
