#include "support/PrintQt.h"
#include "support/tds/EngineSession.h"
#include "support/tds/TestDataSources.h"
#include "workstation/Workstation.h"

#include <QDir>
#include <QElapsedTimer>

#include <atomic>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;

// The program on a server, through the driver: behind the wire stands the same hospital.

namespace {

constexpr int kServerFailed = 1;

/// A workstation that remembers the server's data source from an earlier sign-on.
class OnAServer : public Workstation {
  protected:
    OnAServer() {
        server.Admit(u"NURSE"_s, u"nurse"_s);
        QDir(ProgramFile(QString())).mkdir(u"TARVEN"_s);
        const QString name = TestDataSources::Instance().Add(server.Port());
        WriteProgramFile(u"TARVEN/Hemodialysis.ini"_s, u"[General]\nDataSource=%1\n"_s.arg(name).toUtf8());
    }

    QString SlipCounter() const {
        return QueryOne(u"select ChargeSlip from Clinical_Area..tbEarCareChargeSlip"_s);
    }

    /// Whether the server never answers a report, however often the program gives it up.
    std::atomic<bool> reportsAreSilent = false;
    TdsResponder server{
        [this, hospital = EngineSessions(HospitalPath())](const TdsLogin& login) -> TdsResponder::Handler {
            return [this, answered = hospital(login)](const QString& batch, TdsAnswer& answer) {
                if (reportsAreSilent && batch.contains(u"spReports_Audit"_s)) {
                    WriteProgramFile(u"silent"_s, {});
                    answer.FallSilent();
                }
                answered(batch, answer);
            };
        }};
};

} // namespace

TEST_F(OnAServer, OneChargeIsPostedAndItsSlipPrinted) {
    const QString slip = u"H%1C"_s.arg(SlipCounter());
    const Run run = RunScript(u"in-patient-charge"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_THAT(run.told, ElementsAre(u"TARVEN HEMODIALYSIS ver.5.5.2"_s, u"patient 100284 700107"_s,
                                      u"total 11271.00"_s, u"slip "_s + slip));
    EXPECT_THAT(Query(u"select ItemID, Quantity, Amount, UserID, DoctorName from BILLING..tbPatientCharges "
                      "where RefNum = '"_s +
                      slip + u"' order by ChargeID"_s),
                ElementsAre(u"HC001|2|6720|NURSE|DR. BENEDICTO QUIOGUE"_s,
                            u"M0002|3|3051|NURSE|DR. BENEDICTO QUIOGUE"_s,
                            u"D003||1500|NURSE|DR. BENEDICTO QUIOGUE"_s));
    EXPECT_THAT(QDir(ProgramFile(QString())).entryList({u"*.pdf"_s}), SizeIs(1));
}

TEST_F(OnAServer, TheCommandsOfTheRoadCrossTheWireAsTheyAreComposed) {
    ASSERT_EQ(RunScript(u"in-patient-charge"_s).exitCode, 0);
    const QStringList batches = server.Batches();
    for (const QString& command : {u"USE [PASSWORD]"_s, u"select * from PATIENT_DATA..tbhospitalInfo"_s,
                                   u"Clinical_Area..spEarCare_GetPatient 'I','DE GUZ'"_s,
                                   u"Select * from Clinical_Area..tbEarCareChargeSlip"_s,
                                   u"Delete Clinical_Area..tbEarCareChargePrint"_s})
        EXPECT_THAT(batches, Contains(command));
}

TEST_F(OnAServer, TheReportLogsOnByItself) {
    ASSERT_EQ(RunScript(u"in-patient-charge"_s).exitCode, 0);
    const std::vector<TdsLogin> logins = server.Logins();
    ASSERT_THAT(logins, SizeIs(2)) << "the session and the slip";
    for (const TdsLogin& login : logins) {
        EXPECT_EQ(login.user, u"NURSE"_s);
        EXPECT_EQ(login.password, u"nurse"_s);
    }
}

TEST_F(OnAServer, TheProgramEndsAtOnceBesideAServerThatHeedsNoCancellation) {
    // The driver waits for such a server for minutes.
    constexpr qint64 kAtOnce = 5000;
    reportsAreSilent = true;
    const auto child = StartScript(u"leave-beside-a-report"_s);
    while (child->state() == QProcess::Running && !child->canReadLine())
        child->waitForReadyRead(10);
    QElapsedTimer leaving;
    leaving.start();
    EXPECT_EQ(child->readLine(), "leaving\n");
    const Run run = WaitForEnd(*child);
    EXPECT_LT(leaving.elapsed(), kAtOnce);
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_FALSE(run.crashed);
    EXPECT_THAT(run.told, ElementsAre(u"the program ended"_s));
}

TEST_F(OnAServer, AnApostropheIsTheServersErrorAndEndsTheProcess) {
    const QString before = HospitalContent();
    const Run run = RunScript(u"apostrophe-in-finder"_s);
    EXPECT_EQ(run.exitCode, kServerFailed);
    ASSERT_THAT(run.told, SizeIs(1));
    EXPECT_TRUE(run.told[0].contains(u"Incorrect syntax near 'BRIEN'"_s)) << run.told[0].toStdString();
    // The session behind the wire has let go of the hospital's file then.
    server.Close();
    EXPECT_EQ(HospitalContent(), before);
}

TEST_F(OnAServer, AServerThatIsGoneAtTheSignOnIsToldThere) {
    server.Close();
    const Run run = RunScript(u"sign-on-problem"_s);
    EXPECT_THAT(run.told,
                ElementsAre(u"Unable to connect: Adaptive Server is unavailable or does not exist"_s));
}

TEST_F(OnAServer, AServerThatDiesIsNoticedByTheNextCheckOfTheRequests) {
    const auto child = StartScript(u"idle-until-failure"_s);
    // The first check comes when the sign-on is through.
    while (!server.Batches().contains(u"RADIOLOGY..spRadio_CheckPending 'HC'"_s) &&
           !child->waitForFinished(10)) {
    }
    server.Close();
    const Run run = WaitForEnd(*child);
    EXPECT_EQ(run.exitCode, kServerFailed);
    ASSERT_FALSE(run.told.empty());
    EXPECT_TRUE(run.told.back().contains(u"Communication link failure"_s) ||
                run.told.back().contains(u"Unexpected EOF from the server"_s))
        << run.told.back().toStdString();
}
