#include "gateway/SqlLexer.h"

#include <array>
#include <string_view>

namespace {

bool BeginsWord(QChar c) {
    return c.isLetter() || c == u'_' || c == u'#';
}
bool ContinuesWord(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'#' || c == u'@' || c == u'$';
}
bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

class Lexer {
  public:
    explicit Lexer(QStringView text)
        : mText(text) {}

    std::vector<Token> Run() {
        std::vector<Token> tokens;
        tokens.reserve(static_cast<size_t>(mText.size() / 6 + 4));
        do {
            SkipBlanksAndComments();
            mToken = Token{TokenKind::End, {}, mAt, mLine};
            ReadToken();
            tokens.push_back(mToken);
            CountLines(mToken.written);
        } while (mToken.kind != TokenKind::End && mToken.kind != TokenKind::UnclosedComment);
        if (tokens.back().kind != TokenKind::End)
            tokens.push_back(Token{TokenKind::End, {}, mText.size(), mLine});
        return tokens;
    }

  private:
    QChar At(qsizetype index) const { return index < mText.size() ? mText[index] : QChar(); }

    void CountLines(QStringView piece) { mLine += static_cast<int>(piece.count(u'\n')); }

    void SkipTo(qsizetype end) {
        CountLines(mText.mid(mAt, end - mAt));
        mAt = end;
    }

    void SkipBlanksAndComments() {
        while (mAt < mText.size()) {
            if (mText[mAt].isSpace()) {
                SkipTo(mAt + 1);
            } else if (mText[mAt] == u'-' && At(mAt + 1) == u'-') {
                const qsizetype lineEnd = mText.indexOf(u'\n', mAt);
                SkipTo(lineEnd < 0 ? mText.size() : lineEnd);
            } else if (mText[mAt] == u'/' && At(mAt + 1) == u'*') {
                const qsizetype end = CommentEnd();
                if (end < 0)
                    return;
                SkipTo(end);
            } else {
                return;
            }
        }
    }

    qsizetype CommentEnd() const {
        int depth = 0;
        for (qsizetype i = mAt; i + 1 < mText.size(); ++i) {
            if (mText[i] == u'/' && mText[i + 1] == u'*') {
                ++depth;
                ++i;
            } else if (mText[i] == u'*' && mText[i + 1] == u'/') {
                ++i;
                if (--depth == 0)
                    return i + 1;
            }
        }
        return -1;
    }

    void Finish(TokenKind kind, qsizetype end) {
        mToken.kind = kind;
        mToken.written = mText.mid(mAt, end - mAt);
        mAt = end;
    }

    void ReadToken() {
        if (mAt >= mText.size())
            return;
        const QChar c = mText[mAt];
        if (c == u'\'')
            ReadQuoted(TokenKind::Text, mAt, u'\'');
        else if ((c == u'N' || c == u'n') && At(mAt + 1) == u'\'') {
            mToken.national = true;
            ReadQuoted(TokenKind::Text, mAt + 1, u'\'');
        } else if (c == u'[')
            ReadQuoted(TokenKind::Name, mAt, u']');
        else if (c == u'"')
            ReadQuoted(TokenKind::Name, mAt, u'"');
        else if (c == u'@')
            ReadWord(TokenKind::Parameter);
        else if (BeginsWord(c))
            ReadWord(TokenKind::Word);
        else if (c == u'0' && (At(mAt + 1) == u'x' || At(mAt + 1) == u'X'))
            ReadBinary();
        else if (IsDigit(c) || (c == u'.' && IsDigit(At(mAt + 1))))
            ReadNumber();
        else if (c == u'/' && At(mAt + 1) == u'*')
            Finish(TokenKind::UnclosedComment, mText.size());
        else
            ReadOperator();
    }

    void ReadQuoted(TokenKind kind, qsizetype opening, QChar closing) {
        for (qsizetype i = opening + 1; i < mText.size(); ++i) {
            if (mText[i] != closing)
                continue;
            if (At(i + 1) == closing)
                ++i;
            else
                return Finish(kind, i + 1);
        }
        Finish(TokenKind::UnclosedQuote, mText.size());
    }

    void ReadWord(TokenKind kind) {
        qsizetype end = mAt + 1;
        while (end < mText.size() && ContinuesWord(mText[end]))
            ++end;
        Finish(kind, end);
    }

    /// A number in hexadecimal digits is binary data, which nothing here understands.
    void ReadBinary() {
        qsizetype end = mAt + 2;
        while (end < mText.size() && ContinuesWord(mText[end]))
            ++end;
        Finish(TokenKind::Unknown, end);
    }

    void ReadNumber() {
        qsizetype end = mAt;
        while (IsDigit(At(end)))
            ++end;
        if (At(end) == u'.') {
            ++end;
            while (IsDigit(At(end)))
                ++end;
        }
        if (At(end) == u'e' || At(end) == u'E') {
            qsizetype digits = end + 1;
            if (At(digits) == u'+' || At(digits) == u'-')
                ++digits;
            if (IsDigit(At(digits))) {
                end = digits;
                while (IsDigit(At(end)))
                    ++end;
            }
        }
        Finish(TokenKind::Number, end);
    }

    void ReadOperator() {
        static constexpr std::array<std::u16string_view, 6> kPairs = {u"<=", u">=", u"<>",
                                                                      u"!=", u"!<", u"!>"};
        for (const std::u16string_view pair : kPairs) {
            if (mText.mid(mAt, 2) == QStringView(pair))
                return Finish(TokenKind::Operator, mAt + 2);
        }
        const bool known = QStringView(u"()[],.;=<>+-*/%").contains(mText[mAt]);
        Finish(known ? TokenKind::Operator : TokenKind::Unknown, mAt + 1);
    }

    QStringView mText;
    qsizetype mAt = 0;
    int mLine = 1;
    Token mToken;
};

} // namespace

QString Token::Content() const {
    if (kind != TokenKind::Text && kind != TokenKind::Name && kind != TokenKind::UnclosedQuote)
        return written.toString();
    const QStringView inside = national ? written.mid(1) : written;
    const QChar closing = inside[0] == u'[' ? u']' : inside[0];
    const bool closed = kind != TokenKind::UnclosedQuote;
    QString content = inside.mid(1, inside.size() - (closed ? 2 : 1)).toString();
    if (content.contains(closing))
        content.replace(QString(2, closing), QString(closing));
    return content;
}

bool Token::Is(QStringView word) const {
    return kind == TokenKind::Word && written.compare(word, Qt::CaseInsensitive) == 0;
}

std::vector<Token> LexSql(QStringView text) {
    return Lexer(text).Run();
}
