#include "report/template/ReportTemplate.h"

#include "report/template/TemplateAttributes.h"

QSizeF ReportTemplate::PageSize() const {
    // The layout's own points are whole ones, which would cost a page that is exactly full its last line.
    return paper.fullRect(QPageLayout::Millimeter).size() * MillimetresToPoints(1);
}
