#include "desk/Desk.h"

#include <tuple>
#include <vector>

using namespace Qt::StringLiterals;

// Each screen that the menus reach, opened by keys and looked at.

namespace {

struct Step {
    const char* keys;
    const char* screen;
};

struct Way {
    const char* name;
    std::vector<Step> steps;
    /// Why the place of the focus cannot be told today; none when it can.
    const char* focusUnseen = nullptr;
};

/// The menus go round from their first item upwards to their last, and from the first menu leftwards to the
/// last.
const std::vector<Way> kWays = {
    {"Assessment", {{"{Alt+q}a", "frmAssessment"}}, "optType(0) draws no ring for a focus that code has set"},
    {"InPatientCharges", {{"{Alt+q}{Down}{Return}", "frmPostCharges"}}},
    {"OutPatientCharges", {{"{Alt+q}{Down}{Down}{Return}", "frmPostCharges"}}},
    {"PatientFinder",
     {{"{Alt+q}{Down}{Return}", "frmPostCharges"}, {"de{Return}", "frmSearchPatient"}},
     "ListView1 marks its row alike with the focus and without"},
    {"AuditReport", {{"{Alt+p}{Return}", "frmReportRange"}}},
    {"OutPatientIncome", {{"{Alt+p}{Down}{Right}{Return}", "frmReportRange"}}},
    {"InPatientIncome", {{"{Alt+p}{Down}{Right}{Down}{Return}", "frmReportRange"}}},
    {"CashIncome", {{"{Alt+p}{Down}{Right}{Down}{Down}{Return}", "frmReportRange"}}},
    {"MonthlySummary", {{"{Alt+p}{Down}{Down}{Return}", "frmReportRange"}}},
    {"InPatientCompany", {{"{Alt+p}{Down}{Down}{Down}{Right}{Return}", "frmReportRange"}}},
    {"OutPatientCompany", {{"{Alt+p}{Down}{Down}{Down}{Right}{Down}{Return}", "frmReportRange"}}},
    {"Census",
     {{"{Alt+p}{Up}{Up}{Return}", "frmCensus"}},
     "optCensus(0) draws no ring for a focus that code has set"},
    {"Ledger",
     {{"{Alt+p}{Up}{Return}", "frmLedger"}},
     "cmbPatientCode draws no ring for a focus that code has set"},
    {"AssessmentStatus", {{"{Alt+q}{Right}{Right}{Return}", "frmAssessStatus"}}},
    {"ListOfCharges", {{"{Alt+q}{Right}{Right}{Down}{Return}", "frmListCharges"}}},
    {"Setup", {{"{Alt+q}{Left}{Return}", "frmSetup"}}},
    {"About", {{"{Alt+q}{Left}{Down}{Return}", "frmAbout"}}},
};

std::vector<Way> WaysWhoseFocus(bool isSeen) {
    std::vector<Way> ways = kWays;
    std::erase_if(ways, [isSeen](const Way& way) { return isSeen != (way.focusUnseen == nullptr); });
    return ways;
}

void PrintTo(const Way& way, std::ostream* out) {
    *out << way.name;
}

using Case = std::tuple<WindowManager, Way>;

std::string NameOfCase(const testing::TestParamInfo<Case>& named) {
    return NameOf(std::get<0>(named.param)) + '_' + std::get<1>(named.param).name;
}

class EveryScreen : public Desk, public testing::WithParamInterface<Case> {
  protected:
    /// Opens the screen and answers its name.
    QString Open(const Screen& screen = Screen()) {
        StartSignedOn(std::get<0>(GetParam()), screen);
        QString last;
        for (const Step& step : std::get<1>(GetParam()).steps) {
            Key(QString::fromLatin1(step.keys));
            last = QString::fromLatin1(step.screen);
            ExpectScreen(last);
        }
        return last;
    }
};

class EveryScreenAt125Percent : public EveryScreen {};
class FocusOnOpening : public EveryScreen {};

TEST_P(EveryScreen, CutsNothingAndLiesInside) {
    const QString screen = Open();
    ExpectNothingCut(screen);
    ExpectInside(screen);
}

TEST_P(EveryScreenAt125Percent, CutsNothingAndLiesInside) {
    const QString screen = Open({.size = QSize(1600, 1280), .dotsPerInch = 120});
    ExpectNothingCut(screen);
    ExpectInside(screen);
}

TEST_P(FocusOnOpening, IsSeen) {
    Open();
    ExpectFocusIsSeen();
}

INSTANTIATE_TEST_SUITE_P(Under, EveryScreen,
                         testing::Combine(testing::ValuesIn(kWindowManagers), testing::ValuesIn(kWays)),
                         NameOfCase);
INSTANTIATE_TEST_SUITE_P(Under, EveryScreenAt125Percent,
                         testing::Combine(testing::Values(WindowManager::Openbox), testing::ValuesIn(kWays)),
                         NameOfCase);
INSTANTIATE_TEST_SUITE_P(Under, FocusOnOpening,
                         testing::Combine(testing::ValuesIn(kWindowManagers),
                                          testing::ValuesIn(WaysWhoseFocus(true))),
                         NameOfCase);
INSTANTIATE_TEST_SUITE_P(DISABLED_Under, FocusOnOpening,
                         testing::Combine(testing::ValuesIn(kWindowManagers),
                                          testing::ValuesIn(WaysWhoseFocus(false))),
                         NameOfCase);

} // namespace
