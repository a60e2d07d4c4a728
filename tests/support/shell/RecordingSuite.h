#pragma once

#include "support/ScreenTest.h"
#include "toolkit/EndProcess.h"

#include <QStringList>

#include <functional>

class frmMain;

/// The gateway of a start: writes down what the start sets and sends.
class RecordingGateway : public ScriptedGateway {
  public:
    explicit RecordingGateway(QStringList& record)
        : mRecord(record) {}

    /// Called with each command before it is answered.
    std::function<void()> onCommand;

    void SetDefaultDatabase(const QString& name) override;
    void SetCommandTimeout(int seconds) override;

  protected:
    Outcome Run(const QString& command) override;

  private:
    QStringList& mRecord;
};

/// What is raised where the process would end.
struct ProcessEnded {};

/// A test of the start: every in-house component is registered as one that writes down what is called on it,
/// in one record for all, and a user signs on.
class StartTest : public ScreenTest {
  protected:
    StartTest();
    ~StartTest() override;

    /// The class names of the components, in the order in which a start creates them.
    static QStringList ClassesOfInitComponents();
    static QStringList ClassesOfMainLoad();

    /// The main window that a start has made; null when it has made none.
    static frmMain* MainWindow();

    void WriteConfig(const QByteArray& content);

    /// The next command reads the hospital record, which has this row.
    void ExpectHospital(const Value& company, const Value& address, const Value& tin, const Value& byGeneric);

    QStringList record;
    RecordingGateway connection{record};
    /// Called while the sign-on window stands.
    std::function<void()> onShowMain;
    /// Called when the listing component gets its connection and its company name, and the stock picker its
    /// connection.
    std::function<void()> onListingConnection;
    std::function<void()> onCompanyName;
    std::function<void()> onStockListConnection;
    /// The next sign-on succeeds.
    bool signsOn = true;
    bool personFinderConnects = true;
    bool stockItemConnects = true;
    bool stockListConnects = true;

  private:
    const Seam<void()>::Replacement mEnding = EndProcessSeam().Replace([] { throw ProcessEnded(); });
};
