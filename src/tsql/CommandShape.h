#pragma once

#include "gateway/SqlLexer.h"
#include "tsql/Convert.h"
#include "tsql/SqlType.h"

#include <QString>

#include <set>
#include <vector>

/// A number or text as a command has it, without a sign.
struct Literal {
    Cell value;
    SqlType type;
};

/// What a command text has in common with others: its pieces, with the type of each literal in place of its
/// value. What was found out about one text holds for every other one of the same shape, as far as no
/// literal's value was looked at.
///
/// A text of more than 100 literals is its own shape, and so is one that groups or drops doubles, since
/// expressions are compared there, literals included: its literals count as part of it.
class CommandShape {
  public:
    /// The text must outlive the shape.
    explicit CommandShape(QStringView text);

    /// The pieces of the text; each literal bears its number.
    const std::vector<Token>& Tokens() const { return mTokens; }
    /// The literals of this text, in the order in which they are written.
    const std::vector<Literal>& Literals() const { return mLiterals; }
    /// Equal for texts of the same shape, and for no others.
    const QString& Key() const { return mKey; }
    /// Whether the text has so many literals of its own that hardly another one will ever be equal to it.
    bool IsOneOfAKind() const { return mLiteralCount > kMostLiterals; }
    /// Equal for texts of the same shape that agree in the given literals too.
    QString KeyWith(const std::set<int>& literals) const;

  private:
    static constexpr qsizetype kMostLiterals = 100;

    bool CountsLiterals() const;
    void TakeLiteral(Token& token);

    std::vector<Token> mTokens;
    qsizetype mLiteralCount;
    std::vector<Literal> mLiterals;
    QString mKey;
};

/// The type of a text in quotes that stands for all texts in its place: as long as the server lets a text be,
/// or unbounded where it is longer.
SqlType TextLiteralType(const QString& text, bool national);
