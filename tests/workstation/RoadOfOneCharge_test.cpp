#include "support/PrintQt.h"
#include "workstation/Workstation.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

// One charge from the sign-on to the printed slip, keyed without the mouse; then the hospital is asked.

namespace {

int SlipNumber(const QString& slip) {
    return slip.mid(1).chopped(1).toInt();
}

} // namespace

class RoadOfOneCharge : public Workstation {};

TEST_F(RoadOfOneCharge, OfAnInPatientReachesHisAccountUnderTheNextSlipNumber) {
    const int counter = QueryOne(u"select ChargeSlip from Clinical_Area..tbEarCareChargeSlip"_s).toInt();
    const Run run = RunScript(u"in-patient-charge"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    const QString slip = u"H%1C"_s.arg(counter);
    // Class B: HC001 costs 3360, M0002 1017, whoever the patient is.
    EXPECT_THAT(run.told, ElementsAre(u"TARVEN HEMODIALYSIS ver.5.5.2"_s, u"patient 100284 700107"_s,
                                      u"total 11271.00"_s, u"slip "_s + slip));
    EXPECT_EQ(QueryOne(u"select ChargeSlip from Clinical_Area..tbEarCareChargeSlip"_s).toInt(), counter + 1);
    EXPECT_THAT(Query(u"select RevenueID, ItemID, Description, Quantity, Amount, SlipKind from "
                      "Clinical_Area..tbEarCareChargePrint order by PrintID"_s),
                ElementsAre(u"HC|HC001|HEMODIALYSIS TREATMENT|2|6720|O"_s,
                            u"HB|M0002|EPOETIN ALFA 4000 IU|3|3051|O"_s,
                            u"MD|D003|(PF) DR. CASTAÑEDA, LUIS||1500|O"_s));
    EXPECT_THAT(
        Query(u"select HospNum, IdNum, PatientType, RevenueID, RecordType, ItemID, Quantity, Amount, UserID, "
              "RoomID, DoctorID, DoctorName from BILLING..tbPatientCharges where RefNum = '"_s +
              slip + u"' order by ChargeID"_s),
        ElementsAre(u"100284|700107|I|HC|D|HC001|2|6720|NURSE|P306|D001|DR. BENEDICTO QUIOGUE"_s,
                    u"100284|700107|I|HB|D|M0002|3|3051|NURSE|P306|D001|DR. BENEDICTO QUIOGUE"_s,
                    u"100284|700107|I|MD|D|D003||1500|NURSE|P306|D001|DR. BENEDICTO QUIOGUE"_s));
}

TEST_F(RoadOfOneCharge, OfAnOutPatientIsPostedAsOne) {
    const Run run = RunScript(u"out-patient-charge"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    const QString slip = run.told.back().mid(5);
    EXPECT_THAT(Query(u"select PatientType, RoomID, IdNum from BILLING..tbPatientCharges where RefNum = '"_s +
                      slip + u"'"_s),
                ElementsAre(u"O|OPD|104155B"_s, u"O|OPD|104155B"_s, u"O|OPD|104155B"_s));
}

TEST_F(RoadOfOneCharge, LeavesASlipThatCanBeHandedOver) {
    const Run run = RunScript(u"in-patient-charge"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    QStringList pdfs = QDir(ProgramFile(QString())).entryList({u"*.pdf"_s});
    ASSERT_EQ(pdfs.size(), 1);
    QProcess toText;
    toText.start(u"pdftotext"_s, {u"-layout"_s, ProgramFile(pdfs.first()), u"-"_s});
    ASSERT_TRUE(toText.waitForFinished());
    const QString page = QString::fromUtf8(toText.readAllStandardOutput());
    for (const QString& part :
         {u"CHARGE SLIP"_s, run.told.back().mid(5), u"DE GUZMAN, CARMELITA PERALTA"_s, u"P306"_s,
          u"HEMODIALYSIS TREATMENT"_s, u"6,720.00"_s, u"3,051.00"_s, u"1,500.00"_s, u"11,271.00"_s})
        EXPECT_TRUE(page.contains(part)) << part.toStdString();
}

TEST_F(RoadOfOneCharge, TwiceGivesTwoNumbers) {
    const Run first = RunScript(u"in-patient-charge"_s);
    const Run second = RunScript(u"in-patient-charge"_s);
    ASSERT_EQ(first.exitCode, 0) << first.errors.toStdString();
    ASSERT_EQ(second.exitCode, 0) << second.errors.toStdString();
    EXPECT_EQ(SlipNumber(second.told.back().mid(5)), SlipNumber(first.told.back().mid(5)) + 1);
}

TEST_F(RoadOfOneCharge, WritesThePasswordNowhere) {
    const Run run = RunScript(u"in-patient-charge"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_FALSE(run.errors.contains(u"nurse"_s));
    QDirIterator files(ProgramFile(QString()), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    bool named = false;
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        // The user's name is NURSE; the password alone is in lower case.
        named |= content.contains("NURSE");
        EXPECT_FALSE(content.contains("nurse")) << file.fileName().toStdString();
    }
    EXPECT_TRUE(named) << "the hospital tells who charged";
}
