#include "gateway/embedded/SignOnTrail.h"

#include "gateway/embedded/DateText.h"
#include "gateway/embedded/SqliteStatement.h"
#include "gateway/embedded/Transaction.h"
#include "text/Clock.h"

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

/// Runs a statement with those values; whether a row came.
bool RunWith(SqliteStatement& statement, const std::vector<Cell>& values) {
    for (size_t i = 0; i < values.size(); ++i)
        statement.Bind(static_cast<int>(i) + 1, values[i]);
    return statement.Step();
}

QByteArray TextAt(SqliteStatement& row, int column) {
    return {reinterpret_cast<const char*>(sqlite3_column_text(row.Handle(), column)),
            sqlite3_column_bytes(row.Handle(), column)};
}

/// What failed behind the last good try of the same user or workstation; ?1 is its name.
QString FailedSince(const QString& column) {
    return u" FROM tarven_sign_on WHERE %1 = ?1 AND succeeded = 0 AND number > coalesce((SELECT max(number) "
           "FROM tarven_sign_on WHERE %1 = ?1 AND succeeded = 1), 0)"_s.arg(column);
}

/// What is left of a wait that began at a moment. A moment that has not come yet is a clock that was set
/// back, and counts as now.
seconds Left(seconds wait, DateTime begin) {
    const qint64 passed = std::max<qint64>(0, Now().Milliseconds() - begin.Milliseconds());
    return std::max(seconds(0), wait - seconds(passed / 1000));
}

} // namespace

SignOnTrail::SignOnTrail(SqliteDatabase& database, QString workstation)
    : mDatabase(database)
    , mWorkstation(std::move(workstation)) {
    mDatabase.Run(u"CREATE TABLE IF NOT EXISTS tarven_sign_on (number INTEGER PRIMARY KEY AUTOINCREMENT, "
                  "moment TEXT NOT NULL, user TEXT COLLATE NOCASE, workstation TEXT NOT NULL, "
                  "succeeded INTEGER NOT NULL)"_s);
}

seconds SignOnTrail::WaitAfter(int failures) {
    if (failures <= kFreeFailures)
        return seconds(0);
    constexpr int kLongestPower = 6;
    return std::min(kLongestWait, seconds(1 << std::min(failures - kFreeFailures, kLongestPower)));
}

seconds SignOnTrail::WaitBy(const QString& column, const QString& value) const {
    SqliteStatement failed(mDatabase, u"SELECT count(*), max(moment)"_s + FailedSince(column), false);
    const std::vector<Cell> values = {value.toUtf8()};
    RunWith(failed, values);
    const int count = sqlite3_column_int(failed.Handle(), 0);
    return count > 0 ? Left(WaitAfter(count), FromStored(TextAt(failed, 1))) : seconds(0);
}

seconds SignOnTrail::WaitHere() const {
    return WaitBy(u"workstation"_s, mWorkstation);
}

seconds SignOnTrail::Wait(const QString& user) const {
    return user.isEmpty() ? WaitHere() : std::max(WaitBy(u"user"_s, user), WaitHere());
}

void SignOnTrail::Begin(const QString& user) {
    SqliteStatement insert(mDatabase,
                           u"INSERT INTO tarven_sign_on (moment, user, workstation, succeeded) "
                           "VALUES (?1, ?2, ?3, 0)"_s,
                           false);
    const std::vector<Cell> values = {StoredDateTime(Now()), user.isEmpty() ? Cell() : Cell(user.toUtf8()),
                                      mWorkstation.toUtf8()};
    RunWith(insert, values);
    mTry = sqlite3_last_insert_rowid(mDatabase.Handle());
}

std::optional<FailedSignOns> SignOnTrail::FailuresOf(const QString& user) const {
    const QByteArray name = user.toUtf8();
    SqliteStatement failed(
        mDatabase,
        u"SELECT count(*), min(moment), max(moment), (SELECT workstation FROM tarven_sign_on WHERE user = ?1 "
        "AND number < ?2 ORDER BY number DESC LIMIT 1), (SELECT max(moment) FROM tarven_sign_on WHERE user = "
        "?1 AND succeeded = 1)"_s +
            FailedSince(u"user"_s) + u" AND number < ?2"_s,
        false);
    const std::vector<Cell> values = {name, mTry};
    RunWith(failed, values);
    const int count = sqlite3_column_int(failed.Handle(), 0);
    if (count == 0)
        return std::nullopt;
    const bool signedOnBefore = sqlite3_column_type(failed.Handle(), 4) != SQLITE_NULL;
    return FailedSignOns{.count = count,
                         .since = FromStored(TextAt(failed, signedOnBefore ? 4 : 1)),
                         .last = FromStored(TextAt(failed, 2)),
                         .workstation = QString::fromUtf8(TextAt(failed, 3))};
}

std::optional<FailedSignOns> SignOnTrail::Succeeded(const QString& user) {
    Transaction transaction(mDatabase, Transaction::Kind::Writing);
    const std::optional<FailedSignOns> failed = FailuresOf(user);
    {
        SqliteStatement good(mDatabase, u"UPDATE tarven_sign_on SET succeeded = 1 WHERE number = ?1"_s,
                             false);
        const std::vector<Cell> values = {mTry};
        RunWith(good, values);
        SqliteStatement old(mDatabase, u"DELETE FROM tarven_sign_on WHERE moment < ?1"_s, false);
        const std::vector<Cell> before = {StoredDateTime(Now().AddDays(-kDaysKept))};
        RunWith(old, before);
    }
    transaction.Commit();
    return failed;
}
