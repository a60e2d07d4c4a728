#include "reports/ViewerWindow.h"

#include "report/viewer/ReportViewer.h"

#include <QScreen>
#include <QShowEvent>

namespace {

/// The part of the screen that a report's own window takes.
constexpr double kPartOfScreen = 0.9;

} // namespace

ViewerWindow::ViewerWindow(const QString& name)
    : mViewer(new ReportViewer(this)) {
    mViewer->setObjectName(name);
    connect(mViewer, &ReportViewer::CloseRequested, this, [this] { Unload(); });
}

QSize ViewerWindow::sizeHint() const {
    return {900, 620};
}

void ViewerWindow::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    mViewer->setGeometry(rect());
}

void ViewerWindow::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    mViewer->setFocus();
    if (!isWindow() || event->spontaneous())
        return;
    // A page wants to be read; the size of a dialogue would show half of it.
    const QRect available = screen()->availableGeometry();
    QRect place(QPoint(), available.size() * kPartOfScreen);
    place.moveCenter(available.center());
    setGeometry(place);
}
