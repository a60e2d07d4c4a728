#pragma once

#include "gateway/RowData.h"

#include <QStringView>

#include <memory>
#include <optional>
#include <vector>

class CommandGateway;

/// The result of a command, with a current row. Rows are held whole in memory: any number of row sets may be
/// open, and a grid that was bound to one keeps its rows when it is closed.
///
/// Reading or moving at the end of the rows raises 3021, a column that is not there 3265, and everything on a
/// closed row set but State raises 3704, Close included.
class RowSet {
  public:
    enum class Status { Closed, Open };

    /// A closed row set.
    RowSet() = default;
    /// An open row set on its first row. `countsRows` is false for the cursors that cannot tell their length.
    RowSet(std::shared_ptr<const RowData> data, bool countsRows);

    /// Whether the rows are at their end, or there are none.
    bool Eof() const;
    /// The current row's value in the first column of that name, letter case aside.
    const Value& Fields(QStringView name) const;
    /// The value in a column by its number from 0.
    const Value& Fields(size_t column) const;
    /// The number of a column for reading many rows; raises 3265.
    size_t ColumnNumber(QStringView name) const;
    /// Goes to the next row; from the last one to the end.
    void MoveNext();
    /// Raises 3021 when there is no row.
    void MoveFirst();
    /// The number of rows, or -1 for a dynamic or forward-only cursor on the server, which does not know it.
    qint64 RecordCount() const;
    /// Whether the row set is open. Raises nothing, on a closed one too.
    Status State() const { return mData ? Status::Open : Status::Closed; }
    /// Closes it: the rows are let go, unless a grid is bound to them.
    void Close();

    /// Sets a column of the current row; the database hears of it at Update(). What was set and not written
    /// is dropped, without an error, when the row set moves or is closed. Raises 3251 on a row set that
    /// cannot be updated.
    void SetField(QStringView name, Value value);
    /// Writes the columns that were set, provided that the row still stands as it was read; raises
    /// kRowChanged when another workstation was faster, and what was set is kept then. Raises 3251 on a row
    /// set that cannot be updated, and what the database raises. Does nothing when nothing was set.
    void Update();

    /// The rows, for binding to a grid. Raises 3704 when closed.
    std::shared_ptr<const RowData> Data() const;

  private:
    friend class CommandGateway;

    /// What an updatable row set writes through.
    struct Target {
        CommandGateway* gateway = nullptr;
        QString table;
    };
    struct Change {
        size_t column;
        Value value;
    };

    const RowData& Opened() const;
    QString ComposeUpdate() const;

    std::shared_ptr<const RowData> mData;
    size_t mRow = 0;
    bool mCountsRows = false;
    std::optional<Target> mTarget;
    std::vector<Change> mChanges;
};
