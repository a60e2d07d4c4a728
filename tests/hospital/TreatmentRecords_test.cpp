#include "components/shared.h"
#include "support/CaseName.h"
#include "support/FakeComponents.h"
#include "support/FreshVariables.h"
#include "support/hospital/HospitalTest.h"
#include "treatment/clsSaveTreatmentRecord.h"
#include "treatment/FieldNames.h"
#include "treatment/TreatmentProperties.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString kHistory = u"SELECT * FROM HEMODIALYSIS..tbHemodialysisResultHistory"_s;

/// Something else for each field, but for the one that names the user.
QString ValueOf(const QString& name) {
    return name == "UserId"_L1 ? u"NURSE"_s : u"value of "_s + name;
}

class TreatmentRecords : public HospitalTest {
  protected:
    TreatmentRecords() {
        ResetShared();
        gTreatmentRecord = {};
        const auto user = std::make_shared<FakeCurrentUser>();
        user->connection = mGateway.get();
        gCurrentUser = user;
    }
    ~TreatmentRecords() override {
        ResetShared();
        gTreatmentRecord = {};
    }

    static void Save() { gTreatmentRecord->SaveDialysisTreatmentRecord(); }
    QString Count(const QString& condition) {
        return Cell(u"SELECT COUNT(*) FROM HEMODIALYSIS..tbHemodialysisResultEntry WHERE "_s + condition);
    }
    std::vector<QStringList> Records(const QString& columns) {
        return Rows(
            u"SELECT %1 FROM HEMODIALYSIS..tbHemodialysisResultEntry ORDER BY RequestNum"_s.arg(columns));
    }
};

TEST_F(TreatmentRecords, TableHasTheFieldsAsItsColumnsInTheirOrder) {
    EXPECT_EQ(Columns(u"SELECT * FROM HEMODIALYSIS..tbHemodialysisResultEntry"_s), FieldNames());
}

TEST_F(TreatmentRecords, EachFieldIsKeptInTheColumnOfItsNameAndReadFromIt) {
    for (const TreatmentProperty& property : TreatmentProperties())
        ((*gTreatmentRecord).*property.write)(ValueOf(property.name));
    Save();
    const auto rows = Rows(u"SELECT * FROM HEMODIALYSIS..tbHemodialysisResultEntry WHERE IdNum = '%1'"_s.arg(
        ValueOf(u"IdNum"_s)));
    ASSERT_EQ(rows.size(), 1U);
    const QStringList names = FieldNames();
    for (int i = 0; i < names.size(); ++i)
        EXPECT_EQ(rows[0][i], ValueOf(names[i]));

    clsSaveTreatmentRecord loaded;
    loaded.UpdateDialysisTreatmentRecord(ValueOf(u"IdNum"_s), ValueOf(u"RequestNum"_s));
    for (const TreatmentProperty& property : TreatmentProperties())
        EXPECT_EQ((loaded.*property.read)(), ValueOf(property.name));
}

TEST_F(TreatmentRecords, SecondSaveOfTheSameTreatmentReplacesTheFirst) {
    gTreatmentRecord->SetIdNum(u"104233B"_s);
    gTreatmentRecord->SetRequestNum(u"H9001C"_s);
    gTreatmentRecord->SetBath(u"ACETATE"_s);
    Save();
    gTreatmentRecord->SetBath(u"BICARBONATE"_s);
    Save();
    EXPECT_EQ(Count(u"IdNum = '104233B' AND RequestNum = 'H9001C'"_s), u"1"_s);
    clsSaveTreatmentRecord loaded;
    loaded.UpdateDialysisTreatmentRecord(u"104233B"_s, u"H9001C"_s);
    EXPECT_EQ(loaded.Bath(), u"BICARBONATE"_s);
}

TEST_F(TreatmentRecords, RecordThatIsReplacedIsKeptAsItWas) {
    EXPECT_EQ(Columns(kHistory).mid(3), FieldNames());
    for (const TreatmentProperty& property : TreatmentProperties())
        ((*gTreatmentRecord).*property.write)(ValueOf(property.name));
    Save();
    EXPECT_TRUE(Rows(kHistory).empty()) << "nothing has been replaced";
    gTreatmentRecord->SetUserId(u""_s);
    gTreatmentRecord->SetBath(u"BICARBONATE"_s);
    mGateway->SetSessionUser(u"CLERK"_s);
    Save();
    QStringList kept = {u"1"_s, u"CLERK"_s, u"11/21/2026 10:15:00 AM"_s};
    for (const QString& name : FieldNames())
        kept << ValueOf(name);
    EXPECT_EQ(Rows(kHistory), std::vector<QStringList>{kept});
    EXPECT_EQ(Count(u"IdNum = 'value of IdNum' AND UserId = 'CLERK' AND Bath = 'BICARBONATE'"_s), u"1"_s);
}

struct UserIdCase {
    const char* name;
    QString userId;
    /// Whom the record then names; empty where it is refused.
    QString recorded;
};

class TreatmentRecordsUser : public TreatmentRecords, public testing::WithParamInterface<UserIdCase> {};

TEST_P(TreatmentRecordsUser, IsTheOneWhoIsSignedOn) {
    gTreatmentRecord->SetIdNum(u"104233B"_s);
    gTreatmentRecord->SetRequestNum(u"H9001C"_s);
    gTreatmentRecord->SetUserId(GetParam().userId);
    int refusal = 0;
    try {
        Save();
    } catch (const RunTimeError& error) {
        refusal = error.Number();
    }
    EXPECT_EQ(refusal, GetParam().recorded.isEmpty() ? 50002 : 0);
    const auto rows = Rows(u"SELECT UserId FROM HEMODIALYSIS..tbHemodialysisResultEntry WHERE IdNum = "
                           "'104233B' AND RequestNum = 'H9001C'"_s);
    EXPECT_EQ(rows.empty() ? QString() : rows[0][0], GetParam().recorded);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, TreatmentRecordsUser,
    testing::Values(UserIdCase{"Empty", u""_s, u"NURSE"_s}, UserIdCase{"Blank", u"  "_s, u"NURSE"_s},
                    UserIdCase{"Himself", u"NURSE"_s, u"NURSE"_s},
                    UserIdCase{"HimselfInSmallLettersAndBlanks", u"nurse  "_s, u"NURSE"_s},
                    UserIdCase{"Another", u"CLERK"_s, u""_s}, UserIdCase{"Nobody", u"NURSE2"_s, u""_s}),
    CaseName());

TEST_F(TreatmentRecords, SaveLeavesTheOtherRecordsAlone) {
    const auto before = Records(u"*"_s);
    gTreatmentRecord->SetIdNum(before[0][1]);
    gTreatmentRecord->SetRequestNum(u"Z"_s);
    Save();
    auto after = Records(u"*"_s);
    ASSERT_EQ(after.size(), before.size() + 1);
    EXPECT_EQ(after.back()[2], u"Z"_s);
    after.pop_back();
    EXPECT_EQ(after, before);
}

TEST_F(TreatmentRecords, FreshSystemSavesAnEmptyRecord) {
    Save();
    Save();
    EXPECT_EQ(Count(u"IdNum = '' AND RequestNum = '' AND PDEvalNurse = '' AND UserId = 'NURSE'"_s), u"1"_s);
}

TEST_F(TreatmentRecords, QuoteInAnyFieldFailsAndKeepsNothing) {
    const QString before = Count(u"1 = 1"_s);
    for (const TreatmentProperty& property : TreatmentProperties()) {
        gTreatmentRecord = {};
        ((*gTreatmentRecord).*property.write)(u"O'BRIEN"_s);
        EXPECT_THROW(Save(), RunTimeError) << property.name.toStdString();
    }
    EXPECT_EQ(Count(u"1 = 1"_s), before);
}

TEST_F(TreatmentRecords, QuoteInANumberFailsTheLoad) {
    clsSaveTreatmentRecord record;
    EXPECT_THROW(record.UpdateDialysisTreatmentRecord(u"7'"_s, u"H1"_s), RunTimeError);
}

TEST_F(TreatmentRecords, UnknownNumbersLoadNothing) {
    clsSaveTreatmentRecord record;
    record.SetBath(u"BEFORE"_s);
    record.UpdateDialysisTreatmentRecord(u"104233B"_s, u"no such request"_s);
    EXPECT_EQ(record.Bath(), u"BEFORE"_s);
}

TEST_F(TreatmentRecords, EachRecordOfTheTrialHospitalBelongsToAChargedTreatment) {
    const auto records = Records(u"HospNum, IdNum, RequestNum, ResultDate, PatientType, UserId"_s);
    EXPECT_EQ(records.size(), 24U);
    for (const QStringList& record : records)
        EXPECT_NE(
            Cell(u"SELECT COUNT(*) FROM BILLING..tbPatientCharges WHERE HospNum = '%1' AND IdNum = '%2' "
                 "AND RefNum = '%3' AND CONVERT(varchar(10), TransDate, 101) = '%4' AND PatientType = "
                 "'%5' AND UserID = '%6' AND RevenueID = 'HC' AND ItemID < 'HC011'"_s.arg(
                     record[0], record[1], record[2], record[3], record[4], record[5])),
            u"0"_s)
            << record.join(u' ').toStdString();
}

TEST_F(TreatmentRecords, ReadingsOfTheTrialHospitalAreBelievable) {
    static const QRegularExpression time(u"^(0[1-9]|1[0-2]):[0-5][0-9][AP]M$"_s);
    for (
        const QStringList& record : Records(
            u"DryWeight, WtPreHD, WtPostHD, HdStartTime, HdEndTime, BFR, Bfr1, BP1, TEMP9, DialysisNumber"_s)) {
        const double dry = record[0].toDouble();
        EXPECT_GT(dry, 40);
        EXPECT_GT(record[1].toDouble(), dry + 1) << "nothing to take off";
        EXPECT_LT(record[2].toDouble(), dry + 0.5);
        EXPECT_TRUE(time.match(record[3]).hasMatch()) << record[3].toStdString();
        EXPECT_TRUE(time.match(record[4]).hasMatch()) << record[4].toStdString();
        EXPECT_EQ(record[6].toInt(), record[5].toInt() - 50) << "a run begins slowly";
        EXPECT_GE(record[7].section(u'/', 0, 0).toInt(), 140);
        EXPECT_GT(record[7].section(u'/', 0, 0).toInt(), record[7].section(u'/', 1).toInt() + 40);
        EXPECT_NEAR(record[8].toDouble(), 36.6, 0.5);
        EXPECT_GE(record[9].toInt(), 1);
    }
    for (const QString& kind : {u"TreatmentEventful = '1'"_s, u"TreatmentUneventful = '1'"_s,
                                u"PatientType = 'I'"_s, u"PatientType = 'O'"_s})
        EXPECT_NE(Count(kind), u"0"_s) << kind.toStdString();
}

TEST_F(TreatmentRecords, EvaluationOfTheNewestTreatmentIsNotWrittenYet) {
    const auto open = Rows(u"SELECT IdNum, RequestNum FROM HEMODIALYSIS..tbHemodialysisResultEntry WHERE "
                           "PDEvalNurse IS NULL"_s);
    ASSERT_EQ(open.size(), 1U);
    EXPECT_EQ(open[0][1], Records(u"RequestNum"_s).back()[0]);
    clsSaveTreatmentRecord record;
    record.SetPDEvalNurse(u"BEFORE"_s);
    record.UpdateDialysisTreatmentRecord(open[0][0], open[0][1]);
    EXPECT_EQ(record.PDEvalNurse(), u""_s);
    EXPECT_EQ(record.Bath(), u"BICARBONATE"_s);
    EXPECT_EQ(record.TIMETIME10(), u""_s);
}

} // namespace
