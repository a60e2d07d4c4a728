#include "desk/Desk.h"

#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

// What the clerk sees, told from pictures and from what the program knows of its texts.

namespace {

/// Colours that differ less look alike.
constexpr int kVisibleDifference = 24;
/// A ring of one pixel around the smallest button has more.
constexpr int kVisiblePixels = 40;
/// The icon and the buttons of a frame and the space around the title, as openbox and xfwm4 draw them.
constexpr int kFrameButtons = 90;
/// A date has three parts that Tab walks.
constexpr int kMostHeaderTabs = 4;
constexpr int kMostControls = 40;
constexpr int kDark = 128;
constexpr std::chrono::milliseconds kBlinkPatience(20000);
constexpr std::chrono::milliseconds kLookPause(20);

bool LooksDifferent(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) > kVisibleDifference ||
           std::abs(qGreen(a) - qGreen(b)) > kVisibleDifference ||
           std::abs(qBlue(a) - qBlue(b)) > kVisibleDifference;
}

int DarkPixels(const QImage& picture, const QRect& place) {
    const QRect seen = place.intersected(picture.rect());
    int dark = 0;
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
        for (int x = seen.left(); x <= seen.right(); ++x)
            dark += qGray(picture.pixel(x, y)) < kDark ? 1 : 0;
    }
    return dark;
}

std::string Written(const QRect& place) {
    return u"%1x%2 at %3,%4"_s.arg(place.width())
        .arg(place.height())
        .arg(place.x())
        .arg(place.y())
        .toStdString();
}

std::string Written(const QSize& size) {
    return u"%1x%2"_s.arg(size.width()).arg(size.height()).toStdString();
}

std::string Written(const Control& control) {
    return u"%1 %2 of %3"_s.arg(control.kind, control.name, control.window).toStdString();
}

/// Headings whose columns are narrower than they, as the hospital has them.
bool IsToldNarrow(const Control& control, const ShownText& shown) {
    return control.window == "frmReprint"_L1 && shown.text == "REVENUEID"_L1;
}

bool IsWhole(const ShownText& shown) {
    return shown.needs.width() <= shown.room.width() && shown.needs.height() <= shown.room.height();
}

} // namespace

int ChangedPixels(const QImage& before, const QImage& after, const QRect& place) {
    const QRect seen = place.intersected(before.rect()).intersected(after.rect());
    int changed = 0;
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
        for (int x = seen.left(); x <= seen.right(); ++x)
            changed += LooksDifferent(before.pixel(x, y), after.pixel(x, y)) ? 1 : 0;
    }
    return changed;
}

QImage Desk::ExpectCaret() {
    const State state = Now();
    if (state.caret.isEmpty())
        throw std::runtime_error("no caret can stand in " + state.focus.toStdString());
    const QImage first = Picture(u"caret-"_s + state.focus);
    const auto end = std::chrono::steady_clock::now() + kBlinkPatience;
    while (std::chrono::steady_clock::now() < end) {
        const QImage next = mSeat->Picture();
        // A caret is a bar as high as the letters, and nothing else changes in its place.
        if (ChangedPixels(first, next, state.caret) >= state.caret.height() / 2)
            return DarkPixels(first, state.caret) > DarkPixels(next, state.caret) ? first : next;
        std::this_thread::sleep_for(kLookPause);
    }
    ADD_FAILURE() << "no caret blinks in " << state.focus.toStdString();
    return first;
}

bool Desk::TabAwayFrom(const QRect& control) {
    for (int i = 0; i < kMostHeaderTabs; ++i) {
        Key(u"{Tab}"_s);
        if (Now().focusPlace != control)
            return true;
    }
    return false;
}

void Desk::ExpectFocusIsSeen() {
    const State before = Now();
    if (before.focusPlace.isEmpty()) {
        ADD_FAILURE() << "nothing visible has the focus";
        return;
    }
    const QImage with = before.caret.isEmpty() ? Picture(u"focus-on-"_s + before.focus) : ExpectCaret();
    if (!TabAwayFrom(before.focusPlace))
        return;
    const QImage without = Picture(u"focus-off-"_s + before.focus);
    EXPECT_GE(ChangedPixels(with, without, before.focusPlace), kVisiblePixels)
        << before.focus.toStdString() << " looks alike with the focus and without";
}

void Desk::ExpectEachFocusIsSeen() {
    const QRect first = ExpectAFocus().focusPlace;
    for (int i = 0; i < kMostControls; ++i) {
        const QRect here = Now().focusPlace;
        ExpectFocusIsSeen();
        const QRect next = Now().focusPlace;
        if (next == first || next == here)
            return;
    }
    ADD_FAILURE() << "Tab does not lead round";
}

bool Desk::IsFramed(const ShownWindow& shown) const {
    // The title makes a frame higher; without a window manager there is none.
    const int title = mHasFrames && shown.id != 0 ? 1 : 0;
    return shown.frame.width() >= shown.place.width() && shown.frame.height() >= shown.place.height() + title;
}

ShownWindow Desk::WindowOf(const QString& name) {
    Now();
    ShownWindow shown;
    WaitFor(
        [&](const State& state) {
            const ShownWindow* window = state.Window(name);
            if (!window)
                return false;
            shown = *window;
            if (shown.id != 0)
                shown.frame = mSeat->FrameOf(shown.id);
            return IsFramed(shown);
        },
        name + u" in its frame"_s);
    return shown;
}

void Desk::ExpectNothingCut(const QString& window) {
    Picture(u"whole-"_s + window);
    int texts = 0;
    for (const Control& control : Controls(window)) {
        for (const ShownText& shown : control.texts) {
            ++texts;
            EXPECT_TRUE(IsWhole(shown) || IsToldNarrow(control, shown))
                << Written(control) << " cuts \"" << shown.text.toStdString() << "\": it needs "
                << Written(shown.needs) << " and has " << Written(shown.room);
        }
    }
    EXPECT_GT(texts, 0) << window.toStdString() << " shows no text";
}

void Desk::ExpectInside(const QString& window) {
    const ShownWindow shown = WindowOf(window);
    const QRect area = shown.area.isEmpty() ? mSeat->WorkArea() : shown.area;
    EXPECT_TRUE(area.contains(shown.frame))
        << window.toStdString() << ", " << Written(shown.frame) << ", reaches out of " << Written(area);
    for (const Control& control : Controls(window))
        EXPECT_TRUE(control.bounds.contains(control.place))
            << Written(control) << ", " << Written(control.place) << ", reaches out of "
            << Written(control.bounds);
}

void Desk::ExpectRoomForTitle(const QString& window) {
    // Without a window manager nobody draws a title.
    if (!mHasFrames)
        return;
    const ShownWindow shown = WindowOf(window);
    EXPECT_GE(shown.frame.width(), shown.titleNeeds + kFrameButtons) << shown.title.toStdString();
}
