#include "trial/KeptCommand.h"

#include <utility>

KeptCommand::KeptCommand(std::unique_ptr<PreparedCommand> statement)
    : mStatement(std::move(statement)) {}

KeptCommand::KeptCommand(StoredProcedure& procedure, std::vector<PlacedArgument> arguments)
    : mCall(Call{procedure, std::move(arguments)}) {}

bool KeptCommand::Writes() const {
    return mCall ? mCall->procedure.Writes() : mStatement->Writes();
}

bool KeptCommand::CanBeKept() const {
    return mCall || mStatement->CanBeKept();
}

std::set<int> KeptCommand::BoundLiterals() const {
    if (!mCall)
        return mStatement->BoundLiterals();
    std::set<int> bound;
    for (const PlacedArgument& argument : mCall->arguments)
        bound.insert(argument.value.LiteralNumber());
    return bound;
}

bool KeptCommand::TakeLiterals(const std::vector<Literal>& literals) try {
    if (!mCall) {
        mStatement->TakeLiterals(literals);
        return true;
    }
    for (PlacedArgument& argument : mCall->arguments)
        argument.value.Take(literals);
    return true;
} catch (const RunTimeError&) {
    return false;
}

CommandResult KeptCommand::Run() {
    return mCall ? mCall->procedure.Run(mCall->arguments) : mStatement->Run({});
}

KeptCommands::KeptCommands(int count)
    : mFixedLiterals(count)
    , mCommands(count) {}

KeptCommand* KeptCommands::Find(const CommandShape& shape) const {
    const std::set<int>* fixed = mFixedLiterals.object(shape.Key());
    return fixed ? mCommands.object(shape.KeyWith(*fixed)) : nullptr;
}

void KeptCommands::Keep(const CommandShape& shape, std::unique_ptr<KeptCommand> command) {
    const std::set<int> bound = command->BoundLiterals();
    const std::set<int>* known = mFixedLiterals.object(shape.Key());
    auto fixed = known ? std::make_unique<std::set<int>>(*known) : std::make_unique<std::set<int>>();
    for (int literal = 0; literal < static_cast<int>(shape.Literals().size()); ++literal) {
        if (!bound.contains(literal))
            fixed->insert(literal);
    }
    mCommands.insert(shape.KeyWith(*fixed), command.release());
    mFixedLiterals.insert(shape.Key(), fixed.release());
}

void KeptCommands::Clear() {
    mFixedLiterals.clear();
    mCommands.clear();
}
