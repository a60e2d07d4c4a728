#pragma once

#include "support/AwaitWork.h"
#include "toolkit/Form.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>

/// Runs the steps on the screen that the code after this call shows modally, a report when its rows are
/// there. A screen that the steps leave open is unloaded, so that the test goes on whatever happened.
template <class Steps> void WhileModal(Steps steps) {
    QTimer::singleShot(0, qApp, [steps] {
        const QPointer<Form> screen = qobject_cast<Form*>(QApplication::activeModalWidget());
        if (!screen) {
            ADD_FAILURE() << "no screen is shown modally";
            return;
        }
        try {
            AwaitWork(*screen);
            steps(*screen);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        if (screen && screen->isVisible())
            screen->Unload();
    });
}
