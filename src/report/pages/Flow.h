#pragma once

#include "report/pages/BandLayout.h"
#include "report/pages/BoundTemplate.h"
#include "report/pages/Pagination.h"
#include "report/pages/ReportSums.h"

#include <vector>

/// A report's rows as the sequence of bands that runs down its pages.
struct Flow {
    /// Each with its height; FlowItem::band counts as BandNumbers do.
    FlowItems items;
    /// What the bands among them add up.
    ReportSums sums;
};

/// `room` is the height of a page's body in points: a band higher than that comes in pieces. Raises 6 where a
/// sum has to be written to know how high its band is, and is beyond any account.
Flow BuildFlow(const BoundTemplate& report, const RowData& rows, ReportFonts& fonts, double room);

/// Stands for page numbers while bands are measured, before there are pages.
constexpr int kWidestPageNumber = 8888;

/// Where the texts of an item stand; its page numbers are the widest. The place refers to rows and sums.
TextPlace PlaceOf(const FlowItem& item, const BoundTemplate& report, const RowData& rows,
                  const ReportSums& sums);
