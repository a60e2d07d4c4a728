#include "components/shared.h"
#include "nursing/NursingRequestGround.h"
#include "patients/PatientContext.h"
#include "support/CaseName.h"

#include <set>

using namespace Qt::StringLiterals;

// The queue itself: its layout, its rows, the revoke.

using frmNursingRequestTest = NursingRequestGround;

TEST_F(frmNursingRequestTest, PrintIsHiddenAndCancelIsDisabledAlsoWhenTheClerkMoves) {
    Open({OfCruz(), OfCruz()});
    Press(Grid(), Qt::Key_Down);
    ASSERT_EQ(Cells().Row(), 2);
    EXPECT_FALSE(Button("Command1").isVisible());
    EXPECT_TRUE(Button("cmdCancel").isVisible());
    EXPECT_FALSE(Button("cmdCancel").isEnabled());
    EXPECT_TRUE(Button("cmdClose").isEnabled());
}

TEST_F(frmNursingRequestTest, LoadAsksForTheQueueDynamicReadOnly) {
    Open({OfCruz()});
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].command, NurseRequestCommand());
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::ReadOnly);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Server);
}

TEST_F(frmNursingRequestTest, ShowsOneRowARequestUnderItsHeaderLine) {
    Open({OfCruz(), {}, {}});
    EXPECT_EQ(Cells().Rows(), 4);
    EXPECT_EQ(Cells().Cols(), 25);
    const QStringList headers = {u"   "_s,
                                 u"Hospnum"_s,
                                 u"IDNum    "_s,
                                 u"LastName                  "_s,
                                 u"Firstname                  "_s,
                                 u"Middlename               "_s,
                                 u"ItemID"_s,
                                 u"ItemDesc                                    "_s,
                                 u"Requesting Nurse "_s,
                                 u"Field9"_s};
    for (int col = 0; col < int(headers.size()); ++col)
        EXPECT_EQ(Cells().TextMatrix(0, col), headers[col]) << col;
    EXPECT_EQ(Cells().TextMatrix(1, 3), u"CRUZ"_s);
    EXPECT_EQ(Cells().TextMatrix(3, 24), u"c24"_s);
}

TEST_F(frmNursingRequestTest, HidesTheseColumnsAndWidensTwo) {
    Open({OfCruz()});
    const std::set<int> hidden = {1, 5, 6, 8, 10, 11, 12, 13, 14, 15, 16, 17, 19, 20, 21, 23};
    for (int col = 0; col <= kColumns; ++col) {
        if (hidden.contains(col))
            EXPECT_EQ(Grid().ColWidth(col), 0) << col;
        else
            EXPECT_GT(Grid().ColWidth(col), 0) << col;
    }
    EXPECT_EQ(Grid().ColWidth(9), 2100);
    EXPECT_EQ(Grid().ColWidth(22), 5000);
}

TEST_F(frmNursingRequestTest, ColumnsOfTheHeaderLineAreAsWideAsTheirHeadersAndTheLastTwoAsTheGridGives) {
    Open({OfCruz()});
    EXPECT_LT(Grid().ColWidth(2), Grid().ColWidth(3));
    EXPECT_LT(Grid().ColWidth(3), Grid().ColWidth(7));
    const FlexGrid fresh;
    for (const int col : {18, 24})
        EXPECT_EQ(Grid().ColWidth(col), fresh.ColWidth(col));
}

TEST_F(frmNursingRequestTest, CloseUnloadsIt) {
    Open({OfCruz()});
    Click(Button("cmdClose"));
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>());
    EXPECT_FALSE(Screens::IsLoaded<frmPostCharges>());
}

TEST_F(frmNursingRequestTest, OpenedAgainAsksAgain) {
    Open({OfCruz()});
    Click(Button("cmdClose"));
    Open({OfCruz(), OfCruz()});
    EXPECT_EQ(Cells().Rows(), 3);
}

TEST_F(frmNursingRequestTest, KeysOtherThanEnterPickNothing) {
    Open({OfCruz()});
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Space})
        Press(Grid(), key);
    EXPECT_TRUE(Screens::IsLoaded<frmNursingRequest>());
    EXPECT_FALSE(Screens::IsLoaded<frmPostCharges>());
    Press(Grid(), Qt::Key_Escape);
    EXPECT_FALSE(Screens::IsLoaded<frmNursingRequest>()) << "the clerk leaves the queue";
    EXPECT_FALSE(Screens::IsLoaded<frmPostCharges>());
}

TEST_F(frmNursingRequestTest, FailingQueueEndsTheProgram) {
    gateway.ExpectFailure(NurseRequestCommand(), RunTimeError(208, u"Invalid object name"_s));
    EXPECT_THROW(Screens::Get<frmNursingRequest>(), RunTimeError);
}

// The revoke behind its disabled button.

class NursingRevoke : public NursingRequestGround {
  protected:
    NursingRevoke() {
        Open({{{24, 40}}, {{24, u" 41 "_s}}});
        Cells().SetRow(2);
        Button("cmdCancel").setEnabled(true);
    }

    void ExpectQuestion(MsgAnswer answer) {
        messages.Expect({.text = u"Are you sure to revoke the request?"_s,
                         .title = u"Notification"_s,
                         .buttons = MsgButtons::YesNo,
                         .defaultAnswer = MsgAnswer::No},
                        answer);
    }
};

TEST_F(NursingRevoke, OnNoNothingHappens) {
    ExpectQuestion(MsgAnswer::No);
    Click(Button("cmdCancel"));
    EXPECT_EQ(messages.Shown().size(), 1U);
    EXPECT_EQ(Cells().Rows(), 3);
}

TEST_F(NursingRevoke, OnYesTheCurrentRequestIsRevokedInTheEmployeesNameAndTheQueueIsLoadedAgain) {
    ExpectQuestion(MsgAnswer::Yes);
    gateway.Expect(RevokeNurseRequestCommand(u" 41 "_s, u"NURSE"_s));
    messages.Expect({.text = u"Request has been revoked."_s, .icon = MsgIcon::Information});
    gateway.Expect(NurseRequestCommand(), Queue({{{24, 40}}}));
    Click(Button("cmdCancel"));
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(messages.Shown().size(), 2U);
    EXPECT_EQ(Cells().Rows(), 2);
    EXPECT_EQ(Grid().ColWidth(22), 5000);
    EXPECT_EQ(Grid().ColWidth(10), 0);
}

TEST_F(NursingRevoke, OfTheLastRequestLeavesOneBlankRow) {
    ExpectQuestion(MsgAnswer::Yes);
    gateway.Expect(RevokeNurseRequestCommand(u" 41 "_s, u"NURSE"_s));
    messages.Expect({.text = u"Request has been revoked."_s, .icon = MsgIcon::Information});
    gateway.Expect(NurseRequestCommand(), Queue({}));
    Click(Button("cmdCancel"));
    EXPECT_EQ(Cells().Rows(), 2);
    EXPECT_EQ(Cells().Row(), 1);
    EXPECT_EQ(Cells().TextMatrix(1, 24), QString());
}

TEST_F(NursingRevoke, ThatFailsTellsNothingAndEndsTheProgram) {
    ExpectQuestion(MsgAnswer::Yes);
    gateway.ExpectFailure(RevokeNurseRequestCommand(u" 41 "_s, u"NURSE"_s), RunTimeError(547, u"conflict"_s));
    Click(Button("cmdCancel"));
    EXPECT_EQ(TakeFailure(), 547);
    EXPECT_EQ(messages.Shown().size(), 1U);
}
