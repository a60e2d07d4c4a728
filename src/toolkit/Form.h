#pragma once

#include <QPointer>
#include <QWidget>

class QAbstractButton;
class QMdiArea;
class QMdiSubWindow;
class QWindow;

/// A screen of the workstation, with the life cycle of one: loaded, shown inside the main window or modally,
/// activated each time it becomes the active screen, unloaded.
///
/// Screens are reached by `Screens::Get`; their handlers run on the user interface's thread. Unloading a
/// screen from inside one of its own handlers is safe: it is hidden and forgotten at once and deleted when
/// the handler has ended.
class Form : public QWidget {
    Q_OBJECT

  public:
    explicit Form(QWidget* parent = nullptr);
    ~Form() override;

    /// Runs Form_Load, once, before the screen can be shown.
    void Load();
    /// Shows the screen inside the main window, or brings it to the front. The caller goes on at once.
    void Show();
    /// Shows the screen modally and returns when it has been unloaded. Timers go on meanwhile.
    void ShowModal();
    /// Asks Form_QueryUnload, runs Form_Unload and closes the screen. False when the screen refused.
    bool Unload();
    /// The clerk leaves the screen by a key: Escape, Ctrl+W, Ctrl+F4. It is as if he pressed the button of
    /// the screen that closes it, with the question that the button asks; a screen without one asks where
    /// what was keyed would be lost.
    void LeaveByKey();

    /// Places the screen inside the main window, measured in twips from its top left corner.
    void MoveTo(int leftTwips, int topTwips);

    /// Whether the screen stands on the stack of modal windows.
    bool IsModal() const;

    /// The screen of the program that was activated last and still stands; null when none does.
    static Form* Active();

  protected:
    virtual void Form_Load() {}
    /// The screen became the active one: it was shown, or the clerk came back from another screen of the
    /// program, a modal one included. Pickers of the suite's components and message boxes are no screens of
    /// the program.
    virtual void Form_Activate() {}
    /// Answers false to keep the screen open.
    virtual bool Form_QueryUnload() { return true; }
    virtual void Form_Unload() {}

    /// Whether leaving the screen would lose what was keyed in it.
    virtual bool HoldsWork() const { return false; }
    /// The button that closes the screen, for one that does more than unload it.
    void SetCloseButton(QAbstractButton* button) { mCloseButton = button; }

    /// The clerk may give the screen the whole area, with its button, a double click on its title or
    /// Ctrl+F10.
    void LetMaximize() { mMayMaximize = true; }
    /// The screen shows beside the main window, never inside it.
    void StandAlone() { mStandAlone = true; }

    void closeEvent(QCloseEvent* event) override;
    /// Enter presses the button that has the focus; Escape, Ctrl+W and Ctrl+F4 leave the screen where the
    /// control with the focus has no use for them.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    friend class Screens;

    static Form* BackFrom(Form* before);
    void Activate();
    void WindowCameToFront(const QWindow* front);
    void Leave();
    void OpenOver(const QWidget* owner);
    void TakeStartSize(const QSize& room);
    void PutInside(QMdiArea& area);
    void PlaceInside(const QMdiArea& area);
    void ToggleMaximized();
    void LeaveArea(QMdiArea& area);

    bool mLoaded = false;
    bool mStandAlone = false;
    bool mMayMaximize = false;
    bool mUnloading = false;
    QAbstractButton* mCloseButton = nullptr;
    QPointer<QMdiSubWindow> mSubWindow;
    QPoint mPlace;
    bool mPlaced = false;
};
