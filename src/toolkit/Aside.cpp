#include "toolkit/Aside.h"

#include <QVariant>
#include <QWidget>

namespace {

constexpr auto kAside = "aside";

} // namespace

void StandAside(QWidget& window) {
    window.setProperty(kAside, true);
}

bool StandsAside(const QWidget* control) {
    return control && control->window()->property(kAside).toBool();
}
