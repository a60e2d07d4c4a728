#include "shell/frmAbout.h"

#include "components/shared.h"
#include "shell/version.h"
#include "toolkit/Controls.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr int kOpaque = 255;
constexpr int kFadeStep = 3;
/// 85 steps of it take less than half a second.
constexpr std::chrono::milliseconds kFadeInterval(5);
constexpr int kIconSize = 64;

} // namespace

frmAbout::frmAbout() {
    Layout();
    Wire();
}

void frmAbout::Layout() {
    setObjectName(u"frmAbout"_s);
    setWindowTitle(u"About"_s);
    StandAlone();
    auto* icon = new QLabel(this);
    icon->setPixmap(QApplication::windowIcon().pixmap(kIconSize));
    auto* name = NewHeading(u"TARVEN "_s + gDeptDesc, this);
    auto* release = new QLabel(
        u"Version %1.%2.%3"_s.arg(Version::kMajor).arg(Version::kMinor).arg(Version::kRevision), this);
    auto* purpose = new QLabel(u"Charging workstation of an ancillary department"_s, this);
    cmdOK = NewButton(u"cmdOK"_s, u"&OK"_s, this);
    auto* texts = new QVBoxLayout;
    texts->addWidget(name);
    texts->addWidget(release);
    texts->addWidget(purpose);
    texts->addSpacing(Space::kWide);
    texts->addWidget(cmdOK, 0, Qt::AlignRight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Space::kWide, Space::kWide, Space::kWide, Space::kWide);
    layout->setSpacing(Space::kWide);
    layout->addWidget(icon, 0, Qt::AlignTop);
    layout->addLayout(texts, 1);
    tmrFade = new QTimer(this);
    tmrFade->setInterval(kFadeInterval);
}

void frmAbout::Wire() {
    connect(cmdOK, &QPushButton::clicked, this, &frmAbout::FadeOut);
    connect(tmrFade, &QTimer::timeout, this, &frmAbout::Timer_Tick);
}

void frmAbout::Form_Load() {
    SetOpacity(0);
    FadeIn();
}

void frmAbout::FadeIn() {
    mStep = kFadeStep;
    tmrFade->start();
}

void frmAbout::SetOpacity(int opacity) {
    mOpacity = qBound(0, opacity, kOpaque);
    setWindowOpacity(double(mOpacity) / kOpaque);
}

void frmAbout::Timer_Tick() {
    SetOpacity(mOpacity + mStep);
    if (mOpacity == kOpaque)
        tmrFade->stop();
    if (mOpacity == 0)
        Unload();
}

void frmAbout::FadeOut() {
    mStep = -kFadeStep;
    tmrFade->start();
}

void frmAbout::closeEvent(QCloseEvent* event) {
    event->ignore();
    FadeOut();
}
