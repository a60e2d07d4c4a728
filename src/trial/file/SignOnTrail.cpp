#include "trial/file/SignOnTrail.h"

#include "text/Clock.h"
#include "trial/sqlite/SqlFunctions.h"
#include "trial/sqlite/SqliteStatement.h"
#include "trial/sqlite/Transaction.h"
#include "tsql/DateText.h"

#include <algorithm>
#include <sqlite3.h>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using std::chrono::seconds;

/// So many failures are a slip of the finger each; the next one costs time.
constexpr int kFreeFailures = 2;
constexpr int kDaysKept = 90;

// What came of a try, in the column `succeeded`.
constexpr int kSignedOn = 1;
constexpr int kPasswordWasRight = 2;

/// Runs a statement with those values; whether a row came.
bool RunWith(SqliteStatement& statement, const std::vector<Cell>& values) {
    for (size_t i = 0; i < values.size(); ++i)
        statement.Bind(static_cast<int>(i) + 1, values[i]);
    return statement.Step();
}

QByteArray BytesAt(SqliteStatement& row, int column) {
    return {reinterpret_cast<const char*>(sqlite3_column_text(row.Handle(), column)),
            sqlite3_column_bytes(row.Handle(), column)};
}

/// What failed behind the last try of the same user or workstation that ended in one of those outcomes; ?1 is
/// its name.
QString FailedSince(const QString& column, const QString& outcomes) {
    return u" FROM tarven_sign_on WHERE %1 = ?1 AND succeeded = 0 AND number > coalesce((SELECT max(number) "
           "FROM tarven_sign_on WHERE %1 = ?1 AND succeeded IN (%2)), 0)"_s.arg(column, outcomes);
}

/// What is left of a wait that began at a moment.
seconds Left(seconds wait, DateTime begin) {
    const qint64 passed = std::max<qint64>(0, Now().Milliseconds() - begin.Milliseconds());
    return std::max(seconds(0), wait - seconds(passed / 1000));
}

} // namespace

SignOnTrail::SignOnTrail(SqliteDatabase& database, QString workstation)
    : mDatabase(database)
    , mWorkstation(std::move(workstation)) {
    MakeTable(mDatabase);
}

void SignOnTrail::MakeTable(SqliteDatabase& database) {
    database.Run(u"CREATE TABLE IF NOT EXISTS tarven_sign_on (number INTEGER PRIMARY KEY AUTOINCREMENT, "
                 "moment TEXT NOT NULL, user TEXT COLLATE NOCASE, workstation TEXT NOT NULL, "
                 "succeeded INTEGER NOT NULL)"_s);
}

void SignOnTrail::CarryOver(SqliteDatabase& from, SqliteDatabase& to) {
    if (!from.RunForValue(u"SELECT 1 FROM sqlite_master WHERE name = 'tarven_sign_on'"_s))
        return;
    Transaction transaction(to, Transaction::Kind::Writing);
    MakeTable(to);
    {
        SqliteStatement rows(
            from, u"SELECT moment, user, workstation, succeeded FROM tarven_sign_on ORDER BY number"_s,
            false);
        while (rows.Step()) {
            SqliteStatement insert(to,
                                   u"INSERT INTO tarven_sign_on (moment, user, workstation, succeeded) "
                                   "VALUES (?1, ?2, ?3, ?4)"_s,
                                   false);
            std::vector<Cell> values;
            for (int column = 0; column < sqlite3_column_count(rows.Handle()); ++column)
                values.push_back(ReadCell(sqlite3_column_value(rows.Handle(), column)));
            RunWith(insert, values);
        }
    }
    transaction.Commit();
}

seconds SignOnTrail::WaitAfter(int failures) {
    if (failures <= kFreeFailures)
        return seconds(0);
    constexpr int kLongestPower = 6;
    return std::min(kLongestWait, seconds(1 << std::min(failures - kFreeFailures, kLongestPower)));
}

seconds SignOnTrail::WaitBy(const QString& column, const QString& value) const {
    SqliteStatement failed(mDatabase, u"SELECT count(*), max(moment)"_s + FailedSince(column, u"1, 2"_s),
                           false);
    const std::vector<Cell> values = {value.toUtf8()};
    RunWith(failed, values);
    const int count = sqlite3_column_int(failed.Handle(), 0);
    return count > 0 ? Left(WaitAfter(count), FromStored(BytesAt(failed, 1))) : seconds(0);
}

seconds SignOnTrail::WaitHere() const {
    return WaitBy(u"workstation"_s, mWorkstation);
}

seconds SignOnTrail::Wait(const QString& user) const {
    return user.isEmpty() ? WaitHere() : std::max(WaitBy(u"user"_s, user), WaitHere());
}

seconds SignOnTrail::Begin(const QString& user, bool waited) {
    Transaction transaction(mDatabase, Transaction::Kind::Writing);
    const QByteArray now = StoredDateTime(Now());
    {
        // What lies in the future is from a clock that was set back since. Its wait begins now, so that it
        // ends; told as what lies ahead it would begin anew at each look.
        SqliteStatement ahead(mDatabase, u"UPDATE tarven_sign_on SET moment = ?1 WHERE moment > ?1"_s, false);
        const std::vector<Cell> moment = {now};
        RunWith(ahead, moment);
    }
    const seconds wait = waited ? WaitHere() : Wait(user);
    if (wait.count() == 0) {
        SqliteStatement insert(mDatabase,
                               u"INSERT INTO tarven_sign_on (moment, user, workstation, succeeded) "
                               "VALUES (?1, ?2, ?3, 0)"_s,
                               false);
        const std::vector<Cell> values = {now, user.isEmpty() ? Cell() : Cell(user.toUtf8()),
                                          mWorkstation.toUtf8()};
        RunWith(insert, values);
        mTry = sqlite3_last_insert_rowid(mDatabase.Handle());
    }
    transaction.Commit();
    return wait;
}

std::optional<FailedSignOns> SignOnTrail::FailuresOf(const QString& user) const {
    const QByteArray name = user.toUtf8();
    SqliteStatement failed(
        mDatabase,
        u"SELECT count(*), min(moment), max(moment), (SELECT workstation FROM tarven_sign_on WHERE user = ?1 "
        "AND number < ?2 ORDER BY number DESC LIMIT 1), (SELECT max(moment) FROM tarven_sign_on WHERE user = "
        "?1 AND succeeded = 1)"_s +
            FailedSince(u"user"_s, u"1"_s) + u" AND number < ?2"_s,
        false);
    const std::vector<Cell> values = {name, mTry};
    RunWith(failed, values);
    const int count = sqlite3_column_int(failed.Handle(), 0);
    if (count == 0)
        return std::nullopt;
    const bool signedOnBefore = sqlite3_column_type(failed.Handle(), 4) != SQLITE_NULL;
    return FailedSignOns{.count = count,
                         .since = FromStored(BytesAt(failed, signedOnBefore ? 4 : 1)),
                         .last = FromStored(BytesAt(failed, 2)),
                         .workstation = QString::fromUtf8(BytesAt(failed, 3))};
}

void SignOnTrail::SetOutcome(int outcome) {
    SqliteStatement ended(mDatabase, u"UPDATE tarven_sign_on SET succeeded = ?2 WHERE number = ?1"_s, false);
    const std::vector<Cell> values = {mTry, qint64(outcome)};
    RunWith(ended, values);
}

void SignOnTrail::PasswordWasRight() {
    SetOutcome(kPasswordWasRight);
}

std::optional<FailedSignOns> SignOnTrail::SignedOn(const QString& user) {
    Transaction transaction(mDatabase, Transaction::Kind::Writing);
    const std::optional<FailedSignOns> failed = FailuresOf(user);
    SetOutcome(kSignedOn);
    {
        SqliteStatement old(mDatabase, u"DELETE FROM tarven_sign_on WHERE moment < ?1"_s, false);
        const std::vector<Cell> before = {StoredDateTime(Now().AddDays(-kDaysKept))};
        RunWith(old, before);
    }
    transaction.Commit();
    return failed;
}
