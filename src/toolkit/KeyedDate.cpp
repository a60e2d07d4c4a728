#include "toolkit/KeyedDate.h"

#include "text/Format.h"

#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using Kind = DateReading::Kind;

constexpr QChar kSlash = u'/';
/// What people write between the parts.
constexpr auto kSeparators = "/-. "_L1;
/// The digits of each part.
constexpr std::array kDigits = {2, 2, 4};
constexpr int kSlashes = 2;
constexpr int kMonths = 12;
constexpr int kMostDays = 31;
/// A month alone has as many days as in a leap year.
constexpr int kLeapYear = 2000;

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool IsEmptied(const QString& text) {
    return std::ranges::none_of(text, IsDigit);
}

/// The keyed parts. Without a slash the digits alone tell where they end.
QStringList PartsOf(const QString& text) {
    QStringList parts = text.split(kSlash);
    if (parts.size() == 1 && text.size() > kDigits[KeyedDate::Month]) {
        const int dayEnd = kDigits[KeyedDate::Month] + kDigits[KeyedDate::Day];
        parts = {text.left(kDigits[KeyedDate::Month]),
                 text.mid(kDigits[KeyedDate::Month], kDigits[KeyedDate::Day]), text.mid(dayEnd)};
    }
    return parts;
}

bool Fits(const QStringList& parts) {
    if (parts.size() > qsizetype(kDigits.size()))
        return false;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (parts[i].size() > kDigits[size_t(i)] || !std::ranges::all_of(parts[i], IsDigit))
            return false;
    }
    return true;
}

/// Whether a month or a day that no digit is keyed to any more lies outside of its numbers.
bool IsOutside(const QStringList& parts, KeyedDate::Part part, int most) {
    const QString text = parts.value(part);
    const bool isDone = text.size() == kDigits[part] || (!text.isEmpty() && parts.size() > part + 1);
    return isDone && (text.toInt() < 1 || text.toInt() > most);
}

int DaysOf(int month) {
    int days = kMostDays;
    while (month >= 1 && month <= kMonths &&
           !DateTime::FromFields({.year = kLeapYear, .month = month, .day = days}))
        --days;
    return days;
}

} // namespace

KeyedDate::KeyedDate(const QString& text, int place, int keyedTo)
    : mText(text)
    , mPlace(place)
    , mKeyedTo(keyedTo) {}

KeyedDate::Part KeyedDate::PartAtPlace() const {
    return Part(std::min<qsizetype>(mText.left(mPlace).count(kSlash), Year));
}

int KeyedDate::PartBegin() const {
    return mPlace == 0 ? 0 : int(mText.lastIndexOf(kSlash, mPlace - 1)) + 1;
}

int KeyedDate::PartEnd() const {
    const qsizetype slash = mText.indexOf(kSlash, mPlace);
    return int(slash < 0 ? mText.size() : slash);
}

bool KeyedDate::Key(QChar c) {
    if (IsDigit(c))
        return KeyDigit(c);
    return kSeparators.contains(c) && KeySlash();
}

bool KeyedDate::KeyDigit(QChar digit) {
    const Part part = PartAtPlace();
    const bool isFull = PartEnd() - PartBegin() >= kDigits[part];
    if (isFull && mPlace == PartEnd()) {
        if (part == Year)
            return false;
        if (mPlace == mText.size())
            mText += kSlash;
        ++mPlace;
        return KeyDigit(digit);
    }
    mText.replace(mPlace, isFull ? 1 : 0, digit);
    mKeyedTo = ++mPlace;
    return true;
}

bool KeyedDate::KeySlash() {
    // A second slash is the one that stands there already.
    if (mPlace == PartBegin())
        return true;
    // What is left of the number that was keyed over is not meant any more.
    if (mPlace == mKeyedTo)
        mText.remove(mPlace, PartEnd() - mPlace);
    mPlace = PartEnd();
    // A whole year is the end of the date. In a shorter one the slash stands, so that no digits behind it
    // make a year of it.
    if (PartAtPlace() == Year && mPlace - PartBegin() >= kDigits[Year])
        return true;
    if (mPlace == mText.size()) {
        if (mText.count(kSlash) > kSlashes)
            return false;
        mText += kSlash;
    }
    ++mPlace;
    return true;
}

void KeyedDate::Remove(int from, int to) {
    const QString stretch = mText.mid(from, to - from);
    const bool isEnd = to == mText.size();
    mText.replace(from, to - from, isEnd ? QString() : QString(stretch.count(kSlash), kSlash));
    mPlace = from;
    mKeyedTo = -1;
    if (IsEmptied(mText)) {
        mText.clear();
        mPlace = 0;
    }
}

void KeyedDate::RemoveBefore() {
    const bool behindSlash = mPlace > 0 && mText[mPlace - 1] == kSlash;
    const int end = behindSlash && mPlace < mText.size() ? mPlace - 1 : mPlace;
    if (end > 0)
        Remove(end - 1, end);
}

void KeyedDate::RemoveBehind() {
    const bool beforeSlash = mPlace < mText.size() && mText[mPlace] == kSlash;
    const int begin = beforeSlash ? mPlace + 1 : mPlace;
    if (begin < mText.size())
        Remove(begin, begin + 1);
}

std::optional<QString> KeyedDate::Laid(const QString& text) {
    KeyedDate laid({}, 0, -1);
    for (const QChar c : text) {
        if (!laid.Key(c))
            return std::nullopt;
    }
    return laid.Text();
}

DateTime FirstDayOfTheServer() {
    return *DateTime::FromFields({.year = 1753, .month = 1, .day = 1});
}

DateTime LastDayOfTheServer() {
    return *DateTime::FromFields({.year = 9999, .month = 12, .day = 31});
}

DateReading ReadKeyedDate(const QString& text, DateTime last) {
    if (IsEmptied(text))
        return {Kind::Empty, {}};
    const QStringList parts = PartsOf(text);
    const int month = parts.value(KeyedDate::Month).toInt();
    if (!Fits(parts) || IsOutside(parts, KeyedDate::Month, kMonths) ||
        IsOutside(parts, KeyedDate::Day, DaysOf(month)))
        return {Kind::NoSuchDay, {}};
    const QString year = parts.value(KeyedDate::Year);
    if (parts[KeyedDate::Month].isEmpty() || parts.value(KeyedDate::Day).isEmpty() || year.isEmpty())
        return {Kind::Unfinished, {}};
    if (year.size() < kDigits[KeyedDate::Year])
        return {Kind::ShortYear, {}};
    const auto day =
        DateTime::FromFields({.year = year.toInt(), .month = month, .day = parts[KeyedDate::Day].toInt()});
    if (year.toInt() == 0 || (day && (*day < FirstDayOfTheServer() || *day > last)))
        return {Kind::OutOfRange, {}};
    return {day ? Kind::Day : Kind::NoSuchDay, day};
}

QString InDateMask(const QString& text) {
    if (const DateReading reading = ReadKeyedDate(text, LastDayOfTheServer()); reading.day)
        return Format(*reading.day, u"mm/dd/yyyy");
    QStringList parts = PartsOf(text);
    while (parts.size() < qsizetype(kDigits.size()))
        parts << QString();
    for (size_t i = 0; i < kDigits.size(); ++i)
        parts[qsizetype(i)] = parts[qsizetype(i)].leftJustified(kDigits[i]);
    return parts.join(kSlash);
}
