#include "report/pages/CellText.h"

#include "report/pages/ReportSums.h"
#include "text/Format.h"
#include "text/IsDate.h"
#include "text/IsNumeric.h"

using namespace Qt::StringLiterals;

namespace {

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
        return FormatValue(place.data.sums->Of(place.data.Rows(), piece.number, place.firstRow, place.endRow),
                           format);
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
