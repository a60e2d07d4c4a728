#include "support/PrintQt.h"
#include "workstation/Workstation.h"

#include <QDir>
#include <QLocale>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

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

TEST_F(RoadOfTheReports, OfAPeriodOpensEachOneUnderItsTitle) {
    const Run run = RunScript(u"period-reports"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString() << testing::PrintToString(run.told);
    EXPECT_THAT(run.told,
                ElementsAre(u"Audit Report"_s, u"Out-Patient Income Report"_s, u"In-Patient Income Report"_s,
                            u"Cash Patient Income Report"_s, u"Monthly Statistical Report"_s,
                            u"In-Patient Company Report"_s, u"Out-Patient Company Report"_s));
    for (const auto& [name, text] : Saved()) {
        EXPECT_TRUE(text.startsWith(u"SAN RAFAEL GENERAL HOSPITAL"_s)) << name.toStdString();
        EXPECT_TRUE(text.contains(u"Printed by NURSE, "_s)) << name.toStdString();
        EXPECT_TRUE(text.contains(u"HEMODIALYSIS"_s) || text.contains(u"PERSONAL ACCOUNT"_s))
            << "no rows in " << name.toStdString();
    }
    EXPECT_FALSE(Saved().empty());
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
        QueryOne(u"select count(*) from PATIENT_DATA..tbpatient where DcrDate is null"_s) +
        u" patients in the hospital"_s;
    ASSERT_FALSE(Saved().empty());
    for (const auto& [name, text] : Saved())
        EXPECT_TRUE(text.contains(patients)) << name.toStdString();
}
