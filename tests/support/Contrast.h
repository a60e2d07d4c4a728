#pragma once

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cmath>

/// The relative luminance of a colour, as the Web Content Accessibility Guidelines 2.1 define it.
inline double Luminance(const QColor& color) {
    const auto part = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

/// The contrast of two colours, likewise: 1 for equal ones, 21 for black and white.
inline double Contrast(const QColor& a, const QColor& b) {
    const auto [low, high] = std::minmax({Luminance(a), Luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

/// How many pixels of two pictures of one size stand out from each other by that contrast or more.
inline int PixelsApart(const QImage& a, const QImage& b, double contrast) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            count +=
                a.pixel(x, y) != b.pixel(x, y) && Contrast(a.pixelColor(x, y), b.pixelColor(x, y)) >= contrast
                    ? 1
                    : 0;
    }
    return count;
}
