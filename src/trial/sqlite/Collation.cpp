#include "trial/sqlite/Collation.h"

#include "text/TextOrder.h"

#include <algorithm>
#include <cstring>

namespace {

// The bytes that a processor compares at once.
constexpr qsizetype kStride = 8;

/// The length in bytes of the whole characters with which both texts begin.
qsizetype SameBeginning(QByteArrayView a, QByteArrayView b) {
    const qsizetype shorter = std::min(a.size(), b.size());
    qsizetype length = 0;
    // A sort of a long list compares more than it does anything else.
    while (length + kStride <= shorter && std::memcmp(a.data() + length, b.data() + length, kStride) == 0)
        length += kStride;
    while (length < shorter && a[length] == b[length])
        ++length;
    const auto isInsideACharacter = [](QByteArrayView text, qsizetype at) {
        return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
    };
    while (length > 0 && (isInsideACharacter(a, length) || isInsideACharacter(b, length)))
        --length;
    return length;
}

} // namespace

bool SameCharacter(char32_t a, char32_t b) {
    return TextWeight(a) == TextWeight(b);
}

char32_t TakeCharacter(QByteArrayView& text) {
    if (text.isEmpty())
        return 0;
    const auto first = static_cast<unsigned char>(text[0]);
    const qsizetype length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? first : first & (0xFF >> (length + 1));
    for (qsizetype i = 1; i < length && i < text.size(); ++i)
        character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3F);
    text = text.sliced(std::min(length, text.size()));
    return character;
}

int CompareTexts(QByteArrayView a, QByteArrayView b) {
    // Most texts that meet in an index or in a sort begin alike, byte for byte.
    const qsizetype same = SameBeginning(a, b);
    a = a.sliced(same);
    b = b.sliced(same);
    while (!a.isEmpty() || !b.isEmpty()) {
        // The shorter text goes on in blanks.
        const quint32 left = TextWeight(a.isEmpty() ? U' ' : TakeCharacter(a));
        const quint32 right = TextWeight(b.isEmpty() ? U' ' : TakeCharacter(b));
        if (left != right)
            return left < right ? -1 : 1;
    }
    return 0;
}
