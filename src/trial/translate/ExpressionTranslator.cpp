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

using Kind = Expression::Kind;

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
    switch (expression.kind) {
    case Kind::Null:
        return Typed{u"NULL"_s, {}, false, Cell(), {}};
    case Kind::Text: {
        const auto kind = expression.national ? SqlType::Kind::NVarChar : SqlType::Kind::VarChar;
        const SqlType type{kind, static_cast<int>(expression.text.size()), 0, 0};
        return Typed{{}, type, false, expression.text.toUtf8(), {}};
    }
    case Kind::Number: {
        const auto [value, type] = NumberLiteral(expression.text);
        return Typed{{}, type, false, value, {}};
    }
    case Kind::Negate: {
        auto inner = Literal(*expression.arguments[0]);
        if (!inner || !inner->type.IsNumber())
            return std::nullopt;
        inner->constant = Negative(*inner->constant);
        return inner;
    }
    default:
        return std::nullopt;
    }
}

Typed ExpressionTranslator::Translate(const Expression& expression) {
    if (const auto literal = Literal(expression))
        return Constant(*literal->constant, literal->type);
    Typed result = TranslateNode(expression);
    if (mScope && mScope->groupKeys.contains(result.sql))
        result.looseColumn.clear();
    return result;
}

Typed ExpressionTranslator::TranslateNode(const Expression& expression) {
    switch (expression.kind) {
    case Kind::Parameter:
        return TranslateParameter(expression.text);
    case Kind::Column:
        return TranslateColumn(expression);
    case Kind::Negate:
        return TranslateNegation(expression);
    case Kind::Arithmetic:
        return TranslateArithmetic(expression);
    case Kind::Call:
        return FunctionTranslator(*this).Translate(expression);
    case Kind::Cast:
        return ConvertTo(Translate(*expression.arguments[0]), expression.type, ConversionPlace::Expression,
                         expression.style);
    case Kind::Case:
        return TranslateCase(expression);
    case Kind::Subquery:
        return TranslateSubquery(expression);
    case Kind::Comparison:
        return TranslateComparison(expression);
    case Kind::And:
    case Kind::Or:
    case Kind::Not:
        return TranslateLogic(expression);
    case Kind::IsNull:
        return TranslateIsNull(expression);
    case Kind::Like:
        return TranslateLike(expression);
    case Kind::Between:
        return TranslateBetween(expression);
    case Kind::In:
        return TranslateIn(expression);
    case Kind::Exists:
        return TranslateExists(expression);
    case Kind::Null:
    case Kind::Text:
    case Kind::Number:
        break;
    }
    return {};
}

Typed ExpressionTranslator::TranslateParameter(const QString& name) {
    for (size_t i = 0; i < mState.parameters.size(); ++i) {
        if (mState.parameters[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return {u'?' + QString::number(i + 1), mState.parameters[i].type};
    }
    throw ServerError(Fault::UndeclaredVariable, {name});
}

Typed ExpressionTranslator::TranslateColumn(const Expression& expression) {
    if (mScope)
        return mScope->Resolve(expression.path, mState.database);
    throw ServerError(Fault::InvalidColumn, {expression.path.last()});
}

Typed ExpressionTranslator::TranslateNegation(const Expression& expression) {
    const Typed inner = Translate(*expression.arguments[0]);
    if (!inner.type.IsNumber() && !inner.type.IsNull())
        throw ServerError(Fault::InvalidOperand, {inner.type.Name(), u"minus"_s});
    // With the blank, since two signs in a row would begin a comment.
    return InBounds(Compose(u"(- "_s + inner.sql + u')', inner.type, {&inner}));
}

Typed ExpressionTranslator::TranslateArithmetic(const Expression& expression) {
    const Typed left = Translate(*expression.arguments[0]);
    const Typed right = Translate(*expression.arguments[1]);
    const SqlType common = CommonType(left.type, right.type);
    const QChar sign = expression.text[0];
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

Typed ExpressionTranslator::TranslateCase(const Expression& expression) {
    const auto& arguments = expression.arguments;
    const size_t first = expression.hasOperand ? 1 : 0;
    const size_t end = arguments.size() - (expression.hasElse ? 1 : 0);
    std::vector<Typed> parts;
    std::vector<Typed> values;
    SqlType common;
    for (size_t i = first; i < end; i += 2) {
        Typed condition = Translate(*arguments[i]);
        if (expression.hasOperand)
            condition = Compare(u"="_s, Translate(*arguments[0]), condition);
        parts.push_back(condition);
        values.push_back(Translate(*arguments[i + 1]));
        common = CommonType(common, values.back().type);
    }
    if (expression.hasElse) {
        values.push_back(Translate(*arguments.back()));
        common = CommonType(common, values.back().type);
    }
    QString sql = u"(CASE"_s;
    for (size_t i = 0; i < parts.size(); ++i)
        sql += u" WHEN "_s + parts[i].sql + u" THEN "_s + MeetAs(values[i], common).sql;
    if (expression.hasElse)
        sql += u" ELSE "_s + MeetAs(values.back(), common).sql;
    parts.insert(parts.end(), values.begin(), values.end());
    return Compose(sql + u" END)"_s, common, parts);
}

Typed ExpressionTranslator::TranslateSubquery(const Expression& expression) {
    const TranslatedQuery query = QueryTranslator(mState, mScope).Translate(*expression.query);
    if (query.columns.size() != 1)
        throw ServerError(Fault::UnionLengths);
    return {u'(' + query.sql + u')', query.columns[0].type};
}

Typed ExpressionTranslator::TranslateComparison(const Expression& expression) {
    return Compare(expression.text, Translate(*expression.arguments[0]), Translate(*expression.arguments[1]));
}

Typed ExpressionTranslator::Compare(const QString& sign, const Typed& left, const Typed& right) {
    const SqlType common = CommonType(left.type, right.type);
    const Typed a = MeetAs(left, common);
    const Typed b = MeetAs(right, common);
    // The collation of a table's column reaches the whole comparison, and keeps its index usable.
    const QString first = b.tableColumn ? a.sql : Collated(a);
    return Compose(u"("_s + first + u' ' + sign + u' ' + b.sql + u')', {}, {&left, &right});
}

Typed ExpressionTranslator::TranslateLogic(const Expression& expression) {
    if (expression.kind == Kind::Not)
        return Negated(true, Translate(*expression.arguments[0]));
    // A chain of ANDs grows to the left; read as one it needs one pair of parentheses.
    std::vector<const Expression*> parts;
    const Expression* rest = &expression;
    for (; rest->kind == expression.kind; rest = rest->arguments[0].get())
        parts.insert(parts.begin(), rest->arguments[1].get());
    parts.insert(parts.begin(), rest);
    std::vector<Typed> conditions;
    QStringList texts;
    for (const Expression* part : parts) {
        conditions.push_back(Translate(*part));
        texts << conditions.back().sql;
    }
    return Compose(u'(' + texts.join(expression.kind == Kind::And ? u" AND "_s : u" OR "_s) + u')', {},
                   conditions);
}

Typed ExpressionTranslator::Negated(bool negated, Typed condition) {
    if (negated)
        condition.sql = u"(NOT "_s + condition.sql + u')';
    return condition;
}

Typed ExpressionTranslator::TranslateIsNull(const Expression& expression) {
    const Typed inner = Translate(*expression.arguments[0]);
    return Compose(u"("_s + inner.sql + (expression.negated ? u" IS NOT NULL)"_s : u" IS NULL)"_s), {},
                   {&inner});
}

Typed ExpressionTranslator::TranslateLike(const Expression& expression) {
    const Typed text = MeetAs(Translate(*expression.arguments[0]), SqlType::Text());
    const Typed pattern = MeetAs(Translate(*expression.arguments[1]), SqlType::Text());
    return Negated(expression.negated,
                   Compose(u"tv_like("_s + text.sql + u", "_s + pattern.sql + u')', {}, {&text, &pattern}));
}

Typed ExpressionTranslator::TranslateBetween(const Expression& expression) {
    const Typed value = Translate(*expression.arguments[0]);
    const Typed low = Compare(u">="_s, value, Translate(*expression.arguments[1]));
    const Typed high = Compare(u"<="_s, value, Translate(*expression.arguments[2]));
    return Negated(expression.negated,
                   Compose(u'(' + low.sql + u" AND "_s + high.sql + u')', {}, {&low, &high}));
}

Typed ExpressionTranslator::TranslateIn(const Expression& expression) {
    const Typed left = Translate(*expression.arguments[0]);
    if (expression.query)
        return TranslateInQuery(expression, left);
    std::vector<Typed> values;
    SqlType common = left.type;
    for (size_t i = 1; i < expression.arguments.size(); ++i) {
        values.push_back(Translate(*expression.arguments[i]));
        common = CommonType(common, values.back().type);
    }
    QStringList texts;
    for (const Typed& value : values)
        texts << MeetAs(value, common).sql;
    values.push_back(left);
    return Negated(expression.negated, Compose(u"("_s + Collated(MeetAs(left, common)) + u" IN ("_s +
                                                   texts.join(u", "_s) + u"))"_s,
                                               {}, values));
}

Typed ExpressionTranslator::TranslateInQuery(const Expression& expression, const Typed& left) {
    QueryTranslator translator(mState, mScope);
    SqlType common = left.type;
    const TranslatedQuery query = translator.Translate(*expression.query, [&](size_t, const Typed& item) {
        common = CommonType(left.type, item.type);
        return MeetAs(item, common);
    });
    if (query.columns.size() != 1)
        throw ServerError(Fault::UnionLengths);
    return Negated(
        expression.negated,
        Compose(u"("_s + Collated(MeetAs(left, common)) + u" IN ("_s + query.sql + u"))"_s, {}, {&left}));
}

Typed ExpressionTranslator::TranslateExists(const Expression& expression) {
    const TranslatedQuery query = QueryTranslator(mState, mScope).Translate(*expression.query);
    return {u"EXISTS ("_s + query.sql + u')', {}};
}
