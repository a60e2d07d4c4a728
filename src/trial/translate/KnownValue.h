#pragma once

#include "tsql/CommandShape.h"

#include <optional>
#include <utility>
#include <vector>

/// A value that is known while a command is translated: a literal and what was made of it. One that comes
/// from the command's text is made anew for each text of the same shape.
class KnownValue {
  public:
    /// None is known.
    KnownValue() = default;
    /// `literal` is its number in the command's text; -1 where it is the same for all texts.
    KnownValue(Cell value, int literal = -1)
        : mValue(std::move(value))
        , mLiteral(literal) {}

    explicit operator bool() const { return mValue.has_value(); }
    /// The literal of the command's text that it comes from; -1 for none.
    int LiteralNumber() const { return mLiteral; }
    /// The value, to be bound. Nothing may be decided by it: of another text it will be another one.
    const Cell& Value() const { return *mValue; }

    /// Of a number of that type.
    KnownValue Negated(const SqlType& type) const;
    /// Raises the server's conversion errors.
    KnownValue Converted(const SqlType& from, const SqlType& to, ConversionPlace place,
                         int style = kDefaultStyle) const;

    /// Makes the value of another text's literals, in the same way. Raises the same errors.
    void Take(const std::vector<Literal>& literals);

  private:
    struct Conversion {
        SqlType from;
        SqlType to;
        ConversionPlace place;
        int style;
    };

    std::optional<Cell> mValue;
    int mLiteral = -1;
    bool mNegated = false;
    std::vector<Conversion> mConversions;
};
