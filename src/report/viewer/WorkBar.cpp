#include "report/viewer/WorkBar.h"

#include "toolkit/Controls.h"
#include "toolkit/Look.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

WorkBar::WorkBar(QWidget* parent)
    : QFrame(parent)
    , mLabel(new QLabel(this))
    , mBar(new QProgressBar(this))
    , mPatience(new QTimer(this)) {
    setObjectName(u"WorkBar"_s);
    mLabel->setObjectName(u"lblWork"_s);
    mBar->setObjectName(u"prgWork"_s);
    mBar->setAccessibleName(u"Progress"_s);
    mBar->setTextVisible(false);
    QPushButton* cancel = NewButton(u"cmdCancel"_s, u"Cancel"_s, this);
    cancel->setToolTip(u"Cancel (Esc)"_s);
    connect(cancel, &QPushButton::clicked, this, &WorkBar::CancelRequested);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Space::kNormal, Space::kTight, Space::kNormal, Space::kTight);
    row->setSpacing(Space::kNormal);
    row->addWidget(mLabel);
    row->addWidget(mBar, 1);
    row->addWidget(cancel);
    mPatience->setSingleShot(true);
    mPatience->setInterval(kPatience);
    connect(mPatience, &QTimer::timeout, this, &QWidget::show);
    hide();
}

void WorkBar::Begin(const QString& what) {
    mLabel->setText(what);
    // Without an end the bar runs to and fro.
    mBar->setRange(0, 0);
    mPatience->start();
}

void WorkBar::SetProgress(int done, int total) {
    mBar->setRange(0, total);
    mBar->setValue(done);
}

void WorkBar::End() {
    mPatience->stop();
    hide();
}
