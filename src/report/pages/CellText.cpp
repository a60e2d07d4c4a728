#include "report/pages/CellText.h"

#include "report/pages/FormatValue.h"

namespace {

Value FieldAt(size_t column, const TextPlace& place) {
    return place.row < place.rows.RowCount() ? place.rows.Cell(place.row, column) : Value();
}

QString PieceText(const BoundPiece& piece, const QString& format, const TextPlace& place) {
    switch (piece.kind) {
    case BoundPiece::Kind::Words:
        return piece.words;
    case BoundPiece::Kind::Field:
        return FormatValue(FieldAt(piece.column, place), format);
    case BoundPiece::Kind::Page:
        return QString::number(place.page);
    case BoundPiece::Kind::Pages:
        return QString::number(place.pages);
    case BoundPiece::Kind::Sum:
        return FormatValue(place.sums.Of(piece.column, place.firstRow, place.endRow), format);
    case BoundPiece::Kind::Count:
        return FormatValue(qint64(place.endRow - place.firstRow), format);
    }
    return {};
}

} // namespace

QString TextOf(const BoundCell& cell, const TextPlace& place) {
    const QString& format = cell.read->format;
    if (cell.text.size() == 1)
        return PieceText(cell.text.front(), format, place);
    QString text;
    for (const BoundPiece& piece : cell.text)
        text += PieceText(piece, format, place);
    return text;
}
