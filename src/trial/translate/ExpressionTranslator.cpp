#include "trial/translate/ExpressionTranslator.h"

#include "trial/sqlite/FileSchema.h"
#include "trial/translate/FunctionTranslator.h"
#include "trial/translate/QueryTranslator.h"
#include "tsql/ArithmeticType.h"
#include "tsql/ServerError.h"
#include "tsql/Units.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Of a sum that is one call of a function.
constexpr int kMostTerms = 40;
// In characters.
constexpr qint64 kMostComposed = 64 << 20;

QString RealText(double value) {
    QString text = QString::number(value, 'g', 17);
    if (!text.contains(u'.') && !text.contains(u'e'))
        text += u".0"_s;
    return text;
}

QString Code(const SqlType& type) {
    return QString::number(type.Encode());
}

/// A number that lies in SQLite's whole numbers and has room there for that many decimals.
bool HasRoomFor(const Typed& value, int scale) {
    const SqlType& type = value.type;
    return !type.IsWide() &&
           (type.scale == scale || type.precision + scale - type.scale <= SqlType::kNarrowDigits);
}

/// A whole number with so many zeros behind it.
QString WithZeros(const QString& sql, int zeros) {
    return zeros == 0 ? sql : u'(' + sql + u" * 1"_s + QString(zeros, u'0') + u')';
}

/// The values of literals; nothing for any other node.
struct LiteralReader {
    std::optional<Typed> operator()(const NullNode&) const { return Typed{{}, {}, false, Cell(), {}}; }
    std::optional<Typed> operator()(const TextNode& text) const {
        SqlType type = TextLiteralType(text.text, text.national);
        if (text.literal < 0)
            type.length = static_cast<int>(text.text.size());
        return Typed{{}, type, false, KnownValue(text.text.toUtf8(), text.literal), {}};
    }
    std::optional<Typed> operator()(const NumberNode& number) const {
        const auto [value, type] = NumberLiteral(number.written);
        return Typed{{}, type, false, KnownValue(value, number.literal), {}};
    }
    std::optional<Typed> operator()(const NegationNode& negation) const {
        auto inner = std::visit(*this, negation.operand->node);
        if (!inner || !inner->type.IsNumber())
            return std::nullopt;
        inner->constant = inner->constant.Negated(inner->type);
        return inner;
    }
    template <class Node> std::optional<Typed> operator()(const Node&) const { return std::nullopt; }
};

/// The conditions of a chain in the order in which they are written; it grows to the left.
template <class Chain> std::vector<const Expression*> LinksOf(const Chain& chain) {
    std::vector<const Expression*> links;
    const Expression* rest = nullptr;
    for (const Chain* at = &chain; at; at = rest->As<Chain>()) {
        links.push_back(at->right.get());
        rest = at->left.get();
    }
    links.push_back(rest);
    std::reverse(links.begin(), links.end());
    return links;
}

} // namespace

Typed ExpressionTranslator::Compose(const QString& sql, const SqlType& type,
                                    std::initializer_list<const Typed*> parts) {
    Typed whole{sql, type};
    for (const Typed* part : parts) {
        if (whole.looseColumn.isEmpty())
            whole.looseColumn = part->looseColumn;
    }
    return whole;
}

Typed ExpressionTranslator::Compose(const QString& sql, const SqlType& type,
                                    const std::vector<Typed>& parts) {
    Typed whole{sql, type};
    for (const Typed& part : parts) {
        if (whole.looseColumn.isEmpty())
            whole.looseColumn = part.looseColumn;
    }
    return whole;
}

Typed ExpressionTranslator::Constant(const KnownValue& known, const SqlType& type) {
    Typed constant{u"NULL"_s, type, false, known, {}};
    const Cell& value = known.Value();
    if (known.LiteralNumber() >= 0) {
        constant.sql = Bound(known);
    } else if (const auto* whole = std::get_if<qint64>(&value)) {
        constant.sql = QString::number(*whole);
    } else if (const auto* real = std::get_if<double>(&value)) {
        constant.sql = RealText(*real);
    } else if (const auto* text = std::get_if<QByteArray>(&value)) {
        QString& number = mState.textNumbers[*text];
        if (number.isEmpty())
            number = Bound(known);
        constant.sql = number;
    }
    return constant;
}

QString ExpressionTranslator::Bound(const KnownValue& value) {
    auto& constants = mState.out.constants;
    constants.push_back(value);
    return u'?' + QString::number(mState.out.firstConstant + static_cast<int>(constants.size()) - 1);
}

Typed ExpressionTranslator::Known(const Typed& literal) {
    return Constant(literal.constant, literal.type);
}

Typed ExpressionTranslator::Clock() {
    mState.out.clock = static_cast<int>(mState.parameters.size()) + 1;
    return {u'?' + QString::number(mState.out.clock), SqlType::DateTime()};
}

Typed ExpressionTranslator::ConvertTo(const Typed& value, const SqlType& type, ConversionPlace place,
                                      int style) {
    if (value.constant) {
        try {
            return Constant(value.constant.Converted(value.type, type, place, style), type);
        } catch (const RunTimeError&) {
            // It is raised where the statement comes to it; a CASE may never take this branch.
            return CallConversion(value, type, place, style);
        }
    }
    if (SameForm(value.type, type)) {
        Typed same = value;
        if (value.type.kind != type.kind) {
            same.terms.clear();
            same.termCount = 0;
        }
        same.type = type;
        return same;
    }
    if (const auto sql = PlainConversion(value, type))
        return Compose(*sql, type, {&value});
    return CallConversion(value, type, place, style);
}

Typed ExpressionTranslator::CallConversion(const Typed& value, const SqlType& type, ConversionPlace place,
                                           int style) {
    const QString function = place == ConversionPlace::Column ? u"tv_assign"_s : u"tv_convert"_s;
    const QString sql = function + u'(' + value.sql + u", "_s + Code(value.type) + u", "_s + Code(type) +
                        u", "_s + QString::number(style) + u')';
    return Compose(sql, type, {&value});
}

std::optional<QString> ExpressionTranslator::PlainConversion(const Typed& value, const SqlType& type) {
    if (value.type.IsWhole() && type.kind == SqlType::Kind::Float)
        return u"CAST("_s + value.sql + u" AS REAL)"_s;
    const bool small = value.type.kind == SqlType::Kind::Bit || value.type.kind == SqlType::Kind::Int ||
                       (value.type.kind == SqlType::Kind::Decimal && !value.type.IsWide());
    const int zeros = type.scale - value.type.scale;
    const bool fits = zeros >= 0 && value.type.precision + zeros <= type.precision;
    if (!small || !type.IsFixed() || type.IsWide() || !fits)
        return std::nullopt;
    return WithZeros(value.sql, zeros);
}

Typed ExpressionTranslator::MeetAs(const Typed& value, const SqlType& type) {
    if (value.type.IsNull() || (value.type.IsText() && type.IsText()))
        return value;
    // The size of a converted text plays no part in a comparison.
    SqlType target = type;
    if (target.IsText())
        target = SqlType::Text();
    if (value.type.IsNumber() && type.kind == SqlType::Kind::Date)
        RequireConvertible(value.type, type, false);
    return ConvertTo(value, target, ConversionPlace::Expression);
}

std::vector<Typed> ExpressionTranslator::MeetAll(const std::vector<Typed>& values) {
    SqlType common;
    int scale = 0;
    for (const Typed& value : values) {
        common = CommonType(common, value.type);
        scale = std::max(scale, value.type.scale);
    }
    if (common.kind != SqlType::Kind::Decimal)
        scale = -1;
    const bool narrow = std::all_of(values.begin(), values.end(), [&](const Typed& value) {
        return value.type.IsText() ? !common.IsWide() : HasRoomFor(value, scale);
    });
    std::vector<Typed> met;
    for (const Typed& value : values) {
        if (scale < 0)
            met.push_back(MeetAs(value, common));
        else if (!narrow)
            met.push_back(MeetAs(value, SqlType::Decimal(kMostDigits, scale)));
        else
            met.push_back(value.type.IsText() ? MeetAs(value, common) : WithScale(value, scale));
    }
    return met;
}

Typed ExpressionTranslator::WithScale(const Typed& value, int scale) {
    const int zeros = scale - value.type.scale;
    if (zeros == 0)
        return value;
    const SqlType type = SqlType::Decimal(value.type.precision + zeros, scale);
    if (value.constant)
        return ConvertTo(value, type, ConversionPlace::Expression);
    return Compose(WithZeros(value.sql, zeros), type, {&value});
}

QString ExpressionTranslator::Collated(const Typed& value) const {
    if (!value.type.IsText() || value.tableColumn)
        return value.sql;
    return value.sql + u" COLLATE "_s + CollationName();
}

std::optional<Typed> ExpressionTranslator::Literal(const Expression& expression) {
    return std::visit(LiteralReader(), expression.node);
}

Typed ExpressionTranslator::Translate(const Expression& expression) {
    Typed result = std::visit([this](const auto& node) { return Make(node); }, expression.node);
    // What stands in a translation more than once, such as the value of a NULLIF, grows with every level.
    mState.composed += result.sql.size();
    if (mState.composed > kMostComposed)
        throw ServerError(Fault::TooComplex);
    if (mScope && mScope->groupKeys.contains(result.sql))
        result.looseColumn.clear();
    return result;
}

Typed ExpressionTranslator::Make(const NullNode&) {
    return Constant(Cell(), {});
}

Typed ExpressionTranslator::Make(const TextNode& text) {
    return Known(*LiteralReader()(text));
}

Typed ExpressionTranslator::Make(const NumberNode& number) {
    return Known(*LiteralReader()(number));
}

Typed ExpressionTranslator::Make(const ParameterNode& parameter) {
    for (size_t i = 0; i < mState.parameters.size(); ++i) {
        if (mState.parameters[i].name.compare(parameter.name, Qt::CaseInsensitive) == 0)
            return {u'?' + QString::number(i + 1), mState.parameters[i].type};
    }
    throw ServerError(Fault::UndeclaredVariable, {parameter.name});
}

Typed ExpressionTranslator::Make(const ColumnNode& column) {
    if (mScope)
        return mScope->Resolve(column.path, mState.database);
    throw ServerError(Fault::InvalidColumn, {column.path.last()});
}

Typed ExpressionTranslator::Make(const NegationNode& negation) {
    if (const auto literal = LiteralReader()(negation))
        return Known(*literal);
    const Typed inner = Translate(*negation.operand);
    if (!inner.type.IsNumber() && !inner.type.IsNull())
        throw ServerError(Fault::InvalidOperand, {inner.type.Name(), u"minus"_s});
    if (inner.type.IsWide())
        return Compose(u"tv_total("_s + Code(inner.type) + u", -"_s + Code(inner.type) + u", "_s + inner.sql +
                           u')',
                       inner.type, {&inner});
    // With the blank, since two signs in a row would begin a comment.
    return InBounds(Compose(u"(- "_s + inner.sql + u')', inner.type, {&inner}));
}

Typed ExpressionTranslator::Make(const ArithmeticNode& arithmetic) {
    const Typed left = Translate(*arithmetic.left);
    const Typed right = Translate(*arithmetic.right);
    const SqlType common = CommonType(left.type, right.type);
    const QChar sign = arithmetic.sign;
    if (common.IsText()) {
        if (sign != u'+')
            throw ServerError(Fault::InvalidOperand, {common.Name(), OperatorName(sign)});
        return Joined(left, right);
    }
    if (common.IsDate())
        return AddDates(sign, left, right);
    const auto number = [&](const Typed& value) {
        return value.type.IsText() ? MeetAs(value, common) : value;
    };
    const Typed first = number(left);
    return Calculate(sign, first, number(right));
}

Typed ExpressionTranslator::AddDates(QChar sign, const Typed& left, const Typed& right) {
    const bool sum = sign == u'+' || sign == u'-';
    if (left.type.kind == SqlType::Kind::Date && right.type.kind == SqlType::Kind::Date)
        throw ServerError(Fault::InvalidOperand, {left.type.Name(), OperatorName(sign)});
    RequireConvertible(left.type, CommonType(left.type, right.type), false);
    RequireConvertible(right.type, CommonType(left.type, right.type), false);
    if (!sum || left.type.kind == SqlType::Kind::Date || right.type.kind == SqlType::Kind::Date)
        throw ServerError(Fault::IncompatibleTypes,
                          {left.type.Name(), right.type.Name(), OperatorName(sign)});
    const Typed a = MeetAs(left, SqlType::DateTime());
    const Typed b = MeetAs(right, SqlType::DateTime());
    return Compose(u"tv_datesum("_s + a.sql + (sign == u'+' ? u", 1, "_s : u", -1, "_s) + b.sql + u')',
                   SqlType::DateTime(), {&a, &b});
}

Typed ExpressionTranslator::Joined(const Typed& left, const Typed& right) {
    SqlType type = CommonType(left.type, right.type);
    type.length = SqlType::kUnbounded;
    const QString terms = (left.terms.isEmpty() ? left.sql : left.terms) + u" || "_s + right.sql;
    const QString cut = u"tv_cut("_s + terms + u", "_s + QString::number(type.MostCharacters()) + u')';
    Typed result = Compose(cut, type, {&left, &right});
    result.terms = terms;
    return result;
}

Typed ExpressionTranslator::Calculate(QChar sign, const Typed& left, const Typed& right) {
    const SqlType type = ArithmeticType(sign, left.type, right.type);
    if (type.IsFixed()) {
        // Money has no room for every bigint, and for all other whole numbers.
        const auto fitting = [&](const Typed& value) {
            const bool big = value.type.kind == SqlType::Kind::BigInt && type.kind == SqlType::Kind::Money;
            return big ? MeetAs(value, type) : value;
        };
        const Typed first = fitting(left);
        return CalculateFixed(sign, first, fitting(right), type);
    }
    if (type.kind == SqlType::Kind::Float && sign == u'%')
        throw ServerError(Fault::IncompatibleTypes,
                          {left.type.Name(), right.type.Name(), OperatorName(sign)});
    const Typed a = MeetAs(left, type);
    const Typed b = MeetAs(right, type);
    if (sign == u'+' || sign == u'-')
        return Sum(sign, a, b, type);
    const QString sql = sign == u'*'   ? u'(' + a.sql + u" * "_s + b.sql + u')'
                        : sign == u'/' ? u"tv_divide("_s + a.sql + u", "_s + b.sql + u')'
                                       : u"tv_modulo("_s + a.sql + u", "_s + b.sql + u')';
    return InBounds(Compose(sql, type, {&a, &b}));
}

Typed ExpressionTranslator::CalculateFixed(QChar sign, const Typed& left, const Typed& right,
                                           const SqlType& type) {
    if (sign == u'+' || sign == u'-') {
        const bool room = HasRoomFor(left, type.scale) && HasRoomFor(right, type.scale);
        return room && !type.IsWide()
                   ? Sum(sign, WithScale(left, type.scale), WithScale(right, type.scale), type)
                   : WideSum(sign, left, right, type);
    }
    // The units multiply as they are where no digit has to go.
    const bool plain = left.type.scale + right.type.scale == type.scale && !type.IsWide() &&
                       left.type.kind != SqlType::Kind::BigInt && right.type.kind != SqlType::Kind::BigInt;
    if (sign == u'*' && plain)
        return InBounds(Compose(u'(' + left.sql + u" * "_s + right.sql + u')', type, {&left, &right}));
    const QString name = sign == u'*' ? u"tv_multiply("_s : sign == u'/' ? u"tv_divide("_s : u"tv_modulo("_s;
    return Compose(name + left.sql + u", "_s + Code(left.type) + u", "_s + right.sql + u", "_s +
                       Code(right.type) + u", "_s + Code(type) + u')',
                   type, {&left, &right});
}

Typed ExpressionTranslator::IntSum(QChar sign, const Typed& left, const Typed& right) {
    const bool goesOn =
        left.type.kind == SqlType::Kind::Int && !left.terms.isEmpty() && left.termCount < kMostTerms;
    const QString terms = (goesOn ? left.terms : left.sql) + (sign == u'-' ? u", - "_s : u", "_s) + right.sql;
    Typed sum = Compose(u"tv_intsum("_s + terms + u')', SqlType::Int(), {&left, &right});
    sum.terms = terms;
    sum.termCount = goesOn ? left.termCount + 1 : 2;
    return sum;
}

Typed ExpressionTranslator::Sum(QChar sign, const Typed& left, const Typed& right, const SqlType& type) {
    if (type.kind == SqlType::Kind::Int)
        return IntSum(sign, left, right);
    // What is put together without parentheses must have been reckoned in the same type.
    const bool goesOn = !left.terms.isEmpty() && left.type.kind == type.kind;
    const QString terms = (goesOn ? left.terms : left.sql) + u' ' + sign + u' ' + right.sql;
    Typed result = InBounds(Compose(u'(' + terms + u')', type, {&left, &right}));
    result.terms = terms;
    return result;
}

Typed ExpressionTranslator::WideSum(QChar sign, const Typed& left, const Typed& right, const SqlType& type) {
    const bool goesOn = left.type.IsWide() && left.type.scale == type.scale && !left.terms.isEmpty() &&
                        left.termCount < kMostTerms;
    const QString terms = (goesOn ? left.terms : Code(left.type) + u", "_s + left.sql) +
                          (sign == u'-' ? u", -"_s : u", "_s) + Code(right.type) + u", "_s + right.sql;
    Typed total = Compose(u"tv_total("_s + Code(type) + u", "_s + terms + u')', type, {&left, &right});
    if (type.IsWide()) {
        total.terms = terms;
        total.termCount = goesOn ? left.termCount + 1 : 2;
    }
    return total;
}

Typed ExpressionTranslator::InBounds(Typed result) {
    const SqlType type = result.type;
    const auto checked = [&](const QString& function) {
        return Compose(function + u'(' + result.sql + u')', type, {&result});
    };
    switch (type.kind) {
    case SqlType::Kind::BigInt:
        return checked(u"tv_bigint"_s);
    case SqlType::Kind::Money:
        return checked(u"tv_money"_s);
    case SqlType::Kind::Float:
        return checked(u"tv_float"_s);
    case SqlType::Kind::Int:
        result.type = SqlType::BigInt();
        return ConvertTo(result, type, ConversionPlace::Expression);
    default:
        return result;
    }
}

Typed ExpressionTranslator::Make(const CallNode& call) {
    return FunctionTranslator(*this).Translate(call);
}

Typed ExpressionTranslator::Make(const CastNode& cast) {
    const Typed value = Translate(*cast.value);
    RequireConvertible(value.type, cast.type, true);
    return ConvertTo(value, cast.type, ConversionPlace::Expression, cast.style);
}

void ExpressionTranslator::RequireResult(const CaseNode& choice) {
    const bool nothing = std::all_of(choice.branches.begin(), choice.branches.end(),
                                     [](const CaseBranch& branch) { return IsNullLiteral(branch.then); });
    if (nothing && (!choice.otherwise || IsNullLiteral(choice.otherwise)))
        throw ServerError(Fault::CaseOfNulls);
}

Typed ExpressionTranslator::Make(const CaseNode& choice) {
    RequireResult(choice);
    std::vector<Typed> parts;
    std::vector<Typed> values;
    SqlType common;
    for (const CaseBranch& branch : choice.branches) {
        parts.push_back(choice.operand ? Compare(u"="_s, *choice.operand, *branch.when)
                                       : Translate(*branch.when));
        values.push_back(Translate(*branch.then));
        common = CommonType(common, values.back().type);
    }
    if (choice.otherwise) {
        values.push_back(Translate(*choice.otherwise));
        common = CommonType(common, values.back().type);
    }
    QString sql = u"(CASE"_s;
    for (size_t i = 0; i < parts.size(); ++i)
        sql += u" WHEN "_s + parts[i].sql + u" THEN "_s + MeetAs(values[i], common).sql;
    if (choice.otherwise)
        sql += u" ELSE "_s + MeetAs(values.back(), common).sql;
    parts.insert(parts.end(), values.begin(), values.end());
    return Compose(sql + u" END)"_s, common, parts);
}

Typed ExpressionTranslator::Make(const SubqueryNode& subquery) {
    const TranslatedQuery query = QueryTranslator(mState, mScope).Translate(*subquery.query);
    if (query.columns.size() != 1)
        throw ServerError(Fault::UnionLengths);
    // SQLite would take the first of several rows.
    const QString sql = query.oneRow ? query.sql : u"SELECT tv_only(c1) FROM ("_s + query.sql + u')';
    return {u'(' + sql + u')', query.columns[0].type};
}

Typed ExpressionTranslator::Make(const ComparisonNode& comparison) {
    return Compare(comparison.sign, *comparison.left, *comparison.right);
}

Typed ExpressionTranslator::Compare(const QString& sign, const Expression& left, const Expression& right) {
    // One behind the other: what is wrong on the left is told first.
    const Typed first = Translate(left);
    return Compare(sign, first, Translate(right));
}

Typed ExpressionTranslator::Compare(const QString& sign, const Typed& left, const Typed& right) {
    const std::vector<Typed> met = MeetAll({left, right});
    const Typed& a = met[0];
    const Typed& b = met[1];
    // The collation of a table's column reaches the whole comparison, and keeps its index usable.
    const QString first = b.tableColumn ? a.sql : Collated(a);
    return Compose(u"("_s + first + u' ' + sign + u' ' + b.sql + u')', {}, {&left, &right});
}

Typed ExpressionTranslator::Make(const AndNode& both) {
    return MakeChain(both, u" AND "_s);
}

Typed ExpressionTranslator::Make(const OrNode& either) {
    return MakeChain(either, u" OR "_s);
}

template <class Chain> Typed ExpressionTranslator::MakeChain(const Chain& chain, const QString& word) {
    // Read as one it needs one pair of parentheses.
    std::vector<Typed> conditions;
    QStringList texts;
    for (const Expression* link : LinksOf(chain)) {
        conditions.push_back(Translate(*link));
        texts << conditions.back().sql;
    }
    return Compose(u'(' + texts.join(word) + u')', {}, conditions);
}

Typed ExpressionTranslator::Make(const NotNode& inverse) {
    return Negated(true, Translate(*inverse.condition));
}

Typed ExpressionTranslator::Negated(bool negated, Typed condition) {
    if (negated)
        condition.sql = u"(NOT "_s + condition.sql + u')';
    return condition;
}

Typed ExpressionTranslator::Make(const IsNullNode& test) {
    const Typed value = Translate(*test.value);
    return Compose(u"("_s + value.sql + (test.negated ? u" IS NOT NULL)"_s : u" IS NULL)"_s), {}, {&value});
}

Typed ExpressionTranslator::Make(const LikeNode& like) {
    const Typed text = MeetAs(Translate(*like.text), SqlType::Text());
    const Typed pattern = MeetAs(Translate(*like.pattern), SqlType::Text());
    const bool national =
        text.type.kind == SqlType::Kind::NVarChar || pattern.type.kind == SqlType::Kind::NVarChar;
    return Negated(like.negated, Compose(u"tv_like("_s + text.sql + u", "_s + pattern.sql +
                                             (national ? u", 1)"_s : u", 0)"_s),
                                         {}, {&text, &pattern}));
}

Typed ExpressionTranslator::Make(const BetweenNode& between) {
    const Typed value = Translate(*between.value);
    const Typed low = Compare(u">="_s, value, Translate(*between.low));
    const Typed high = Compare(u"<="_s, value, Translate(*between.high));
    return Negated(between.negated,
                   Compose(u'(' + low.sql + u" AND "_s + high.sql + u')', {}, {&low, &high}));
}

Typed ExpressionTranslator::Make(const InListNode& in) {
    std::vector<Typed> values = {Translate(*in.value)};
    for (const ExpressionPtr& value : in.list)
        values.push_back(Translate(*value));
    const std::vector<Typed> met = MeetAll(values);
    QStringList texts;
    for (size_t i = 1; i < met.size(); ++i)
        texts << met[i].sql;
    return Negated(
        in.negated,
        Compose(u"("_s + Collated(met.front()) + u" IN ("_s + texts.join(u", "_s) + u"))"_s, {}, values));
}

Typed ExpressionTranslator::Make(const InQueryNode& in) {
    const Typed left = Translate(*in.value);
    Typed metLeft = left;
    const TranslatedQuery query =
        QueryTranslator(mState, mScope).Translate(*in.query, [&](size_t, const Typed& item) {
            const std::vector<Typed> met = MeetAll({left, item});
            metLeft = met[0];
            return met[1];
        });
    if (query.columns.size() != 1)
        throw ServerError(Fault::UnionLengths);
    return Negated(in.negated,
                   Compose(u"("_s + Collated(metLeft) + u" IN ("_s + query.sql + u"))"_s, {}, {&left}));
}

Typed ExpressionTranslator::Make(const ExistsNode& exists) {
    const TranslatedQuery query = QueryTranslator(mState, mScope).Translate(*exists.query);
    return {u"EXISTS ("_s + query.sql + u')', {}};
}
