#include "oracle/Whole.h"

#include <algorithm>
#include <utility>

struct Whole::Division {
    Limbs quotient;
    Limbs rest;
};

Whole::Whole(std::int64_t number)
    : mIsNegative(number < 0) {
    // The smallest number has no positive counterpart of its own type.
    auto left = number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
    for (; left > 0; left /= kBase)
        mLimbs.push_back(static_cast<std::uint32_t>(left % kBase));
}

Whole::Whole(Limbs limbs, bool isNegative)
    : mLimbs(std::move(limbs)) {
    Trim(mLimbs);
    mIsNegative = isNegative && !mLimbs.empty();
}

Whole Whole::FromDigits(std::string_view digits) {
    const bool isNegative = digits.starts_with('-');
    if (isNegative)
        digits.remove_prefix(1);
    Limbs limbs;
    while (!digits.empty()) {
        const size_t taken = std::min<size_t>(kLimbDigits, digits.size());
        limbs.push_back(
            static_cast<std::uint32_t>(std::stoul(std::string(digits.substr(digits.size() - taken)))));
        digits.remove_suffix(taken);
    }
    return Whole(std::move(limbs), isNegative);
}

Whole Whole::PowerOfTen(int exponent) {
    return FromDigits("1" + std::string(static_cast<size_t>(exponent), '0'));
}

Whole Whole::Magnitude() const {
    return Whole(mLimbs, false);
}

std::string Whole::Digits() const {
    if (mLimbs.empty())
        return "0";
    std::string digits = (mIsNegative ? "-" : "") + std::to_string(mLimbs.back());
    for (size_t i = mLimbs.size() - 1; i-- > 0;) {
        const std::string limb = std::to_string(mLimbs[i]);
        digits += std::string(kLimbDigits - limb.size(), '0') + limb;
    }
    return digits;
}

int Whole::DigitCount() const {
    return static_cast<int>(Magnitude().Digits().size());
}

Whole Whole::operator-() const {
    return Whole(mLimbs, !mIsNegative);
}

Whole operator+(const Whole& a, const Whole& b) {
    if (a.mIsNegative == b.mIsNegative)
        return Whole(Whole::Add(a.mLimbs, b.mLimbs), a.mIsNegative);
    if (Whole::Compare(a.mLimbs, b.mLimbs) >= 0)
        return Whole(Whole::Subtract(a.mLimbs, b.mLimbs), a.mIsNegative);
    return Whole(Whole::Subtract(b.mLimbs, a.mLimbs), b.mIsNegative);
}

Whole operator*(const Whole& a, const Whole& b) {
    Whole::Limbs sum;
    for (size_t i = 0; i < b.mLimbs.size(); ++i) {
        Whole::Limbs row = Whole::Multiply(a.mLimbs, b.mLimbs[i]);
        row.insert(row.begin(), i, 0);
        sum = Whole::Add(sum, row);
    }
    return Whole(std::move(sum), a.mIsNegative != b.mIsNegative);
}

Whole operator/(const Whole& a, const Whole& b) {
    return Whole(Whole::Divide(a.mLimbs, b.mLimbs).quotient, a.mIsNegative != b.mIsNegative);
}

Whole operator%(const Whole& a, const Whole& b) {
    return Whole(Whole::Divide(a.mLimbs, b.mLimbs).rest, a.mIsNegative);
}

std::strong_ordering operator<=>(const Whole& a, const Whole& b) {
    if (a.mIsNegative != b.mIsNegative)
        return a.mIsNegative ? std::strong_ordering::less : std::strong_ordering::greater;
    return a.mIsNegative ? Whole::Compare(b.mLimbs, a.mLimbs) : Whole::Compare(a.mLimbs, b.mLimbs);
}

void Whole::Trim(Limbs& limbs) {
    while (!limbs.empty() && limbs.back() == 0)
        limbs.pop_back();
}

std::strong_ordering Whole::Compare(const Limbs& a, const Limbs& b) {
    if (a.size() != b.size())
        return a.size() <=> b.size();
    for (size_t i = a.size(); i-- > 0;) {
        if (a[i] != b[i])
            return a[i] <=> b[i];
    }
    return std::strong_ordering::equal;
}

Whole::Limbs Whole::Add(const Limbs& a, const Limbs& b) {
    Limbs sum;
    std::uint64_t carried = 0;
    for (size_t i = 0; i < std::max(a.size(), b.size()) || carried > 0; ++i) {
        carried += (i < a.size() ? a[i] : 0) + std::uint64_t(i < b.size() ? b[i] : 0);
        sum.push_back(static_cast<std::uint32_t>(carried % kBase));
        carried /= kBase;
    }
    return sum;
}

Whole::Limbs Whole::Subtract(const Limbs& a, const Limbs& b) {
    Limbs difference;
    std::uint64_t borrowed = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        const std::uint64_t taken = borrowed + (i < b.size() ? b[i] : 0);
        borrowed = a[i] < taken ? 1 : 0;
        difference.push_back(static_cast<std::uint32_t>(a[i] + borrowed * kBase - taken));
    }
    Trim(difference);
    return difference;
}

Whole::Limbs Whole::Multiply(const Limbs& a, std::uint64_t factor) {
    Limbs product;
    std::uint64_t carried = 0;
    for (size_t i = 0; i < a.size() || carried > 0; ++i) {
        carried += (i < a.size() ? a[i] : 0) * factor;
        product.push_back(static_cast<std::uint32_t>(carried % kBase));
        carried /= kBase;
    }
    Trim(product);
    return product;
}

Whole::Division Whole::Divide(const Limbs& a, const Limbs& b) {
    Division division;
    division.quotient.resize(a.size());
    for (size_t i = a.size(); i-- > 0;) {
        division.rest.insert(division.rest.begin(), a[i]);
        Trim(division.rest);
        // The largest limb whose multiple of the divisor fits.
        std::uint64_t least = 0;
        std::uint64_t most = kBase - 1;
        while (least < most) {
            const std::uint64_t middle = (least + most + 1) / 2;
            if (Compare(Multiply(b, middle), division.rest) <= 0)
                least = middle;
            else
                most = middle - 1;
        }
        division.quotient[i] = static_cast<std::uint32_t>(least);
        division.rest = Subtract(division.rest, Multiply(b, least));
    }
    return division;
}
