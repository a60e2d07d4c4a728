#include "suite/Passwords.h"
#include "suite/SignOn.h"
#include "suite/SuiteTest.h"
#include "support/CaseName.h"
#include "support/FixedClock.h"

using namespace Qt::StringLiterals;

namespace {

const QString kWrongSignOn = u"The user or the password is wrong."_s;

class SignOnTest : public SuiteTest {
  protected:
    /// A user for departments of his own.
    void AddUser(const QString& code, const QString& password, const QStringList& departments,
                 bool active = true) {
        Run(u"INSERT INTO PASSWORD..tbPasswordMain (EmployeeID, LastName, FirstName, Initial, PasswordHash, "
            u"Active) "
            "VALUES ('%1', 'PEÑA', 'ROSA', 'RP', '%2', %3)"_s.arg(code, HashPassword(password))
                .arg(int(active)));
        for (const QString& department : departments)
            Run(u"INSERT INTO PASSWORD..tbPasswordDept (EmployeeID, DeptCode) VALUES ('%1', '%2')"_s.arg(
                code, department));
    }

    QString RefusalOf(const QString& user, const QString& password, const QString& department = u"HC"_s) {
        const SignOnOutcome outcome = TrySignOn(source, user, password, {department});
        EXPECT_EQ(outcome.user == nullptr, !outcome.refusal.isEmpty());
        return outcome.refusal;
    }

    FakeSource source{u"Trial hospital"_s, Path()};
};

TEST_F(SignOnTest, AUserWithHisPasswordSignsOnForHisDepartment) {
    AddUser(u"ROSA"_s, u"geheim"_s, {u"HC"_s});
    const SignOnOutcome outcome = TrySignOn(source, u"ROSA"_s, u"geheim"_s, {u"HC"_s});
    ASSERT_NE(outcome.user, nullptr);
    EXPECT_EQ(outcome.refusal, QString());
    EXPECT_EQ(outcome.user->employeeCode, u"ROSA"_s);
    EXPECT_EQ(outcome.user->employeeName, u"ROSA PEÑA"_s);
    EXPECT_EQ(outcome.user->initial, u"RP"_s);
    ASSERT_NE(outcome.user->connection, nullptr);
    EXPECT_TRUE(outcome.user->connection->Connected());
}

TEST_F(SignOnTest, TheUsersLetterCaseIsTheHospitals) {
    const SignOnOutcome outcome = TrySignOn(source, u"nurse"_s, u"nurse"_s, {u"HC"_s});
    ASSERT_NE(outcome.user, nullptr);
    EXPECT_EQ(outcome.user->employeeCode, u"NURSE"_s);
}

TEST_F(SignOnTest, AWrongUserAndAWrongPasswordGetTheSameRefusal) {
    EXPECT_EQ(RefusalOf(u"NOBODY"_s, u"nurse"_s), kWrongSignOn);
    EXPECT_EQ(RefusalOf(u"NURSE"_s, u"Nurse"_s), kWrongSignOn);
    EXPECT_EQ(RefusalOf(u"NURSE"_s, QString()), kWrongSignOn);
    EXPECT_EQ(RefusalOf(QString(), QString()), kWrongSignOn);
}

TEST_F(SignOnTest, TheHashIsNoPassword) {
    EXPECT_EQ(
        RefusalOf(u"NURSE"_s,
                  Cell(u"SELECT PasswordHash FROM PASSWORD..tbPasswordMain WHERE EmployeeID = 'NURSE'"_s)),
        kWrongSignOn);
}

TEST_F(SignOnTest, AnInactiveUserIsRefusedAsAnUnknownOne) {
    AddUser(u"ROSA"_s, u"geheim"_s, {u"HC"_s}, false);
    EXPECT_EQ(RefusalOf(u"ROSA"_s, u"geheim"_s), kWrongSignOn);
}

TEST_F(SignOnTest, AUserOfAnotherDepartmentIsToldSoOnceHisPasswordIsRight) {
    AddUser(u"ROSA"_s, u"geheim"_s, {u"LB"_s, u"PH"_s});
    EXPECT_EQ(RefusalOf(u"ROSA"_s, u"geheim"_s), u"ROSA may not sign on for department HC."_s);
    EXPECT_EQ(RefusalOf(u"ROSA"_s, u"wrong"_s), kWrongSignOn);
    EXPECT_EQ(RefusalOf(u"ROSA"_s, u"geheim"_s, u"PH"_s), QString());
}

TEST_F(SignOnTest, AUserWithoutADepartmentIsRefused) {
    AddUser(u"ROSA"_s, u"geheim"_s, {});
    EXPECT_EQ(RefusalOf(u"ROSA"_s, u"geheim"_s), u"ROSA may not sign on for department HC."_s);
}

TEST_F(SignOnTest, AStarStandsForEveryDepartment) {
    AddUser(u"ROSA"_s, u"geheim"_s, {u"*"_s});
    for (const QString& department : {u"HC"_s, u"LB"_s, u"0"_s, QString()})
        EXPECT_EQ(RefusalOf(u"ROSA"_s, u"geheim"_s, department), QString());
}

TEST_F(SignOnTest, AStarAsTheWorkstationsDepartmentOpensNothing) {
    EXPECT_EQ(RefusalOf(u"NURSE"_s, u"nurse"_s, u"*"_s), u"NURSE may not sign on for department *."_s);
}

TEST_F(SignOnTest, AnApostropheDoesNoHarm) {
    for (const QString& text : {u"O'BRIEN"_s, u"' OR '1' = '1"_s, u"NURSE'--"_s}) {
        EXPECT_EQ(RefusalOf(text, u"nurse"_s), kWrongSignOn) << text.toStdString();
        EXPECT_EQ(RefusalOf(u"NURSE"_s, u"nurse"_s, text),
                  u"NURSE may not sign on for department %1."_s.arg(text));
    }
}

TEST_F(SignOnTest, ADataSourceThatCannotBeReachedRaises) {
    source.connectFailure = RunTimeError(17, u"SQL Server does not exist or access denied."_s, u"08001"_s);
    EXPECT_THROW(TrySignOn(source, u"NURSE"_s, u"nurse"_s, {u"HC"_s}), RunTimeError);
}

TEST_F(SignOnTest, AServerThatRefusesTheLogonRefusesTheUser) {
    source.connectFailure = RunTimeError(18456, u"Login failed for user 'NURSE'."_s, u"28000"_s);
    EXPECT_EQ(RefusalOf(u"NURSE"_s, u"nurse"_s), kWrongSignOn);
}

TEST_F(SignOnTest, AReportLogsOnWithUserAndPasswordWhateverTheDepartment) {
    EXPECT_NE(LogOn(source, u"LAB"_s, u"lab"_s), nullptr);
    for (const QString& user : {u"LAB"_s, u"NOBODY"_s}) {
        try {
            LogOn(source, user, u"wrong"_s);
            FAIL() << "nothing was raised";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number(), 18456);
            EXPECT_EQ(error.Description(), u"Login failed for user '%1'."_s.arg(user));
        }
    }
}

TEST_F(SignOnTest, TheConnectionWorksInTheUsersName) {
    const SignOnOutcome outcome = TrySignOn(source, u"nurse"_s, u"nurse"_s, {u"HC"_s});
    ASSERT_NE(outcome.user, nullptr);
    EXPECT_EQ(outcome.user->connection->Execute(u"select SUSER_SNAME() as u"_s).Fields(u"u").ToText(),
              u"NURSE"_s);
}

TEST_F(SignOnTest, AReportsConnectionIsOpenedForReadingAlone) {
    const auto connection = LogOn(source, u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(source.connected, 0);
    EXPECT_EQ(source.connectedToRead, 1);
    EXPECT_THROW(connection->ExecuteNoResult(u"delete Clinical_Area..tbEarCareChargePrint"_s), RunTimeError);
}

/// A hospital that keeps a trail of sign-ons, as of this workstation.
class SignOnTrailOfAHospital : public SignOnTest {
  protected:
    SignOnTrailOfAHospital() { source.workstation = u"DESK1"_s; }

    SignOnOutcome Try(const QString& user, const QString& password, bool waited = false) {
        return TrySignOn(source, user, password, {.deptCode = u"HC"_s, .waited = waited});
    }
};

TEST_F(SignOnTrailOfAHospital, TheFourthTryHasToWaitWhateverItsPassword) {
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Try(u"NURSE"_s, u"wrong"_s).refusal, kWrongSignOn) << i;
    const SignOnOutcome outcome = Try(u"NURSE"_s, u"nurse"_s);
    EXPECT_EQ(outcome.user, nullptr);
    EXPECT_EQ(outcome.refusal, QString());
    EXPECT_EQ(outcome.wait.count(), 2);
    EXPECT_EQ(Try(u"NURSE"_s, u"wrong"_s).wait.count(), 2) << "a try that waits is not counted";
}

TEST_F(SignOnTrailOfAHospital, ANewStartDoesNotResetTheWait) {
    for (int i = 0; i < 4; ++i)
        Try(u"NURSE"_s, u"wrong"_s, true);
    FakeSource another(u"Trial hospital"_s, Path());
    another.workstation = u"DESK1"_s;
    EXPECT_GT(TrySignOn(another, u"CLERK"_s, u"clerk"_s, {u"HC"_s}).wait.count(), 0);
}

TEST_F(SignOnTrailOfAHospital, WhoHasWaitedIsNotHeldUpByWhatFailsElsewhere) {
    FakeSource elsewhere(u"Trial hospital"_s, Path());
    elsewhere.workstation = u"DESK2"_s;
    for (int i = 0; i < 3; ++i)
        TrySignOn(elsewhere, u"NURSE"_s, u"wrong"_s, {u"HC"_s});
    EXPECT_EQ(Try(u"NURSE"_s, u"nurse"_s).wait.count(), 2);
    EXPECT_NE(Try(u"NURSE"_s, u"nurse"_s, true).user, nullptr);
}

TEST_F(SignOnTrailOfAHospital, WhatFailsHereIsWaitedForInEveryWindow) {
    for (int i = 0; i < 3; ++i)
        Try(u"NURSE"_s, u"wrong"_s);
    EXPECT_EQ(Try(u"CLERK"_s, u"clerk"_s, true).wait.count(), 2);
}

TEST_F(SignOnTrailOfAHospital, TellsTheUserWhatFailedInHisName) {
    EXPECT_FALSE(Try(u"NURSE"_s, u"nurse"_s).user->failed);
    Try(u"NURSE"_s, u"wrong"_s);
    Try(u"nurse"_s, u"worse"_s);
    Try(u"CLERK"_s, u"wrong"_s, true);
    const auto user = Try(u"CLERK"_s, u"clerk"_s, true).user;
    EXPECT_EQ(user, nullptr) << "three have failed at this workstation";
    const auto clock = FixedClock(Moment().AddDays(1));
    EXPECT_EQ(Try(u"CLERK"_s, u"clerk"_s).user->failed->count, 1);
    const auto failed = Try(u"NURSE"_s, u"nurse"_s).user->failed;
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->count, 2);
    EXPECT_EQ(failed->since, Moment());
    EXPECT_EQ(failed->workstation, u"DESK1"_s);
}

TEST_F(SignOnTrailOfAHospital, TellsItAtTheSignOnAndNotBefore) {
    AddUser(u"ROSA"_s, u"geheim"_s, {u"LB"_s});
    for (int i = 0; i < 2; ++i)
        Try(u"ROSA"_s, u"wrong"_s);
    EXPECT_EQ(Try(u"ROSA"_s, u"geheim"_s).refusal, u"ROSA may not sign on for department HC."_s);
    const SignOnTry toReplace = {.deptCode = u"LB"_s, .toReplace = true};
    EXPECT_FALSE(TrySignOn(source, u"ROSA"_s, u"geheim"_s, toReplace).user->failed)
        << "the hospital is about to be made anew, and nobody would read it";
    const auto failed = TrySignOn(source, u"ROSA"_s, u"geheim"_s, {u"LB"_s}).user->failed;
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->count, 2);
}

TEST_F(SignOnTrailOfAHospital, ANameThatNobodyHasIsKeptNowhere) {
    Try(u"my secret password"_s, QString());
    Try(u"NURSE"_s, u"wrong"_s);
    QFile file(Path() + u"-wal"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray log = file.readAll();
    EXPECT_TRUE(log.contains("DESK1")) << "the trail is there";
    EXPECT_FALSE(log.contains("secret"));
}

TEST_F(SignOnTrailOfAHospital, ARightPasswordForTheWrongDepartmentIsNoFailure) {
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(Try(u"LAB"_s, u"lab"_s).refusal, u"LAB may not sign on for department HC."_s) << i;
}

} // namespace
