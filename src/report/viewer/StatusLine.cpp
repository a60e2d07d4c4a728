#include "report/viewer/StatusLine.h"

#include "toolkit/Look.h"

#include <QPainter>

StatusLine::StatusLine(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setContentsMargins(Space::kNormal, 2, Space::kNormal, 2);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setMinimumHeight(fontMetrics().height() + 4);
}

void StatusLine::Tell(const QString& what) {
    setText(what);
    setToolTip(what);
}

void StatusLine::paintEvent(QPaintEvent* /*event*/) {
    const QRect room = contentsRect();
    QPainter(this).drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                            fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()));
}
