#pragma once

#include <QString>

#include <functional>

/// What the patient finder needs of the screen that waits for it.
class FinderTarget {
  public:
    virtual ~FinderTarget() = default;

    /// The text of the field that the first search uses.
    virtual QString FinderText() const = 0;
    /// Runs the screen's load routine over its boxes, which closes the finder.
    virtual void LoadPick() = 0;
    /// Called when a pick has been loaded and the finder has closed.
    virtual void Picked() = 0;
};

/// Answers the waiting screen, which a first touch creates.
using FinderTargetSource = std::function<FinderTarget&()>;

/// Enters the screen that waits in a charge mode ("Post", "List", "Ledger"); an empty source strikes it out.
void RegisterFinderTarget(const QString& chargeMode, const FinderTargetSource& source);

/// The screen that waits in the mode; null when there is none.
FinderTarget* FinderTargetOf(const QString& chargeMode);
