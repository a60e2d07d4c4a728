#include "OutputGround.h"
#include "report/output/PdfJob.h"

#include <QProcess>
#include <QRegularExpression>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

TEST(PdfJob, WritesEveryPageWithItsTexts) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"report.pdf"_s);
    EXPECT_EQ(PdfJob(*NumberedReport(5), u"Charge Slip"_s, file).Finish(), QString());
    QStringList pages;
    for (const QString& page : TextOfPdf(file).split(u'\f'))
        pages << page.simplified();
    EXPECT_THAT(pages, ElementsAre(u"Señora 1 Señora 2"_s, u"Señora 3 Señora 4"_s, u"Señora 5"_s, QString()));
}

TEST(PdfJob, KeepsPaperAndTitle) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"report.pdf"_s);
    PdfJob(*NumberedReport(1), u"Charge Slip"_s, file).Finish();
    QProcess process;
    process.start(u"pdfinfo"_s, {file});
    process.waitForFinished();
    const QString told = QString::fromUtf8(process.readAllStandardOutput());
    EXPECT_TRUE(told.contains(u"Charge Slip"_s)) << told.toStdString();
    EXPECT_TRUE(told.contains(QRegularExpression(u"Page size: +283(\\.\\d+)? x 283"_s)))
        << told.toStdString();
}

TEST(PdfJob, TellsOfAFolderThatIsNotThere) {
    EXPECT_FALSE(PdfJob(*NumberedReport(1), {}, u"/no/such/folder/report.pdf"_s).Finish().isEmpty());
}

TEST(PdfJob, TellsOfAFullDiskAndLeavesTheFileThatWasThere) {
    const QTemporaryDir folder;
    const QString file = WriteFile(folder, u"report.pdf"_s, "before");
    {
        const FullDisk full;
        EXPECT_EQ(PdfJob(*NumberedReport(1), {}, file).Finish(), u"The disk is full."_s);
    }
    EXPECT_EQ(ReadFile(file), "before");
}
