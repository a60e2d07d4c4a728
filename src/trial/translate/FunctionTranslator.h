#pragma once

#include "trial/translate/ExpressionTranslator.h"
#include "tsql/SqlTree.h"

/// Turns the calls of the server's functions into SQLite's language.
class FunctionTranslator {
  public:
    explicit FunctionTranslator(ExpressionTranslator& expressions)
        : mExpressions(expressions) {}

    /// Raises 195 for a function that the server has not, or that the hospital's scripts do without.
    Typed Translate(const Expression& call);

  private:
    using Handler = Typed (FunctionTranslator::*)(const Expression& call);
    struct Function {
        const char16_t* name;
        int least;
        int most;
        Handler handler;
    };
    static const Function* Find(const QString& name);

    Typed Concat(const Expression& call);
    Typed Coalesce(const Expression& call);
    Typed NullIf(const Expression& call);
    Typed GetDate(const Expression& call);
    Typed SessionUser(const Expression& call);
    Typed Len(const Expression& call);
    Typed Part(const Expression& call);
    Typed Substring(const Expression& call);
    Typed ChangeText(const Expression& call);
    Typed Replicate(const Expression& call);
    Typed Abs(const Expression& call);
    Typed Round(const Expression& call);
    Typed DateAdd(const Expression& call);
    Typed DateDiff(const Expression& call);
    Typed DatePart(const Expression& call);
    Typed Count(const Expression& call);
    Typed Sum(const Expression& call);
    Typed Average(const Expression& call);
    Typed Extreme(const Expression& call);

    Typed Argument(const Expression& call, size_t number);
    Typed TextArgument(const Expression& call, size_t number);
    Typed WholeArgument(const Expression& call, size_t number);
    Typed DateArgument(const Expression& call, size_t number);
    Typed NumberArgument(const Expression& call, size_t number);
    /// The argument of an aggregate; raises 147 where none may stand.
    Typed AggregateArgument(const Expression& call);
    Typed ExactSum(const Typed& value) const;
    /// The date part's name as the engine's functions know it, in quotes; raises 155.
    QString DatePartName(const Expression& call) const;
    /// "name(argument, argument …)".
    static Typed Call(const QString& name, const SqlType& type, const std::vector<Typed>& arguments);

    ExpressionTranslator& mExpressions;
};
