#pragma once

#include <QStringView>

/// Compares two texts in the order of the hospital's server (Latin-1, letter case ignored, accents not): ñ stands
/// between n and o, and blanks at the end do not count. Negative, 0 or positive.
int CompareText(QStringView a, QStringView b);
