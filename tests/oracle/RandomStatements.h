#pragma once

#include "oracle/CaseFile.h"
#include "oracle/ReferenceExpression.h"

#include <memory>
#include <random>
#include <vector>

/// Rows that an expression is selected from.
struct ReferenceSource {
    /// What stands behind the select list, "FROM" included; empty for a single row without a table.
    QString text;
    /// What sorts the rows; empty where nothing has to.
    QString order;
    std::vector<ReferenceExpression::Pointer> columns;
    std::vector<ReferenceRow> rows;
    /// What the rows themselves fail with, whatever is selected from them.
    std::set<int> errors;
};

/// One expression over some rows, alone or inside an aggregate, with what the server makes of it.
class ReferenceQuery {
  public:
    enum class Aggregate { None, Sum, Avg, Min, Max, Count };

    ReferenceQuery(std::shared_ptr<const ReferenceSource> source, ReferenceExpression::Pointer expression,
                   Aggregate aggregate);

    /// Whether the server's rules tell what comes of it.
    bool IsSure() const { return mIsSure; }
    const Answer& Expected() const { return mExpected; }
    /// The expression as it stands in the select list, inside its aggregate.
    QString Item() const;
    /// What is behind the select list; queries of one are selected together.
    QString Behind() const;
    /// The whole text.
    QString Statement() const { return Together({*this}); }
    /// The text that selects the items of several queries, which have the same source.
    static QString Together(const std::vector<ReferenceQuery>& queries);

    /// The simpler queries that it is made of.
    std::vector<ReferenceQuery> Parts() const;

  private:
    void Judge();
    void JudgeAggregate(const std::vector<Outcome>& outcomes);
    void Expect(const NumberType& type, const std::vector<Outcome>& outcomes);

    std::shared_ptr<const ReferenceSource> mSource;
    ReferenceExpression::Pointer mExpression;
    Aggregate mAggregate;
    Answer mExpected;
    bool mIsSure = true;
};

/// Random queries of arithmetic over oracle_numbers, over UNION ALL and over nothing. A seed always brings
/// the same ones.
class RandomStatements {
  public:
    explicit RandomStatements(quint64 seed);

    /// The next query whose result the server's rules tell.
    ReferenceQuery Next();

  private:
    using Pointer = ReferenceExpression::Pointer;

    /// A number from 0 until before the bound, the same with every compiler's library.
    int Below(int bound) { return static_cast<int>(mRandom() % static_cast<quint64>(bound)); }
    template <class T> const T& OneOf(const std::vector<T>& choices) {
        return choices[static_cast<size_t>(Below(static_cast<int>(choices.size())))];
    }

    ReferenceQuery Make();
    void ChooseSource();
    std::shared_ptr<const ReferenceSource> MakeUnion();

    Pointer Expression(int depth);
    Pointer Leaf();
    Pointer WholeLiteral();
    Pointer DecimalLiteral();
    Pointer FloatLiteral();
    Pointer Operation(int depth);
    Pointer Choice(int depth);
    NumberType SomeType();

    std::mt19937_64 mRandom;
    std::shared_ptr<const ReferenceSource> mNumbers;
    std::shared_ptr<const ReferenceSource> mNothing;
    std::shared_ptr<const ReferenceSource> mSource;
    /// How many more queries the source is used for.
    int mLeft = 0;
};
