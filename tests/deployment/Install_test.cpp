#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// What `cmake --install` leaves behind, in a folder that stands in for the machine's root.
TEST(Install, HasAProgramFolderAndACommandThatLeadsThere) {
    const QTemporaryDir root;
    QProcess install;
    install.start(u"cmake"_s, {u"--install"_s, QStringLiteral(TARVEN_BUILD_DIR), u"--prefix"_s, root.path()});
    ASSERT_TRUE(install.waitForFinished());
    ASSERT_EQ(install.exitCode(), 0) << install.readAllStandardError().toStdString();
    const QString folder = root.filePath(u"lib/tarven/hemodialysis"_s);
    for (const QString& program : {u"tarven-hemodialysis"_s, u"tarven-check"_s, u"tarven-report"_s}) {
        const QString command = root.filePath(u"bin/"_s + program);
        EXPECT_TRUE(QFileInfo(command).isSymLink());
        EXPECT_EQ(QFileInfo(command).canonicalFilePath(),
                  QFileInfo(folder + u'/' + program).canonicalFilePath());
        EXPECT_TRUE(QFileInfo(command).isExecutable());
    }
    EXPECT_EQ(QDir(folder + u"/Reports"_s).entryList(QDir::Files),
              QDir(QStringLiteral(TARVEN_SOURCE_DIR) + u"/Reports"_s).entryList(QDir::Files));
    for (const QString& beside : {u"/ChargeSlip.rpt"_s, u"/RadioConsultation.rpt"_s})
        EXPECT_TRUE(QFileInfo::exists(folder + beside)) << beside.toStdString();
    const QString documents = root.filePath(u"share/doc/tarven_hemodialysis"_s);
    for (const QString& file : {u"/docs/manual/README.md"_s, u"/examples/tarvenaux.ini"_s, u"/LICENSE"_s})
        EXPECT_TRUE(QFileInfo::exists(documents + file)) << file.toStdString();
}

} // namespace
