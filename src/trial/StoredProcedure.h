#pragma once

#include "trial/PreparedCommand.h"
#include "tsql/Catalog.h"
#include "tsql/SqlTree.h"

#include <memory>
#include <optional>
#include <vector>

/// A procedure, compiled when it is first called and kept from then on.
class StoredProcedure {
  public:
    /// Raises what is wrong in the procedure's text.
    StoredProcedure(const Procedure& procedure, const Catalog& catalog, SqliteDatabase& database);

    /// Runs the body with a call's arguments, converted to the declared parameters. Raises 201, 8114, 8143,
    /// 8144 and 8145 for arguments that do not fit, and whatever fails in the body.
    CommandResult Run(const std::vector<CallArgument>& arguments);
    bool Writes() const { return mBody->Writes(); }
    QStringList QueryPlan() const { return mBody->QueryPlan(); }

  private:
    void Compile(const Procedure& procedure, const Catalog& catalog, SqliteDatabase& database);
    size_t PlaceOf(const CallArgument& argument, size_t position) const;
    std::vector<Cell> Values(const std::vector<CallArgument>& arguments) const;

    QString mName;
    std::vector<DeclaredParameter> mParameters;
    /// Beside each parameter; nothing for one that every call must supply.
    std::vector<std::optional<Cell>> mDefaults;
    std::unique_ptr<PreparedCommand> mBody;
};
