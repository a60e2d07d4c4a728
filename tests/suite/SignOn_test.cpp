#include "suite/Passwords.h"
#include "suite/SignOn.h"
#include "suite/SuiteTest.h"
#include "support/CaseName.h"

using namespace Qt::StringLiterals;

namespace {

const QString kWrong = u"The user or the password is wrong."_s;

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
        const SignOnOutcome outcome = TrySignOn(source, user, password, department);
        EXPECT_EQ(outcome.user == nullptr, !outcome.refusal.isEmpty());
        return outcome.refusal;
    }

    FakeSource source{u"Trial hospital"_s, Path()};
};

TEST_F(SignOnTest, AUserWithHisPasswordSignsOnForHisDepartment) {
    AddUser(u"ROSA"_s, u"geheim"_s, {u"HC"_s});
    const SignOnOutcome outcome = TrySignOn(source, u"ROSA"_s, u"geheim"_s, u"HC"_s);
    ASSERT_NE(outcome.user, nullptr);
    EXPECT_EQ(outcome.refusal, QString());
    EXPECT_EQ(outcome.user->employeeCode, u"ROSA"_s);
    EXPECT_EQ(outcome.user->employeeName, u"ROSA PEÑA"_s);
    EXPECT_EQ(outcome.user->initial, u"RP"_s);
    ASSERT_NE(outcome.user->connection, nullptr);
    EXPECT_TRUE(outcome.user->connection->Connected());
}

TEST_F(SignOnTest, TheUsersLetterCaseIsTheHospitals) {
    const SignOnOutcome outcome = TrySignOn(source, u"nurse"_s, u"nurse"_s, u"HC"_s);
    ASSERT_NE(outcome.user, nullptr);
    EXPECT_EQ(outcome.user->employeeCode, u"NURSE"_s);
}

TEST_F(SignOnTest, AWrongUserAndAWrongPasswordGetTheSameRefusal) {
    EXPECT_EQ(RefusalOf(u"NOBODY"_s, u"nurse"_s), kWrong);
    EXPECT_EQ(RefusalOf(u"NURSE"_s, u"Nurse"_s), kWrong);
    EXPECT_EQ(RefusalOf(u"NURSE"_s, QString()), kWrong);
    EXPECT_EQ(RefusalOf(QString(), QString()), kWrong);
}

TEST_F(SignOnTest, TheHashIsNoPassword) {
    EXPECT_EQ(
        RefusalOf(u"NURSE"_s,
                  Cell(u"SELECT PasswordHash FROM PASSWORD..tbPasswordMain WHERE EmployeeID = 'NURSE'"_s)),
        kWrong);
}

TEST_F(SignOnTest, AnInactiveUserIsRefusedAsAnUnknownOne) {
    AddUser(u"ROSA"_s, u"geheim"_s, {u"HC"_s}, false);
    EXPECT_EQ(RefusalOf(u"ROSA"_s, u"geheim"_s), kWrong);
}

TEST_F(SignOnTest, AUserOfAnotherDepartmentIsToldSoOnceHisPasswordIsRight) {
    AddUser(u"ROSA"_s, u"geheim"_s, {u"LB"_s, u"PH"_s});
    EXPECT_EQ(RefusalOf(u"ROSA"_s, u"geheim"_s), u"ROSA may not sign on for department HC."_s);
    EXPECT_EQ(RefusalOf(u"ROSA"_s, u"wrong"_s), kWrong);
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
        EXPECT_EQ(RefusalOf(text, u"nurse"_s), kWrong) << text.toStdString();
        EXPECT_EQ(RefusalOf(u"NURSE"_s, u"nurse"_s, text),
                  u"NURSE may not sign on for department %1."_s.arg(text));
    }
}

TEST_F(SignOnTest, ADataSourceThatCannotBeReachedRaises) {
    source.connectFailure = RunTimeError(17, u"SQL Server does not exist or access denied."_s, u"08001"_s);
    EXPECT_THROW(TrySignOn(source, u"NURSE"_s, u"nurse"_s, u"HC"_s), RunTimeError);
}

TEST_F(SignOnTest, AServerThatRefusesTheLogonRefusesTheUser) {
    source.connectFailure = RunTimeError(18456, u"Login failed for user 'NURSE'."_s, u"28000"_s);
    EXPECT_EQ(RefusalOf(u"NURSE"_s, u"nurse"_s), kWrong);
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

} // namespace
