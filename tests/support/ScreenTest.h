#pragma once

#include "support/FakeComponents.h"
#include "support/FixedClock.h"
#include "support/PrintQt.h"
#include "support/ProgramDirectoryAt.h"
#include "support/ScriptedGateway.h"
#include "support/ScriptedMessages.h"
#include "toolkit/Failure.h"

#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>
#include <memory>

/// The ground of a test of one screen: a user signed on over a scripted gateway, fake components, scripted
/// message boxes, a fixed clock (Saturday, 2026-11-21 10:30:15), an own program directory, fresh shared
/// variables. A failure that no handler traps is kept in `failure` and not shown.
class ScreenTest : public testing::Test {
  protected:
    ScreenTest();
    ~ScreenTest() override;

    /// The number of the failure that reached the top, 0 for none; the failure is forgotten.
    int TakeFailure();

    QTemporaryDir programDirectory;
    ScriptedGateway gateway;
    ScriptedMessages messages;
    std::shared_ptr<FakeCurrentUser> user = std::make_shared<FakeCurrentUser>();
    std::shared_ptr<FakeListing> listing = std::make_shared<FakeListing>();
    std::shared_ptr<FakeStockItem> stockItem = std::make_shared<FakeStockItem>();
    std::shared_ptr<FakeStockList> stockList = std::make_shared<FakeStockList>();
    std::shared_ptr<FakeStockList> stockListBasic = std::make_shared<FakeStockList>();
    std::shared_ptr<FakePersonFinder> personFinder = std::make_shared<FakePersonFinder>();
    std::exception_ptr failure;

  private:
    const Seam<DateTime()>::Replacement mClock =
        FixedClock(*DateTime::FromFields({2026, 11, 21, 10, 30, 15, 0}));
    const Seam<QString()>::Replacement mDirectory = ProgramDirectoryAt(programDirectory.path());
    const Seam<void(const std::exception_ptr&, bool)>::Replacement mFailures =
        Failure::EndSeam().Replace([this](const std::exception_ptr& raised, bool) { failure = raised; });
};

/// The control of that name and kind inside a screen; fails the test when there is none.
template <class Control> Control& Find(const QWidget& screen, const char* name) {
    auto* control = screen.findChild<Control*>(QString::fromLatin1(name));
    if (!control)
        throw std::runtime_error(std::string("no control ") + name);
    return *control;
}

/// Types a text into a control as the clerk would; fails the test when the control is disabled or not shown.
void Type(QWidget& control, const QString& text);
/// Presses one key on a control, likewise.
void Press(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Clicks a control, likewise.
void Click(QWidget& control);
/// Clicks twice at a place in a control, with all that the mouse tells: pressed, released, pressed again,
/// released.
void DoubleClick(QWidget& control, QPoint place);
/// Lets the queued events run, sent Tab keys among them.
void RunEvents();

/// The tip that comes up where the mouse rests at a place of a control, hidden again; empty for none.
QString TipAt(QWidget& control, QPoint place);
/// Shows a screen and waits until its window is the active one.
void Activate(QWidget& window);
