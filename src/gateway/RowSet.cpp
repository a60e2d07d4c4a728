#include "gateway/RowSet.h"

#include "gateway/CommandGateway.h"
#include "gateway/SqlText.h"
#include "text/RunTimeError.h"

#include <QStringList>

using namespace Qt::StringLiterals;

RowSet::RowSet(std::shared_ptr<const RowData> data, bool countsRows)
    : mData(std::move(data))
    , mCountsRows(countsRows) {}

const RowData& RowSet::Opened() const {
    if (!mData)
        throw RunTime::Error(RunTime::kObjectClosed);
    return *mData;
}

bool RowSet::Eof() const {
    return mRow >= Opened().RowCount();
}

size_t RowSet::ColumnNumber(QStringView name) const {
    const auto column = Opened().Find(name);
    if (!column)
        throw RunTime::Error(RunTime::kItemNotFound);
    return *column;
}

const Value& RowSet::Fields(QStringView name) const {
    return Fields(ColumnNumber(name));
}

const Value& RowSet::Fields(size_t column) const {
    if (Eof())
        throw RunTime::Error(RunTime::kNoCurrentRecord);
    if (column >= mData->columns.size())
        throw RunTime::Error(RunTime::kItemNotFound);
    for (const Change& change : mChanges) {
        if (change.column == column)
            return change.value;
    }
    return mData->Cell(mRow, column);
}

void RowSet::MoveNext() {
    if (Eof())
        throw RunTime::Error(RunTime::kNoCurrentRecord);
    ++mRow;
    mChanges.clear();
}

void RowSet::MoveFirst() {
    if (Opened().RowCount() == 0)
        throw RunTime::Error(RunTime::kNoCurrentRecord);
    mRow = 0;
    mChanges.clear();
}

qint64 RowSet::RecordCount() const {
    const auto rows = static_cast<qint64>(Opened().RowCount());
    return mCountsRows ? rows : -1;
}

void RowSet::Close() {
    Opened();
    mData.reset();
    mTarget.reset();
    mChanges.clear();
    mRow = 0;
}

void RowSet::SetField(QStringView name, Value value) {
    const size_t column = ColumnNumber(name);
    if (Eof())
        throw RunTime::Error(RunTime::kNoCurrentRecord);
    if (!mTarget)
        throw RunTime::Error(RunTime::kNotUpdatable);
    std::erase_if(mChanges, [column](const Change& change) { return change.column == column; });
    mChanges.push_back({column, std::move(value)});
}

void RowSet::Update() {
    if (Eof())
        throw RunTime::Error(RunTime::kNoCurrentRecord);
    if (!mTarget)
        throw RunTime::Error(RunTime::kNotUpdatable);
    if (mChanges.empty())
        return;
    if (mTarget->gateway->Send(ComposeUpdate()).rowsAffected != 1)
        throw RunTime::Error(RunTime::kRowChanged);
    auto written = std::make_shared<RowData>(*mData);
    for (Change& change : mChanges)
        written->Set(mRow, change.column, std::move(change.value));
    mData = std::move(written);
    mChanges.clear();
}

QString RowSet::ComposeUpdate() const {
    QStringList assignments;
    for (const Change& change : mChanges)
        assignments << SqlName(mData->columns[change.column]) + u'=' + SqlLiteral(change.value);
    // Every column as it was read: so two workstations can never both write over the same state of the row.
    QStringList conditions;
    for (size_t i = 0; i < mData->columns.size(); ++i) {
        const Value& read = mData->Cell(mRow, i);
        const QString name = SqlName(mData->columns[i]);
        conditions << (read.IsNull() ? name + u" IS NULL"_s : name + u'=' + SqlLiteral(read));
    }
    return u"UPDATE "_s + mTarget->table + u" SET "_s + assignments.join(u", "_s) + u" WHERE "_s +
           conditions.join(u" AND "_s);
}

std::shared_ptr<const RowData> RowSet::Data() const {
    Opened();
    return mData;
}
