#pragma once

#include "desk/OwnProcess.h"

#include <QSize>
#include <QString>

#include <optional>

/// An X server without a monitor for one test. Where TARVEN_DESK_DISPLAY names a display, such as the one of
/// a nested server that somebody looks at, that one is used as it is.
class XServer {
  public:
    /// The screen in pixels, and how many of them make an inch: 96 as a rule, 120 for one at 125 %.
    XServer(QSize screen, int dotsPerInch);

    const QString& Display() const { return mDisplay; }

  private:
    std::optional<OwnProcess> mServer;
    QString mDisplay;
};
