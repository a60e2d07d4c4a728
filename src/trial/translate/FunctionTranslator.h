#pragma once

#include "trial/translate/ExpressionTranslator.h"
#include "tsql/SqlTree.h"

/// Turns the calls of the server's functions into SQLite's language.
class FunctionTranslator {
  public:
    explicit FunctionTranslator(ExpressionTranslator& expressions)
        : mExpressions(expressions) {}

    /// Raises 195 for a function that the server has not, or that the hospital's scripts do without.
    Typed Translate(const CallNode& call);

  private:
    using Handler = Typed (FunctionTranslator::*)(const CallNode& call);
    struct Function {
        const char16_t* name;
        int least;
        int most;
        Handler handler;
    };
    static const Function* Find(const QString& name);

    Typed Concat(const CallNode& call);
    Typed Coalesce(const CallNode& call);
    Typed NullIf(const CallNode& call);
    Typed GetDate(const CallNode& call);
    Typed SessionUser(const CallNode& call);
    Typed Len(const CallNode& call);
    Typed Replace(const CallNode& call);
    Typed Part(const CallNode& call);
    Typed Substring(const CallNode& call);
    Typed ChangeText(const CallNode& call);
    Typed Replicate(const CallNode& call);
    Typed Abs(const CallNode& call);
    Typed Round(const CallNode& call);
    Typed DateAdd(const CallNode& call);
    Typed DateDiff(const CallNode& call);
    Typed DatePart(const CallNode& call);
    Typed Count(const CallNode& call);
    Typed Sum(const CallNode& call);
    Typed Average(const CallNode& call);
    Typed Extreme(const CallNode& call);

    Typed Argument(const CallNode& call, size_t number);
    Typed TextArgument(const CallNode& call, size_t number);
    Typed WholeArgument(const CallNode& call, size_t number, const SqlType& type = SqlType::BigInt());
    Typed DateArgument(const CallNode& call, size_t number);
    Typed NumberArgument(const CallNode& call, size_t number);
    /// The argument of an aggregate; raises 147 where none may stand.
    Typed AggregateArgument(const CallNode& call);
    /// A type as an argument of one of the engine's own functions.
    static Typed TypeArgument(const SqlType& type);
    /// The date part's name as the engine's functions know it, in quotes; raises 155.
    QString DatePartName(const CallNode& call) const;
    /// The type of a text that is made of these: national where one of them is.
    static SqlType MadeOf(const std::vector<Typed>& texts);
    /// A number of characters as an argument.
    static Typed Limit(const SqlType& text);
    /// "name(argument, argument …)".
    static Typed Call(const QString& name, const SqlType& type, const std::vector<Typed>& arguments);

    ExpressionTranslator& mExpressions;
};
