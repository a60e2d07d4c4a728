#pragma once

#include "report/output/PageFinder.h"
#include "report/pages/ReportFont.h"

#include <QAbstractScrollArea>

#include <memory>
#include <optional>

class ReportDocument;

/// Shows the pages of a report one below the other and paints those that are in sight.
class PageView : public QAbstractScrollArea {
    Q_OBJECT

  public:
    explicit PageView(QWidget* parent = nullptr);

    void SetDocument(std::shared_ptr<const ReportDocument> document);

    /// The page that fills most of the view, from 1; 0 without a report.
    int CurrentPage() const { return mCurrentPage; }
    /// Brings a page to the top of the view; a number beyond the pages means the nearest one.
    void GoTo(int page);
    /// Brings a found text into sight and marks it.
    void ShowFound(const FoundText& found);
    void ForgetFound();

    /// 1 is the size on paper.
    double ZoomFactor() const;
    /// Between kLeastZoom and kMostZoom.
    void SetZoomFactor(double factor);
    /// Keeps the page as wide as the view, whatever size that has.
    void FitWidth();
    /// Keeps a whole page in sight.
    void FitPage();

    static constexpr double kLeastZoom = 0.25;
    static constexpr double kMostZoom = 5;

  Q_SIGNALS:
    void PageChanged(int page);
    void ZoomChanged(double factor);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    enum class Fit { None, Width, Page };

    void SetFit(Fit fit);
    void Arrange();
    double FittingScale() const;
    QSize PagePixels() const;
    int PageTop(int page) const;
    int PageAt(int y) const;
    void SetCurrentPage(int page);
    void PaintSheet(QPainter& painter, int page);
    void PaintFound(QPainter& painter) const;

    std::shared_ptr<const ReportDocument> mDocument;
    ReportFonts mFonts;
    Fit mFit = Fit::Width;
    /// Pixels to the point.
    double mScale = 1;
    int mCurrentPage = 0;
    bool mGoing = false;
    std::optional<FoundText> mFound;
};
