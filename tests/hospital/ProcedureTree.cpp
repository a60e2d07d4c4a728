#include "ProcedureTree.h"

#include "tsql/Catalog.h"
#include "tsql/ScriptParser.h"

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Walks over the tables and expressions of a statement.
class Walk {
  public:
    std::function<void(const ObjectName&)> table = [](const ObjectName&) {};
    std::function<void(const Expression&)> expression = [](const Expression&) {};

    void Over(const SelectStatement& select) const { Over(select.query); }
    void Over(const InsertStatement& insert) const {
        std::visit([this](const auto& source) { Over(source); }, insert.source);
    }
    void Over(const UpdateStatement& update) const {
        for (const Assignment& assignment : update.assignments)
            Over(assignment.value);
        Over(update.where);
    }
    void Over(const DeleteStatement& erase) const { Over(erase.where); }
    void Over(const RefusalStatement& refusal) const { Over(refusal.condition); }
    void Over(const BranchStatement& branch) const { Over(branch.condition); }

  private:
    void Over(const ValueRows& rows) const {
        for (const auto& row : rows)
            Over(row);
    }
    void Over(const Query& query) const {
        for (const SelectCore& core : query.cores)
            Over(core);
        for (const OrderItem& item : query.orderBy)
            Over(item.value);
    }
    void Over(const SelectCore& core) const {
        Over(core.top);
        for (const SelectItem& item : core.items)
            if (const auto* value = std::get_if<SelectedValue>(&item))
                Over(value->value);
        for (const TableSource& source : core.sources) {
            std::visit([this](const auto& rows) { Over(rows); }, source.rows);
            if (source.join)
                Over(source.join->condition);
        }
        Over(core.where);
        Over(core.groupBy);
        Over(core.having);
    }
    void Over(const ObjectName& name) const { table(name); }
    void Over(const std::unique_ptr<Query>& query) const { Over(*query); }
    void Over(const ExpressionPtr& part) const {
        if (!part)
            return;
        expression(*part);
        std::visit([this](const auto& node) { Over(node); }, part->node);
    }
    void Over(const std::vector<ExpressionPtr>& parts) const {
        for (const ExpressionPtr& part : parts)
            Over(part);
    }
    template <class... Parts> void OverEach(const Parts&... parts) const { (Over(parts), ...); }

    void Over(const NullNode&) const {}
    void Over(const TextNode&) const {}
    void Over(const NumberNode&) const {}
    void Over(const ParameterNode&) const {}
    void Over(const ColumnNode&) const {}
    void Over(const NegationNode& node) const { Over(node.operand); }
    void Over(const ArithmeticNode& node) const { OverEach(node.left, node.right); }
    void Over(const CallNode& node) const { Over(node.arguments); }
    void Over(const CastNode& node) const { Over(node.value); }
    void Over(const CaseNode& node) const {
        Over(node.operand);
        for (const CaseBranch& branch : node.branches)
            OverEach(branch.when, branch.then);
        Over(node.otherwise);
    }
    void Over(const SubqueryNode& node) const { Over(node.query); }
    void Over(const ComparisonNode& node) const { OverEach(node.left, node.right); }
    void Over(const AndNode& node) const { OverEach(node.left, node.right); }
    void Over(const OrNode& node) const { OverEach(node.left, node.right); }
    void Over(const NotNode& node) const { Over(node.condition); }
    void Over(const IsNullNode& node) const { Over(node.value); }
    void Over(const LikeNode& node) const { OverEach(node.text, node.pattern); }
    void Over(const BetweenNode& node) const { OverEach(node.value, node.low, node.high); }
    void Over(const InListNode& node) const { OverEach(node.value, node.list); }
    void Over(const InQueryNode& node) const { OverEach(node.value, node.query); }
    void Over(const ExistsNode& node) const { Over(node.query); }
};

void Run(const Walk& walk, const Statement& statement) {
    std::visit([&walk](const auto& kind) { walk.Over(kind); }, statement);
}

QString Word(const TokenCursor& cursor) {
    return cursor.Current().written.toString().toLower();
}

/// How the statement here begins; goes on to the one behind it.
QString ReadStep(TokenCursor& cursor) {
    QString step = Word(cursor);
    const bool isFrame = step == "set"_L1 || step == "begin"_L1 || step == "commit"_L1;
    cursor.Advance();
    if (isFrame)
        step += u' ' + Word(cursor);
    while (!cursor.IsOperator(u";"))
        cursor.Advance();
    cursor.Advance();
    return step;
}

QStringList ReadSteps(QStringView text) {
    TokenCursor cursor(text);
    while (!cursor.Is(u"as") || !cursor.Ahead(1).Is(u"begin"))
        cursor.Advance();
    cursor.Advance();
    cursor.Advance();
    QStringList steps;
    while (!cursor.Is(u"end"))
        steps << ReadStep(cursor);
    return steps;
}

} // namespace

bool ProcedureTree::Writes() const {
    return std::ranges::any_of(definition.body,
                               [](const Statement& statement) { return !TableWritten(statement).isEmpty(); });
}

ProcedureTree ReadProcedure(const QString& script) {
    ProcedureTree tree;
    for (const Batch& batch : SplitBatches(script)) {
        TokenCursor cursor(batch.text);
        ScriptStatement statement = ScriptParser(cursor).ParseNext();
        if (const auto* use = std::get_if<UseDatabase>(&statement))
            tree.database = use->database;
        if (auto* procedure = std::get_if<ProcedureDefinition>(&statement)) {
            tree.definition = std::move(*procedure);
            tree.steps = ReadSteps(batch.text);
        }
    }
    if (tree.database.isEmpty() || tree.steps.isEmpty())
        throw std::invalid_argument("no procedure in " + script.toStdString());
    return tree;
}

std::vector<ProcedureTree> ProcedureTrees(const std::vector<Script>& scripts) {
    std::vector<ProcedureTree> trees;
    for (const Script& script : scripts)
        if (script.name.startsWith("procedures/"_L1))
            trees.push_back(ReadProcedure(script.text));
    return trees;
}

QString TableWritten(const Statement& statement) {
    ObjectName name;
    if (const auto* insert = std::get_if<InsertStatement>(&statement))
        name = insert->table;
    else if (const auto* update = std::get_if<UpdateStatement>(&statement))
        name = update->table;
    else if (const auto* erase = std::get_if<DeleteStatement>(&statement))
        name = erase->table;
    return name.object.isEmpty() ? QString() : TableKey(name.database, name.object);
}

QSet<QString> TablesRead(const Statement& statement) {
    QSet<QString> tables;
    Walk walk;
    walk.table = [&tables](const ObjectName& name) { tables << TableKey(name.database, name.object); };
    Run(walk, statement);
    return tables;
}

void VisitExpressions(const Statement& statement, const std::function<void(const Expression&)>& visit) {
    Walk walk;
    walk.expression = visit;
    Run(walk, statement);
}

QString TableKey(const QString& database, const QString& table) {
    return ObjectKey({database, {}, table, {}}, {});
}
