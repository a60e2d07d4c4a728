#pragma once

#include <QString>
#include <QStringView>

#include <vector>

/// What a piece of a command text is to the server.
enum class TokenKind {
    /// A bare word: a keyword or a name.
    Word,
    /// A name in brackets or double quotes.
    Name,
    /// A text in single quotes.
    Text,
    /// A number without sign.
    Number,
    /// "@" with the name behind it.
    Parameter,
    /// An operator or a punctuation mark.
    Operator,
    /// A quote or bracket that nothing closes; it reaches to the end of the command.
    UnclosedQuote,
    /// A comment that nothing closes.
    UnclosedComment,
    /// A character that means nothing to the server.
    Unknown,
    /// Behind the last piece.
    End,
};

/// One piece of a command text. It looks into the text that was lexed and must not outlive it.
struct Token {
    TokenKind kind = TokenKind::End;
    /// The piece as it is written, quotes and brackets included.
    QStringView written;
    /// Where it begins, in characters from 0.
    qsizetype position = 0;
    /// The line it begins on, from 1.
    int line = 1;
    /// Set on a text with the N prefix.
    bool national = false;
    /// Which of the text's literals it is, from 0, where they are counted; -1 for all other pieces.
    int literal = -1;

    /// The piece without its quotes or brackets, doubled ones made single; the written piece for all others.
    QString Content() const;
    /// Whether this is that keyword, letter case aside. A name in brackets is never a keyword.
    bool Is(QStringView word) const;
    /// Whether this is that operator.
    bool IsOperator(QStringView sign) const { return kind == TokenKind::Operator && written == sign; }
};

/// The pieces of a command text in the server's language, with one End behind the last. Comments (those in
/// "/* */" may be nested) and blanks separate pieces and leave none. It never fails: what nothing closes is a
/// token of its own kind, for whoever reads as far.
std::vector<Token> LexSql(QStringView text);
