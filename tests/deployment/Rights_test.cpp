#include "support/PrintQt.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString Read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// The tables that the role may read, as "database.table" in small letters.
QSet<QString> ReadableTables() {
    static const QRegularExpression line(u"^USE (\\w+);|^GRANT SELECT.* ON dbo\\.(\\w+) TO"_s,
                                         QRegularExpression::MultilineOption);
    QSet<QString> tables;
    QString database;
    for (auto found = line.globalMatch(Read(QStringLiteral(TARVEN_SOURCE_DIR "/tools/sqlserver/rights.sql")));
         found.hasNext();) {
        const auto match = found.next();
        if (match.hasCaptured(2))
            tables.insert((database + u'.' + match.captured(2)).toLower());
        else
            database = match.captured(1);
    }
    return tables;
}

} // namespace

TEST(Rights, CoverEveryTableThatTheProgramAndItsTemplatesName) {
    static const QRegularExpression name(u"(\\w+)\\.(?:dbo)?\\.(tb\\w+)"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const QSet<QString> readable = ReadableTables();
    int seen = 0;
    for (const char* folder : {"/src", "/Reports"}) {
        QDirIterator files(QStringLiteral(TARVEN_SOURCE_DIR) + QString::fromLatin1(folder), QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            // The engine of the trial hospital names tables of its examples.
            if (path.contains(u"/src/gateway/"_s))
                continue;
            for (auto found = name.globalMatch(Read(path)); found.hasNext();) {
                const auto match = found.next();
                const QString table = (match.captured(1) + u'.' + match.captured(2)).toLower();
                EXPECT_TRUE(readable.contains(table)) << path.toStdString() << ": " << table.toStdString();
                ++seen;
            }
        }
    }
    EXPECT_GT(seen, 20);
}
