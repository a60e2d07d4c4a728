#include "report/pages/Code128.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>

namespace {

/// The widths of the characters by their values, as the standard's table has them.
constexpr std::array<std::string_view, 107> kCharacters = {
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212", "221213",
    "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221", "223211", "221132",
    "221231", "213212", "223112", "312131", "311222", "321122", "321221", "312212", "322112", "322211",
    "212123", "212321", "232121", "111323", "131123", "131321", "112313", "132113", "132311", "211313",
    "231113", "231311", "112133", "112331", "132131", "113123", "113321", "133121", "313121", "211331",
    "231131", "213113", "213311", "213131", "311123", "311321", "331121", "312113", "312311", "332111",
    "314111", "221411", "431111", "111224", "111422", "121124", "121421", "141122", "141221", "112214",
    "112412", "122114", "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111",
    "111242", "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311", "113141",
    "114131", "311141", "411131", "211412", "211214", "211232", "2331112"};

constexpr int kToSetC = 99;
constexpr int kToSetB = 100;
constexpr int kStartB = 104;
constexpr int kStartC = 105;
constexpr int kStop = 106;
constexpr int kCheckModulus = 103;

bool CanBeEncoded(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u' ' && c <= u'~'; });
}

qsizetype DigitsFrom(QStringView text) {
    const auto end = std::find_if(text.begin(), text.end(), [](QChar c) { return c < u'0' || c > u'9'; });
    return end - text.begin();
}

/// The values of a text's characters: set B has all of them, set C packs two digits into one.
class Encoding {
  public:
    explicit Encoding(QStringView text)
        : mRest(text) {
        const qsizetype digits = DigitsFrom(mRest);
        mInC = digits >= kLeastAtTheEdge || (digits == 2 && mRest.size() == 2);
        mValues.push_back(mInC ? kStartC : kStartB);
        while (!mRest.isEmpty()) {
            if (mInC)
                NextOfC();
            else
                NextOfB();
        }
    }

    const std::vector<int>& Values() const { return mValues; }

  private:
    /// So many digits are shorter in set C: at the text's edges one character switches, within it two do.
    static constexpr qsizetype kLeastAtTheEdge = 4;
    static constexpr qsizetype kLeastWithin = 6;

    static int Digit(QChar c) { return c.unicode() - u'0'; }

    void NextOfC() {
        if (DigitsFrom(mRest) >= 2) {
            mValues.push_back(10 * Digit(mRest[0]) + Digit(mRest[1]));
            mRest = mRest.mid(2);
            return;
        }
        mValues.push_back(kToSetB);
        mInC = false;
    }

    void NextOfB() {
        const qsizetype digits = DigitsFrom(mRest);
        const bool areMany = digits >= (digits == mRest.size() ? kLeastAtTheEdge : kLeastWithin);
        // Of an odd number the first one stays here.
        if (areMany && digits % 2 == 0) {
            mValues.push_back(kToSetC);
            mInC = true;
            return;
        }
        mValues.push_back(mRest[0].unicode() - u' ');
        mRest = mRest.mid(1);
    }

    QStringView mRest;
    bool mInC = false;
    std::vector<int> mValues;
};

int CheckOf(const std::vector<int>& values) {
    int sum = values[0];
    for (size_t i = 1; i < values.size(); ++i)
        sum = (sum + int(i) * values[i]) % kCheckModulus;
    return sum % kCheckModulus;
}

} // namespace

std::vector<int> Code128(const QString& text) {
    if (text.isEmpty() || !CanBeEncoded(text))
        return {};
    std::vector<int> values = Encoding(text).Values();
    values.push_back(CheckOf(values));
    values.push_back(kStop);
    std::vector<int> widths;
    for (const int value : values) {
        for (const char width : kCharacters[size_t(value)])
            widths.push_back(width - '0');
    }
    return widths;
}

std::optional<double> ModuleIn(double width, const std::vector<int>& bars) {
    // 0.17 mm, in points.
    constexpr double kLeastModule = 0.48;
    const double module = width / std::accumulate(bars.begin(), bars.end(), 2 * kQuietModules);
    return bars.empty() || module < kLeastModule ? std::nullopt : std::optional(module);
}
