#include "workstation/Scripts.h"

#include "toolkit/FlexGrid.h"
#include "workstation/AttackScripts.h"
#include "workstation/CashDeskScripts.h"
#include "workstation/ChargeListScripts.h"
#include "workstation/ClerkKeys.h"
#include "workstation/ReportScripts.h"
#include "workstation/ShiftScripts.h"
#include "workstation/WardScripts.h"

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

void InPatientCharge(Driver& clerk) {
    SignOn(clerk);
    clerk.OnScreen([] { Tell(VisibleControl(u"frmMain"_s).windowTitle()); });
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"de guz"_s);
    KeyThreeLines(clerk);
    PressSave(clerk);
    CloseSlip(clerk);
}

void OutPatientCharge(Driver& clerk) {
    SignOn(clerk);
    FindPatient(clerk, u"mnuOutTransaction"_s, u"salazar"_s);
    KeyThreeLines(clerk);
    PressSave(clerk);
    CloseSlip(clerk);
}

void SignOnAndFail(Driver& clerk) {
    KeyLogOn(clerk);
    ReadFailure(clerk);
}

/// Leaves by the menu. The program's event loop ends, and no step behind it is carried out.
void ExitByMenu(Driver& clerk) {
    SignOn(clerk);
    clerk.ChooseMenu(u"mnuExit"_s);
    clerk.WaitFor([] { return false; }, u"the program did not end"_s);
}

/// Tells what the sign-on window says when its data source cannot be used.
void SignOnProblem(Driver& clerk) {
    KeyLogOn(clerk);
    clerk.ExpectScreen(u"lblProblem"_s);
    Tell(clerk.Text(u"lblProblem"_s));
}

void ApostropheInFinder(Driver& clerk) {
    SignOn(clerk);
    clerk.ChooseMenu(u"mnuInTransactionEntry"_s);
    clerk.ExpectFocus(u"txtLastName"_s);
    clerk.Type(u"O'BRIEN"_s);
    clerk.Press(Qt::Key_Return);
    ReadFailure(clerk);
}

/// The save fails in its second line, whose particular holds an apostrophe.
void ApostropheInSave(Driver& clerk) {
    SignOn(clerk);
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"de guz"_s);
    KeyThreeLines(clerk);
    clerk.OnScreen([] {
        auto& grid = dynamic_cast<FlexGrid&>(VisibleControl(u"grdTable"_s));
        grid.Cells().SetTextMatrix(2, 3, u"PATIENT'S OWN EPOETIN"_s);
    });
    PressSave(clerk);
    ReadFailure(clerk);
}

void ReportFailure(Driver& clerk) {
    SignOn(clerk);
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"de guz"_s);
    KeyThreeLines(clerk);
    PressSave(clerk);
    ReadFailure(clerk);
}

/// A slip of many lines, for a test that stops the process in the middle of it.
void LongSave(Driver& clerk) {
    SignOn(clerk);
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"de guz"_s);
    clerk.TabTo(u"txtEntry"_s);
    clerk.OnScreen([] {
        FlexCells& cells = dynamic_cast<FlexGrid&>(VisibleControl(u"grdTable"_s)).Cells();
        cells.SetRows(4001);
        for (int row = 1; row <= 4000; ++row) {
            const QStringList texts = {u"HC"_s, u"HC001"_s, u"LINE %1"_s.arg(row),
                                       u"1"_s,  u"10.00"_s, u"10.00"_s};
            for (int col = 1; col <= 6; ++col)
                cells.SetTextMatrix(row, col, texts[col - 1]);
        }
    });
    PressSave(clerk);
    CloseSlip(clerk);
}

/// No file may grow from the sign-on on, as on a full disk.
void FullDisk(Driver& clerk) {
    SignOn(clerk);
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"de guz"_s);
    KeyThreeLines(clerk);
    clerk.OnScreen([] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {0, 0};
        setrlimit(RLIMIT_FSIZE, &limit);
    });
    PressSave(clerk);
    // What goes to a pipe is not limited.
    ReadFailure(clerk);
}

} // namespace

const std::map<std::string, std::function<void(Driver&)>>& Scripts() {
    static const std::map<std::string, std::function<void(Driver&)>> scripts = {
        {"new-walk-in-assessment", NewWalkInAssessment},
        {"assessment-status", AssessmentStatusAndRevoke},
        {"assessment-apostrophe", AssessmentOfAnApostrophe},
        {"in-patient-charge", InPatientCharge},
        {"out-patient-charge", OutPatientCharge},
        {"charge-cancelled", ChargeListedAndCancelled},
        {"sign-on-and-fail", SignOnAndFail},
        {"sign-on-problem", SignOnProblem},
        {"exit-by-menu", ExitByMenu},
        {"apostrophe-in-finder", ApostropheInFinder},
        {"apostrophe-in-save", ApostropheInSave},
        {"report-failure", ReportFailure},
        {"long-save", LongSave},
        {"full-disk", FullDisk},
        {"shift-in-steps", ShiftInSteps},
        {"tail-in-a-fees-amount", TailInAFeesAmount},
        {"tail-in-a-fees-code", TailInAFeesCode},
        {"tail-in-a-patients-name", TailInAPatientsName},
        {"tail-in-an-assessments-amount", TailInAnAssessmentsAmount},
        {"statement-in-the-finders-name", StatementInTheFindersName},
        {"statement-in-the-charge-lists-name", StatementInTheChargeListsName},
        {"statement-in-the-status-search", StatementInTheStatusSearch},
        {"statement-in-a-walk-ins-name", StatementInAWalkInsName},
        {"tail-in-a-walk-ins-name", TailInAWalkInsName},
        {"tail-in-the-doctors-code", TailInTheDoctorsCode},
        {"fee-cancelled-and-given-back", FeeCancelledAndGivenBack},
        {"wrong-password", WrongPassword},
        {"third-try", ThirdTry},
        {"period-reports", PeriodReports},
        {"ledger", LedgerOfAnInPatient},
        {"census", Census},
        {"leave-beside-a-report", LeaveBesideAReport},
        {"ward-request", WardRequest},
        {"idle-until-failure", IdleUntilFailure},
        {"modal-until-failure", ModalUntilFailure},
    };
    return scripts;
}
