#include "desk/Desk.h"

#include <set>
#include <string_view>

using namespace Qt::StringLiterals;

// Screens that are opened and left by key.

namespace {

/// One screen of each kind: the queue, the finder, the pickers, a registration, and those that stand inside
/// the main window.
std::vector<Way> WaysThatEscapeLeaves() {
    static const std::set<std::string> kNames = {
        "Requests", "PatientFinder", "Departments", "Services",         "StockItems",
        "Doctors",  "CashPatients",  "AuditReport", "InPatientCharges", "Setup"};
    std::vector<Way> ways = EveryWay();
    std::erase_if(ways, [](const Way& way) { return !kNames.contains(way.name); });
    return ways;
}

/// The screens that ask before they are left.
std::vector<Way> WaysThatAsk() {
    return {
        Further("Assessment", "Assessment", {{"MsgBox", "{Escape}"}, {"frmMain", "{Return}"}}),
        Further("AssessmentStatus", "AssessmentStatus", {{"MsgBox", "{Escape}"}, {"frmMain", "{Return}"}})};
}

class EscapeKey : public WayDesk {};
class EscapeKeyWithQuestion : public WayDesk {};
class BellByKey : public AnyDesk {};
/// Keys that close the active screen, and the window managers that let them through: xfwm4 goes to its fourth
/// workspace at Ctrl+F4.
struct Closing {
    WindowManager manager;
    const char* keys;
};

constexpr Closing kClosing[] = {{WindowManager::None, "{Control+F4}"},
                                {WindowManager::Openbox, "{Control+F4}"},
                                {WindowManager::None, "{Control+w}"},
                                {WindowManager::Openbox, "{Control+w}"},
                                {WindowManager::Xfwm4, "{Control+w}"}};

void PrintTo(const Closing& closing, std::ostream* out) {
    *out << closing.keys;
}

class ClosingKeys : public Desk, public testing::WithParamInterface<Closing> {};

TEST_P(EscapeKey, LeavesTheScreen) {
    const QString screen = GoThere();
    Key(u"{Escape}"_s);
    ExpectNoScreen(screen);
    ExpectAFocus();
}

TEST_P(EscapeKeyWithQuestion, LeavesTheScreenWhenItIsAnswered) {
    GoThere();
    ExpectAFocus();
}

TEST_P(BellByKey, OpensTheQueueFromTheMainWindow) {
    StartSignedOn(GetParam());
    ExpectControl(u"Image1"_s);
    Key(u"{F6}"_s);
    ExpectScreen(u"frmNursingRequest"_s);
    Key(u"{Escape}"_s);
    ExpectNoScreen(u"frmNursingRequest"_s);
}

TEST_P(BellByKey, IsATabStop) {
    StartSignedOn(GetParam());
    ExpectControl(u"Image1"_s);
    TabTo(u"Image1"_s);
    Key(u"{Return}"_s);
    ExpectScreen(u"frmNursingRequest"_s);
}

TEST_P(ClosingKeys, CloseTheActiveScreenAlone) {
    const auto& [manager, keys] = GetParam();
    StartSignedOn(manager);
    Go({{"frmCensus", "{Alt+p}{Up}{Up}{Return}"}, {"frmReportRange", "{Alt+p}{Return}"}});
    Key(QString::fromLatin1(keys));
    ExpectNoScreen(u"frmReportRange"_s);
    ExpectScreen(u"frmCensus"_s);
    ExpectAFocus();
    Key(QString::fromLatin1(keys));
    ExpectNoScreen(u"frmCensus"_s);
    ExpectScreen(u"frmMain"_s);
}

std::string NameOfClosing(const testing::TestParamInfo<Closing>& named) {
    const bool isW = std::string_view(named.param.keys).find('w') != std::string_view::npos;
    return NameOf(named.param.manager) + (isW ? "_CtrlW" : "_CtrlF4");
}

INSTANTIATE_TEST_SUITE_P(Under, EscapeKey,
                         testing::Combine(testing::ValuesIn(kWindowManagers),
                                          testing::ValuesIn(WaysThatEscapeLeaves())),
                         WayName());
INSTANTIATE_TEST_SUITE_P(Under, EscapeKeyWithQuestion,
                         testing::Combine(testing::ValuesIn(kWindowManagers),
                                          testing::ValuesIn(WaysThatAsk())),
                         WayName());
INSTANTIATE_TEST_SUITE_P(Under, BellByKey, testing::ValuesIn(kWindowManagers), WindowManagerName());
INSTANTIATE_TEST_SUITE_P(Under, ClosingKeys, testing::ValuesIn(kClosing), NameOfClosing);

} // namespace
