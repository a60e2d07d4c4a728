#include "manual/Manual.h"
#include "support/Files.h"
#include "support/PrintQt.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 60000;

/// What manual-pdf writes, for a release of that moment in seconds since 1970.
void WriteManual(const QString& file, const QString& moment) {
    QProcess writer;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"SOURCE_DATE_EPOCH"_s, moment);
    writer.setProcessEnvironment(environment);
    writer.start(u"" TARVEN_BUILD_DIR "/manual-pdf"_s, {file});
    ASSERT_TRUE(writer.waitForFinished(kPatience));
    ASSERT_EQ(writer.exitCode(), 0) << writer.readAllStandardError().toStdString();
}

TEST(ManualPdf, HasEveryPageAndIsTheSameEachTime) {
    const QTemporaryDir folder;
    const QString first = folder.filePath(u"first.pdf"_s);
    const QString second = folder.filePath(u"second.pdf"_s);
    WriteManual(first, u"1700000000"_s);
    WriteManual(second, u"1700000000"_s);
    EXPECT_TRUE(ReadFile(first) == ReadFile(second));
    EXPECT_TRUE(ReadFile(first).contains("/CreationDate (D:20231114221320Z)"));
    QProcess reader;
    reader.start(u"pdftotext"_s, {first, u"-"_s});
    ASSERT_TRUE(reader.waitForFinished(kPatience));
    const QString words = QString::fromUtf8(reader.readAllStandardOutput()).simplified();
    for (const ManualPage& page : ManualPages())
        EXPECT_TRUE(words.contains(page.title)) << page.title.toStdString();
}

} // namespace
