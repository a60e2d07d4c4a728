#include "text/TextOrder.h"

#include <array>

namespace {

/// Accented letters of Latin-1 with their plain ones; an accented letter follows all forms of its plain one.
constexpr QStringView kAccented = u"ÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÑÒÓÔÕÖØÙÚÛÜÝ";
constexpr QStringView kPlain = u"AAAAAACEEEEIIIINOOOOOOUUUUY";
/// Room between two plain letters for the accented forms of the first.
constexpr int kStep = 32;

std::array<int, 256> MakeWeights() {
    std::array<int, 256> weights{};
    for (int c = 0; c < 256; ++c)
        weights[static_cast<size_t>(c)] = QChar(c).toUpper().unicode() * kStep;
    for (qsizetype i = 0; i < kAccented.size(); ++i) {
        const QChar accented = kAccented[i];
        const int weight = kPlain[i].unicode() * kStep + static_cast<int>(i) + 1;
        weights[accented.unicode()] = weight;
        weights[accented.toLower().unicode()] = weight;
    }
    return weights;
}

int WeightOf(QChar c) {
    static const std::array<int, 256> weights = MakeWeights();
    const char16_t code = c.unicode();
    return code < 256 ? weights[code] : c.toUpper().unicode() * kStep;
}

QStringView WithoutTrailingBlanks(QStringView text) {
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

} // namespace

int CompareText(QStringView a, QStringView b) {
    a = WithoutTrailingBlanks(a);
    b = WithoutTrailingBlanks(b);
    const qsizetype common = qMin(a.size(), b.size());
    for (qsizetype i = 0; i < common; ++i) {
        if (a[i] == b[i])
            continue;
        if (const int difference = WeightOf(a[i]) - WeightOf(b[i]); difference != 0)
            return difference;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}
