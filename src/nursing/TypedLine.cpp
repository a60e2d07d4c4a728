#include "nursing/TypedLine.h"

#include <QBackingStore>
#include <QPainter>
#include <QWindow>

TypedLine::TypedLine(const QString& whole, QWidget* parent)
    : QLabel(whole, parent)
    , mWhole(whole)
    , mPictures(size_t(whole.size()) + 1) {
    setTextFormat(Qt::PlainText);
}

void TypedLine::FitWhole() {
    setText(mWhole);
    setFixedSize(sizeHint());
}

void TypedLine::Type(qsizetype letters) {
    // The label would ask to be painted by an event, which is another turn of the loop; here it is painted at
    // once.
    setAttribute(Qt::WA_UpdatesDisabled);
    setText(mWhole.left(letters));
    setAttribute(Qt::WA_UpdatesDisabled, false);
    // A blank at the end is not seen.
    while (letters > 0 && mWhole[letters - 1].isSpace())
        --letters;
    if (letters == mSeen && testAttribute(Qt::WA_OpaquePaintEvent))
        return;
    mSeen = letters;
    TakePicture();
    if (!ShowPicture())
        repaint();
}

bool TypedLine::ShowPicture() const {
    const QWindow* onDisplay = window()->windowHandle();
    QBackingStore* store = window()->backingStore();
    if (!testAttribute(Qt::WA_OpaquePaintEvent) || !onDisplay || !onDisplay->isExposed() || !store ||
        store->size() != window()->size())
        return false;
    const QRect place(mapTo(window(), QPoint()), size());
    store->beginPaint(place);
    QPainter(store->paintDevice()).drawPixmap(place.topLeft(), mPictures[size_t(mSeen)]);
    store->endPaint();
    store->flush(place);
    return true;
}

void TypedLine::TakePicture() {
    QPixmap& picture = mPictures[size_t(mSeen)];
    // Else looked at once a line: the bar looks the same all along.
    if ((mSeen <= 1 || picture.isNull()) && HasMoved())
        DropPictures();
    if (isVisible() && picture.isNull()) {
        setAttribute(Qt::WA_OpaquePaintEvent, false);
        picture = window()->grab({mPlace, size()});
    }
    // What lies beneath is in the picture.
    setAttribute(Qt::WA_OpaquePaintEvent, !picture.isNull());
}

bool TypedLine::HasMoved() const {
    return mRatio != devicePixelRatioF() || mPlace != mapTo(window(), QPoint());
}

void TypedLine::DropPictures() {
    mPictures.assign(mPictures.size(), {});
    mPlace = mapTo(window(), QPoint());
    mRatio = devicePixelRatioF();
    setAttribute(Qt::WA_OpaquePaintEvent, false);
}

void TypedLine::changeEvent(QEvent* event) {
    DropPictures();
    QLabel::changeEvent(event);
}

void TypedLine::resizeEvent(QResizeEvent* event) {
    DropPictures();
    QLabel::resizeEvent(event);
}

void TypedLine::paintEvent(QPaintEvent* event) {
    if (!testAttribute(Qt::WA_OpaquePaintEvent))
        return QLabel::paintEvent(event);
    QPainter(this).drawPixmap(QPoint(), mPictures[size_t(mSeen)]);
}
