#include "support/PrintQt.h"
#include "trial/sqlite/SqliteDatabase.h"
#include "workstation/Workstation.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::StartsWith;

// A ward's request, from the ward's own connection to the slip, while the clerk does nothing but look.

class RoadOfOneRequest : public Workstation {
  protected:
    RoadOfOneRequest() {
        OpenHospital()->ExecuteNoResult(
            u"UPDATE RADIOLOGY..tbNurseRequest SET Status = 'X' WHERE Status = 'P'"_s);
    }

    /// Starts a script and waits until it has told that the program is idle.
    std::unique_ptr<QProcess> StartIdle(const QString& script) {
        auto program = StartScript(script);
        while (!program->canReadLine() && program->waitForReadyRead(100000)) {
        }
        EXPECT_EQ(program->readLine(), "idle\n") << program->readAllStandardError().toStdString();
        return program;
    }

    /// Takes the requests' table away under a script that waits.
    void ExpectOneFailure(const QString& script) {
        const auto program = StartIdle(script);
        {
            SqliteDatabase database(HospitalPath(), SqliteDatabase::Mode::Existing);
            database.Run(u"DROP TABLE \"RADIOLOGY..tbNurseRequest\""_s);
        }
        const Run run = WaitForEnd(*program);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_FALSE(run.crashed);
        ASSERT_EQ(run.told.size(), 1U);
        EXPECT_THAT(run.told[0].toStdString(), StartsWith("Run-time error"));
    }
};

TEST_F(RoadOfOneRequest, AppearsWhileTheProgramIsIdleIsPostedAndIsGone) {
    const auto program = StartIdle(u"ward-request"_s);
    OpenHospital()->ExecuteNoResult(
        u"INSERT INTO RADIOLOGY..tbNurseRequest (RequestDate, DeptCode, HospNum, IdNum, StationID, DoctorID, "
        "RequestedBy, RevenueID, ItemID, Quantity) VALUES ('20261121 09:05', 'HC', '100089', '700132', '2W', "
        "'D023', 'LIWANAG, ISABEL RN', 'HC', 'HC018', 3)"_s);
    const Run run = WaitForEnd(*program);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString() << testing::PrintToString(run.told);

    const QString patient = QueryOne(
        u"select m.LastName, case when m.Sex = 'M' then 'MALE' else 'FEMALE' end, p.RoomID from "
        "PATIENT_DATA..tbpatient as p inner join PATIENT_DATA..tbmaster as m on m.HospNum = p.HospNum where "
        "p.IdNum = '700132'"_s);
    const QStringList who = patient.split(u'|');
    const QString slip = run.told.back().mid(5);
    ASSERT_EQ(run.told.size(), 7U);
    EXPECT_EQ(run.told[0], u"txtPno 100089"_s);
    EXPECT_EQ(run.told[1], u"txtId 700132"_s);
    EXPECT_EQ(run.told[2], u"txtLastName "_s + who[0]);
    EXPECT_EQ(run.told[3], u"txtSex "_s + who[1]);
    EXPECT_EQ(run.told[4], u"txtRoom "_s + who[2]);
    EXPECT_TRUE(run.told[5].startsWith(u"line HC|HC018|DIALYZER REPROCESSING|3|"_s))
        << run.told[5].toStdString();
    const QString amount = run.told[5].section(u'|', -1);
    EXPECT_THAT(Query(u"select HospNum, IdNum, RevenueID, ItemID, Quantity, UserID from "
                      "BILLING..tbPatientCharges where RefNum = '%1'"_s.arg(slip)),
                ElementsAre(u"100089|700132|HC|HC018|3|NURSE"_s));
    EXPECT_EQ(
        QueryOne(u"select Amount from BILLING..tbPatientCharges where RefNum = '%1'"_s.arg(slip)).toDouble(),
        amount.toDouble());
    EXPECT_THAT(Query(u"select Status, SlipNo, ClosedBy from RADIOLOGY..tbNurseRequest where IdNum = "
                      "'700132' and ItemID = 'HC018'"_s),
                ElementsAre(u"D|"_s + slip + u"|NURSE"_s));
}

TEST_F(RoadOfOneRequest, AQuestionThatFailsEndsTheIdleProgramOnce) {
    ExpectOneFailure(u"idle-until-failure"_s);
}

TEST_F(RoadOfOneRequest, AQuestionThatFailsBehindAModalScreenEndsTheProgramOnce) {
    ExpectOneFailure(u"modal-until-failure"_s);
}
