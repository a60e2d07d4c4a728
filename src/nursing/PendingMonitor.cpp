#include "nursing/PendingMonitor.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "nursing/commands.h"
#include "nursing/frmNursingRequest.h"
#include "nursing/TypedLine.h"
#include "patients/frmSearchPatient.h"
#include "toolkit/Colors.h"
#include "toolkit/Controls.h"
#include "toolkit/Ears.h"
#include "toolkit/Look.h"
#include "toolkit/Screens.h"

#include <QEvent>
#include <QFontDatabase>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds kCheckInterval(250);
constexpr std::chrono::milliseconds kFlashInterval(250);
constexpr std::chrono::milliseconds kTypeInterval(50);
constexpr std::chrono::milliseconds kFinderInterval(1000);
constexpr std::chrono::milliseconds kPrepaidInterval(60000);

constexpr QRgb kDarkPink = qRgb(0xFF, 0x80, 0xFF);
constexpr QRgb kLightPink = qRgb(0xFF, 0xC0, 0xFF);
constexpr QSize kPictureSize(24, 24);
constexpr int kFocusWidth = 2;

const QString kPendingText = QStringLiteral("There are pending requests.");

/// A timer that runs already goes on as it is; started again at each question it would never come to its end.
void SetEnabled(QTimer& timer, bool enabled) {
    if (enabled == timer.isActive())
        return;
    if (enabled)
        timer.start();
    else
        timer.stop();
}

QRgb BackColor(const QWidget& widget) {
    return widget.palette().color(QPalette::Window).rgb();
}

void SetBackColor(QWidget& widget, QRgb color) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, color);
    widget.setPalette(palette);
}

} // namespace

PendingMonitor::PendingMonitor(QWidget* parent)
    : QWidget(parent) {
    Layout();
}

void PendingMonitor::Layout() {
    setObjectName(u"PendingMonitor"_s);
    LayoutTimers();
    LayoutText();
    LayoutPending();
    // Kept: hidden, and its click does nothing.
    cmdPrepaid = NewButton(u"cmdPrepaid"_s, u"Prepaid Requests"_s, this);
    cmdPrepaid->hide();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, Space::kNormal, 0);
    layout->setSpacing(Space::kNormal);
    layout->addStretch(1);
    layout->addWidget(cmdPrepaid);
    layout->addWidget(Picture1);
    layout->addWidget(pctPending);
    // The screens below must not move when the strip appears.
    setFixedHeight(pctPending->sizeHint().height());
}

void PendingMonitor::LayoutTimers() {
    tmrCheckPending = NewTimer("tmrCheckPending", kCheckInterval);
    connect(tmrCheckPending, &QTimer::timeout, this, &PendingMonitor::tmrCheckPending_Timer);
    tmrPending = NewTimer("tmrPending", kFlashInterval);
    connect(tmrPending, &QTimer::timeout, this, &PendingMonitor::tmrPending_Timer);
    Timer2 = NewTimer("Timer2", kTypeInterval);
    connect(Timer2, &QTimer::timeout, this, &PendingMonitor::Timer2_Timer);
    // Kept: nothing starts it.
    Timer1 = NewTimer("Timer1", kFinderInterval);
    connect(Timer1, &QTimer::timeout, this, &PendingMonitor::Timer1_Timer);
    // Kept: it runs, and nothing hears it.
    tmrPrepaid = NewTimer("tmrPrepaid", kPrepaidInterval);
}

QTimer* PendingMonitor::NewTimer(const char* name, std::chrono::milliseconds interval) {
    auto* timer = new QTimer(this);
    timer->setObjectName(QString::fromLatin1(name));
    timer->setInterval(interval);
    return timer;
}

void PendingMonitor::LayoutText() {
    Picture1 = new QFrame(this);
    Picture1->setObjectName(u"Picture1"_s);
    // A screen reader tells of the strip when it appears, once; the letters that come are no news.
    SpeakAs(*Picture1, QAccessible::AlertMessage);
    Picture1->setAccessibleName(kPendingText);
    Label1 = new TypedLine(kPendingText, Picture1);
    Label1->setObjectName(u"Label1"_s);
    Label1->setAccessibleName(kPendingText);
    QFont font(u"Courier New"_s);
    font.setStyleHint(QFont::TypeWriter);
    Label1->setFont(font);
    // The letters stand where they are while the line grows.
    Label1->FitWhole();
    auto* layout = new QHBoxLayout(Picture1);
    layout->setContentsMargins(Space::kTight, 0, Space::kTight, 0);
    layout->addWidget(Label1);
    Picture1->hide();
}

void PendingMonitor::LayoutPending() {
    pctPending = new QFrame(this);
    pctPending->setObjectName(u"pctPending"_s);
    pctPending->setFrameShape(QFrame::StyledPanel);
    pctPending->setAutoFillBackground(true);
    // A bar's own role would fill it otherwise.
    pctPending->setBackgroundRole(QPalette::Window);
    SetBackColor(*pctPending, kDarkPink);
    // What is drawn on the pinks is dark on a dark desktop too.
    QPalette onPink = pctPending->palette();
    onPink.setColor(QPalette::WindowText, LightColors().text);
    pctPending->setPalette(onPink);
    Image1 = new QLabel(pctPending);
    Image1->setObjectName(u"Image1"_s);
    Image1->setPixmap(ProgramIcon(u"pending"_s).pixmap(kPictureSize));
    Image1->setAccessibleName(kPendingText);
    Image1->setToolTip(u"Double-click or F6 to open the wards' requests"_s);
    Image1->setFocusPolicy(Qt::TabFocus);
    Image1->setLineWidth(kFocusWidth);
    Image1->installEventFilter(this);
    connect(new QShortcut(QKeySequence(Qt::Key_F6), this), &QShortcut::activated, this,
            &PendingMonitor::OpenByKey);
    auto* layout = new QHBoxLayout(pctPending);
    layout->setContentsMargins(Space::kTight, 1, Space::kTight, 1);
    layout->addWidget(Image1);
    pctPending->hide();
}

void PendingMonitor::Start() {
    tmrCheckPending->start();
    tmrPrepaid->start();
}

void PendingMonitor::Stop() {
    for (QTimer* timer : {tmrCheckPending, tmrPending, Timer2, Timer1, tmrPrepaid})
        timer->stop();
}

void PendingMonitor::tmrCheckPending_Timer() {
    if (!gCurrentUser->Connected())
        return;
    RowSet requests = gCurrentUser->SQLConnection()->Execute(CheckPendingCommand());
    const bool isPending = requests.Fields(u"TotalPending").ToDouble() > 0;
    SetEnabled(*tmrPending, isPending);
    SetEnabled(*Timer2, isPending);
    // Hidden while it has the focus, it would throw the focus along the tab chain.
    if (!isPending && Image1->hasFocus())
        Image1->clearFocus();
    const bool isNews = isPending && Picture1->isHidden();
    Picture1->setVisible(isPending);
    pctPending->setVisible(isPending);
    requests.Close();
    if (isNews)
        SpeakAlert(*Picture1);
}

void PendingMonitor::tmrPending_Timer() {
    const QRgb color = BackColor(*pctPending);
    if (color == kDarkPink)
        SetBackColor(*pctPending, kLightPink);
    else if (color == kLightPink)
        SetBackColor(*pctPending, kDarkPink);
}

void PendingMonitor::Timer2_Timer() {
    if (mTyped <= kPendingText.size()) {
        Label1->Type(mTyped);
        ++mTyped;
    } else {
        mTyped = 1;
    }
}

void PendingMonitor::Timer1_Timer() {
    Timer1->stop();
    Screens::Get<frmSearchPatient>().Show();
}

void PendingMonitor::Image1_DblClick() {
    Screens::Get<frmNursingRequest>().ShowModal();
}

void PendingMonitor::OpenByKey() {
    if (pctPending->isVisible())
        Image1_DblClick();
}

bool PendingMonitor::eventFilter(QObject* watched, QEvent* event) {
    if (watched != Image1)
        return false;
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        Image1->setFrameShape(event->type() == QEvent::FocusIn ? QFrame::Box : QFrame::NoFrame);
        return false;
    case QEvent::KeyPress:
        return PictureKey(*static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonDblClick:
        Image1_DblClick();
        return true;
    default:
        return false;
    }
}

bool PendingMonitor::PictureKey(const QKeyEvent& event) {
    const int key = event.key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space)
        return false;
    Image1_DblClick();
    return true;
}
