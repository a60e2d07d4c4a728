#include "desk/Seat.h"

#include <QRect>
#include <QStringList>

#include <chrono>
#include <stdexcept>
#include <thread>
#include <vector>

// Last, for its macros bear everyday names.
#include <X11/extensions/XTest.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned kLeftButton = 1;

/// The longs of a window's property; none when it does not have it.
std::vector<long> Property(Display* display, Window window, const char* name) {
    constexpr long kMost = 64;
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    const Atom atom = XInternAtom(display, name, False);
    if (XGetWindowProperty(display, window, atom, 0, kMost, False, AnyPropertyType, &type, &format, &count,
                           &left, &data) != 0)
        return {};
    std::vector<long> values;
    if (format == 32) {
        const auto* longs = reinterpret_cast<const long*>(data);
        values.assign(longs, longs + count);
    }
    if (data)
        XFree(data);
    return values;
}

/// None for a window that is gone.
Window ParentOf(Display* display, Window window) {
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display, window, &root, &parent, &children, &count))
        return 0;
    if (children)
        XFree(children);
    return parent;
}

KeySym NamedKey(const QString& name) {
    // What is held is held on the left side.
    const bool isHeld = name == "Alt"_L1 || name == "Control"_L1 || name == "Shift"_L1;
    const KeySym key = XStringToKeysym((isHeld ? name + "_L"_L1 : name).toLatin1().constData());
    if (key == NoSymbol)
        throw std::runtime_error("no key is called " + name.toStdString());
    return key;
}

/// The keys of a single one, those that are held first.
std::vector<KeySym> KeySymsOf(const QString& key) {
    // The symbols of these characters bear their numbers.
    if (key.size() == 1)
        return {KeySym(key.front().unicode())};
    std::vector<KeySym> keys;
    for (const QString& name : key.mid(1).chopped(1).split(u'+'))
        keys.push_back(NamedKey(name));
    return keys;
}

} // namespace

QStringList SingleKeys(const QString& keys) {
    QStringList single;
    for (qsizetype i = 0; i < keys.size(); i += single.last().size()) {
        const qsizetype end = keys.at(i) == u'{' ? keys.indexOf(u'}', i) : i;
        if (end < 0)
            throw std::runtime_error("a brace is open in " + keys.toStdString());
        single << keys.mid(i, end - i + 1);
    }
    return single;
}

struct Seat::Connection {
    Display* display;
    /// A window that is never shown, for questions to the window manager.
    Window question = 0;

    Window Root() const { return XDefaultRootWindow(display); }

    /// The keys to be held for a symbol, and its own key last.
    std::vector<KeyCode> KeyCodesOf(KeySym symbol) const {
        const KeyCode code = XKeysymToKeycode(display, symbol);
        int width = 0;
        KeySym* levels = code ? XGetKeyboardMapping(display, code, 1, &width) : nullptr;
        if (!levels)
            throw std::runtime_error("the keyboard has no key for symbol " + std::to_string(symbol));
        const bool shifted = levels[0] != symbol && width > 1 && levels[1] == symbol;
        XFree(levels);
        if (shifted)
            return {XKeysymToKeycode(display, XK_Shift_L), code};
        return {code};
    }

    int Press(const QString& key) const {
        std::vector<KeyCode> codes;
        for (const KeySym symbol : KeySymsOf(key)) {
            for (const KeyCode code : KeyCodesOf(symbol))
                codes.push_back(code);
        }
        for (const KeyCode code : codes)
            XTestFakeKeyEvent(display, code, True, 0);
        for (auto code = codes.rbegin(); code != codes.rend(); ++code)
            XTestFakeKeyEvent(display, *code, False, 0);
        return int(codes.size());
    }
};

Seat::Seat(const QString& display)
    : mConnection(new Connection{XOpenDisplay(display.toLatin1().constData())}) {
    if (!mConnection->display)
        throw std::runtime_error("there is no display " + display.toStdString());
    // A window may go while it is asked for; the answer tells.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    int ignored = 0;
    if (!XTestQueryExtension(mConnection->display, &ignored, &ignored, &ignored, &ignored))
        throw std::runtime_error("the display takes no keys from tests");
    mConnection->question =
        XCreateSimpleWindow(mConnection->display, mConnection->Root(), 0, 0, 1, 1, 0, 0, 0);
}

Seat::~Seat() {
    XCloseDisplay(mConnection->display);
}

int Seat::Press(const QString& keys) {
    int count = 0;
    for (const QString& key : SingleKeys(keys))
        count += mConnection->Press(key);
    XSync(mConnection->display, False);
    return count;
}

void Seat::Hold(const QString& key) {
    XTestFakeKeyEvent(mConnection->display, mConnection->KeyCodesOf(KeySymsOf(key).back()).back(), True, 0);
    XSync(mConnection->display, False);
}

void Seat::Repeat(const QString& key) {
    // As long as a server waits at least.
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    const KeyCode code = mConnection->KeyCodesOf(KeySymsOf(key).back()).back();
    XTestFakeKeyEvent(mConnection->display, code, False, 0);
    XTestFakeKeyEvent(mConnection->display, code, True, 0);
    XSync(mConnection->display, False);
}

void Seat::Release(const QString& key) {
    XTestFakeKeyEvent(mConnection->display, mConnection->KeyCodesOf(KeySymsOf(key).back()).back(), False, 0);
    XSync(mConnection->display, False);
}

void Seat::PointAt(QPoint place) {
    XTestFakeMotionEvent(mConnection->display, -1, place.x(), place.y(), 0);
    XSync(mConnection->display, False);
}

void Seat::Click(QPoint place) {
    PointAt(place);
    XTestFakeButtonEvent(mConnection->display, kLeftButton, True, 0);
    XTestFakeButtonEvent(mConnection->display, kLeftButton, False, 0);
    XSync(mConnection->display, False);
}

void Seat::TakeFocusAway() {
    XSetInputFocus(mConnection->display, PointerRoot, RevertToPointerRoot, CurrentTime);
    XSync(mConnection->display, False);
}

QImage Seat::Picture() const {
    Display* display = mConnection->display;
    const int screen = XDefaultScreen(display);
    XImage* image = XGetImage(display, mConnection->Root(), 0, 0, unsigned(XDisplayWidth(display, screen)),
                              unsigned(XDisplayHeight(display, screen)), AllPlanes, ZPixmap);
    if (!image || image->bits_per_pixel != 32)
        throw std::runtime_error("the display has no picture in 32 bits a pixel");
    const QImage picture = QImage(reinterpret_cast<const uchar*>(image->data), image->width, image->height,
                                  image->bytes_per_line, QImage::Format_RGB32)
                               .copy();
    XDestroyImage(image);
    return picture;
}

QRect Seat::WorkArea() const {
    const std::vector<long> area = Property(mConnection->display, mConnection->Root(), "_NET_WORKAREA");
    if (area.size() >= 4)
        return QRect(int(area[0]), int(area[1]), int(area[2]), int(area[3]));
    Display* display = mConnection->display;
    const int screen = XDefaultScreen(display);
    return QRect(0, 0, XDisplayWidth(display, screen), XDisplayHeight(display, screen));
}

QRect Seat::FrameOf(quint64 window) const {
    Display* display = mConnection->display;
    Window frame = Window(window);
    for (Window parent = ParentOf(display, frame); parent && parent != mConnection->Root();
         parent = ParentOf(display, frame))
        frame = parent;
    Window root = 0;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    if (!XGetGeometry(display, frame, &root, &x, &y, &width, &height, &border, &depth))
        return {};
    return QRect(x, y, int(width + 2 * border), int(height + 2 * border));
}

bool Seat::WindowManagerAnswers() const {
    Display* display = mConnection->display;
    // How wide a frame would be is the one question that every window manager answers to a window not yet
    // shown.
    if (!Property(display, mConnection->question, "_NET_FRAME_EXTENTS").empty())
        return true;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = mConnection->question;
    event.xclient.message_type = XInternAtom(display, "_NET_REQUEST_FRAME_EXTENTS", False);
    event.xclient.format = 32;
    XSendEvent(display, mConnection->Root(), False, SubstructureRedirectMask | SubstructureNotifyMask,
               &event);
    XSync(display, False);
    return false;
}
