#include "report/ReportEngine.h"
#include "support/CaseName.h"
#include "support/report/ReportFixture.h"

#include <QDir>

#include <gtest/gtest.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

struct Spelling {
    std::string name;
    QString path;
};

class TemplatePath : public testing::TestWithParam<Spelling> {
  protected:
    TemplatePath() {
        QDir(folder.path()).mkdir(u"Reports"_s);
        WriteFile(folder, u"Reports/Charge_Slip.RPT"_s, SmallTemplate({}));
    }

    QTemporaryDir folder;
};

} // namespace

TEST_P(TemplatePath, IsFound) {
    const auto report = ReportEngine().OpenReport(folder.path() + GetParam().path, 1);
    EXPECT_EQ(report->Tables().size(), 1U);
    EXPECT_EQ(report->File(), folder.path() + u"/Reports/Charge_Slip.RPT"_s);
}

INSTANTIATE_TEST_SUITE_P(Spellings, TemplatePath,
                         testing::Values(Spelling{"Slashes", u"/Reports/Charge_Slip.RPT"_s},
                                         Spelling{"Backslashes", u"\\Reports\\Charge_Slip.RPT"_s},
                                         Spelling{"OtherLetterCase", u"\\REPORTS/charge_slip.rpt"_s}),
                         CaseName());

TEST(ReportEngineTest, RaisesFileNotFoundWithThePath) {
    try {
        ReportEngine().OpenReport(u"/no/such/Slip.RPT"_s, 1);
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 53);
        EXPECT_EQ(error.Description(), u"File not found: /no/such/Slip.RPT"_s);
    }
}

TEST(ReportEngineTest, TakesAFolderForNoFile) {
    const QTemporaryDir folder;
    EXPECT_TRUE(
        TextOfFailure([&] { ReportEngine().OpenReport(folder.path(), 1); }).startsWith(u"File not found"_s));
}

TEST(ReportEngineTest, RaisesPathFileAccessForATemplateThatMayNotBeRead) {
    const QTemporaryDir folder;
    const QString file = WriteFile(folder, u"Slip.RPT"_s, SmallTemplate({}));
    QFile::setPermissions(file, {});
    // Root would be stopped by no file's rights, and the lowest user by the folder's.
    QFile::setPermissions(folder.path(), QFile::Permissions::fromInt(0x7777));
    constexpr uid_t kNobody = 65534;
    const uid_t before = geteuid();
    ASSERT_TRUE(before != 0 || seteuid(kNobody) == 0);
    int number = 0;
    QString text;
    try {
        ReportEngine().OpenReport(file, 1);
    } catch (const RunTimeError& error) {
        number = error.Number();
        text = error.Description();
    }
    ASSERT_EQ(seteuid(before), 0);
    EXPECT_EQ(number, 75);
    EXPECT_EQ(text, u"Path/File access error: "_s + file);
}

TEST(ReportEngineTest, NamesFileAndLineOfAMistake) {
    const QTemporaryDir folder;
    const QString file = WriteFile(folder, u"Slip.RPT"_s, "<report paper=\"A4\">\n<band/>\n</report>");
    EXPECT_EQ(TextOfFailure([&] { ReportEngine().OpenReport(file, 1); }),
              file + u", line 2: The element <band> does not belong here."_s);
}
