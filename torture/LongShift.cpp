#include "torture/LongShift.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "torture/Footprint.h"
#include "torture/LiveObjects.h"
#include "torture/Marks.h"
#include "treatment/clsSaveTreatmentRecord.h"
#include "workstation/ClerkKeys.h"

#include <QCoreApplication>
#include <QDate>
#include <QTimer>
#include <QWidget>

#include <array>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Lines that a fresh charge grid has. On the last of them Enter has to be pressed once more to go on.
constexpr int kFreshLines = 8;
/// How many different ones are charged; so many have a price.
constexpr int kServices = 40;
constexpr int kMedicines = 80;
constexpr int kSupplies = 60;
constexpr int kFirstSupply = 20;
constexpr int kDoctors = 20;

constexpr int kReportEvery = 4;
constexpr int kPdfEvery = 5;
/// The days of a report, and how long ago it begins.
constexpr int kDaysOfReport = 6;
constexpr int kDaysAgo = 30;

QString Numbered(QChar letter, int digits, int number) {
    return letter + u"%1"_s.arg(number, digits, 10, QChar(u'0'));
}

/// What is keyed for one line: centre, code, and what the line's open cells take. No item stands twice on a
/// patient's slip.
QStringList LineOf(int patient, int line) {
    const int number = patient + line;
    const QString pieces = QString::number(1 + number % 4);
    switch (line % 5) {
    case 1:
        return {u"hb"_s, Numbered(u'M', 4, 1 + number % kMedicines), pieces, QString(), QString()};
    case 3:
        return {u"hd"_s, Numbered(u'S', 4, kFirstSupply + number % kSupplies), pieces, QString(), QString()};
    case 4:
        return {u"md"_s, Numbered(u'D', 3, 1 + number % kDoctors), QString::number(500 + number % 2500)};
    default:
        return {u"hc"_s, u"HC%1"_s.arg(1 + number % kServices, 3, 10, QChar(u'0')), pieces, QString()};
    }
}

/// Every timer of the main window that runs elapses so often, faster than by the clock, painting included.
void TickMonitor(int times) {
    const auto timers = VisibleControl(u"frmMain"_s).findChildren<QTimer*>();
    for (int tick = 0; tick < times; ++tick) {
        for (QTimer* timer : timers) {
            if (timer->isActive())
                QMetaObject::invokeMethod(timer, "timeout");
        }
        QCoreApplication::processEvents();
    }
}

/// A patient in the unit.
struct Present {
    QString number;
    QString menuItem;
};

class LongDay {
  public:
    LongDay(Driver& clerk, const LongShiftPlan& plan, Journal& journal)
        : mClerk(clerk)
        , mPlan(plan)
        , mJournal(journal) {}

    void Begin();
    void Work();

  private:
    void TakeSample();
    void Serve(int patient);
    void Charge(int patient);
    void LetTheMonitorTick(int patient);
    void CallWard(const QString& what);
    void LookBeside(int patient);
    void OpenReport(int report);
    void OpenPeriodReport(const QString& menuItem, bool toPdf);
    void OpenLedger();
    void OpenCensus();
    void PageThrough(const QString& window, bool toPdf);
    void OpenList(int patient);
    void LeaveTheFinder();
    void KeepTreatment(int patient);
    void OpenQueue();
    void OpenAssessments();
    void OpenAssessment();
    const Present& Patient(int number) const { return mPresent[size_t(number) % mPresent.size()]; }

    Driver& mClerk;
    const LongShiftPlan& mPlan;
    Journal& mJournal;
    std::vector<Present> mPresent;
    int mReports = 0;
};

/// Who is there and whose account is still open: three in-patients of four.
void LongDay::Begin() {
    SignOn(mClerk);
    mClerk.OnScreen([this] {
        RowSet inPatients = gConnection->Execute(
            u"SELECT IdNum FROM PATIENT_DATA..tbpatient WHERE DcrDate IS NULL AND BillingDate IS NULL"_s);
        RowSet visits = gConnection->Execute(
            u"SELECT IdNum FROM PATIENT_DATA..tboutpatient WHERE DcrDate IS NULL AND BillingDate IS NULL"_s);
        for (; !inPatients.Eof() && !visits.Eof(); inPatients.MoveNext()) {
            mPresent.push_back({inPatients.Fields(u"IdNum").ToText(), u"mnuInTransactionEntry"_s});
            if (mPresent.size() % 4 != 3)
                continue;
            mPresent.push_back({visits.Fields(u"IdNum").ToText(), u"mnuOutTransaction"_s});
            visits.MoveNext();
        }
    });
    CallWard(WardCall::kWithdraw);
}

void LongDay::Work() {
    for (int patient = 0; patient < mPlan.patients; ++patient) {
        Serve(patient);
        const auto due = [this](int served) { return served * mPlan.samples / mPlan.patients; };
        if (due(patient + 1) > due(patient))
            TakeSample();
    }
}

void LongDay::TakeSample() {
    mClerk.ExpectNoScreen(u"pctPending"_s);
    mClerk.WaitFor([] { return !LiveObjects::IsAnythingPutOff(); }, u"the end of what was put off"_s);
    mClerk.OnScreen([this] { mJournal.Mark(Mark::kSample + Footprint::TextOf(Footprint::Take())); });
}

void LongDay::Serve(int patient) {
    Charge(patient);
    if (patient % kReportEvery == kReportEvery - 1)
        OpenReport(mReports++);
    LetTheMonitorTick(patient);
    LookBeside(patient);
}

void LongDay::Charge(int patient) {
    const Present& who = Patient(patient);
    FindPatient(mClerk, who.menuItem, who.number);
    mClerk.TabTo(u"txtEntry"_s);
    for (int line = 0; line < mPlan.lines; ++line) {
        Key(mClerk, LineOf(patient, line));
        if (line + 1 == kFreshLines)
            mClerk.Press(Qt::Key_Return);
    }
    PressSave(mClerk);
    mClerk.ExpectScreen(u"frmReportviewer"_s);
    mClerk.Press(Qt::Key_Escape);
    mClerk.ExpectNoScreen(u"frmPostCharges"_s);
}

void LongDay::CallWard(const QString& what) {
    std::printf("%s\n", qPrintable(what));
    std::fflush(stdout);
    while (std::getchar() != '\n')
        ;
}

void LongDay::LetTheMonitorTick(int patient) {
    constexpr int kHalf = LongShiftPlan::kTicksPerPatient / 2;
    constexpr int kQueueEvery = 6;
    CallWard(WardCall::kRequest);
    mClerk.OnScreen([] { TickMonitor(kHalf); });
    if (patient % kQueueEvery == 0)
        OpenQueue();
    CallWard(WardCall::kWithdraw);
    mClerk.OnScreen([] { TickMonitor(kHalf); });
}

void LongDay::LookBeside(int patient) {
    switch (patient % 6) {
    case 0:
        return OpenList(patient);
    case 1:
        return KeepTreatment(patient);
    case 2:
        return LeaveTheFinder();
    case 3:
        return OpenAssessments();
    case 4:
        return OpenAssessment();
    default:
        return;
    }
}

void LongDay::OpenReport(int report) {
    static const std::array kPeriodReports = {
        u"mnuReportAudit"_s, u"mnuOPDIncome"_s,     u"mnuIPDIncomeReport"_s,
        u"mnuCashIncome"_s,  u"mnuReportMonthly"_s, u"mnuIn"_s,
        u"mnuOut"_s};
    const size_t which = size_t(report) % (kPeriodReports.size() + 2);
    if (which < kPeriodReports.size())
        OpenPeriodReport(kPeriodReports[which], report % kPdfEvery == 0);
    else if (which == kPeriodReports.size())
        OpenLedger();
    else
        OpenCensus();
    mJournal.Mark(Mark::kReport);
}

/// The days lie before the shift, so that what the reports hold stays the same all along.
void LongDay::OpenPeriodReport(const QString& menuItem, bool toPdf) {
    const QDate first = QDate::currentDate().addDays(-kDaysAgo);
    mClerk.ChooseMenu(menuItem);
    mClerk.ExpectFocus(u"dtpStartDate"_s);
    mClerk.Type(first.toString(u"M/d/yyyy"));
    mClerk.TabTo(u"dtpEndDate"_s);
    mClerk.Type(first.addDays(kDaysOfReport).toString(u"M/d/yyyy"));
    mClerk.TabTo(u"cmdView"_s);
    mClerk.Press(Qt::Key_Return);
    PageThrough(u"frmReportviewer"_s, toPdf);
    mClerk.ExpectNoScreen(u"frmReportRange"_s);
}

void LongDay::OpenLedger() {
    mClerk.ChooseMenu(u"mnuLedger"_s);
    mClerk.ExpectFocus(u"cmbPatientCode"_s);
    mClerk.Type(u"I"_s);
    mClerk.ExpectFocus(u"txtIDNum"_s);
    mClerk.Type(Patient(0).number);
    mClerk.Press(Qt::Key_Return);
    mClerk.ExpectFocus(u"ListView1"_s);
    mClerk.Press(Qt::Key_Return);
    mClerk.ExpectNoScreen(u"frmSearchPatient"_s);
    mClerk.TabTo(u"cmdView"_s);
    mClerk.Press(Qt::Key_Return);
    PageThrough(u"frmReportviewer"_s, false);
    mClerk.ExpectNoScreen(u"frmLedger"_s);
}

void LongDay::OpenCensus() {
    mClerk.ChooseMenu(u"mnuCensus"_s);
    mClerk.TabTo(u"cmdView"_s);
    mClerk.Press(Qt::Key_Return);
    mClerk.ExpectNoScreen(u"frmCensus"_s);
    PageThrough(u"frmReport"_s, false);
}

void LongDay::PageThrough(const QString& window, bool toPdf) {
    mClerk.ExpectScreen(window);
    mClerk.Press(Qt::Key_End, Qt::ControlModifier);
    mClerk.Press(Qt::Key_PageUp, Qt::ControlModifier);
    mClerk.Press(Qt::Key_Home, Qt::ControlModifier);
    mClerk.Press(Qt::Key_PageDown, Qt::ControlModifier);
    if (toPdf)
        mClerk.Press(Qt::Key_S, Qt::ControlModifier);
    mClerk.Press(Qt::Key_Escape);
    mClerk.ExpectNoScreen(window);
}

void LongDay::OpenList(int patient) {
    FindPatient(mClerk, u"mnuListCharges"_s, Patient(patient).number);
    mClerk.TabTo(u"cmdList"_s);
    mClerk.Press(Qt::Key_Return);
    mClerk.Press(Qt::Key_Escape);
    mClerk.ExpectNoScreen(u"frmListCharges"_s);
}

/// The finder lists everybody, and nobody is taken.
void LongDay::LeaveTheFinder() {
    mClerk.ChooseMenu(u"mnuInTransactionEntry"_s);
    mClerk.ExpectFocus(u"txtLastName"_s);
    mClerk.Press(Qt::Key_Return);
    mClerk.ExpectScreen(u"frmSearchPatient"_s);
    mClerk.Press(Qt::Key_Escape);
    mClerk.ExpectNoScreen(u"frmSearchPatient"_s);
    mClerk.Press(Qt::Key_Escape);
    mClerk.ExpectNoScreen(u"frmPostCharges"_s);
}

/// No screen of this release keeps one.
void LongDay::KeepTreatment(int patient) {
    mClerk.OnScreen([&] {
        gTreatmentRecord->SetIdNum(Patient(patient).number);
        gTreatmentRecord->SetRequestNum(u"L1"_s);
        gTreatmentRecord->SetUserId(gCurrentUser->EmployeeCode());
        gTreatmentRecord->SetBath(u"BATH %1"_s.arg(patient));
        gTreatmentRecord->SaveDialysisTreatmentRecord();
        clsSaveTreatmentRecord read;
        read.UpdateDialysisTreatmentRecord(Patient(patient).number, u"L1"_s);
        if (read.Bath() != gTreatmentRecord->Bath())
            throw DriverError(u"a treatment record reads otherwise than it was written"_s);
    });
}

void LongDay::OpenQueue() {
    mClerk.Press(Qt::Key_F6);
    mClerk.ExpectScreen(u"frmNursingRequest"_s);
    mClerk.Press(Qt::Key_Escape);
    mClerk.ExpectNoScreen(u"frmNursingRequest"_s);
}

void LongDay::OpenAssessments() {
    mClerk.ChooseMenu(u"mnuReportStatus"_s);
    mClerk.ExpectScreen(u"frmAssessStatus"_s);
    mClerk.Press(Qt::Key_Escape);
    AnswerBox(mClerk);
    mClerk.ExpectNoScreen(u"frmAssessStatus"_s);
}

void LongDay::OpenAssessment() {
    mClerk.ChooseMenu(u"mnuAssessment"_s);
    mClerk.ExpectScreen(u"frmAssessment"_s);
    mClerk.Press(Qt::Key_Escape);
    AnswerBox(mClerk);
    mClerk.ExpectNoScreen(u"frmAssessment"_s);
}

} // namespace

void WorkLongShift(Driver& clerk, const LongShiftPlan& plan, Journal& journal) {
    LongDay day(clerk, plan, journal);
    day.Begin();
    day.Work();
}
