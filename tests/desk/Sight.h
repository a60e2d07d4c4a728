#pragma once

#include <QJsonObject>
#include <QRect>
#include <QString>

#include <vector>

// What the program knows of what it shows, as the probe inside it answers. All places are pixels of the
// screen, empty for what is not there.

/// A window on the screen, or a screen inside the main window's area.
struct ShownWindow {
    QString name;
    QString title;
    /// How wide the title is when it is written boldly.
    int titleNeeds = 0;
    /// How the X server calls the window; 0 for a screen.
    quint64 id = 0;
    /// Without its frame.
    QRect place;
    /// With it. A window's is for the X server to tell, and empty here.
    QRect frame;
    /// Where it must lie: the area for a screen inside the main window, empty for other windows.
    QRect area;
    bool isActive = false;
};

/// How the program stands.
struct State {
    /// How many keys have been let go before the program since its start.
    int keysTaken = 0;
    /// Whether it is at work by itself, as a viewer is that has its rows fetched.
    bool isWorking = false;
    /// The control with the focus: its name, its kind, its place, and where its caret stands.
    QString focus;
    QString focusKind;
    QRect focusPlace;
    QRect caret;
    /// The menu that is open and the item that is marked in it.
    QString menuItem;
    bool isMenuOpen = false;
    /// Windows that are open, and the screens in the main window's area.
    std::vector<ShownWindow> windows;
    std::vector<ShownWindow> screens;

    static State FromJson(const QJsonObject& answer);

    /// The window or screen of that name; null when it is not shown.
    const ShownWindow* Window(const QString& name) const;
};

/// A text of a control and the room that it has there.
struct ShownText {
    QString text;
    QSize needs;
    QSize room;
};

/// A visible control.
struct Control {
    QString name;
    QString kind;
    /// The window or screen in which it stands.
    QString window;
    QRect place;
    /// What its window and the frames around it leave to it.
    QRect bounds;
    bool isEnabled = false;
    /// What stands in it: a box's text, a label's, a caption.
    QString text;
    std::vector<ShownText> texts;

    static std::vector<Control> ListFromJson(const QJsonObject& answer);
};
