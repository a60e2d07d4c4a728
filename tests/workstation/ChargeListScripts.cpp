#include "workstation/ChargeListScripts.h"

#include "components/shared.h"
#include "toolkit/FlexGrid.h"
#include "workstation/ClerkKeys.h"

using namespace Qt::StringLiterals;

namespace {

FlexCells& List() {
    return dynamic_cast<FlexGrid&>(VisibleControl(u"mshflexList"_s)).Cells();
}

/// Tells how many lines the slip has in the list, reversals included, and how many it has in all.
void TellList(Driver& clerk) {
    clerk.OnScreen([] {
        const FlexCells& list = List();
        int ofSlip = 0;
        for (int row = 1; row < list.Rows(); ++row)
            ofSlip += list.TextMatrix(row, 6) == gSlipNumber ? 1 : 0;
        Tell(u"listed %1 of %2"_s.arg(ofSlip).arg(list.Rows() - 1));
    });
}

/// Moves down to the first line of the slip that was saved last and tells it.
void GoToSlip(Driver& clerk) {
    clerk.TabTo(u"mshflexList"_s);
    int row = 1;
    clerk.OnScreen([&row] {
        const FlexCells& list = List();
        while (row < list.Rows() - 1 && list.TextMatrix(row, 6) != gSlipNumber)
            ++row;
    });
    for (int step = 1; step < row; ++step)
        clerk.Press(Qt::Key_Down);
    clerk.OnScreen([] {
        const FlexCells& list = List();
        QStringList line;
        for (int col = 1; col <= 6; ++col)
            line << list.TextMatrix(list.Row(), col);
        Tell(u"line "_s + line.join(u'|'));
    });
}

void PressOption(Driver& clerk, const QString& button) {
    GoToSlip(clerk);
    clerk.TabTo(button);
    clerk.Press(Qt::Key_Return);
}

void ListCharges(Driver& clerk) {
    FindPatient(clerk, u"mnuListCharges"_s, u"de guz"_s);
    clerk.TabTo(u"cmdList"_s);
    clerk.Press(Qt::Key_Return);
    TellList(clerk);
}

void PostFee(Driver& clerk, const QString& amount) {
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"de guz"_s);
    clerk.TabTo(u"txtEntry"_s);
    Key(clerk, {u"md"_s, u"D003"_s, amount});
    PressSave(clerk);
}

} // namespace

void ChargeListedAndCancelled(Driver& clerk) {
    SignOn(clerk);
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"de guz"_s);
    KeyThreeLines(clerk);
    PressSave(clerk);
    CloseSlip(clerk);

    ListCharges(clerk);
    PressOption(clerk, u"cmdOption(1)"_s);
    AnswerBox(clerk);
    TellList(clerk);
    PressOption(clerk, u"cmdOption(1)"_s);
    AnswerBox(clerk);
    TellList(clerk);
    PressOption(clerk, u"cmdOption(0)"_s);
    clerk.ExpectScreen(u"frmReportviewer"_s);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmReportviewer"_s);
}

void FeeCancelledAndGivenBack(Driver& clerk) {
    SignOn(clerk);
    PostFee(clerk, u"1500"_s);
    CloseSlip(clerk);
    ListCharges(clerk);
    PressOption(clerk, u"cmdOption(1)"_s);
    AnswerBox(clerk);
    TellList(clerk);
    PostFee(clerk, u"-1500"_s);
    ReadFailure(clerk);
}
