#include "toolkit/Application.h"

#include "toolkit/Ears.h"
#include "toolkit/Failure.h"
#include "toolkit/Focus.h"
#include "toolkit/Look.h"
#include "toolkit/LostFocus.h"
#include "toolkit/TypeAhead.h"

#include <QEvent>
#include <QLoggingCategory>
#include <QTimer>

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
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        Failure::End(std::current_exception(), type == QEvent::Paint);
        return true;
    }
}
