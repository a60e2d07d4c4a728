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
                answer.Error(102, u"Incorrect syntax near 'x'."_s, 15, kRefusedLine);
            else if (batch.contains(u"FROM sys.server_principals"_s))
                AnswerNumber(answer, AsksForOneOf(serverLogins, batch) ? 1 : 0);
            else if (batch.contains(u"FROM PATIENT_DATA..tbmaster"_s))
                AnswerNumber(answer, patients);
            else if (batch.contains(u"sys.tables"_s))
                AnswerNumber(answer, isUnfinished ? 1 : 0);
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

    /// Where in a file the refused batch has its mistake: the batch begins behind the GO before it.
    qsizetype RefusedLineOf(const QString& path) const {
        const QStringList lines = ReadFile(path).split(u'\n');
        const auto found = std::find_if(lines.begin(), lines.end(),
                                        [this](const QString& line) { return line.contains(refused); });
        return lines.lastIndexOf(u"GO"_s, found - lines.begin()) + 1 + kRefusedLine;
    }

    /// The line of its batch in which the server finds a mistake.
    static constexpr int kRefusedLine = 3;
    /// A batch with this text in it is refused.
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
    refused = u"ALTER TABLE dbo.tbAuditTrail ADD"_s;
    EXPECT_EQ(Deploy(), 1);
    const QStringList adding = server.Batches().last().split(u'\n');
    refused = u"CREATE TABLE dbo.tbAuditTrail"_s;
    const QString path = u"hospital/schema/40-BILLING.sql"_s;
    const qsizetype line = RefusedLineOf(path);
    EXPECT_THAT(errors,
                HasSubstr(path.toStdString() + ':' + std::to_string(line) + ": the server refused it"));
    const QStringList lines = ReadFile(path).split(u'\n').sliced(line - kRefusedLine);
    const qsizetype column = lines.indexOf(QRegularExpression(u"    Event .*"_s));
    EXPECT_EQ(
        adding[column],
        u"IF COL_LENGTH('dbo.tbAuditTrail', 'Event') IS NULL ALTER TABLE dbo.tbAuditTrail ADD %1;"_s.arg(
            lines[column].trimmed().chopped(1)));
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
    const QStringList sent = BatchesFrom(u"CREATE TABLE PASSWORD.dbo.tarven_demo_unfinished"_s);
    ASSERT_GT(sent.size(), 2);
    EXPECT_TRUE(sent[1].trimmed().startsWith(u"INSERT INTO PASSWORD..tbPasswordMain"_s))
        << sent[1].toStdString();
    EXPECT_THAT(sent, Contains(HoldsText(u"DROP TABLE PASSWORD.dbo.tarven_demo_unfinished"_s)));
    EXPECT_THAT(sent, Not(Contains(HoldsText(u"TRUNCATE"_s))))
        << "nothing is emptied that is not known as demo data";
}

TEST_F(DeploySqlServer, FillsAgainWhatWasBrokenOff) {
    refused = u"INSERT INTO BILLING..tbCashAssessment"_s;
    EXPECT_EQ(Deploy({u"--demo"_s}), 1);
    EXPECT_THAT(server.Batches(), Not(Contains(HoldsText(u"DROP TABLE"_s)))) << "the mark stays";
    server.ForgetBatches();
    refused.clear();
    patients = 412;
    isUnfinished = true;
    ASSERT_EQ(Deploy({u"--demo"_s}), 0) << errors;
    const QStringList sent = BatchesFrom(u"TRUNCATE TABLE"_s);
    QSet<QString> emptied;
    static const QRegularExpression filling(u"INSERT INTO (\\w+\\.\\.\\w+) "_s);
    for (const QString& batch : sent) {
        if (batch.startsWith(u"TRUNCATE TABLE "_s))
            emptied.insert(batch.mid(15).trimmed());
        else if (const auto match = filling.match(batch); match.hasMatch()) {
            EXPECT_TRUE(emptied.contains(match.captured(1))) << match.captured(1).toStdString();
        }
    }
    EXPECT_GT(emptied.size(), 20);
    EXPECT_THAT(sent, Contains(HoldsText(u"INSERT INTO BILLING..tbCashAssessment"_s)));
    EXPECT_THAT(sent, Contains(HoldsText(u"DROP TABLE PASSWORD.dbo.tarven_demo_unfinished"_s)));
}

TEST_F(DeploySqlServer, SendsTheDemoDataInADatabaseOfTheHospital) {
    ASSERT_EQ(Deploy({u"--demo"_s}), 0) << errors;
    // Each batch has a connection of its own, so the two lists run side by side.
    const QStringList batches = server.Batches().filter(QRegularExpression(u"^(?!USE )"_s));
    const std::vector<TdsLogin> logins = server.Logins();
    ASSERT_EQ(size_t(batches.size()), logins.size());
    int seen = 0;
    for (qsizetype i = 0; i < batches.size(); ++i) {
        if (batches[i].contains(u"NUÑEZ"_s) || batches[i].trimmed().startsWith(u"INSERT INTO"_s)) {
            EXPECT_EQ(logins[size_t(i)].database, u"PASSWORD"_s);
            ++seen;
        }
    }
    EXPECT_GT(seen, 10);
}

TEST_F(DeploySqlServer, ACountThatIsRefusedIsAFailureAndNotAHospitalWithPatients) {
    refused = u"SELECT COUNT(*) FROM PATIENT_DATA..tbmaster"_s;
    EXPECT_EQ(Deploy({u"--demo"_s}), 1);
    EXPECT_THAT(errors, HasSubstr("Incorrect syntax near 'x'."));
    EXPECT_THAT(errors, HasSubstr("tools/deploy-sqlserver, counting the patients: the server refused it"));
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
    const qsizetype line = RefusedLineOf(u"hospital/schema/40-BILLING.sql"_s);
    EXPECT_THAT(errors, HasSubstr("hospital/schema/40-BILLING.sql:" + std::to_string(line) +
                                  ": the server refused it"));
    EXPECT_THAT(errors, HasSubstr("Incorrect syntax near 'x'."));
    EXPECT_TRUE(server.Batches().last().contains(refused));
}

TEST_F(DeploySqlServer, NamesTheLineOfAGrantThatIsRefused) {
    refused = u"GRANT SELECT ON dbo.tbCashAssessment"_s;
    EXPECT_EQ(Deploy(), 1);
    const QString path = u"tools/sqlserver/rights.sql"_s;
    EXPECT_THAT(errors, HasSubstr(path.toStdString() + ':' + std::to_string(RefusedLineOf(path)) +
                                  ": the server refused it"));
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
        EXPECT_TRUE(batch.startsWith(u"SET XACT_ABORT ON; BEGIN TRANSACTION; DECLARE @revoke "_s))
            << batch.toStdString();
        EXPECT_LT(batch.lastIndexOf(u"EXEC (@revoke);"_s), batch.indexOf(grant)) << batch.toStdString();
        EXPECT_EQ(batch.count(u"p.state IN ('G', 'W')"_s), 2) << "what may be passed on goes too";
        EXPECT_EQ(batch.count(u" CASCADE; "_s), 2) << "with what was passed on";
        EXPECT_TRUE(grant.match(batch.section(u'\n', 0, 0)).hasMatch()) << "the file's lines have moved";
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
    static const QRegularExpression administrator(u"(?<!\\w)sa(?!\\w)"_s);
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
    EXPECT_THAT(errors, HasSubstr("there is no login LAB on 127.0.0.1, or DBA may not see it\n"));
    EXPECT_THAT(errors, HasSubstr("there is no login DOCTOR on 127.0.0.1, or DBA may not see it\n"));
    EXPECT_THAT(errors, HasSubstr("nothing was changed"));
    EXPECT_THAT(errors, Not(HasSubstr("NURSE")));
    static const QRegularExpression question(
        u"^(?:USE master|SELECT 1|SET NOCOUNT ON; SELECT COUNT\\(\\*\\) FROM sys\\.server_principals [^;]*)$"_s);
    for (const QString& batch : server.Batches())
        EXPECT_TRUE(question.match(batch.trimmed()).hasMatch()) << batch.toStdString();
    for (const TdsLogin& login : server.Logins())
        EXPECT_EQ(login.database, u"master"_s) << "the hospital's databases may not stand yet";
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
    /// How the refusal begins.
    const char* told;
};

void PrintTo(const RefusedStep& step, std::ostream* out) {
    *out << step.name;
}

class DeploySqlServerRefused : public DeploySqlServer, public testing::WithParamInterface<RefusedStep> {};

} // namespace

TEST_P(DeploySqlServerRefused, IsNamedByItsStep) {
    refused = QString::fromLatin1(GetParam().batch);
    isUnfinished = true;
    EXPECT_EQ(Deploy({u"--demo"_s, u"--grant-standby"_s, u"NURSE"_s}), 1);
    EXPECT_THAT(errors, testing::StartsWith(std::string(GetParam().told) + ": the server refused it\n"));
    EXPECT_THAT(errors, HasSubstr("Incorrect syntax near 'x'."));
    EXPECT_TRUE(server.Batches().last().contains(refused)) << "and nothing is sent behind it";
}

INSTANTIATE_TEST_SUITE_P(
    Steps, DeploySqlServerRefused,
    testing::Values(
        RefusedStep{"LogOn", "SELECT 1", "tools/deploy-sqlserver, logging on as DBA"},
        RefusedStep{"Login", "FROM sys.server_principals",
                    "tools/deploy-sqlserver, looking for the login NURSE"},
        RefusedStep{"Owner", "CREATE LOGIN", "tools/sqlserver/owner.sql:8"},
        RefusedStep{"Database", "CREATE DATABASE [BILLING]",
                    "tools/deploy-sqlserver, making the database BILLING"},
        RefusedStep{"Giving", "ALTER AUTHORIZATION ON DATABASE::[BILLING]",
                    "tools/deploy-sqlserver, giving the database BILLING to tarven_owner"},
        RefusedStep{"Chaining", "ALTER DATABASE [BILLING] SET DB_CHAINING ON",
                    "tools/deploy-sqlserver, letting procedures of BILLING use the other databases"},
        RefusedStep{"Unmarking", "DROP TABLE PASSWORD.dbo.tarven_demo_unfinished",
                    "tools/deploy-sqlserver, taking away the mark of unfinished demo data"},
        RefusedStep{"Role", "CREATE ROLE tarven_hemodialysis_standby",
                    "tools/deploy-sqlserver, making the role tarven_hemodialysis_standby in BILLING"},
        RefusedStep{"LettingIn", "ADD MEMBER [NURSE]",
                    "tools/deploy-sqlserver, letting NURSE in to BILLING as tarven_hemodialysis"}),
    CaseName());
