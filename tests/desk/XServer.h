#pragma once

#include "desk/OwnProcess.h"

#include <QSize>
#include <QString>

#include <optional>

/// An X server without a monitor for one test. Where TARVEN_DESK_DISPLAY names a display, such as the one of
/// a nested server that somebody looks at, that one is used as it is.
class XServer {
  public:
    /// With a screen of so many pixels.
    explicit XServer(QSize screen);

    const QString& Display() const { return mDisplay; }

  private:
    std::optional<OwnProcess> mServer;
    QString mDisplay;
};
