#include "report/pages/ReportSums.h"

#include "text/RunTimeError.h"
#include "text/Val.h"

#include <cmath>

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
    void Add(qint64 units) { mFits &= !__builtin_add_overflow(mUnits, units, &mUnits); }
    void TimesTen() { mFits &= !__builtin_mul_overflow(mUnits, qint64(10), &mUnits); }
    /// Raises 6 when the number has not fitted.
    qint64 Get() const {
        if (!mFits)
            throw RunTime::Error(RunTime::kOverflow);
        return mUnits;
    }

  private:
    qint64 mUnits = 0;
    bool mFits = true;
};

qint64 ToUnits(double number) {
    const double units = std::round(number * kUnit);
    if (!(std::fabs(units) < kMostUnits))
        throw RunTime::Error(RunTime::kOverflow);
    return qint64(units);
}

/// The digits of an exact decimal, without the way over a double, which is inexact and slow.
qint64 ToUnits(const QString& decimal) {
    Units units;
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
    return decimal.startsWith(u'-') ? -units.Get() : units.Get();
}

qint64 ToUnits(const Value& value) {
    if (const auto* decimal = std::get_if<Decimal>(&value.Get()))
        return ToUnits(decimal->text);
    if (const auto* text = std::get_if<QString>(&value.Get()))
        return ToUnits(Val(*text));
    return value.IsNull() ? 0 : ToUnits(value.ToDouble());
}

Value AddUp(const RowData& rows, size_t column, size_t firstRow, size_t endRow) {
    Units sum;
    for (size_t row = firstRow; row < endRow; ++row)
        sum.Add(ToUnits(rows.Cell(row, column)));
    const QString all = QString::number(sum.Get());
    const bool negative = all.startsWith(u'-');
    const QString digits = all.sliced(negative ? 1 : 0).rightJustified(kDecimals + 1, u'0');
    return Decimal{(negative ? u"-"_s : QString()) + digits.chopped(kDecimals) + u'.' +
                   digits.last(kDecimals)};
}

} // namespace

const Value& ReportSums::Of(const RowData& rows, size_t column, size_t firstRow, size_t endRow) {
    Value& sum = mKnown[{column, firstRow, endRow}];
    if (sum.IsNull())
        sum = AddUp(rows, column, firstRow, endRow);
    return sum;
}
