#include "support/PrintQt.h"
#include "support/process/FileLocks.h"
#include "workstation/Workstation.h"

#include <QFile>

#include <gmock/gmock.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::SizeIs;

// One workstation beside others, each a process of its own: what they do to the file while it works.

class BesideOthers : public Workstation {
  protected:
    /// Waits until the shift has told that step, and answers whether it has.
    static bool Reaches(QProcess& shift, const QString& step) {
        QByteArray line;
        do {
            while (!shift.canReadLine() && shift.waitForReadyRead(100000)) {
            }
            line = shift.readLine();
        } while (!line.isEmpty() && line != step.toUtf8() + '\n');
        return !line.isEmpty();
    }
    static void GoOn(QProcess& shift) { shift.write("\n"); }

    /// Saves a slip's worth of lines from another process and ends normally.
    void AnotherDeskWorks() {
        const Run run = RunScript(u"in-patient-charge"_s);
        EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    }
    void AnotherDeskKeysAWrongPassword() {
        const Run run = RunScript(u"wrong-password"_s);
        EXPECT_THAT(run.told, ElementsAre(u"The user or the password is wrong. Two tries are left."_s));
        EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    }
    mode_t ModeOf(const QString& path) const {
        struct stat found = {};
        EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &found), 0) << path.toStdString();
        return found.st_mode & 0777U;
    }
};

TEST_F(BesideOthers, TheHoldOnTheFileStandsFromTheSignOnToTheEnd) {
    const int first = QueryOne(u"select ChargeSlip from Clinical_Area..tbEarCareChargeSlip"_s).toInt();
    const auto shift = StartScript(u"shift-in-steps"_s);
    ASSERT_TRUE(Reaches(*shift, u"signed on"_s)) << shift->readAllStandardError().toStdString();
    EXPECT_TRUE(IsHeldOpen(HospitalPath()));
    GoOn(*shift);
    ASSERT_TRUE(Reaches(*shift, u"slip saved"_s)) << shift->readAllStandardError().toStdString();
    EXPECT_TRUE(IsHeldOpen(HospitalPath())) << "after a slip";
    AnotherDeskKeysAWrongPassword();
    EXPECT_TRUE(IsHeldOpen(HospitalPath())) << "after another's wrong password";
    GoOn(*shift);
    ASSERT_TRUE(Reaches(*shift, u"report printed"_s)) << shift->readAllStandardError().toStdString();
    EXPECT_TRUE(IsHeldOpen(HospitalPath())) << "after a report";
    AnotherDeskWorks();
    EXPECT_TRUE(IsHeldOpen(HospitalPath())) << "after another's shift";
    GoOn(*shift);
    ASSERT_TRUE(Reaches(*shift, u"second slip saved"_s)) << shift->readAllStandardError().toStdString();
    EXPECT_TRUE(IsHeldOpen(HospitalPath()));
    for (const QString& suffix : {QString(), u"-wal"_s, u"-shm"_s})
        EXPECT_EQ(ModeOf(HospitalPath() + suffix), 0600U) << suffix.toStdString();
    GoOn(*shift);
    EXPECT_EQ(WaitForEnd(*shift).exitCode, 0);
    EXPECT_FALSE(IsHeldOpen(HospitalPath()));
    EXPECT_FALSE(QFile::exists(HospitalPath() + u"-wal"_s)) << "the last one has closed the file";
    for (int slip = first; slip < first + 3; ++slip)
        EXPECT_THAT(
            Query(u"select ChargeID from BILLING..tbPatientCharges where RefNum = 'H%1C'"_s.arg(slip)),
            SizeIs(3))
            << slip;
    EXPECT_TRUE(HospitalIsWhole());
}

TEST_F(BesideOthers, WhatFailedInTheUsersNameIsToldWhenHeSignsOn) {
    const Run run = RunScript(u"third-try"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    ASSERT_THAT(run.told, SizeIs(2)) << "a text of two lines";
    EXPECT_TRUE(run.told[0].startsWith(u"2 failed sign-ons since "_s)) << run.told[0].toStdString();
    EXPECT_TRUE(run.told[1].startsWith(u"The last one was at "_s)) << run.told[1].toStdString();
    EXPECT_THAT(RunScript(u"exit-by-menu"_s).told, ElementsAre(u"the program ended"_s)) << "it was told";
}
