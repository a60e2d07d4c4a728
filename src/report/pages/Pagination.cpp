#include "report/pages/Pagination.h"

#include <limits>

namespace {

/// Heights are sums of many parts; a hundredth of a point is nothing.
constexpr double kPageTolerance = 0.01;
constexpr quint32 kNone = std::numeric_limits<quint32>::max();

class Paginator {
  public:
    Paginator(const FlowItems& items, double room)
        : mItems(items)
        , mRoom(room) {
        mPages.emplace_back();
    }

    std::vector<PageSpan> Run() {
        for (quint32 i = 0; i < mItems.size(); ++i) {
            if (MustBreakBefore(i))
                StartPage(i);
            Place(i);
        }
        mPages.back().end = static_cast<quint32>(mItems.size());
        return std::move(mPages);
    }

  private:
    bool MustBreakBefore(quint32 i) const {
        if (i == mPages.back().first)
            return false;
        const FlowItem& item = mItems[i];
        if (!Fits(item.height))
            return true;
        if (item.keepEnd > i + 1 && GoesOnFreshPageOnly(i, item.keepEnd))
            return true;
        const bool runBegins = item.keepWithNext && !mItems[i - 1].keepWithNext;
        return runBegins && GoesOnFreshPageOnly(i, RunEnd(i));
    }

    bool GoesOnFreshPageOnly(quint32 first, quint32 end) const {
        const double height = HeightOf(first, end);
        return !Fits(height) && height <= mRoom - HeadsHeight(first) + kPageTolerance;
    }

    bool Fits(double height) const { return mUsed + height <= mRoom + kPageTolerance; }

    /// The item behind the last one that is kept with this one.
    quint32 RunEnd(quint32 i) const {
        while (i + 1 < mItems.size() && mItems[i].keepWithNext)
            ++i;
        return i + 1;
    }

    double HeightOf(quint32 first, quint32 end) const {
        double height = 0;
        for (quint32 i = first; i < end; ++i)
            height += double(mItems[i].height);
        return height;
    }

    template <class Visit> void EachOpenHead(quint32 i, Visit visit) const {
        for (size_t level = 0; level < mItems[i].depth && level < mOpenHeads.size(); ++level) {
            if (const quint32 head = mOpenHeads[level]; head != kNone && mItems[head].repeats)
                visit(head);
        }
    }

    double HeadsHeight(quint32 i) const {
        double height = 0;
        EachOpenHead(i, [&](quint32 head) { height += double(mItems[head].height); });
        return height;
    }

    void StartPage(quint32 i) {
        mPages.back().end = i;
        PageSpan page;
        page.first = i;
        mUsed = HeadsHeight(i);
        // Heads that would push out what they stand over help nobody.
        if (Fits(mItems[i].height))
            EachOpenHead(i, [&](quint32 head) { page.heads.push_back(head); });
        else
            mUsed = 0;
        mPages.push_back(std::move(page));
    }

    void Place(quint32 i) {
        const FlowItem& item = mItems[i];
        mUsed += double(item.height);
        if (!item.isHead)
            return;
        mOpenHeads.resize(item.depth, kNone);
        mOpenHeads.push_back(i);
    }

    const FlowItems& mItems;
    double mRoom;
    double mUsed = 0;
    std::vector<PageSpan> mPages;
    std::vector<quint32> mOpenHeads;
};

} // namespace

std::vector<PageSpan> Paginate(const FlowItems& items, double room) {
    return Paginator(items, room).Run();
}
