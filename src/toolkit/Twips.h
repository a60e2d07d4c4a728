#pragma once

/// Screen measures are kept in twips, 1440 to the inch, as the screens were drawn: for an eight-point face at
/// 96 pixels to the inch.
constexpr int kTwipsPerPixel = 15;

/// Twips as whole pixels of the widget's own coordinates, rounded to the nearest.
constexpr int TwipsToPixels(int twips) {
    return (twips + kTwipsPerPixel / 2) / kTwipsPerPixel;
}
