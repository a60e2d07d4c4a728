#pragma once

#include "suite/DataSource.h"
#include "support/hospital/HospitalTest.h"
#include "support/PrintQt.h"
#include "support/ScreenTest.h"
#include "support/ScriptedMessages.h"
#include "toolkit/Failure.h"

#include <QDialog>
#include <QObject>

#include <functional>
#include <optional>
#include <vector>

/// A test of a component over a trial hospital of its own, whose connection is the session's. Message boxes
/// are scripted, and a failure that reaches the top fails the test.
class SuiteTest : public HospitalTest {
  protected:
    SuiteTest();
    ~SuiteTest() override;

    ScriptedMessages messages;
    const Seam<void(const std::exception_ptr&, bool)>::Replacement failures =
        Failure::EndSeam().Replace([](const std::exception_ptr& failure, bool) {
            ADD_FAILURE() << Failure::TextOf(failure).toStdString();
        });
};

/// Answers the next modal dialogue of a component when its event loop runs; fails the test when none has come
/// by the end of its life.
class OnDialog : public QObject {
  public:
    explicit OnDialog(std::function<void(QDialog&)> answer);
    ~OnDialog() override;

  private:
    bool mShown = false;
};

/// Fails the test when a modal dialogue comes during its life.
class NoDialog : public QObject {
  public:
    NoDialog();
};

/// A hospital that a test can sign on to: the copy of the trial hospital at a path, with a fault where one is
/// set.
class FakeSource : public DataSource {
  public:
    FakeSource(const QString& name, const QString& path)
        : mName(name)
        , mPath(path) {}

    QString hint;
    bool needsMaking = false;
    bool canBeMadeAnew = false;
    /// Raised by Connect and by Make, as long as they are set.
    std::optional<RunTimeError> connectFailure;
    std::optional<RunTimeError> makeFailure;
    int made = 0;
    int madeAnew = 0;
    /// Runs in the middle of a making.
    std::function<void()> whileMaking;
    /// The making's progress, to be told in its middle.
    MakingProgress tell;
    int connected = 0;
    /// How often it was connected to for reading alone, and to be replaced.
    int connectedToRead = 0;
    int connectedToReplace = 0;
    /// Where it keeps a trail of sign-ons: the workstation of which it is the trail.
    QString workstation;
    bool holdsWork = false;

    QString Name() const override { return mName; }
    QString Hint() const override { return hint; }
    bool NeedsMaking() const override { return needsMaking; }
    bool CanBeMadeAnew() const override { return canBeMadeAnew; }
    void Make(const MakingProgress& progress) override;
    void MakeAnew(const MakingProgress& progress) override;
    std::unique_ptr<CommandGateway> Connect(const QString& user, const QString& password) override;
    std::unique_ptr<CommandGateway> ConnectToRead(const QString& user, const QString& password) override;
    std::unique_ptr<CommandGateway> ConnectToReplace(const QString& user, const QString& password) override;
    std::unique_ptr<SignOnTrail> Trail(CommandGateway& connection) const override;
    bool HoldsWork() const override { return holdsWork; }

  private:
    QString mName;
    QString mPath;
};
