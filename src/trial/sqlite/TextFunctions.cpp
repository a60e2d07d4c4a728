#include "trial/sqlite/TextFunctions.h"

#include "text/TextOrder.h"
#include "text/UCase.h"
#include "trial/sqlite/Collation.h"
#include "tsql/Convert.h"
#include "tsql/ServerError.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// In bytes of UTF-8.
constexpr qint64 kLongestCharacter = 4;

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

QByteArray LeftCharacters(const QByteArray& text, qint64 count) {
    if (count < 0)
        throw ServerError(Fault::NegativeLength, {u"left"_s});
    return FirstCharacters(text, count);
}

QByteArray LastCharacters(const QByteArray& text, qint64 count) {
    if (count < 0)
        throw ServerError(Fault::NegativeLength, {u"right"_s});
    const qint64 before = std::max<qint64>(CountCharacters(text) - count, 0);
    return text.sliced(FirstCharacters(text, before).size());
}

QByteArray MiddleCharacters(const QByteArray& text, qint64 first, qint64 count) {
    if (count < 0)
        throw ServerError(Fault::NegativeSubstring);
    // Farther than any text is long; what is beyond cannot be told from it, and could not be added.
    constexpr qint64 kFar = qint64(1) << 60;
    first = std::clamp(first, -kFar, kFar);
    count = std::min(count, kFar);
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

QByteArray ReplacedText(const QByteArray& text, const QByteArray& from, const QByteArray& to, qint64 most,
                        const WorkStep& step) {
    if (from.isEmpty())
        return FirstCharacters(text, most);
    QByteArray result;
    QByteArrayView rest = text;
    while (!rest.isEmpty() && result.size() < most * kLongestCharacter) {
        if (step)
            step();
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
    return FirstCharacters(result, most);
}

QByteArray RepeatedText(const QByteArray& text, qint64 count, qint64 most) {
    const QByteArray first = FirstCharacters(text, most);
    if (first.isEmpty())
        return first;
    const qint64 enough = most / CountCharacters(first) + 1;
    return FirstCharacters(first.repeated(std::clamp<qint64>(count, 0, enough)), most);
}

bool MatchesPattern(QByteArrayView text, QByteArrayView pattern, bool blanksCount, const WorkStep& step) {
    // Where the last "%" stood, and the first character that it has not swallowed yet.
    QByteArrayView patternBehindPercent;
    QByteArrayView textBehindPercent;
    bool percent = false;
    while (true) {
        if (step)
            step();
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
