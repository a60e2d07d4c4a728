#include "trial/HospitalEngine.h"

#include "trial/file/HospitalPlace.h"
#include "trial/sqlite/FileSchema.h"
#include "trial/translate/StatementTranslator.h"
#include "tsql/CommandParser.h"
#include "tsql/ServerError.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// In characters.
constexpr qsizetype kLongestCommand = 1 << 20;
constexpr int kKeptCommands = 200;
// A command holds the literals of the text that it ran for last. In characters.
constexpr qsizetype kLongestKept = 10000;
const std::vector<DeclaredParameter> kNoParameters;

} // namespace

HospitalEngine::HospitalEngine(const QString& path, SqliteDatabase::Mode mode)
    : mDatabase(path, mode)
    , mStore(mDatabase)
    , mKept(kKeptCommands) {
    if (mode == SqliteDatabase::Mode::New)
        return;
    // A log of another file's must not be played into this one when it is refused for that.
    mDatabase.SetPlaysLog(!HasLog(path));
    mStore.Check();
    mCatalog = mStore.Load();
    mFresh = mStore.IsFresh();
    mDatabase.SetPlaysLog(true);
}

void HospitalEngine::SetDefaultDatabase(const QString& name) {
    if (!mCatalog.HasDatabase(name))
        throw ServerError(Fault::NoSuchDatabase, {name});
    mDefaultDatabase = name;
    mKept.Clear();
}

std::unique_ptr<PreparedCommand> HospitalEngine::Prepare(const Statement& statement, const QString& database,
                                                         bool kept) {
    std::vector<Translation> steps;
    steps.push_back(StatementTranslator(mCatalog, database, kNoParameters).Translate(statement));
    return std::make_unique<PreparedCommand>(mDatabase, std::move(steps), kept);
}

StoredProcedure& HospitalEngine::Find(const ObjectName& name) {
    const Procedure* procedure = mCatalog.FindProcedure(name, mDefaultDatabase);
    if (!procedure)
        throw ServerError(Fault::UnknownProcedure, {name.written});
    auto& compiled = mProcedures[procedure];
    if (!compiled)
        compiled = std::make_unique<StoredProcedure>(*procedure, mCatalog, mDatabase);
    return *compiled;
}

void HospitalEngine::BeginWork(bool writes) {
    if (!writes)
        return;
    mDatabase.RequireInPlace();
    if (!mFresh)
        return;
    mStore.SetFresh(false);
    mFresh = false;
}

std::unique_ptr<KeptCommand> HospitalEngine::Read(const CommandShape& shape) {
    TokenCursor cursor(shape.Tokens());
    const Command parsed = CommandParser(cursor).ParseCommand();
    if (const auto* call = std::get_if<ProcedureCall>(&parsed)) {
        StoredProcedure& procedure = Find(call->procedure);
        return std::make_unique<KeptCommand>(procedure, procedure.Place(call->arguments));
    }
    const auto* statement = std::get_if<Statement>(&parsed);
    return statement ? std::make_unique<KeptCommand>(Prepare(*statement, mDefaultDatabase, true)) : nullptr;
}

CommandResult HospitalEngine::Run(const QString& command) {
    const SqliteDatabase::Command timed(mDatabase);
    if (command.size() > kLongestCommand)
        throw ServerError(Fault::TooComplex);
    const CommandShape shape(command);
    KeptCommand* known = mKept.Find(shape);
    if (known && known->TakeLiterals(shape.Literals())) {
        BeginWork(known->Writes());
        return known->Run();
    }
    std::unique_ptr<KeptCommand> read = Read(shape);
    if (!read)
        return {};
    BeginWork(read->Writes());
    CommandResult result = read->Run();
    // A treatment's record would be kept with all its texts, and another one put out that comes again.
    if (read->CanBeKept() && command.size() <= kLongestKept && !shape.IsOneOfAKind())
        mKept.Keep(shape, std::move(read));
    return result;
}

QStringList HospitalEngine::QueryPlan(const QString& command) {
    TokenCursor cursor(CommandShape(command).Tokens());
    const Command parsed = CommandParser(cursor).ParseCommand();
    if (const auto* call = std::get_if<ProcedureCall>(&parsed))
        return Find(call->procedure).QueryPlan();
    const auto* statement = std::get_if<Statement>(&parsed);
    return statement ? Prepare(*statement, mDefaultDatabase, false)->QueryPlan() : QStringList();
}

void HospitalEngine::Define(TableDefinition table, const QString& database, const QString& text) {
    mKept.Clear();
    table.name.database = database;
    const Table& added = mCatalog.AddTable(std::move(table));
    mDatabase.Run(CreateTableText(added));
    mStore.KeepTable(database, text);
}

void HospitalEngine::Define(const IndexDefinition& index, const QString& database) {
    const Table* table = mCatalog.FindTable(index.table, database);
    if (!table)
        throw ServerError(Fault::InvalidObject, {index.table.written});
    mDatabase.Run(CreateIndexText(index, *table));
    mDatabase.Run(NullKeyText(index, *table));
}

void HospitalEngine::Define(const Procedure& procedure) {
    // Compiled once for nothing, so that a mistake in it is found here and not at a clerk's desk.
    const StoredProcedure compiled(procedure, mCatalog, mDatabase);
    mKept.Clear();
    mProcedures.clear();
    mCatalog.SetProcedure(procedure);
    mStore.KeepProcedure(procedure);
}

void HospitalEngine::RunStatement(const Statement& statement, const QString& database) {
    const SqliteDatabase::Command timed(mDatabase);
    Prepare(statement, database, false)->Run({});
}
