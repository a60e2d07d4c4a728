#include "components/shared.h"
#include "support/FakeComponents.h"
#include "support/FreshVariables.h"
#include "support/PrintQt.h"
#include "support/ScriptedGateway.h"
#include "text/RunTimeError.h"
#include "treatment/clsSaveTreatmentRecord.h"
#include "treatment/commands.h"
#include "treatment/FieldNames.h"
#include "treatment/TreatmentProperties.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFields = 203;

QString ValueOf(const QString& name) {
    return u"value of "_s + name;
}

/// A row with a text in each column, the columns in an order that is not the fields'.
std::shared_ptr<const RowData> OneRow(const QStringList& names) {
    std::vector<QString> columns;
    std::vector<Value> cells;
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        columns.push_back(name->toUpper());
        cells.emplace_back(ValueOf(*name));
    }
    return Rows(columns, {cells});
}

} // namespace

class TreatmentRecordTest : public testing::Test {
  protected:
    TreatmentRecordTest() {
        ResetShared();
        gTreatmentRecord = {};
        user->connection = &gateway;
        gCurrentUser = user;
    }
    ~TreatmentRecordTest() override {
        ResetShared();
        gTreatmentRecord = {};
    }

    void ExpectLoad(std::shared_ptr<const RowData> rows) {
        gateway.Expect(TreatmentRecordCommand(u"104233B"_s, u"H1042C"_s), std::move(rows));
    }
    void Load() { record.UpdateDialysisTreatmentRecord(u"104233B"_s, u"H1042C"_s); }

    ScriptedGateway gateway;
    std::shared_ptr<FakeCurrentUser> user = std::make_shared<FakeCurrentUser>();
    clsSaveTreatmentRecord record;
};

TEST_F(TreatmentRecordTest, FieldsAreThoseOfTheHospitalsTableInTheirOrder) {
    QStringList names;
    for (const TreatmentProperty& property : TreatmentProperties())
        names.append(property.name);
    EXPECT_EQ(names, FieldNames());
    EXPECT_EQ(names.size(), kFields);
}

TEST_F(TreatmentRecordTest, FieldThatWasNeverWrittenIsEmpty) {
    for (const TreatmentProperty& property : TreatmentProperties())
        EXPECT_EQ((record.*property.read)(), u""_s) << property.name.toStdString();
}

TEST_F(TreatmentRecordTest, EachFieldKeepsItsOwnText) {
    for (const TreatmentProperty& property : TreatmentProperties())
        (record.*property.write)(ValueOf(property.name));
    for (const TreatmentProperty& property : TreatmentProperties())
        EXPECT_EQ((record.*property.read)(), ValueOf(property.name));
}

TEST_F(TreatmentRecordTest, TextIsStoredAsItStands) {
    record.SetPhysiciansOrders(u"  DON'T; 5% \"x\" "_s);
    EXPECT_EQ(record.PhysiciansOrders(), u"  DON'T; 5% \"x\" "_s);
}

TEST_F(TreatmentRecordTest, SharedRecordComesIntoBeingAtTheFirstRead) {
    EXPECT_FALSE(gTreatmentRecord.Exists());
    EXPECT_EQ(gTreatmentRecord->Bath(), u""_s);
    EXPECT_TRUE(gTreatmentRecord.Exists());
    gTreatmentRecord->SetBath(u"BICARBONATE"_s);
    EXPECT_EQ(gTreatmentRecord->Bath(), u"BICARBONATE"_s);
}

TEST_F(TreatmentRecordTest, FreshSystemSendsTwoHundredAndThreeEmptyArguments) {
    gateway.Expect(SaveTreatmentRecordCommand(QStringList(kFields, QString())));
    record.SaveDialysisTreatmentRecord();
    EXPECT_TRUE(gTreatmentRecord.Exists());
}

TEST_F(TreatmentRecordTest, EachFieldIsSentInItsOwnPosition) {
    QStringList values;
    for (const QString& name : FieldNames())
        values.append(ValueOf(name));
    for (const TreatmentProperty& property : TreatmentProperties())
        ((*gTreatmentRecord).*property.write)(ValueOf(property.name));
    gateway.Expect(SaveTreatmentRecordCommand(values));
    gTreatmentRecord->SaveDialysisTreatmentRecord();
}

TEST_F(TreatmentRecordTest, SaveOpensAnUpdatableRowSetAtTheClient) {
    gateway.Expect(SaveTreatmentRecordCommand(QStringList(kFields)));
    record.SaveDialysisTreatmentRecord();
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Client);
}

TEST_F(TreatmentRecordTest, SaveOfAPrivateInstanceSendsNothingOfIt) {
    for (const TreatmentProperty& property : TreatmentProperties())
        (record.*property.write)(ValueOf(property.name));
    gateway.Expect(SaveTreatmentRecordCommand(QStringList(kFields)));
    record.SaveDialysisTreatmentRecord();
}

TEST_F(TreatmentRecordTest, SaveOnTheInstanceThatWasLoadedSendsTheSharedOne) {
    ExpectLoad(OneRow(FieldNames()));
    Load();
    gTreatmentRecord->SetIdNum(u"700001"_s);
    QStringList values(kFields);
    values[1] = u"700001"_s;
    gateway.Expect(SaveTreatmentRecordCommand(values));
    record.SaveDialysisTreatmentRecord();
}

TEST_F(TreatmentRecordTest, SaveCanBeRepeatedAndSendsEverythingAgain) {
    gateway.Expect(SaveTreatmentRecordCommand(QStringList(kFields)));
    gateway.Expect(SaveTreatmentRecordCommand(QStringList(kFields)));
    record.SaveDialysisTreatmentRecord();
    record.SaveDialysisTreatmentRecord();
}

TEST_F(TreatmentRecordTest, AnswerOfTheSaveIsNotLookedAt) {
    gTreatmentRecord->SetBath(u"BICARBONATE"_s);
    QStringList values(kFields);
    values[FieldNames().indexOf(u"Bath"_s)] = u"BICARBONATE"_s;
    gateway.Expect(SaveTreatmentRecordCommand(values), Rows({u"Bath"_s}, {{u"ACETATE"_s}}));
    record.SaveDialysisTreatmentRecord();
    EXPECT_EQ(gTreatmentRecord->Bath(), u"BICARBONATE"_s);
}

TEST_F(TreatmentRecordTest, FailingSaveIsNotTrapped) {
    gateway.ExpectFailure(SaveTreatmentRecordCommand(QStringList(kFields)),
                          RunTimeError(102, u"Incorrect syntax near 'x'."_s));
    EXPECT_THROW(record.SaveDialysisTreatmentRecord(), RunTimeError);
}

TEST_F(TreatmentRecordTest, SaveWithoutASignOnRaisesObjectNotSet) {
    gCurrentUser = {};
    try {
        record.SaveDialysisTreatmentRecord();
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 91);
    }
}

TEST_F(TreatmentRecordTest, EachFieldIsReadFromTheColumnOfItsName) {
    ExpectLoad(OneRow(FieldNames()));
    Load();
    for (const TreatmentProperty& property : TreatmentProperties())
        EXPECT_EQ((record.*property.read)(), ValueOf(property.name));
}

TEST_F(TreatmentRecordTest, LoadOpensAnUpdatableRowSetAtTheClient) {
    ExpectLoad(OneRow(FieldNames()));
    Load();
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Client);
}

TEST_F(TreatmentRecordTest, LoadLeavesTheSharedRecordAlone) {
    ExpectLoad(OneRow(FieldNames()));
    Load();
    EXPECT_FALSE(gTreatmentRecord.Exists());
}

TEST_F(TreatmentRecordTest, LoadIntoTheSharedRecordAndSaveSendsWhatWasRead) {
    ExpectLoad(OneRow(FieldNames()));
    gTreatmentRecord->UpdateDialysisTreatmentRecord(u"104233B"_s, u"H1042C"_s);
    QStringList values;
    for (const QString& name : FieldNames())
        values.append(ValueOf(name));
    gateway.Expect(SaveTreatmentRecordCommand(values));
    record.SaveDialysisTreatmentRecord();
}

TEST_F(TreatmentRecordTest, UnknownNumbersLeaveEveryFieldAsItWas) {
    for (const TreatmentProperty& property : TreatmentProperties())
        (record.*property.write)(ValueOf(property.name));
    ExpectLoad(Rows({u"HospNum"_s}));
    Load();
    for (const TreatmentProperty& property : TreatmentProperties())
        EXPECT_EQ((record.*property.read)(), ValueOf(property.name));
}

TEST_F(TreatmentRecordTest, NullBecomesEmptyAndTheOtherFieldsStand) {
    std::vector<QString> columns;
    std::vector<Value> cells;
    for (const QString& name : FieldNames()) {
        columns.push_back(name);
        cells.push_back(name == u"PDEvalNurse"_s ? Value() : Value(ValueOf(name)));
    }
    record.SetPDEvalNurse(u"BEFORE"_s);
    ExpectLoad(Rows(columns, {cells}));
    Load();
    EXPECT_EQ(record.PDEvalNurse(), u""_s);
    EXPECT_EQ(record.PDEvalDcrText(), u"value of PDEvalDcrText"_s);
}

TEST_F(TreatmentRecordTest, ColumnsOfOtherTypesComeAsTheirTexts) {
    std::vector<QString> columns;
    std::vector<Value> cells;
    for (const QString& name : FieldNames()) {
        columns.push_back(name);
        cells.emplace_back(QString());
    }
    cells[6] = *DateTime::FromFields({.year = 2026, .month = 1, .day = 5});
    cells[10] = Decimal{u"58.5000"_s};
    cells[19] = 300;
    ExpectLoad(Rows(columns, {cells}));
    Load();
    EXPECT_EQ(record.ResultDate(), u"1/5/2026"_s);
    EXPECT_EQ(record.DryWeight(), u"58.5"_s);
    EXPECT_EQ(record.BFR(), u"300"_s);
}

TEST_F(TreatmentRecordTest, SecondRowIsIgnored) {
    std::vector<QString> columns;
    std::vector<Value> first;
    std::vector<Value> second;
    for (const QString& name : FieldNames()) {
        columns.push_back(name);
        first.emplace_back(ValueOf(name));
        second.emplace_back(u"second"_s);
    }
    ExpectLoad(Rows(columns, {first, second}));
    Load();
    for (const TreatmentProperty& property : TreatmentProperties())
        EXPECT_EQ((record.*property.read)(), ValueOf(property.name));
}

TEST_F(TreatmentRecordTest, MissingColumnStopsTheLoadWithTheFieldsBeforeItWritten) {
    QStringList names = FieldNames();
    const qsizetype missing = names.indexOf(u"Heparin"_s);
    names.removeAt(missing);
    ExpectLoad(OneRow(names));
    try {
        Load();
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 3265);
    }
    const std::vector<TreatmentProperty> properties = TreatmentProperties();
    for (size_t i = 0; i < properties.size(); ++i)
        EXPECT_EQ((record.*properties[i].read)(),
                  i < size_t(missing) ? ValueOf(properties[i].name) : QString());
}
