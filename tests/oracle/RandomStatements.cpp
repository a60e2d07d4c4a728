#include "oracle/RandomStatements.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Kind = NumberType::Kind;
using Pointer = ReferenceExpression::Pointer;

Number Exact(const char* units) {
    return {false, Whole::FromDigits(units), 0};
}

Number Real(double real) {
    return {false, {}, real};
}

/// The table oracle_numbers, column by column and row by row as OracleEngines.cpp fills it.
std::shared_ptr<const ReferenceSource> NumbersTable() {
    ReferenceSource table{u" FROM oracle_numbers"_s, u" ORDER BY o"_s, {}, {}, {}};
    const std::vector<std::pair<QString, NumberType>> columns = {
        {u"t"_s, NumberType::Bit()},         {u"i"_s, NumberType::Int()},
        {u"j"_s, NumberType::Int()},         {u"b"_s, NumberType::BigInt()},
        {u"d"_s, NumberType::Decimal(5, 2)}, {u"e"_s, NumberType::Decimal(9, 4)},
        {u"m"_s, NumberType::Money()},       {u"f"_s, NumberType::Float()},
    };
    for (size_t i = 0; i < columns.size(); ++i)
        table.columns.push_back(Expressions::Column(columns[i].first, columns[i].second, i));
    table.rows = {
        {Exact("1"), Exact("3"), Exact("-2"), Exact("3000000000"), Exact("1250"), Exact("12345"),
         Exact("1000000"), Real(0.5)},
        {Exact("0"), Exact("7"), Exact("0"), Exact("-7"), Exact("-75"), Exact("200001"), Exact("3392500"),
         Real(-2.25)},
        {Exact("1"), Exact("-100"), Exact("2147483647"), Exact("12"), Exact("99999"), Exact("-33333"),
         Exact("-1"), Real(1024)},
        {Exact("0"), Exact("0"), Exact("5"), Exact("0"), Exact("0"), Exact("5000"), Exact("0"), Real(0)},
        ReferenceRow(columns.size()),
    };
    return std::make_shared<ReferenceSource>(std::move(table));
}

/// A literal's digits count otherwise than an int's where it meets decimals; as an int it is none any more.
Pointer Typed(Pointer value) {
    return value->IsLiteral() && value->Type().kind == Kind::Int ? Expressions::Cast(value, NumberType::Int())
                                                                 : value;
}

/// Bits take part in arithmetic as ints do; two of them alone do not.
Pointer Countable(Pointer value) {
    return value->Type().kind == Kind::Bit ? Expressions::Cast(value, NumberType::Int()) : value;
}

Pointer WithoutFloat(Pointer value) {
    return value->Type().IsFloat() ? Expressions::Cast(value, NumberType::Decimal(18, 4)) : value;
}

/// Decimals of so few digits that their product or quotient still fits.
Pointer Short(Pointer value) {
    constexpr int kFew = 12;
    return value->Type().kind == Kind::Decimal && value->Type().precision > kFew
               ? Expressions::Cast(value, NumberType::Decimal(kFew, 3))
               : value;
}

bool HaveRoom(const NumberType& a, const NumberType& b) {
    if (std::max(a.kind, b.kind) != Kind::Decimal)
        return true;
    return std::max(a.precision - a.scale, b.precision - b.scale) + std::max(a.scale, b.scale) <= kMostDigits;
}

/// The sum of the numbers, and whether the server could come past the type's end on the way to it.
struct Sum {
    Outcome total;
    bool isDoubtful = false;
};

Outcome Checked(const Whole& units, const NumberType& type) {
    return Reference::Calculate('+', Outcome::Of(units), type, Outcome::Of(0), type);
}

Sum SumOfExact(const std::vector<Outcome>& values, const NumberType& type) {
    Whole above;
    Whole below;
    for (const Outcome& value : values)
        (value.number.units.IsNegative() ? below : above) =
            (value.number.units.IsNegative() ? below : above) + value.number.units;
    if (type.kind == Kind::Decimal) {
        const Whole total = above + below;
        return {total.DigitCount() > kMostDigits ? Outcome::Error(kOverflow) : Outcome::Of(total)};
    }
    const Outcome total = Checked(above + below, type);
    const bool passesTheEnd = !Checked(above, type).IsValue() || !Checked(below, type).IsValue();
    return {total, total.IsValue() && passesTheEnd};
}

Sum SumOfReals(const std::vector<Outcome>& values) {
    // What is left where large numbers cancel each other out depends on the order in which they are added.
    constexpr double kCancelled = 1e-3;
    double total = 0;
    double magnitude = 0;
    for (const Outcome& value : values) {
        total += value.number.real;
        magnitude += std::fabs(value.number.real);
    }
    return {Outcome::OfReal(total), std::fabs(total) < kCancelled * magnitude || !std::isfinite(magnitude)};
}

Outcome Average(const Outcome& sum, int count, const NumberType& from, const NumberType& to) {
    if (!sum.IsValue())
        return sum;
    if (from.IsFloat())
        return Outcome::OfReal(sum.number.real / count);
    return Outcome::Of(sum.number.units * Whole::PowerOfTen(to.scale - from.scale) / Whole(count));
}

NumberType AggregateType(ReferenceQuery::Aggregate aggregate, const NumberType& type) {
    constexpr int kAverageScale = 6;
    if (aggregate == ReferenceQuery::Aggregate::Count)
        return NumberType::Int();
    if (type.kind != Kind::Decimal)
        return type;
    if (aggregate == ReferenceQuery::Aggregate::Sum)
        return NumberType::Decimal(kMostDigits, type.scale);
    if (aggregate == ReferenceQuery::Aggregate::Avg)
        return NumberType::Decimal(kMostDigits, std::max(type.scale, kAverageScale));
    return type;
}

bool IsLess(const Outcome& a, const Outcome& b, const NumberType& type) {
    return type.IsFloat() ? a.number.real < b.number.real : a.number.units < b.number.units;
}

QString AggregateName(ReferenceQuery::Aggregate aggregate) {
    switch (aggregate) {
    case ReferenceQuery::Aggregate::Sum:
        return u"SUM"_s;
    case ReferenceQuery::Aggregate::Avg:
        return u"AVG"_s;
    case ReferenceQuery::Aggregate::Min:
        return u"MIN"_s;
    case ReferenceQuery::Aggregate::Max:
        return u"MAX"_s;
    default:
        return u"COUNT"_s;
    }
}

} // namespace

ReferenceQuery::ReferenceQuery(std::shared_ptr<const ReferenceSource> source, Pointer expression,
                               Aggregate aggregate)
    : mSource(std::move(source))
    , mExpression(std::move(expression))
    , mAggregate(aggregate) {
    Judge();
}

QString ReferenceQuery::Item() const {
    const QString text = mExpression->Text();
    return mAggregate == Aggregate::None ? text : u"%1(%2)"_s.arg(AggregateName(mAggregate), text);
}

QString ReferenceQuery::Behind() const {
    return mSource->text + (mAggregate == Aggregate::None ? mSource->order : QString());
}

QString ReferenceQuery::Together(const std::vector<ReferenceQuery>& queries) {
    QStringList items;
    for (const ReferenceQuery& query : queries)
        items << query.Item() + u" AS r%1"_s.arg(items.size() + 1);
    return u"SELECT "_s + items.join(u", ") + queries.front().Behind();
}

std::vector<ReferenceQuery> ReferenceQuery::Parts() const {
    std::vector<ReferenceQuery> parts;
    if (mAggregate != Aggregate::None)
        parts.emplace_back(mSource, mExpression, Aggregate::None);
    for (const Pointer& part : mExpression->Parts())
        parts.emplace_back(mSource, part, mAggregate);
    return parts;
}

void ReferenceQuery::Judge() {
    std::vector<Outcome> outcomes;
    for (const ReferenceRow& row : mSource->rows)
        outcomes.push_back(mExpression->Evaluate(row));
    if (mAggregate == Aggregate::None)
        Expect(mExpression->Type(), outcomes);
    else
        JudgeAggregate(outcomes);
}

void ReferenceQuery::JudgeAggregate(const std::vector<Outcome>& outcomes) {
    const NumberType& from = mExpression->Type();
    const NumberType to = AggregateType(mAggregate, from);
    std::vector<Outcome> values;
    for (const Outcome& outcome : outcomes) {
        // What is only counted need not be reckoned.
        if (!outcome.IsValue() && mAggregate == Aggregate::Count)
            return Expect(to, {Outcome::Unsure()});
        if (!outcome.IsValue())
            return Expect(to, outcomes);
        if (!outcome.IsNull())
            values.push_back(outcome);
    }
    const auto less = [&from](const Outcome& a, const Outcome& b) { return IsLess(a, b, from); };
    const int count = static_cast<int>(values.size());
    if (mAggregate == Aggregate::Count)
        return Expect(to, {Outcome::Of(count)});
    if (values.empty())
        return Expect(to, {Outcome::Null()});
    if (mAggregate == Aggregate::Min)
        return Expect(to, {*std::min_element(values.begin(), values.end(), less)});
    if (mAggregate == Aggregate::Max)
        return Expect(to, {*std::max_element(values.begin(), values.end(), less)});
    const Sum sum = from.IsFloat() ? SumOfReals(values) : SumOfExact(values, from);
    if (sum.isDoubtful)
        return Expect(to, {Outcome::Unsure()});
    Expect(to, {mAggregate == Aggregate::Sum ? sum.total : Average(sum.total, count, from, to)});
}

void ReferenceQuery::Expect(const NumberType& type, const std::vector<Outcome>& outcomes) {
    mExpected.errors = mSource->errors;
    for (const Outcome& outcome : outcomes) {
        mIsSure = mIsSure && !outcome.isUnsure;
        mExpected.errors.insert(outcome.errors.begin(), outcome.errors.end());
    }
    if (!mExpected.errors.empty())
        return;
    mExpected.type = type.AnswerName();
    for (const Outcome& outcome : outcomes)
        mExpected.values << Reference::Text(outcome.number, type);
}

RandomStatements::RandomStatements(quint64 seed)
    : mRandom(seed)
    , mNumbers(NumbersTable())
    , mNothing(std::make_shared<ReferenceSource>(ReferenceSource{{}, {}, {}, {{}}, {}})) {}

ReferenceQuery RandomStatements::Next() {
    for (;;) {
        ReferenceQuery query = Make();
        if (query.IsSure())
            return query;
    }
}

ReferenceQuery RandomStatements::Make() {
    constexpr int kDepth = 4;
    if (mLeft-- <= 0)
        ChooseSource();
    const Pointer expression = Expression(1 + Below(kDepth));
    if (mSource != mNumbers || Below(5) > 0)
        return {mSource, expression, ReferenceQuery::Aggregate::None};
    const auto aggregate = OneOf(std::vector{ReferenceQuery::Aggregate::Sum, ReferenceQuery::Aggregate::Sum,
                                             ReferenceQuery::Aggregate::Avg, ReferenceQuery::Aggregate::Avg,
                                             ReferenceQuery::Aggregate::Min, ReferenceQuery::Aggregate::Max,
                                             ReferenceQuery::Aggregate::Count});
    return {mSource, Countable(expression), aggregate};
}

void RandomStatements::ChooseSource() {
    constexpr int kRun = 40;
    constexpr int kShortRun = 4;
    const int chance = Below(4);
    mSource = chance == 0 ? MakeUnion() : chance == 1 ? mNothing : mNumbers;
    mLeft = chance == 0 ? kShortRun : kRun;
}

std::shared_ptr<const ReferenceSource> RandomStatements::MakeUnion() {
    mSource = mNothing;
    for (;;) {
        const Pointer first = Typed(Expression(2));
        const Pointer second = Typed(Expression(2));
        const Outcome a = first->Evaluate({});
        const Outcome b = second->Evaluate({});
        if (a.isUnsure || b.isUnsure || !HaveRoom(first->Type(), second->Type()))
            continue;
        const NumberType type = Reference::CommonType(first->Type(), second->Type());
        ReferenceSource source;
        source.text = u" FROM (SELECT 1 AS o, %1 AS x UNION ALL SELECT 2, %2) AS u"_s.arg(first->Text(),
                                                                                          second->Text());
        source.order = u" ORDER BY o"_s;
        source.columns = {Expressions::Column(u"x"_s, type, 0)};
        for (const auto& [part, value] : {std::pair{first, a}, std::pair{second, b}}) {
            const Outcome converted = Reference::Convert(value, part->Type(), type);
            source.errors.insert(converted.errors.begin(), converted.errors.end());
            source.rows.push_back({converted.number});
        }
        // A row that fails is not worth asking for again and again; it may also go unread.
        if (source.errors.empty())
            return std::make_shared<ReferenceSource>(std::move(source));
    }
}

Pointer RandomStatements::Expression(int depth) {
    if (depth == 0)
        return Leaf();
    const int chance = Below(100);
    if (chance < 50)
        return Operation(depth);
    if (chance < 55)
        return Expressions::Minus(Countable(Typed(Expression(depth - 1))));
    if (chance < 72) {
        const Pointer value = Expression(depth - 1);
        return Expressions::Cast(value, SomeType());
    }
    return chance < 92 ? Choice(depth) : Leaf();
}

Pointer RandomStatements::Leaf() {
    const int chance = Below(100);
    if (chance < 55 && !mSource->columns.empty())
        return OneOf(mSource->columns);
    if (chance < 70)
        return WholeLiteral();
    if (chance < 86)
        return DecimalLiteral();
    return chance < 96 ? FloatLiteral() : Expressions::Null(SomeType());
}

Pointer RandomStatements::WholeLiteral() {
    static const std::vector<const char*> kKnown = {
        "0",   "1",   "2",     "3",          "7",          "10",
        "100", "339", "65536", "2147483647", "2147483648", "9223372036854775807"};
    const std::string digits = Below(4) == 0 ? std::to_string(Below(100000)) : OneOf(kKnown);
    const int length = static_cast<int>(digits.size());
    const Whole units = Whole::FromDigits(digits);
    // Beyond the ints a whole number that is written down is a decimal.
    const NumberType type =
        units <= Whole(2147483647) ? NumberType::Int(length) : NumberType::Decimal(length, 0);
    return Expressions::Literal(QString::fromStdString(digits), type, {false, units, 0});
}

Pointer RandomStatements::DecimalLiteral() {
    const std::string whole = std::to_string(1 + Below(Below(2) == 0 ? 9 : 9999));
    const int scale = 1 + Below(4);
    std::string behind;
    for (int i = 0; i < scale; ++i)
        behind += static_cast<char>('0' + Below(10));
    const NumberType type = NumberType::Decimal(static_cast<int>(whole.size()) + scale, scale);
    return Expressions::Literal(QString::fromStdString(whole + "." + behind), type,
                                {false, Whole::FromDigits(whole + behind), 0});
}

Pointer RandomStatements::FloatLiteral() {
    static const std::vector<const char*> kKnown = {"0e0",    "1e0",  "2.5e0", "0.1e0",
                                                    "7.25e0", "1e10", "3e-5",  "1e300"};
    const char* text = OneOf(kKnown);
    return Expressions::Literal(QString::fromLatin1(text), NumberType::Float(),
                                Real(QByteArray(text).toDouble()));
}

Pointer RandomStatements::Operation(int depth) {
    char sign = OneOf(std::vector{'+', '-', '*', '*', '/', '/', '/', '%'});
    Pointer left = Countable(Expression(depth - 1));
    Pointer right = Countable(Expression(depth - 1));
    if (left->IsLiteral() && right->IsLiteral())
        left = Typed(left);
    if (sign == '%') {
        left = WithoutFloat(left);
        right = WithoutFloat(right);
    }
    if (Reference::IsReduced(sign, left->Type(), right->Type())) {
        left = Short(left);
        right = Short(right);
    }
    return Expressions::Binary(sign, left, right);
}

Pointer RandomStatements::Choice(int depth) {
    const Pointer first = Typed(Expression(depth - 1));
    const Pointer second = Typed(Expression(depth - 1));
    const int chance = Below(3);
    if (chance == 0) {
        const Pointer value = WithoutFloat(first);
        const Pointer other = WithoutFloat(second);
        return HaveRoom(value->Type(), other->Type()) ? Expressions::NullIf(value, other) : value;
    }
    if (!HaveRoom(first->Type(), second->Type()))
        return first;
    if (chance == 1)
        return Expressions::Coalesce(first, second);
    const Pointer left = WithoutFloat(Leaf());
    const Pointer right = WithoutFloat(Leaf());
    return Expressions::Case(OneOf(std::vector{'=', '<', '>'}), left, right, first, second);
}

NumberType RandomStatements::SomeType() {
    const int chance = Below(12);
    if (chance == 0)
        return NumberType::Bit();
    if (chance < 3)
        return NumberType::Int();
    if (chance == 3)
        return NumberType::BigInt();
    if (chance < 6)
        return NumberType::Money();
    if (chance < 8)
        return NumberType::Float();
    const int precision = Below(8) == 0 ? kMostDigits : 1 + Below(18);
    return NumberType::Decimal(precision, Below(std::min(precision, 10) + 1));
}
