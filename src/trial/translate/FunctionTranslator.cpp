#include "trial/translate/FunctionTranslator.h"

#include "tsql/ArithmeticType.h"
#include "tsql/ServerError.h"

#include <QHash>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnyNumber = 100;

} // namespace

const FunctionTranslator::Function* FunctionTranslator::Find(const QString& name) {
    using F = FunctionTranslator;
    static constexpr std::array kFunctions = {
        Function{u"CONCAT", 2, kAnyNumber, &F::Concat},
        Function{u"COALESCE", 2, kAnyNumber, &F::Coalesce},
        Function{u"NULLIF", 2, 2, &F::NullIf},
        Function{u"GETDATE", 0, 0, &F::GetDate},
        Function{u"SUSER_SNAME", 0, 0, &F::SessionUser},
        Function{u"LEN", 1, 1, &F::Len},
        Function{u"LEFT", 2, 2, &F::Part},
        Function{u"RIGHT", 2, 2, &F::Part},
        Function{u"SUBSTRING", 3, 3, &F::Substring},
        Function{u"UPPER", 1, 1, &F::ChangeText},
        Function{u"LOWER", 1, 1, &F::ChangeText},
        Function{u"LTRIM", 1, 1, &F::ChangeText},
        Function{u"RTRIM", 1, 1, &F::ChangeText},
        Function{u"REPLACE", 3, 3, &F::Replace},
        Function{u"REPLICATE", 2, 2, &F::Replicate},
        Function{u"ABS", 1, 1, &F::Abs},
        Function{u"ROUND", 2, 3, &F::Round},
        Function{u"DATEADD", 2, 2, &F::DateAdd},
        Function{u"DATEDIFF", 2, 2, &F::DateDiff},
        Function{u"YEAR", 1, 1, &F::DatePart},
        Function{u"MONTH", 1, 1, &F::DatePart},
        Function{u"DAY", 1, 1, &F::DatePart},
        Function{u"COUNT", 0, 1, &F::Count},
        Function{u"SUM", 1, 1, &F::Sum},
        Function{u"AVG", 1, 1, &F::Average},
        Function{u"MIN", 1, 1, &F::Extreme},
        Function{u"MAX", 1, 1, &F::Extreme},
    };
    const auto* found = std::find_if(kFunctions.begin(), kFunctions.end(),
                                     [&](const Function& f) { return name == QStringView(f.name); });
    return found == kFunctions.end() ? nullptr : found;
}

Typed FunctionTranslator::Translate(const CallNode& call) {
    const Function* function = Find(call.name);
    if (!function)
        throw ServerError(Fault::UnknownFunction, {call.name});
    if (call.distinct && call.name != "COUNT"_L1)
        throw ServerError(Fault::IncorrectSyntaxNearKeyword, {u"distinct"_s});
    const int count = static_cast<int>(call.arguments.size());
    const bool starMisplaced = call.star && call.name != "COUNT"_L1;
    if (count < function->least || count > function->most || starMisplaced)
        throw ServerError(Fault::ArgumentCount, {call.name.toLower(), QString::number(function->least)});
    return (this->*function->handler)(call);
}

Typed FunctionTranslator::Argument(const CallNode& call, size_t number) {
    return mExpressions.Translate(*call.arguments[number]);
}

Typed FunctionTranslator::TextArgument(const CallNode& call, size_t number) {
    return mExpressions.MeetAs(Argument(call, number), SqlType::Text());
}

Typed FunctionTranslator::WholeArgument(const CallNode& call, size_t number, const SqlType& type) {
    const Typed value = Argument(call, number);
    RequireConvertible(value.type, type, false);
    return mExpressions.ConvertTo(value, type, ConversionPlace::Expression);
}

Typed FunctionTranslator::DateArgument(const CallNode& call, size_t number) {
    const Typed value = Argument(call, number);
    return value.type.IsDate() ? value : mExpressions.MeetAs(value, SqlType::DateTime());
}

Typed FunctionTranslator::NumberArgument(const CallNode& call, size_t number) {
    const Typed value = Argument(call, number);
    if (value.type.IsDate())
        throw ServerError(Fault::InvalidOperand, {value.type.Name(), call.name.toLower()});
    return value.type.IsText() ? mExpressions.ConvertTo(value, SqlType::Float(), ConversionPlace::Expression)
                               : value;
}

Typed FunctionTranslator::Call(const QString& name, const SqlType& type,
                               const std::vector<Typed>& arguments) {
    QStringList texts;
    for (const Typed& argument : arguments)
        texts << argument.sql;
    return ExpressionTranslator::Compose(name + u'(' + texts.join(u", "_s) + u')', type, arguments);
}

SqlType FunctionTranslator::MadeOf(const std::vector<Typed>& texts) {
    const bool national = std::any_of(texts.begin(), texts.end(), [](const Typed& text) {
        return text.type.kind == SqlType::Kind::NVarChar;
    });
    return {national ? SqlType::Kind::NVarChar : SqlType::Kind::VarChar, SqlType::kUnbounded, 0, 0};
}

Typed FunctionTranslator::Limit(const SqlType& text) {
    return {QString::number(text.MostCharacters()), SqlType::Int()};
}

Typed FunctionTranslator::Concat(const CallNode& call) {
    std::vector<Typed> texts;
    for (size_t i = 0; i < call.arguments.size(); ++i)
        texts.push_back(TextArgument(call, i));
    const SqlType type = MadeOf(texts);
    texts.insert(texts.begin(), Limit(type));
    return Call(u"tv_concat"_s, type, texts);
}

Typed FunctionTranslator::Coalesce(const CallNode& call) {
    if (std::all_of(call.arguments.begin(), call.arguments.end(), IsNullLiteral))
        throw ServerError(Fault::CoalesceOfNulls);
    std::vector<Typed> values;
    SqlType common;
    for (size_t i = 0; i < call.arguments.size(); ++i) {
        values.push_back(Argument(call, i));
        common = CommonType(common, values.back().type);
    }
    for (Typed& value : values)
        value = mExpressions.MeetAs(value, common);
    return Call(u"coalesce"_s, common, values);
}

Typed FunctionTranslator::NullIf(const CallNode& call) {
    const Typed value = Argument(call, 0);
    const Typed other = Argument(call, 1);
    const std::vector<Typed> met = mExpressions.MeetAll({value, other});
    return ExpressionTranslator::Compose(u"(CASE WHEN "_s + mExpressions.Collated(met[0]) + u" = "_s +
                                             met[1].sql + u" THEN NULL ELSE "_s + value.sql + u" END)"_s,
                                         value.type, {&value, &other});
}

Typed FunctionTranslator::GetDate(const CallNode&) {
    return mExpressions.Clock();
}

Typed FunctionTranslator::SessionUser(const CallNode&) {
    constexpr int kLongestName = 128;
    return {u"tv_user()"_s, {SqlType::Kind::NVarChar, kLongestName, 0, 0}};
}

Typed FunctionTranslator::Len(const CallNode& call) {
    return Call(u"tv_len"_s, SqlType::Int(), {TextArgument(call, 0)});
}

Typed FunctionTranslator::Part(const CallNode& call) {
    return Call(u"tv_"_s + call.name.toLower(), SqlType::Text(),
                {TextArgument(call, 0), WholeArgument(call, 1)});
}

Typed FunctionTranslator::Substring(const CallNode& call) {
    return Call(u"tv_substring"_s, SqlType::Text(),
                {TextArgument(call, 0), WholeArgument(call, 1), WholeArgument(call, 2)});
}

Typed FunctionTranslator::ChangeText(const CallNode& call) {
    std::vector<Typed> texts;
    for (size_t i = 0; i < call.arguments.size(); ++i)
        texts.push_back(TextArgument(call, i));
    return Call(u"tv_"_s + call.name.toLower(), SqlType::Text(), texts);
}

Typed FunctionTranslator::Replace(const CallNode& call) {
    std::vector<Typed> texts;
    for (size_t i = 0; i < call.arguments.size(); ++i)
        texts.push_back(TextArgument(call, i));
    const SqlType type = MadeOf(texts);
    texts.push_back(Limit(type));
    return Call(u"tv_replace"_s, type, texts);
}

Typed FunctionTranslator::Replicate(const CallNode& call) {
    const Typed text = TextArgument(call, 0);
    const SqlType type = MadeOf({text});
    return Call(u"tv_replicate"_s, type, {text, WholeArgument(call, 1), Limit(type)});
}

Typed FunctionTranslator::Abs(const CallNode& call) {
    const Typed value = NumberArgument(call, 0);
    if (value.type.IsWide())
        return Call(u"tv_abs"_s, value.type, {value, TypeArgument(value.type)});
    return mExpressions.InBounds(Call(u"abs"_s, value.type, {value}));
}

Typed FunctionTranslator::Round(const CallNode& call) {
    const Typed value = NumberArgument(call, 0);
    std::vector<Typed> arguments = {value, WholeArgument(call, 1)};
    arguments.push_back(call.arguments.size() > 2 ? WholeArgument(call, 2) : Typed{u"0"_s, SqlType::Int()});
    arguments.push_back(TypeArgument(value.type));
    return mExpressions.InBounds(Call(u"tv_round"_s, value.type, arguments));
}

QString FunctionTranslator::DatePartName(const CallNode& call) const {
    static const QHash<QString, QString> kParts = {
        {u"year"_s, u"year"_s}, {u"yyyy"_s, u"year"_s}, {u"yy"_s, u"year"_s}, {u"month"_s, u"month"_s},
        {u"mm"_s, u"month"_s},  {u"m"_s, u"month"_s},   {u"day"_s, u"day"_s}, {u"dd"_s, u"day"_s},
        {u"d"_s, u"day"_s},     {u"hour"_s, u"hour"_s}, {u"hh"_s, u"hour"_s}, {u"minute"_s, u"minute"_s},
        {u"mi"_s, u"minute"_s}, {u"n"_s, u"minute"_s},
    };
    const QString part = kParts.value(call.datePart.toLower());
    if (part.isEmpty())
        throw ServerError(Fault::UnknownDatePart, {call.datePart, call.name.toLower()});
    return u'\'' + part + u'\'';
}

Typed FunctionTranslator::DateAdd(const CallNode& call) {
    const QString name = DatePartName(call);
    const Typed part{name, SqlType::Text()};
    const Typed date = DateArgument(call, 1);
    if (date.type.kind == SqlType::Kind::Date && (name == "'hour'"_L1 || name == "'minute'"_L1))
        throw ServerError(Fault::DatePartOfDate, {call.datePart.toLower(), u"dateadd"_s});
    return Call(u"tv_dateadd"_s, date.type, {part, WholeArgument(call, 0, SqlType::Int()), date});
}

Typed FunctionTranslator::DateDiff(const CallNode& call) {
    const Typed part{DatePartName(call), SqlType::Text()};
    return Call(u"tv_datediff"_s, SqlType::Int(), {part, DateArgument(call, 0), DateArgument(call, 1)});
}

Typed FunctionTranslator::DatePart(const CallNode& call) {
    const Typed part{u'\'' + call.name.toLower() + u'\'', SqlType::Text()};
    return Call(u"tv_datepart"_s, SqlType::Int(), {part, DateArgument(call, 0)});
}

Typed FunctionTranslator::AggregateArgument(const CallNode& call) {
    if (!mExpressions.aggregatesAllowed)
        throw ServerError(Fault::AggregateInWhere);
    mExpressions.sawAggregate = false;
    Typed value = Argument(call, 0);
    if (mExpressions.sawAggregate)
        throw ServerError(Fault::NestedAggregate);
    mExpressions.sawAggregate = true;
    value.looseColumn.clear();
    return value;
}

Typed FunctionTranslator::Count(const CallNode& call) {
    if (call.star == !call.arguments.empty())
        throw ServerError(Fault::ArgumentCount, {u"count"_s, u"1"_s});
    if (call.star) {
        if (!mExpressions.aggregatesAllowed)
            throw ServerError(Fault::AggregateInWhere);
        mExpressions.sawAggregate = true;
        return {u"count(*)"_s, SqlType::Int()};
    }
    const Typed value = AggregateArgument(call);
    const QString distinct = call.distinct ? u"DISTINCT "_s + mExpressions.Collated(value) : value.sql;
    return {u"count("_s + distinct + u')', SqlType::Int()};
}

Typed FunctionTranslator::TypeArgument(const SqlType& type) {
    return {QString::number(type.Encode()), SqlType::BigInt()};
}

Typed FunctionTranslator::Sum(const CallNode& call) {
    const Typed value = AggregateArgument(call);
    if (!value.type.IsNumber() || value.type.kind == SqlType::Kind::Bit)
        throw ServerError(Fault::InvalidOperand, {value.type.Name(), u"sum"_s});
    if (value.type.IsFixed())
        return Call(u"tv_sum"_s, SumType(value.type), {value, TypeArgument(value.type)});
    const Typed sum = Call(u"sum"_s, value.type, {value});
    return value.type.kind == SqlType::Kind::Int ? mExpressions.InBounds(sum) : sum;
}

Typed FunctionTranslator::Average(const CallNode& call) {
    const Typed value = AggregateArgument(call);
    if (!value.type.IsNumber() || value.type.kind == SqlType::Kind::Bit)
        throw ServerError(Fault::InvalidOperand, {value.type.Name(), u"avg"_s});
    // Kept: the average of whole numbers is a whole number, its decimals cut.
    if (value.type.IsWhole()) {
        const Typed sum = mExpressions.InBounds(Call(u"sum"_s, AnyWhole(value.type), {value}));
        return {u'(' + sum.sql + u" / count("_s + value.sql + u"))"_s, sum.type};
    }
    if (value.type.IsFixed())
        return Call(u"tv_avg"_s, AverageType(value.type), {value, TypeArgument(value.type)});
    return Call(u"avg"_s, value.type, {value});
}

Typed FunctionTranslator::Extreme(const CallNode& call) {
    const Typed value = AggregateArgument(call);
    if (value.type.kind == SqlType::Kind::Bit)
        throw ServerError(Fault::InvalidOperand, {value.type.Name(), call.name.toLower()});
    return {call.name.toLower() + u'(' + mExpressions.Collated(value) + u')', value.type};
}
