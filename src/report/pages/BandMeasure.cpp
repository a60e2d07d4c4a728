#include "report/pages/BandMeasure.h"

#include "report/pages/FormatValue.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// Sums are whole numbers of 64 bits with a point, a sign and commas between.
constexpr qsizetype kLongestSum = 27;
/// The longest of dates: a Wednesday in September where names are written out, in October where the month is
/// a number without a zero before it, in the morning and in the evening. Other names may be a little wider.
constexpr std::array kLongestDates = {
    DateTime::Fields{2026, 9, 30, 10, 48, 48, 0}, DateTime::Fields{2026, 9, 30, 22, 48, 48, 0},
    DateTime::Fields{2026, 10, 28, 10, 48, 48, 0}, DateTime::Fields{2026, 10, 28, 22, 48, 48, 0}};
constexpr double kNameSlack = 1.15;
/// Beyond this the run-time writes numbers with an exponent.
constexpr double kLargestPlain = 1e15;

bool DependsOnRow(const BoundPiece& piece) {
    return piece.kind == BoundPiece::Kind::Sum || piece.kind == BoundPiece::Kind::Count ||
           piece.kind == BoundPiece::Kind::Field;
}

/// What a pattern writes at most besides the digits before the point and the commas between them.
qsizetype FixedPart(const QString& pattern) {
    const qsizetype point = pattern.indexOf(u'.');
    const QStringView whole = QStringView(pattern).left(point < 0 ? pattern.size() : point);
    // A percentage has two digits more than its number.
    return pattern.size() - whole.count(u'#') - whole.count(u',') + 2 * pattern.count(u'%');
}

/// The most characters of a number in a pattern: its digits before the point and one more for rounding up, a
/// comma for each three, a sign, and what the pattern adds.
qsizetype LongestNumber(qsizetype digits, qsizetype fixedPart) {
    return digits + 1 + (digits + 1) / 3 + 1 + fixedPart;
}

/// The digits of a decimal that count for its length: with a format those before the point.
qsizetype DigitsOf(const Decimal& decimal, bool hasFormat) {
    const qsizetype point = decimal.text.indexOf(u'.');
    return hasFormat && point >= 0 ? point : decimal.text.size();
}

/// The number without its sign. The smallest number has no counterpart above zero among those of its type.
quint64 MagnitudeOf(qint64 number) {
    return number < 0 ? 0 - static_cast<quint64>(number) : static_cast<quint64>(number);
}

qsizetype DigitsOf(quint64 number) {
    qsizetype digits = 1;
    for (; number >= 10; number /= 10)
        ++digits;
    return digits;
}

/// At least the width of every date in that format.
double WidestDate(const ReportFont& font, const QString& format) {
    double widest = 0;
    bool named = false;
    for (const DateTime::Fields& longest : kLongestDates) {
        QString text = FormatValue(*DateTime::FromFields(longest), format);
        named = named || std::any_of(text.begin(), text.end(), [](QChar c) {
                    return c.isLetter() && !QStringView(u"APMapm").contains(c);
                });
        const qsizetype length = text.size();
        text.removeIf([](QChar c) { return c.isDigit(); });
        widest = std::max(widest, font.Width(text) + double(length - text.size()) * font.WidestDigit());
    }
    return named ? widest * kNameSlack : widest;
}

} // namespace

BandMeasure::BandMeasure(const BoundBand& band, const TextPlace& place, ReportFonts& fonts)
    : mBand(band)
    , mFonts(fonts) {
    for (const BoundCell& cell : band.cells)
        Prepare(cell, place);
}

void BandMeasure::Prepare(const BoundCell& cell, const TextPlace& place) {
    if (cell.read->isBarcode)
        return;
    const QString& format = cell.read->format;
    const ReportFont& font = mFonts.Of(cell.read->style);
    Check check{.cell = &cell, .font = &font, .width = cell.read->box.width() - 2 * kCellPadding};
    if (std::none_of(cell.text.begin(), cell.text.end(), DependsOnRow)) {
        mAlwaysWraps |= Wraps(check, place);
        return;
    }
    check.safeDigits = qsizetype(check.width / font.WidestDigit());
    const BoundPiece& piece = cell.text.front();
    check.isColumn = cell.text.size() == 1 && piece.kind == BoundPiece::Kind::Field;
    if (check.isColumn) {
        check.column = piece.column;
        check.hasNumberFormat = IsNumberFormat(format);
        check.fixedPart = FixedPart(format);
        check.datesFit = WidestDate(font, format) <= check.width;
    } else if (cell.text.size() == 1 && check.safeDigits >= kLongestSum) {
        // A sum that has room at its longest need not be written out to know that it does not wrap.
        return;
    }
    mChecks.push_back(check);
}

double BandMeasure::HeightAt(const TextPlace& place) const {
    const RowData& rows = place.rows;
    const bool hasRow = place.row < rows.RowCount();
    const auto grows = [&](const Check& check) {
        if (check.isColumn && !(hasRow && MayWrap(check, rows.Cell(place.row, check.column))))
            return false;
        return Wraps(check, place);
    };
    if (mAlwaysWraps || std::any_of(mChecks.begin(), mChecks.end(), grows))
        return LayOutBand(mBand, place, mFonts).height;
    return mBand.read->height;
}

bool BandMeasure::Wraps(const Check& check, const TextPlace& place) {
    return check.font->Wraps(TextOf(*check.cell, place), check.width);
}

bool BandMeasure::MayWrap(const Check& check, const Value& value) {
    const QString& format = check.cell->read->format;
    const auto numberMayWrap = [&](qsizetype digits) {
        return LongestNumber(digits, check.fixedPart) > check.safeDigits;
    };
    if (const auto* text = std::get_if<QString>(&value.Get())) {
        if (check.hasNumberFormat && numberMayWrap(text->size()))
            return true;
        if (!format.isEmpty() && !check.hasNumberFormat)
            return !text->isEmpty();
        return !check.font->SurelyFits(*text, check.width);
    }
    if (const auto* decimal = std::get_if<Decimal>(&value.Get()))
        return numberMayWrap(DigitsOf(*decimal, check.hasNumberFormat));
    if (std::holds_alternative<DateTime>(value.Get()))
        return !check.datesFit;
    if (const auto* integer = std::get_if<qint64>(&value.Get()))
        return numberMayWrap(DigitsOf(MagnitudeOf(*integer)));
    if (const auto* number = std::get_if<double>(&value.Get()))
        return format.isEmpty() || !(std::fabs(*number) < kLargestPlain) ||
               numberMayWrap(DigitsOf(quint64(std::fabs(*number)) + 1));
    return !value.IsNull();
}
