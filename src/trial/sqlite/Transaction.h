#pragma once

#include "trial/sqlite/SqliteDatabase.h"

/// A transaction that is undone unless it is committed.
class Transaction {
  public:
    enum class Kind {
        /// Sees one state of the file throughout and takes no write lock.
        Reading,
        /// Holds the write lock from its beginning.
        Writing,
        /// Lets nobody else read the file either.
        Exclusive,
    };

    Transaction(SqliteDatabase& database, Kind kind);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();

    void Commit();

  private:
    SqliteDatabase& mDatabase;
};
