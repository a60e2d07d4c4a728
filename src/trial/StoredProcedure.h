#pragma once

#include "trial/PreparedCommand.h"
#include "tsql/Catalog.h"
#include "tsql/SqlTree.h"

#include <memory>
#include <optional>
#include <vector>

/// An argument of a call, converted to its parameter.
struct PlacedArgument {
    /// Which parameter it is for, from 0.
    size_t place;
    KnownValue value;
};

/// A procedure, compiled when it is first called and kept from then on.
class StoredProcedure {
  public:
    /// Raises what is wrong in the procedure's text.
    StoredProcedure(const Procedure& procedure, const Catalog& catalog, SqliteDatabase& database);

    /// A call's arguments for the declared parameters, in the order in which they are written. Raises 201,
    /// 8114, 8143, 8144 and 8145 for arguments that do not fit.
    std::vector<PlacedArgument> Place(const std::vector<CallArgument>& arguments) const;
    /// Runs the body. Raises whatever fails in it.
    CommandResult Run(const std::vector<PlacedArgument>& arguments);
    bool Writes() const { return mBody->Writes(); }
    QStringList QueryPlan() const { return mBody->QueryPlan(); }

  private:
    void Compile(const Procedure& procedure, const Catalog& catalog, SqliteDatabase& database);
    size_t PlaceOf(const CallArgument& argument, size_t position) const;

    QString mName;
    std::vector<DeclaredParameter> mParameters;
    /// Beside each parameter; nothing for one that every call must supply.
    std::vector<std::optional<Cell>> mDefaults;
    std::unique_ptr<PreparedCommand> mBody;
};
