#pragma once

class QMdiArea;
class QString;

/// What the screens need of the main window, without knowing it.
class Workspace {
  public:
    virtual ~Workspace() = default;

    /// Where screens that are not modal show.
    virtual QMdiArea* Area() = 0;
    /// Enables or disables a menu item by its name.
    virtual void EnableMenuItem(const QString& name, bool enabled) = 0;

    /// The main window, null before it stands.
    static Workspace* Current();
    static void SetCurrent(Workspace* workspace);
};
