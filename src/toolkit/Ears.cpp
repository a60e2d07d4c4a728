#include "toolkit/Ears.h"

#include "toolkit/ClickTable.h"
#include "toolkit/Form.h"
#include "toolkit/TableEar.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace {

constexpr auto kRole = "spokenAs";

/// A screen in a window of its own is a dialogue under its title; one inside the main window is what its
/// frame there says.
class ScreenEar : public QAccessibleWidget {
  public:
    explicit ScreenEar(Form& screen)
        : QAccessibleWidget(&screen) {}

    QAccessible::Role role() const override {
        return widget()->isWindow() ? QAccessible::Dialog : QAccessible::Client;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = static_cast<const Form*>(widget())->IsModal();
        return state;
    }
};

/// Asked for each class of an object's chain, the object's own first.
QAccessibleInterface* EarOf(const QString& /*className*/, QObject* object) {
    if (auto* table = qobject_cast<ClickTable*>(object))
        return new TableEar(*table);
    if (auto* screen = qobject_cast<Form*>(object))
        return new ScreenEar(*screen);
    auto* control = qobject_cast<QWidget*>(object);
    const QVariant role = control ? control->property(kRole) : QVariant();
    return role.isValid() ? new QAccessibleWidget(control, QAccessible::Role(role.toInt())) : nullptr;
}

void Tell(QWidget& control, QAccessible::Event what) {
    QAccessibleEvent event(&control, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void OpenEars() {
    QAccessible::installFactory(EarOf);
}

void SpeakAs(QWidget& control, QAccessible::Role role) {
    control.setProperty(kRole, int(role));
}

void SpeakAnew(QWidget& control, const QString& name) {
    if (control.accessibleName() == name)
        return;
    // Tells of the new name by itself.
    control.setAccessibleName(name);
    if (control.hasFocus())
        Tell(control, QAccessible::Focus);
}

void SpeakAlert(QWidget& control) {
    Tell(control, QAccessible::Alert);
}
