#include "support/PrintQt.h"
#include "support/tds/TdsResponder.h"

#include <QDirIterator>
#include <QProcess>

#include <gmock/gmock.h>

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
        arguments << u"127.0.0.1:%1"_s.arg(server.Port()) << u"sa"_s;
        script.start(QStringLiteral(TARVEN_SOURCE_DIR "/tools/deploy-sqlserver"), arguments);
        EXPECT_TRUE(script.waitForFinished(100000));
        errors = script.readAllStandardError().toStdString();
        output = script.readAllStandardOutput().toStdString();
        return script.exitCode();
    }

    TdsResponder server{[this]() -> TdsResponder::Handler {
        return [this](const QString& batch, TdsAnswer& answer) {
            if (!refused.isEmpty() && batch.contains(refused))
                answer.Error(102, u"Incorrect syntax near 'x'."_s);
            if (batch.startsWith(u"SELECT COUNT(*)"_s)) {
                answer.Columns({{.name = QString(), .type = TdsType::Int}});
                answer.Row({patients});
                answer.Done(1);
            }
        };
    }};
    /// A batch with this text in it is refused.
    QString refused;
    int patients = 0;
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
    EXPECT_THAT(batches, Contains(HoldsText(u"ALTER PROCEDURE dbo.spEarCare_Append_Charging"_s)));
    EXPECT_THAT(batches, Not(Contains(HoldsText(u"INSERT INTO PATIENT_DATA..tbmaster"_s))));
    EXPECT_EQ(server.Logins().front().user, u"sa"_s);
    EXPECT_EQ(server.Logins().front().password, u"geheim"_s);
}

TEST_F(DeploySqlServer, SendsEveryProcedureAndGrantsIt) {
    ASSERT_EQ(Deploy(), 0) << errors;
    const QStringList batches = server.Batches();
    QDirIterator files(QStringLiteral(TARVEN_SOURCE_DIR "/hospital/procedures"), {u"*.sql"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    int seen = 0;
    while (files.hasNext()) {
        files.next();
        const QString name = files.fileInfo().completeBaseName();
        EXPECT_THAT(batches, Contains(HoldsText(u"ALTER PROCEDURE dbo."_s + name))) << name.toStdString();
        EXPECT_THAT(batches, Contains(HoldsText(u"GRANT EXECUTE ON dbo.%1 TO"_s.arg(name))))
            << name.toStdString();
        ++seen;
    }
    EXPECT_GT(seen, 20);
}

TEST_F(DeploySqlServer, FillsAnEmptyHospitalOnRequest) {
    ASSERT_EQ(Deploy({u"--demo"_s}), 0) << errors;
    EXPECT_THAT(server.Batches(), Contains(HoldsText(u"NUÑEZ"_s)));
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
    EXPECT_THAT(errors,
                testing::ContainsRegex("hospital/schema/40-BILLING.sql:[0-9]+: the server refused it"));
    EXPECT_THAT(errors, HasSubstr("Incorrect syntax near 'x'."));
    EXPECT_TRUE(server.Batches().last().contains(refused));
}

TEST_F(DeploySqlServer, AServerThatIsGoneIsAFailure) {
    server.Close();
    EXPECT_EQ(Deploy(), 1);
    EXPECT_THAT(errors, HasSubstr("Unable to connect"));
}

TEST_F(DeploySqlServer, LetsLoginsInToEveryDatabase) {
    ASSERT_EQ(Deploy({u"--grant"_s, u"NURSE"_s, u"--grant"_s, u"CLERK"_s}), 0) << errors;
    EXPECT_EQ(server.Batches().filter(u"ADD MEMBER [CLERK]"_s).size(),
              server.Batches().filter(u"CREATE DATABASE"_s).size());
    EXPECT_THAT(server.Batches(),
                Contains(HoldsText(u"ALTER ROLE tarven_hemodialysis ADD MEMBER [NURSE]"_s)));
}

TEST_F(DeploySqlServer, ANameThatIsNoLoginIsNotSent) {
    EXPECT_EQ(Deploy({u"--grant"_s, u"X]; DROP TABLE y --"_s}), 2);
    EXPECT_THAT(server.Batches(), Not(Contains(HoldsText(u"DROP TABLE"_s))));
}
