#pragma once

#include "Moment.h"

#include <QString>
#include <QStringView>

#include <functional>
#include <optional>

namespace Generator {

/// Takes one statement, without the line GO behind it.
using StatementSink = std::function<void(const QString& statement)>;

/// Writes rows as INSERT statements of at most kRowsPerInsert rows each. Every row is Begin(), one call a
/// column in the order of the columns, End(); Finish() hands over what is left.
class InsertWriter {
  public:
    static constexpr int kRowsPerInsert = 500;

    /// `table` is the table's full name, `columns` its columns as they stand between the parentheses.
    InsertWriter(StatementSink sink, const QString& table, const QString& columns);

    InsertWriter& Begin();
    InsertWriter& Text(QStringView value);
    /// Null for an empty text.
    InsertWriter& TextOrNull(QStringView value);
    InsertWriter& Number(qint64 value);
    /// An amount in centavos.
    InsertWriter& Money(qint64 centavos);
    InsertWriter& Date(QDate value);
    InsertWriter& Date(Moment value);
    InsertWriter& Date(const std::optional<Moment>& value);
    void End();
    void Finish();

  private:
    InsertWriter& Raw(QStringView literal);

    StatementSink mSink;
    QString mHead;
    QString mText;
    int mRows = 0;
    bool mFirstColumn = true;
};

} // namespace Generator
