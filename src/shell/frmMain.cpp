#include "shell/frmMain.h"

#include "charges/frmAssessment.h"
#include "charges/frmPostCharges.h"
#include "components/ComponentRegistry.h"
#include "components/ReportConnector.h"
#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "maintenance/frmAssessStatus.h"
#include "maintenance/frmListCharges.h"
#include "maintenance/frmReprint.h"
#include "nursing/PendingMonitor.h"
#include "patients/frmSearchPatient.h"
#include "patients/frmWalkInUpdate.h"
#include "patients/PatientContext.h"
#include "reports/frmCensus.h"
#include "reports/frmLedger.h"
#include "reports/frmReportRange.h"
#include "shell/commands.h"
#include "shell/frmAbout.h"
#include "shell/frmSetup.h"
#include "shell/MainArea.h"
#include "shell/StatusPanel.h"
#include "shell/version.h"
#include "toolkit/EndProcess.h"
#include "toolkit/ModalStack.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Screens.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

/// Seconds that every command may take, those of reports too.
constexpr int kCommandTimeout = 120;

} // namespace

frmMain::frmMain() {
    Layout();
    SetCurrent(this);
    qApp->installEventFilter(this);
}

frmMain::~frmMain() {
    if (Current() == this)
        SetCurrent(nullptr);
}

void frmMain::Open() {
    auto* window = new frmMain;
    // The window manager maximises later; the sign-on window wants to know its place at once.
    window->resize(window->screen()->availableSize());
    window->showMaximized();
    window->Form_Load();
}

void frmMain::Form_Load() {
    mPendingMonitor->Start();
    gCurrentUser->SetPasswordDeptCode(gDeptCode);
    gCurrentUser->SethwndParentForm(winId());
    gCurrentUser->ShowMain();
    if (!gCurrentUser->Connected()) {
        UnloadMain();
        EndProcess();
    }
    ModalStack::Activate(*this);
    TakeConnection();
    ReadHospitalRecord();
    CreateWardComponents();
    HandOutConnection();
    setWindowTitle(u"TARVEN "_s + gDeptDesc + u" ver."_s +
                   u"%1.%2.%3"_s.arg(Version::kMajor).arg(Version::kMinor).arg(Version::kRevision));
    TellWhereOneIs();
}

void frmMain::TellWhereOneIs() {
    const auto withCode = [](const QString& name, const QString& code) {
        return u"%1 (%2)"_s.arg(name, code);
    };
    mArea->Tell({.hospital = gHospitalName,
                 .department = withCode(gDeptDesc, gDeptCode),
                 .dataSource = gCurrentUser->ServerName(),
                 .user = withCode(mPanel3->Text(), mPanel2->Text()),
                 .isTrial = gCurrentUser->IsOnTrial()});
}

QMdiArea* frmMain::Area() {
    return mArea;
}

void frmMain::TakeConnection() {
    gConnection = gCurrentUser->SQLConnection();
    gConnection->SetDefaultDatabase(u"PASSWORD"_s);
    gDeptCodeCopy = gDeptCode;
    gDeptDescCopy = gDeptDesc;
    mPanel2->SetText(gCurrentUser->Initial());
    mPanel3->SetText(gCurrentUser->EmployeeName());
}

void frmMain::ReadHospitalRecord() {
    RowSet hospital = gCurrentUser->SQLConnection()->Execute(HospitalRecordCommand());
    gHospitalName = hospital.Fields(u"company").TextOrEmpty();
    gHospitalAddress = hospital.Fields(u"Address1").TextOrEmpty();
    gHospitalTin = hospital.Fields(u"TinNo").TextOrEmpty();
    // Kept: a Null becomes the empty text, which is no boolean, and the start fails with a type mismatch.
    gByGeneric = Value(hospital.Fields(u"Bygeneric").TextOrEmpty()).ToBoolean();
    hospital.Close();
}

void frmMain::CreateWardComponents() {
    gWardRequest = CreateObject<Component>(u"WardWorkLib.clsRequest"_s, QString());
    gWardResults = CreateObject<Component>(u"WardWorkLib.clsResults"_s, QString());
    gWardConfinementResults = CreateObject<Component>(u"WardWorkLib.clsConfinementResults"_s, QString());
    gWardConfinement = CreateObject<Component>(u"WardWorkLib.clsConfinement"_s, QString());
    gStockList = CreateObject<clsStockList>(gUseGenericList ? u"StockGroupListLib.clsGroupList"_s
                                                            : u"StockListLib.clsStockList"_s);
}

void frmMain::HandOutConnection() {
    CommandGateway* connection = gCurrentUser->SQLConnection();
    connection->SetCommandTimeout(kCommandTimeout);
    SetReportTimeout(connection->CommandTimeout());
    gListing->SetMTS_Server(QString());
    gListing->SetSearchMode(true);
    gListing->Initialize_Classes();
    gListing->SetConnection(connection);
    EnableMenuItem(u"mnuMLedger"_s, false);
    gListing->SetCompanyName(gCompanyName);
    if (gPersonFinder->InitConnection(connection, QString()) &&
        gStockItem->InitConnect(connection->ConnectionString()))
        gStockList->InitConnection(connection->ConnectionString());
    gConnection = gCurrentUser->SQLConnection();
    // Kept: a second time where the step before went well, and the first time where it stopped early.
    gStockItem->InitConnect(gConnection->ConnectionString());
}

void frmMain::UnloadMain() {
    if (!Screens::UnloadAll())
        return;
    mPendingMonitor->Stop();
    hide();
    QCoreApplication::quit();
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->ignore();
    UnloadMain();
}

bool frmMain::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    const QKeySequence keys(static_cast<QKeyEvent*>(event)->keyCombination());
    for (const QAction* action : menuBar()->findChildren<QAction*>()) {
        if (!keys.isEmpty() && action->shortcut() == keys && action->isEnabled()) {
            event->ignore();
            return true;
        }
    }
    return false;
}

void frmMain::EnableMenuItem(const QString& name, bool enabled) {
    if (auto* action = findChild<QAction*>(name))
        action->setEnabled(enabled);
}

void frmMain::OpenPostCharges(const QString& patientType) {
    gPatientType = patientType;
    gChargeMode = u"Post"_s;
    Screens::Get<frmPostCharges>().Show();
}

void frmMain::OpenSearchPatient() {
    Screens::Get<frmSearchPatient>().Show();
}

void frmMain::OpenWalkInUpdate() {
    Screens::Get<frmWalkInUpdate>().ShowModal();
}

void frmMain::mnuAssessment_Click() {
    Screens::Get<frmAssessment>().ShowModal();
}

void frmMain::mnuInTransactionEntry_Click() {
    OpenPostCharges(u"I"_s);
}

void frmMain::mnuOutTransaction_Click() {
    OpenPostCharges(u"O"_s);
}

void frmMain::mnuExit_Click() {
    UnloadMain();
}

void frmMain::OpenReportRange(ReportType type) {
    frmReportRange::SetReportType(type);
    Screens::Get<frmReportRange>().Show();
}

void frmMain::mnuCensus_Click() {
    Screens::Get<frmCensus>().Show();
}

void frmMain::mnuLedger_Click() {
    gChargeMode = u"Ledger"_s;
    Screens::Get<frmLedger>().Show();
}

/// Kept: the charge mode stays as it stands, so the finder may serve another screen than the ledger.
void frmMain::mnuMLedger_Click() {
    Screens::Get<frmLedger>().Show();
}

void frmMain::mnuReportStatus_Click() {
    Screens::Get<frmAssessStatus>().ShowModal();
}

void frmMain::mnuListCharges_Click() {
    gChargeMode = u"List"_s;
    Screens::Get<frmListCharges>().Show();
}

void frmMain::mnuDuplicate_Click() {
    Screens::Get<frmReprint>().Show();
}

void frmMain::mSetup_Click() {
    Screens::Get<frmSetup>().Show();
}

void frmMain::mnuAbout_Click() {
    auto& about = Screens::Get<frmAbout>();
    about.FadeIn();
    about.Show();
}

void frmMain::Toolbar1_ButtonClick(const QString& key) {
    // Kept: no button bears the last three keys, and "Reprots" does nothing.
    if (key == u"Assess"_s)
        mnuAssessment_Click();
    else if (key == u"LEDGER"_s)
        mnuMLedger_Click();
    else if (key == u"Reprots"_s)
        return;
    else if (key == u"EXIT"_s)
        AskAndClose();
}

void frmMain::AskAndClose() {
    if (MsgBox({.text = u"Are you sure to close this program?"_s,
                .icon = MsgIcon::Question,
                .title = u"Hemodialysis System"_s,
                .buttons = MsgButtons::OkCancel}) == MsgAnswer::Ok)
        UnloadMain();
}

void frmMain::Toolbar1_ButtonMenuClick(const QString& key) {
    if (key == u"Inpatient"_s)
        mnuInTransactionEntry_Click();
    else if (key == u"Outpatient"_s)
        mnuOutTransaction_Click();
    else if (key == u"Audit"_s)
        OpenReportRange(ReportType::Audit);
    else if (key == u"Opd"_s)
        OpenReportRange(ReportType::OutPatientIncome);
    else if (key == u"IPD"_s)
        OpenReportRange(ReportType::InPatientIncome);
}
