#include "shell/StatusPanel.h"

#include "text/Clock.h"
#include "text/Format.h"

#include <QTimer>

#include <chrono>

namespace {

/// Often enough for a clock of minutes.
constexpr std::chrono::milliseconds kClockInterval(5000);

} // namespace

StatusPanel::StatusPanel(Style style, const QString& name, QWidget* parent)
    : QLabel(parent)
    , mStyle(style) {
    setObjectName(name);
    if (style == Style::Text)
        return;
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &StatusPanel::ShowMoment);
    timer->start(kClockInterval);
    ShowMoment();
}

void StatusPanel::SetText(const QString& text) {
    mText = text;
    if (mStyle == Style::Text)
        setText(text);
    else
        setToolTip(text);
}

void StatusPanel::ShowMoment() {
    setText(mStyle == Style::Date ? Format(Now(), u"mm/dd/yyyy") : Format(Now(), u"h:mm AM/PM"));
}
