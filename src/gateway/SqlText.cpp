#include "gateway/SqlText.h"

#include "gateway/SqlLexer.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString Digits(int number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

QString Literal(std::monostate) {
    return u"NULL"_s;
}
QString Literal(bool value) {
    return value ? u"1"_s : u"0"_s;
}
QString Literal(qint64 value) {
    return QString::number(value);
}
QString Literal(const Decimal& value) {
    return value.text;
}
// Seventeen digits bring every double back as the number it was.
QString Literal(double value) {
    return QString::number(value, 'e', 16);
}

QString Literal(DateTime value) {
    const DateTime::Fields f = value.ToFields();
    return u'\'' + Digits(f.year, 4) + Digits(f.month, 2) + Digits(f.day, 2) + u' ' + Digits(f.hour, 2) +
           u':' + Digits(f.minute, 2) + u':' + Digits(f.second, 2) + u'.' + Digits(f.millisecond, 3) + u'\'';
}

QString Literal(const QString& value) {
    QString doubled = value;
    doubled.replace(u"'"_s, u"''"_s);
    // The server reads a plain literal in its one-byte code page; what lies outside needs the N prefix.
    const bool wide = std::any_of(value.begin(), value.end(), [](QChar c) { return c.unicode() > 0xFF; });
    return (wide ? u"N'"_s : u"'"_s) + doubled + u'\'';
}

/// Reads along "select [top n] columns from table [alias] [where …] [order by …]".
class BaseTableReader {
  public:
    explicit BaseTableReader(QStringView command)
        : mCommand(command)
        , mTokens(LexSql(command)) {}

    std::optional<QString> Read() {
        if (!Accept(u"select") || !SkipTop() || !SkipColumns() || !Accept(u"from"))
            return std::nullopt;
        const qsizetype begin = Current().position;
        if (!SkipName())
            return std::nullopt;
        const Token& last = mTokens[mAt - 1];
        const qsizetype end = last.position + last.written.size();
        SkipAlias();
        if (!RestKeepsRows())
            return std::nullopt;
        return mCommand.mid(begin, end - begin).toString();
    }

  private:
    const Token& Current() const { return mTokens[mAt]; }

    bool Accept(QStringView word) {
        if (!Current().Is(word))
            return false;
        ++mAt;
        return true;
    }

    bool AcceptOperator(QStringView sign) {
        if (!Current().IsOperator(sign))
            return false;
        ++mAt;
        return true;
    }

    bool SkipTop() {
        if (!Accept(u"top"))
            return true;
        const bool inParentheses = AcceptOperator(u"(");
        if (Current().kind != TokenKind::Number)
            return false;
        ++mAt;
        return !inParentheses || AcceptOperator(u")");
    }

    bool SkipName() {
        do {
            while (AcceptOperator(u".")) {
            }
            if (Current().kind != TokenKind::Word && Current().kind != TokenKind::Name)
                return false;
            ++mAt;
        } while (Current().IsOperator(u"."));
        return true;
    }

    // A column under another name could not be found again in the table, nor could an expression.
    bool SkipColumns() {
        do {
            if (Current().Is(u"distinct") || Current().Is(u"from"))
                return false;
            if (!AcceptOperator(u"*") && !SkipName())
                return false;
        } while (AcceptOperator(u","));
        return true;
    }

    void SkipAlias() {
        if (Accept(u"as")) {
            SkipName();
            return;
        }
        const Token& next = Current();
        const bool clause = next.Is(u"where") || next.Is(u"order") || next.Is(u"group") ||
                            next.Is(u"having") || next.Is(u"union") || next.Is(u"join") ||
                            next.Is(u"inner") || next.Is(u"left") || next.Is(u"right") || next.Is(u"full") ||
                            next.Is(u"cross");
        if (!clause && (next.kind == TokenKind::Word || next.kind == TokenKind::Name))
            ++mAt;
    }

    bool RestKeepsRows() const {
        const Token& next = Current();
        const bool ended = next.kind == TokenKind::End || next.IsOperator(u";");
        if (!ended && !next.Is(u"where") && !next.Is(u"order"))
            return false;
        int depth = 0;
        for (size_t i = mAt; mTokens[i].kind != TokenKind::End; ++i) {
            depth += mTokens[i].IsOperator(u"(") ? 1 : 0;
            depth -= mTokens[i].IsOperator(u")") ? 1 : 0;
            if (depth == 0 &&
                (mTokens[i].Is(u"group") || mTokens[i].Is(u"having") || mTokens[i].Is(u"union")))
                return false;
        }
        return true;
    }

    QStringView mCommand;
    std::vector<Token> mTokens;
    size_t mAt = 0;
};

} // namespace

QString SqlLiteral(const Value& value) {
    return std::visit([](const auto& held) { return Literal(held); }, value.Get());
}

QString SqlName(QStringView name) {
    return u'[' + name.toString().replace(u"]"_s, u"]]"_s) + u']';
}

std::optional<QString> BaseTableOf(QStringView command) {
    return BaseTableReader(command).Read();
}
