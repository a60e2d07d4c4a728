#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

#include <functional>

// The server's functions on texts, for texts in UTF-8. Characters count from 1.

/// Done once for each step of what may take long; it raises a failure where the work is given up.
using WorkStep = std::function<void()>;

/// LEN: the number of characters without the blanks at the end.
qint64 LengthWithoutTail(QByteArrayView text);
/// LEFT and RIGHT: the first or last so many characters. Raises 536 for less than none.
QByteArray LeftCharacters(const QByteArray& text, qint64 count);
QByteArray LastCharacters(const QByteArray& text, qint64 count);
/// SUBSTRING: so many characters from a position on, which may lie before the first. Raises 537 for less than
/// none.
QByteArray MiddleCharacters(const QByteArray& text, qint64 first, qint64 count);
QByteArray UpperText(QByteArrayView text);
QByteArray LowerText(QByteArrayView text);
/// LTRIM and RTRIM: without the blanks in front or at the end.
QByteArray WithoutHead(QByteArrayView text);
QByteArray WithoutTail(QByteArrayView text);
/// REPLACE: every occurrence of a text in another one, found by the hospital's collation; cut at so many
/// characters.
QByteArray ReplacedText(const QByteArray& text, const QByteArray& from, const QByteArray& to, qint64 most,
                        const WorkStep& step = {});
/// REPLICATE: the text so many times, cut at so many characters.
QByteArray RepeatedText(const QByteArray& text, qint64 count, qint64 most);
/// LIKE: "%" for any characters, "_" for one, "[a-f]" and "[^a-f]" for one of a set; letters by the
/// hospital's collation. Blanks at the end of the text that the pattern does not ask for are passed over,
/// unless they count, as they do in national texts; those of the pattern always count.
bool MatchesPattern(QByteArrayView text, QByteArrayView pattern, bool blanksCount = false,
                    const WorkStep& step = {});
