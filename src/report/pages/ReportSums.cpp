#include "report/pages/ReportSums.h"

#include "text/RunTimeError.h"
#include "text/Val.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Sums are kept in ten-thousandths, as the server keeps money.
constexpr int kDecimals = 4;
constexpr double kUnit = 10000;
/// Below the largest whole number of 64 bits.
constexpr double kMostUnits = 9e18;

/// Adds up without leaving the range of the whole numbers unseen.
class Units {
  public:
    Units() = default;
    explicit Units(double number) {
        const double units = std::round(number * kUnit);
        mFits = std::fabs(units) < kMostUnits;
        mUnits = mFits ? qint64(units) : 0;
    }

    void Add(qint64 units) { mFits &= !__builtin_add_overflow(mUnits, units, &mUnits); }
    void TimesTen() { mFits &= !__builtin_mul_overflow(mUnits, qint64(10), &mUnits); }
    void Negate() { mUnits = mFits ? -mUnits : 0; }
    qint64 Get() const { return mUnits; }
    bool Fits() const { return mFits; }

  private:
    qint64 mUnits = 0;
    bool mFits = true;
};

/// A number without a look at its range, for texts that are too short to leave it.
class ShortUnits {
  public:
    void Add(qint64 units) { mUnits += units; }
    void TimesTen() { mUnits *= 10; }
    void Negate() { mUnits = -mUnits; }
    qint64 Get() const { return mUnits; }

  private:
    qint64 mUnits = 0;
};

/// This many digits and the decimals fit into 64 bits.
constexpr qsizetype kShortText = 14;

/// The digits of an exact decimal, without the way over a double, which is inexact and slow.
template <class Number> Number DigitsOf(const QString& decimal) {
    Number units;
    int decimals = -1;
    for (const QChar c : decimal) {
        if (c == u'.') {
            decimals = 0;
        } else if (c >= u'0' && c <= u'9' && decimals < kDecimals) {
            units.TimesTen();
            units.Add(c.unicode() - u'0');
            decimals += decimals >= 0 ? 1 : 0;
        }
    }
    for (int i = decimals < 0 ? 0 : decimals; i < kDecimals; ++i)
        units.TimesTen();
    if (decimal.startsWith(u'-'))
        units.Negate();
    return units;
}

Units ToUnits(const QString& decimal) {
    if (decimal.size() > kShortText)
        return DigitsOf<Units>(decimal);
    Units units;
    units.Add(DigitsOf<ShortUnits>(decimal).Get());
    return units;
}

Units ToUnits(const Value& value) {
    if (const auto* decimal = std::get_if<Decimal>(&value.Get()))
        return ToUnits(decimal->text);
    if (const auto* text = std::get_if<QString>(&value.Get()))
        return Units(Val(*text));
    return value.IsNull() ? Units() : Units(value.ToDouble());
}

Decimal ToDecimal(qint64 units) {
    const QString all = QString::number(units);
    const bool negative = all.startsWith(u'-');
    const QString digits = all.sliced(negative ? 1 : 0).rightJustified(kDecimals + 1, u'0');
    return {(negative ? u"-"_s : QString()) + digits.chopped(kDecimals) + u'.' + digits.last(kDecimals)};
}

} // namespace

ReportSums::ReportSums(const RowData& rows, std::vector<size_t> columns, std::vector<RowRun> runs)
    : mColumns(std::move(columns))
    , mRuns(std::move(runs)) {
    std::ranges::sort(mRuns);
    mRuns.erase(std::unique(mRuns.begin(), mRuns.end()), mRuns.end());
    mSums.resize(mColumns.size() * mRuns.size());
    for (size_t i = 0; i < mColumns.size(); ++i)
        AddUp(rows, mColumns[i], mSums.data() + i * mRuns.size());
}

/// Reads each cell once, for all runs that it lies in.
void ReportSums::AddUp(const RowData& rows, size_t column, Sum* sums) const {
    std::vector<size_t> open;
    size_t next = 0;
    for (size_t row = 0; row < rows.RowCount(); ++row) {
        for (; next < mRuns.size() && mRuns[next].first == row; ++next)
            open.push_back(next);
        std::erase_if(open, [&](size_t run) { return mRuns[run].end <= row; });
        if (open.empty())
            continue;
        const Units units = ToUnits(rows.Cell(row, column));
        for (const size_t run : open) {
            Sum& sum = sums[run];
            sum.fits &= units.Fits() && !__builtin_add_overflow(sum.units, units.Get(), &sum.units);
        }
    }
}

Value ReportSums::Of(size_t column, size_t firstRow, size_t endRow) const {
    const RowRun run{static_cast<quint32>(firstRow), static_cast<quint32>(endRow)};
    const auto at = std::ranges::lower_bound(mRuns, run);
    const auto of = std::ranges::find(mColumns, column);
    if (at == mRuns.end() || *at != run || of == mColumns.end())
        throw std::logic_error("A sum is asked for that was not added up.");
    const Sum& sum = mSums[static_cast<size_t>(of - mColumns.begin()) * mRuns.size() +
                           static_cast<size_t>(at - mRuns.begin())];
    if (!sum.fits)
        throw RunTime::Error(RunTime::kOverflow);
    return ToDecimal(sum.units);
}
