#include "manual/Help.h"

#include "manual/HelpWindow.h"
#include "manual/Manual.h"
#include "toolkit/Aside.h"
#include "toolkit/Form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>

using namespace Qt::StringLiterals;

namespace {

const ManualPage* PageAround(const QWidget* control) {
    for (const QWidget* around = control; around; around = around->parentWidget()) {
        const ManualPage* page = PageOfScreen(around->objectName());
        if (page && !qobject_cast<const QMainWindow*>(around))
            return page;
    }
    return nullptr;
}

/// Hears F1 wherever the keys go. No control of the program has a use for it.
class HelpKey : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
            return false;
        const auto* key = static_cast<const QKeyEvent*>(event);
        if (key->keyCombination() != QKeyCombination(Qt::Key_F1) || QApplication::activePopupWidget())
            return false;
        if (!key->isAutoRepeat())
            HelpWindow::Open(PageInHand(static_cast<const QWidget*>(watched)));
        return true;
    }
};

} // namespace

void OfferHelp() {
    qApp->installEventFilter(new HelpKey(qApp));
}

QString PageInHand(const QWidget* control) {
    if (StandsAside(control))
        return QString::fromLatin1(kContentsPage);
    const ManualPage* page = PageAround(control);
    const Form* last = Form::Active();
    if (!page && last && last->isVisible())
        page = PageOfScreen(last->objectName());
    if (!page)
        page = PageOfScreen(u"frmMain"_s);
    return page ? page->name : QString::fromLatin1(kContentsPage);
}
