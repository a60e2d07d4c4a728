#pragma once

#include <QString>

#include <functional>

/// What the patient finder needs of the screen that waits for it.
class FinderTarget {
  public:
    virtual ~FinderTarget() = default;

    /// The text of the field that the first search uses.
    virtual QString FinderText() const = 0;
    /// Fills one of the screen's boxes by its name. Raises 91 for a name that it does not have.
    virtual void SetBox(const QString& name, const QString& text) = 0;
    /// Called when a pick has been loaded and the finder has closed.
    virtual void Picked() = 0;
};

/// Answers the waiting screen, which a first touch creates.
using FinderTargetSource = std::function<FinderTarget&()>;

/// Enters the screen that waits in a charge mode ("Post", "List", "Ledger").
void RegisterFinderTarget(const QString& chargeMode, FinderTargetSource source);

/// Strikes all screens out again.
void ForgetFinderTargets();

/// Whether a screen waits in that mode.
bool HasFinderTarget(const QString& chargeMode);

/// The screen that waits in the mode. Raises 91 when there is none.
FinderTarget& FinderTargetOf(const QString& chargeMode);
