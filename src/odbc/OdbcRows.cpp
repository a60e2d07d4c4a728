#include "odbc/OdbcRows.h"

#include "odbc/OdbcHandle.h"
#include "text/RunTimeError.h"

#include <array>
#include <cmath>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

using namespace Qt::StringLiterals;

namespace {

/// One cell of the current row, by the column's number from 1.
struct Cell {
    const OdbcHandle& statement;
    SQLUSMALLINT column;
    /// The text of the row before, which is shared while the rows repeat it: those of a patient or of a slip
    /// come together.
    QString& last;

    /// Reads a value of fixed size; false for Null.
    template <class C> bool Read(SQLSMALLINT type, C& value) const {
        SQLLEN indicator = 0;
        statement.Check(SQLGetData(statement.Get(), column, type, &value, sizeof value, &indicator));
        return indicator != SQL_NULL_DATA;
    }

    /// Reads a text of any length, piece by piece; false for Null.
    bool ReadText(QString& text) const {
        std::array<char16_t, 2048> piece;
        while (true) {
            SQLLEN rest = 0;
            const SQLRETURN result =
                SQLGetData(statement.Get(), column, SQL_C_WCHAR, piece.data(), sizeof piece, &rest);
            if (result == SQL_NO_DATA)
                return true;
            statement.Check(result);
            if (rest == SQL_NULL_DATA)
                return false;
            // A piece that does not hold all of the rest is full, but for the zero at its end.
            const bool isAll = rest != SQL_NO_TOTAL && rest <= SQLLEN(sizeof piece - sizeof(char16_t));
            const auto length = isAll ? size_t(rest) / sizeof(char16_t) : piece.size() - 1;
            const QStringView read(piece.data(), qsizetype(length));
            if (isAll && text.isEmpty()) {
                if (last != read)
                    last = read.toString();
                text = last;
                return true;
            }
            text.append(read);
            if (isAll)
                return true;
        }
    }
};

/// Reads a cell as one of the types of Value.
using CellReader = Value (*)(const Cell& cell);

Value ReadBit(const Cell& cell) {
    unsigned char bit = 0;
    return cell.Read(SQL_C_BIT, bit) ? Value(bit != 0) : Value();
}

Value ReadInteger(const Cell& cell) {
    qint64 number = 0;
    return cell.Read(SQL_C_SBIGINT, number) ? Value(number) : Value();
}

Value ReadDouble(const Cell& cell) {
    double number = 0;
    return cell.Read(SQL_C_DOUBLE, number) ? Value(number) : Value();
}

Value ReadMoment(const Cell& cell) {
    SQL_TIMESTAMP_STRUCT moment{};
    if (!cell.Read(SQL_C_TYPE_TIMESTAMP, moment))
        return {};
    const auto second = DateTime::FromFields({.year = moment.year,
                                              .month = moment.month,
                                              .day = moment.day,
                                              .hour = moment.hour,
                                              .minute = moment.minute,
                                              .second = moment.second});
    if (!second)
        throw RunTime::Error(RunTime::kTypeMismatch);
    constexpr double kNanosecondsInMillisecond = 1e6;
    return DateTime::FromMilliseconds(second->Milliseconds() +
                                      std::llround(moment.fraction / kNanosecondsInMillisecond));
}

Value ReadTextValue(const Cell& cell) {
    QString text;
    return cell.ReadText(text) ? Value(std::move(text)) : Value();
}

Value ReadDecimal(const Cell& cell) {
    QString text;
    return cell.ReadText(text) ? Value(Decimal{WithLeadingZero(std::move(text))}) : Value();
}

CellReader ReaderOf(SQLSMALLINT type) {
    switch (type) {
    case SQL_BIT:
        return ReadBit;
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return ReadInteger;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return ReadDouble;
    case SQL_NUMERIC:
    case SQL_DECIMAL:
        return ReadDecimal;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
        return ReadMoment;
    default:
        return ReadTextValue;
    }
}

/// Reads a column's name and gives what reads its cells.
CellReader Describe(const OdbcHandle& statement, SQLUSMALLINT column, QString& name) {
    std::array<SQLWCHAR, 256> text{};
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    statement.Check(SQLDescribeColW(statement.Get(), column, text.data(), SQLSMALLINT(text.size()), &length,
                                    &type, &size, &digits, &nullable));
    name = QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data()));
    return ReaderOf(type);
}

} // namespace

QString WithLeadingZero(QString number) {
    const qsizetype point = number.startsWith(u'-') ? 1 : 0;
    if (number.size() > point && number[point] == u'.')
        number.insert(point, u'0');
    return number;
}

std::shared_ptr<const RowData> ReadOdbcRows(const OdbcHandle& statement, int columns,
                                            const std::function<void()>& beforeRow) {
    auto data = std::make_shared<RowData>();
    data->columns.resize(size_t(columns));
    std::vector<CellReader> readers;
    std::vector<QString> last(data->columns.size());
    for (int i = 0; i < columns; ++i)
        readers.push_back(Describe(statement, SQLUSMALLINT(i + 1), data->columns[size_t(i)]));
    for (;;) {
        beforeRow();
        const SQLRETURN result = SQLFetch(statement.Get());
        if (result == SQL_NO_DATA)
            return data;
        statement.Check(result);
        for (size_t i = 0; i < readers.size(); ++i)
            data->Add(readers[i]({statement, SQLUSMALLINT(i + 1), last[i]}));
    }
}
