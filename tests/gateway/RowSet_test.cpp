#include "gateway/CommandGateway.h"
#include "gateway/RowSet.h"
#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "text/RunTimeError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

std::shared_ptr<const RowData> TwoRows() {
    auto data = std::make_shared<RowData>();
    data->columns = {u"Code"_s, u"Price"_s, u"code"_s};
    for (const Value& cell :
         std::vector<Value>{u"A"_s, Decimal{u"1.0000"_s}, u"second"_s, u"B"_s, {}, u"second"_s})
        data->Add(cell);
    return data;
}

std::shared_ptr<const RowData> NoRows() {
    auto data = std::make_shared<RowData>();
    data->columns = {u"Code"_s};
    return data;
}

/// Answers every text with the same rows and remembers what it was asked.
class RecordingGateway : public CommandGateway {
  public:
    bool Connected() const override { return true; }
    QString ConnectionString() const override { return {}; }

    QStringList sent;
    std::shared_ptr<const RowData> rows = TwoRows();
    qint64 rowsAffected = 1;

  protected:
    Outcome Run(const QString& command) override {
        sent << command;
        return {rows, rowsAffected};
    }
};

class UpdatableRowSet : public testing::Test {
  protected:
    RowSet Open(const QString& command, LockType lock = LockType::Optimistic) {
        return gateway.Open(command, CursorType::Dynamic, lock);
    }

    RecordingGateway gateway;
};

} // namespace

TEST(RowSetTest, WalksFromTheFirstRowToEof) {
    RowSet rows(TwoRows(), false);
    EXPECT_FALSE(rows.Eof());
    EXPECT_EQ(rows.Fields(u"CODE").ToText(), u"A"_s);
    rows.MoveNext();
    EXPECT_EQ(rows.Fields(u"Code").ToText(), u"B"_s);
    EXPECT_TRUE(rows.Fields(u"price").IsNull());
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    rows.MoveFirst();
    EXPECT_EQ(rows.Fields(0).ToText(), u"A"_s);
}

TEST(RowSetTest, EofRaises3021) {
    RowSet rows(NoRows(), false);
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(FailureOf([&] { rows.Fields(u"Code"); }).number, RunTime::kNoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { rows.MoveNext(); }).number, RunTime::kNoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { rows.MoveFirst(); }).number, RunTime::kNoCurrentRecord);
}

TEST(RowSetTest, UnknownColumnRaises3265) {
    const RowSet rows(TwoRows(), false);
    EXPECT_EQ(FailureOf([&] { rows.Fields(u"nothing"); }).number, RunTime::kItemNotFound);
    EXPECT_EQ(FailureOf([&] { rows.Fields(3); }).number, RunTime::kItemNotFound);
    EXPECT_EQ(FailureOf([&] { rows.ColumnNumber(u"nothing"); }).number, RunTime::kItemNotFound);
}

TEST(RowSetTest, FirstOfTwoColumnsWithOneNameIsRead) {
    EXPECT_EQ(RowSet(TwoRows(), false).ColumnNumber(u"cOdE"), 0U);
}

TEST(RowSetTest, ClosedRaises3704ForEverythingButState) {
    RowSet rows(TwoRows(), true);
    rows.Close();
    EXPECT_EQ(rows.State(), RowSet::Status::Closed);
    EXPECT_EQ(FailureOf([&] { rows.Close(); }).number, RunTime::kObjectClosed);
    EXPECT_EQ(FailureOf([&] { (void)rows.Eof(); }).number, RunTime::kObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.Fields(u"Code"); }).number, RunTime::kObjectClosed);
    EXPECT_EQ(FailureOf([&] { (void)rows.ColumnNumber(u"Code"); }).number, RunTime::kObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.MoveNext(); }).number, RunTime::kObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.MoveFirst(); }).number, RunTime::kObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.SetField(u"Code", Value()); }).number, RunTime::kObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.Update(); }).number, RunTime::kObjectClosed);
    EXPECT_EQ(FailureOf([&] { (void)rows.RecordCount(); }).number, RunTime::kObjectClosed);
    EXPECT_EQ(FailureOf([&] { (void)rows.Data(); }).number, RunTime::kObjectClosed);
}

TEST(RowSetTest, RecordCountIsKnownOnlyWhereRowsAreCounted) {
    EXPECT_EQ(RowSet(TwoRows(), true).RecordCount(), 2);
    EXPECT_EQ(RowSet(TwoRows(), false).RecordCount(), -1);
}

TEST(RowSetTest, DataOutlivesTheRowSet) {
    RowSet rows(TwoRows(), false);
    const auto data = rows.Data();
    rows.Close();
    EXPECT_EQ(data->RowCount(), 2U);
}

TEST_F(UpdatableRowSet, WritesTheChangeForTheRowAsItWasRead) {
    RowSet rows = Open(u"select * from a..t"_s);
    rows.SetField(u"price", Value(Decimal{u"2.0000"_s}));
    rows.Update();
    EXPECT_EQ(gateway.sent.last(),
              u"UPDATE a..t SET [Price]=2.0000 WHERE [Code]='A' AND [Price]=1.0000 AND [code]='second'"_s);
    EXPECT_EQ(rows.Fields(u"price").ToText(), u"2"_s);
}

TEST_F(UpdatableRowSet, NullIsLookedForWithIsNull) {
    RowSet rows = Open(u"select * from a..t"_s);
    rows.MoveNext();
    rows.SetField(u"Code", Value(u"C"_s));
    rows.Update();
    EXPECT_TRUE(gateway.sent.last().contains(u"[Price] IS NULL"_s)) << gateway.sent.last().toStdString();
}

TEST_F(UpdatableRowSet, SecondUpdateStartsFromTheFirst) {
    RowSet rows = Open(u"select * from a..t"_s);
    rows.SetField(u"Code", Value(u"C"_s));
    rows.Update();
    rows.SetField(u"Code", Value(u"D"_s));
    rows.Update();
    EXPECT_TRUE(gateway.sent.last().contains(u"WHERE [Code]='C'"_s)) << gateway.sent.last().toStdString();
}

TEST_F(UpdatableRowSet, RowThatIsNotThereAnyMoreIsAnErrorAndKeepsTheChange) {
    RowSet rows = Open(u"select * from a..t"_s);
    rows.SetField(u"Code", Value(u"C"_s));
    for (const qint64 touched : {0, 2}) {
        gateway.rowsAffected = touched;
        EXPECT_EQ(FailureOf([&] { rows.Update(); }).number, RunTime::kRowChanged);
    }
}

TEST_F(UpdatableRowSet, EofHasNoRowToWrite) {
    RowSet rows = Open(u"select * from a..t"_s);
    rows.MoveNext();
    rows.MoveNext();
    ASSERT_TRUE(rows.Eof());
    EXPECT_EQ(FailureOf([&] { rows.SetField(u"Code", Value(u"C"_s)); }).number, RunTime::kNoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { rows.Update(); }).number, RunTime::kNoCurrentRecord);
    EXPECT_EQ(gateway.sent.size(), 1);
}

TEST_F(UpdatableRowSet, MovingDropsWhatWasSet) {
    RowSet rows = Open(u"select * from a..t"_s);
    rows.SetField(u"Code", Value(u"C"_s));
    EXPECT_EQ(rows.Fields(u"Code").ToText(), u"C"_s);
    rows.MoveFirst();
    EXPECT_EQ(rows.Fields(u"Code").ToText(), u"A"_s);
    rows.Update();
    EXPECT_EQ(gateway.sent.size(), 1);
}

TEST_F(UpdatableRowSet, ReadOnlyRowsAndProceduresRaise3251) {
    for (RowSet rows : {Open(u"select * from a..t"_s, LockType::ReadOnly), Open(u"a..sp 'x'"_s),
                        gateway.Execute(u"select * from a..t"_s)}) {
        EXPECT_EQ(FailureOf([&] { rows.SetField(u"Code", Value(u"C"_s)); }).number, RunTime::kNotUpdatable);
        EXPECT_EQ(FailureOf([&] { rows.Update(); }).number, RunTime::kNotUpdatable);
    }
}
