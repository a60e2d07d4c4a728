#include "text/TextOrder.h"

#include <QChar>
#include <QString>

#include <array>

namespace {

// Marks, digits and letters in this order; a letter's accented forms follow it before the next letter.
constexpr quint32 kDigits = 0x1000;
constexpr quint32 kLetters = 0x2000;
constexpr quint32 kForms = 0x20000;
constexpr quint32 kBeyond = kLetters + 27 * kForms;
constexpr size_t kTabled = 0x180;

quint32 ComputeWeight(char32_t character) {
    const char32_t lower = QChar::toLower(character);
    if (lower >= U'0' && lower <= U'9')
        return kDigits + (lower - U'0');
    if (lower >= U'a' && lower <= U'z')
        return kLetters + (lower - U'a') * kForms;
    const QString parts = QChar::decomposition(lower);
    if (!parts.isEmpty() && parts[0] >= u'a' && parts[0] <= u'z')
        return kLetters + (parts[0].unicode() - u'a') * kForms + lower;
    const bool mark = lower < kDigits && !QChar::isLetterOrNumber(lower);
    return mark ? lower : kBeyond + lower;
}

const std::array<quint32, kTabled>& WeightTable() {
    static const auto kTable = [] {
        std::array<quint32, kTabled> table{};
        for (size_t i = 0; i < kTabled; ++i)
            table[i] = ComputeWeight(static_cast<char32_t>(i));
        return table;
    }();
    return kTable;
}

} // namespace

quint32 TextWeight(char32_t character) {
    return character < kTabled ? WeightTable()[character] : ComputeWeight(character);
}

int CompareText(QStringView a, QStringView b) {
    const qsizetype longer = qMax(a.size(), b.size());
    for (qsizetype i = 0; i < longer; ++i) {
        // The shorter text goes on in blanks.
        const char16_t left = i < a.size() ? a[i].unicode() : u' ';
        const char16_t right = i < b.size() ? b[i].unicode() : u' ';
        if (left == right)
            continue;
        const quint32 leftWeight = TextWeight(left);
        const quint32 rightWeight = TextWeight(right);
        if (leftWeight != rightWeight)
            return leftWeight < rightWeight ? -1 : 1;
    }
    return 0;
}
