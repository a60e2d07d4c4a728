#include "torture/RandomShift.h"

#include "toolkit/Failure.h"
#include "toolkit/FlexGrid.h"
#include "workstation/CashDeskScripts.h"
#include "workstation/ClerkKeys.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <limits>
#include <random>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// The columns of the two lists in which a line is chosen.
constexpr int kListedAmount = 5;
constexpr int kStatus = 7;

/// Lines at the end of the list of charges among which one is cancelled: those of the shifts, not of the
/// months before.
constexpr int kLastLines = 12;

/// Whether a control is on the screen; asked on the user interface's thread.
bool IsShown(const QString& name) {
    try {
        VisibleControl(name);
        return true;
    } catch (const DriverError&) {
        return false;
    }
}

bool Shows(Driver& clerk, const QString& name) {
    bool shown = false;
    clerk.OnScreen([&] { shown = IsShown(name); });
    return shown;
}

/// What the sign-on window refuses, empty while it has nothing to refuse. That somebody has to wait, since
/// others have just failed, is no refusal.
QString Refusal() {
    if (!IsShown(u"lblProblem"_s))
        return {};
    const QString text = dynamic_cast<QLabel&>(VisibleControl(u"lblProblem"_s)).text();
    return text.startsWith("There were too many failed sign-ons"_L1) ? QString() : text;
}

FlexGrid& List(const QString& name) {
    return dynamic_cast<FlexGrid&>(VisibleControl(name));
}

class Shift {
  public:
    Shift(Driver& clerk, const ShiftPlan& plan, Journal& journal)
        : mClerk(clerk)
        , mPlan(plan)
        , mJournal(journal)
        , mRandom(plan.seed) {}

    void SignOn();
    void PostCharge();
    void WorkOn();

  private:
    /// A number from 0, less than that.
    int Any(int count) { return std::uniform_int_distribution<int>(0, count - 1)(mRandom); }
    QString AnyOf(const QStringList& texts) { return texts[Any(int(texts.size()))]; }

    void KeyWrongPassword();
    /// Waits until a password that was keyed is accepted or refused.
    void AwaitAnswer();
    /// Waits until the sign-on is through, and marks what the program has to say.
    void HearOut();
    void KeyLines(const QStringList& service, const QStringList& medicine);
    void ChargeSomebody();
    void AssessWalkIn();
    void CancelCharge();
    void RevokeAssessment();
    void Leave();
    /// Chooses a line of a list for which the condition holds, as a click on it does. False where there is
    /// none.
    bool ChooseLine(const QString& list, int last,
                    const std::function<bool(const FlexCells&, int row)>& suits);

    Driver& mClerk;
    const ShiftPlan& mPlan;
    Journal& mJournal;
    std::mt19937 mRandom;
    int mRegistered = 0;
};

void Shift::KeyWrongPassword() {
    mClerk.Type(u"wrong"_s);
    mClerk.Press(Qt::Key_Return);
    AwaitAnswer();
    mJournal.Mark(Mark::kWrongPassword);
    mClerk.ExpectFocus(u"txtPassword"_s);
}

void Shift::AwaitAnswer() {
    const auto isAnswered = [] { return !IsShown(u"SignOnDialog"_s) || !Refusal().isEmpty(); };
    // Who has to wait because others have just failed waits longer than a step may.
    constexpr int kMostSteps = 4;
    for (int i = 1; i < kMostSteps; ++i) {
        try {
            mClerk.WaitFor(isAnswered, u"the answer to the sign-on"_s);
            return;
        } catch (const DriverError&) {
            mJournal.Mark(Mark::kWaiting);
        }
    }
    mClerk.WaitFor(isAnswered, u"the answer to the sign-on"_s);
}

void Shift::HearOut() {
    AwaitAnswer();
    mClerk.OnScreen([this] {
        if (IsShown(u"SignOnDialog"_s))
            mJournal.Mark(Mark::kRefused + Refusal());
    });
    mClerk.ExpectNoScreen(u"SignOnDialog"_s);
    if (!Shows(mClerk, u"MsgBox"_s))
        return;
    mClerk.OnScreen([this] {
        mJournal.Mark(Mark::kTold + dynamic_cast<QMessageBox&>(VisibleControl(u"MsgBox"_s)).text());
    });
    mClerk.Press(Qt::Key_Return);
    mClerk.ExpectNoScreen(u"MsgBox"_s);
}

void Shift::SignOn() {
    constexpr int kWrongOnes = 6;
    mClerk.ExpectScreen(u"SignOnDialog"_s);
    mClerk.Type(mPlan.user);
    mClerk.Press(Qt::Key_Tab);
    if (!mPlan.oneSlip && Any(kWrongOnes) == 0)
        KeyWrongPassword();
    mClerk.Type(mPlan.password);
    mClerk.Press(Qt::Key_Return);
    HearOut();
    mJournal.Mark(Mark::kSignedOn);
}

/// `service` and `medicine` are what is keyed behind a code.
void Shift::KeyLines(const QStringList& service, const QStringList& medicine) {
    Key(mClerk, QStringList{u"hc"_s, AnyOf({u"HC001"_s, u"HC002"_s, u"HC003"_s})} + service);
    Key(mClerk, QStringList{u"hb"_s, AnyOf({u"M0001"_s, u"M0002"_s, u"M0003"_s})} + medicine);
    Key(mClerk, {u"md"_s, u"D003"_s, QString::number(500 + Any(2500))});
}

void Shift::ChargeSomebody() {
    const bool inPatient = mPlan.oneSlip || Any(3) > 0;
    const QString who =
        inPatient ? AnyOf({u"de guz"_s, u"100050"_s, u"100213"_s, u"100089"_s}) : u"salazar"_s;
    FindPatient(mClerk, inPatient ? u"mnuInTransactionEntry"_s : u"mnuOutTransaction"_s, who);
    mClerk.TabTo(u"txtEntry"_s);
    // Quantity and price; an amount of its own has the medicine alone.
    const QString pieces = QString::number(1 + Any(4));
    KeyLines({pieces, QString()}, {pieces, QString(), QString()});
}

void Shift::PostCharge() {
    ChargeSomebody();
    PressSave(mClerk);
    mClerk.ExpectScreen(u"frmReportviewer"_s);
    mClerk.Press(Qt::Key_Escape);
    mClerk.ExpectNoScreen(u"frmPostCharges"_s);
}

void Shift::AssessWalkIn() {
    OpenRegistration(mClerk);
    // Nobody else is registered under that name.
    Key(mClerk, {u"Quintos"_s, u"N%1R%2"_s.arg(mPlan.seed).arg(++mRegistered), u"Ramos"_s});
    FinishRegistration(mClerk);
    mClerk.ExpectNoScreen(u"frmCashWalkInPatient"_s);
    mClerk.ExpectScreen(u"frmCashWalkIn"_s);
    mClerk.TabTo(u"MSHFlexCash"_s);
    mClerk.Press(Qt::Key_Return);
    mClerk.ExpectNoScreen(u"frmCashWalkIn"_s);
    mClerk.ExpectFocus(u"txtEntry"_s);
    // Price, quantity, amount.
    const QStringList pieces = {QString(), QString::number(1 + Any(4)), QString()};
    KeyLines(pieces, pieces);
    mClerk.TabTo(u"cmdSave"_s);
    mClerk.Press(Qt::Key_Return);
    mClerk.ExpectNoScreen(u"frmAssessment"_s);
}

bool Shift::ChooseLine(const QString& list, int last,
                       const std::function<bool(const FlexCells&, int row)>& suits) {
    bool chosen = false;
    mClerk.OnScreen([&] {
        FlexCells& cells = List(list).Cells();
        std::vector<int> rows;
        for (int row = std::max(1, cells.Rows() - last); row < cells.Rows(); ++row) {
            if (suits(cells, row))
                rows.push_back(row);
        }
        chosen = !rows.empty();
        if (chosen)
            cells.SetRow(rows[size_t(Any(int(rows.size())))]);
    });
    return chosen;
}

void Shift::CancelCharge() {
    FindPatient(mClerk, u"mnuListCharges"_s, AnyOf({u"de guz"_s, u"100050"_s, u"100213"_s}));
    mClerk.TabTo(u"cmdList"_s);
    mClerk.Press(Qt::Key_Return);
    const auto isCharge = [](const FlexCells& cells, int row) {
        return !cells.TextMatrix(row, kListedAmount).startsWith(u'-');
    };
    if (Shows(mClerk, u"mshflexList"_s) && ChooseLine(u"mshflexList"_s, kLastLines, isCharge)) {
        mClerk.TabTo(u"cmdOption(1)"_s);
        mClerk.Press(Qt::Key_Return);
        // The question, or that nothing is left to cancel.
        AnswerBox(mClerk);
    }
    mClerk.Press(Qt::Key_Escape);
    mClerk.ExpectNoScreen(u"frmListCharges"_s);
}

void Shift::RevokeAssessment() {
    mClerk.ChooseMenu(u"mnuReportStatus"_s);
    mClerk.ExpectScreen(u"frmAssessStatus"_s);
    FindAssessments(mClerk, u"quintos"_s);
    const auto waitsForPayment = [](const FlexCells& cells, int row) {
        return cells.TextMatrix(row, kStatus).contains(u'/');
    };
    const auto all = std::numeric_limits<int>::max();
    if (ChooseLine(u"grdTable"_s, all, waitsForPayment)) {
        mClerk.Press(Qt::Key_Return);
        AnswerBox(mClerk);
        AnswerBox(mClerk);
    }
    mClerk.Press(Qt::Key_Escape);
    AnswerBox(mClerk);
    mClerk.ExpectNoScreen(u"frmAssessStatus"_s);
}

void Shift::Leave() {
    mJournal.Mark(Mark::kLeaving);
    mClerk.ChooseMenu(u"mnuExit"_s);
    mClerk.WaitFor([] { return false; }, u"the program did not end"_s);
}

void Shift::WorkOn() {
    for (;;) {
        switch (Any(10)) {
        case 0:
        case 1:
        case 2:
        case 3:
            PostCharge();
            break;
        case 4:
        case 5:
            AssessWalkIn();
            break;
        case 6:
        case 7:
            CancelCharge();
            break;
        case 8:
            RevokeAssessment();
            break;
        default:
            Leave();
        }
    }
}

} // namespace

void WorkShift(Driver& clerk, const ShiftPlan& plan, Journal& journal) {
    Shift shift(clerk, plan, journal);
    shift.SignOn();
    if (plan.oneSlip)
        shift.PostCharge();
    else
        shift.WorkOn();
}

void ReadFailures(Journal& journal) {
    static const auto reading =
        Failure::EndSeam().Replace([&journal](const std::exception_ptr& failure, bool inPaint) {
            journal.Mark(Mark::kFailure + Failure::TextOf(failure).simplified());
            // Inside the box's own loop.
            QTimer::singleShot(0, qApp, [] {
                auto& box = dynamic_cast<QMessageBox&>(VisibleControl(u"Failure"_s));
                box.button(QMessageBox::Ok)->click();
            });
            Failure::EndSeam().Own()(failure, inPaint);
        });
}
