#include "trial/StoredProcedure.h"

#include "trial/translate/ExpressionTranslator.h"
#include "trial/translate/StatementTranslator.h"
#include "tsql/ScriptParser.h"
#include "tsql/ServerError.h"

#include <algorithm>

namespace {

/// The value of a literal, as the parameter's type holds it.
KnownValue LiteralValue(const Expression& expression, const SqlType& type) {
    const auto literal = ExpressionTranslator::Literal(expression);
    RequireConvertible(literal->type, type, false);
    return literal->constant.Converted(literal->type, type, ConversionPlace::Parameter);
}

} // namespace

StoredProcedure::StoredProcedure(const Procedure& procedure, const Catalog& catalog, SqliteDatabase& database)
    : mName(procedure.name) {
    Compile(procedure, catalog, database);
}

void StoredProcedure::Compile(const Procedure& procedure, const Catalog& catalog, SqliteDatabase& database) {
    TokenCursor cursor(procedure.text);
    const ScriptStatement statement = ScriptParser(cursor).ParseNext();
    const auto& definition = std::get<ProcedureDefinition>(statement);
    for (const ParameterDefinition& parameter : definition.parameters) {
        mParameters.push_back({parameter.name, parameter.type});
        mDefaults.push_back(parameter.defaultValue
                                ? std::optional(LiteralValue(*parameter.defaultValue, parameter.type).Value())
                                : std::nullopt);
    }
    std::vector<Translation> steps;
    StatementTranslator translator(catalog, procedure.database, mParameters);
    for (const Statement& step : definition.body)
        steps.push_back(translator.Translate(step));
    mBody = std::make_unique<PreparedCommand>(database, std::move(steps), true);
}

size_t StoredProcedure::PlaceOf(const CallArgument& argument, size_t position) const {
    if (argument.name.isEmpty())
        return position;
    const auto found = std::find_if(mParameters.begin(), mParameters.end(), [&](const DeclaredParameter& p) {
        return p.name.compare(argument.name, Qt::CaseInsensitive) == 0;
    });
    if (found == mParameters.end())
        throw ServerError(Fault::NoSuchParameter, {argument.name, mName});
    return static_cast<size_t>(found - mParameters.begin());
}

std::vector<PlacedArgument> StoredProcedure::Place(const std::vector<CallArgument>& arguments) const {
    if (arguments.size() > mParameters.size())
        throw ServerError(Fault::TooManyArguments, {mName});
    std::vector<bool> supplied(mParameters.size());
    std::vector<PlacedArgument> placed;
    placed.reserve(arguments.size());
    for (size_t i = 0; i < arguments.size(); ++i) {
        const size_t place = PlaceOf(arguments[i], i);
        if (supplied[place])
            throw ServerError(Fault::SuppliedTwice, {mParameters[place].name});
        supplied[place] = true;
        placed.push_back({place, LiteralValue(*arguments[i].value, mParameters[place].type)});
    }
    for (size_t i = 0; i < mParameters.size(); ++i) {
        if (!supplied[i] && !mDefaults[i])
            throw ServerError(Fault::MissingArgument, {mName, mParameters[i].name});
    }
    return placed;
}

CommandResult StoredProcedure::Run(const std::vector<PlacedArgument>& arguments) {
    std::vector<Cell> values;
    values.reserve(mParameters.size());
    for (const auto& value : mDefaults)
        values.push_back(value.value_or(Cell()));
    for (const PlacedArgument& argument : arguments)
        values[argument.place] = argument.value.Value();
    return mBody->Run(values);
}
