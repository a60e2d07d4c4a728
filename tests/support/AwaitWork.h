#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QVariant>
#include <QWidget>

#include <algorithm>

/// Lets the events run until no control in the window works on something by itself any more, as a viewer does
/// that has its rows fetched.
inline void AwaitWork(const QWidget& window) {
    const auto works = [](const QWidget* control) { return control->property("IsWorking").toBool(); };
    const QList<QWidget*> controls = window.findChildren<QWidget*>();
    while (works(&window) || std::any_of(controls.begin(), controls.end(), works))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}
