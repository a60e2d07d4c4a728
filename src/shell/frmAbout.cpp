#include "shell/frmAbout.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "shell/version.h"
#include "toolkit/Colors.h"
#include "toolkit/Controls.h"
#include "toolkit/Look.h"
#include "toolkit/ProgramFiles.h"
#include "toolkit/Twips.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPalette>
#include <QPlainTextEdit>
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
/// In twips: the longest fact but the folder's, and all lines.
constexpr QSize kFactsSize(6000, 1900);

QString ReleaseNumber() {
    return u"%1.%2.%3"_s.arg(Version::kMajor).arg(Version::kMinor).arg(Version::kRevision);
}

QString UserInHand() {
    return gCurrentUser.IsSet() && gCurrentUser->Connected()
               ? u"%1, %2"_s.arg(gCurrentUser->UserId(), gCurrentUser->EmployeeName())
               : u"nobody"_s;
}

/// What support asks for, a line each.
QString Facts() {
    const bool isConnected = gCurrentUser.IsSet() && gCurrentUser->Connected();
    return QStringList{u"Version: "_s + ReleaseNumber(),
                       u"Licence: MIT License"_s,
                       u"Data source: "_s + (isConnected ? gCurrentUser->ServerName() : u"none"_s),
                       u"Server: "_s +
                           (isConnected ? gCurrentUser->SQLConnection()->ServerVersion() : u"none"_s),
                       u"User: "_s + UserInHand(),
                       u"Department: %1, %2"_s.arg(gDeptCode, gDeptDesc),
                       u"Program folder: "_s + QDir::toNativeSeparators(ProgramDirectory())}
        .join(u'\n');
}

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
    auto* release = new QLabel(u"Version "_s + ReleaseNumber(), this);
    auto* purpose = new QLabel(u"Charging workstation of an ancillary department"_s, this);
    txtFacts = new QPlainTextEdit(Facts(), this);
    txtFacts->setObjectName(u"txtFacts"_s);
    txtFacts->setAccessibleName(u"For support"_s);
    txtFacts->setReadOnly(true);
    QPalette ground = txtFacts->palette();
    ground.setColor(QPalette::Base, TheColors().shown);
    txtFacts->setPalette(ground);
    txtFacts->setTabChangesFocus(true);
    txtFacts->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtFacts->setMinimumSize(TwipsToPixels(kFactsSize.width()), TwipsToPixels(kFactsSize.height()));
    cmdCopy = NewButton(u"cmdCopy"_s, u"&Copy"_s, this);
    cmdOK = NewButton(u"cmdOK"_s, u"&OK"_s, this);
    auto* texts = new QVBoxLayout;
    texts->addWidget(name);
    texts->addWidget(release);
    texts->addWidget(purpose);
    texts->addSpacing(Space::kNormal);
    texts->addWidget(txtFacts);
    texts->addLayout(RightAligned({cmdCopy, cmdOK}));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Space::kWide, Space::kWide, Space::kWide, Space::kWide);
    layout->setSpacing(Space::kWide);
    layout->addWidget(icon, 0, Qt::AlignTop);
    layout->addLayout(texts, 1);
    SetTabOrder({cmdOK, cmdCopy, txtFacts});
    cmdOK->setFocus();
    tmrFade = new QTimer(this);
    tmrFade->setInterval(kFadeInterval);
}

void frmAbout::Wire() {
    connect(cmdOK, &QPushButton::clicked, this, &frmAbout::FadeOut);
    connect(cmdCopy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(txtFacts->toPlainText()); });
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
