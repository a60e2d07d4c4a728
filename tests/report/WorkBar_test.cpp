#include "report/viewer/WorkBar.h"
#include "support/ScreenTest.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class WorkBarTest : public ScreenTest {
  protected:
    WorkBarTest() { Activate(window); }

    QWidget window;
    WorkBar bar{&window};
};

} // namespace

TEST_F(WorkBarTest, ShowsItselfOnlyWhenTheWorkLasts) {
    bar.Begin(u"Fetching the rows"_s);
    EXPECT_FALSE(bar.isVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] { return bar.isVisible(); }));
    EXPECT_EQ(Find<QLabel>(bar, "lblWork").text(), u"Fetching the rows"_s);
    bar.End();
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(WorkBarTest, NeverShowsForWorkThatHasEndedBefore) {
    bar.Begin(u"Fetching the rows"_s);
    const auto* patience = bar.findChild<QTimer*>();
    ASSERT_NE(patience, nullptr);
    EXPECT_TRUE(patience->isActive());
    bar.End();
    EXPECT_FALSE(patience->isActive()) << "nothing is left that could show it";
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(WorkBarTest, RunsToAndFroUntilThereIsAProgress) {
    bar.Begin(u"Writing the PDF"_s);
    const auto& progress = Find<QProgressBar>(bar, "prgWork");
    EXPECT_EQ(progress.maximum(), 0);
    bar.SetProgress(3, 12);
    EXPECT_EQ(progress.maximum(), 12);
    EXPECT_EQ(progress.value(), 3);
    bar.Begin(u"Fetching the rows"_s);
    EXPECT_EQ(progress.maximum(), 0);
}

TEST_F(WorkBarTest, ItsButtonAsksToCancel) {
    QSignalSpy cancels(&bar, &WorkBar::CancelRequested);
    bar.show();
    Press(Find<QPushButton>(bar, "cmdCancel"), Qt::Key_Space);
    EXPECT_EQ(cancels.size(), 1);
}
