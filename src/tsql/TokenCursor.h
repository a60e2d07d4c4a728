#pragma once

#include "gateway/SqlLexer.h"
#include "tsql/SqlTree.h"

#include <QStringView>

#include <vector>

/// Walks along the pieces of a command text. What does not fit is raised as the server raises it: 102 or 156
/// with the piece that it met, 105 for a quote that nothing closes.
class TokenCursor {
  public:
    /// The text must outlive the cursor.
    explicit TokenCursor(QStringView text);
    /// Along the pieces of a text that was cut up already.
    explicit TokenCursor(std::vector<Token> pieces);
    TokenCursor(const TokenCursor&) = delete;
    TokenCursor& operator=(const TokenCursor&) = delete;
    ~TokenCursor() = default;

    const Token& Current() const { return mTokens[mAt]; }
    /// The piece so many places ahead.
    const Token& Ahead(size_t count) const;
    void Advance();
    bool AtEnd() const { return Current().kind == TokenKind::End; }
    /// Where the current piece begins, in characters from 0.
    qsizetype Position() const { return Current().position; }
    /// The line of the current piece, or of the last one at the end.
    int Line() const { return Current().line; }

    bool Is(QStringView keyword) const { return Current().Is(keyword); }
    bool IsOperator(QStringView sign) const { return Current().IsOperator(sign); }
    bool Accept(QStringView keyword);
    bool AcceptOperator(QStringView sign);
    void Expect(QStringView keyword);
    void ExpectOperator(QStringView sign);

    /// Whether a name stands here: a word that is no keyword, or one in brackets or double quotes.
    bool IsName() const;
    QString ExpectName();
    /// The name of a table or procedure with up to three parts: database, owner, object.
    ObjectName ExpectObjectName();
    int ExpectWholeNumber();
    /// The content of a text in single quotes.
    QString ExpectText();

    /// One level of nesting in a text, for as long as it is read.
    class Level {
      public:
        /// Raises 191 where it goes too deep.
        explicit Level(TokenCursor& cursor);
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;
        ~Level() { --mCursor.mNesting; }

      private:
        TokenCursor& mCursor;
    };

    /// Raises the error for a piece that cannot stand here.
    [[noreturn]] void RaiseSyntax() const;

  private:
    static constexpr int kDeepest = 100;

    std::vector<Token> mTokens;
    size_t mAt = 0;
    int mNesting = 0;
};
