#include "screens/WaysIn.h"

#include "catalogue/clsRevenueCode.h"
#include "catalogue/commands.h"
#include "catalogue/frmRates.h"
#include "catalogue/frmSearcher.h"
#include "charges/commands.h"
#include "charges/frmPostCharges.h"
#include "components/ReportConnector.h"
#include "components/shared.h"
#include "maintenance/commands.h"
#include "maintenance/frmReprint.h"
#include "nursing/commands.h"
#include "nursing/frmNursingRequest.h"
#include "patients/commands.h"
#include "patients/frmARPatients.h"
#include "patients/frmCashPatients.h"
#include "patients/frmRegisteredOPD.h"
#include "patients/frmWalkIn.h"
#include "patients/frmWalkInUpdate.h"
#include "reports/Reports.h"
#include "screens/ScreenTable.h"
#include "shell/commands.h"
#include "shell/frmMain.h"
#include "shell/Main.h"
#include "shell/RegisterScreens.h"
#include "support/WhileModal.h"
#include "toolkit/Screens.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kTemplate = "<report paper=\"100x100\" margins=\"0 0 0 0\">"
                           "<tables><table name=\"T\" location=\"PASSWORD.dbo.tbOne\"/></tables>"
                           "<query>SELECT a FROM {T}</query>"
                           "<group by=\"a\"><header height=\"5\"/></group></report>";

template <class Screen> void ShowScreen() {
    Screens::Get<Screen>().Show();
}

/// The screens to which no way leads in this release.
const std::map<std::string, void (*)()>& ByClass() {
    static const std::map<std::string, void (*)()> screens = {
        {"frmARPatients", ShowScreen<frmARPatients>}, {"frmCashPatients", ShowScreen<frmCashPatients>},
        {"frmRates", ShowScreen<frmRates>},           {"frmRegisteredOPD", ShowScreen<frmRegisteredOPD>},
        {"frmReprint", ShowScreen<frmReprint>},       {"frmSearcher", ShowScreen<frmSearcher>},
        {"frmWalkIn", ShowScreen<frmWalkIn>},         {"frmWalkInUpdate", ShowScreen<frmWalkInUpdate>},
    };
    return screens;
}

Form* ShownForm(const std::string& name) {
    for (QWidget* widget : QApplication::allWidgets()) {
        auto* form = qobject_cast<Form*>(widget);
        if (form && form->isVisible() && form->objectName().toStdString() == name)
            return form;
    }
    return nullptr;
}

std::shared_ptr<const RowData> Departments(std::vector<std::vector<Value>> rows) {
    return Rows({u"Revenue"_s, u"RevenueID"_s}, std::move(rows));
}

std::shared_ptr<const RowData> TwoDepartments() {
    return Departments({{u"LABORATORY"_s, u"LB"_s}, {u"LABOR ROOM"_s, u"LR"_s}});
}

std::shared_ptr<const RowData> OneCashPatient() {
    return Rows({u"ADM. #"_s, u"HOSP. #"_s, u"PATIENT NAME"_s, u"ADM. DATE"_s, u"AdmissionNum"_s},
                {{u"104233"_s, u"100085"_s, u"CRUZ, ANA SY"_s, Value(), u"A-104233"_s}});
}

std::shared_ptr<const RowData> OnePatient() {
    return Rows(
        {u"hospital #"_s, u"Admission #"_s, u"Patient Name"_s, u"admission date"_s, u"Billing Date"_s},
        {{u"100085"_s, u"700121"_s, u"CRUZ, JUANA SY"_s, Value(), Value()}});
}

/// A list without rows whose columns are read by their places.
std::shared_ptr<const RowData> EmptyList(int columns) {
    std::vector<QString> names;
    for (int col = 1; col <= columns; ++col)
        names.push_back(u"Field%1"_s.arg(col));
    return Rows(std::move(names));
}

std::shared_ptr<const RowData> NoRequests() {
    return EmptyList(24);
}

std::shared_ptr<const RowData> NoAssessments() {
    return EmptyList(9);
}

} // namespace

WaysIn::WaysIn() {
    RegisterScreens();
    WriteConfig("DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
    ExpectHospital(u"SAN ROQUE HOSPITAL"_s, u"CEBU CITY"_s, u"000-111"_s, false);
    Main();
    mWindow.reset(MainWindow());
    // The monitor asks nothing of a user who is not connected; its questions would come between the others.
    User().connected = false;
    Activate(*mWindow);
    SetReportConnector([](const ReportLogOn& logOn) {
        auto rows = std::make_unique<ScriptedGateway>();
        rows->Expect(u"SELECT a FROM %1.dbo.tbOne"_s.arg(logOn.database), Rows({u"a"_s}, {{u"A"_s}}));
        return rows;
    });
}

WaysIn::~WaysIn() {
    SetReportConnector({});
    Screens::Clear();
    gReport = nullptr;
}

void WaysIn::Open(const ScreenSection& section, const Look& look) {
    mLook = look;
    mName = section.name;
    mIsModal = section.isModal;
    for (const QString& way : section.ways) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, way.toStdString());
        mLooked = false;
        Go(way);
        RunEvents();
        if (!mLooked)
            LookAt(ShownForm(mName));
        EXPECT_TRUE(Screens::UnloadAll());
    }
}

void WaysIn::Go(const QString& way) {
    const std::map<QString, void (WaysIn::*)()> ways = {
        {u"by class"_s, &WaysIn::OpenByClass},
        {u"Enter in txtLastName of frmPostCharges"_s, &WaysIn::OpenFinder},
        {u"a department code of two"_s, &WaysIn::OpenSearch},
        {u"cmdSearch of frmAssessment"_s, &WaysIn::OpenCashList},
        {u"cmdRegister of frmCashWalkIn"_s, &WaysIn::OpenRegistration},
        {u"double click on Image1"_s, &WaysIn::OpenRequests},
        {u"ShowReport"_s, &WaysIn::OpenViewer},
        {u"PrintConsultation"_s, &WaysIn::OpenConsultation},
    };
    if (way == u"start"_s) {
        mLooked = true;
        return mLook(*mWindow);
    }
    ExpectWhatItAsks();
    if (ways.contains(way))
        return (this->*ways.at(way))();
    if (mIsModal)
        LookAtModal();
    if (way.startsWith(u"menu "_s))
        ChooseMenu(way.mid(5));
    else if (way.startsWith(u"toolbar "_s))
        ChooseTool(way.mid(8));
    else
        throw std::runtime_error("no way in is called " + way.toStdString());
}

void WaysIn::LookAt(const Form* screen) {
    mLooked = true;
    if (!screen || screen->objectName().toStdString() != mName) {
        ADD_FAILURE() << mName << " did not open";
        return;
    }
    EXPECT_EQ(screen->IsModal(), mIsModal);
    mLook(*screen);
}

void WaysIn::LookAtModal() {
    WhileModal([this](const Form& screen) { LookAt(&screen); });
}

void WaysIn::ChooseMenu(const QString& name) const {
    auto* item = mWindow->findChild<QAction*>(name);
    ASSERT_TRUE(item && item->isVisible() && item->isEnabled()) << name.toStdString() << " cannot be chosen";
    item->trigger();
}

void WaysIn::ChooseTool(const QString& name) const {
    if (auto* button = mWindow->findChild<QToolButton*>(name))
        Click(*button);
    else
        ChooseMenu(name);
}

void WaysIn::OpenByClass() {
    if (!ByClass().contains(mName))
        throw std::runtime_error("no class is called " + mName);
    ByClass().at(mName)();
}

void WaysIn::OpenFinder() {
    ChooseMenu(u"mnuInTransactionEntry"_s);
    connection.Expect(GetPatientCommand(u"I"_s, QString()), OnePatient());
    Press(Find<QLineEdit>(Screens::Get<frmPostCharges>(), "txtLastName"), Qt::Key_Return);
}

void WaysIn::OpenSearch() {
    connection.Expect(ExactRevenueCommand(u"LAB"_s), Departments({}));
    connection.Expect(PartialRevenueCommand(u"LAB"_s), TwoDepartments());
    connection.Expect(RevenueListQuery().replace(u"##"_s, u"LAB"_s), TwoDepartments());
    LookAtModal();
    EXPECT_FALSE(clsRevenueCode().ValidateRevenue(u"LAB"_s));
}

void WaysIn::SearchCashPatients(int option, const std::function<void()>& steps) {
    WhileModal([this, option, steps](const Form& assessment) {
        Click(Find<QRadioButton>(assessment, u"optType(%1)"_s.arg(option).toLatin1()));
        connection.Expect(GetCashPatientCommand(QString(), QString::number(option + 1)), OneCashPatient());
        steps();
        Click(Find<QPushButton>(assessment, "cmdSearch"));
    });
    ChooseMenu(u"mnuAssessment"_s);
}

void WaysIn::OpenCashList() {
    SearchCashPatients(0, [this] { LookAtModal(); });
}

void WaysIn::OpenRegistration() {
    SearchCashPatients(2, [this] {
        WhileModal([this](const Form& list) {
            LookAtModal();
            Click(Find<QPushButton>(list, "cmdRegister"));
        });
    });
}

void WaysIn::OpenRequests() {
    connection.Expect(CheckPendingCommand(), Rows({u"TotalPending"_s}, {{1}}));
    User().connected = true;
    QMetaObject::invokeMethod(&Find<QTimer>(*mWindow, "tmrCheckPending"), "timeout");
    User().connected = false;
    connection.Expect(NurseRequestCommand(), NoRequests());
    LookAtModal();
    DoubleClick(Find<QLabel>(*mWindow, "Image1"), QPoint(5, 5));
}

void WaysIn::OpenViewer() {
    OpenReport(WriteTemplate(u"Slip.RPT"_s), {});
    LookAtModal();
    ShowReport(true, u"Print ChargeSlip"_s, false);
}

void WaysIn::OpenConsultation() {
    WriteTemplate(u"RadioConsultation.rpt"_s);
    connection.Expect(NurseRequestCommand(), NoRequests());
    auto& requests = Screens::Get<frmNursingRequest>();
    LookAtModal();
    requests.PrintConsultation(u"41"_s);
}

void WaysIn::ExpectWhatItAsks() {
    if (mName == "frmSearcher") {
        connection.Expect(UltraExamsCommand(), EmptyList(2));
        connection.Expect(SearchUltraExamCommand(QString()), EmptyList(2));
    }
    if (mName != "frmAssessStatus")
        return;
    connection.Expect(AssessmentStatusCommand(QString()), NoAssessments());
    messages.Expect({.text = u"Are you sure to close this program?"_s,
                     .icon = MsgIcon::Question,
                     .title = u"OPD Registration System"_s,
                     .buttons = MsgButtons::OkCancel});
}

FakeCurrentUser& WaysIn::User() const {
    return *std::dynamic_pointer_cast<FakeCurrentUser>(gCurrentUser.Shared());
}

QString WaysIn::WriteTemplate(const QString& name) const {
    const QString path = programDirectory.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(kTemplate) <= 0)
        throw std::runtime_error("The template of the test cannot be written.");
    return path;
}
