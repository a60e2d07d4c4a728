#pragma once

#include <functional>

class ClickTable;
class QAbstractButton;
class QLineEdit;

/// Which keys of a list pick its current row.
enum class PickKeys {
    None,
    Enter,
    /// Whichever it is; Escape alone stays the screen's and leaves it.
    Any
};

/// How one picks from a list: what the screens with a list do alike, and by their names the points in which
/// one of them differs. Escape is the screen's.
struct Picker {
    ClickTable* list = nullptr;
    /// What a double click in the list does, and the keys below.
    std::function<void()> pick = {};
    PickKeys keys = PickKeys::Enter;
    /// The button that does the same: while it is disabled nothing is picked. Without one it always is.
    const QAbstractButton* button = nullptr;
    /// The Enter that picks goes no further, since the window's own button would take it again.
    bool keepsEnter = false;

    /// The box from which one searches; none where there is none, or where it goes its own ways.
    QLineEdit* box = nullptr;
    /// Each key in the box becomes its upper-case form.
    bool capitals = true;
    /// What Enter in the box does.
    std::function<void()> enter = {};
    /// Down leads from the box into the list.
    bool downToList = true;
    /// Makes the row current with which the clerk begins there; without it that one stays which is.
    std::function<void()> markFirst = {};
};

/// Connects the keys and the double click. Handlers that a screen adds to the box afterwards run behind these
/// and do not hear of the Down that leads into the list.
void WirePicker(const Picker& picker);
