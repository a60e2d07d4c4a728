#include "support/PrintQt.h"
#include "workstation/Workstation.h"

#include <QDate>
#include <QDir>
#include <QLocale>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::Key;

// Every report of the department, from the menu to its pages, without the mouse.

class RoadOfTheReports : public Workstation {
  protected:
    /// The words of the PDFs that were saved, by their file names.
    std::map<QString, QString> Saved() const {
        std::map<QString, QString> texts;
        const QDir folder(ProgramFile(QString()));
        for (const QString& name : folder.entryList({u"*.pdf"_s})) {
            QProcess reader;
            reader.start(u"pdftotext"_s, {u"-layout"_s, folder.filePath(name), u"-"_s});
            reader.waitForFinished();
            texts[name] = QString::fromUtf8(reader.readAllStandardOutput()).simplified();
        }
        return texts;
    }
};

namespace {

struct PeriodReport {
    QString title;
    QString file; ///< how the file's name begins
    QString head;
};

/// A report of a period is saved under its name and its days: "Audit Report 2026-09-23 to 2026-11-23.pdf".
QString FileOf(const QString& report, const QString& period) {
    QStringList days = period.split(u" to "_s);
    for (QString& day : days)
        day = QDate::fromString(day, u"MM/dd/yyyy"_s).toString(Qt::ISODate);
    return report + u' ' + days.join(u" to "_s) + u".pdf"_s;
}

} // namespace

TEST_F(RoadOfTheReports, OfAPeriodOpensEachOneUnderItsTitle) {
    const Run run = RunScript(u"period-reports"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString() << testing::PrintToString(run.told);
    const std::vector<PeriodReport> reports = {
        {u"Audit Report"_s, u"Audit Report"_s, u"AUDIT REPORT"_s},
        {u"Out-Patient Income Report"_s, u"OUT-PATIENT Income Report"_s, u"OUT-PATIENT INCOME REPORT"_s},
        {u"In-Patient Income Report"_s, u"IN-PATIENT Income Report"_s, u"IN-PATIENT INCOME REPORT"_s},
        {u"Cash Patient Income Report"_s, u"Cash Income Report"_s, u"CASH PATIENT INCOME REPORT"_s},
        {u"Monthly Statistical Report"_s, u"Monthly Statistical Report"_s, u"MONTHLY STATISTICAL REPORT"_s},
        {u"In-Patient Company Report"_s, u"IN-PATIENT Company Report"_s, u"IN-PATIENT COMPANY REPORT"_s},
        {u"Out-Patient Company Report"_s, u"OUT-PATIENT Company Report"_s, u"OUT-PATIENT COMPANY REPORT"_s}};
    ASSERT_EQ(size_t(run.told.size()), 2 * reports.size()) << testing::PrintToString(run.told);
    std::map<QString, QString> saved = Saved();
    EXPECT_EQ(saved.size(), reports.size());
    for (size_t i = 0; i < reports.size(); ++i) {
        const QString& period = run.told[qsizetype(2 * i)];
        EXPECT_EQ(run.told[qsizetype(2 * i + 1)], reports[i].title);
        const QString file = FileOf(reports[i].file, period);
        const QString text = saved[file];
        const std::string name = file.toStdString();
        EXPECT_TRUE(text.startsWith(u"SAN RAFAEL GENERAL HOSPITAL "_s + reports[i].head)) << name;
        EXPECT_TRUE(text.contains(period)) << name << period.toStdString();
        EXPECT_TRUE(text.contains(u"Printed by NURSE, "_s)) << name;
        EXPECT_TRUE(text.contains(u"HEMODIALYSIS"_s) || text.contains(u"PERSONAL ACCOUNT"_s))
            << "no rows in " << name;
    }
}

TEST_F(RoadOfTheReports, OfALedgerEndsInThePatientsBalance) {
    const Run run = RunScript(u"ledger"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString() << testing::PrintToString(run.told);
    ASSERT_EQ(run.told.size(), 2U);
    EXPECT_EQ(run.told[1], u"Patients Ledger!"_s);
    const QString id = run.told[0].section(u' ', 0, 0);
    ASSERT_EQ(Saved().size(), 1U);
    const QString text = Saved().begin()->second;
    EXPECT_TRUE(text.contains(id)) << text.toStdString();
    const QString balance =
        QLocale(QLocale::English)
            .toString(QueryOne(u"select sum(Amount) from BILLING..tbPatientCharges where IdNum = "
                               "'%1' and SourceDept = 'HC'"_s.arg(id))
                          .toDouble(),
                      'f', 2);
    EXPECT_TRUE(text.contains(balance + u" A cancellation"_s)) << balance.toStdString() << text.toStdString();
}

TEST_F(RoadOfTheReports, OfTheCensusListsEveryPatientInBothArrangements) {
    const Run run = RunScript(u"census"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString() << testing::PrintToString(run.told);
    EXPECT_THAT(run.told, ElementsAre(u"Census Report"_s, u"Census Report"_s));
    const QString patients =
        u"Patients in the hospital: "_s +
        QueryOne(u"select count(*) from PATIENT_DATA..tbpatient where DcrDate is null"_s);
    const std::map<QString, QString> saved = Saved();
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    EXPECT_THAT(saved, ElementsAre(Key(u"Inpatient Census "_s + today + u".pdf"_s),
                                   Key(u"Inpatient Census by Station "_s + today + u".pdf"_s)));
    for (const auto& [name, text] : saved)
        EXPECT_TRUE(text.contains(patients)) << name.toStdString();
}
