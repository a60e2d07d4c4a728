#include "trial/translate/ExpressionTranslator.h"

#include "trial/sqlite/FileSchema.h"
#include "trial/translate/FunctionTranslator.h"
#include "trial/translate/QueryTranslator.h"
#include "tsql/ArithmeticType.h"
#include "tsql/ServerError.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString RealText(double value) {
    QString text = QString::number(value, 'g', 17);
    if (!text.contains(u'.') && !text.contains(u'e'))
        text += u".0"_s;
    return text;
}

Cell Negative(const Cell& value) {
    if (const auto* whole = std::get_if<qint64>(&value))
        return -*whole;
    const auto* real = std::get_if<double>(&value);
    return real ? Cell(-*real) : value;
}

/// The values of literals; nothing for any other node.
struct LiteralReader {
    std::optional<Typed> operator()(const NullNode&) const { return Typed{{}, {}, false, Cell(), {}}; }
    std::optional<Typed> operator()(const TextNode& text) const {
        const auto kind = text.national ? SqlType::Kind::NVarChar : SqlType::Kind::VarChar;
        const SqlType type{kind, static_cast<int>(text.text.size()), 0, 0};
        return Typed{{}, type, false, text.text.toUtf8(), {}};
    }
    std::optional<Typed> operator()(const NumberNode& number) const {
        const auto [value, type] = NumberLiteral(number.written);
        return Typed{{}, type, false, value, {}};
    }
    std::optional<Typed> operator()(const NegationNode& negation) const {
        auto inner = std::visit(*this, negation.operand->node);
        if (!inner || !inner->type.IsNumber())
            return std::nullopt;
        inner->constant = Negative(*inner->constant);
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

Typed ExpressionTranslator::Constant(const Cell& value, const SqlType& type) {
    Typed constant{u"NULL"_s, type, false, value, {}};
    if (const auto* whole = std::get_if<qint64>(&value)) {
        constant.sql = QString::number(*whole);
    } else if (const auto* real = std::get_if<double>(&value)) {
        constant.sql = RealText(*real);
    } else if (std::holds_alternative<QByteArray>(value)) {
        auto& known = mState.out.constants;
        const auto found = std::find(known.begin(), known.end(), value);
        constant.sql = u'?' + QString::number(mState.out.firstConstant + (found - known.begin()));
        if (found == known.end())
            known.push_back(value);
    }
    return constant;
}

Typed ExpressionTranslator::Known(const Typed& literal) {
    return Constant(*literal.constant, literal.type);
}

Typed ExpressionTranslator::Clock() {
    mState.out.clock = static_cast<int>(mState.parameters.size()) + 1;
    return {u'?' + QString::number(mState.out.clock), SqlType::DateTime()};
}

Typed ExpressionTranslator::ConvertTo(const Typed& value, const SqlType& type, ConversionPlace place,
                                      int style) {
    if (value.constant)
        return Constant(Convert(*value.constant, value.type, type, place, style), type);
    if (SameForm(value.type, type)) {
        Typed same = value;
        same.type = type;
        return same;
    }
    const QString function = place == ConversionPlace::Column ? u"tv_assign"_s : u"tv_convert"_s;
    const QString sql = function + u'(' + value.sql + u", "_s + QString::number(value.type.Encode()) +
                        u", "_s + QString::number(type.Encode()) + u", "_s + QString::number(style) + u')';
    return Compose(sql, type, {&value});
}

Typed ExpressionTranslator::MeetAs(const Typed& value, const SqlType& type) {
    const bool sameFamily = value.type.IsNull() || (value.type.IsText() && type.IsText()) ||
                            (value.type.IsNumber() && type.IsNumber()) || value.type.kind == type.kind;
    if (sameFamily)
        return value;
    // The size of a converted text plays no part in a comparison.
    SqlType target = type;
    if (target.IsText())
        target = SqlType::Text();
    if (value.type.IsNumber() && type.kind == SqlType::Kind::Date)
        throw ServerError(Fault::OperandClash, {value.type.Name(), type.Name()});
    return ConvertTo(value, target, ConversionPlace::Expression);
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
        return Compose(u"("_s + left.sql + u" || "_s + right.sql + u')', SqlType::Text(), {&left, &right});
    }
    if (common.IsDate())
        throw ServerError(Fault::IncompatibleTypes,
                          {left.type.Name(), right.type.Name(), OperatorName(sign)});
    return Calculate(sign, MeetAs(left, common), MeetAs(right, common));
}

Typed ExpressionTranslator::Calculate(QChar sign, const Typed& left, const Typed& right) {
    const bool sum = sign == u'+' || sign == u'-';
    const QString terms =
        (sum && !left.terms.isEmpty() ? left.terms : left.sql) + u' ' + sign + u' ' + right.sql;
    QString sql = u'(' + terms + u')';
    if (sign == u'/' || sign == u'%')
        sql = (sign == u'/' ? u"tv_divide("_s : u"tv_modulo("_s) + left.sql + u", "_s + right.sql + u')';
    const SqlType type = ArithmeticType(sign, left.type, right.type);
    if (type.IsFixed())
        sql = u"tv_round("_s + sql + u", "_s + QString::number(type.scale) + u')';
    Typed result = InBounds(Compose(sql, type, {&left, &right}));
    if (sum)
        result.terms = terms;
    return result;
}

Typed ExpressionTranslator::InBounds(Typed result) {
    const SqlType type = result.type;
    if (type.kind == SqlType::Kind::BigInt)
        return Compose(u"tv_bigint("_s + result.sql + u')', type, {&result});
    if (type.kind != SqlType::Kind::Int)
        return result;
    result.type = SqlType::BigInt();
    return ConvertTo(result, type, ConversionPlace::Expression);
}

Typed ExpressionTranslator::Make(const CallNode& call) {
    return FunctionTranslator(*this).Translate(call);
}

Typed ExpressionTranslator::Make(const CastNode& cast) {
    return ConvertTo(Translate(*cast.value), cast.type, ConversionPlace::Expression, cast.style);
}

Typed ExpressionTranslator::Make(const CaseNode& choice) {
    std::vector<Typed> parts;
    std::vector<Typed> values;
    SqlType common;
    for (const CaseBranch& branch : choice.branches) {
        Typed condition = Translate(*branch.when);
        if (choice.operand)
            condition = Compare(u"="_s, Translate(*choice.operand), condition);
        parts.push_back(condition);
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
    return {u'(' + query.sql + u')', query.columns[0].type};
}

Typed ExpressionTranslator::Make(const ComparisonNode& comparison) {
    return Compare(comparison.sign, Translate(*comparison.left), Translate(*comparison.right));
}

Typed ExpressionTranslator::Compare(const QString& sign, const Typed& left, const Typed& right) {
    const SqlType common = CommonType(left.type, right.type);
    const Typed a = MeetAs(left, common);
    const Typed b = MeetAs(right, common);
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
    return Negated(like.negated,
                   Compose(u"tv_like("_s + text.sql + u", "_s + pattern.sql + u')', {}, {&text, &pattern}));
}

Typed ExpressionTranslator::Make(const BetweenNode& between) {
    const Typed value = Translate(*between.value);
    const Typed low = Compare(u">="_s, value, Translate(*between.low));
    const Typed high = Compare(u"<="_s, value, Translate(*between.high));
    return Negated(between.negated,
                   Compose(u'(' + low.sql + u" AND "_s + high.sql + u')', {}, {&low, &high}));
}

Typed ExpressionTranslator::Make(const InListNode& in) {
    const Typed left = Translate(*in.value);
    std::vector<Typed> values;
    SqlType common = left.type;
    for (const ExpressionPtr& value : in.list) {
        values.push_back(Translate(*value));
        common = CommonType(common, values.back().type);
    }
    QStringList texts;
    for (const Typed& value : values)
        texts << MeetAs(value, common).sql;
    values.push_back(left);
    return Negated(in.negated, Compose(u"("_s + Collated(MeetAs(left, common)) + u" IN ("_s +
                                           texts.join(u", "_s) + u"))"_s,
                                       {}, values));
}

Typed ExpressionTranslator::Make(const InQueryNode& in) {
    const Typed left = Translate(*in.value);
    SqlType common = left.type;
    const TranslatedQuery query =
        QueryTranslator(mState, mScope).Translate(*in.query, [&](size_t, const Typed& item) {
            common = CommonType(left.type, item.type);
            return MeetAs(item, common);
        });
    if (query.columns.size() != 1)
        throw ServerError(Fault::UnionLengths);
    return Negated(
        in.negated,
        Compose(u"("_s + Collated(MeetAs(left, common)) + u" IN ("_s + query.sql + u"))"_s, {}, {&left}));
}

Typed ExpressionTranslator::Make(const ExistsNode& exists) {
    const TranslatedQuery query = QueryTranslator(mState, mScope).Translate(*exists.query);
    return {u"EXISTS ("_s + query.sql + u')', {}};
}
