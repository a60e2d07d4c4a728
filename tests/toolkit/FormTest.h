#pragma once

#include "support/FakeWorkspace.h"
#include "support/ScreenTest.h"
#include "toolkit/RecordedForm.h"
#include "toolkit/Screens.h"

#include <QCoreApplication>

#include <utility>

/// The ground of the tests of screens: a main window with its area, and the record of the screens' lives.
class FormTest : public ScreenTest {
  protected:
    FormTest() {
        formEvents.clear();
        Activate(workspace);
    }

    ~FormTest() override {
        Screens::Clear();
        DeleteUnloaded();
        FormA::Forget();
        FormB::Forget();
        FormC::Forget();
        FormD::Forget();
    }

    /// Deletes what waits for the running handler to end.
    static void DeleteUnloaded() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    /// The record so far, which then begins anew.
    static QStringList TakeEvents() { return std::exchange(formEvents, {}); }

    FakeWorkspace workspace;
};
