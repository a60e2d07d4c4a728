#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A whole number of any length. The reference reckons with it, so that it shares nothing with the engine.
class Whole {
  public:
    Whole(std::int64_t number = 0);
    /// Digits with or without a minus in front.
    static Whole FromDigits(std::string_view digits);
    static Whole PowerOfTen(int exponent);

    bool IsZero() const { return mLimbs.empty(); }
    bool IsNegative() const { return mIsNegative; }
    bool IsOdd() const { return !mLimbs.empty() && mLimbs[0] % 2 == 1; }
    Whole Magnitude() const;
    std::string Digits() const;
    /// How many digits it has; 0 has one.
    int DigitCount() const;

    Whole operator-() const;
    friend Whole operator+(const Whole& a, const Whole& b);
    friend Whole operator-(const Whole& a, const Whole& b) { return a + -b; }
    friend Whole operator*(const Whole& a, const Whole& b);
    /// Cut towards zero. The divisor is not 0.
    friend Whole operator/(const Whole& a, const Whole& b);
    /// What the division leaves, with the dividend's sign. The divisor is not 0.
    friend Whole operator%(const Whole& a, const Whole& b);
    friend std::strong_ordering operator<=>(const Whole& a, const Whole& b);
    friend bool operator==(const Whole& a, const Whole& b) = default;

  private:
    using Limbs = std::vector<std::uint32_t>;
    /// Each limb holds nine digits; the last ones of the number come first.
    static constexpr std::uint64_t kBase = 1000000000;
    static constexpr int kLimbDigits = 9;

    Whole(Limbs limbs, bool isNegative);

    static void Trim(Limbs& limbs);
    static std::strong_ordering Compare(const Limbs& a, const Limbs& b);
    static Limbs Add(const Limbs& a, const Limbs& b);
    /// a is not smaller than b.
    static Limbs Subtract(const Limbs& a, const Limbs& b);
    static Limbs Multiply(const Limbs& a, std::uint64_t factor);
    struct Division;
    static Division Divide(const Limbs& a, const Limbs& b);

    Limbs mLimbs;
    bool mIsNegative = false;
};
