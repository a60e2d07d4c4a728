#include "support/smallhospital/GatewayTexts.h"
#include "trial/sqlite/Transaction.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class TransactionTest : public testing::Test {
  protected:
    TransactionTest()
        : path(folder.filePath(u"t.db"_s))
        , first(path, SqliteDatabase::Mode::New)
        , second(path, SqliteDatabase::Mode::Existing) {
        first.RunForValue(u"PRAGMA journal_mode = WAL"_s);
        first.Run(u"CREATE TABLE t (a); INSERT INTO t VALUES (1)"_s);
        for (SqliteDatabase* database : {&first, &second})
            database->SetTimeout(1);
    }

    qint64 Count(SqliteDatabase& database) {
        return std::get<qint64>(*database.RunForValue(u"SELECT count(*) FROM t"_s));
    }

    QTemporaryDir folder;
    QString path;
    SqliteDatabase first;
    SqliteDatabase second;
};

} // namespace

TEST_F(TransactionTest, IsUndoneUnlessItIsCommitted) {
    {
        Transaction transaction(first, Transaction::Kind::Writing);
        first.Run(u"INSERT INTO t VALUES (2)"_s);
    }
    EXPECT_EQ(Count(second), 1);
    Transaction transaction(first, Transaction::Kind::Writing);
    first.Run(u"INSERT INTO t VALUES (2)"_s);
    transaction.Commit();
    EXPECT_EQ(Count(second), 2);
}

TEST_F(TransactionTest, AWriterHoldsTheLockFromItsBeginning) {
    const Transaction writer(first, Transaction::Kind::Writing);
    EXPECT_EQ(FailureOf([this] { second.Run(u"INSERT INTO t VALUES (2)"_s); }).number, 1222);
}

TEST_F(TransactionTest, AReaderSeesOneStateAndStopsNoWriter) {
    const Transaction reader(first, Transaction::Kind::Reading);
    EXPECT_EQ(Count(first), 1);
    second.Run(u"INSERT INTO t VALUES (2)"_s);
    EXPECT_EQ(Count(first), 1);
}

TEST_F(TransactionTest, WhatIsNoStatementOfSqlitesIsAnErrorOfTheServer) {
    const RaisedError failure = FailureOf([this] { first.Run(u"nonsense"_s); });
    EXPECT_EQ(failure.number, 8180);
    EXPECT_EQ(failure.text, u"Statement(s) could not be prepared."_s);
}

TEST_F(TransactionTest, AFileThatCannotBeOpenedIsError5120) {
    const QString missing = folder.filePath(u"none/t.db"_s);
    EXPECT_EQ(FailureOf([&] { SqliteDatabase(missing, SqliteDatabase::Mode::New); }).number, 5120);
}
