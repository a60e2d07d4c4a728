#include "support/tds/TdsTypes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <stdexcept>

namespace {

constexpr int kIntN = 0x26;
constexpr int kBitN = 0x68;
constexpr int kFltN = 0x6D;
constexpr int kMoneyN = 0x6E;
constexpr int kDecimalN = 0x6A;
constexpr int kDateTimeN = 0x6F;
constexpr int kDateN = 0x28;
constexpr int kDateTime2N = 0x2A;
constexpr int kBigVarChar = 0xA7;
constexpr int kBigChar = 0xAF;
constexpr int kNVarChar = 0xE7;
constexpr int kMax = 0xFFFF;

bool IsMax(TdsType type) {
    return type == TdsType::VarCharMax || type == TdsType::NVarCharMax;
}

bool IsWide(TdsType type) {
    return type == TdsType::NVarChar || type == TdsType::NVarCharMax;
}

/// The bytes of a fixed-length value.
int SizeOf(const TdsColumn& column) {
    switch (column.type) {
    case TdsType::TinyInt:
    case TdsType::Bit:
        return 1;
    case TdsType::SmallInt:
        return 2;
    case TdsType::Int:
    case TdsType::Real:
    case TdsType::SmallMoney:
    case TdsType::SmallDateTime:
        return 4;
    case TdsType::Decimal:
        return column.precision <= 9 ? 5 : 9;
    case TdsType::DateTime2:
        return 7;
    case TdsType::Date:
        return 3;
    default:
        return 8;
    }
}

/// A decimal without its point, with that many digits behind it.
qint64 Scaled(const Value& value, int scale) {
    const auto* decimal = std::get_if<Decimal>(&value.Get());
    const QString text = decimal ? decimal->text : value.ToText();
    const qsizetype point = text.indexOf(u'.');
    const QString whole = point < 0 ? text : text.left(point);
    const QString part = point < 0 ? QString() : text.mid(point + 1);
    bool fits = false;
    const qint64 scaled = (whole + part.leftJustified(scale, u'0')).toLongLong(&fits);
    if (!fits || part.size() > scale)
        throw std::invalid_argument("the column cannot hold " + text.toStdString());
    return scaled;
}

/// Days since a day that lies that many days before the run-time's day 0, 1899-12-30.
qint64 DaysSince(const Value& value, qint64 before) {
    return value.ToDate().DayNumber() + before;
}

qint64 MillisecondsOfDay(const Value& value) {
    const DateTime moment = value.ToDate();
    return moment.Milliseconds() - moment.DateOnly().Milliseconds();
}

void WriteCollation(TdsBytes& bytes) {
    // SQL_Latin1_General_CP1_CI_AS, whose one-byte texts are in code page 1252.
    bytes.Raw(QByteArray::fromHex("0904d00034"));
}

/// The bytes of a text in the server's code page. It is Latin-1 but for the range of 32 signs that the latter
/// leaves to control characters.
QByteArray CodePage1252(const QString& text) {
    constexpr char16_t kFirst = 0x80;
    static constexpr std::array<char16_t, 32> kSigns = {
        u'€', 0x81, u'‚', u'ƒ', u'„', u'…', u'†', u'‡', u'ˆ', u'‰', u'Š', u'‹', u'Œ', 0x8D, u'Ž', 0x8F,
        0x90, u'‘', u'’', u'“', u'”', u'•', u'–', u'—', u'˜', u'™', u'š', u'›', u'œ', 0x9D, u'ž', u'Ÿ'};
    QByteArray bytes;
    for (const QChar c : text) {
        const auto* const sign = std::find(kSigns.begin(), kSigns.end(), c.unicode());
        if (sign != kSigns.end())
            bytes.append(static_cast<char>(kFirst + (sign - kSigns.begin())));
        else if (c.unicode() < kFirst || (c.unicode() >= 0xA0 && c.unicode() <= 0xFF))
            bytes.append(static_cast<char>(c.unicode()));
        else
            throw std::invalid_argument("not in the code page: " + text.toStdString());
    }
    return bytes;
}

QByteArray TextBytes(const TdsColumn& column, const QString& text) {
    if (IsWide(column.type))
        return WideBytes(text);
    QByteArray bytes = CodePage1252(text);
    if (column.type == TdsType::Char)
        bytes = bytes.leftJustified(column.length, ' ');
    return bytes;
}

bool IsText(TdsType type) {
    switch (type) {
    case TdsType::Char:
    case TdsType::VarChar:
    case TdsType::NVarChar:
    case TdsType::VarCharMax:
    case TdsType::NVarCharMax:
        return true;
    default:
        return false;
    }
}

void WriteTextCell(TdsBytes& bytes, const TdsColumn& column, const std::optional<QByteArray>& text) {
    if (IsMax(column.type)) {
        if (!text) {
            bytes.Number(~quint64(0), 8);
            return;
        }
        bytes.Number(quint64(text->size()), 8);
        if (!text->isEmpty()) {
            bytes.Number(quint64(text->size()), 4);
            bytes.Raw(*text);
        }
        bytes.Number(0, 4);
        return;
    }
    if (!text) {
        bytes.Number(kMax, 2);
        return;
    }
    bytes.Number(quint64(text->size()), 2);
    bytes.Raw(*text);
}

void WriteDecimal(TdsBytes& bytes, const TdsColumn& column, const Value& value) {
    const qint64 scaled = Scaled(value, column.scale);
    bytes.Byte(scaled < 0 ? 0 : 1);
    bytes.Number(quint64(scaled < 0 ? -scaled : scaled), SizeOf(column) - 1);
}

void WriteMoney(TdsBytes& bytes, const TdsColumn& column, const Value& value) {
    constexpr int kScale = 4;
    const auto scaled = quint64(Scaled(value, kScale));
    if (column.type == TdsType::SmallMoney) {
        bytes.Number(scaled, 4);
        return;
    }
    bytes.Number(scaled >> 32, 4);
    bytes.Number(scaled, 4);
}

void WriteMoment(TdsBytes& bytes, const TdsColumn& column, const Value& value) {
    constexpr qint64 kFirstOfYear1 = 693593;
    constexpr qint64 kFirstOf1900 = -2;
    if (column.type == TdsType::Date) {
        bytes.Number(quint64(DaysSince(value, kFirstOfYear1)), 3);
        return;
    }
    const qint64 milliseconds = MillisecondsOfDay(value);
    if (column.type == TdsType::DateTime2) {
        bytes.Number(quint64(milliseconds), 4);
        bytes.Number(quint64(DaysSince(value, kFirstOfYear1)), 3);
        return;
    }
    if (column.type == TdsType::SmallDateTime) {
        bytes.Number(quint64(DaysSince(value, kFirstOf1900)), 2);
        bytes.Number(quint64(milliseconds / 60000), 2);
        return;
    }
    bytes.Number(quint64(DaysSince(value, kFirstOf1900)), 4);
    // The type counts in three-hundredths of a second.
    bytes.Number(quint64(std::llround(double(milliseconds) * 0.3)), 4);
}

} // namespace

void TdsBytes::Number(quint64 value, int size) {
    for (int i = 0; i < size; ++i)
        Byte(static_cast<int>((value >> (8 * i)) & 0xFF));
}

void TdsBytes::Text(const QString& text, int lengthSize) {
    Number(quint64(text.size()), lengthSize);
    Raw(WideBytes(text));
}

QByteArray WideBytes(const QString& text) {
    QByteArray bytes;
    for (const QChar c : text) {
        bytes.append(static_cast<char>(c.cell()));
        bytes.append(static_cast<char>(c.row()));
    }
    return bytes;
}

QString WideText(const QByteArray& bytes) {
    QString text(bytes.size() / 2, u'\0');
    for (qsizetype i = 0; i < text.size(); ++i)
        text[i] = QChar(uchar(bytes[2 * i]), uchar(bytes[2 * i + 1]));
    return text;
}

void WriteType(TdsBytes& bytes, const TdsColumn& column) {
    switch (column.type) {
    case TdsType::TinyInt:
    case TdsType::SmallInt:
    case TdsType::Int:
    case TdsType::BigInt:
        bytes.Byte(kIntN);
        bytes.Byte(SizeOf(column));
        return;
    case TdsType::Bit:
        bytes.Byte(kBitN);
        bytes.Byte(1);
        return;
    case TdsType::Real:
    case TdsType::Float:
        bytes.Byte(kFltN);
        bytes.Byte(SizeOf(column));
        return;
    case TdsType::SmallMoney:
    case TdsType::Money:
        bytes.Byte(kMoneyN);
        bytes.Byte(SizeOf(column));
        return;
    case TdsType::Decimal:
        bytes.Byte(kDecimalN);
        bytes.Byte(SizeOf(column));
        bytes.Byte(column.precision);
        bytes.Byte(column.scale);
        return;
    case TdsType::SmallDateTime:
    case TdsType::DateTime:
        bytes.Byte(kDateTimeN);
        bytes.Byte(SizeOf(column));
        return;
    case TdsType::DateTime2:
        bytes.Byte(kDateTime2N);
        bytes.Byte(3);
        return;
    case TdsType::Date:
        bytes.Byte(kDateN);
        return;
    case TdsType::Char:
    case TdsType::VarChar:
        bytes.Byte(column.type == TdsType::Char ? kBigChar : kBigVarChar);
        bytes.Number(quint64(column.length), 2);
        break;
    case TdsType::NVarChar:
        bytes.Byte(kNVarChar);
        bytes.Number(2 * quint64(column.length), 2);
        break;
    case TdsType::VarCharMax:
    case TdsType::NVarCharMax:
        bytes.Byte(IsWide(column.type) ? kNVarChar : kBigVarChar);
        bytes.Number(kMax, 2);
        break;
    }
    WriteCollation(bytes);
}

void WriteCell(TdsBytes& bytes, const TdsColumn& column, const Value& value) {
    if (IsText(column.type)) {
        WriteTextCell(bytes, column,
                      value.IsNull() ? std::nullopt : std::optional(TextBytes(column, value.ToText())));
        return;
    }
    if (value.IsNull()) {
        bytes.Byte(0);
        return;
    }
    bytes.Byte(SizeOf(column));
    switch (column.type) {
    case TdsType::Bit:
        bytes.Byte(value.ToBoolean() ? 1 : 0);
        break;
    case TdsType::Real:
        bytes.Number(std::bit_cast<quint32>(float(value.ToDouble())), 4);
        break;
    case TdsType::Float:
        bytes.Number(std::bit_cast<quint64>(value.ToDouble()), 8);
        break;
    case TdsType::SmallMoney:
    case TdsType::Money:
        WriteMoney(bytes, column, value);
        break;
    case TdsType::Decimal:
        WriteDecimal(bytes, column, value);
        break;
    case TdsType::SmallDateTime:
    case TdsType::DateTime:
    case TdsType::DateTime2:
    case TdsType::Date:
        WriteMoment(bytes, column, value);
        break;
    default:
        bytes.Number(quint64(value.ToInteger()), SizeOf(column));
        break;
    }
}

void WriteRawCell(TdsBytes& bytes, const TdsColumn& column, const std::optional<QByteArray>& content) {
    if (IsText(column.type)) {
        // Characters of two bytes are never cut in half.
        const qsizetype most = IsMax(column.type) && content ? content->size() : column.length;
        const qsizetype width = IsWide(column.type) ? 2 : 1;
        WriteTextCell(
            bytes, column,
            content ? std::optional(
                          content->left(most * width).chopped(qMin(content->size(), most * width) % width))
                    : std::nullopt);
        return;
    }
    bytes.Byte(content ? SizeOf(column) : 0);
    if (content)
        bytes.Raw(content->leftJustified(SizeOf(column), '\0', true));
}
