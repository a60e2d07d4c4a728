#include "shell/StatusPanel.h"
#include "support/PrintQt.h"
#include "text/Clock.h"

#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class StatusPanelTest : public testing::Test {
  protected:
    StatusPanelTest() { SetTime(10); }

    void SetTime(int hour, int day = 21) {
        now = *DateTime::FromFields({.year = 2026, .month = 11, .day = day, .hour = hour, .minute = 5});
    }

    DateTime now;
    const Seam<DateTime()>::Replacement clock = ClockSeam().Replace([this] { return now; });

    /// Lets the panel's clock tick now.
    static void Tick(const StatusPanel& panel) {
        auto* timer = panel.findChild<QTimer*>();
        ASSERT_NE(timer, nullptr);
        EXPECT_TRUE(timer->isActive());
        QMetaObject::invokeMethod(timer, "timeout");
    }
};

TEST_F(StatusPanelTest, ATextPanelShowsItsText) {
    StatusPanel panel(StatusPanel::Style::Text, u"Status"_s, nullptr);
    panel.SetText(u"Status"_s);
    EXPECT_EQ(panel.text(), u"Status"_s);
    EXPECT_EQ(panel.Text(), u"Status"_s);
    EXPECT_EQ(panel.objectName(), u"Status"_s);
    EXPECT_EQ(panel.findChild<QTimer*>(), nullptr);
}

TEST_F(StatusPanelTest, ADatePanelKeepsShowingTheDate) {
    StatusPanel panel(StatusPanel::Style::Date, u"Panel2"_s, nullptr);
    EXPECT_EQ(panel.text(), u"11/21/2026"_s);
    panel.SetText(u"ABR"_s);
    EXPECT_EQ(panel.text(), u"11/21/2026"_s);
    EXPECT_EQ(panel.Text(), u"ABR"_s);
    EXPECT_EQ(panel.toolTip(), u"ABR"_s);
    SetTime(10, 22);
    Tick(panel);
    EXPECT_EQ(panel.text(), u"11/22/2026"_s);
}

TEST_F(StatusPanelTest, ATimePanelKeepsShowingTheTime) {
    StatusPanel panel(StatusPanel::Style::Time, u"Panel3"_s, nullptr);
    EXPECT_EQ(panel.text(), u"10:05 AM"_s);
    panel.SetText(u"ANA REYES"_s);
    EXPECT_EQ(panel.text(), u"10:05 AM"_s);
    EXPECT_EQ(panel.Text(), u"ANA REYES"_s);
    SetTime(14);
    Tick(panel);
    EXPECT_EQ(panel.text(), u"2:05 PM"_s);
}

} // namespace
