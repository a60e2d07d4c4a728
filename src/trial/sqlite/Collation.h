#pragma once

#include <QByteArrayView>

/// Compares two texts in UTF-8 in the order of text/TextOrder.h, the server's collation. Negative, zero or
/// positive.
int CompareTexts(QByteArrayView a, QByteArrayView b);

/// Whether two characters are the same to the collation.
bool SameCharacter(char32_t a, char32_t b);

/// The character at the front of a text in UTF-8, which is taken off; 0 for an empty text.
char32_t TakeCharacter(QByteArrayView& text);
