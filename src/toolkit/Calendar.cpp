#include "toolkit/Calendar.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

Calendar::Calendar(QWidget* box)
    : QFrame(box, Qt::Popup)
    , mBox(box)
    , mMonth(new QCalendarWidget(this)) {
    setObjectName(u"Calendar"_s);
    setFrameShape(QFrame::StyledPanel);
    // The language of the screens, whatever the machine's is.
    mMonth->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    mMonth->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    mMonth->setDateEditEnabled(false);
    connect(mMonth, &QCalendarWidget::clicked, this, &Calendar::Take);
    connect(mMonth, &QCalendarWidget::activated, this, &Calendar::Take);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(mMonth);
}

void Calendar::DropDown(QDate marked, QDate first, QDate last) {
    mMonth->setDateRange(first, last);
    mMonth->setSelectedDate(marked);
    Place();
    show();
    mMonth->setFocus(Qt::PopupFocusReason);
}

/// Below the box, or above it where the screen ends.
void Calendar::Place() {
    adjustSize();
    const QRect room = mBox->screen()->availableGeometry();
    QPoint place = mBox->mapToGlobal(QPoint(0, mBox->height()));
    if (place.y() + height() > room.bottom())
        place.setY(mBox->mapToGlobal(QPoint()).y() - height());
    place.setX(qMax(room.left(), qMin(place.x(), room.right() - width())));
    move(place);
}

/// A day that is clicked twice is taken once.
void Calendar::Take(QDate day) {
    if (!isVisible())
        return;
    hide();
    Q_EMIT Picked(day);
}

void Calendar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F4)
        hide();
    else
        QFrame::keyPressEvent(event);
}

void Calendar::mousePressEvent(QMouseEvent* event) {
    // The press that closes the calendar does not reach its button, which would open it again.
    const QPoint inBox = mBox->mapFromGlobal(event->globalPosition().toPoint());
    setAttribute(Qt::WA_NoMouseReplay, mBox->rect().contains(inBox));
    QFrame::mousePressEvent(event);
}
