#include "support/ScreenTest.h"

#include "components/shared.h"
#include "patients/PatientContext.h"
#include "support/FreshVariables.h"
#include "toolkit/Focus.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Screens.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

ScreenTest::ScreenTest() {
    ResetShared();
    ResetPatientContext();
    user->connection = &gateway;
    gCurrentUser = user;
    gConnection = &gateway;
    gListing = listing;
    gStockItem = stockItem;
    gStockList = stockList;
    gStockListBasic = stockListBasic;
    gPersonFinder = personFinder;
}

ScreenTest::~ScreenTest() {
    if (failure)
        ADD_FAILURE() << Failure::TextOf(failure).toStdString();
    Screens::Clear();
    SetMousePointer(MousePointer::Default);
    ResetShared();
    ResetPatientContext();
}

int ScreenTest::TakeFailure() {
    if (!failure)
        return 0;
    try {
        std::rethrow_exception(std::exchange(failure, nullptr));
    } catch (const RunTimeError& error) {
        return error.Number();
    }
}

namespace {

void CheckUsable(const QWidget& control) {
    EXPECT_TRUE(control.isEnabled()) << control.objectName().toStdString() << " is disabled";
    EXPECT_TRUE(control.isVisible()) << control.objectName().toStdString() << " is not shown";
    const QWidget* modal = QApplication::activeModalWidget();
    EXPECT_TRUE(!modal || modal == control.window())
        << control.objectName().toStdString() << " is behind a modal window";
}

} // namespace

void Type(QWidget& control, const QString& text) {
    CheckUsable(control);
    // Letter by letter through the event dispatch, as QTest does, but with letters that it does not know.
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(&control, &press);
    }
}

void Press(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    CheckUsable(control);
    QTest::keyClick(&control, key, modifiers);
}

void Click(QWidget& control) {
    CheckUsable(control);
    QTest::mouseClick(&control, Qt::LeftButton);
}

void DoubleClick(QWidget& control, QPoint place) {
    CheckUsable(control);
    QTest::mouseClick(&control, Qt::LeftButton, {}, place);
    QTest::mouseDClick(&control, Qt::LeftButton, {}, place);
    QTest::mouseRelease(&control, Qt::LeftButton, {}, place);
}

void RunEvents() {
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

QString TipAt(QWidget& control, QPoint place) {
    QHelpEvent help(QEvent::ToolTip, place, control.mapToGlobal(place));
    QApplication::sendEvent(&control, &help);
    const QString tip = QToolTip::isVisible() ? QToolTip::text() : QString();
    // A tip that is hidden goes a moment later.
    QToolTip::hideText();
    if (!QTest::qWaitFor([] { return !QToolTip::isVisible(); }))
        ADD_FAILURE() << "the tip stays";
    return tip;
}

void Activate(QWidget& window) {
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        ADD_FAILURE() << window.objectName().toStdString() << " did not become active";
}
