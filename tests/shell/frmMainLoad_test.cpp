#include "components/ComponentRegistry.h"
#include "components/ReportConnector.h"
#include "components/shared.h"
#include "shell/commands.h"
#include "shell/frmMain.h"
#include "shell/Main.h"
#include "shell/StatusPanel.h"
#include "support/CaseName.h"
#include "support/ErrorOf.h"
#include "support/shell/RecordingSuite.h"

#include <QAction>
#include <QLabel>
#include <QScopeGuard>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The main window before its load, with the components of the start made.
class frmMainLoad : public StartTest {
  protected:
    frmMainLoad() {
        gDeptCode = u"HC"_s;
        gDeptDesc = u"HEMODIALYSIS"_s;
        EXPECT_TRUE(InitComponents());
        gStockList = {};
        gConnection = nullptr;
        record.clear();
    }

    void ExpectPlainHospital() {
        ExpectHospital(u"SAN ROQUE HOSPITAL"_s, u"CEBU CITY"_s, u"000-111"_s, false);
    }

    bool IsMLedgerEnabled() const { return window->findChild<QAction*>(u"mnuMLedger"_s)->isEnabled(); }
    QString PanelText(const char* name) const {
        return window->findChild<StatusPanel*>(QString::fromLatin1(name))->Text();
    }

    int ErrorOfLoad() {
        return ErrorOf([this] { window->Form_Load(); });
    }

    std::unique_ptr<frmMain> window = std::make_unique<frmMain>();
};

TEST_F(frmMainLoad, RunsInThisOrder) {
    window->findChild<QAction*>(u"mnuMLedger"_s)->setEnabled(true);
    connection.onCommand = [this] {
        EXPECT_EQ(gDeptCodeCopy, u"HC"_s);
        EXPECT_EQ(gDeptDescCopy, u"HEMODIALYSIS"_s);
        EXPECT_EQ(gConnection, &connection);
        EXPECT_EQ(PanelText("Panel2"), u"ABR"_s);
        EXPECT_EQ(PanelText("Panel3"), u"ANA REYES"_s);
        EXPECT_EQ(gHospitalName, QString());
    };
    onListingConnection = [this] { EXPECT_TRUE(IsMLedgerEnabled()); };
    onCompanyName = [this] {
        EXPECT_FALSE(IsMLedgerEnabled());
        EXPECT_EQ(window->windowTitle(), u"Orvandelle"_s) << "the title comes last";
    };
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_EQ(record, (QStringList{u"PasswordDeptCode HC"_s,
                                   u"hwndParentForm"_s,
                                   u"ShowMain"_s,
                                   u"Connected"_s,
                                   u"DefaultDatabase PASSWORD"_s,
                                   u"Initial"_s,
                                   u"EmployeeName"_s,
                                   HospitalRecordCommand(),
                                   u"create WardWorkLib.clsRequest []"_s,
                                   u"create WardWorkLib.clsResults []"_s,
                                   u"create WardWorkLib.clsConfinementResults []"_s,
                                   u"create WardWorkLib.clsConfinement []"_s,
                                   u"create StockListLib.clsStockList []"_s,
                                   u"CommandTimeout 120"_s,
                                   u"MTS_Server []"_s,
                                   u"SearchMode 1"_s,
                                   u"Initialize_Classes"_s,
                                   u"Connection scripted"_s,
                                   u"CompanyName []"_s,
                                   u"PersonFinder.InitConnection scripted []"_s,
                                   u"StockItem.InitConnect scripted"_s,
                                   u"StockList.InitConnection scripted"_s,
                                   u"StockItem.InitConnect scripted"_s}));
    EXPECT_EQ(window->windowTitle(), u"TARVEN HEMODIALYSIS ver.5.5.2"_s);
}

TEST_F(frmMainLoad, TellsInTheEmptyAreaWhereOneIs) {
    const auto told = [this](const char* name) {
        const auto* line = window->findChild<QLabel*>(QString::fromLatin1(name));
        return line ? line->text() : QString();
    };
    EXPECT_EQ(told("lblHospital"), QString()) << "before the sign-on";
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_EQ(told("lblHospital"), u"SAN ROQUE HOSPITAL"_s);
    EXPECT_EQ(told("lblDepartment"), u"Department: HEMODIALYSIS (HC)"_s);
    EXPECT_EQ(told("lblDataSource"), u"Data source: HOSPITAL"_s);
    EXPECT_EQ(told("lblUser"), u"User: ANA REYES (ABR)"_s);
    EXPECT_TRUE(told("lblBegin").contains(u"Alt+Q"_s));
    EXPECT_EQ(told("lblTrial"), QString());
}

TEST_F(frmMainLoad, TheTrialHospitalCannotBeMistaken) {
    std::dynamic_pointer_cast<FakeCurrentUser>(gCurrentUser.Shared())->onTrial = true;
    ExpectPlainHospital();
    window->Form_Load();
    const auto* trial = window->findChild<QLabel*>(u"lblTrial"_s);
    ASSERT_NE(trial, nullptr);
    EXPECT_EQ(trial->text(), u"TRIAL"_s);
    EXPECT_GE(trial->sizeHint().height(), 3 * window->findChild<QLabel*>(u"lblUser"_s)->sizeHint().height());
}

TEST_F(frmMainLoad, GivesItsOwnWindowToTheSignOn) {
    ExpectPlainHospital();
    window->Form_Load();
    const auto signedOn = std::dynamic_pointer_cast<FakeCurrentUser>(gCurrentUser.Shared());
    EXPECT_EQ(signedOn->parentWindow, window->winId());
}

TEST_F(frmMainLoad, SetsTheSharedVariables) {
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_EQ(gConnection, &connection);
    EXPECT_EQ(connection.DefaultDatabase(), u"PASSWORD"_s);
    EXPECT_EQ(connection.CommandTimeout(), 120);
    EXPECT_EQ(gHospitalName, u"SAN ROQUE HOSPITAL"_s);
    EXPECT_EQ(gHospitalAddress, u"CEBU CITY"_s);
    EXPECT_EQ(gHospitalTin, u"000-111"_s);
    EXPECT_FALSE(gByGeneric);
    EXPECT_TRUE(gWardRequest.IsSet() && gWardResults.IsSet() && gWardConfinementResults.IsSet());
    EXPECT_TRUE(gWardConfinement.IsSet() && gStockList.IsSet());
    EXPECT_NE(gStockList.Shared(), gStockListBasic.Shared());
}

TEST_F(frmMainLoad, HandsTheTimeoutOfItsCommandsToTheConnectionsOfReports) {
    SetReportConnector([](const ReportLogOn&) { return std::make_unique<ScriptedGateway>(); });
    const auto back = qScopeGuard([] { SetReportConnector({}); });
    const int before = ConnectReport({})->CommandTimeout();
    EXPECT_EQ(before, ScriptedGateway().CommandTimeout());
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_EQ(ConnectReport({})->CommandTimeout(), 120);
}

TEST_F(frmMainLoad, AsksForTheWardsRequestsFromTheLoadOnAndStopsWithTheWindow) {
    auto& check = *window->findChild<QTimer*>(u"tmrCheckPending"_s);
    EXPECT_FALSE(check.isActive());
    // The timer runs already while the user signs on.
    connection.onCommand = [&check] { EXPECT_TRUE(check.isActive()); };
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_TRUE(check.isActive());
    EXPECT_TRUE(window->findChild<QTimer*>(u"tmrPrepaid"_s)->isActive());
    for (const char* name : {"tmrPending", "Timer2", "Timer1"})
        EXPECT_FALSE(window->findChild<QTimer*>(QString::fromLatin1(name))->isActive()) << name;
    window->UnloadMain();
    EXPECT_FALSE(check.isActive());
}

TEST_F(frmMainLoad, WhileTheUserSignsOnATickOnlyAsksWhetherAnybodyHas) {
    bool asked = false;
    onShowMain = [&] {
        asked = true;
        for (const char* name : {"tmrCheckPending", "tmrPrepaid"})
            EXPECT_TRUE(window->findChild<QTimer*>(QString::fromLatin1(name))->isActive()) << name;
        record.clear();
        for (const char* name : {"tmrCheckPending", "tmrPrepaid"})
            QMetaObject::invokeMethod(window->findChild<QTimer*>(QString::fromLatin1(name)), "timeout");
        EXPECT_EQ(record, QStringList{u"Connected"_s});
    };
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_TRUE(asked);
}

TEST_F(frmMainLoad, WaitsForTheSignOnBeforeItAsksForTheWardsRequests) {
    signsOn = false;
    EXPECT_THROW(window->Form_Load(), ProcessEnded);
    record.clear();
    QMetaObject::invokeMethod(window->findChild<QTimer*>(u"tmrCheckPending"_s), "timeout");
    EXPECT_EQ(record, QStringList{u"Connected"_s}) << "nothing is sent";
}

TEST_F(frmMainLoad, WithoutASignOnReadsNothingAndIsUnloadedSilently) {
    signsOn = false;
    window->show();
    EXPECT_THROW(window->Form_Load(), ProcessEnded);
    EXPECT_EQ(record,
              (QStringList{u"PasswordDeptCode HC"_s, u"hwndParentForm"_s, u"ShowMain"_s, u"Connected"_s}));
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(messages.Shown().empty());
    EXPECT_EQ(gConnection, nullptr);
    EXPECT_EQ(gDeptCodeCopy, QString());
}

TEST_F(frmMainLoad, NullsInTheHospitalRecordAreEmptyTexts) {
    ExpectHospital(Value(), Value(), Value(), false);
    window->Form_Load();
    EXPECT_EQ(gHospitalName, QString());
    EXPECT_EQ(gHospitalAddress, QString());
    EXPECT_EQ(gHospitalTin, QString());
}

TEST_F(frmMainLoad, ANullTinAloneStartsNormally) {
    ExpectHospital(u"SAN ROQUE HOSPITAL"_s, u"CEBU CITY"_s, Value(), false);
    window->Form_Load();
    EXPECT_EQ(gHospitalName, u"SAN ROQUE HOSPITAL"_s);
    EXPECT_EQ(gHospitalTin, QString());
}

TEST_F(frmMainLoad, OfTwoHospitalRecordsTheFirstCounts) {
    connection.Expect(HospitalRecordCommand(),
                      Rows({u"company"_s, u"Address1"_s, u"TinNo"_s, u"Bygeneric"_s},
                           {{u"SAN ROQUE HOSPITAL"_s, u"CEBU CITY"_s, u"000-111"_s, true},
                            {u"SANTA ANA CLINIC"_s, u"TALISAY"_s, u"000-222"_s, false}}));
    window->Form_Load();
    EXPECT_EQ(gHospitalName, u"SAN ROQUE HOSPITAL"_s);
    EXPECT_EQ(gHospitalAddress, u"CEBU CITY"_s);
    EXPECT_EQ(gHospitalTin, u"000-111"_s);
    EXPECT_TRUE(gByGeneric);
}

TEST_F(frmMainLoad, AnEmptyHospitalRecordRaises3021) {
    connection.Expect(HospitalRecordCommand(),
                      Rows({u"company"_s, u"Address1"_s, u"TinNo"_s, u"Bygeneric"_s}));
    EXPECT_EQ(ErrorOfLoad(), 3021);
    EXPECT_EQ(record.last(), HospitalRecordCommand());
}

TEST_F(frmMainLoad, ANullBygenericRaises13) {
    ExpectHospital(u"SAN ROQUE HOSPITAL"_s, u"CEBU CITY"_s, u"000-111"_s, Value());
    EXPECT_EQ(ErrorOfLoad(), 13);
    EXPECT_EQ(gHospitalTin, u"000-111"_s) << "the three texts are read before";
    EXPECT_FALSE(record.contains(u"create WardWorkLib.clsRequest []"_s));
}

struct GenericCase {
    const char* name;
    Value byGeneric;
    bool expected;
};

class Bygeneric : public frmMainLoad, public testing::WithParamInterface<GenericCase> {};

TEST_P(Bygeneric, IsKeptAndChangesNothing) {
    ExpectHospital(u"SAN ROQUE HOSPITAL"_s, u"CEBU CITY"_s, u"000-111"_s, GetParam().byGeneric);
    window->Form_Load();
    EXPECT_EQ(gByGeneric, GetParam().expected);
    EXPECT_FALSE(gUseGenericList);
    EXPECT_TRUE(record.contains(u"create StockListLib.clsStockList []"_s));
    EXPECT_FALSE(record.contains(u"create StockGroupListLib.clsGroupList []"_s));
}

INSTANTIATE_TEST_SUITE_P(Values, Bygeneric,
                         testing::Values(GenericCase{"True", true, true}, GenericCase{"False", false, false},
                                         GenericCase{"One", qint64{1}, true},
                                         GenericCase{"Text", u"True"_s, true}),
                         CaseName());

TEST_F(frmMainLoad, TheGroupListIsForWorkstationsThatAskForIt) {
    gUseGenericList = true;
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_TRUE(record.contains(u"create StockGroupListLib.clsGroupList []"_s));
    EXPECT_FALSE(record.contains(u"create StockListLib.clsStockList []"_s));
}

TEST_F(frmMainLoad, APatientMasterThatCannotConnectStopsTheStepAndNotTheStart) {
    personFinderConnects = false;
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_EQ(
        record.mid(record.indexOf(u"CompanyName []"_s) + 1),
        (QStringList{u"PersonFinder.InitConnection scripted []"_s, u"StockItem.InitConnect scripted"_s}));
    EXPECT_EQ(window->windowTitle(), u"TARVEN HEMODIALYSIS ver.5.5.2"_s);
}

TEST_F(frmMainLoad, AStockItemThatCannotConnectKeepsTheStockListWithoutAConnection) {
    stockItemConnects = false;
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_EQ(record.mid(record.indexOf(u"CompanyName []"_s) + 1),
              (QStringList{u"PersonFinder.InitConnection scripted []"_s, u"StockItem.InitConnect scripted"_s,
                           u"StockItem.InitConnect scripted"_s}));
}

TEST_F(frmMainLoad, AStockListThatCannotConnectIsIgnored) {
    stockListConnects = false;
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_EQ(record.mid(record.indexOf(u"CompanyName []"_s) + 1),
              (QStringList{u"PersonFinder.InitConnection scripted []"_s, u"StockItem.InitConnect scripted"_s,
                           u"StockList.InitConnection scripted"_s, u"StockItem.InitConnect scripted"_s}));
    EXPECT_EQ(window->windowTitle(), u"TARVEN HEMODIALYSIS ver.5.5.2"_s);
}

TEST_F(frmMainLoad, AsksTheSessionForItsConnectionOnceMoreAtTheEnd) {
    ScriptedGateway another;
    onStockListConnection = [&another] {
        std::dynamic_pointer_cast<FakeCurrentUser>(gCurrentUser.Shared())->connection = &another;
    };
    ExpectPlainHospital();
    window->Form_Load();
    EXPECT_EQ(gConnection, &another);
}

class MissingWardComponent : public frmMainLoad, public testing::WithParamInterface<int> {};

TEST_P(MissingWardComponent, Raises429AndNothingComesBehindIt) {
    RegisterComponent(ClassesOfMainLoad()[GetParam()], {});
    ExpectPlainHospital();
    EXPECT_EQ(ErrorOfLoad(), 429);
    QStringList createdBefore;
    for (const QString& className : ClassesOfMainLoad().mid(0, GetParam()))
        createdBefore << u"create %1 []"_s.arg(className);
    EXPECT_EQ(record.mid(record.indexOf(HospitalRecordCommand()) + 1), createdBefore);
    EXPECT_TRUE(messages.Shown().empty());
}

INSTANTIATE_TEST_SUITE_P(Classes, MissingWardComponent, testing::Range(0, 5),
                         [](const testing::TestParamInfo<int>& number) {
                             return "Number" + std::to_string(number.param + 1);
                         });

} // namespace
