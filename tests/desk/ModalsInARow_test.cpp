#include "desk/Desk.h"

using namespace Qt::StringLiterals;

// One modal window right behind another, and the dialogues of the desktop: where the clerk finds the focus
// when the last of them has gone.

namespace {

const std::vector<Way>& Ways() {
    static const std::vector<Way> kWays = {
        // Quantity, price and amount end the line; the same item on the next one is refused.
        Further("StockPickerThenMessage", "StockItems",
                {{"frmPostCharges", "{Return}"},
                 {"PickDialog", "1{Return}{Return}{Return}hb{Return}epo{Return}"},
                 {"MsgBox", "{Return}"},
                 {"frmPostCharges", "{Return}"}}),
        Further("PickerThenMessage", "ChargesOfAPatient",
                {{"PickDialog", "md{Return}D{Return}", "txtEntry"},
                 {"MsgBox", "{Escape}"},
                 {"frmPostCharges", "{Return}"}}),
        Further(
            "PickerThenPicker", "Departments",
            {{"frmPostCharges", "{Return}"}, {"PickDialog", "hemo{Return}"}, {"frmPostCharges", "{Escape}"}}),
        Further("DoctorsTwice", "Doctors",
                {{"frmPostCharges", "{Escape}"}, {"PickDialog", "{Return}"}, {"frmPostCharges", "{Escape}"}}),
        Further("QuestionOfTheRegistration", "Registration",
                {{"MsgBox", "{Return}", "cmdOption(1)"}, {"frmAssessment", "{Return}"}}),
        Further("SlipAfterAssessment", "AssessmentSlip", {{"frmMain", "{Escape}"}}),
        Further("ScreenAfterAbout", "About",
                {{"frmMain", "{Escape}"}, {"frmPostCharges", "{Alt+q}{Down}{Return}"}}),
        Further("SlipAfterCharge", "ChargeSlip", {{"frmMain", "{Escape}"}}),
        Further("WordsWithoutAPrinter", "ChargeSlip",
                {{"MsgBox", "{Control+p}"}, {"frmReportviewer", "{Escape}"}}),
        Further("SaveDialogue", "ChargeSlip",
                {{"QFileDialog", "{Control+s}"}, {"frmReportviewer", "{Escape}"}}),
        Further("QuestionAnsweredNo", "AssessmentStatus",
                {{"MsgBox", "{Escape}"}, {"frmAssessStatus", "{Escape}"}}),
    };
    return kWays;
}

class ModalsInARow : public WayDesk {};

TEST_P(ModalsInARow, LeaveTheFocusOnAControl) {
    GoThere();
    ExpectAFocus();
    ExpectFocusIsSeen();
}

INSTANTIATE_TEST_SUITE_P(Under, ModalsInARow,
                         testing::Combine(testing::ValuesIn(kWindowManagers), testing::ValuesIn(Ways())),
                         WayName());

} // namespace
