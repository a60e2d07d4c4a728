#include "hospital-generator/DemoScripts.h"
#include "hospital/HospitalScripts.h"
#include "support/hospital/HospitalTest.h"
#include "support/PrintQt.h"

using namespace Qt::StringLiterals;

namespace {

/// A hospital with 20,000 patients on file.
class SearchPlans : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        mFolder = new QTemporaryDir;
        std::vector<Script> scripts = HospitalStructure();
        const Generator::HospitalSize size{.patients = 20'000,
                                           .admissions = 4'000,
                                           .inPatients = 200,
                                           .visits = 8'000,
                                           .walkIns = 1'000,
                                           .months = 1,
                                           .slipsPerDay = 20,
                                           .assessments = 1'000,
                                           .pendingRequests = 50};
        for (const Generator::DemoScript& script : Generator::DemoScripts(size))
            scripts.push_back({u"demo/"_s + script.name, script.text});
        const QString path = mFolder->filePath(u"large.db"_s);
        HospitalFile::Create(path, scripts, {});
        mGateway = HospitalFile::Open(path, scripts).release();
    }
    static void TearDownTestSuite() {
        delete mGateway;
        delete mFolder;
    }

    /// The steps of the command that read a table from its beginning to its end. What a subquery has found is
    /// read so too, but is no table.
    static QStringList Scans(const QString& command) {
        QStringList scans;
        QStringList found;
        for (const QString& step : mGateway->QueryPlan(command)) {
            const QStringList words = step.trimmed().split(u' ');
            if (words[0] == "CO-ROUTINE"_L1 || words[0] == "MATERIALIZE"_L1)
                found.push_back(words[1]);
            else if (words[0] == "SCAN"_L1 && words.value(1) != "CONSTANT"_L1 && !found.contains(words[1]))
                scans.push_back(step);
        }
        return scans;
    }

    static QTemporaryDir* mFolder;
    static EmbeddedGateway* mGateway;
};

QTemporaryDir* SearchPlans::mFolder = nullptr;
EmbeddedGateway* SearchPlans::mGateway = nullptr;

TEST_F(SearchPlans, EverySearchAmongManyPatientsIsASearchOnAnIndex) {
    for (
        const QString& command :
        {u"Clinical_Area..spEarCare_GetPatient 'I','DELA CRUZ'"_s,
         u"Clinical_Area..spEarCare_GetPatient 'O','MUÑ'"_s,
         u"CLINICAL_AREA..spEarCare_GetCashPatient  'DELA','1'"_s,
         u"PATIENT_DATA..spGlobal_WalkIn '0', 'DEL'"_s,
         u"PATIENT_DATA..spGlobal_ListWalkIn '0','DEL'"_s,
         u"PATIENT_DATA..spGlobal_LoadWalkIn 'W000001'"_s,
         u"BILLING..spGlobal_RegisteredOPD '0','1', '104233B'"_s,
         u"HEMODIALYSIS..spKidney_SearchPatient 'I','DELA'"_s,
         u"select * from hemodialysis..tbHemodialysisResultEntry where idnum = '104233B'and requestnum='H1'"_s,
         u"select * from patient_data..tboutpatient where idnum = '104233B'"_s,
         u"Clinical_Area..SpEarCare_List_AllCharges '100233','104233B','HC'"_s,
         u"Clinical_Area..spEarCare_VerifyCharges '104233B','HC001','H1042C','HC'"_s,
         u"Clinical_Area..spEarCare_AssessmentStatus '1','DELA'"_s,
         u"SELECT AssessNum, RefNum, Revenueid FROM BILLING..tbCashAssessment WHERE RefNum = '5010'"_s,
         u"Clinical_Area..spEarCare_LoadExamEntry '700100'"_s,
         u"Clinical_Area..spEarCare_NurseRequest"_s,
         u"RADIOLOGY..spRadio_CheckPending 'HC'"_s,
         u"Hemodialysis..spKidney_ChargesbyPatient '104233B'"_s,
         u"Hemodialysis..spKidney_Rates 'HC'"_s,
         u"REPORTS..spReports_Audit '20251201','20251231'"_s,
         u"REPORTS..spReports_Income 'I','20251201','20251231'"_s,
         u"REPORTS..spReports_IncomeCash '20251201','20251231'"_s,
         u"REPORTS..spReports_Statistics '20251201','20251231'"_s,
         u"REPORTS..spReports_Company 'O','20251201','20251231'"_s,
         u"REPORTS..spReports_Ledger '104233B'"_s,
         u"PATIENT_DATA..spReports_CensusAll"_s,
         u"PATIENT_DATA..spReports_CensusStation"_s,
         u"Select RoomClassID from build_file..tbCoRoom Where RoomID = 'W201' "_s,
         u"SELECT * FROM HEMODIALYSIS..tbhemopackage WHERE PackageCode = 'PK001'"_s})
        EXPECT_EQ(Scans(command), QStringList()) << command.toStdString();
    // What a scan looks like.
    EXPECT_EQ(Scans(u"SELECT HospNum FROM PATIENT_DATA..tbmaster WHERE FirstName = 'ANA'"_s).size(), 1);

    EXPECT_EQ(mGateway->Execute(u"SELECT COUNT(*) FROM PATIENT_DATA..tbmaster"_s).Fields(0).ToInteger(),
              20'000);
    for (const auto& [type, number] :
         {std::pair(u"I"_s, u"SELECT MAX(IdNum) FROM PATIENT_DATA..tbpatient WHERE "
                            "DcrDate IS NULL"_s),
          std::pair(u"O"_s, u"SELECT MAX(IdNum) FROM PATIENT_DATA..tboutpatient"_s)}) {
        const QString found = mGateway->Execute(number).Fields(0).ToText();
        EXPECT_EQ(mGateway
                      ->Open(Call(u"Clinical_Area..spEarCare_GetPatient"_s, {type, found}),
                             CursorType::Static, LockType::ReadOnly)
                      .RecordCount(),
                  1);
    }
}

TEST_F(SearchPlans, TheIndexOfNamesGivesTheOrderInWhichTheFinderListsOutPatients) {
    const QStringList plan = mGateway->QueryPlan(u"Clinical_Area..spEarCare_GetPatient 'O','D'"_s);
    ASSERT_FALSE(plan.isEmpty());
    EXPECT_EQ(plan.last(), u"USE TEMP B-TREE FOR RIGHT PART OF ORDER BY"_s)
        << "the visits of equal names alone";
}

TEST_F(SearchPlans, WhatTheFinderListsOfOutPatientsStandsInIndexesAlone) {
    QStringList many;
    for (const QString& step : mGateway->QueryPlan(u"Clinical_Area..spEarCare_GetPatient 'O','D'"_s)) {
        if (step.contains(u"ixMasterName"_s) || step.contains(u"ixOutPatientHospNum"_s))
            many << step;
    }
    EXPECT_GE(many.size(), 2);
    for (const QString& step : many)
        EXPECT_TRUE(step.contains(u"USING COVERING INDEX"_s)) << step.toStdString();
}

} // namespace
