#include "support/shell/RecordingSuite.h"

#include "components/clsDiagnosisCodes.h"
#include "components/ComponentRegistry.h"
#include "components/ReportConnector.h"
#include "shell/commands.h"
#include "shell/frmMain.h"

#include <QApplication>
#include <QFile>

#include <memory>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

QString NameOf(const CommandGateway* connection) {
    return connection ? connection->ConnectionString() : u"nothing"_s;
}

class RecordingUser : public FakeCurrentUser {
  public:
    RecordingUser(QStringList& record, CommandGateway& opened, const bool& signsOn,
                  const std::function<void()>& onShowMain)
        : mRecord(record)
        , mOpened(opened)
        , mSignsOn(signsOn)
        , mOnShowMain(onShowMain) {
        connected = false;
    }

    void SetPasswordDeptCode(const QString& code) override { mRecord << u"PasswordDeptCode "_s + code; }
    void SethwndParentForm(WId window) override {
        parentWindow = window;
        mRecord << u"hwndParentForm"_s;
    }
    void ShowMain() override {
        mRecord << u"ShowMain"_s;
        if (mOnShowMain)
            mOnShowMain();
        connected = mSignsOn;
        connection = mSignsOn ? &mOpened : nullptr;
    }
    bool Connected() const override {
        mRecord << u"Connected"_s;
        return connected;
    }
    QString Initial() const override {
        mRecord << u"Initial"_s;
        return u"ABR"_s;
    }
    QString EmployeeName() const override {
        mRecord << u"EmployeeName"_s;
        return u"ANA REYES"_s;
    }

  private:
    QStringList& mRecord;
    CommandGateway& mOpened;
    const bool& mSignsOn;
    const std::function<void()>& mOnShowMain;
};

class RecordingListing : public FakeListing {
  public:
    RecordingListing(QStringList& record, const std::function<void()>& onConnection,
                     const std::function<void()>& onCompanyName)
        : mRecord(record)
        , mOnConnection(onConnection)
        , mOnCompanyName(onCompanyName) {}

    void SetMTS_Server(const QString& server) override { mRecord << u"MTS_Server [%1]"_s.arg(server); }
    void SetSearchMode(bool search) override { mRecord << u"SearchMode %1"_s.arg(search); }
    void Initialize_Classes() override { mRecord << u"Initialize_Classes"_s; }
    void SetConnection(CommandGateway* gateway) override {
        mRecord << u"Connection "_s + NameOf(gateway);
        if (mOnConnection)
            mOnConnection();
    }
    void SetCompanyName(const QString& name) override {
        mRecord << u"CompanyName [%1]"_s.arg(name);
        if (mOnCompanyName)
            mOnCompanyName();
    }

  private:
    QStringList& mRecord;
    const std::function<void()>& mOnConnection;
    const std::function<void()>& mOnCompanyName;
};

class RecordingPersonFinder : public FakePersonFinder {
  public:
    RecordingPersonFinder(QStringList& record, const bool& answer)
        : mRecord(record)
        , mAnswer(answer) {}
    bool InitConnection(CommandGateway* gateway, const QString& server) override {
        mRecord << u"PersonFinder.InitConnection %1 [%2]"_s.arg(NameOf(gateway), server);
        return mAnswer;
    }

  private:
    QStringList& mRecord;
    const bool& mAnswer;
};

class RecordingStockItem : public FakeStockItem {
  public:
    RecordingStockItem(QStringList& record, const bool& answer)
        : mRecord(record)
        , mAnswer(answer) {}
    bool InitConnect(const QString& connectionString) override {
        mRecord << u"StockItem.InitConnect "_s + connectionString;
        return mAnswer;
    }

  private:
    QStringList& mRecord;
    const bool& mAnswer;
};

class RecordingStockList : public FakeStockList {
  public:
    RecordingStockList(QStringList& record, const bool& answer, const std::function<void()>& onConnection)
        : mRecord(record)
        , mAnswer(answer)
        , mOnConnection(onConnection) {}
    bool InitConnection(const QString& connectionString) override {
        mRecord << u"StockList.InitConnection "_s + connectionString;
        if (mOnConnection)
            mOnConnection();
        return mAnswer;
    }

  private:
    QStringList& mRecord;
    const bool& mAnswer;
    const std::function<void()>& mOnConnection;
};

class RecordingCodes : public clsDiagnosisCodes {
  public:
    explicit RecordingCodes(QStringList& record)
        : mRecord(record) {}
    void SetActiveConnection(CommandGateway* connection) override {
        mRecord << u"ActiveConnection "_s + NameOf(connection);
    }

  private:
    QStringList& mRecord;
};

} // namespace

void RecordingGateway::SetDefaultDatabase(const QString& name) {
    mRecord << u"DefaultDatabase "_s + name;
    ScriptedGateway::SetDefaultDatabase(name);
}

void RecordingGateway::SetCommandTimeout(int seconds) {
    mRecord << u"CommandTimeout %1"_s.arg(seconds);
    ScriptedGateway::SetCommandTimeout(seconds);
}

CommandGateway::Outcome RecordingGateway::Run(const QString& command) {
    mRecord << command;
    if (onCommand)
        onCommand();
    return ScriptedGateway::Run(command);
}

QStringList StartTest::ClassesOfInitComponents() {
    return {u"TARVEN_User.clsCurrentUser"_s,       u"StockItemLib.clsStockItem"_s,
            u"ResultViewLib.clsResultView"_s,      u"PersonFinderLib.clsPersonFinder"_s,
            u"StockListLib.clsStockList"_s,        u"ListingLib.clsListing"_s,
            u"AccountStatementLib.clsStatement"_s, u"DiagnosisCodeLib.clsDiagnosisCodes"_s};
}

QStringList StartTest::ClassesOfMainLoad() {
    return {u"WardWorkLib.clsRequest"_s, u"WardWorkLib.clsResults"_s, u"WardWorkLib.clsConfinementResults"_s,
            u"WardWorkLib.clsConfinement"_s, u"StockListLib.clsStockList"_s};
}

StartTest::StartTest() {
    const auto registerAs = [this](const QString& className, auto make) {
        RegisterComponent(className, [this, className, make](const QString& server) {
            record << u"create %1 [%2]"_s.arg(className, server);
            return make();
        });
    };
    registerAs(u"TARVEN_User.clsCurrentUser"_s,
               [this] { return std::make_shared<RecordingUser>(record, connection, signsOn, onShowMain); });
    registerAs(u"StockItemLib.clsStockItem"_s,
               [this] { return std::make_shared<RecordingStockItem>(record, stockItemConnects); });
    registerAs(u"PersonFinderLib.clsPersonFinder"_s,
               [this] { return std::make_shared<RecordingPersonFinder>(record, personFinderConnects); });
    registerAs(u"ListingLib.clsListing"_s, [this] {
        return std::make_shared<RecordingListing>(record, onListingConnection, onCompanyName);
    });
    registerAs(u"DiagnosisCodeLib.clsDiagnosisCodes"_s,
               [this] { return std::make_shared<RecordingCodes>(record); });
    for (const QString& className : {u"StockListLib.clsStockList"_s, u"StockGroupListLib.clsGroupList"_s})
        registerAs(className, [this] {
            return std::make_shared<RecordingStockList>(record, stockListConnects, onStockListConnection);
        });
    for (const QString& className : {u"ResultViewLib.clsResultView"_s, u"AccountStatementLib.clsStatement"_s,
                                     u"WardWorkLib.clsRequest"_s, u"WardWorkLib.clsResults"_s,
                                     u"WardWorkLib.clsConfinementResults"_s, u"WardWorkLib.clsConfinement"_s})
        registerAs(className, [] { return std::make_shared<Component>(); });
}

StartTest::~StartTest() {
    SetReportTimeout({});
    for (const QString& className : ClassesOfInitComponents() + ClassesOfMainLoad())
        RegisterComponent(className, {});
    RegisterComponent(u"StockGroupListLib.clsGroupList"_s, {});
}

frmMain* StartTest::MainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* main = qobject_cast<frmMain*>(window))
            return main;
    }
    return nullptr;
}

void StartTest::WriteConfig(const QByteArray& content) {
    QFile file(programDirectory.filePath(u"tarvenaux.ini"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void StartTest::ExpectHospital(const Value& company, const Value& address, const Value& tin,
                               const Value& byGeneric) {
    connection.Expect(HospitalRecordCommand(), Rows({u"company"_s, u"Address1"_s, u"TinNo"_s, u"Bygeneric"_s},
                                                    {{company, address, tin, byGeneric}}));
}
