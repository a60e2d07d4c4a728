#include "desk/Way.h"

#include <algorithm>
#include <stdexcept>

namespace {

using Steps = std::vector<Step>;

Steps operator+(Steps steps, const Steps& more) {
    steps.insert(steps.end(), more.begin(), more.end());
    return steps;
}

// The menus go round from their first item upwards to their last, and from the first menu leftwards to the
// last.
const Steps kCharges = {{"frmPostCharges", "{Alt+q}{Down}{Return}"}};
const Steps kFinder = kCharges + Steps{{"frmSearchPatient", "de guz{Return}"}};
const Steps kPatient = kFinder + Steps{{"frmPostCharges", "{Return}"}};
const Steps kGrid = kPatient + Steps{{"frmPostCharges", "D001{Return}", "txtDocID"}};
const Steps kChargesListed = {{"frmListCharges", "{Alt+q}{Right}{Right}{Down}{Return}"},
                              {"frmSearchPatient", "de guz{Return}"},
                              {"frmListCharges", "{Return}"}};
const Steps kAssessment = {{"frmAssessment", "{Control+a}"}};
/// Space takes the first patient type, and the arrows go on to the third.
const Steps kCashPatients = kAssessment + Steps{{"frmCashWalkIn", " {Down}{Down}{Tab}pan{Return}"}};
const Steps kCashPatient = kCashPatients + Steps{{"frmAssessment", "{Return}", "MSHFlexCash"}};

Steps ByClass(const char* screen) {
    return {{.screen = screen, .by = By::Class}};
}

std::vector<Way> WaysOfTheMenus() {
    return {
        {"Main", {{"frmMain"}}},
        {"Assessment", kAssessment},
        {"InPatientCharges", kCharges},
        // Out-patients have the same charge screen, and the other reports of a period the same one of days.
        {"AuditReport", {{"frmReportRange", "{Alt+p}{Return}"}}},
        {"Census", {{"frmCensus", "{Alt+p}{Up}{Up}{Return}"}}},
        {"Ledger", {{"frmLedger", "{Alt+p}{Up}{Return}"}}},
        {"AssessmentStatus", {{"frmAssessStatus", "{Alt+q}{Right}{Right}{Return}"}}},
        {"ListOfCharges", {{"frmListCharges", "{Alt+q}{Right}{Right}{Down}{Return}"}}},
        {"Setup", {{"frmSetup", "{Alt+q}{Left}{Return}"}}},
        {"About", {{"frmAbout", "{Alt+q}{Left}{Down}{Return}"}}},
    };
}

std::vector<Way> WaysThroughScreens() {
    return {
        {"PatientFinder", kFinder},
        {"ChargesListed", kChargesListed},
        {"ChargesOfAPatient", kGrid},
        {"Departments", kGrid + Steps{{"frmSearch", "hemo{Return}", "txtEntry"}}},
        {"Services", kGrid + Steps{{"PickDialog", "hc{Return}hemo{Return}", "txtEntry"}}},
        {"StockItems", kGrid + Steps{{"PickDialog", "hb{Return}epo{Return}", "txtEntry"}}},
        {"Doctors", kPatient + Steps{{"PickDialog", "{Return}", "Command2"}}},
        {"CashPatients", kCashPatients},
        {"AssessmentOfAPatient", kCashPatient},
        {"Registration", kCashPatients + Steps{{"frmCashWalkInPatient", "{Return}", "cmdRegister"}}},
        {"Requests", {{.screen = "frmNursingRequest", .at = "Image1", .by = By::DoubleClick}}},
        {"ChargeSlip",
         kGrid + Steps{{"frmPostCharges", "hc{Return}HC001{Return}2{Return}{Return}", "txtEntry"},
                       {"frmReportviewer", "{Return}", "cmdPrint"}}},
        {"AssessmentSlip",
         kCashPatient + Steps{{"frmAssessment", "hc{Return}HC001{Return}{Return}1{Return}{Return}"},
                              {"frmReportviewer", "{Return}", "cmdPrint"}}},
    };
}

/// The screens to which no menu leads, filled as a clerk would.
std::vector<Way> WaysByClass() {
    return {
        {"Consultation", ByClass("frmReport")},
        {"Rates", ByClass("frmRates") + Steps{{"frmRates", "HC{Return}"}}},
        {"Reprint", ByClass("frmReprint") + Steps{{"frmReprint", "{Return}700124{Return}"}}},
        {"BilledPatients", ByClass("frmARPatients") + Steps{{"frmARPatients", "de{Return}"}}},
        {"Examinations", ByClass("frmSearcher")},
        {"OlderCashPatients", ByClass("frmCashPatients") + Steps{{"frmCashPatients", "w{Return}"}}},
        {"OlderWalkIn", ByClass("frmWalkIn")},
        {"RegisteredOutPatients", ByClass("frmRegisteredOPD") + Steps{{"frmRegisteredOPD", "de{Return}"}}},
        {"WalkInUpdate", ByClass("frmWalkInUpdate") + Steps{{"frmWalkInUpdate", "{Return}{Down}{Return}"}}},
    };
}

} // namespace

const std::vector<Way>& EveryWay() {
    static const std::vector<Way> kWays = [] {
        std::vector<Way> ways = WaysOfTheMenus();
        for (const std::vector<Way>& more : {WaysThroughScreens(), WaysByClass()})
            ways.insert(ways.end(), more.begin(), more.end());
        return ways;
    }();
    return kWays;
}

Way Further(const char* name, const char* first, const std::vector<Step>& more) {
    for (const Way& way : EveryWay()) {
        if (std::string(way.name) == first)
            return {name, way.steps + more};
    }
    throw std::runtime_error(std::string("no way is called ") + first);
}

void PrintTo(const Way& way, std::ostream* out) {
    *out << way.name;
}
