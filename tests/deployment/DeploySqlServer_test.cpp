#include "deployment/HospitalObjects.h"
#include "deployment/SourceText.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/tds/TdsResponder.h"

#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <gmock/gmock.h>
#include <string>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::HasSubstr;
using testing::Truly;

// The script that lays the hospital on a server, against a responder: what it sends and what it makes of a
// refusal. No server judges the statements here.

namespace {

class DeploySqlServer : public testing::Test {
  protected:
    /// Runs the script with FreeTDS' client; gives its exit code.
    int Deploy(QStringList arguments = {}) {
        QProcess script;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"TARVEN_SQL_PASSWORD"_s, u"geheim"_s);
        environment.insert(u"TARVEN_SQL_CLIENT"_s, u"tsql"_s);
        script.setProcessEnvironment(environment);
        arguments << u"127.0.0.1:%1"_s.arg(server.Port()) << u"DBA"_s;
        script.start(QStringLiteral(TARVEN_SOURCE_DIR "/tools/deploy-sqlserver"), arguments);
        // The limit is the test runner's.
        EXPECT_TRUE(script.waitForFinished(-1));
        errors = script.readAllStandardError().toStdString();
        output = script.readAllStandardOutput().toStdString();
        return script.exitCode();
    }

    TdsResponder server{[this]() -> TdsResponder::Handler {
        return [this](const QString& batch, TdsAnswer& answer) {
            if (!refused.isEmpty() && batch.contains(refused))
                answer.Error(102, u"Incorrect syntax near 'x'."_s, 15, LineOf(refused, batch));
            else if (batch.contains(u"FROM sys.server_principals"_s))
                AnswerNumber(answer, AsksForOneOf(serverLogins, batch) ? 1 : 0);
            else if (batch.contains(u"FROM PATIENT_DATA..tbmaster"_s))
                AnswerNumber(answer, patients);
            else if (batch.contains(u"sys.tables"_s))
                AnswerNumber(answer, isUnfinished ? 1 : 0);
            else if (batch.contains(u"ALTER PROCEDURE"_s))
                answer.Info(2007, u"The module depends on an object that is not there yet."_s);
        };
    }};

    /// Whether a question after a login asks for one of these.
    static bool AsksForOneOf(const QStringList& logins, const QString& batch) {
        return std::any_of(logins.begin(), logins.end(), [&](const QString& login) {
            return batch.contains(u"WHERE name = N'%1' "_s.arg(login));
        });
    }

    static void AnswerNumber(TdsAnswer& answer, int number) {
        answer.Columns({{.name = QString(), .type = TdsType::Int}});
        answer.Row({number});
        answer.Done(1);
    }

    /// What the server was sent, from the batch that begins so.
    QStringList BatchesFrom(const QString& start) const {
        const QStringList batches = server.Batches();
        const auto first = std::find_if(batches.begin(), batches.end(),
                                        [&start](const QString& batch) { return batch.startsWith(start); });
        return {first, batches.end()};
    }

    /// What the server was sent, each batch with the database that its connection was for.
    std::vector<std::pair<QString, QString>> BatchesByDatabase() const {
        // Each batch has a connection of its own, so the two lists run side by side.
        const QStringList batches = server.Batches().filter(QRegularExpression(u"^(?!USE )"_s));
        const std::vector<TdsLogin> logins = server.Logins();
        EXPECT_EQ(size_t(batches.size()), logins.size());
        std::vector<std::pair<QString, QString>> sent;
        for (size_t i = 0; i < std::min(size_t(batches.size()), logins.size()); ++i)
            sent.emplace_back(logins[i].database, batches[qsizetype(i)]);
        return sent;
    }

    /// The line, from 1, on which a part of a text begins.
    static int LineOf(const QString& part, const QString& text) {
        return int(text.first(text.indexOf(part)).count(u'\n')) + 1;
    }

    /// How a refusal names the line of a file on which the part begins.
    static std::string RefusedAt(const QString& path, const QString& part) {
        return path.toStdString() + ':' + std::to_string(LineOf(part, ReadFile(path))) +
               ": the server refused it\n";
    }

    /// A batch with this text in it is refused, for a mistake on the line where the text begins.
    QString refused;
    /// Who may log on to the server.
    QStringList serverLogins = {u"NURSE"_s, u"CLERK"_s};
    int patients = 0;
    /// Whether filling it was begun and not ended.
    bool isUnfinished = false;
    std::string errors;
    std::string output;
};

auto HoldsText(const QString& text) {
    return Truly([text](const QString& batch) { return batch.contains(text); });
}

} // namespace

TEST_F(DeploySqlServer, MakesTablesAndProceduresUnlessTheyStand) {
    ASSERT_EQ(Deploy(), 0) << errors;
    const QStringList batches = server.Batches();
    EXPECT_THAT(batches, Contains(HoldsText(u"IF DB_ID('BILLING') IS NULL CREATE DATABASE [BILLING]"_s)));
    EXPECT_THAT(batches, Contains(HoldsText(u"IF OBJECT_ID('dbo.tbPatientCharges') IS NULL BEGIN"_s)));
    for (const QString& batch : batches.filter(u"CREATE TABLE dbo."_s)) {
        EXPECT_TRUE(batch.startsWith(u"SET XACT_ABORT ON; BEGIN TRANSACTION; IF OBJECT_ID('dbo."_s));
        EXPECT_TRUE(batch.trimmed().endsWith(u"END\nCOMMIT TRANSACTION"_s)) << "a table without its indexes";
    }
    EXPECT_THAT(batches, Contains(HoldsText(u"ALTER PROCEDURE dbo.spEarCare_Append_Charging"_s)));
    EXPECT_THAT(batches, Not(Contains(HoldsText(u"INSERT INTO PATIENT_DATA..tbmaster"_s))));
    EXPECT_EQ(server.Logins().front().user, u"DBA"_s);
    EXPECT_EQ(server.Logins().front().password, u"geheim"_s);
}

TEST_F(DeploySqlServer, AddsTheColumnsThatATableLacksBeforeAnyProcedureUsesThem) {
    ASSERT_EQ(Deploy(), 0) << errors;
    const QStringList adding = server.Batches().filter(u" IS NULL ALTER TABLE dbo."_s);
    EXPECT_THAT(adding,
                Contains(HoldsText(u"\nIF COL_LENGTH('dbo.tbPasswordMain', 'Active') IS NULL ALTER TABLE "
                                   "dbo.tbPasswordMain ADD Active bit NOT NULL DEFAULT 1;\n"_s)));
    const QString all = adding.join(u'\n').toLower();
    const QMap<QString, QStringList> tables = ReadHospital().tables;
    ASSERT_EQ(adding.size(), tables.size());
    for (const auto& [table, columns] : tables.asKeyValueRange()) {
        for (const QString& column : columns) {
            const QString name = table.section(u'.', 1);
            EXPECT_TRUE(all.contains(
                u"if col_length('dbo.%1', '%2') is null alter table dbo.%1 add %2 "_s.arg(name, column)))
                << name.toStdString() << ": " << column.toStdString();
        }
    }
    const QStringList batches = server.Batches();
    EXPECT_LT(batches.indexOf(adding.last()),
              batches.indexOf(batches.filter(u"ALTER PROCEDURE dbo."_s).front()));
    EXPECT_THAT(adding.filter(u"PRIMARY KEY ("_s), testing::IsEmpty()) << "a key is no column";
}

TEST_F(DeploySqlServer, NamesTheLineOfAColumnThatIsRefused) {
    refused = u"IF COL_LENGTH('dbo.tbAuditTrail', 'Event') IS NULL ALTER TABLE dbo.tbAuditTrail ADD Event "_s;
    EXPECT_EQ(Deploy(), 1);
    const QString path = u"hospital/schema/40-BILLING.sql"_s;
    const QString file = ReadFile(path);
    const qsizetype table = file.indexOf(u"CREATE TABLE dbo.tbAuditTrail"_s);
    const int line = LineOf(file.sliced(file.indexOf(u"    Event "_s, table)), file);
    EXPECT_THAT(errors, testing::StartsWith(path.toStdString() + ':' + std::to_string(line) +
                                            ": the server refused it\n"));
}

TEST_F(DeploySqlServer, NamesTheLineThatMakesAProcedureWhichIsRefused) {
    const QString path = u"hospital/procedures/Clinical_Area/spEarCare_Append_Charging.sql"_s;
    for (const QString& statement : {u"IF OBJECT_ID('dbo.spEarCare_Append_Charging') IS NULL EXEC"_s,
                                     u"ALTER PROCEDURE dbo.spEarCare_Append_Charging"_s}) {
        refused = statement;
        EXPECT_EQ(Deploy(), 1);
        EXPECT_THAT(errors, testing::StartsWith(
                                RefusedAt(path, u"CREATE PROCEDURE dbo.spEarCare_Append_Charging"_s)));
        EXPECT_TRUE(server.Batches().last().contains(refused));
    }
}

TEST_F(DeploySqlServer, SendsEveryProcedure) {
    ASSERT_EQ(Deploy(), 0) << errors;
    const QStringList batches = server.Batches();
    const QStringList files = FilesBelow(u"hospital/procedures"_s, {u"*.sql"_s});
    for (const QString& file : files) {
        const QString name = QFileInfo(file).completeBaseName();
        EXPECT_THAT(batches, Contains(HoldsText(u"ALTER PROCEDURE dbo."_s + name))) << name.toStdString();
    }
    EXPECT_GT(files.size(), 20);
}

TEST_F(DeploySqlServer, FillsAnEmptyHospitalOnRequest) {
    ASSERT_EQ(Deploy({u"--demo"_s}), 0) << errors;
    EXPECT_THAT(server.Batches(), Contains(HoldsText(u"NUÑEZ"_s)));
    const QStringList sent = BatchesFrom(u"CREATE TABLE dbo.tarven_demo_unfinished"_s);
    ASSERT_GT(sent.size(), 2);
    EXPECT_TRUE(sent[1].trimmed().startsWith(u"INSERT INTO PASSWORD..tbPasswordMain"_s))
        << sent[1].toStdString();
    EXPECT_THAT(sent, Contains(HoldsText(u"DROP TABLE dbo.tarven_demo_unfinished"_s)));
    EXPECT_THAT(sent, Not(Contains(HoldsText(u"TRUNCATE"_s))))
        << "nothing is emptied that is not known as demo data";
}

TEST_F(DeploySqlServer, FillsAgainWhatWasBrokenOff) {
    refused = u"INSERT INTO BILLING..tbCashAssessment"_s;
    EXPECT_EQ(Deploy({u"--demo"_s}), 1);
    EXPECT_THAT(server.Batches(), Not(Contains(HoldsText(u"DROP TABLE"_s)))) << "the mark stays";
    refused.clear();
    patients = 412;
    isUnfinished = true;
    ASSERT_EQ(Deploy({u"--demo"_s}), 0) << errors;
    QSet<QString> emptied;
    bool isFilled = false;
    static const QRegularExpression filling(u"INSERT INTO (\\w+\\.\\.\\w+) "_s);
    static const QRegularExpression emptying(u"^TRUNCATE TABLE dbo\\.(\\w+)$"_s);
    for (const auto& [database, batch] : BatchesByDatabase()) {
        if (const auto match = emptying.match(batch.trimmed()); match.hasMatch())
            emptied.insert(database + u".."_s + match.captured(1));
        else if (const auto filled = filling.match(batch); filled.hasMatch() && !emptied.isEmpty()) {
            EXPECT_TRUE(emptied.contains(filled.captured(1))) << filled.captured(1).toStdString();
            isFilled |= filled.captured(1) == u"BILLING..tbCashAssessment"_s;
        }
    }
    EXPECT_GT(emptied.size(), 20);
    EXPECT_TRUE(isFilled);
    EXPECT_THAT(server.Batches(), Contains(HoldsText(u"DROP TABLE dbo.tarven_demo_unfinished"_s)));
}

TEST_F(DeploySqlServer, SendsTheDemoDataInADatabaseOfTheHospital) {
    ASSERT_EQ(Deploy({u"--demo"_s}), 0) << errors;
    int seen = 0;
    for (const auto& [database, batch] : BatchesByDatabase()) {
        if (batch.contains(u"NUÑEZ"_s) || batch.trimmed().startsWith(u"INSERT INTO"_s)) {
            EXPECT_EQ(database, u"PASSWORD"_s);
            ++seen;
        }
    }
    EXPECT_GT(seen, 10);
}

TEST_F(DeploySqlServer, ACountThatIsRefusedIsAFailureAndNotAHospitalWithPatients) {
    refused = u"SELECT COUNT(*) FROM PATIENT_DATA..tbmaster"_s;
    EXPECT_EQ(Deploy({u"--demo"_s}), 1);
    EXPECT_THAT(errors, HasSubstr("Incorrect syntax near 'x'."));
    EXPECT_THAT(errors, HasSubstr(", counting the patients: the server refused it"));
    EXPECT_THAT(output, Not(HasSubstr("The hospital has patients")));
    EXPECT_TRUE(server.Batches().last().contains(refused));
}

TEST_F(DeploySqlServer, LeavesAHospitalWithPatientsAsItIs) {
    patients = 1;
    ASSERT_EQ(Deploy({u"--demo"_s}), 0) << errors;
    EXPECT_THAT(output, HasSubstr("The hospital has patients"));
    EXPECT_THAT(server.Batches(), Not(Contains(HoldsText(u"INSERT INTO PATIENT_DATA..tbmaster"_s))));
}

TEST_F(DeploySqlServer, NamesTheFileAndLineOfARefusalAndStopsThere) {
    refused = u"CREATE TABLE dbo.tbAuditTrail"_s;
    EXPECT_EQ(Deploy(), 1);
    EXPECT_THAT(errors, testing::StartsWith(RefusedAt(u"hospital/schema/40-BILLING.sql"_s, refused)));
    EXPECT_THAT(errors, HasSubstr("Incorrect syntax near 'x'."));
    EXPECT_TRUE(server.Batches().last().contains(refused));
}

TEST_F(DeploySqlServer, NamesTheLineOfAGrantThatIsRefused) {
    const QString path = u"tools/sqlserver/rights.sql"_s;
    // The second one is the first of its batch.
    for (const QString& grant :
         {u"GRANT SELECT ON dbo.tbCashAssessment"_s, u"GRANT SELECT ON dbo.tbPasswordMain (EmployeeID"_s}) {
        refused = grant;
        EXPECT_EQ(Deploy(), 1);
        EXPECT_THAT(errors, testing::StartsWith(RefusedAt(path, grant)));
    }
}

TEST_F(DeploySqlServer, NamesTheLineOfATakingAwayThatIsRefused) {
    refused = u"EXEC (@revoke);"_s;
    EXPECT_EQ(Deploy(), 1);
    EXPECT_THAT(errors, testing::StartsWith(RefusedAt(u"tools/sqlserver/revoke.sql"_s, refused)));
}

TEST_F(DeploySqlServer, AServerThatIsGoneIsAFailure) {
    server.Close();
    EXPECT_EQ(Deploy(), 1);
    EXPECT_THAT(errors, HasSubstr("Unable to connect"));
}

TEST_F(DeploySqlServer, GrantsWhatTheFileOfRightsSaysInTheStepThatTakesAwayWhatTheRolesHad) {
    ASSERT_EQ(Deploy(), 0) << errors;
    QStringList expected = ReadFile(u"tools/sqlserver/rights.sql"_s).split(u'\n').filter(u"GRANT "_s);
    QStringList sent;
    static const QRegularExpression grant(u"\\bGRANT [^;]*;"_s);
    const QStringList granting = server.Batches().filter(grant);
    for (const QString& batch : granting) {
        EXPECT_TRUE(
            batch.simplified().startsWith(u"SET XACT_ABORT ON; BEGIN TRANSACTION; DECLARE @revoke "_s))
            << batch.toStdString();
        EXPECT_LT(batch.lastIndexOf(u"EXEC (@revoke);"_s), batch.indexOf(grant)) << batch.toStdString();
        EXPECT_EQ(batch.count(u"p.state IN ('G', 'W')"_s), 2) << "what may be passed on goes too";
        EXPECT_EQ(batch.count(u" CASCADE; "_s), 2) << "with what was passed on";
        EXPECT_TRUE(batch.trimmed().endsWith(u";\nCOMMIT TRANSACTION"_s)) << batch.toStdString();
        for (auto found = grant.globalMatch(batch); found.hasNext();)
            sent << found.next().captured();
    }
    EXPECT_EQ(granting.size(), server.Batches().filter(u"CREATE DATABASE"_s).size()) << "one a database";
    expected.sort();
    sent.sort();
    EXPECT_EQ(sent, expected);
    EXPECT_GT(sent.size(), 60);
}

TEST_F(DeploySqlServer, MakesBothRolesInEveryDatabase) {
    ASSERT_EQ(Deploy(), 0) << errors;
    const qsizetype databases = server.Batches().filter(u"CREATE DATABASE"_s).size();
    EXPECT_GE(databases, 9);
    for (const char* role : {"tarven_hemodialysis", "tarven_hemodialysis_standby"}) {
        const QString making =
            u"IF DATABASE_PRINCIPAL_ID('%1') IS NULL CREATE ROLE %1"_s.arg(QLatin1StringView(role));
        const QStringList batches = server.Batches();
        EXPECT_EQ(std::count_if(batches.begin(), batches.end(),
                                [&](const QString& batch) { return batch.trimmed() == making; }),
                  databases)
            << role;
    }
}

TEST_F(DeploySqlServer, GivesTheDatabasesToALoginThatNobodyCanUse) {
    ASSERT_EQ(Deploy(), 0) << errors;
    const QStringList batches = server.Batches();
    const QStringList making = batches.filter(u"CREATE LOGIN"_s);
    ASSERT_EQ(making.size(), 1);
    const QString owner = making.front();
    EXPECT_TRUE(owner.trimmed().startsWith(u"IF SUSER_ID('tarven_owner') IS NULL\nBEGIN"_s));
    EXPECT_TRUE(owner.contains(u"CRYPT_GEN_RANDOM(32)"_s)) << owner.toStdString();
    EXPECT_TRUE(owner.contains(u"CHECK_POLICY = ON"_s)) << owner.toStdString();
    EXPECT_TRUE(owner.trimmed().endsWith(u"END;\nALTER LOGIN tarven_owner DISABLE;"_s))
        << owner.toStdString();
    const QStringList given = batches.filter(u"ALTER AUTHORIZATION"_s);
    EXPECT_EQ(given.size(), batches.filter(u"CREATE DATABASE"_s).size());
    for (const QString& batch : given) {
        EXPECT_TRUE(batch.trimmed().endsWith(u" TO [tarven_owner]"_s)) << batch.toStdString();
        EXPECT_GT(batches.indexOf(batch), batches.indexOf(owner));
    }
    static const QRegularExpression administrator(u"(?<!\\w)sa(?!\\w)"_s,
                                                  QRegularExpression::CaseInsensitiveOption);
    EXPECT_THAT(batches.filter(administrator), testing::IsEmpty()) << "it may bear any name";
}

TEST_F(DeploySqlServer, LetsLoginsInToEveryDatabase) {
    ASSERT_EQ(Deploy({u"--grant"_s, u"NURSE"_s, u"--grant"_s, u"CLERK"_s}), 0) << errors;
    const QStringList batches = server.Batches();
    const qsizetype databases = batches.filter(u"CREATE DATABASE"_s).size();
    for (const QString& login : {u"NURSE"_s, u"CLERK"_s})
        EXPECT_EQ(batches.filter(u"ALTER ROLE tarven_hemodialysis ADD MEMBER [%1]"_s.arg(login)).size(),
                  databases);
    EXPECT_THAT(batches, Not(Contains(HoldsText(u"ALTER ROLE tarven_hemodialysis_standby"_s))));
}

TEST_F(DeploySqlServer, LetsALoginInToWhatStandsReadyBesidesTheRest) {
    ASSERT_EQ(Deploy({u"--grant-standby"_s, u"CLERK"_s, u"--grant"_s, u"NURSE"_s}), 0) << errors;
    const QStringList batches = server.Batches();
    const qsizetype databases = batches.filter(u"CREATE DATABASE"_s).size();
    const auto letIn = [&](const QString& login, const QString& role) {
        return batches.filter(u"ALTER ROLE %1 ADD MEMBER [%2]"_s.arg(role, login)).size();
    };
    EXPECT_EQ(letIn(u"CLERK"_s, u"tarven_hemodialysis"_s), databases);
    EXPECT_EQ(letIn(u"CLERK"_s, u"tarven_hemodialysis_standby"_s), databases);
    EXPECT_EQ(letIn(u"NURSE"_s, u"tarven_hemodialysis"_s), databases);
    EXPECT_EQ(letIn(u"NURSE"_s, u"tarven_hemodialysis_standby"_s), 0);
}

TEST_F(DeploySqlServer, ALoginThatIsMissingIsToldBeforeAnythingIsChanged) {
    EXPECT_EQ(Deploy({u"--grant"_s, u"NURSE"_s, u"--grant"_s, u"LAB"_s, u"--grant-standby"_s, u"DOCTOR"_s}),
              3);
    EXPECT_THAT(errors,
                HasSubstr("there is no login LAB on 127.0.0.1 that can be let in, or DBA may not see it\n"));
    EXPECT_THAT(
        errors,
        HasSubstr("there is no login DOCTOR on 127.0.0.1 that can be let in, or DBA may not see it\n"));
    EXPECT_THAT(errors, HasSubstr("nothing was changed"));
    EXPECT_THAT(errors, Not(HasSubstr("NURSE")));
    static const QRegularExpression question(
        u"^(?:USE master|SELECT 1|SET NOCOUNT ON; SELECT COUNT\\(\\*\\) FROM sys\\.server_principals [^;]*)$"_s);
    for (const QString& batch : server.Batches())
        EXPECT_TRUE(question.match(batch.trimmed()).hasMatch()) << batch.toStdString();
    for (const TdsLogin& login : server.Logins())
        EXPECT_EQ(login.database, u"master"_s) << "the hospital's databases may not stand yet";
}

TEST_F(DeploySqlServer, TheServersAdministratorAndTheOwnerAreNotLookedForAsUsers) {
    ASSERT_EQ(Deploy({u"--grant"_s, u"NURSE"_s}), 0) << errors;
    const QStringList questions = server.Batches().filter(u"WHERE name = N'NURSE' "_s);
    ASSERT_EQ(questions.size(), 1);
    EXPECT_TRUE(questions[0].contains(u" AND sid <> 0x01 AND name <> N'tarven_owner'"_s))
        << questions[0].toStdString();
}

TEST_F(DeploySqlServer, ANameThatIsNoLoginIsNotSent) {
    for (const QString& option : {u"--grant"_s, u"--grant-standby"_s}) {
        EXPECT_EQ(Deploy({option, u"X]; DROP TABLE y --"_s}), 2);
        EXPECT_THAT(errors, HasSubstr("'X]; DROP TABLE y --' is no login that this script can name"));
    }
    EXPECT_THAT(server.Batches(), testing::IsEmpty());
}

TEST_F(DeploySqlServer, AnOptionWithoutItsLoginIsAWrongCall) {
    EXPECT_EQ(Deploy({u"--grant"_s, QString(u""_s)}), 2);
    EXPECT_THAT(errors, HasSubstr("--grant wants a login"));
    EXPECT_EQ(Deploy({u"--revoke"_s}), 2);
    EXPECT_THAT(errors, HasSubstr("unknown option --revoke"));
    EXPECT_THAT(server.Batches(), testing::IsEmpty());
}

namespace {

struct RefusedStep {
    const char* name;
    /// A text of the batch that is refused.
    const char* batch;
    /// What the script says it was doing.
    const char* step;
    /// A part of the script's statement; it stands on the line that is named or on the next one.
    const char* statement;
};

void PrintTo(const RefusedStep& step, std::ostream* out) {
    *out << step.name;
}

class DeploySqlServerRefused : public DeploySqlServer, public testing::WithParamInterface<RefusedStep> {};

} // namespace

TEST_P(DeploySqlServerRefused, IsNamedByItsLineAndStep) {
    refused = QString::fromLatin1(GetParam().batch);
    isUnfinished = true;
    EXPECT_EQ(Deploy({u"--demo"_s, u"--grant-standby"_s, u"NURSE"_s}), 1);
    const QString script = u"tools/deploy-sqlserver"_s;
    const QRegularExpression refusal(u"^%1:(\\d+), %2: the server refused it\n"_s.arg(
        script, QRegularExpression::escape(QString::fromLatin1(GetParam().step))));
    const auto match = refusal.match(QString::fromStdString(errors));
    ASSERT_TRUE(match.hasMatch()) << errors;
    const qsizetype line = match.captured(1).toLongLong();
    const QString there = ReadFile(script).split(u'\n').sliced(line - 1, 2).join(u'\n');
    EXPECT_TRUE(there.contains(QString::fromLatin1(GetParam().statement))) << there.toStdString();
    EXPECT_THAT(errors, HasSubstr("Incorrect syntax near 'x'."));
    EXPECT_TRUE(server.Batches().last().contains(refused)) << "and nothing is sent behind it";
}

INSTANTIATE_TEST_SUITE_P(
    Steps, DeploySqlServerRefused,
    testing::Values(RefusedStep{"LogOn", "SELECT 1", "logging on as DBA", "SELECT 1"},
                    RefusedStep{"Login", "FROM sys.server_principals", "looking for the login NURSE",
                                "FROM sys.server_principals"},
                    RefusedStep{"Database", "CREATE DATABASE [BILLING]", "making the database BILLING",
                                "CREATE DATABASE ["},
                    RefusedStep{"Giving", "ALTER AUTHORIZATION ON DATABASE::[BILLING]",
                                "giving the database BILLING to tarven_owner",
                                "ALTER AUTHORIZATION ON DATABASE::["},
                    RefusedStep{"Chaining", "ALTER DATABASE [BILLING] SET DB_CHAINING ON",
                                "letting procedures of BILLING use the other databases",
                                "SET DB_CHAINING ON"},
                    RefusedStep{"Emptying", "TRUNCATE TABLE dbo.tbCashAssessment",
                                "emptying BILLING..tbCashAssessment", "TRUNCATE TABLE dbo."},
                    RefusedStep{"Unmarking", "DROP TABLE dbo.tarven_demo_unfinished",
                                "taking away the mark of unfinished demo data", "DROP TABLE dbo."},
                    RefusedStep{"Role", "CREATE ROLE tarven_hemodialysis_standby",
                                "making the role tarven_hemodialysis_standby in BILLING", "CREATE ROLE "},
                    RefusedStep{"LettingIn", "ADD MEMBER [NURSE]",
                                "letting NURSE in to BILLING as tarven_hemodialysis", "ADD MEMBER ["}),
    CaseName());

TEST_F(DeploySqlServer, NamesTheLineOfTheOwnersMakingThatIsRefused) {
    refused = u"N'CREATE LOGIN"_s;
    EXPECT_EQ(Deploy(), 1);
    EXPECT_THAT(errors, testing::StartsWith(RefusedAt(u"tools/sqlserver/owner.sql"_s, refused)));
}

TEST_F(DeploySqlServer, AMessageOfTheServerIsNoRefusal) {
    ASSERT_EQ(Deploy(), 0) << errors;
    EXPECT_THAT(output, HasSubstr("depends on an object that is not there yet"));
    EXPECT_THAT(output, HasSubstr("Done."));
}
