#pragma once

#include "report/pages/BandLayout.h"
#include "report/pages/Pagination.h"
#include "report/pages/ReportData.h"

#include <vector>

/// The bands of a template in the order in which they print, by which FlowItem::band counts: the report's
/// header, the headers of the groups, the detail, the footers of the groups from the innermost, the report's
/// footer. Null for a band that the template does not have.
std::vector<const ReportBand*> BandsInOrder(const ReportTemplate& report);

/// The report's rows as the sequence of bands that runs down its pages, each with its height. `room` is the
/// height of a page's body in points: a band higher than that comes in pieces.
std::vector<FlowItem> BuildFlow(const ReportTemplate& report, const ReportData& data, ReportFonts& fonts,
                                double room);

/// Stands for page numbers while bands are measured, before there are pages.
constexpr int kWidestPageNumber = 8888;

/// Where the texts of an item stand; its page numbers are the widest.
TextPlace PlaceOf(const FlowItem& item, const ReportTemplate& report, const ReportData& data);
