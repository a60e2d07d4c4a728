#pragma once

#include "trial/PreparedCommand.h"
#include "trial/StoredProcedure.h"
#include "tsql/CommandShape.h"

#include <QCache>

#include <memory>
#include <optional>
#include <set>
#include <vector>

/// A command text that was read once: a statement, or a call of a procedure. It runs for every text of its
/// shape.
class KeptCommand {
  public:
    explicit KeptCommand(std::unique_ptr<PreparedCommand> statement);
    /// The procedure must outlive the command.
    KeptCommand(StoredProcedure& procedure, std::vector<PlacedArgument> arguments);

    bool Writes() const;
    /// Whether it can run again without being read again.
    bool CanBeKept() const;
    /// The literals that are taken from each text anew; for any other one the command stands as it is.
    std::set<int> BoundLiterals() const;
    /// From now on it runs with another text's literals. False where one of them does not fit: how that text
    /// fails, and whether it does, its own reading tells.
    bool TakeLiterals(const std::vector<Literal>& literals);
    CommandResult Run();

  private:
    struct Call {
        StoredProcedure& procedure;
        std::vector<PlacedArgument> arguments;
    };

    std::unique_ptr<PreparedCommand> mStatement;
    /// Nothing for a statement.
    std::optional<Call> mCall;
};

/// The commands that ran last, found again by the shape of a text.
class KeptCommands {
  public:
    /// Keeps so many of them.
    explicit KeptCommands(int count);

    /// The command that fits the text but for the literals that it takes; null for none.
    KeptCommand* Find(const CommandShape& shape) const;
    void Keep(const CommandShape& shape, std::unique_ptr<KeptCommand> command);
    void Clear();

  private:
    /// Of each shape: the literals that its commands do not take anew, such as the style of a CONVERT. A
    /// command fits a text that has the same ones.
    QCache<QString, std::set<int>> mFixedLiterals;
    QCache<QString, KeptCommand> mCommands;
};
