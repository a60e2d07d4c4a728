#include "tsql/Units.h"

#include "tsql/Decimals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

__extension__ using Magnitude = unsigned __int128;

constexpr int kHexDigits = 32;
constexpr int kBitsOfHexDigit = 4;
constexpr Magnitude kSignBit = Magnitude(1) << 127;
// Whole numbers up to this are doubles, and powers of ten up to 10^22 are too.
constexpr qint64 kLargestExactDouble = qint64(1) << 53;
constexpr int kLargestExactPower = 22;
// The digits that tell one double from every other.
constexpr int kDigitsOfDouble = 17;

constexpr std::array<Magnitude, kMostDigits + 1> Powers() {
    std::array<Magnitude, kMostDigits + 1> powers{1};
    for (size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}
constexpr std::array kPowersOfTen = Powers();
constexpr Magnitude kEnd = kPowersOfTen[kMostDigits];

Magnitude PowerOfTen(int exponent) {
    return kPowersOfTen[static_cast<size_t>(exponent)];
}

Magnitude MagnitudeOf(Units units) {
    return units < 0 ? Magnitude(0) - static_cast<Magnitude>(units) : static_cast<Magnitude>(units);
}

Units Signed(Magnitude magnitude, bool negative) {
    return negative ? -static_cast<Units>(magnitude) : static_cast<Units>(magnitude);
}

std::optional<Units> Within(Magnitude magnitude, bool negative) {
    return magnitude < kEnd ? std::optional(Signed(magnitude, negative)) : std::nullopt;
}

/// A product of two magnitudes in digits of 64 bits, the lowest first.
class LongNumber {
  public:
    LongNumber(Magnitude a, Magnitude b) {
        const std::array left = {Low(a), High(a)};
        const std::array right = {Low(b), High(b)};
        for (size_t i = 0; i < left.size(); ++i) {
            quint64 carry = 0;
            for (size_t j = 0; j < right.size(); ++j) {
                const Magnitude sum = Magnitude(left[i]) * right[j] + mDigits[i + j] + carry;
                mDigits[i + j] = Low(sum);
                carry = High(sum);
            }
            mDigits[i + right.size()] = carry;
        }
    }

    /// Takes the last decimal digit off and gives it back.
    quint64 DropDigit() {
        quint64 rest = 0;
        for (size_t i = mDigits.size(); i-- > 0;) {
            const Magnitude part = (Magnitude(rest) << 64) | mDigits[i];
            mDigits[i] = Low(part / 10);
            rest = Low(part % 10);
        }
        return rest;
    }

    /// Nothing for more than 38 digits.
    std::optional<Magnitude> Value() const {
        if (mDigits[2] != 0 || mDigits[3] != 0)
            return std::nullopt;
        return (Magnitude(mDigits[1]) << 64) | mDigits[0];
    }

  private:
    static quint64 Low(Magnitude number) { return static_cast<quint64>(number); }
    static quint64 High(Magnitude number) { return static_cast<quint64>(number >> 64); }

    std::array<quint64, 4> mDigits{};
};

/// The next digit of a long division: ten times the rest by the divisor. The rest becomes what is left. Ten
/// times a rest might not fit, so it is doubled step by step.
unsigned NextDigit(Magnitude& rest, Magnitude divisor) {
    const Magnitude one = rest;
    unsigned digit = 0;
    rest = 0;
    for (const unsigned bit : {1U, 0U, 1U, 0U}) {
        rest = rest * 2 + bit * one;
        digit *= 2;
        while (rest >= divisor) {
            rest -= divisor;
            ++digit;
        }
    }
    return digit;
}

/// A decimal of many digits as a text of one length whose order is that of the numbers.
QByteArray WideText(Units units) {
    static constexpr char kDigits[] = "0123456789abcdef";
    Magnitude bits = static_cast<Magnitude>(units) ^ kSignBit;
    QByteArray text(kHexDigits, '0');
    for (char* at = text.data() + kHexDigits; bits != 0; bits >>= kBitsOfHexDigit)
        *--at = kDigits[static_cast<unsigned>(bits) % 16];
    return text;
}

Units ReadWide(QByteArrayView text) {
    Magnitude bits = 0;
    for (const char c : text)
        bits = (bits << kBitsOfHexDigit) | static_cast<unsigned>(c <= '9' ? c - '0' : c - 'a' + 10);
    return static_cast<Units>(bits ^ kSignBit);
}

} // namespace

Units ReadUnits(const Cell& value, const SqlType& type) {
    return type.IsWide() ? ReadWide(std::get<QByteArray>(value)) : Units(std::get<qint64>(value));
}

std::optional<Cell> UnitsCell(Units units, const SqlType& type) {
    const bool money = type.kind == SqlType::Kind::Money;
    const bool fits =
        money ? units >= std::numeric_limits<qint64>::min() && units <= std::numeric_limits<qint64>::max()
              : MagnitudeOf(units) < PowerOfTen(type.precision);
    if (!fits)
        return std::nullopt;
    return type.IsWide() ? Cell(WideText(units)) : Cell(static_cast<qint64>(units));
}

std::optional<Units> Rescaled(Units units, int from, int to) {
    const bool negative = units < 0;
    const Magnitude magnitude = MagnitudeOf(units);
    const int more = to - from;
    if (more >= 0) {
        if (magnitude == 0)
            return 0;
        if (more > kMostDigits || magnitude >= PowerOfTen(kMostDigits - more))
            return std::nullopt;
        return Signed(magnitude * PowerOfTen(more), negative);
    }
    if (-more > kMostDigits)
        return 0;
    const Magnitude power = PowerOfTen(-more);
    return Within(magnitude / power + (magnitude % power >= power / 2 ? 1 : 0), negative);
}

Units CutBehind(Units units, int scale, int kept) {
    if (kept >= scale)
        return units;
    if (scale - kept > kMostDigits)
        return 0;
    const auto power = static_cast<Units>(PowerOfTen(scale - kept));
    return units - units % power;
}

std::optional<Units> Product(Units a, Units b, int dropped) {
    LongNumber number(MagnitudeOf(a), MagnitudeOf(b));
    quint64 lastDigit = 0;
    for (int i = 0; i < dropped; ++i)
        lastDigit = number.DropDigit();
    const auto magnitude = number.Value();
    if (!magnitude || *magnitude >= kEnd)
        return std::nullopt;
    return Within(*magnitude + (lastDigit >= 5 ? 1 : 0), (a < 0) != (b < 0));
}

std::optional<Units> Quotient(Units dividend, Units divisor, int shift) {
    const Magnitude by = MagnitudeOf(divisor);
    Magnitude quotient = MagnitudeOf(dividend) / by;
    Magnitude rest = MagnitudeOf(dividend) % by;
    for (int i = 0; i < shift; ++i) {
        if (quotient >= kEnd / 10)
            return std::nullopt;
        quotient = quotient * 10 + NextDigit(rest, by);
    }
    return Within(quotient, (dividend < 0) != (divisor < 0));
}

Units Remainder(Units dividend, int dividendShift, Units divisor, int divisorShift) {
    Magnitude by = MagnitudeOf(divisor);
    // One of the two has the longer scale, so only the other is shifted.
    if (divisorShift > 0 && by >= PowerOfTen(kMostDigits - divisorShift))
        return dividend;
    by *= PowerOfTen(divisorShift);
    Magnitude rest = MagnitudeOf(dividend) % by;
    for (int i = 0; i < dividendShift; ++i)
        NextDigit(rest, by);
    return Signed(rest, dividend < 0);
}

QByteArray UnitsText(Units units, int scale) {
    Magnitude rest = MagnitudeOf(units);
    std::array<char, 44> digits{};
    char* begin = digits.end();
    int written = 0;
    while (rest > 0 || written <= scale) {
        if (written == scale && scale > 0)
            *--begin = '.';
        *--begin = static_cast<char>('0' + static_cast<int>(rest % 10));
        rest /= 10;
        ++written;
    }
    if (units < 0)
        *--begin = '-';
    return {begin, digits.end() - begin};
}

FixedText ReadFixed(QByteArrayView text, int scale) {
    const QByteArrayView plain = text.trimmed();
    if (!IsPlainNumber(plain, false))
        return {};
    Magnitude magnitude = 0;
    int decimals = 0;
    bool behindPoint = false;
    bool roundUp = false;
    for (const char c : plain) {
        if (c == '.')
            behindPoint = true;
        if (c < '0' || c > '9')
            continue;
        if (behindPoint && decimals++ >= scale) {
            if (decimals == scale + 1)
                roundUp = c >= '5';
            continue;
        }
        magnitude = magnitude * 10 + static_cast<unsigned>(c - '0');
        if (magnitude >= kEnd)
            return {true, std::nullopt};
    }
    const int missing = std::max(scale - decimals, 0);
    const auto units = Rescaled(Signed(magnitude, plain.startsWith('-')), 0, missing);
    if (!units || !roundUp)
        return {true, units};
    return {true, Within(MagnitudeOf(*units) + 1, plain.startsWith('-'))};
}

double UnitsToDouble(Units units, int scale) {
    const bool exact = units >= -kLargestExactDouble && units <= kLargestExactDouble;
    if (exact && scale <= kLargestExactPower)
        return double(static_cast<qint64>(units)) / double(PowerOfTen(scale));
    return UnitsText(units, scale).toDouble();
}

std::optional<Units> DoubleToUnits(double value, int scale) {
    if (!std::isfinite(value))
        return std::nullopt;
    if (const auto units = NearUnits(value, scale))
        return *units;
    // "d.dddde+xx": the digits as a whole number, and how many of them stand behind the point.
    const QByteArray text = QByteArray::number(value, 'e', kDigitsOfDouble - 1);
    const qsizetype exponent = text.indexOf('e');
    const qint64 digits = text.left(exponent).replace(".", "").toLongLong();
    return Rescaled(digits, kDigitsOfDouble - 1 - text.sliced(exponent + 1).toInt(), scale);
}
