#include "hospital/HospitalScripts.h"
#include "support/CaseName.h"
#include "support/hospital/ProgramFolder.h"
#include "support/PrintQt.h"
#include "torture/WholeHospital.h"
#include "trial/HospitalFile.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::IsEmpty;

// What looks at a hospital behind a torture: each thing that may go wrong is done to one, and has to be told.

namespace {

const QString kCharge =
    u"Clinical_Area..spEarCare_Append_Charging '100284','700107','11/21/2026 10:15:07 AM','HB','D','M0002','3', 'H2472C','3051','NURSE','P306','D001','DR. A', 'I','EPOETIN'"_s;
const QString kCancellation =
    u"Clinical_ARea..spEarCare_UpdateCharging '100284','700107','HC001','2800','1','11/21/2026 10:20:00 AM','HC','NURSE','I','C','P306','H2472C',''"_s;
const QString kService =
    u"Clinical_Area..spEarCare_Append_Charging '100284','700107','11/21/2026 10:15:07 AM','HC','D','HC001','1', 'H2472C','2800','NURSE','P306','D001','DR. A', 'I','TREATMENT'"_s;
const QString kAssessment =
    u"Clinical_Area..spEarCare_Assessment '5064','QUINTOS, ANA','HC001','HC','1','2800','HC','NURSE','','','',''"_s;
const QString kWalkIn =
    u"CLINICAL_AREA..spEarCare_Add_CashPatient 'QUINTOS','ANA','RAMOS','','','','/  /','','F',''"_s;
const QString kTakeSlip =
    u"UPDATE Clinical_Area..tbEarCareChargeSlip SET [ChargeSlip]=2473 WHERE [ChargeSlip]=2472"_s;

/// A hospital, and the journals of two desks.
class Torn {
  public:
    Torn()
        : mHospital(HospitalFile::Open(mFolder.HospitalPath(), HospitalScripts()))
        , mWhole(mFolder.HospitalPath())
        , mJournals{{.name = u"left"_s, .commands = {}, .marks = {}},
                    {.name = u"right"_s, .commands = {}, .marks = {}}} {
        mHospital->SetSessionUser(u"NURSE"_s);
    }

    /// Done in the hospital, and in no journal.
    void Do(const QString& command) { mHospital->ExecuteNoResult(command); }
    /// In a desk's journal, and not done.
    void Note(const QString& command, qint64 rowsAffected = 1, int desk = 0) {
        mJournals[size_t(desk)].commands.push_back(
            {.text = command, .outcome = JournaledCommand::Outcome::Answered, .rowsAffected = rowsAffected});
    }
    /// In a desk's journal without an answer.
    void Send(const QString& command) { mJournals[0].commands.push_back({.text = command}); }
    /// As a desk does it.
    void Work(const QString& command) {
        Do(command);
        Note(command);
    }
    QString LineOfTheAssessment() {
        return mHospital->Execute(u"SELECT MAX(AssessNum) AS Line FROM BILLING..tbCashAssessment"_s)
            .Fields(u"Line")
            .ToText();
    }
    QString Revoke() {
        return u"Clinical_Area..spEarCare_AssessRevoke '%1','5064','HC'"_s.arg(LineOfTheAssessment());
    }

    QStringList Problems() { return mWhole.Problems(mJournals); }

  private:
    ProgramFolder mFolder;
    std::unique_ptr<EmbeddedGateway> mHospital;
    WholeHospital mWhole;
    std::vector<ReadJournal> mJournals;
};

struct Case {
    const char* name;
    std::function<void(Torn&)> happens;
    /// What the only problem has in it; empty for none.
    QString told;
};

class WholeHospitalCase : public testing::TestWithParam<Case> {};

} // namespace

TEST_P(WholeHospitalCase, IsTold) {
    Torn torn;
    GetParam().happens(torn);
    const QStringList problems = torn.Problems();
    if (GetParam().told.isEmpty())
        EXPECT_THAT(problems, IsEmpty());
    else
        EXPECT_THAT(problems, Contains(testing::Truly(
                                  [](const QString& problem) { return problem.contains(GetParam().told); })))
            << testing::PrintToString(problems);
}

INSTANTIATE_TEST_SUITE_P(
    Whole, WholeHospitalCase,
    testing::Values(Case{"WorkThatIsThere",
                         [](Torn& torn) {
                             for (const QString& command :
                                  {kTakeSlip, kCharge, kService, kCancellation, kWalkIn, kAssessment})
                                 torn.Work(command);
                             torn.Work(torn.Revoke());
                         },
                         {}},
                    Case{"UnansweredAndDone",
                         [](Torn& torn) {
                             torn.Do(kCharge);
                             torn.Send(kCharge);
                         },
                         {}},
                    Case{"UnansweredAndNotDone", [](Torn& torn) { torn.Send(kCharge); }, {}},
                    Case{"NumberThatAnotherDeskHasTaken",
                         [](Torn& torn) {
                             torn.Work(kTakeSlip);
                             torn.Note(kTakeSlip, 0, 1);
                         },
                         {}},
                    Case{"CancellationOfWhatIsCancelled",
                         [](Torn& torn) {
                             for (const QString& command : {kService, kCancellation, kCancellation})
                                 torn.Work(command);
                         },
                         {}}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Broken, WholeHospitalCase,
    testing::Values(
        Case{"LineLost", [](Torn& torn) { torn.Note(kCharge); },
             u"a charge was answered 1 times and is there 0 times"_s},
        Case{"LineDoubled",
             [](Torn& torn) {
                 torn.Work(kCharge);
                 torn.Do(kCharge);
             },
             u"a charge is there 2 times, and was sent 1 times"_s},
        Case{"LineOfAnotherAmount",
             [](Torn& torn) {
                 torn.Work(kCharge);
                 torn.Do(u"UPDATE BILLING..tbPatientCharges SET Amount = 3050 WHERE RefNum = 'H2472C'"_s);
             },
             u"is there 1 times, and was sent 0 times"_s},
        Case{"AssessmentLost", [](Torn& torn) { torn.Note(kAssessment); },
             u"an assessment's line was answered 1 times"_s},
        Case{"WalkInTwice",
             [](Torn& torn) {
                 torn.Work(kWalkIn);
                 torn.Do(kWalkIn);
             },
             u"a walk-in is there 2 times"_s},
        Case{"NumberOnTwoSaves",
             [](Torn& torn) {
                 torn.Work(kTakeSlip);
                 torn.Note(kTakeSlip, 1, 1);
             },
             u"the slip counter gave the number 2472 twice"_s},
        Case{"SlipOfTwoDesks",
             [](Torn& torn) {
                 torn.Work(kCharge);
                 torn.Do(kService);
                 torn.Note(kService, 1, 1);
             },
             u"H2472C has lines of left and of right"_s},
        Case{"CounterThatNobodyMoved", [](Torn& torn) { torn.Do(kTakeSlip); },
             u"the slip counter has given 1 numbers, and between 0 and 0 were taken"_s},
        Case{"CounterThatStood", [](Torn& torn) { torn.Note(kTakeSlip); },
             u"the slip counter has given 0 numbers, and between 1 and 1"_s},
        Case{"CounterThatWentBack",
             [](Torn& torn) {
                 torn.Work(kTakeSlip);
                 EXPECT_THAT(torn.Problems(), IsEmpty());
                 torn.Do(u"UPDATE Clinical_Area..tbEarCareChargeSlip SET ChargeSlip = 2400"_s);
             },
             u"the slip counter has gone back from 2473 to 2400"_s},
        Case{"ChargeReversedTwice",
             [](Torn& torn) {
                 torn.Work(kService);
                 torn.Work(kCancellation);
                 torn.Do(
                     u"INSERT INTO BILLING..tbPatientCharges (HospNum, IdNum, PatientType, TransDate, "
                     "RevenueID, RecordType, ItemID, Description, Quantity, Units, Amount, RefNum, UserID, "
                     "RoomID, DoctorID, DoctorName, SourceDept, EntryDate) VALUES ('100284', '700107', 'I', "
                     "'20261121', 'HC', 'C', 'HC001', '', '-1', -1, -2800, 'H2472C', 'NURSE', '', '', '', "
                     "'HC', '20261121')"_s);
             },
             u"charged 1 times and taken back 2 times: H2472C"_s},
        Case{"CancellationLost",
             [](Torn& torn) {
                 torn.Work(kService);
                 torn.Note(kCancellation);
             },
             u"the cancellation was answered and nothing is reversed"_s},
        Case{"ReversalOfNobody",
             [](Torn& torn) {
                 torn.Work(kService);
                 torn.Do(kCancellation);
             },
             u"nobody has cancelled what is reversed"_s},
        Case{"RevokeLost",
             [](Torn& torn) {
                 torn.Work(kAssessment);
                 torn.Note(torn.Revoke());
             },
             u"the revoke was answered and the line is not revoked"_s},
        Case{"RevokeUnrecorded",
             [](Torn& torn) {
                 torn.Work(kAssessment);
                 torn.Work(torn.Revoke());
                 torn.Do(u"DELETE FROM BILLING..tbAuditTrail WHERE RefNum = '5064'"_s);
             },
             u"1 lines are revoked, and 0 revokes recorded"_s},
        Case{"MovementMissing",
             [](Torn& torn) {
                 torn.Work(kCharge);
                 torn.Do(u"DELETE FROM INVENTORY..tbInvStockCard WHERE RefNum = 'H2472C'"_s);
             },
             u"the account has 3.0000 for 3051.0000 and the stock card "_s},
        Case{"MovementOfNoCharge",
             [](Torn& torn) {
                 torn.Work(kCharge);
                 torn.Do(u"UPDATE INVENTORY..tbInvStockCard SET IdNum = '700124' WHERE RefNum = 'H2472C'"_s);
             },
             u"the stock card has what no account has"_s}),
    CaseName());
