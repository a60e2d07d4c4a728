#pragma once

#include "desk/OwnProcess.h"
#include "desk/Seat.h"
#include "desk/Sight.h"
#include "desk/Way.h"
#include "desk/WindowManager.h"
#include "desk/XServer.h"
#include "support/hospital/ProgramFolder.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// A clerk's desk: a screen, a window manager or none, and the program on it, started in a folder of its own.
/// The clerk's keys and clicks go through the X server; what he sees is the picture on the screen.
///
/// Everything waits for conditions. What does not come within 20 seconds raises std::runtime_error, which
/// fails the case. A case that fails leaves its pictures in desk/<case> of the build, every case does with
/// TARVEN_DESK_KEEP set.
class Desk : public testing::Test {
  protected:
    void TearDown() override;

    /// More of the environment of what is started from now on.
    void AddSettings(const QProcessEnvironment& settings) { mMoreSettings.insert(settings); }
    /// Sets the desk up and starts the program; it stands with the sign-on window when this comes back.
    void StartProgram(WindowManager manager);
    /// Sets it up with a screen of so many pixels, on a desktop that sets something of its own.
    void StartProgramOn(QSize screen, WindowManager manager, const QProcessEnvironment& desktop = {});
    /// The same, and signs on as a nurse of the trial hospital.
    void StartSignedOn(WindowManager manager);
    /// Signs on as a nurse of the trial hospital and waits until the main window has the keys.
    void SignOn();
    /// Presses keys that end the program, and answers its exit code.
    int PressToEnd(const QString& keys);

    /// Presses keys, written as Seat takes them, each when the program has taken the one before and has done
    /// what it does.
    void Key(const QString& keys);
    /// Presses keys without a pause between them, as a scanner does or a clerk who types ahead, and waits
    /// until the program has them all.
    void Burst(const QString& keys);
    /// Presses Tab until the control of that name has the focus. Raises std::runtime_error when 40 times do
    /// not lead there.
    void TabTo(const QString& control);
    /// Takes steps, each when the one before has led to its window.
    void Go(const std::vector<Step>& steps);
    /// Clicks on the middle of a control.
    void Click(const QString& control);

    /// How the program stands, once it has done what was due.
    State Now();
    /// The visible controls of a window or a screen, or those of all.
    std::vector<Control> Controls(const QString& window = {});
    /// The visible control of that name.
    Control ControlOf(const QString& name);
    /// Waits until the control of that name is shown.
    Control ExpectControl(const QString& name);
    QString Text(const QString& control) { return ControlOf(control).text; }

    /// Waits until a condition holds and answers the state in which it did; `what` names it when it never
    /// does.
    State WaitFor(const std::function<bool(const State&)>& condition, const QString& what);
    /// Waits until anything visible has the focus.
    State ExpectAFocus();
    /// Waits until the control of that name has the focus.
    State ExpectFocus(const QString& control);
    /// Waits until a window or screen of that name is shown and is the active one.
    State ExpectScreen(const QString& name);
    /// Waits until none is shown.
    void ExpectNoScreen(const QString& name);

    /// Waits until that text stands in the control.
    void ExpectText(const QString& control, const QString& text);

    /// Presses a key with which the program begins anew, and waits until the sign-on window stands again.
    void KeyToBeginAnew(const QString& key);

    /// The picture on the screen, kept under that name for a case that fails.
    QImage Picture(const QString& name);
    /// Waits until the caret blinks where the control with the focus has it, and answers a picture with it.
    QImage ExpectCaret();
    /// Fails unless the place of the focus can be told from the picture: something visible has it, a box
    /// shows its caret, and the control looks different once Tab has moved the focus on. The only control of
    /// its window that takes keys need not.
    void ExpectFocusIsSeen();
    /// The same for each control on which Tab stops, from the one with the focus on.
    void ExpectEachFocusIsSeen();
    /// Fails for each text of a window or screen that needs more room than it has.
    void ExpectNothingCut(const QString& window);
    /// Fails for each control that reaches out of its window, and for a window that reaches out of its area.
    void ExpectInside(const QString& window);
    /// Fails when a message box is narrower than its title and the buttons in the frame beside it.
    void ExpectRoomForTitle(const QString& window);

    /// The window or screen of that name, once it stands in its frame.
    ShownWindow WindowOf(const QString& name);

    const ProgramFolder& Folder() const { return mFolder; }
    Seat& Clerk() { return *mSeat; }
    RunningWindowManager& Desktop() { return *mManager; }

  private:
    /// Presses Tab until the focus has left the control at that place; false when it does not.
    bool TabAwayFrom(const QRect& control);
    std::optional<Control> FindControl(const QString& name);
    /// Whether the window manager has put its frame around a window.
    bool IsFramed(const ShownWindow& shown) const;
    void Take(const Step& step);
    void DoubleClick(const QString& control);
    /// Where a control stands once its window has come to rest in its frame.
    QRect PlaceAtRest(const QString& control);
    void OpenByClass(const QString& screen);
    State AskState();
    QJsonObject Ask(const QByteArray& question);
    QProcessEnvironment Settings() const;
    void SavePictures();

    ProgramFolder mFolder;
    QProcessEnvironment mMoreSettings;
    std::optional<XServer> mServer;
    std::optional<Seat> mSeat;
    std::optional<RunningWindowManager> mManager;
    std::optional<OwnProcess> mProgram;
    bool mHasFrames = false;
    int mKeysSent = 0;
    std::vector<std::pair<QString, QImage>> mPictures;
};

/// A test that is done under each window manager.
class AnyDesk : public Desk, public testing::WithParamInterface<WindowManager> {};

/// A test that takes ways, each under each window manager.
class WayDesk : public Desk, public testing::WithParamInterface<WayUnder> {
  protected:
    static WindowManager Manager() { return std::get<0>(GetParam()); }
    static const Way& TheWay() { return std::get<1>(GetParam()); }

    /// Signs on and takes the way. Answers the window or screen to which it leads.
    QString GoThere();
};

/// How many pixels within a place are visibly of another colour.
int ChangedPixels(const QImage& before, const QImage& after, const QRect& place);
