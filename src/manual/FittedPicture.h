#pragma once

#include <QImage>

/// A picture that takes at most so many pixels of a page's width, in the dots of a display that has so many
/// of them to a pixel: it is brought to its size once, and small letters in it stay legible.
QImage FittedPicture(const QImage& picture, int room, double dotsToAPixel);
