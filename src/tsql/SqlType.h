#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

/// A column's, parameter's or expression's type in the server's language.
struct SqlType {
    /// In the server's order of precedence: where two kinds meet, the later one wins.
    enum class Kind {
        /// The literal NULL.
        Null,
        Char,
        VarChar,
        NVarChar,
        Bit,
        Int,
        BigInt,
        Money,
        Decimal,
        Float,
        Date,
        DateTime,
    };

    /// The length of a text that may be of any length.
    static constexpr int kUnbounded = -1;

    /// The most digits that a whole number of 64 bits holds, whichever they are.
    static constexpr int kNarrowDigits = 18;
    /// The longest texts.
    static constexpr int kMostText = 8000;
    static constexpr int kMostNational = 4000;

    Kind kind = Kind::Null;
    /// Characters of a text.
    int length = kUnbounded;
    /// All digits of a decimal, and those behind the point. Money has 19 and 4.
    int precision = 0;
    int scale = 0;

    static SqlType Text(int length = kUnbounded) { return {Kind::VarChar, length, 0, 0}; }
    static SqlType Bit() { return {Kind::Bit, 0, 1, 0}; }
    static SqlType Int() { return {Kind::Int, 0, 10, 0}; }
    static SqlType BigInt() { return {Kind::BigInt, 0, 19, 0}; }
    static SqlType Money() { return {Kind::Money, 0, 19, 4}; }
    /// Precision and scale are brought down to what the server can hold.
    static SqlType Decimal(int precision, int scale);
    static SqlType Float() { return {Kind::Float, 0, 0, 0}; }
    static SqlType Date() { return {Kind::Date, 0, 0, 0}; }
    static SqlType DateTime() { return {Kind::DateTime, 0, 0, 0}; }

    /// The type of that name in the server's language, letter case aside; texts and decimals get their
    /// default size. Nothing for an unknown name.
    static std::optional<SqlType> Named(QStringView name);

    bool IsNull() const { return kind == Kind::Null; }
    bool IsText() const { return kind == Kind::Char || kind == Kind::VarChar || kind == Kind::NVarChar; }
    bool IsWhole() const { return kind == Kind::Bit || kind == Kind::Int || kind == Kind::BigInt; }
    /// Money and decimal: a fixed number of digits behind the point.
    bool IsFixed() const { return kind == Kind::Money || kind == Kind::Decimal; }
    /// A decimal whose units a whole number of 64 bits may not hold.
    bool IsWide() const { return kind == Kind::Decimal && precision > kNarrowDigits; }
    bool IsNumber() const { return IsWhole() || IsFixed() || kind == Kind::Float; }
    bool IsDate() const { return kind == Kind::Date || kind == Kind::DateTime; }

    /// Characters that a text may have which is made of others: what goes beyond is cut.
    int MostCharacters() const { return kind == Kind::NVarChar ? kMostNational : kMostText; }

    /// The type's name as the server writes it in its error texts.
    QString Name() const;

    /// The type as one number, for a function inside a statement; Decode reverses it.
    qint64 Encode() const;
    static SqlType Decode(qint64 code);

    friend bool operator==(const SqlType&, const SqlType&) = default;
};

/// The name of the hospital's collation, in its scripts and in its file.
QString CollationName();

/// The type of a whole number whose digits are not known: the same kind with all the digits that it may have.
SqlType AnyWhole(const SqlType& type);

/// The type in which two expressions meet in a comparison, a CASE or a COALESCE.
SqlType CommonType(const SqlType& a, const SqlType& b);
