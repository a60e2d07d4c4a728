#include "desk/Probe.h"

#include "desk/ByClass.h"
#include "desk/TextRoom.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScrollArea>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <unistd.h>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {

/// Sent keys, paintings and other work that a handler puts off wait for the event loop at most this often.
constexpr int kIdleRounds = 4;
constexpr QByteArrayView kOpen = "open ";
constexpr int kKeyRelease = XCB_KEY_RELEASE;
constexpr int kEventMask = 0x7f;

/// Counts the keys that are let go before the program. It is installed before all others, so it is asked last
/// and hears of a key when those that may hold it back have let it through.
class KeyCounter : public QAbstractNativeEventFilter {
  public:
    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        if ((event->response_type & kEventMask) == kKeyRelease)
            ++mCount;
        return false;
    }

    int Count() const { return mCount; }

  private:
    int mCount = 0;
};

KeyCounter& KeysTaken() {
    static KeyCounter counter;
    return counter;
}

void CountKeys() {
    qApp->installNativeEventFilter(&KeysTaken());
}
Q_COREAPP_STARTUP_FUNCTION(CountKeys)

void AfterRounds(int rounds, const std::function<void()>& then) {
    if (rounds == 0)
        return then();
    QTimer::singleShot(0, qApp, [rounds, then] { AfterRounds(rounds - 1, then); });
}

/// Comes back when the server has taken all that was painted.
void WaitForServer() {
    auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return;
    xcb_connection_t* connection = x11->connection();
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

/// In pixels of the screen, which are smaller than the program's own on a screen of many dots.
QJsonArray Pixels(const QRect& place) {
    const double ratio = qApp->devicePixelRatio();
    return {qRound(place.x() * ratio), qRound(place.y() * ratio), qRound(place.width() * ratio),
            qRound(place.height() * ratio)};
}

QRect OnScreen(const QWidget& widget, const QRect& place) {
    return {widget.mapToGlobal(place.topLeft()), place.size()};
}

/// The kind of a control as the toolkit calls it.
QString KindOf(const QWidget& control) {
    const QMetaObject* kind = control.metaObject();
    while (kind->className()[0] != 'Q')
        kind = kind->superClass();
    return QString::fromLatin1(kind->className());
}

/// The window or the screen inside the main window to which a control belongs.
const QWidget& ScreenOf(const QWidget& control) {
    const QWidget* screen = &control;
    while (!screen->isWindow() && !qobject_cast<const QMdiSubWindow*>(screen->parentWidget()))
        screen = screen->parentWidget();
    return *screen;
}

/// What the frames around a control leave to it, up to its window. What lies in an area that scrolls may
/// reach beyond it.
QRect BoundsOf(const QWidget& control) {
    QRect bounds = OnScreen(ScreenOf(control), ScreenOf(control).rect());
    for (const QWidget* frame = &control; frame != &ScreenOf(control);) {
        frame = frame->parentWidget();
        const auto* area = qobject_cast<const QScrollArea*>(frame->parentWidget());
        if (area && area->viewport() == frame)
            break;
        bounds &= OnScreen(*frame, frame->rect());
    }
    return bounds;
}

/// How wide a title is in a window manager's frame; their themes have the desktop's usual face for it, in
/// bold.
int TitleNeeds(const QWidget& window) {
    const QFont face(u"Sans"_s, QApplication::font().pointSize(), QFont::Bold);
    return QFontMetrics(face).horizontalAdvance(window.windowTitle());
}

/// A window of the toolkit's own, such as its print dialogue, is called by its kind.
QString NameOf(const QWidget& window) {
    return window.objectName().isEmpty() ? KindOf(window) : window.objectName();
}

QJsonObject WindowShown(const QWidget& window) {
    return {{u"name"_s, NameOf(window)},
            {u"title"_s, window.windowTitle()},
            {u"titleNeeds"_s, TitleNeeds(window)},
            {u"place"_s, Pixels(window.geometry())},
            {u"id"_s, double(window.effectiveWinId())},
            {u"isActive"_s, window.isActiveWindow()}};
}

QJsonArray WindowsShown() {
    QJsonArray windows;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowType() != Qt::Popup && window->windowType() != Qt::ToolTip)
            windows << WindowShown(*window);
    }
    return windows;
}

QJsonObject ScreenShown(const QMdiSubWindow& frame) {
    const QWidget& viewport = *frame.mdiArea()->viewport();
    const QWidget& screen = *frame.widget();
    return {
        {u"name"_s, screen.objectName()},
        {u"title"_s, frame.windowTitle()},
        {u"place"_s, Pixels(OnScreen(screen, screen.rect()))},
        {u"frame"_s, Pixels(OnScreen(frame, frame.rect()))},
        {u"area"_s, Pixels(OnScreen(viewport, viewport.rect()))},
        {u"isActive"_s, frame.mdiArea()->activeSubWindow() == &frame && !QApplication::activeModalWidget()}};
}

QJsonArray ScreensShown() {
    QJsonArray screens;
    for (const QWidget* widget : QApplication::allWidgets()) {
        const auto* frame = qobject_cast<const QMdiSubWindow*>(widget);
        if (frame && frame->isVisible() && frame->widget())
            screens << ScreenShown(*frame);
    }
    return screens;
}

bool IsAnythingWorking() {
    const QWidgetList controls = QApplication::allWidgets();
    return std::any_of(controls.begin(), controls.end(), [](const QWidget* control) {
        return control->isVisible() && control->property("IsWorking").toBool();
    });
}

QJsonObject FocusShown() {
    const QWidget* focus = QApplication::focusWidget();
    if (!focus || !focus->isVisible())
        return {};
    QJsonObject shown = {{u"focus"_s, focus->objectName()},
                         {u"focusKind"_s, KindOf(*focus)},
                         {u"focusPlace"_s, Pixels(OnScreen(*focus, focus->rect()))}};
    const auto* box = qobject_cast<const QLineEdit*>(focus);
    if (box && !box->isReadOnly())
        shown[u"caret"_s] = Pixels(OnScreen(*box, box->inputMethodQuery(Qt::ImCursorRectangle).toRect()));
    return shown;
}

QJsonObject StateNow() {
    QJsonObject state = FocusShown();
    state[u"keysTaken"_s] = KeysTaken().Count();
    state[u"isWorking"_s] = IsAnythingWorking();
    state[u"windows"_s] = WindowsShown();
    state[u"screens"_s] = ScreensShown();
    if (const auto* menu = qobject_cast<const QMenu*>(QApplication::activePopupWidget())) {
        state[u"isMenuOpen"_s] = true;
        state[u"menuItem"_s] = menu->activeAction() ? menu->activeAction()->text().remove(u'&') : QString();
    }
    return state;
}

QJsonArray SizeShown(const QSize& size) {
    return {size.width(), size.height()};
}

QJsonObject ControlShown(const QWidget& control) {
    QJsonArray texts;
    for (const TextRoom& text : TextsOf(control))
        texts << QJsonObject{
            {u"text"_s, text.text}, {u"needs"_s, SizeShown(text.needs)}, {u"room"_s, SizeShown(text.room)}};
    return {{u"name"_s, control.objectName()},
            {u"kind"_s, KindOf(control)},
            {u"window"_s, NameOf(ScreenOf(control))},
            {u"place"_s, Pixels(OnScreen(control, control.rect()))},
            {u"bounds"_s, Pixels(BoundsOf(control))},
            {u"isEnabled"_s, control.isEnabled()},
            {u"text"_s, control.property("text").toString()},
            {u"texts"_s, texts}};
}

QJsonObject ControlsNow() {
    QJsonArray controls;
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (widget->isVisible())
            controls << ControlShown(*widget);
    }
    return {{u"controls"_s, controls}};
}

} // namespace

Probe::Probe()
    : mNotifier(STDIN_FILENO, QSocketNotifier::Read) {
    connect(&mNotifier, &QSocketNotifier::activated, this, &Probe::TakeInput);
}

void Probe::TakeInput() {
    std::array<char, 256> bytes{};
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0) {
        mNotifier.setEnabled(false);
        return;
    }
    mInput.append(bytes.data(), count);
    for (qsizetype end = mInput.indexOf('\n'); end >= 0; end = mInput.indexOf('\n')) {
        const QByteArray question = mInput.left(end);
        mInput.remove(0, end + 1);
        AfterRounds(kIdleRounds, [this, question] { Answer(question); });
    }
}

void Probe::Answer(const QByteArray& question) const {
    WaitForServer();
    const QJsonObject answer = question == "controls" ? ControlsNow() : StateNow();
    // Behind the answer, for a modal screen comes back when it is left.
    if (question.startsWith(kOpen))
        QTimer::singleShot(0, qApp,
                           [name = QString::fromLatin1(question.mid(kOpen.size()))] { OpenByClass(name); });
    std::printf("%s\n", QJsonDocument(answer).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}
