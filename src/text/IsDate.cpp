#include "text/IsDate.h"

#include "text/Clock.h"

#include <QList>
#include <QString>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Token {
    enum class Kind { Number, Word, Separator };
    Kind kind = Kind::Separator;
    QStringView text;
    int Number() const { return text.toInt(); }
    bool Is(Kind wanted) const { return kind == wanted; }
    bool IsSeparator(QChar c) const { return kind == Kind::Separator && text == c; }
};

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// Numbers, words and single separators; blanks only part them. Empty when a character belongs to none.
QList<Token> Tokens(QStringView text) {
    QList<Token> tokens;
    qsizetype i = 0;
    while (i < text.size()) {
        const QChar c = text[i];
        qsizetype end = i + 1;
        Token::Kind kind = Token::Kind::Separator;
        if (c.isSpace()) {
            i = end;
            continue;
        }
        if (IsDigit(c) || c.isLetter()) {
            kind = IsDigit(c) ? Token::Kind::Number : Token::Kind::Word;
            while (end < text.size() && (IsDigit(c) ? IsDigit(text[end]) : text[end].isLetter()))
                ++end;
        } else if (!"/-.,:"_L1.contains(c)) {
            return {};
        }
        tokens.append({kind, text.mid(i, end - i)});
        i = end;
    }
    return tokens;
}

constexpr std::array kMonthNames = {"january", "february", "march",     "april",   "may",      "june",
                                    "july",    "august",   "september", "october", "november", "december"};

/// 1 to 12 for a month's English name or its first three letters, else 0.
int MonthOf(QStringView word) {
    for (size_t i = 0; i < kMonthNames.size(); ++i) {
        const QLatin1StringView name(kMonthNames[i]);
        if (word.compare(name, Qt::CaseInsensitive) == 0 ||
            word.compare(name.first(3), Qt::CaseInsensitive) == 0)
            return static_cast<int>(i) + 1;
    }
    return 0;
}

/// A year as written: two digits mean 1930 to 2029.
int YearOf(const Token& token) {
    const int number = token.Number();
    if (token.text.size() > 2)
        return number;
    return number < 30 ? 2000 + number : 1900 + number;
}

/// Reads a date and a time off a token list, in either order, each at most once.
class DateReader {
  public:
    explicit DateReader(const QList<Token>& tokens)
        : mTokens(tokens) {}

    std::optional<DateTime> Read() {
        if (mTokens.isEmpty())
            return std::nullopt;
        bool dateSeen = false;
        bool timeSeen = false;
        while (mAt < mTokens.size()) {
            if (!timeSeen && AtTime()) {
                if (!ReadTime())
                    return std::nullopt;
                timeSeen = true;
            } else if (!dateSeen && ReadDate()) {
                dateSeen = true;
            } else {
                return std::nullopt;
            }
        }
        return DateTime::FromFields(mFields);
    }

  private:
    const Token* Peek(qsizetype ahead = 0) const {
        return mAt + ahead < mTokens.size() ? &mTokens[mAt + ahead] : nullptr;
    }
    bool PeekIs(qsizetype ahead, Token::Kind kind) const { return Peek(ahead) && Peek(ahead)->Is(kind); }
    bool PeekSeparator(qsizetype ahead, QChar c) const { return Peek(ahead) && Peek(ahead)->IsSeparator(c); }
    bool PeekMeridiem(qsizetype ahead) const {
        return PeekIs(ahead, Token::Kind::Word) &&
               (Peek(ahead)->text.compare("am"_L1, Qt::CaseInsensitive) == 0 ||
                Peek(ahead)->text.compare("pm"_L1, Qt::CaseInsensitive) == 0);
    }

    bool AtTime() const {
        return PeekIs(0, Token::Kind::Number) && (PeekSeparator(1, u':') || PeekMeridiem(1));
    }

    bool ReadTime() {
        mFields.hour = mTokens[mAt++].Number();
        for (int* part : {&mFields.minute, &mFields.second}) {
            if (!PeekSeparator(0, u':'))
                break;
            if (!PeekIs(1, Token::Kind::Number))
                return false;
            *part = mTokens[mAt + 1].Number();
            mAt += 2;
        }
        if (!PeekMeridiem(0))
            return true;
        const bool afternoon = mTokens[mAt++].text.front().toLower() == u'p';
        if (mFields.hour < 1 || mFields.hour > 12)
            return false;
        mFields.hour = mFields.hour % 12 + (afternoon ? 12 : 0);
        return true;
    }

    bool ReadDate() {
        if (PeekIs(0, Token::Kind::Word))
            return ReadMonthName();
        if (!PeekIs(0, Token::Kind::Number))
            return false;
        const bool nameFollows =
            PeekIs(1, Token::Kind::Word) || (PeekSeparator(1, u'-') && PeekIs(2, Token::Kind::Word));
        return nameFollows ? ReadDayMonthName() : ReadNumbers();
    }

    /// "Nov 21, 2026", "November 2026", "Nov 21".
    bool ReadMonthName() {
        mFields.month = MonthOf(mTokens[mAt++].text);
        if (mFields.month == 0 || !PeekIs(0, Token::Kind::Number))
            return false;
        const Token first = mTokens[mAt++];
        if (first.text.size() > 2) {
            mFields.day = 1;
            mFields.year = YearOf(first);
            return true;
        }
        mFields.day = first.Number();
        if (PeekSeparator(0, u',') || PeekSeparator(0, u'-'))
            ++mAt;
        return ReadOptionalYear();
    }

    /// "21 November 2026", "21-Nov-2026", "21 Nov".
    bool ReadDayMonthName() {
        mFields.day = mTokens[mAt++].Number();
        if (PeekSeparator(0, u'-'))
            ++mAt;
        mFields.month = MonthOf(mTokens[mAt++].text);
        if (PeekSeparator(0, u',') || PeekSeparator(0, u'-'))
            ++mAt;
        return mFields.month != 0 && ReadOptionalYear();
    }

    bool ReadOptionalYear() {
        if (PeekIs(0, Token::Kind::Number) && !AtTime())
            mFields.year = YearOf(mTokens[mAt++]);
        else
            mFields.year = Today().ToFields().year;
        return true;
    }

    /// "11/21/2026", "2026-11-21", "11/21".
    bool ReadNumbers() {
        const QChar separator =
            Peek(1) && Peek(1)->Is(Token::Kind::Separator) ? Peek(1)->text.front() : QChar();
        if (!"/-."_L1.contains(separator) || separator.isNull() || !PeekIs(2, Token::Kind::Number))
            return false;
        const Token first = mTokens[mAt];
        const Token second = mTokens[mAt + 2];
        mAt += 3;
        if (!PeekSeparator(0, separator)) {
            SetMonthAndDay(first.Number(), second.Number());
            mFields.year = Today().ToFields().year;
            return true;
        }
        if (!PeekIs(1, Token::Kind::Number))
            return false;
        const Token third = mTokens[mAt + 1];
        mAt += 2;
        if (first.text.size() > 2) {
            mFields.year = YearOf(first);
            mFields.month = second.Number();
            mFields.day = third.Number();
            return true;
        }
        SetMonthAndDay(first.Number(), second.Number());
        mFields.year = YearOf(third);
        return true;
    }

    /// Month first as in this hospital's country, unless the first number cannot be a month.
    void SetMonthAndDay(int first, int second) {
        const bool dayFirst = first > 12 && second <= 12;
        mFields.month = dayFirst ? second : first;
        mFields.day = dayFirst ? first : second;
    }

    QList<Token> mTokens;
    qsizetype mAt = 0;
    DateTime::Fields mFields;
};

} // namespace

std::optional<DateTime> ParseDate(QStringView text) {
    return DateReader(Tokens(text)).Read();
}

bool IsDate(QStringView text) {
    return ParseDate(text).has_value();
}
