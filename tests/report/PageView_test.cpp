#include "report/template/TemplateAttributes.h"
#include "report/viewer/PageView.h"
#include "support/CaseName.h"
#include "support/Contrast.h"
#include "support/report/ReportFixture.h"
#include "support/ScreenTest.h"

#include <QApplication>
#include <QHash>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

std::shared_ptr<const ReportDocument> Pages(int count) {
    std::vector<std::vector<Value>> rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back({qint64(i)});
    return SmallDocument(
        u"<detail height=\"100\"><box x=\"0\" y=\"0\" width=\"100\" height=\"100\" fill=\"black\"/>"
        "<text x=\"20\" y=\"50\" width=\"50\" height=\"50\" color=\"white\">row {A}</text></detail>"_s,
        Rows({u"A"_s}, rows));
}

class PageViewTest : public ScreenTest {
  protected:
    PageViewTest() {
        view.resize(400, 300);
        view.SetDocument(Pages(20));
        Activate(view);
        view.setFocus();
    }

    /// The page as pixels wide.
    double PageWidth() const {
        return MillimetresToPoints(100) * view.ZoomFactor() * view.logicalDpiX() / 72;
    }

    PageView view;
};

} // namespace

TEST_F(PageViewTest, BeginsWithTheFirstPageAsWideAsTheView) {
    EXPECT_EQ(view.CurrentPage(), 1);
    EXPECT_NEAR(PageWidth(), view.viewport()->width() - 24, 3);
    EXPECT_EQ(view.accessibleName(), u"Report, page 1 of 20"_s);
}

TEST_F(PageViewTest, StaysAsWideAsTheViewWhenThatChanges) {
    view.resize(600, 300);
    RunEvents();
    EXPECT_NEAR(PageWidth(), view.viewport()->width() - 24, 3);
    EXPECT_EQ(view.CurrentPage(), 1);
}

TEST_F(PageViewTest, StaysOnItsPageWhenTheViewChanges) {
    view.GoTo(7);
    view.resize(800, 300);
    RunEvents();
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + 1);
    EXPECT_EQ(view.CurrentPage(), 7);
}

TEST_F(PageViewTest, KeepsItsZoomWhenTheViewChanges) {
    view.SetZoomFactor(1.5);
    view.resize(600, 300);
    RunEvents();
    EXPECT_NEAR(view.ZoomFactor(), 1.5, 0.001);
}

TEST_F(PageViewTest, ShowsAWholePage) {
    view.FitPage();
    EXPECT_NEAR(PageWidth(), view.maximumViewportSize().height() - 24, 3);
}

TEST_F(PageViewTest, ZoomsWithinItsLimits) {
    view.SetZoomFactor(100);
    EXPECT_NEAR(view.ZoomFactor(), PageView::kMostZoom, 0.001);
    view.SetZoomFactor(0.001);
    EXPECT_NEAR(view.ZoomFactor(), PageView::kLeastZoom, 0.001);
}

TEST_F(PageViewTest, GoesToPages) {
    QSignalSpy changes(&view, &PageView::PageChanged);
    view.GoTo(7);
    EXPECT_EQ(view.CurrentPage(), 7);
    view.GoTo(99);
    EXPECT_EQ(view.CurrentPage(), 20);
    view.GoTo(-3);
    EXPECT_EQ(view.CurrentPage(), 1);
    EXPECT_EQ(changes.size(), 3);
}

TEST_F(PageViewTest, StaysOnItsPageWhenZoomed) {
    view.GoTo(7);
    view.SetZoomFactor(2);
    EXPECT_EQ(view.CurrentPage(), 7);
    view.FitWidth();
    EXPECT_EQ(view.CurrentPage(), 7);
}

TEST_F(PageViewTest, TheLastPageIsCurrentThoughTheViewCannotScrollSoFar) {
    view.SetZoomFactor(PageView::kLeastZoom);
    QSignalSpy changes(&view, &PageView::PageChanged);
    view.GoTo(20);
    EXPECT_EQ(view.CurrentPage(), 20);
    EXPECT_EQ(changes.size(), 1) << "no page between is told of";
    view.GoTo(view.CurrentPage() - 1);
    EXPECT_EQ(view.CurrentPage(), 19);
}

TEST_F(PageViewTest, ScrollingChangesTheCurrentPage) {
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    EXPECT_EQ(view.CurrentPage(), 20);
    EXPECT_EQ(view.accessibleName(), u"Report, page 20 of 20"_s);
}

TEST_F(PageViewTest, ScrollsByKeys) {
    Press(view, Qt::Key_End);
    EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
    Press(view, Qt::Key_Home);
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
    Press(view, Qt::Key_Down);
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
    const int step = view.verticalScrollBar()->value();
    Press(view, Qt::Key_Space);
    EXPECT_GT(view.verticalScrollBar()->value(), 2 * step);
    Press(view, Qt::Key_PageUp);
    EXPECT_EQ(view.verticalScrollBar()->value(), step);
}

TEST_F(PageViewTest, ZoomsWithTheWheelAndControl) {
    const double before = view.ZoomFactor();
    QWheelEvent event(QPointF(50, 50), QPointF(50, 50), {}, QPoint(0, 120), Qt::NoButton, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &event);
    EXPECT_NEAR(view.ZoomFactor(), before * 1.1, 0.001);
}

TEST_F(PageViewTest, PaintsThePagesInSight) {
    const QImage image = view.viewport()->grab().toImage();
    EXPECT_EQ(image.pixelColor(image.width() / 2, 40), QColor(Qt::black));
    EXPECT_NE(image.pixelColor(4, 40), QColor(Qt::black)) << "beside the page";
}

TEST_F(PageViewTest, BringsAFoundTextIntoSightAndMarksIt) {
    const auto found = FindText(*Pages(20), u"row 12"_s, std::nullopt);
    ASSERT_TRUE(found.has_value());
    view.ShowFound(*found);
    EXPECT_EQ(view.CurrentPage(), 12);
    const int middle = view.viewport()->width() / 2;
    const auto marked = [&] {
        const QImage image = view.viewport()->grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            const QColor color = image.pixelColor(middle, y);
            if (color.red() > color.blue() + 40)
                return true;
        }
        return false;
    };
    EXPECT_TRUE(marked());
    view.ForgetFound();
    EXPECT_FALSE(marked());
}

namespace {

struct InkCase {
    const char* name;
    QString paper;
    QString ink;
};

class FoundInk : public ScreenTest, public testing::WithParamInterface<InkCase> {};

/// The colours of a picture by how often they occur, the commonest two.
std::pair<QColor, QColor> PaperAndInk(const QImage& image) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QList<QRgb> colors = counts.keys();
    std::ranges::sort(colors, [&](QRgb a, QRgb b) { return counts[a] > counts[b]; });
    return {QColor(colors.value(0)), QColor(colors.value(1))};
}

} // namespace

TEST_P(FoundInk, CanBeReadOnTheMark) {
    // Letters so large that most of their ink is not edge.
    const auto document = SmallDocument(
        u"<detail height=\"100\"><box x=\"0\" y=\"0\" width=\"100\" height=\"100\" fill=\"%1\" "
        "color=\"%1\"/><text x=\"5\" y=\"5\" width=\"60\" height=\"30\" size=\"48\" bold=\"yes\" "
        "color=\"%2\">MM{A}</text></detail>"_s.arg(GetParam().paper, GetParam().ink),
        Rows({u"A"_s}, {{u"M"_s}}));
    PageView view;
    view.resize(500, 400);
    view.SetDocument(document);
    Activate(view);
    const auto found = FindText(*document, u"MMM"_s, std::nullopt);
    ASSERT_TRUE(found.has_value());
    const double scale = view.ZoomFactor() * view.logicalDpiX() / 72;
    const auto inBox = [&] {
        const QRect box(12 + int(found->box.left() * scale) + 3, 12 + int(found->box.top() * scale) + 3,
                        int(found->box.width() * scale) - 6, int(found->box.height() * scale) - 6);
        return view.viewport()->grab().toImage().copy(box);
    };
    const auto [plainPaper, plainInk] = PaperAndInk(inBox());
    view.ShowFound(*found);
    const auto [paper, ink] = PaperAndInk(inBox());
    EXPECT_TRUE(paper != plainPaper || ink != plainInk) << "it is seen";
    EXPECT_GE(Contrast(paper, ink), 4.5);
    if (plainInk == QColor(Qt::black)) {
        EXPECT_EQ(ink, plainInk) << "beneath the text";
    }
}

INSTANTIATE_TEST_SUITE_P(Colours, FoundInk,
                         testing::Values(InkCase{"BlackOnWhite", u"white"_s, u"black"_s},
                                         InkCase{"GreyOnWhite", u"white"_s, u"#5c6670"_s},
                                         InkCase{"BlueOnWhite", u"white"_s, u"#1f5f8b"_s},
                                         InkCase{"WhiteOnBlue", u"#1f5f8b"_s, u"white"_s},
                                         InkCase{"WhiteOnBlack", u"black"_s, u"white"_s}),
                         CaseName());

TEST_F(PageViewTest, ShowsNothingWithoutAReport) {
    PageView empty;
    empty.resize(100, 100);
    empty.show();
    empty.GoTo(3);
    EXPECT_EQ(empty.CurrentPage(), 0);
    empty.grab();
}
