#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

// The server's functions on texts, for texts in UTF-8. Characters count from 1.

/// LEN: the number of characters without the blanks at the end.
qint64 LengthWithoutTail(QByteArrayView text);
/// RIGHT: the last so many characters.
QByteArray LastCharacters(const QByteArray& text, qint64 count);
/// SUBSTRING: so many characters from a position on, which may lie before the first.
QByteArray MiddleCharacters(const QByteArray& text, qint64 first, qint64 count);
QByteArray UpperText(QByteArrayView text);
QByteArray LowerText(QByteArrayView text);
/// LTRIM and RTRIM: without the blanks in front or at the end.
QByteArray WithoutHead(QByteArrayView text);
QByteArray WithoutTail(QByteArrayView text);
/// REPLACE: every occurrence of a text in another one, found by the hospital's collation.
QByteArray ReplacedText(const QByteArray& text, const QByteArray& from, const QByteArray& to);
/// REPLICATE: the text so many times, as far as 8,000 bytes hold it.
QByteArray RepeatedText(const QByteArray& text, qint64 count);
/// LIKE: "%" for any characters, "_" for one, "[a-f]" and "[^a-f]" for one of a set; letters by the
/// hospital's collation. Blanks at the end of the text that the pattern does not ask for are passed over,
/// unless they count, as they do in national texts; those of the pattern always count.
bool MatchesPattern(QByteArrayView text, QByteArrayView pattern, bool blanksCount = false);
