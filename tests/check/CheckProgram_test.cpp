#include "check/CheckedServer.h"
#include "check/Needs.h"
#include "support/cups/CupsServer.h"
#include "support/hospital/FreshHospital.h"
#include "support/hospital/ProgramFolder.h"
#include "support/PrintQt.h"
#include "support/tds/TestDataSources.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalEngine.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

// tarven-check as a process, with a program's folder and a trial hospital of its own.

namespace {

constexpr int kAllWell = 0;
constexpr int kFaults = 1;
constexpr int kCouldNotLook = 2;

class CheckProgram : public testing::Test {
  protected:
    struct Run {
        int exitCode = -1;
        QString told;
        QString errors;
    };

    CheckProgram() {
        QDir(mFolder.Path()).mkpath(u"TARVEN/Hemodialysis"_s);
        QFile::rename(mFolder.HospitalPath(), hospital);
        QFile::copy(mFolder.File(u"Reports/ChargeSlip.rpt"_s), mFolder.File(u"ChargeSlip.rpt"_s));
    }

    /// Runs it to its end with those words; the input is the password's line.
    Run Do(const QStringList& words, const QByteArray& input = "nurse\n") const {
        constexpr int kPatience = 60000;
        QProcess process;
        QProcessEnvironment environment = mFolder.Environment();
        environment.insert(u"TARVEN_FOLDER"_s, mFolder.Path());
        if (!printServer.isEmpty())
            environment.insert(u"CUPS_SERVER"_s, printServer);
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(mFolder.Path());
        if (!output.isEmpty())
            process.setStandardOutputFile(output);
        process.start(u"" TARVEN_BUILD_DIR "/tarven-check"_s, words);
        process.write(input);
        process.closeWriteChannel();
        if (!process.waitForFinished(kPatience) || process.exitStatus() != QProcess::NormalExit)
            return {};
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    void SetSlip(int number) const {
        EmbeddedGateway(hospital).ExecuteNoResult(
            u"update Clinical_Area..tbEarCareChargeSlip set ChargeSlip = %1"_s.arg(number));
    }
    QString Slip() const {
        return HospitalRows(hospital, u"select ChargeSlip from Clinical_Area..tbEarCareChargeSlip"_s).at(0);
    }

    /// Where the program prints; empty for the machine's own server.
    QString printServer;
    /// Where it writes; empty for what the run tells.
    QString output;
    const ProgramFolder mFolder;
    const QString hospital = mFolder.File(u"TARVEN/Hemodialysis/trial-hospital.db"_s);
};

} // namespace

TEST_F(CheckProgram, TellsEachLineOfATrialHospitalInWords) {
    const Run run = Do({u"--user"_s, u"NURSE"_s});
    QStringList faults = run.told.split(u'\n').filter(u"FAULT"_s);
    // Whether the machine has a printer is not the test's business.
    EXPECT_EQ(run.exitCode, faults.isEmpty() ? kAllWell : kFaults) << run.errors.toStdString();
    faults.removeIf([](const QString& line) { return line.contains(u"printers"_s); });
    EXPECT_EQ(faults, QStringList());
    EXPECT_EQ(run.told.split(u'\n').filter(u"ok     "_s).filter(u"templates"_s).size(), 1);
    EXPECT_FALSE(run.told.contains(u'\x1b')) << "no terminal reads this";
}

TEST_F(CheckProgram, EndsWellWhereAPrinterIsThereToo) {
    if (!CupsServer::Missing().isEmpty())
        GTEST_SKIP() << "not installed: " << CupsServer::Missing().toStdString();
    CupsServer server;
    ASSERT_TRUE(server.IsRunning());
    server.AddQueue(u"ward"_s, {u"A4"_s});
    printServer = server.Address();
    const Run run = Do({u"--user"_s, u"NURSE"_s});
    EXPECT_EQ(run.exitCode, kAllWell) << run.told.toStdString();
}

TEST_F(CheckProgram, EndsWithAFaultThatItTells) {
    QFile::remove(mFolder.File(u"Reports/AuditReport.RPT"_s));
    const Run run = Do({u"--user"_s, u"NURSE"_s});
    EXPECT_EQ(run.exitCode, kFaults);
    EXPECT_EQ(run.told.split(u'\n').filter(u"FAULT  templates"_s).size(), 1) << run.told.toStdString();
}

TEST_F(CheckProgram, TellsOfPagesThatNothingElseReads) {
    QFile file(hospital);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    constexpr qint64 kPages = 40 * 4096;
    ASSERT_TRUE(file.seek(file.size() / 2 / 4096 * 4096));
    file.write(QByteArray(kPages, 'x'));
    file.close();
    const Run run = Do({u"--user"_s, u"NURSE"_s});
    EXPECT_EQ(run.exitCode, kFaults);
    EXPECT_EQ(run.told.split(u'\n').filter(u"FAULT  databases"_s).filter(u"is damaged"_s).size(), 1)
        << run.told.toStdString();
}

TEST_F(CheckProgram, CouldNotLookWhereItCannotTell) {
    output = u"/dev/full"_s;
    for (const QStringList& how : {QStringList{}, QStringList{u"--json"_s}}) {
        const Run run = Do(QStringList{u"--user"_s, u"NURSE"_s} + how);
        EXPECT_EQ(run.exitCode, kCouldNotLook);
        EXPECT_TRUE(run.errors.contains(u"What was found cannot be written."_s)) << run.errors.toStdString();
    }
}

TEST_F(CheckProgram, LeavesTheSignOnInTheTrailAndNothingElse) {
    Do({u"--user"_s, u"NURSE"_s}, "wrong\n");
    const Run run = Do({u"--user"_s, u"NURSE"_s});
    EXPECT_TRUE(run.errors.contains(u"1 failed sign-on since"_s)) << run.errors.toStdString();
    EXPECT_TRUE(EmbeddedGateway(hospital).Engine().Store().IsFresh());
}

TEST_F(CheckProgram, TellsTheSameAsJson) {
    const Run run = Do({u"--user"_s, u"NURSE"_s, u"--json"_s});
    const QJsonObject whole = QJsonDocument::fromJson(run.told.toUtf8()).object();
    EXPECT_EQ(whole[u"ok"_s].toBool(), run.exitCode == kAllWell);
    EXPECT_GT(whole[u"findings"_s].toVariant().toList().size(), 15);
}

TEST_F(CheckProgram, ThatCannotLookSaysWhyAndEndsWithTwo) {
    const Run refused = Do({u"--user"_s, u"NURSE"_s}, "wrong\n");
    EXPECT_EQ(refused.exitCode, kCouldNotLook);
    EXPECT_TRUE(refused.errors.contains(u"The user or the password is wrong."_s));
    EXPECT_FALSE(refused.told.contains(u"hospital record"_s)) << refused.told.toStdString();
    EXPECT_EQ(Do({}).exitCode, kCouldNotLook);
    EXPECT_EQ(Do({u"--user"_s, u"NURSE"_s, u"--source"_s, u"Nowhere"_s}).exitCode, kCouldNotLook);
    QFile::remove(hospital);
    const Run unmade = Do({u"--user"_s, u"NURSE"_s}, "");
    EXPECT_EQ(unmade.exitCode, kCouldNotLook);
    EXPECT_TRUE(unmade.errors.contains(u"has yet to be made"_s)) << unmade.errors.toStdString();
    EXPECT_FALSE(QFile::exists(hospital)) << "it was made by a look";
}

TEST_F(CheckProgram, ASignOnThatFailedIsToldWithWhatToDoAsJsonToo) {
    const Run run = Do({u"--user"_s, u"NURSE"_s, u"--json"_s}, "wrong\n");
    EXPECT_EQ(run.exitCode, kCouldNotLook);
    EXPECT_TRUE(run.errors.contains(u"-> key them again"_s)) << run.errors.toStdString();
    const QJsonObject whole = QJsonDocument::fromJson(run.told.toUtf8()).object();
    EXPECT_FALSE(whole[u"ok"_s].toBool(true));
    const QJsonObject fault = whole[u"findings"_s].toArray().at(0).toObject();
    EXPECT_EQ(fault[u"name"_s].toString(), u"sign-on"_s);
    EXPECT_EQ(fault[u"verdict"_s].toString(), u"FAULT"_s);
    EXPECT_EQ(fault[u"seen"_s].toString(), u"The user or the password is wrong."_s);
}

// What is wrong may be on this side.
TEST_F(CheckProgram, WithoutASignOnTheDeskIsLookedAt) {
    QFile::remove(mFolder.File(u"Reports/AuditReport.RPT"_s));
    const Run run = Do({u"--user"_s, u"NURSE"_s, u"--source"_s, u"Nowhere"_s});
    EXPECT_EQ(run.exitCode, kCouldNotLook);
    QStringList names;
    for (const QString& line : run.told.split(u'\n')) {
        if (!line.isEmpty() && !line.startsWith(u' '))
            names << line.mid(7, 16).trimmed();
    }
    names.removeDuplicates();
    EXPECT_EQ(names, (QStringList{u"encryption"_s, u"templates"_s, u"printers"_s, u"configuration"_s,
                                  u"folders"_s}));
    EXPECT_TRUE(run.told.contains(u"AuditReport.RPT"_s)) << run.told.toStdString();
}

TEST_F(CheckProgram, ASourceThatIsUnknownIsAnsweredWithThoseThatAreNot) {
    const Run run = Do({u"--user"_s, u"NURSE"_s, u"--source"_s, u"Nowhere"_s});
    EXPECT_TRUE(run.errors.contains(u"has: Trial hospital"_s)) << run.errors.toStdString();
}

TEST_F(CheckProgram, LooksAtAServerThroughItsDataSource) {
    const Needs needs = NeedsOfProgram();
    CheckedServer server(hospital, needs);
    const QString source = TestDataSources::Instance().Add(server.Responder().Port());
    const Run run = Do({u"--source"_s, source, u"--user"_s, u"NURSE"_s, u"--json"_s});
    EXPECT_EQ(run.exitCode, kFaults) << run.errors.toStdString();
    QSet<QString> faults;
    for (const QJsonValue& finding :
         QJsonDocument::fromJson(run.told.toUtf8()).object()[u"findings"_s].toArray()) {
        if (finding[u"verdict"_s].toString() != "ok"_L1)
            faults << finding[u"name"_s].toString();
    }
    // A data source of the tests asks for no encryption, and tests may run as a user who may write
    // everywhere.
    faults.subtract({u"encryption"_s, u"printers"_s, u"folders"_s});
    EXPECT_EQ(faults, QSet<QString>());
}

TEST_F(CheckProgram, SavesAHospitalInUseAndPutsItBackWhenNobodyHasItOpen) {
    const QString copy = mFolder.File(u"copy.db"_s);
    SetSlip(555);
    {
        EmbeddedGateway desk(hospital);
        EXPECT_EQ(Do({u"--backup"_s, copy}).exitCode, kAllWell);
        desk.ExecuteNoResult(u"update Clinical_Area..tbEarCareChargeSlip set ChargeSlip = 777"_s);
        const Run inUse = Do({u"--restore"_s, copy, u"--user"_s, u"NURSE"_s});
        EXPECT_EQ(inUse.exitCode, kCouldNotLook);
        EXPECT_TRUE(inUse.errors.contains(u"currently in use"_s)) << inUse.errors.toStdString();
    }
    EXPECT_EQ(Slip(), u"777"_s);
    const Run restored = Do({u"--restore"_s, copy, u"--user"_s, u"NURSE"_s});
    EXPECT_EQ(restored.exitCode, kAllWell) << restored.errors.toStdString();
    EXPECT_EQ(Slip(), u"555"_s);
    EXPECT_EQ(Do({u"--backup"_s, copy}).exitCode, kCouldNotLook) << "a copy was written over";
}

TEST_F(CheckProgram, AHospitalInWhichSomebodyHasWorkedGivesWayToOneOfItsUsersAlone) {
    const QString copy = mFolder.File(u"copy.db"_s);
    EXPECT_EQ(Do({u"--backup"_s, copy}).exitCode, kAllWell);
    SetSlip(777);
    const Run nobody = Do({u"--restore"_s, copy});
    EXPECT_EQ(nobody.exitCode, kCouldNotLook);
    EXPECT_TRUE(nobody.errors.contains(u"Who signs on?"_s));
    EXPECT_EQ(Do({u"--restore"_s, copy, u"--user"_s, u"NURSE"_s}, "wrong\n").exitCode, kCouldNotLook);
    EXPECT_EQ(Slip(), u"777"_s);
    EXPECT_EQ(Do({u"--restore"_s, copy, u"--user"_s, u"NURSE"_s}).exitCode, kAllWell);
    EXPECT_NE(Slip(), u"777"_s);
    EXPECT_EQ(Do({u"--restore"_s, copy}).exitCode, kAllWell) << "nobody has worked in it";
}
