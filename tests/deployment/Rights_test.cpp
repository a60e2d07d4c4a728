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

TEST(Rights, AreTheseAndNoOthers) {
    static const QRegularExpression statement(
        u"^USE (\\w+);|^GRANT ([\\w, ]+) ON dbo\\.(\\w+) TO tarven_hemodialysis;$"_s);
    QStringList granted;
    QString database;
    for (const QString& line :
         Read(QStringLiteral(TARVEN_SOURCE_DIR "/tools/sqlserver/rights.sql")).split(u'\n')) {
        if (line.isEmpty() || line == u"GO"_s || line.startsWith(u"--"_s))
            continue;
        const auto match = statement.match(line);
        ASSERT_TRUE(match.hasMatch()) << line.toStdString();
        if (match.hasCaptured(3))
            granted.append(u"%1.%2 %3"_s.arg(database, match.captured(3), match.captured(2)));
        else
            database = match.captured(1);
    }
    granted.sort();
    EXPECT_EQ(granted, (QStringList{
                           u"BILLING.tbAssessmentNum SELECT, UPDATE"_s,
                           u"BILLING.tbCashAssessment SELECT"_s,
                           u"Clinical_Area.tbEarCareChargePrint SELECT, DELETE"_s,
                           u"Clinical_Area.tbEarCareChargeSlip SELECT, UPDATE"_s,
                           u"HEMODIALYSIS.tbHemodialysisResultEntry SELECT"_s,
                           u"HEMODIALYSIS.tbhemopackage SELECT"_s,
                           u"INVENTORY.tbInvMaster SELECT"_s,
                           u"INVENTORY.tbInvStockCard SELECT"_s,
                           u"PASSWORD.tbPasswordDept SELECT"_s,
                           u"PASSWORD.tbPasswordMain SELECT"_s,
                           u"PATIENT_DATA.tbhospitalInfo SELECT"_s,
                           u"PATIENT_DATA.tbmaster SELECT"_s,
                           u"PATIENT_DATA.tboutpatient SELECT"_s,
                           u"PATIENT_DATA.tbpatient SELECT"_s,
                           u"build_file.tbCoAddress SELECT"_s,
                           u"build_file.tbCoCivilStatus SELECT"_s,
                           u"build_file.tbCoCompany SELECT"_s,
                           u"build_file.tbCoDoctor SELECT"_s,
                           u"build_file.tbCoOtherRevenue SELECT"_s,
                           u"build_file.tbCoRoom SELECT"_s,
                           u"build_file.tbCoStation SELECT"_s,
                           u"build_file.tbcoultraexam SELECT"_s,
                       }));
}
