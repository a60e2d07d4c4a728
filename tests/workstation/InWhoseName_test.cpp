#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "workstation/Workstation.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;

// What a clerk types to post in another's name reaches the hospital as it was typed. The hospital refuses it.

namespace {

/// What a save takes and empties before its first line: numbers that are left out, and the lines to be
/// printed.
const QStringList kTakenBefore = {u"Clinical_Area..tbEarCareChargeSlip"_s, u"BILLING..tbAssessmentNum"_s,
                                  u"Clinical_Area..tbEarCareChargePrint"_s};

struct Attack {
    std::string name;
    QString script;
    /// How the failure that ends the program begins.
    QString failure;
};

class InWhoseName : public Workstation, public testing::WithParamInterface<Attack> {};

} // namespace

TEST_P(InWhoseName, WhatIsTypedChangesNothingInAnyTable) {
    const QString before = HospitalContent(kTakenBefore);
    const Run run = RunScript(GetParam().script);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_FALSE(run.crashed);
    ASSERT_THAT(run.told, Not(IsEmpty())) << run.errors.toStdString();
    EXPECT_TRUE(run.told.back().startsWith(GetParam().failure)) << run.told.back().toStdString();
    EXPECT_EQ(HospitalContent(kTakenBefore), before);
}

const QString kAnother = u"Run-time error '50002': "_s;
const QString kSecondStatement = u"Run-time error '102': "_s;

INSTANTIATE_TEST_SUITE_P(
    Attacks, InWhoseName,
    testing::Values(Attack{"FeesAmount", u"tail-in-a-fees-amount"_s, kAnother},
                    Attack{"FeesCode", u"tail-in-a-fees-code"_s, kAnother},
                    Attack{"PatientsName", u"tail-in-a-patients-name"_s, kAnother},
                    Attack{"AssessmentsAmount", u"tail-in-an-assessments-amount"_s, kAnother},
                    Attack{"FindersName", u"statement-in-the-finders-name"_s, kSecondStatement},
                    Attack{"ChargeListsName", u"statement-in-the-charge-lists-name"_s, kSecondStatement},
                    Attack{"StatusSearch", u"statement-in-the-status-search"_s, kSecondStatement},
                    Attack{"WalkInsName", u"statement-in-a-walk-ins-name"_s, kSecondStatement}),
    CaseName());

using OwnName = Workstation;

// What stands behind the user in a text can be made up, but only in the clerk's own name.

TEST_F(OwnName, AWalkInIsRegisteredByWhoIsSignedOnWhateverIsTyped) {
    const Run run = RunScript(u"tail-in-a-walk-ins-name"_s);
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_EQ(
        Query(u"select FirstName, RegisteredBy from PATIENT_DATA..tbwalkin where LastName = 'Zztest'"_s),
        std::vector<QString>{u"Ana|NURSE"_s});
}

TEST_F(OwnName, AFeeIsPostedByWhoIsSignedOnWhateverIsTypedAsTheDoctor) {
    const QString last = QueryOne(u"select max(ChargeID) from BILLING..tbPatientCharges"_s);
    const Run run = RunScript(u"tail-in-the-doctors-code"_s);
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_EQ(
        Query(u"select UserID, Amount, DoctorName from BILLING..tbPatientCharges where ChargeID > %1"_s.arg(
            last)),
        std::vector<QString>{u"NURSE|1500|DR. X"_s});
}

TEST_F(OwnName, AFeeThatWasCancelledIsNotGivenBackOnceMore) {
    const QString last = QueryOne(u"select max(ChargeID) from BILLING..tbPatientCharges"_s);
    const Run run = RunScript(u"fee-cancelled-and-given-back"_s);
    EXPECT_EQ(run.exitCode, 1);
    ASSERT_THAT(run.told, Not(IsEmpty())) << run.errors.toStdString();
    EXPECT_TRUE(run.told.back().startsWith(u"Run-time error '50005': "_s)) << run.told.back().toStdString();
    EXPECT_EQ(Query(u"select RecordType, Amount, UserID from BILLING..tbPatientCharges where ChargeID > %1 "
                    "order by ChargeID"_s.arg(last)),
              (std::vector<QString>{u"D|1500|NURSE"_s, u"C|-1500|NURSE"_s}));
}
