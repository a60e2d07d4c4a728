#include "support/PrintQt.h"
#include "support/tds/TdsResponder.h"

#include <QDirIterator>
#include <QFile>
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
        arguments << u"127.0.0.1:%1"_s.arg(server.Port()) << u"sa"_s;
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
            else if (batch.contains(u"FROM PATIENT_DATA..tbmaster"_s))
                AnswerNumber(answer, patients);
            else if (batch.contains(u"sys.tables"_s))
                AnswerNumber(answer, isUnfinished ? 1 : 0);
        };
    }};

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

    /// The line of its batch in which the server finds a mistake.
    static constexpr int kRefusedLine = 3;
    /// A batch with this text in it is refused.
    QString refused;
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
    refused = u"FROM PATIENT_DATA..tbmaster"_s;
    EXPECT_EQ(Deploy({u"--demo"_s}), 1);
    EXPECT_THAT(errors, HasSubstr("Incorrect syntax near 'x'."));
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
    // The batch begins behind the GO before it.
    QFile schema(QStringLiteral(TARVEN_SOURCE_DIR "/hospital/schema/40-BILLING.sql"));
    ASSERT_TRUE(schema.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(schema.readAll()).split(u'\n');
    const qsizetype table = lines.indexOf(QRegularExpression(refused + u".*"_s));
    const qsizetype line = lines.lastIndexOf(u"GO"_s, table) + 1 + kRefusedLine;
    EXPECT_THAT(errors, HasSubstr("hospital/schema/40-BILLING.sql:" + std::to_string(line) +
                                  ": the server refused it"));
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
