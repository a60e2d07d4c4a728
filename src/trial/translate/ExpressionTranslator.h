#pragma once

#include "trial/translate/Scope.h"
#include "trial/translate/Translation.h"
#include "tsql/SqlTree.h"

#include <QHash>

#include <initializer_list>
#include <optional>
#include <vector>

/// What the translation of one statement works with.
struct TranslationState {
    const Catalog& catalog;
    /// The database of names that are written without one.
    QString database;
    const std::vector<DeclaredParameter>& parameters;
    Translation& out;
    /// How many sources have got their alias.
    int aliases = 0;
    /// The parameters of the statement's own texts: equal ones share one.
    QHash<QByteArray, QString> textNumbers = {};
    /// Characters that were composed so far, those that were taken over from a part into the whole included.
    qint64 composed = 0;
};

/// Turns expressions and conditions into SQLite's language, with the types, conversions and collation of the
/// server: where two types meet, the lower one is converted, texts compare by the hospital's collation, and
/// every value has the form of its type.
class ExpressionTranslator {
  public:
    /// The scope is null where no column may stand.
    ExpressionTranslator(TranslationState& state, const Scope* scope)
        : mState(state)
        , mScope(scope) {}

    /// A value or a condition; a condition's type is NULL's.
    Typed Translate(const Expression& expression);
    /// The value of a number, text or NULL as it is written; nothing for any other expression.
    static std::optional<Typed> Literal(const Expression& expression);
    Typed Constant(const KnownValue& known, const SqlType& type);

    /// The value, converted to exactly that type.
    Typed ConvertTo(const Typed& value, const SqlType& type, ConversionPlace place,
                    int style = kDefaultStyle);
    /// The value, converted as far as it must be to stand beside others of that type.
    Typed MeetAs(const Typed& value, const SqlType& type);
    /// The values, converted as far as they must be to be compared with one another. Decimals keep their
    /// digits and get one scale.
    std::vector<Typed> MeetAll(const std::vector<Typed>& values);
    /// A number that was reckoned, held to what its type can hold; the server's error 8115 where it runs
    /// over. SQLite reckons in 64 bits.
    Typed InBounds(Typed result);
    /// The expression's text for a place where texts are compared or ordered.
    QString Collated(const Typed& value) const;
    /// The present time, the same for a whole command.
    Typed Clock();

    /// An expression made of others.
    static Typed Compose(const QString& sql, const SqlType& type, std::initializer_list<const Typed*> parts);
    static Typed Compose(const QString& sql, const SqlType& type, const std::vector<Typed>& parts);

    TranslationState& State() { return mState; }

    /// Aggregates are refused (147) while this is false.
    bool aggregatesAllowed = false;
    /// Set once an aggregate was translated.
    bool sawAggregate = false;

  private:
    Typed Known(const Typed& literal);
    /// The parameter that gets the value.
    QString Bound(const KnownValue& value);
    Typed Make(const NullNode& null);
    Typed Make(const TextNode& text);
    Typed Make(const NumberNode& number);
    Typed Make(const ParameterNode& parameter);
    Typed Make(const ColumnNode& column);
    Typed Make(const NegationNode& negation);
    Typed Make(const ArithmeticNode& arithmetic);
    Typed Make(const CallNode& call);
    Typed Make(const CastNode& cast);
    Typed Make(const CaseNode& choice);
    static void RequireResult(const CaseNode& choice);
    Typed Make(const SubqueryNode& subquery);
    Typed Make(const ComparisonNode& comparison);
    Typed Make(const AndNode& both);
    Typed Make(const OrNode& either);
    Typed Make(const NotNode& inverse);
    Typed Make(const IsNullNode& test);
    Typed Make(const LikeNode& like);
    Typed Make(const BetweenNode& between);
    Typed Make(const InListNode& in);
    Typed Make(const InQueryNode& in);
    Typed Make(const ExistsNode& exists);
    /// A chain of ANDs or ORs, read as one.
    template <class Chain> Typed MakeChain(const Chain& chain, const QString& word);
    /// The conversion in SQLite's own words; nothing where that takes the engine's function.
    static std::optional<QString> PlainConversion(const Typed& value, const SqlType& type);
    static Typed CallConversion(const Typed& value, const SqlType& type, ConversionPlace place, int style);
    /// A whole number or a narrow decimal with so many decimals.
    Typed WithScale(const Typed& value, int scale);
    Typed AddDates(QChar sign, const Typed& left, const Typed& right);
    /// Two texts, one behind the other.
    static Typed Joined(const Typed& left, const Typed& right);
    Typed Calculate(QChar sign, const Typed& left, const Typed& right);
    /// With a result that is money or a decimal.
    Typed CalculateFixed(QChar sign, const Typed& left, const Typed& right, const SqlType& type);
    /// A sum or difference in SQLite's own words; one of ints, which must be an int after every term; one of
    /// numbers that SQLite cannot hold.
    Typed Sum(QChar sign, const Typed& left, const Typed& right, const SqlType& type);
    static Typed IntSum(QChar sign, const Typed& left, const Typed& right);
    static Typed WideSum(QChar sign, const Typed& left, const Typed& right, const SqlType& type);
    Typed Compare(const QString& sign, const Expression& left, const Expression& right);
    Typed Compare(const QString& sign, const Typed& left, const Typed& right);
    static Typed Negated(bool negated, Typed condition);

    TranslationState& mState;
    const Scope* mScope;
};
