#pragma once

#include <QtGlobal>

#include <deque>
#include <vector>

/// One band of the report as it runs down the pages, with its height already measured. Kept small: a report
/// of a year has more than a million.
struct FlowItem {
    /// In points.
    float height = 0;
    /// Where this piece of the band begins, for a band that is too tall for one page.
    float top = 0;
    /// The rows that the band stands for, the last one excluded. A detail stands for one.
    quint32 firstRow = 0;
    quint32 endRow = 0;
    /// The item behind the last one that belongs on one page with this one, where they all fit; 0 for none.
    quint32 keepEnd = 0;
    /// The number of the band in the order in which the bands print.
    quint16 band = 0;
    /// How many groups the band stands in; the header of a group stands outside of it.
    quint8 depth = 0;
    /// A piece of a band that is too tall for one page.
    bool isPiece : 1 = false;
    /// Not parted from the next item.
    bool keepWithNext : 1 = false;
    /// The header of the group at this depth.
    bool isHead : 1 = false;
    /// A header that stands again on the pages that its group goes on.
    bool repeats : 1 = false;
};

/// Grow without a second copy of what is there.
using FlowItems = std::deque<FlowItem>;

/// What stands on one page.
struct PageSpan {
    /// The headers that stand again at the top, from the outermost group to the innermost.
    std::vector<quint32> heads;
    quint32 first = 0;
    quint32 end = 0;
};

/// Spreads the items over pages whose body has that much room, in points. Always at least one page. An item
/// is never parted; one that is higher than the room has a page for itself.
std::vector<PageSpan> Paginate(const FlowItems& items, double room);
