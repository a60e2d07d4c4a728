#include "toolkit/SendKeys.h"

#include "toolkit/Focus.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

void PressTab() {
    QWidget* receiver = FocusOwner();
    if (!receiver)
        return;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
    QApplication::sendEvent(receiver, &press);
}

/// The tab that is still to come. It goes once the handler that sent it is through, and before any key that
/// the clerk pressed since: a second Enter that comes early belongs where the tab leads.
class DueTab : public QObject {
  public:
    DueTab()
        : QObject(qApp) {
        qApp->installEventFilter(this);
        QTimer::singleShot(0, this, &DueTab::Go);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        // Keys come to a window first; which control gets them is found out behind this.
        if (watched->isWindowType() && event->type() == QEvent::KeyPress)
            Go();
        return false;
    }

  private:
    void Go() {
        if (mGone)
            return;
        mGone = true;
        qApp->removeEventFilter(this);
        deleteLater();
        PressTab();
    }

    bool mGone = false;
};

} // namespace

void SendTab() {
    new DueTab;
}
