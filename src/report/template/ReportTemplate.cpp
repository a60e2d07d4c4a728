#include "report/template/ReportTemplate.h"

#include "report/template/TemplateAttributes.h"

bool IsOfRows(const TextPiece& piece) {
    return piece.kind == TextPiece::Kind::Sum || piece.kind == TextPiece::Kind::Count ||
           (piece.kind == TextPiece::Kind::Field && !piece.query);
}

QSizeF ReportTemplate::PageSize() const {
    // The layout's own points are whole ones, which would cost a page that is exactly full its last line.
    return paper.fullRect(QPageLayout::Millimeter).size() * MillimetresToPoints(1);
}
