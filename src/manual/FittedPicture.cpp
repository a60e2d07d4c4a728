#include "manual/FittedPicture.h"

QImage FittedPicture(const QImage& picture, int room, double dotsToAPixel) {
    const int dots = int(room * dotsToAPixel);
    QImage fitted = picture.width() > dots ? picture.scaledToWidth(dots, Qt::SmoothTransformation) : picture;
    fitted.setDevicePixelRatio(qMax(1.0, double(fitted.width()) / room));
    return fitted;
}
