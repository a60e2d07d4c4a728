#include "trial/sqlite/TextFunctions.h"

#include "text/TextOrder.h"
#include "text/UCase.h"
#include "trial/sqlite/Collation.h"
#include "tsql/Convert.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLongestText = 8000;

qsizetype TailStart(QByteArrayView text) {
    qsizetype end = text.size();
    while (end > 0 && text[end - 1] == ' ')
        --end;
    return end;
}

/// The piece of `text` from its beginning that equals `part` by the collation, as a number of bytes; -1 for
/// none.
qsizetype MatchAtFront(QByteArrayView text, QByteArrayView part) {
    const qsizetype size = text.size();
    while (!part.isEmpty()) {
        if (text.isEmpty() || !SameCharacter(TakeCharacter(text), TakeCharacter(part)))
            return -1;
    }
    return size - text.size();
}

/// One "[…]" of a pattern, the opening bracket already taken; takes it off and says whether the character is
/// in it. In a set that nothing closes there is none.
bool MatchesSet(char32_t character, QByteArrayView& pattern) {
    const quint32 weight = TextWeight(character);
    const bool excluded = pattern.startsWith('^');
    if (excluded)
        pattern = pattern.sliced(1);
    bool found = false;
    bool first = true;
    while (!pattern.isEmpty() && (first || pattern[0] != ']')) {
        const quint32 low = TextWeight(TakeCharacter(pattern));
        quint32 high = low;
        if (pattern.size() > 1 && pattern[0] == '-' && pattern[1] != ']') {
            pattern = pattern.sliced(1);
            high = TextWeight(TakeCharacter(pattern));
        }
        found |= weight >= low && weight <= high;
        first = false;
    }
    if (pattern.isEmpty())
        return false;
    pattern = pattern.sliced(1);
    return found != excluded;
}

/// Takes one character's pattern off; false where the character does not fit.
bool MatchesOne(char32_t character, QByteArrayView& pattern) {
    const char32_t sign = TakeCharacter(pattern);
    if (sign == U'_')
        return true;
    if (sign == U'[')
        return MatchesSet(character, pattern);
    return SameCharacter(character, sign);
}

} // namespace

qint64 LengthWithoutTail(QByteArrayView text) {
    return CountCharacters(text.first(TailStart(text)));
}

QByteArray LastCharacters(const QByteArray& text, qint64 count) {
    const qint64 before = std::max<qint64>(CountCharacters(text) - std::max<qint64>(count, 0), 0);
    return text.sliced(FirstCharacters(text, before).size());
}

QByteArray MiddleCharacters(const QByteArray& text, qint64 first, qint64 count) {
    // Farther than any text is long; what is beyond cannot be told from it, and could not be added.
    constexpr qint64 kFar = qint64(1) << 60;
    first = std::clamp(first, -kFar, kFar);
    count = std::clamp(count, -kFar, kFar);
    // What lies before the first character takes its part of the count.
    const qint64 end = std::max<qint64>(first + count - 1, 0);
    const QByteArray head = FirstCharacters(text, end);
    return head.sliced(FirstCharacters(head, std::max<qint64>(first - 1, 0)).size());
}

QByteArray UpperText(QByteArrayView text) {
    return UCase(QString::fromUtf8(text)).toUtf8();
}

QByteArray LowerText(QByteArrayView text) {
    return QString::fromUtf8(text).toLower().toUtf8();
}

QByteArray WithoutHead(QByteArrayView text) {
    while (text.startsWith(' '))
        text = text.sliced(1);
    return text.toByteArray();
}

QByteArray WithoutTail(QByteArrayView text) {
    return text.first(TailStart(text)).toByteArray();
}

QByteArray ReplacedText(const QByteArray& text, const QByteArray& from, const QByteArray& to) {
    if (from.isEmpty())
        return text;
    QByteArray result;
    QByteArrayView rest = text;
    while (!rest.isEmpty()) {
        const qsizetype matched = MatchAtFront(rest, from);
        if (matched > 0) {
            result += to;
            rest = rest.sliced(matched);
        } else {
            const QByteArrayView before = rest;
            TakeCharacter(rest);
            result += before.first(before.size() - rest.size());
        }
    }
    return result;
}

QByteArray RepeatedText(const QByteArray& text, qint64 count) {
    const qint64 most = text.isEmpty() ? 0 : kLongestText / text.size();
    return text.repeated(std::clamp<qint64>(count, 0, most));
}

bool MatchesPattern(QByteArrayView text, QByteArrayView pattern, bool blanksCount) {
    // Where the last "%" stood, and the first character that it has not swallowed yet.
    QByteArrayView patternBehindPercent;
    QByteArrayView textBehindPercent;
    bool percent = false;
    while (true) {
        if (pattern.startsWith('%')) {
            pattern = pattern.sliced(1);
            patternBehindPercent = pattern;
            textBehindPercent = text;
            percent = true;
            continue;
        }
        if (pattern.isEmpty() && (text.isEmpty() || (!blanksCount && TailStart(text) == 0)))
            return true;
        if (!text.isEmpty() && !pattern.isEmpty()) {
            QByteArrayView restOfText = text;
            QByteArrayView restOfPattern = pattern;
            if (MatchesOne(TakeCharacter(restOfText), restOfPattern)) {
                text = restOfText;
                pattern = restOfPattern;
                continue;
            }
        }
        if (!percent || textBehindPercent.isEmpty())
            return false;
        TakeCharacter(textBehindPercent);
        text = textBehindPercent;
        pattern = patternBehindPercent;
    }
}
