#include "toolkit/Keys.h"

#include "text/UCase.h"
#include "toolkit/TypeAhead.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QObject>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace {

/// Whether Ctrl makes a command of a character, as Ctrl++ widens a column. With a letter it makes a character
/// of its own, and with Alt it is the key for a third character.
bool IsCommand(const QKeyEvent& event) {
    const auto held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    return held == Qt::ControlModifier && event.text().at(0) >= u' ';
}

/// The character code of a key, 0 for a key that gives no character.
int CharacterOf(const QKeyEvent& event) {
    if (IsClosingKey(event))
        return 0;
    switch (event.key()) {
    case Qt::Key_Delete:
        return 0;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::kEnter;
    case Qt::Key_Escape:
        return Key::kEscape;
    default:
        return event.text().isEmpty() || IsCommand(event) ? 0 : event.text().at(0).unicode();
    }
}

int KeyCodeOf(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
        return Key::kUp;
    case Qt::Key_Down:
        return Key::kDown;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::kEnter;
    default:
        return 0;
    }
}

/// Swallows the characters that a key repeats which is held down.
class RepeatFilter : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        return (key.isAutoRepeat() || IsMadeUpPress(key.timestamp())) && CharacterOf(key) != 0;
    }
};

/// The handlers of one control, and the place where its keys pass.
class KeyFilter : public QObject {
  public:
    static KeyFilter& Of(QWidget* control) {
        for (QObject* child : control->children()) {
            if (auto* filter = dynamic_cast<KeyFilter*>(child))
                return *filter;
        }
        return *new KeyFilter(control);
    }

    void Add(KeyPressHandler handler) { mPressHandlers.push_back(std::move(handler)); }
    void Add(KeyDownHandler handler) { mDownHandlers.push_back(std::move(handler)); }

    /// What the handlers leave of a text, each of whose characters passes them as a key of its own.
    QString Passed(const QString& text) const {
        QString passed;
        for (const QChar c : text) {
            if (KeptByDown(0))
                continue;
            if (const int key = Pressed(c.unicode()); key != 0)
                passed += QChar(key);
        }
        return passed;
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != mControl || mResending)
            return false;
        if (event->type() == QEvent::KeyPress)
            return KeyGoesDown(static_cast<QKeyEvent&>(*event));
        if (event->type() == QEvent::InputMethod)
            return TextComposed(static_cast<QInputMethodEvent&>(*event));
        return false;
    }

  private:
    explicit KeyFilter(QWidget* control)
        : QObject(control)
        , mControl(control) {
        control->installEventFilter(this);
    }

    bool KeyGoesDown(QKeyEvent& event) {
        // Tab belongs to the screen, which moves the focus; no control hears of it.
        if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab)
            return false;
        if (KeptByDown(KeyCodeOf(event)))
            return true;
        const int before = CharacterOf(event);
        const int after = before == 0 ? 0 : Pressed(before);
        if (after == before)
            return false;
        if (after != 0) {
            QKeyEvent changed(event.type(), event.key(), event.modifiers(), QString(QChar(after)),
                              event.isAutoRepeat());
            Resend(changed);
        }
        return true;
    }

    /// An accented letter may arrive composed, as a text to commit instead of a key.
    bool TextComposed(QInputMethodEvent& event) {
        const QString& before = event.commitString();
        const QString after = Passed(before);
        if (after == before)
            return false;
        QInputMethodEvent changed(event.preeditString(), event.attributes());
        changed.setCommitString(after, event.replacementStart(), event.replacementLength());
        Resend(changed);
        return true;
    }

    bool KeptByDown(int keyCode) const {
        return std::any_of(mDownHandlers.begin(), mDownHandlers.end(),
                           [keyCode](const KeyDownHandler& handler) { return handler(keyCode); });
    }

    int Pressed(int key) const {
        for (const KeyPressHandler& handler : mPressHandlers)
            handler(key);
        return key;
    }

    void Resend(QEvent& event) {
        mResending = true;
        QApplication::sendEvent(mControl, &event);
        mResending = false;
    }

    QWidget* mControl;
    std::vector<KeyPressHandler> mPressHandlers;
    std::vector<KeyDownHandler> mDownHandlers;
    bool mResending = false;
};

} // namespace

bool IsClosingKey(const QKeyEvent& event) {
    const QKeyCombination keys = event.keyCombination();
    return keys == (Qt::CTRL | Qt::Key_W) || keys == (Qt::CTRL | Qt::Key_F4);
}

void OnKeyPress(QWidget* control, KeyPressHandler handler) {
    KeyFilter::Of(control).Add(std::move(handler));
}

void OnKeyDown(QWidget* control, KeyDownHandler handler) {
    KeyFilter::Of(control).Add(std::move(handler));
}

QString PassedAsKeys(QWidget* control, const QString& text) {
    return KeyFilter::Of(control).Passed(text);
}

void UpperCaseKeys(QWidget* control) {
    OnKeyPress(control, [](int& key) { key = UCase(QChar(key)).unicode(); });
}

void IgnoreHeldKeys(QWidget& widget) {
    auto* filter = new RepeatFilter(&widget);
    widget.installEventFilter(filter);
    for (QAbstractButton* button : widget.findChildren<QAbstractButton*>())
        button->installEventFilter(filter);
}
