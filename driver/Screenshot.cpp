#include "driver/Screenshot.h"

#include "driver/Driver.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTitleHeight = 22;
constexpr QColor kFrame(0x1f, 0x5f, 0x8b);

void DrawFrame(QPainter& painter, const QRect& window, const QString& title) {
    const QRect bar(window.left(), window.top() - kTitleHeight, window.width(), kTitleHeight);
    painter.fillRect(bar, kFrame);
    painter.setPen(Qt::white);
    painter.drawText(bar, Qt::AlignCenter, title);
    painter.setPen(kFrame);
    painter.drawRect(window.adjusted(-1, 0, 0, 0));
}

bool IsMain(const QWidget* window) {
    return window->inherits("QMainWindow");
}

} // namespace

QImage TakeScreenshot() {
    QWidgetList windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->isWindow())
            windows << window;
    }
    // The main window lies at the bottom, the window that takes the keys on top.
    std::stable_sort(windows.begin(), windows.end(), [](const QWidget* a, const QWidget* b) {
        const auto height = [](const QWidget* w) {
            return IsMain(w) ? 0 : w == QApplication::activeWindow() ? 2 : 1;
        };
        return height(a) < height(b);
    });
    QRect whole;
    for (const QWidget* window : windows)
        whole |= window->geometry().adjusted(-1, -kTitleHeight, 1, 1);
    QImage image((QSizeF(whole.size()) * qApp->devicePixelRatio()).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(qApp->devicePixelRatio());
    image.fill(QColor(0x5c, 0x66, 0x70));
    QPainter painter(&image);
    painter.setFont(QApplication::font());
    painter.translate(-whole.topLeft());
    for (QWidget* window : windows) {
        painter.drawPixmap(window->geometry().topLeft(), window->grab());
        DrawFrame(painter, window->geometry(), window->windowTitle());
    }
    return image;
}

void SaveScreenshot(Driver& driver, const QString& file) {
    driver.OnScreen([&file] {
        if (!TakeScreenshot().save(file))
            throw DriverError(u"cannot write "_s + file);
        std::printf("  %s\n", qPrintable(file));
    });
}
