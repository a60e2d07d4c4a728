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
        "Requests",     "PatientFinder", "Departments", "Services",    "StockItems",       "Doctors",
        "CashPatients", "Registration",  "Assessment",  "AuditReport", "InPatientCharges", "Setup"};
    std::vector<Way> ways = EveryWay();
    std::erase_if(ways, [](const Way& way) { return !kNames.contains(way.name); });
    return ways;
}

class EscapeKey : public WayDesk {};
class BellByKey : public AnyDesk {};
class ClosingKeys : public Desk,
                    public testing::WithParamInterface<std::tuple<WindowManager, const char*>> {};

TEST_P(EscapeKey, LeavesTheScreen) {
    const QString screen = GoThere();
    Key(u"{Escape}"_s);
    ExpectNoScreen(screen);
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

std::string NameOfClosing(const testing::TestParamInfo<std::tuple<WindowManager, const char*>>& named) {
    std::string keys = std::get<1>(named.param);
    std::erase_if(keys, [](char c) { return std::string_view("{+}").find(c) != std::string_view::npos; });
    return NameOf(std::get<0>(named.param)) + '_' + keys;
}

INSTANTIATE_TEST_SUITE_P(Under, EscapeKey,
                         testing::Combine(testing::ValuesIn(kWindowManagers),
                                          testing::ValuesIn(WaysThatEscapeLeaves())),
                         WayName());
INSTANTIATE_TEST_SUITE_P(Under, BellByKey, testing::ValuesIn(kWindowManagers), WindowManagerName());
INSTANTIATE_TEST_SUITE_P(Under, ClosingKeys,
                         testing::Combine(testing::ValuesIn(kWindowManagers),
                                          testing::Values("{Control+F4}", "{Control+w}")),
                         NameOfClosing);

} // namespace
