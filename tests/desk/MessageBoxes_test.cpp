#include "desk/Desk.h"

using namespace Qt::StringLiterals;

// The message boxes on the clerk's ways, in the frames that the window managers draw.

namespace {

struct Box {
    Way way;
    const char* title;
};

const std::vector<Box>& Boxes() {
    static const std::vector<Box> kBoxes = {
        {Further("AsksBeforeTheAssessmentsAreLeft", "AssessmentStatus", {{"MsgBox", "{Escape}"}}),
         "OPD Registration System"},
        {Further("MissesThePatientsName", "Assessment", {{"MsgBox", "{Alt+s}"}}), "Assessment"},
        {Further("MissesTheQuantity", "ChargesOfAPatient",
                 {{"MsgBox", "hc{Return}HC001{Return}{BackSpace}{Return}", "txtEntry"}}),
         "TARVEN"},
        {Further("MissesTheLines", "ChargesOfAPatient", {{"MsgBox", "{Return}", "cmdPrint"}}), "Assessment"},
        {Further("KnowsNoSuchDoctor", "ChargesOfAPatient",
                 {{"PickDialog", "md{Return}D{Return}", "txtEntry"}, {"MsgBox", "{Escape}"}}),
         "TARVEN"},
        // The year, which no other part of the date holds back.
        {Further("RefusesThePeriod", "AuditReport",
                 {{"frmReportRange", "{End}{Down}", "dtpEndDate"}, {"MsgBox", "{Return}", "cmdView"}}),
         "TARVEN"},
        {Further("TellsAFailure", "InPatientCharges", {{"Failure", "O'BRIEN{Return}"}}), "TARVEN"},
    };
    return kBoxes;
}

void PrintTo(const Box& box, std::ostream* out) {
    *out << box.way.name;
}

using Case = std::tuple<WindowManager, Box>;

std::string NameOfCase(const testing::TestParamInfo<Case>& named) {
    return NameOf(std::get<0>(named.param)) + '_' + std::get<1>(named.param).way.name;
}

class MessageBoxAtADesk : public Desk, public testing::WithParamInterface<Case> {};

TEST_P(MessageBoxAtADesk, HasRoomForItsTitleAndItsTexts) {
    const auto& [manager, box] = GetParam();
    StartSignedOn(manager);
    Go(box.way.steps);
    const QString name = QString::fromLatin1(box.way.End());
    EXPECT_EQ(WindowOf(name).title.toStdString(), box.title);
    ExpectNothingCut(name);
    ExpectInside(name);
    ExpectRoomForTitle(name);
    ExpectFocusIsSeen();
}

class FailureAtADesk : public AnyDesk {};

TEST_P(FailureAtADesk, IsReadAndLeftByEnter) {
    StartSignedOn(GetParam());
    Go({{"frmPostCharges", "{Alt+q}{Down}{Return}"}, {"Failure", "O'BRIEN{Return}"}});
    EXPECT_EQ(PressToEnd(u"{Return}"_s), 1);
}

INSTANTIATE_TEST_SUITE_P(Under, FailureAtADesk, testing::ValuesIn(kWindowManagers), WindowManagerName());
INSTANTIATE_TEST_SUITE_P(Under, MessageBoxAtADesk,
                         testing::Combine(testing::ValuesIn(kWindowManagers), testing::ValuesIn(Boxes())),
                         NameOfCase);

} // namespace
