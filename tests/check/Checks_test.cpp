#include "check/CheckedServer.h"
#include "check/Checks.h"
#include "check/HospitalChecks.h"
#include "check/ObjectChecks.h"
#include "check/questions.h"
#include "check/ServerChecks.h"
#include "odbc/OdbcGateway.h"
#include "support/CaseName.h"
#include "support/hospital/FreshHospital.h"
#include "support/PrintQt.h"
#include "support/tds/TestDataSources.h"
#include "text/Clock.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalEngine.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

// What is wrong with a server is told by its check, and a sound one has no faults.

namespace {

const Needs& ProgramsNeeds() {
    static const Needs needs = NeedsOfProgram();
    return needs;
}

std::vector<std::string> FaultsIn(const Findings& findings) {
    std::vector<std::string> faults;
    for (const Finding& finding : findings) {
        if (finding.verdict == Verdict::Fault)
            faults.push_back((finding.name + u": "_s + finding.seen).toStdString());
        EXPECT_EQ(finding.toDo.isEmpty(), finding.verdict != Verdict::Fault) << finding.name.toStdString();
    }
    return faults;
}

/// A copy of the trial hospital for one test.
class HospitalCopy {
  public:
    HospitalCopy() { QFile::copy(FreshHospital(), Path()); }
    QString Path() const { return mFolder.filePath(u"hospital.db"_s); }

  private:
    QTemporaryDir mFolder;
};

/// A user who has signed on to a server with a planted fault.
class SignedOnThere {
  public:
    explicit SignedOnThere(CheckedServer::Change change = {})
        : server(copy.Path(), ProgramsNeeds(), std::move(change)) {}

    Ground On() {
        return {.connection = connection,
                .needs = ProgramsNeeds(),
                .user = u"NURSE"_s,
                .source = source,
                .department = u"HC"_s,
                .dataFolder = u"/tmp"_s};
    }

    HospitalCopy copy;
    CheckedServer server;
    QString source = TestDataSources::Instance().Add(server.Responder().Port());
    OdbcGateway connection{source, u"NURSE"_s, u"nurse"_s};
};

using Looks = std::vector<Findings (*)(const Ground&)>;

/// The checks that look at the server alone.
const Looks& ServerLooks() {
    static const Looks looks = {LookAtDriver,   LookAtVersion,    LookAtLanguage,  LookAtLogin,
                                LookAtClock,    LookAtDatabases,  LookAtCollation, LookAtIsolation,
                                LookAtChaining, LookAtProcedures, LookAtAnswers,   LookAtTables,
                                LookAtRights,   LookAtRecord,     LookAtCounters,  LookAtDepartment};
    return looks;
}

Findings AllOf(const Ground& ground) {
    Findings all;
    for (const auto look : ServerLooks()) {
        const Findings found = look(ground);
        all.insert(all.end(), found.begin(), found.end());
    }
    return all;
}

/// A fault in what the server tells of itself.
struct Planted {
    const char* name;
    QString (*question)();
    /// Empty for a question that is not about one database.
    QString database;
    std::function<void(CatalogAnswer& answer)> change;
    std::string told;
};

void PrintTo(const Planted& planted, std::ostream* out) {
    *out << planted.name;
}

class PlantedFault : public testing::TestWithParam<Planted> {};

CheckedServer::Change ChangeOf(const Planted& planted) {
    return [planted](const QString& question, const QString& database, CatalogAnswer& answer) {
        if (question == planted.question() && (planted.database.isEmpty() || planted.database == database))
            planted.change(answer);
    };
}

void Set(CatalogAnswer& answer, const QString& keyColumn, const QString& key, const QString& column,
         const Value& value) {
    answer.Cell(answer.RowOf(keyColumn, key), column) = value;
}

void AddRight(CatalogAnswer& answer, const QString& object, const QString& column, const QString& right) {
    answer.rows.push_back({Value(object), Value(column), Value(right), Value(qint64(0))});
}

} // namespace

TEST(Checks, OfASoundServerFindNothing) {
    SignedOnThere there;
    EXPECT_THAT(FaultsIn(AllOf(there.On())), IsEmpty());
}

TEST(Checks, OnlyRead) {
    SignedOnThere there;
    AllOf(there.On());
    LookAtRoundTrip(there.On());
    there.server.Responder().Close();
    EXPECT_TRUE(EmbeddedGateway(there.copy.Path()).Engine().Store().IsFresh());
}

TEST_P(PlantedFault, IsToldAlone) {
    SignedOnThere there(ChangeOf(GetParam()));
    EXPECT_THAT(FaultsIn(AllOf(there.On())), ElementsAre(GetParam().told));
}

INSTANTIATE_TEST_SUITE_P(
    Server, PlantedFault,
    testing::Values(
        Planted{"Language",
                SessionQuestion,
                {},
                [](CatalogAnswer& a) { a.Cell(0, u"Language"_s) = Value(u"British"_s); },
                "login language: British, dates as mdy"},
        Planted{"DateOrder",
                SessionQuestion,
                {},
                [](CatalogAnswer& a) { a.Cell(0, u"DateOrder"_s) = Value(u"dmy"_s); },
                "login language: us_english, dates as dmy"},
        Planted{"Isolation",
                SessionQuestion,
                {},
                [](CatalogAnswer& a) { a.Cell(0, u"Isolation"_s) = Value(qint64(1)); },
                "isolation: level 1"},
        Planted{
            "LoginOfAnotherName",
            SessionQuestion,
            {},
            [](CatalogAnswer& a) { a.Cell(0, u"Login"_s) = Value(u"HOSPITAL\\nurse"_s); },
            "login name: the server knows NURSE as \"HOSPITAL\\nurse\", in whose name nothing is recorded"},
        Planted{"DatabaseReadOnly", DatabaseQuestion, u"BILLING"_s,
                [](CatalogAnswer& a) { a.Cell(0, u"ReadOnly"_s) = Value(qint64(1)); },
                "databases: BILLING cannot be written to"},
        Planted{"CollationOfLetterCase", DatabaseQuestion, u"BILLING"_s,
                [](CatalogAnswer& a) {
                    a.Cell(0, u"CollationName"_s) = Value(u"SQL_Latin1_General_CP1_CS_AS"_s);
                },
                "collation: BILLING has SQL_Latin1_General_CP1_CS_AS"},
        Planted{"CollationOfItsOwn", DatabaseQuestion, u"BILLING"_s,
                [](CatalogAnswer& a) { a.Cell(0, u"CollationName"_s) = Value(u"Latin1_General_CI_AS"_s); },
                "collation: BILLING has Latin1_General_CI_AS, another one SQL_Latin1_General_CP1_CI_AS"},
        Planted{"Chaining", DatabaseQuestion, u"RADIOLOGY"_s,
                [](CatalogAnswer& a) { a.Cell(0, u"Chaining"_s) = Value(qint64(0)); },
                "chaining: RADIOLOGY has DB_CHAINING OFF"},
        Planted{"Owner", DatabaseQuestion, u"RADIOLOGY"_s,
                [](CatalogAnswer& a) { a.Cell(0, u"Owner"_s) = Value(u"01"_s); },
                "chaining: RADIOLOGY has another owner than PASSWORD"},
        Planted{"RightToTheServer",
                ServerPermissionsQuestion,
                {},
                [](CatalogAnswer& a) { a.rows.push_back({Value(u"ALTER ANY LOGIN"_s)}); },
                "rights: NURSE may more than is needed: ALTER ANY LOGIN of the server"},
        Planted{"RightToADatabase", DatabasePermissionsQuestion, u"BILLING"_s,
                [](CatalogAnswer& a) { a.rows.push_back({Value(u"CREATE PROCEDURE"_s)}); },
                "rights: NURSE may more than is needed: CREATE PROCEDURE in BILLING"},
        Planted{"ProcedureMissing", ParametersQuestion, u"RADIOLOGY"_s,
                [](CatalogAnswer& a) { a.Remove(u"ObjectName"_s, u"spRadio_CheckPending"_s); },
                "procedures: RADIOLOGY..spRadio_CheckPending is not there, or NURSE may do nothing with it"},
        Planted{"ParameterMissing", ParametersQuestion, u"Clinical_Area"_s,
                [](CatalogAnswer& a) { a.Remove(u"ObjectName"_s, u"spEarCare_GetPatient"_s); },
                "procedures: Clinical_Area..spEarCare_GetPatient has 1 parameters and is called with 2"},
        Planted{
            "ParameterOfAnotherKind", ParametersQuestion, u"Clinical_Area"_s,
            [](CatalogAnswer& a) {
                Set(a, u"ObjectName"_s, u"spEarCare_GetPatient"_s, u"TypeName"_s, Value(u"int"_s));
            },
            "procedures: Clinical_Area..spEarCare_GetPatient takes @PatientType as int and is given a text"},
        Planted{"AnswerWithoutAColumn", AnswersQuestion, u"Clinical_Area"_s,
                [](CatalogAnswer& a) { a.Remove(u"ColumnName"_s, u"Billing Date"_s); },
                "answers: Clinical_Area..spEarCare_GetPatient does not answer Billing Date"},
        Planted{"TableWithoutAColumn", ColumnsQuestion, u"PATIENT_DATA"_s,
                [](CatalogAnswer& a) { a.Remove(u"ColumnName"_s, u"Bygeneric"_s); },
                "tables: PATIENT_DATA..tbhospitalInfo has no column Bygeneric"},
        Planted{
            "ColumnOfAnotherKind", ColumnsQuestion, u"PATIENT_DATA"_s,
            [](CatalogAnswer& a) { Set(a, u"ColumnName"_s, u"TinNo"_s, u"TypeName"_s, Value(u"bigint"_s)); },
            "tables: PATIENT_DATA..tbhospitalInfo: TinNo is bigint and must be a text"},
        Planted{"RightMissing", PermissionsQuestion, u"RADIOLOGY"_s,
                [](CatalogAnswer& a) { a.Remove(u"ObjectName"_s, u"spRadio_CheckPending"_s); },
                "rights: NURSE lacks EXECUTE radiology.spradio_checkpending"},
        Planted{"RightToAColumnMissing", PermissionsQuestion, u"PASSWORD"_s,
                [](CatalogAnswer& a) { a.Remove(u"ColumnName"_s, u"Initial"_s); },
                "rights: NURSE lacks SELECT password.tbpasswordmain (initial)"},
        Planted{"RightBeyond", PermissionsQuestion, u"BILLING"_s,
                [](CatalogAnswer& a) { AddRight(a, u"tbPatientCharges"_s, {}, u"INSERT"_s); },
                "rights: NURSE may more than is needed: INSERT billing.tbpatientcharges"},
        Planted{"RightToTheHashes", PermissionsQuestion, u"PASSWORD"_s,
                [](CatalogAnswer& a) { AddRight(a, u"tbPasswordMain"_s, u"PasswordHash"_s, u"SELECT"_s); },
                "rights: NURSE may more than is needed: SELECT password.tbpasswordmain (passwordhash)"}),
    CaseName());

TEST(Checks, AClockThatIsOffIsTold) {
    SignedOnThere there([](const QString& question, const QString&, CatalogAnswer& answer) {
        if (question == SessionQuestion())
            answer.Cell(0, u"Clock"_s) = Value(DateTime::FromMilliseconds(Now().Milliseconds() - 300'500));
    });
    EXPECT_THAT(FaultsIn(LookAtClock(there.On())),
                ElementsAre(testing::MatchesRegex(
                    "clock: the server's is 30[01] seconds behind this workstation's")));
}

TEST(Checks, ATimeZoneOfItsOwnIsTold) {
    SignedOnThere there([](const QString& question, const QString&, CatalogAnswer& answer) {
        if (question == SessionQuestion())
            answer.Cell(0, u"Zone"_s) = Value(answer.Cell(0, u"Zone"_s).ToInteger() + 480);
    });
    EXPECT_THAT(FaultsIn(LookAtClock(there.On())), ElementsAre(HasSubstr("minutes from universal time")));
}

TEST(Checks, AProcedureThatTheServerCannotDescribeIsNoFault) {
    SignedOnThere there([](const QString& question, const QString& database, CatalogAnswer& answer) {
        if (question == AnswersQuestion() && database == "RADIOLOGY"_L1)
            answer.Cell(0, u"Reason"_s) = Value(u"it uses a temp table"_s);
    });
    const Findings findings = LookAtAnswers(there.On());
    EXPECT_THAT(FaultsIn(findings), IsEmpty());
    EXPECT_EQ(findings.back().verdict, Verdict::NotLookedAt);
    EXPECT_TRUE(findings.back().seen.contains(u"it uses a temp table"_s));
}

// A hospital's own templates may show what its own procedures answer.
TEST(Checks, TheServersColumnsAreThoseOfItsTemplates) {
    SignedOnThere there([](const QString& question, const QString& database, CatalogAnswer& answer) {
        if (question == AnswersQuestion() && database == "REPORTS"_L1) {
            answer.rows.push_back({Value(u"spReports_Income"_s), Value(u"Insured"_s), Value()});
            answer.rows.push_back({Value(u"spReports_OfTheHouse"_s), Value(u"Day"_s), Value()});
        }
        if (question == ColumnsQuestion() && database == "PATIENT_DATA"_L1)
            answer.rows.push_back({Value(u"tbhospitalInfo"_s), Value(u"Logo"_s), Value(u"varchar"_s)});
    });
    const Needs told = NeedsAsTold(there.On());
    EXPECT_TRUE(told.procedures[u"reports.spreports_income"_s].answers.contains(u"Insured"_s));
    EXPECT_TRUE(told.procedures[u"reports.spreports_income"_s].answers.contains(u"Department"_s));
    EXPECT_EQ(told.procedures[u"reports.spreports_ofthehouse"_s].answers, QStringList{u"Day"_s});
    EXPECT_EQ(told.tables[u"patient_data.tbhospitalinfo"_s].columns.back().name, u"Logo"_s);
}

TEST(Checks, TheSecondRolesRightsAreNotBeyondForItsMembers) {
    for (const qint64 member : {0, 1}) {
        SignedOnThere there(
            [member](const QString& question, const QString& database, CatalogAnswer& answer) {
                if (question == PermissionsQuestion() && database == "RADIOLOGY"_L1)
                    answer.rows.push_back({Value(u"spRadio_Consultation"_s), Value(QString()),
                                           Value(u"EXECUTE"_s), Value(member)});
            });
        EXPECT_THAT(FaultsIn(LookAtRights(there.On())), SizeIs(member == 1 ? 0 : 1));
    }
}

TEST(Checks, ADatabaseThatTheUserIsNotLetInToIsTold) {
    SignedOnThere there;
    there.server.Refuse(
        u"USE [INVENTORY]"_s, 916,
        u"The server principal \"NURSE\" is not able to access the database \"INVENTORY\"."_s);
    EXPECT_THAT(FaultsIn(LookAtTables(there.On())), Contains(HasSubstr("not able to access the database")));
    EXPECT_THAT(FaultsIn(LookAtDatabases(there.On())),
                ElementsAre(HasSubstr("databases: INVENTORY: The server principal")));
    EXPECT_THAT(FaultsIn(LookAtCollation(there.On())), IsEmpty());
    EXPECT_THAT(FaultsIn(LookAtChaining(there.On())), IsEmpty());
}

// What an administrator would do about it is not what he does about a user who was not let in.
TEST(Checks, AQuestionThatADatabaseRefusesIsToldAsSuch) {
    SignedOnThere there;
    there.server.Refuse(u"sys.dm_exec_describe_first_result_set_for_object"_s, 229,
                        u"The SELECT permission was denied."_s);
    const Findings found = LookAtAnswers(there.On());
    ASSERT_FALSE(found.empty());
    EXPECT_TRUE(found[0].toDo.contains(u"what the check asks"_s)) << found[0].toDo.toStdString();
}

// Of other databases a server may tell nothing, of the one that a question stands in it always does.
TEST(Checks, EachDatabaseIsAskedOfItself) {
    QStringList asked;
    SignedOnThere there([&asked](const QString& question, const QString& database, CatalogAnswer&) {
        if (question == DatabaseQuestion())
            asked << database;
    });
    LookAtDatabases(there.On());
    EXPECT_EQ(asked, ProgramsNeeds().databases);
}

TEST(Checks, ASlowRoundTripIsToldWithWhatTheQuestionsCost) {
    SignedOnThere there;
    EXPECT_THAT(FaultsIn(LookAtRoundTrip(there.On())), IsEmpty());
    there.server.Delay(u"spRadio_CheckPending"_s, 40);
    EXPECT_THAT(FaultsIn(LookAtRoundTrip(there.On())),
                ElementsAre(HasSubstr("the four questions a second for the wards' requests take 1")));
}

TEST(Checks, EncryptionThatNothingAsksForIsTold) {
    SignedOnThere there;
    EXPECT_THAT(FaultsIn(LookAtEncryption(there.On())),
                ElementsAre("encryption: nothing asks for it",
                            "encryption: no certificate is checked: nothing names a ca file"));
}

namespace {

/// A server that tells what a test says of itself.
class ToldGateway : public EmbeddedGateway {
  public:
    using EmbeddedGateway::EmbeddedGateway;
    QString ServerVersion() const override { return version; }
    QString DriverVersion() const override { return driver; }

    QString version;
    QString driver;
};

} // namespace

TEST(Checks, AnOldServerAndADriverWithoutANameAreTold) {
    const HospitalCopy copy;
    ToldGateway gateway(copy.Path());
    const Ground ground{.connection = gateway,
                        .needs = ProgramsNeeds(),
                        .user = u"NURSE"_s,
                        .source = u"Old"_s,
                        .department = u"HC"_s,
                        .dataFolder = u"/tmp"_s};
    gateway.version = u"Microsoft SQL Server 10.50.1600"_s;
    EXPECT_THAT(FaultsIn(LookAtVersion(ground)),
                ElementsAre("server version: Microsoft SQL Server 10.50.1600"));
    gateway.version.clear();
    EXPECT_THAT(FaultsIn(LookAtVersion(ground)), ElementsAre("server version: it does not tell its version"));
    gateway.version = u"Microsoft SQL Server 11.00.2100"_s;
    EXPECT_THAT(FaultsIn(LookAtVersion(ground)), IsEmpty());
    EXPECT_THAT(FaultsIn(LookAtDriver(ground)), ElementsAre("driver: it does not tell its name"));
    gateway.driver = u"libtdsodbc.so 01.03.0017"_s;
    EXPECT_THAT(FaultsIn(LookAtDriver(ground)), IsEmpty());
}

TEST(Checks, ARefusedQuestionIsAFaultAndTheNextOnesGoOn) {
    SignedOnThere there;
    there.server.Refuse(u"sys.dm_exec_sessions"_s, 300, u"VIEW SERVER STATE permission was denied."_s);
    Findings heard;
    const Findings all =
        LookAtEverything(there.On(), [&heard](const Finding& finding) { heard.push_back(finding); });
    EXPECT_THAT(FaultsIn(all), Contains("login language: VIEW SERVER STATE permission was denied."));
    EXPECT_EQ(all.back().name, u"round trip"_s);
    EXPECT_EQ(heard.size(), all.size());
}

namespace {

/// Something in the hospital's tables that must not be.
struct SpoiltTable {
    const char* name;
    QString command;
    std::string told;
};

void PrintTo(const SpoiltTable& spoilt, std::ostream* out) {
    *out << spoilt.name;
}

class SpoiltHospital : public testing::TestWithParam<SpoiltTable> {};

} // namespace

TEST_P(SpoiltHospital, IsToldAlone) {
    const HospitalCopy copy;
    EmbeddedGateway gateway(copy.Path());
    gateway.ExecuteNoResult(GetParam().command);
    const Ground ground{.connection = gateway,
                        .needs = ProgramsNeeds(),
                        .isTrial = true,
                        .user = u"NURSE"_s,
                        .source = u"Trial hospital"_s,
                        .department = u"HC"_s,
                        .dataFolder = u"/tmp"_s};
    EXPECT_THAT(FaultsIn(AllOf(ground)), ElementsAre(GetParam().told));
}

INSTANTIATE_TEST_SUITE_P(
    Trial, SpoiltHospital,
    testing::Values(SpoiltTable{"NoRecord", u"DELETE FROM PATIENT_DATA..tbhospitalInfo"_s,
                                "hospital record: 0 rows in PATIENT_DATA..tbhospitalInfo"},
                    SpoiltTable{"NoName", u"UPDATE PATIENT_DATA..tbhospitalInfo SET company = ' '"_s,
                                "hospital record: it has no name"},
                    SpoiltTable{"NoCounter", u"DELETE FROM Clinical_Area..tbEarCareChargeSlip"_s,
                                "counters: Clinical_Area..tbEarCareChargeSlip has 0 rows"},
                    SpoiltTable{"TwoCounters",
                                u"INSERT INTO BILLING..tbAssessmentNum (AssessmentNum) VALUES ('7')"_s,
                                "counters: BILLING..tbAssessmentNum has 2 rows"},
                    SpoiltTable{"NoUser", u"DELETE FROM PASSWORD..tbPasswordDept WHERE DeptCode = 'HC'"_s,
                                "department: no user is entered for HC"},
                    SpoiltTable{"NoCentre", u"DELETE FROM build_file..tbCoRevenue WHERE RevenueID = 'HC'"_s,
                                "department: no revenue centre is called HC"}),
    CaseName());
