#pragma once

/// Screen measures are kept in twips, 1440 to the inch, as the screens were drawn. They were drawn for an
/// eight-point face at 15 twips to the pixel; the face used here is larger, so a pixel takes 12 twips.
constexpr int kTwipsPerPixel = 12;

/// Twips as whole pixels of the widget's own coordinates, rounded to the nearest.
constexpr int TwipsToPixels(int twips) {
    return (twips + kTwipsPerPixel / 2) / kTwipsPerPixel;
}
