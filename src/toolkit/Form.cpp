#include "toolkit/Form.h"

#include "toolkit/Keys.h"
#include "toolkit/ModalStack.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Screens.h"
#include "toolkit/Twips.h"
#include "toolkit/Workspace.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

QPointer<Form> activeForm;

/// The screens inside the main window, in the order in which the clerk came to them last. The area itself
/// knows only the order in which they were made, and would bring a screen to the front that he has not been
/// to for hours.
std::vector<QPointer<Form>>& Visited() {
    static std::vector<QPointer<Form>> screens;
    return screens;
}

void ForgetVisit(const Form* screen) {
    std::erase_if(Visited(),
                  [screen](const QPointer<Form>& visited) { return !visited || visited == screen; });
}

/// The screen inside the main window to which the clerk came last; null for none.
Form* LastVisited() {
    return Visited().empty() ? nullptr : Visited().back().data();
}

bool IsLeaving(const QKeyEvent& event) {
    return event.keyCombination() == QKeyCombination(Qt::Key_Escape) || IsClosingKey(event);
}

constexpr Qt::WindowFlags kInsideFlags = Qt::SubWindow | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                         Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
constexpr Qt::WindowFlags kModalFlags = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

/// The window over which a screen opens. Where the one before it has just closed, none is active yet.
const QWidget* WindowBelow() {
    if (const QWidget* active = QApplication::activeWindow())
        return active;
    if (const QWidget* top = ModalStack::Top())
        return top;
    return Workspace::Current() ? Workspace::Current()->Area()->window() : nullptr;
}

/// The window system would write the program's name into a bar that is left empty.
void KeepBarEmpty(const QWidget& form) {
    if (form.windowTitle().isEmpty())
        form.windowHandle()->setTitle(u" "_s);
}

bool IsMaximizing(const QKeyEvent& event) {
    return event.keyCombination() == QKeyCombination(Qt::ControlModifier, Qt::Key_F10) &&
           !event.isAutoRepeat();
}

/// The room that an area has for a screen. One that is not shown yet has no size to go by.
QSize RoomIn(const QMdiArea& area) {
    return area.isVisible() ? area.viewport()->size() : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

/// The room that the display has for a window inside a frame, which will be that of the main window.
QSize RoomOnScreen(const QWidget& form) {
    Workspace* workspace = Workspace::Current();
    const QWindow* framed = workspace ? workspace->Area()->window()->windowHandle() : nullptr;
    return form.screen()->availableSize().shrunkBy(framed ? framed->frameMargins() : QMargins());
}

void CenterOver(QWidget& form, const QWidget* owner) {
    if (!owner)
        return;
    const QRect frame = owner->frameGeometry();
    form.move(frame.center() - QPoint(form.width() / 2, form.height() / 2));
}

} // namespace

Form::Form(QWidget* parent)
    : QWidget(parent) {
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &Form::WindowCameToFront);
}

Form::~Form() {
    // The main window takes its screens along when it is destroyed.
    Screens::Forget(this);
    ForgetVisit(this);
}

Form* Form::Active() {
    return activeForm;
}

void Form::Load() {
    if (mLoaded)
        return;
    mLoaded = true;
    Form_Load();
}

void Form::Show() {
    Load();
    Workspace* workspace = Workspace::Current();
    if (workspace && !mSubWindow && !IsModal() && !mStandAlone)
        PutInside(*workspace->Area());
    const bool aWindowOfItsOwn = mStandAlone || !workspace;
    if (aWindowOfItsOwn && !isVisible() && !IsModal())
        TakeStartSize(RoomOnScreen(*this));
    if (mStandAlone && !isVisible())
        CenterOver(*this, WindowBelow());
    show();
    if (mSubWindow) {
        mSubWindow->show();
        workspace->Area()->setActiveSubWindow(mSubWindow);
    } else {
        raise();
        activateWindow();
    }
    ModalStack::Shown(*this);
    Activate();
}

/// The size with which a screen begins: as it is told, or as much of it as there is room for. The toolkit by
/// itself would give a window two thirds of the machine's screen at most.
void Form::TakeStartSize(const QSize& room) {
    if (!layout())
        return;
    QSize size = sizeHint();
    // A text that wraps asks for its height when the width is known.
    if (layout()->hasHeightForWidth())
        size.setHeight(layout()->totalHeightForWidth(size.width()));
    resize(size.boundedTo(room));
}

void Form::PutInside(QMdiArea& area) {
    TakeStartSize(RoomIn(area));
    mSubWindow =
        area.addSubWindow(this, mMayMaximize ? kInsideFlags | Qt::WindowMaximizeButtonHint : kInsideFlags);
    mSubWindow->setAttribute(Qt::WA_DeleteOnClose, false);
    // The frame's own keys would close the screen without asking.
    for (QAction* action : mSubWindow->systemMenu()->actions())
        action->setShortcuts({});
    connect(&area, &QMdiArea::subWindowActivated, this, [this](const QMdiSubWindow* sub) {
        // Under a modal screen another one may come to the front, but nobody has gone to it yet.
        if (sub && sub == mSubWindow && !ModalStack::Covers(window()))
            Activate();
    });
    PlaceInside(area);
}

/// A screen begins at its place, or in the middle where none is told; what its lists can spare of their size
/// it leaves where the area has no room for it from there on. What cannot shrink keeps its size: the area
/// scrolls.
void Form::PlaceInside(const QMdiArea& area) {
    const QSize before = mPlaced ? QSize(mPlace.x(), mPlace.y()) : QSize(0, 0);
    // The frame has its size only where the area is shown; elsewhere it takes it when both are.
    if (area.isVisible()) {
        const QSize room = (area.viewport()->size() - before).expandedTo(mSubWindow->minimumSizeHint());
        mSubWindow->resize(mSubWindow->size().boundedTo(room));
    }
    const QSize rest = (area.viewport()->size() - mSubWindow->size()).expandedTo({0, 0});
    mSubWindow->move(mPlaced ? mPlace : QPoint(rest.width() / 2, rest.height() / 2));
}

void Form::ToggleMaximized() {
    if (!mSubWindow || !mMayMaximize)
        return;
    if (mSubWindow->isMaximized())
        mSubWindow->showNormal();
    else
        mSubWindow->showMaximized();
}

/// The screen to which the clerk comes back when a modal one has closed; null where another modal one is
/// still in front of those inside the main window.
Form* Form::BackFrom(Form* before) {
    if (before && !before->mUnloading)
        return before;
    return ModalStack::Top() ? nullptr : LastVisited();
}

bool Form::IsModal() const {
    return ModalStack::FrameOf(*this) != nullptr;
}

void Form::OpenOver(const QWidget* owner) {
    setWindowFlags(kModalFlags);
    setWindowModality(Qt::ApplicationModal);
    TakeStartSize(RoomOnScreen(*this));
    winId();
    KeepBarEmpty(*this);
    if (owner)
        windowHandle()->setTransientParent(owner->window()->windowHandle());
    CenterOver(*this, owner);
    show();
    activateWindow();
}

void Form::ShowModal() {
    Load();
    {
        ModalStack::ScreenFrame frame(*this);
        OpenOver(WindowBelow());
        Activate();
        if (!mUnloading)
            frame.Run();
        if (ModalStack::ShownInPlace())
            frame.KeepWindowOnly();
        else if (Form* back = BackFrom(frame.Before()))
            back->Activate();
    }
    deleteLater();
}

bool Form::Unload() {
    if (mUnloading)
        return true;
    if (!Form_QueryUnload())
        return false;
    mUnloading = true;
    Form_Unload();
    Leave();
    return true;
}

/// The screen from which the clerk came is brought to the front first: where the area loses its front screen,
/// it chooses one by itself.
void Form::LeaveArea(QMdiArea& area) {
    const Form* next = LastVisited();
    if (next && area.currentSubWindow() == mSubWindow)
        area.setActiveSubWindow(next->mSubWindow);
    // One that has the whole area has its buttons in the menu bar and its title in the main window's.
    if (mSubWindow->isMaximized())
        mSubWindow->showNormal();
    mSubWindow->hide();
    mSubWindow->setWidget(nullptr);
    setParent(nullptr);
    area.removeSubWindow(mSubWindow);
    mSubWindow->deleteLater();
}

void Form::Leave() {
    Screens::Forget(this);
    ForgetVisit(this);
    if (activeForm == this)
        activeForm = nullptr;
    if (ModalStack::ScreenFrame* frame = ModalStack::FrameOf(*this)) {
        hide();
        // ShowModal deletes the screen when its frame has ended.
        frame->Close();
        return;
    }
    if (mSubWindow)
        LeaveArea(*mSubWindow->mdiArea());
    else
        hide();
    deleteLater();
}

void Form::MoveTo(int leftTwips, int topTwips) {
    mPlace = QPoint(TwipsToPixels(leftTwips), TwipsToPixels(topTwips));
    mPlaced = true;
    if (mSubWindow)
        mSubWindow->move(mPlace);
}

void Form::Activate() {
    if (activeForm == this || mUnloading)
        return;
    activeForm = this;
    if (mSubWindow) {
        ForgetVisit(this);
        Visited().push_back(this);
    }
    Form_Activate();
}

void Form::WindowCameToFront(const QWindow* front) {
    // The area tells of its own screens; a window that stands beside it is left without its telling.
    const bool isMine = front && front == window()->windowHandle() && !ModalStack::Covers(window());
    if (isMine && isVisible() && (!mSubWindow || mSubWindow->mdiArea()->currentSubWindow() == mSubWindow))
        Activate();
}

void Form::closeEvent(QCloseEvent* event) {
    // Unload hides and forgets the screen; the window system has nothing left to close.
    event->ignore();
    Unload();
}

void Form::LeaveByKey() {
    if (mCloseButton)
        mCloseButton->click();
    else if (!HoldsWork() || MsgBox({.text = u"What was keyed here is not saved yet. Leave it unsaved?"_s,
                                     .icon = MsgIcon::Question,
                                     .buttons = MsgButtons::YesNo,
                                     .defaultAnswer = MsgAnswer::No}) == MsgAnswer::Yes)
        Unload();
}

void Form::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    // A key that is held down has left one screen; it does not go on through those below.
    if (IsLeaving(*event) && !event->isAutoRepeat())
        LeaveByKey();
    else if (enter && button && button->hasFocus())
        button->click();
    else if (IsMaximizing(*event))
        ToggleMaximized();
    else
        QWidget::keyPressEvent(event);
}
