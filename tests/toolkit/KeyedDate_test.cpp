#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "toolkit/KeyedDate.h"

#include <QRegularExpression>

#include <random>

using namespace Qt::StringLiterals;

// A date as it is keyed, without a window. In the texts of the cases "|" is the place of the next key.

namespace {

using Kind = DateReading::Kind;

KeyedDate At(const QString& marked) {
    QString text = marked;
    return {text.remove(u'|'), int(marked.indexOf(u'|')), -1};
}

QString Marked(const KeyedDate& keyed) {
    QString text = keyed.Text();
    return text.insert(keyed.Place(), u'|');
}

DateTime OnDay(int year, int month, int day) {
    return *DateTime::FromFields({.year = year, .month = month, .day = day});
}

} // namespace

struct KeysCase {
    const char* name;
    QString before;
    QString keys;
    QString after;
};

class KeyedDateKeys : public testing::TestWithParam<KeysCase> {};

TEST_P(KeyedDateKeys, GoToTheirPlaces) {
    KeyedDate keyed = At(GetParam().before);
    for (const QChar key : GetParam().keys)
        keyed.Key(key);
    EXPECT_EQ(Marked(keyed), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    IntoAnEmptyBox, KeyedDateKeys,
    testing::Values(KeysCase{"WithSlashes", u"|"_s, u"8/1/2026"_s, u"8/1/2026|"_s},
                    KeysCase{"WithSlashesAndZeros", u"|"_s, u"08/01/2026"_s, u"08/01/2026|"_s},
                    KeysCase{"DigitsAlone", u"|"_s, u"08012026"_s, u"08/01/2026|"_s},
                    KeysCase{"SlashBehindTheMonthAlone", u"|"_s, u"8/012026"_s, u"8/01/2026|"_s},
                    KeysCase{"SlashBehindTheDayAlone", u"|"_s, u"081/2026"_s, u"08/1/2026|"_s},
                    KeysCase{"ZeroInTheDayAlone", u"|"_s, u"8/01/2026"_s, u"8/01/2026|"_s},
                    KeysCase{"Hyphens", u"|"_s, u"8-1-2026"_s, u"8/1/2026|"_s},
                    KeysCase{"Points", u"|"_s, u"8.1.2026"_s, u"8/1/2026|"_s},
                    KeysCase{"Blanks", u"|"_s, u"8 1 2026"_s, u"8/1/2026|"_s},
                    KeysCase{"SlashTwice", u"|"_s, u"8//1//2026"_s, u"8/1/2026|"_s},
                    KeysCase{"SlashFirst", u"|"_s, u"/8/1"_s, u"8/1|"_s},
                    KeysCase{"SlashBehindTheYear", u"|"_s, u"8/1/2026/"_s, u"8/1/2026|"_s},
                    KeysCase{"SlashBehindAShortYear", u"|"_s, u"12/3/4/2026"_s, u"12/3/4/2026|"_s},
                    KeysCase{"SlashesWithoutEnd", u"|"_s, u"1/1/1/1/1/1"_s, u"1/1/1/111|"_s},
                    KeysCase{"NinthDigit", u"|"_s, u"080120265"_s, u"08/01/2026|"_s},
                    KeysCase{"Letters", u"|"_s, u"a8b/c1"_s, u"8/1|"_s},
                    KeysCase{"HalfADate", u"|"_s, u"081"_s, u"08/1|"_s}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    OverADate, KeyedDateKeys,
    testing::Values(KeysCase{"DigitsAlone", u"|11/21/1984"_s, u"08012026"_s, u"08/01/2026|"_s},
                    KeysCase{"WithSlashesAndZeros", u"|11/21/1984"_s, u"08/01/2026"_s, u"08/01/2026|"_s},
                    KeysCase{"WithSlashes", u"|11/21/1984"_s, u"8/1/2026"_s, u"8/1/2026|"_s},
                    KeysCase{"OneDigitOfTheYear", u"05/05/19|84"_s, u"9"_s, u"05/05/199|4"_s},
                    KeysCase{"MissingDigitOfTheYear", u"05/05/1|84"_s, u"9"_s, u"05/05/19|84"_s},
                    KeysCase{"SlashThatNoDigitCameBefore", u"1|1/21/1984"_s, u"/"_s, u"11/|21/1984"_s},
                    KeysCase{"BehindItsEnd", u"11/21/1984|"_s, u"5/"_s, u"11/21/1984|"_s},
                    KeysCase{"FromTheMonthsEnd", u"11|/21/1984"_s, u"3"_s, u"11/3|1/1984"_s}),
    CaseName());

TEST(KeyedDate, KeysThatAreTakenMakeNoOtherDateThanTheyWrite) {
    // Month and day with both digits, or ended by a slash; a slash more is none.
    const QRegularExpression written(u"^/*(\\d\\d/*|\\d/+)(\\d\\d/*|\\d/+)\\d{4}/*$"_s);
    std::mt19937 random(1);
    const QString keys = u"0012/1/"_s;
    int dates = 0;
    for (int i = 0; i < 100000; ++i) {
        QString keyed;
        for (int length = 6 + int(random() % 6); length > 0; --length)
            keyed += keys[int(random() % 7)];
        const std::optional<QString> laid = KeyedDate::Laid(keyed);
        if (!laid || ReadKeyedDate(*laid, LastDayOfTheServer()).kind != Kind::Day)
            continue;
        ++dates;
        ASSERT_TRUE(written.match(keyed).hasMatch()) << keyed.toStdString() << " as " << laid->toStdString();
        QString digits = *laid;
        ASSERT_EQ(digits.remove(u'/'), QString(keyed).remove(u'/'));
    }
    EXPECT_GT(dates, 500);
}

struct RemoveCase {
    const char* name;
    QString before;
    void (KeyedDate::*remove)();
    QString after;
};

class KeyedDateRemove : public testing::TestWithParam<RemoveCase> {};

TEST_P(KeyedDateRemove, TakesOutOneDigit) {
    KeyedDate keyed = At(GetParam().before);
    (keyed.*GetParam().remove)();
    EXPECT_EQ(Marked(keyed), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    Before, KeyedDateRemove,
    testing::Values(
        RemoveCase{"Digit", u"08/01/2026|"_s, &KeyedDate::RemoveBefore, u"08/01/202|"_s},
        RemoveCase{"SlashAtTheEnd", u"08/|"_s, &KeyedDate::RemoveBefore, u"08|"_s},
        RemoveCase{"DigitBeforeASlash", u"08/|01/2026"_s, &KeyedDate::RemoveBefore, u"0|/01/2026"_s},
        RemoveCase{"Nothing", u"|08/01/2026"_s, &KeyedDate::RemoveBefore, u"|08/01/2026"_s},
        RemoveCase{"NothingBeforeASlash", u"/|01/2026"_s, &KeyedDate::RemoveBefore, u"/|01/2026"_s},
        RemoveCase{"LastDigit", u"8|"_s, &KeyedDate::RemoveBefore, u"|"_s},
        RemoveCase{"LastDigitOfAll", u"8|//"_s, &KeyedDate::RemoveBefore, u"|"_s}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(
    Behind, KeyedDateRemove,
    testing::Values(RemoveCase{"Digit", u"|08/01/2026"_s, &KeyedDate::RemoveBehind, u"|8/01/2026"_s},
                    RemoveCase{"DigitBehindASlash", u"08|/01/2026"_s, &KeyedDate::RemoveBehind,
                               u"08/|1/2026"_s},
                    RemoveCase{"Nothing", u"08/01/2026|"_s, &KeyedDate::RemoveBehind, u"08/01/2026|"_s},
                    RemoveCase{"LastDigitOfAll", u"//|8"_s, &KeyedDate::RemoveBehind, u"|"_s}),
    CaseName());

TEST(KeyedDate, AStretchIsTakenOutAndSlashesWithSomethingBehindThemStay) {
    struct {
        int from;
        int to;
        QString after;
    } const cases[] = {{0, 10, u"|"_s},
                       {0, 2, u"|/01/2026"_s},
                       {1, 4, u"0|/1/2026"_s},
                       {3, 10, u"08/|"_s},
                       {0, 6, u"|//2026"_s}};
    for (const auto& one : cases) {
        KeyedDate keyed = At(u"08/01/2026|"_s);
        keyed.Remove(one.from, one.to);
        EXPECT_EQ(Marked(keyed), one.after) << one.from << " to " << one.to;
    }
}

TEST(KeyedDate, LaidTextIsThatOfItsKeysOrNone) {
    EXPECT_EQ(KeyedDate::Laid(u"08012026"_s), u"08/01/2026"_s);
    EXPECT_EQ(KeyedDate::Laid(u"8 1 2026"_s), u"8/1/2026"_s);
    for (const QString& text : {u"Aug 1, 2026"_s, u"080120265"_s, u"8/1/2026 10:30"_s})
        EXPECT_EQ(KeyedDate::Laid(text), std::nullopt) << text.toStdString();
}

struct ReadCase {
    const char* name;
    QString text;
    Kind kind;
    std::optional<DateTime> day = {};
};

class KeyedDateRead : public testing::TestWithParam<ReadCase> {};

TEST_P(KeyedDateRead, IsADayOrSaysWhatIsWrong) {
    const DateReading reading = ReadKeyedDate(GetParam().text, LastDayOfTheServer());
    EXPECT_EQ(reading.kind, GetParam().kind);
    EXPECT_EQ(reading.day, GetParam().day);
}

INSTANTIATE_TEST_SUITE_P(
    Days, KeyedDateRead,
    testing::Values(ReadCase{"Whole", u"08/01/2026"_s, Kind::Day, OnDay(2026, 8, 1)},
                    ReadCase{"WithoutZeros", u"8/1/2026"_s, Kind::Day, OnDay(2026, 8, 1)},
                    ReadCase{"WithoutSlashes", u"08012026"_s, Kind::Day, OnDay(2026, 8, 1)},
                    ReadCase{"LeapDay", u"2/29/1984"_s, Kind::Day, OnDay(1984, 2, 29)},
                    ReadCase{"FirstOfTheServer", u"01/01/1753"_s, Kind::Day, OnDay(1753, 1, 1)},
                    ReadCase{"LastOfTheServer", u"12/31/9999"_s, Kind::Day, OnDay(9999, 12, 31)}),
    CaseName());

INSTANTIATE_TEST_SUITE_P(None, KeyedDateRead,
                         testing::Values(ReadCase{"Empty", u""_s, Kind::Empty},
                                         ReadCase{"SlashesAlone", u"//"_s, Kind::Empty},
                                         ReadCase{"MonthAlone", u"08"_s, Kind::Unfinished},
                                         ReadCase{"OneDigit", u"0"_s, Kind::Unfinished},
                                         ReadCase{"MonthAndDay", u"08/01"_s, Kind::Unfinished},
                                         ReadCase{"MonthAndDayWithoutSlash", u"0801"_s, Kind::Unfinished},
                                         ReadCase{"NoYearYet", u"08/01/"_s, Kind::Unfinished},
                                         ReadCase{"LeapDayOfNoYearYet", u"02/29/"_s, Kind::Unfinished},
                                         ReadCase{"NoMonth", u"/01/2026"_s, Kind::Unfinished},
                                         ReadCase{"NoDay", u"08//2026"_s, Kind::Unfinished},
                                         ReadCase{"TwoDigitsOfTheYear", u"8/1/26"_s, Kind::ShortYear},
                                         ReadCase{"ThreeDigitsOfTheYear", u"8/1/202"_s, Kind::ShortYear},
                                         ReadCase{"Month13", u"13/45/2026"_s, Kind::NoSuchDay},
                                         ReadCase{"Month13Alone", u"13"_s, Kind::NoSuchDay},
                                         ReadCase{"MonthZero", u"0/1"_s, Kind::NoSuchDay},
                                         ReadCase{"DayFirst", u"21/11/2026"_s, Kind::NoSuchDay},
                                         ReadCase{"Day32", u"12/32"_s, Kind::NoSuchDay},
                                         ReadCase{"DayZero", u"12/00/2026"_s, Kind::NoSuchDay},
                                         ReadCase{"February30", u"02/30/"_s, Kind::NoSuchDay},
                                         ReadCase{"February30OfAYear", u"02/30/2026"_s, Kind::NoSuchDay},
                                         ReadCase{"June31", u"6/31"_s, Kind::NoSuchDay},
                                         ReadCase{"NoLeapYear", u"02/29/1985"_s, Kind::NoSuchDay},
                                         ReadCase{"FourParts", u"1/1/20/26"_s, Kind::NoSuchDay},
                                         ReadCase{"PartTooLong", u"01/2026"_s, Kind::NoSuchDay},
                                         ReadCase{"FiveDigitsOfTheYear", u"1/1/20266"_s, Kind::NoSuchDay},
                                         ReadCase{"Letters", u"a1/1/2026"_s, Kind::NoSuchDay},
                                         ReadCase{"DayBeforeTheServers", u"12/31/1752"_s, Kind::OutOfRange},
                                         ReadCase{"YearZero", u"01/01/0000"_s, Kind::OutOfRange}),
                         CaseName());

TEST(DateReading, ADayBehindTheLastOneIsOutOfRange) {
    EXPECT_EQ(ReadKeyedDate(u"12/31/9998"_s, OnDay(9998, 12, 31)).kind, Kind::Day);
    EXPECT_EQ(ReadKeyedDate(u"01/01/9999"_s, OnDay(9998, 12, 31)).kind, Kind::OutOfRange);
}

TEST(DateReading, TellsWhatIsWrongAndWhatNoKeyMends) {
    const auto reading = [](const QString& text) { return ReadKeyedDate(text, LastDayOfTheServer()); };
    for (const QString& text : {u""_s, u"08/01/2026"_s})
        EXPECT_FALSE(reading(text).IsWrong()) << text.toStdString();
    for (const QString& text : {u"08/01"_s, u"8/1/26"_s}) {
        EXPECT_TRUE(reading(text).IsWrong()) << text.toStdString();
        EXPECT_FALSE(reading(text).IsHopeless()) << text.toStdString();
    }
    for (const QString& text : {u"13"_s, u"12/31/1752"_s}) {
        EXPECT_TRUE(reading(text).IsWrong()) << text.toStdString();
        EXPECT_TRUE(reading(text).IsHopeless()) << text.toStdString();
    }
}

TEST(InDateMask, ShowsEachPartInItsPlaces) {
    const std::pair<QString, QString> cases[] = {
        {u""_s, u"  /  /    "_s},           {u"8/1/2026"_s, u"08/01/2026"_s},
        {u"08/01/2026"_s, u"08/01/2026"_s}, {u"8"_s, u"8 /  /    "_s},
        {u"02/2"_s, u"02/2 /    "_s},       {u"022"_s, u"02/2 /    "_s},
        {u"8/1/26"_s, u"8 /1 /26  "_s},     {u"02/30/1984"_s, u"02/30/1984"_s},
        {u"//2026"_s, u"  /  /2026"_s}};
    for (const auto& [text, masked] : cases)
        EXPECT_EQ(InDateMask(text), masked) << text.toStdString();
}
