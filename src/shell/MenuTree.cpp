#include "shell/MenuTree.h"

#include "shell/frmMain.h"

#include <array>

std::span<const MenuEntry> MenuEntry::Tree() {
    static constexpr std::array kTree = {
        MenuEntry{.level = 1, .name = "mnuRequest", .caption = "Re&quest"},
        MenuEntry{.level = 2,
                  .name = "mnuAssessment",
                  .caption = "&Assessment",
                  .shortcut = "Ctrl+A",
                  .click = &frmMain::mnuAssessment_Click},
        MenuEntry{.level = 2, .name = "mnuSep3", .caption = "-"},
        MenuEntry{.level = 2,
                  .name = "mnuInTransactionEntry",
                  .caption = "In-Patient Trans Entry",
                  .click = &frmMain::mnuInTransactionEntry_Click},
        MenuEntry{.level = 2,
                  .name = "mnuOutTransaction",
                  .caption = "Out-Patient Trans Entry",
                  .click = &frmMain::mnuOutTransaction_Click},
        // Kept: hidden and without a handler.
        MenuEntry{
            .level = 2, .name = "mnuCash", .caption = "Cash Patient", .visible = false, .enabled = false},
        MenuEntry{.level = 2, .name = "mnusep", .caption = "-"},
        MenuEntry{.level = 2,
                  .name = "mnuExit",
                  .caption = "E&xit",
                  .shortcut = "Ctrl+X",
                  .click = &frmMain::mnuExit_Click},
        // Kept: this unit enters no results; the submenu is hidden and its entries have no handlers.
        MenuEntry{.level = 1, .name = "mnuResult", .caption = "&Results", .visible = false, .enabled = false},
        MenuEntry{.level = 2, .name = "mnuResultEntry", .caption = "Result &Entry", .shortcut = "Ctrl+E"},
        MenuEntry{
            .level = 2, .name = "mnuRandomResult", .caption = "Random - &Result Entry", .enabled = false},
        MenuEntry{.level = 2, .name = "mnuSep2", .caption = "-"},
        MenuEntry{.level = 2, .name = "mnuResultInquiry", .caption = "Result Inquiry"},
        MenuEntry{.level = 1, .name = "mnuReport", .caption = "Re&ports"},
        MenuEntry{
            .level = 2, .name = "mnuReportAudit", .caption = "Audit Report", .report = ReportType::Audit},
        MenuEntry{.level = 2, .name = "mnuIncome", .caption = "Income Report"},
        MenuEntry{.level = 3,
                  .name = "mnuOPDIncome",
                  .caption = "OPD Income Report",
                  .report = ReportType::OutPatientIncome},
        MenuEntry{.level = 3,
                  .name = "mnuIPDIncomeReport",
                  .caption = "IPD Income Report",
                  .report = ReportType::InPatientIncome},
        MenuEntry{.level = 3,
                  .name = "mnuCashIncome",
                  .caption = "Cash Income Report",
                  .report = ReportType::CashIncome},
        MenuEntry{.level = 2,
                  .name = "mnuReportMonthly",
                  .caption = "Monthly Summary Report",
                  .report = ReportType::Statistics},
        MenuEntry{.level = 2, .name = "mnuCompany", .caption = "Monthly Company Report"},
        MenuEntry{
            .level = 3, .name = "mnuIn", .caption = "In Patient", .report = ReportType::InPatientCompany},
        MenuEntry{
            .level = 3, .name = "mnuOut", .caption = "Out Patient", .report = ReportType::OutPatientCompany},
        MenuEntry{.level = 2,
                  .name = "mnuCensus",
                  .caption = "Inpatient Census",
                  .click = &frmMain::mnuCensus_Click},
        MenuEntry{.level = 2, .name = "mnuseparators", .caption = "-"},
        MenuEntry{
            .level = 2, .name = "mnuLedger", .caption = "Patient Ledger", .click = &frmMain::mnuLedger_Click},
        MenuEntry{.level = 1,
                  .name = "mnuMLedger",
                  .caption = "Patient's Ledger",
                  .enabled = false,
                  .click = &frmMain::mnuMLedger_Click},
        MenuEntry{.level = 1, .name = "mnuMaintenance", .caption = "Maintenance"},
        MenuEntry{.level = 2,
                  .name = "mnuReportStatus",
                  .caption = "Assessment Status",
                  .click = &frmMain::mnuReportStatus_Click},
        MenuEntry{.level = 2,
                  .name = "mnuListCharges",
                  .caption = "List of Charges",
                  .click = &frmMain::mnuListCharges_Click},
        // Kept: nothing enables it, so no duplicate of a slip can be printed in this release.
        MenuEntry{.level = 2,
                  .name = "mnuDuplicate",
                  .caption = "Charge Slip Duplicate",
                  .enabled = false,
                  .click = &frmMain::mnuDuplicate_Click},
        MenuEntry{.level = 1, .name = "mModule", .caption = "Module"},
        MenuEntry{.level = 2, .name = "mSetup", .caption = "Setup", .click = &frmMain::mSetup_Click},
        MenuEntry{.level = 2, .name = "mnuAbout", .caption = "&About", .click = &frmMain::mnuAbout_Click},
    };
    return kTree;
}
