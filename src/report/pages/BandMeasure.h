#pragma once

#include "report/pages/BandLayout.h"

#include <vector>

/// Tells the height of a band for each of its rows without putting its texts in place, as far as that is
/// possible: only texts that may wrap are measured, and a bound on a text's width decides for most that they
/// cannot.
class BandMeasure {
  public:
    BandMeasure(const BoundBand& band, const TextPlace& place, ReportFonts& fonts);

    /// The band's height in points.
    double HeightAt(const TextPlace& place) const;

  private:
    /// A cell whose text changes with the rows.
    struct Check {
        const BoundCell* cell = nullptr;
        const ReportFont* font = nullptr;
        double width = 0;
        /// A cell that shows one column and nothing else.
        bool isColumn = false;
        size_t column = 0;
        bool hasNumberFormat = false;
        /// The most characters that the format writes besides the number's own digits.
        qsizetype fixedPart = 0;
        /// Numbers with up to so many digits and signs never wrap.
        qsizetype safeDigits = 0;
        /// Every date has room.
        bool datesFit = false;
    };

    void Prepare(const BoundCell& cell, const TextPlace& place);
    static bool MayWrap(const Check& check, const Value& value);
    static bool Wraps(const Check& check, const TextPlace& place);

    const BoundBand& mBand;
    ReportFonts& mFonts;
    std::vector<Check> mChecks;
    bool mAlwaysWraps = false;
};
