#include "reporting/CellText.h"

#include "text/Format.h"
#include "text/IsDate.h"
#include "text/IsNumeric.h"
#include "text/Val.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// Sums are kept in ten-thousandths, as the server keeps money.
constexpr int kDecimals = 4;
constexpr qint64 kUnit = 10000;

qint64 ToUnits(double number) {
    return std::llround(number * double(kUnit));
}

/// The digits of an exact decimal, without the way over a double, which is inexact and slow.
qint64 ToUnits(const QString& decimal) {
    qint64 units = 0;
    int decimals = -1;
    for (const QChar c : decimal) {
        if (c == u'.') {
            decimals = 0;
        } else if (c >= u'0' && c <= u'9' && decimals < kDecimals) {
            units = units * 10 + (c.unicode() - u'0');
            decimals += decimals >= 0 ? 1 : 0;
        }
    }
    for (int i = decimals < 0 ? 0 : decimals; i < kDecimals; ++i)
        units *= 10;
    return decimal.startsWith(u'-') ? -units : units;
}

qint64 ToUnits(const Value& value) {
    if (const auto* decimal = std::get_if<Decimal>(&value.Get()))
        return ToUnits(decimal->text);
    if (const auto* text = std::get_if<QString>(&value.Get()))
        return ToUnits(Val(*text));
    return value.IsNull() ? 0 : ToUnits(value.ToDouble());
}

Value FieldAt(const TextPiece& piece, const TextPlace& place) {
    // A named query answers for the whole report with its first row.
    const RowData& rows = *place.data.queries[piece.query.value_or(0)];
    const size_t row = piece.query ? 0 : place.row;
    return row < rows.RowCount() ? rows.Cell(row, piece.number) : Value();
}

QString PieceText(const TextPiece& piece, const QString& format, const TextPlace& place) {
    switch (piece.kind) {
    case TextPiece::Kind::Literal:
        return piece.text;
    case TextPiece::Kind::Field:
        return FormatValue(FieldAt(piece, place), format);
    case TextPiece::Kind::Parameter:
        return FormatValue(place.data.parameters[piece.number], format);
    case TextPiece::Kind::Page:
        return QString::number(place.page);
    case TextPiece::Kind::Pages:
        return QString::number(place.pages);
    case TextPiece::Kind::Now:
        return FormatValue(place.data.now, format);
    case TextPiece::Kind::User:
        return place.data.user;
    case TextPiece::Kind::Sum:
        return FormatValue(SumOf(place.data.Rows(), piece.number, place.firstRow, place.endRow), format);
    case TextPiece::Kind::Count:
        return FormatValue(qint64(place.endRow - place.firstRow), format);
    }
    return {};
}

/// Decimals that the pattern marks with "#" are written only where the number has them, and so is the point.
QString FormatDecimals(double number, QStringView pattern) {
    const qsizetype point = pattern.indexOf(u'.');
    if (point < 0 || !pattern.endsWith(u'#'))
        return Format(number, pattern);
    const QStringView decimals = pattern.sliced(point + 1);
    QString text =
        Format(number, pattern.first(point + 1).toString() + decimals.toString().replace(u'#', u'0'));
    for (qsizetype spare = decimals.count(u'#'); spare > 0 && text.endsWith(u'0'); --spare)
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text;
}

QString FormatNumber(const Value& value, QStringView format) {
    const auto* text = std::get_if<QString>(&value.Get());
    const bool number = text ? IsNumeric(*text) : !std::holds_alternative<DateTime>(value.Get());
    return number ? FormatDecimals(value.ToDouble(), format) : value.ToText();
}

QString FormatDate(const Value& value, QStringView format) {
    if (const auto* date = std::get_if<DateTime>(&value.Get()))
        return Format(*date, format);
    if (const auto* text = std::get_if<QString>(&value.Get())) {
        if (const auto date = ParseDate(*text))
            return Format(*date, format);
    }
    return value.ToText();
}

} // namespace

QString TextOf(const ReportCell& cell, const TextPlace& place) {
    if (cell.text.size() == 1)
        return PieceText(cell.text.front(), cell.format, place);
    QString text;
    for (const TextPiece& piece : cell.text)
        text += PieceText(piece, cell.format, place);
    return text;
}

bool IsNumberFormat(QStringView format) {
    return format.contains(u'0') || format.contains(u'#');
}

QString FormatValue(const Value& value, QStringView format) {
    if (value.IsNull())
        return {};
    if (format.isEmpty())
        return value.ToText();
    return IsNumberFormat(format) ? FormatNumber(value, format) : FormatDate(value, format);
}

Value SumOf(const RowData& rows, size_t column, size_t firstRow, size_t endRow) {
    qint64 units = 0;
    for (size_t row = firstRow; row < endRow; ++row)
        units += ToUnits(rows.Cell(row, column));
    const QString digits = QString::number(std::abs(units)).rightJustified(kDecimals + 1, u'0');
    return Decimal{(units < 0 ? u"-"_s : QString()) + digits.chopped(kDecimals) + u'.' +
                   digits.last(kDecimals)};
}
