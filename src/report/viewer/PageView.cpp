#include "report/viewer/PageView.h"

#include "report/pages/PageText.h"
#include "report/pages/PaintPage.h"
#include "report/pages/ReportDocument.h"
#include "toolkit/Colors.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// Round the pages and between them, in pixels.
constexpr int kGap = 12;
constexpr int kScrollStep = 24;
constexpr double kPagePointsPerInch = 72;
constexpr double kWheelZoom = 1.1;

} // namespace

PageView::PageView(QWidget* parent)
    : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setAutoFillBackground(true);
    setAccessibleName(u"Report"_s);
}

void PageView::SetDocument(std::shared_ptr<const ReportDocument> document) {
    mDocument = std::move(document);
    mFound.reset();
    mCurrentPage = 0;
    Arrange();
    GoTo(1);
}

double PageView::ZoomFactor() const {
    return mScale * kPagePointsPerInch / logicalDpiX();
}

void PageView::SetZoomFactor(double factor) {
    mScale = std::clamp(factor, kLeastZoom, kMostZoom) * logicalDpiX() / kPagePointsPerInch;
    SetFit(Fit::None);
}

void PageView::FitWidth() {
    SetFit(Fit::Width);
}

void PageView::FitPage() {
    SetFit(Fit::Page);
}

void PageView::SetFit(Fit fit) {
    mFit = fit;
    const int page = mCurrentPage;
    Arrange();
    GoTo(page);
}

double PageView::FittingScale() const {
    const QSizeF page = mDocument->PageSize();
    // The scroll bar is reckoned in, shown or not: otherwise a page could take its room and lose it for ever.
    const double width = maximumViewportSize().width() - verticalScrollBar()->sizeHint().width() - 2 * kGap;
    const double byWidth = width / page.width();
    if (mFit == Fit::Width)
        return byWidth;
    return std::min(byWidth, (maximumViewportSize().height() - 2 * kGap) / page.height());
}

void PageView::Arrange() {
    if (!mDocument)
        return;
    const double unit = logicalDpiX() / kPagePointsPerInch;
    if (mFit != Fit::None)
        mScale = std::clamp(FittingScale(), kLeastZoom * unit, kMostZoom * unit);
    const QSize page = PagePixels();
    const QSize view = viewport()->size();
    verticalScrollBar()->setRange(0, std::max(0, PageTop(mDocument->PageCount() + 1) - view.height()));
    verticalScrollBar()->setPageStep(std::max(1, view.height() - kScrollStep));
    verticalScrollBar()->setSingleStep(kScrollStep);
    horizontalScrollBar()->setRange(0, std::max(0, page.width() + 2 * kGap - view.width()));
    horizontalScrollBar()->setPageStep(view.width());
    horizontalScrollBar()->setSingleStep(kScrollStep);
    viewport()->update();
    Q_EMIT ZoomChanged(ZoomFactor());
}

QSize PageView::PagePixels() const {
    return (mDocument->PageSize() * mScale).toSize();
}

int PageView::PageTop(int page) const {
    return kGap + (page - 1) * (PagePixels().height() + kGap);
}

int PageView::PageAt(int y) const {
    return std::clamp((y - kGap) / (PagePixels().height() + kGap) + 1, 1, mDocument->PageCount());
}

void PageView::GoTo(int page) {
    if (!mDocument)
        return;
    const int number = std::clamp(page, 1, mDocument->PageCount());
    mGoing = true;
    verticalScrollBar()->setValue(PageTop(number) - kGap);
    mGoing = false;
    // Near the end the view cannot scroll so far, and the page is the current one all the same.
    SetCurrentPage(number);
}

void PageView::SetCurrentPage(int page) {
    if (page == mCurrentPage)
        return;
    mCurrentPage = page;
    setAccessibleName(u"Report, page %1 of %2"_s.arg(page).arg(mDocument->PageCount()));
    if (QAccessible::isActive())
        setAccessibleDescription(TextOfPage(*mDocument, page, mFonts));
    Q_EMIT PageChanged(page);
}

void PageView::ShowFound(const FoundText& found) {
    mFound = found;
    const QRect box(QPoint(int(found.box.left() * mScale), int(found.box.top() * mScale)),
                    (found.box.size() * mScale).toSize());
    const int top = PageTop(found.position.page) + box.top();
    const int first = verticalScrollBar()->value();
    mGoing = true;
    if (top < first || top + box.height() > first + viewport()->height())
        verticalScrollBar()->setValue(top - viewport()->height() / 3);
    const int left = kGap + box.left();
    const int leftmost = horizontalScrollBar()->value();
    if (left < leftmost || left + box.width() > leftmost + viewport()->width())
        horizontalScrollBar()->setValue(left - kGap);
    mGoing = false;
    SetCurrentPage(found.position.page);
    viewport()->update();
}

void PageView::ForgetFound() {
    mFound.reset();
    viewport()->update();
}

void PageView::paintEvent(QPaintEvent* event) {
    if (!mDocument)
        return;
    QPainter painter(viewport());
    const int offset = verticalScrollBar()->value();
    const int first = PageAt(offset + event->rect().top());
    const int last = PageAt(offset + event->rect().bottom());
    for (int page = first; page <= last; ++page)
        PaintSheet(painter, page);
}

void PageView::PaintSheet(QPainter& painter, int page) {
    const QSize pixels = PagePixels();
    const int left =
        std::max(kGap, (viewport()->width() - pixels.width()) / 2) - horizontalScrollBar()->value();
    const QRect sheet(QPoint(left, PageTop(page) - verticalScrollBar()->value()), pixels);
    painter.fillRect(sheet, Qt::white);
    painter.setPen(TheColors().sheetEdge);
    painter.drawRect(sheet.adjusted(-1, -1, 0, 0));
    painter.save();
    painter.setClipRect(sheet, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(sheet.topLeft());
    painter.scale(mScale, mScale);
    PaintPage(painter, *mDocument, page, mFonts);
    if (mFound && mFound->position.page == page)
        PaintFound(painter);
    painter.restore();
}

/// The mark dyes the paper and leaves the ink, as if it lay beneath the text, and on a filled cell too.
void PageView::PaintFound(QPainter& painter) const {
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    painter.fillRect(mFound->box, TheColors().found);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    // The page leaves its last fill behind.
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(TheColors().foundEdge, 1));
    painter.drawRect(mFound->box.adjusted(-1, -1, 1, 1));
}

void PageView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    const int page = mCurrentPage;
    Arrange();
    if (mFit != Fit::None)
        GoTo(page);
}

void PageView::scrollContentsBy(int /*dx*/, int /*dy*/) {
    viewport()->update();
    if (mDocument && !mGoing)
        SetCurrentPage(PageAt(verticalScrollBar()->value() + viewport()->height() / 3));
}

void PageView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Home:
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
        break;
    case Qt::Key_End:
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
        break;
    case Qt::Key_Space:
        verticalScrollBar()->triggerAction(event->modifiers() & Qt::ShiftModifier
                                               ? QAbstractSlider::SliderPageStepSub
                                               : QAbstractSlider::SliderPageStepAdd);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void PageView::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier)
        SetZoomFactor(ZoomFactor() * std::pow(kWheelZoom, event->angleDelta().y() / 120.0));
    else
        QAbstractScrollArea::wheelEvent(event);
}
