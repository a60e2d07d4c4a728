#include "charges/frmPostCharges.h"
#include "components/DepartmentCodes.h"
#include "components/shared.h"
#include "driver/FilledGrid.h"
#include "driver/SeatedUser.h"
#include "maintenance/frmAssessStatus.h"
#include "maintenance/frmListCharges.h"
#include "shell/Main.h"
#include "shell/RegisterScreens.h"
#include "suite/LiveConnection.h"
#include "support/ProgramDirectoryAt.h"
#include "text/RunTimeError.h"
#include "toolkit/Application.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Screens.h"
#include "torture/Crowd.h"
#include "torture/JournaledSuite.h"
#include "torture/Marks.h"
#include "torture/Torture.h"

#include <QAbstractButton>
#include <QLineEdit>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

// The columns of the two lists by which a line is found.
constexpr int kItem = 2;
constexpr int kAmount = 5;
constexpr int kSlip = 6;
constexpr int kReference = 5;

/// 50 lines, every fifth of them from stock.
std::vector<FilledLine> FiftyLines() {
    constexpr int kLines = 50;
    constexpr int kStockEvery = 5;
    std::vector<FilledLine> lines;
    for (int number = 1; number <= kLines; ++number) {
        if (number % kStockEvery == 0)
            lines.push_back({Department::kMedicines, u"M%1"_s.arg(number / kStockEvery, 4, 10, QChar(u'0'))});
        else
            lines.push_back({Department::kEarCare, u"HC%1"_s.arg(number, 3, 10, QChar(u'0'))});
    }
    return lines;
}

void Fill(const Form& screen, const QString& box, const QString& text) {
    screen.findChild<QLineEdit*>(box)->setText(text);
}

void Click(const Form& screen, const QString& button) {
    screen.findChild<QAbstractButton*>(button)->click();
}

/// Stands on the first row that has those texts; false where there is none.
bool StandOn(FlexCells& cells, const std::vector<std::pair<int, QString>>& texts) {
    for (int row = 1; row < cells.Rows(); ++row) {
        const bool suits = std::ranges::all_of(
            texts, [&](const auto& text) { return cells.TextMatrix(row, text.first) == text.second; });
        if (suits && !cells.TextMatrix(row, kAmount).startsWith(u'-')) {
            cells.SetRow(row);
            return true;
        }
    }
    return false;
}

/// Tells the torture how far the desk is, and waits until it may go on.
void MeetTheOthers(const char* where) {
    std::printf("%s\n", where);
    std::fflush(stdout);
    std::getchar();
}

class Desk {
  public:
    Desk(Journal& journal, const CrowdDesk& plan)
        : mJournal(journal)
        , mPlan(plan)
        , mRandom(plan.seed) {}

    void SitDown();
    void PostSlips();
    void CancelTheSharedSlip() const;
    static void RevokeTheSharedAssessment();

  private:
    void Rest();
    void PostOneSlip();

    Journal& mJournal;
    const CrowdDesk& mPlan;
    std::mt19937 mRandom;
};

void Desk::SitDown() {
    InitComponents();
    auto user = SignOnWithJournal(mPlan.folder + u"/data"_s, mJournal, mPlan.user, mPlan.password);
    gCurrentUser = std::make_shared<SeatedUser>(std::move(user->connection), user->employeeCode);
    gConnection = gCurrentUser->SQLConnection();
    // As the main window hands it out.
    constexpr int kTimeout = 120;
    gConnection->SetDefaultDatabase(u"PASSWORD"_s);
    gConnection->SetCommandTimeout(kTimeout);
    SetLiveConnection(gConnection);
    gPersonFinder->InitConnection(gConnection, QString());
    gStockItem->InitConnect(gConnection->ConnectionString());
}

void Desk::Rest() {
    if (mPlan.pause == 0)
        return;
    std::exponential_distribution<double> pauses(1.0 / mPlan.pause);
    std::this_thread::sleep_for(std::chrono::duration<double>(pauses(mRandom)));
}

void Desk::PostOneSlip() {
    auto& screen = Screens::Get<frmPostCharges>();
    Fill(screen, u"txtPno"_s, SharedSlip::kHospNum);
    Fill(screen, u"txtId"_s, SharedSlip::kIdNum);
    FillGrid(screen, kPostChargesDifferences, FiftyLines());
    try {
        screen.SaveCharges();
    } catch (const RunTimeError& error) {
        // Here the program ends; the clerk starts it again and keys his slip once more.
        if (error.Number() != RunTime::kRowChanged)
            throw;
        mJournal.Mark(Mark::kFailure + error.Description());
    }
    Screens::Clear();
}

void Desk::PostSlips() {
    for (int i = 0; i < mPlan.saves; ++i) {
        Rest();
        PostOneSlip();
    }
}

void Desk::CancelTheSharedSlip() const {
    auto& screen = Screens::Get<frmListCharges>();
    QString admission = SharedSlip::kIdNum;
    gPersonFinder->ValidateAdmission(admission);
    Fill(screen, u"txtPno"_s, SharedSlip::kHospNum);
    Fill(screen, u"txtId"_s, SharedSlip::kIdNum);
    Click(screen, u"cmdList"_s);
    FlexCells& cells = screen.findChild<FlexGrid*>(u"mshflexList"_s)->Cells();
    for (const FilledLine& line : SharedSlip::Lines()) {
        if (StandOn(cells, {{kSlip, SharedSlip::kNumber}, {kItem, line.code}}))
            Click(screen, u"cmdOption(1)"_s);
    }
    Screens::Clear();
}

void Desk::RevokeTheSharedAssessment() {
    auto& screen = Screens::Get<frmAssessStatus>();
    FlexCells& cells = screen.findChild<FlexGrid*>(u"grdTable"_s)->Cells();
    if (StandOn(cells, {{kReference, SharedSlip::kAssessment}}))
        Click(screen, u"cmdRevoke"_s);
    Screens::Clear();
}

int Work(const CrowdDesk& plan) {
    Journal journal(plan.journal);
    const auto directory = ProgramDirectoryAt(plan.folder);
    const auto boxes = MessageSeam().Replace([](const Message& message) {
        return message.buttons == MsgButtons::YesNo ? MsgAnswer::Yes : MsgAnswer::Ok;
    });
    RegisterJournaledSuite(plan.folder + u"/data"_s, journal);
    RegisterScreens();
    Desk desk(journal, plan);
    desk.SitDown();
    MeetTheOthers("ready");
    desk.PostSlips();
    MeetTheOthers("posted");
    desk.CancelTheSharedSlip();
    Desk::RevokeTheSharedAssessment();
    SetLiveConnection(nullptr);
    gCurrentUser = {};
    return 0;
}

} // namespace

int RunCrowdDesk(const QStringList& arguments) {
    int argumentCount = 1;
    char name[] = "crowd-desk";
    char* program[] = {name, nullptr};
    const Application application(argumentCount, program);
    try {
        return Work(CrowdDesk::In(arguments));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
