#include "toolkit/Application.h"

#include "toolkit/Ears.h"
#include "toolkit/Failure.h"
#include "toolkit/Focus.h"
#include "toolkit/Look.h"
#include "toolkit/LostFocus.h"
#include "toolkit/TypeAhead.h"

#include <QKeyEvent>
#include <QLoggingCategory>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

namespace {

/// Whether a control is about to get the character of a key that Alt was held with. Such a key asks for the
/// button or the menu that is marked with it; where none is, nothing is typed. With Ctrl too it is the key
/// for a third character, and a menu looks for its entry by the character.
bool IsMarkFor(const QObject& receiver, const QKeyEvent& event) {
    const auto held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    return held == Qt::AltModifier && !event.text().isEmpty() && event.text().at(0) >= u' ' &&
           receiver.isWidgetType() && !qobject_cast<const QMenu*>(&receiver) &&
           !qobject_cast<const QMenuBar*>(&receiver);
}

} // namespace

Application::Application(int& argc, char** argv)
    : QApplication(argc, argv) {
    // The process ends when the main window unloads, not when a dialogue happens to be the last window.
    setQuitOnLastWindowClosed(false);
    setOrganizationName(QStringLiteral("TARVEN"));
    setApplicationName(QStringLiteral("Hemodialysis"));
    ApplyLook(*this);
    OpenEars();
    FollowFocus();
    CatchLostFocus();
    KeepTypedAhead();
}

void Application::WorkWithoutDisplay() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The toolkit misses a session's folder where there is no session: a line by mail each night.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
}

bool Application::notify(QObject* receiver, QEvent* event) {
    const QEvent::Type type = event->type();
    // While the failure's box is open the program's own timers rest; the box needs none of them.
    if (Failure::IsEnding() && type == QEvent::Timer && qobject_cast<QTimer*>(receiver))
        return true;
    if (type == QEvent::KeyPress && IsMarkFor(*receiver, *static_cast<QKeyEvent*>(event)))
        return NotifyWithoutCharacter(receiver, *static_cast<QKeyEvent*>(event));
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        Failure::End(std::current_exception(), type == QEvent::Paint);
        return true;
    }
}

bool Application::NotifyWithoutCharacter(QObject* receiver, QKeyEvent& event) {
    QKeyEvent key(event.type(), event.key(), event.modifiers(), event.nativeScanCode(),
                  event.nativeVirtualKey(), event.nativeModifiers(), {}, event.isAutoRepeat(),
                  ushort(event.count()), event.device());
    key.setTimestamp(event.timestamp());
    const bool isHandled = notify(receiver, &key);
    event.setAccepted(key.isAccepted());
    return isHandled;
}
