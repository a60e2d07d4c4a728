#include "tsql/CommandShape.h"

#include "tsql/ArithmeticType.h"
#include "tsql/Units.h"

#include <algorithm>

namespace {

constexpr int kMostInText = 8000;
constexpr int kMostInNationalText = 4000;

/// Whether it is a literal that may be another one without anything else being so. 0 and 1 are flags mostly,
/// and SQLite plans by them; a number that is too large is an error of its own, behind those of the syntax.
bool IsLiteral(const Token& token) {
    if (token.kind != TokenKind::Number)
        return token.kind == TokenKind::Text;
    return token.written != u"0" && token.written != u"1" && token.written.size() <= kMostDigits &&
           !token.written.contains(u'e', Qt::CaseInsensitive);
}

bool ComparesExpressions(const Token& token) {
    return token.Is(u"group") || token.Is(u"distinct");
}

} // namespace

CommandShape::CommandShape(QStringView text)
    : mTokens(LexSql(text))
    , mLiteralCount(std::count_if(mTokens.begin(), mTokens.end(), IsLiteral)) {
    mKey.reserve(text.size() + 2 * static_cast<qsizetype>(mTokens.size()));
    const bool counted = CountsLiterals();
    for (Token& token : mTokens) {
        // With its kind in front, as a character that no word has, no piece can be taken for another one.
        mKey += QChar(1 + static_cast<int>(token.kind));
        if (counted && IsLiteral(token))
            TakeLiteral(token);
        else
            mKey += token.written;
    }
}

bool CommandShape::CountsLiterals() const {
    return !IsOneOfAKind() && std::none_of(mTokens.begin(), mTokens.end(), ComparesExpressions);
}

void CommandShape::TakeLiteral(Token& token) {
    token.literal = static_cast<int>(mLiterals.size());
    if (token.kind == TokenKind::Number) {
        const auto [value, type] = NumberLiteral(token.written.toString());
        mLiterals.push_back({value, type});
    } else {
        const QString text = token.Content();
        mLiterals.push_back({text.toUtf8(), TextLiteralType(text, token.national)});
    }
    mKey += QString::number(mLiterals.back().type.Encode());
}

QString CommandShape::KeyWith(const std::set<int>& literals) const {
    QString key = mKey;
    for (const Token& token : mTokens) {
        if (literals.contains(token.literal))
            key += u' ' + QString::number(token.literal) + u':' + token.written.toString();
    }
    return key;
}

SqlType TextLiteralType(const QString& text, bool national) {
    const auto kind = national ? SqlType::Kind::NVarChar : SqlType::Kind::VarChar;
    const int most = national ? kMostInNationalText : kMostInText;
    return {kind, text.size() > most ? SqlType::kUnbounded : most, 0, 0};
}
