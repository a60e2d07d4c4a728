#pragma once

#include "trial/translate/ExpressionTranslator.h"
#include "tsql/SqlTree.h"

#include <QString>

#include <vector>

/// Turns one statement of the server's language into SQLite's, every table and column checked against the
/// catalog and every value converted to its column's type.
class StatementTranslator {
  public:
    /// Names without a database mean that of `database`. Catalog and parameters must outlive the translator.
    StatementTranslator(const Catalog& catalog, QString database,
                        const std::vector<DeclaredParameter>& parameters);

    /// Raises the server's errors: 207, 208, 245 and so on.
    Translation Translate(const Statement& statement);

  private:
    /// A column that an INSERT or UPDATE writes.
    using Target = const ColumnDefinition*;

    void Make(const SelectStatement& select);
    void Make(const InsertStatement& insert);
    void Make(const UpdateStatement& update);
    void Make(const DeleteStatement& erase);
    void Make(const RefusalStatement& refusal);
    void Make(const BranchStatement& branch);

    const Table& Find(const ObjectName& name) const;
    std::vector<Target> Targets(const InsertStatement& insert, const Table& table) const;
    std::vector<Target> DefaultTargets(const std::vector<Target>& written, const Table& table) const;
    bool TakeLiteralRows(const ValueRows& valueRows, const std::vector<Target>& targets,
                         const std::vector<Target>& defaults, const QString& head);
    QString ValuesText(const InsertStatement& insert, const std::vector<Target>& targets,
                       const std::vector<Target>& defaults);
    QString SelectText(const Query& source, const std::vector<Target>& targets,
                       const std::vector<Target>& defaults);
    Typed Assigned(ExpressionTranslator& expressions, const Typed& value, Target target) const;
    QString WhereText(const ExpressionPtr& where, const Scope& scope);

    const Catalog& mCatalog;
    QString mDatabase;
    const std::vector<DeclaredParameter>& mParameters;
    Translation mOut;
    TranslationState mState;
};
