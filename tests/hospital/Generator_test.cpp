#include "hospital-generator/DemoScripts.h"
#include "hospital-generator/HospitalGenerator.h"
#include "hospital-generator/InsertWriter.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace Generator;

namespace {

QString TextOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

TEST(HospitalGenerator, CommittedDemoIsWhatItWrites) {
    const QDir folder(u"" TARVEN_SOURCE_DIR "/hospital/demo"_s);
    QStringList names;
    for (const DemoScript& script : DemoScripts()) {
        names.push_back(script.name + u".sql"_s);
        EXPECT_TRUE(TextOf(folder.filePath(names.back())) == script.text)
            << names.back().toStdString() << " is not what generate-hospital writes";
    }
    EXPECT_EQ(folder.entryList(QDir::Files), names);
}

TEST(HospitalGenerator, CommittedDemoStaysSmall) {
    qint64 bytes = 0;
    for (const QFileInfo& file : QDir(u"" TARVEN_SOURCE_DIR "/hospital/demo"_s).entryInfoList(QDir::Files))
        bytes += file.size();
    EXPECT_LT(bytes, 1'500'000);
}

TEST(HospitalGenerator, InsertsHaveAtMostFiveHundredRows) {
    int most = 0;
    GenerateHospital({.patients = 1200}, [&most](const QString&, const QString& statement) {
        if (statement.startsWith("INSERT"_L1))
            most = std::max(most, int(statement.count("\n("_L1)));
    });
    EXPECT_EQ(most, 500);
}

TEST(HospitalGenerator, LargerHospitalHasMoreOfEverything) {
    const HospitalSize size{.patients = 3000,
                            .admissions = 700,
                            .inPatients = 200,
                            .visits = 900,
                            .walkIns = 60,
                            .months = 1,
                            .slipsPerDay = 30,
                            .assessments = 90,
                            .pendingRequests = 40};
    QHash<QString, int> rows;
    GenerateHospital(size, [&rows](const QString&, const QString& statement) {
        if (statement.startsWith("INSERT INTO"_L1))
            rows[statement.section(u' ', 2, 2)] += int(statement.count("\n("_L1));
    });
    EXPECT_EQ(rows[u"PATIENT_DATA..tbmaster"_s], 3000);
    EXPECT_EQ(rows[u"PATIENT_DATA..tbpatient"_s], 700);
    EXPECT_EQ(rows[u"PATIENT_DATA..tboutpatient"_s], 900);
    EXPECT_EQ(rows[u"PATIENT_DATA..tbwalkin"_s], 60);
    EXPECT_GE(rows[u"build_file..tbCoRoom"_s], 201);
    EXPECT_GE(rows[u"RADIOLOGY..tbNurseRequest"_s], 44);
}

TEST(HospitalGenerator, RowsAreWrittenAsTheServerReadsThem) {
    QStringList statements;
    InsertWriter writer([&statements](const QString& s) { statements << s; }, u"A..t"_s, u"a, b"_s);
    writer.Begin().Text(u"O'BRIEN").TextOrNull({}).Number(-3).Money(123405).Money(-7).End();
    writer.Begin().Date(QDate(1950, 9, 7)).Date(Moment{0, 0}).Date(Moment{-1, 65}).Date(std::nullopt).End();
    writer.Finish();
    writer.Finish();
    EXPECT_EQ(statements, QStringList({u"INSERT INTO A..t (a, b) VALUES\n"
                                       "('O''BRIEN',NULL,-3,1234.05,-0.07),\n"
                                       "('19500907','20260101','20251231 01:05',NULL);"_s}));
}

TEST(HospitalGenerator, MomentsPassMidnightBothWays) {
    EXPECT_EQ((Moment{-1, 23 * 60}.Plus(90)), (Moment{0, 30}));
    EXPECT_EQ((Moment{0, 30}.Plus(-90)), (Moment{-1, 23 * 60}));
    EXPECT_EQ((Moment{0, 30}.Plus(-30)), (Moment{0, 0}));
    EXPECT_EQ((Moment{0, 0}.Plus(-24 * 60)), (Moment{-1, 0}));
}

struct SizeCase {
    const char* name;
    HospitalSize size;
    const char* complaint;
};

class RefusedSize : public testing::TestWithParam<SizeCase> {};

TEST_P(RefusedSize, IsRefusedByTheNameOfItsField) {
    bool wrote = false;
    try {
        GenerateHospital(GetParam().size, [&wrote](const QString&, const QString&) { wrote = true; });
        ADD_FAILURE() << "no error";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), GetParam().complaint);
    }
    EXPECT_FALSE(wrote);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, RefusedSize,
    testing::Values(
        SizeCase{"NoMonth", {.months = 0}, "HospitalSize::months is 0, and must be at least 1"},
        SizeCase{"FewVisits", {.visits = 34}, "HospitalSize::visits is 34, and must be at least 35"},
        SizeCase{"FewInPatients", {.inPatients = 6}, "HospitalSize::inPatients is 6, and must be at least 7"},
        SizeCase{"MoreInPatientsThanAdmissions",
                 {.admissions = 59},
                 "HospitalSize::admissions is 59, and must be at least 60"},
        SizeCase{"NobodyLeftForASingleVisit",
                 {.patients = 110},
                 "HospitalSize::patients is 110, and must be at least 111"},
        SizeCase{"WalkIns", {.walkIns = -1}, "HospitalSize::walkIns is -1, and must be at least 0"},
        SizeCase{
            "SlipsPerDay", {.slipsPerDay = -1}, "HospitalSize::slipsPerDay is -1, and must be at least 0"},
        SizeCase{
            "Assessments", {.assessments = -1}, "HospitalSize::assessments is -1, and must be at least 0"},
        SizeCase{"PendingRequests",
                 {.pendingRequests = -1},
                 "HospitalSize::pendingRequests is -1, and must be at least 0"}),
    CaseName());

TEST(HospitalGenerator, SmallestHospitalIsMade) {
    int statements = 0;
    GenerateHospital({.patients = 15,
                      .admissions = 7,
                      .inPatients = 7,
                      .visits = 12,
                      .walkIns = 0,
                      .months = 1,
                      .slipsPerDay = 0,
                      .assessments = 0,
                      .pendingRequests = 0},
                     [&statements](const QString&, const QString&) { ++statements; });
    EXPECT_GT(statements, 0);
}

} // namespace
