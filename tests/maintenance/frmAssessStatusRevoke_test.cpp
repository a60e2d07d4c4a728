#include "maintenance/AssessStatusGround.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

class AssessRevokeTest : public AssessStatusGround {
  protected:
    /// A line that stands alone, revoked to the end; the list has one more row afterwards.
    void ExpectRevokeOfLine731() {
        ExpectQuestion(MsgAnswer::Yes);
        gateway.Expect(AssessRevokeCommand(u"731"_s, u""_s, u"HB"_s));
        ExpectRevoked();
        ExpectList(QString(), {{u"732"_s, u""_s, openStatus}, {u"731"_s, u""_s, u"REVOKED"_s}});
    }

    const std::vector<Assessment> alone = {{u"731"_s, u""_s, openStatus, u"HB"_s}};
};

TEST_F(AssessRevokeTest, LineWithoutAReferenceIsRevokedByItsOwnNumberAndCode) {
    Open(alone);
    ExpectRevokeOfLine731();
    Click(Revoke());
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(messages.Shown().size(), 2U);
    EXPECT_EQ(Cells().Rows(), 3);
    EXPECT_TRUE(gateway.Openings().empty());
}

TEST_F(AssessRevokeTest, NoRevokesNothing) {
    Open(alone);
    ExpectQuestion(MsgAnswer::No);
    Click(Revoke());
    EXPECT_EQ(messages.Shown().size(), 1U);
    EXPECT_EQ(Cells().Rows(), 2);
}

TEST_F(AssessRevokeTest, ReferenceRevokesEveryLineThatBearsItInTurn) {
    Open({{u"741"_s, u"5018"_s, openStatus}, {u"731"_s, u"5017"_s, openStatus, u"HB"_s}});
    ClickRow(2);
    ExpectQuestion(MsgAnswer::Yes);
    ExpectLines(u"5017"_s, {{729, u"HC"_s}, {730, u"MD"_s}, {731, u"HB"_s}});
    gateway.Expect(AssessRevokeCommand(u"729"_s, u"5017"_s, u"HC"_s));
    gateway.Expect(AssessRevokeCommand(u"730"_s, u"5017"_s, u"MD"_s));
    gateway.Expect(AssessRevokeCommand(u"731"_s, u"5017"_s, u"HB"_s));
    ExpectRevoked();
    ExpectList(QString(), {});
    Click(Revoke());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(AssessRevokeTest, LinesOfAReferenceAreReadDynamicAndReadOnly) {
    Open({{u"731"_s, u"5017"_s, openStatus}});
    ExpectQuestion(MsgAnswer::Yes);
    ExpectLines(u"5017"_s, {});
    ExpectRevoked();
    ExpectList(QString(), {});
    Click(Revoke());
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::ReadOnly);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Server);
}

TEST_F(AssessRevokeTest, ReferenceWithoutLinesIsToldAsRevokedAllTheSame) {
    Open({{u"731"_s, u"5017"_s, openStatus}});
    ExpectQuestion(MsgAnswer::Yes);
    ExpectLines(u"5017"_s, {});
    ExpectRevoked();
    ExpectList(QString(), {{u"731"_s, u"5017"_s, openStatus}});
    Click(Revoke());
    EXPECT_EQ(messages.Shown().size(), 2U);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(AssessRevokeTest, LinesAreSoughtByTheTrimmedReferenceAndRevokedByTheOneShown) {
    Open({{u"731"_s, u" 5017 "_s, openStatus}});
    ExpectQuestion(MsgAnswer::Yes);
    ExpectLines(u"5017"_s, {{731, u"HC"_s}});
    gateway.Expect(AssessRevokeCommand(u"731"_s, u" 5017 "_s, u"HC"_s));
    ExpectRevoked();
    ExpectList(QString(), {});
    Click(Revoke());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(AssessRevokeTest, ReferenceOfBlanksIsNotEmpty) {
    Open({{u"731"_s, u"  "_s, openStatus}});
    ExpectQuestion(MsgAnswer::Yes);
    ExpectLines(u""_s, {});
    ExpectRevoked();
    ExpectList(QString(), {});
    Click(Revoke());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(AssessRevokeTest, FailureInTheMiddleLeavesTheLinesBeforeItRevokedAndTellsNoSuccess) {
    Open({{u"731"_s, u"5017"_s, openStatus}});
    ExpectQuestion(MsgAnswer::Yes);
    ExpectLines(u"5017"_s, {{730, u"HC"_s}, {731, u"HC"_s}, {732, u"HC"_s}});
    gateway.Expect(AssessRevokeCommand(u"730"_s, u"5017"_s, u"HC"_s));
    gateway.ExpectFailure(AssessRevokeCommand(u"731"_s, u"5017"_s, u"HC"_s),
                          RunTimeError(1205, u"Transaction was deadlocked"_s));
    Click(Revoke());
    EXPECT_EQ(TakeFailure(), 1205);
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(messages.Shown().size(), 1U);
}

TEST_F(AssessRevokeTest, FailureOfALineThatStandsAloneTellsNoSuccessAndLeavesTheList) {
    Open(alone);
    ExpectQuestion(MsgAnswer::Yes);
    gateway.ExpectFailure(AssessRevokeCommand(u"731"_s, u""_s, u"HB"_s),
                          RunTimeError(1205, u"Transaction was deadlocked"_s));
    Click(Revoke());
    EXPECT_EQ(TakeFailure(), 1205);
    EXPECT_EQ(messages.Shown().size(), 1U);
    EXPECT_TRUE(gateway.IsDone()) << "the list is not bound anew";
    EXPECT_EQ(Cells().TextMatrix(1, 1), u"731"_s);
}

TEST_F(AssessRevokeTest, LineWithoutARevenueCodeFails) {
    Open({{u"731"_s, u"5017"_s, openStatus}});
    ExpectQuestion(MsgAnswer::Yes);
    ExpectLines(u"5017"_s, {{731, Value()}});
    Click(Revoke());
    EXPECT_EQ(TakeFailure(), RunTime::kInvalidUseOfNull);
}

TEST_F(AssessRevokeTest, DoubleClickRevokes) {
    Open(alone);
    ExpectRevokeOfLine731();
    DoubleClickRow(1);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(AssessRevokeTest, EnterOnTheGridRevokes) {
    Open(alone);
    ExpectRevokeOfLine731();
    Press(Grid(), Qt::Key_Return);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(AssessRevokeTest, OtherKeysOnTheGridDoNothing) {
    Open(alone);
    Type(Grid(), u"r "_s);
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(AssessRevokeTest, DoubleClickOnARowWithABlankStatusDoesNotEvenAsk) {
    Open({{u"731"_s, u"5017"_s, openStatus}, {u"732"_s, u"5018"_s, u""_s}});
    DoubleClickRow(2);
    EXPECT_EQ(Cells().Row(), 2);
    EXPECT_FALSE(Revoke().isEnabled());
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(AssessRevokeTest, EnterOnTheGridDoesNothingWhileRevokeIsDisabled) {
    Open({{u"731"_s, u"5017"_s, openStatus}, {u"732"_s, u"5018"_s, u"REVOKED"_s}});
    Press(Grid(), Qt::Key_Down);
    Press(Grid(), Qt::Key_Return);
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(AssessRevokeTest, SearchTextAndItsWidthsStayOverTheListOfAll) {
    Open({{u"731"_s, u""_s, openStatus, u"HB"_s}, {u"730"_s, u""_s, openStatus}});
    Search(u"DELA"_s, alone);
    ExpectRevokeOfLine731();
    Click(Revoke());
    EXPECT_EQ(Box().text(), u"DELA"_s);
    EXPECT_EQ(Cells().Rows(), 3);
    EXPECT_EQ(Grid().ColWidth(2), 4000);
    EXPECT_EQ(Grid().ColWidth(3), 0);
    EXPECT_EQ(Grid().ColWidth(4), 3250);
    EXPECT_EQ(Grid().ColWidth(5), 1250);
}

TEST_F(AssessRevokeTest, WidthsOfTheLoadStayToo) {
    Open(alone);
    ExpectRevokeOfLine731();
    Click(Revoke());
    EXPECT_EQ(Grid().ColWidth(2), 3000);
    EXPECT_EQ(Grid().ColWidth(3), 1000);
}

TEST_F(AssessRevokeTest, ListAfterwardsStandsOnItsFirstRowAndDecidesTheButtonsByIt) {
    Open({{u"741"_s, u"5018"_s, openStatus}, {u"731"_s, u""_s, openStatus, u"HB"_s}});
    ClickRow(2);
    ExpectQuestion(MsgAnswer::Yes);
    gateway.Expect(AssessRevokeCommand(u"731"_s, u""_s, u"HB"_s));
    ExpectRevoked();
    ExpectList(QString(), {{u"741"_s, u"5018"_s, u"REVOKED"_s}, {u"731"_s, u""_s, u"REVOKED"_s}});
    Click(Revoke());
    EXPECT_EQ(Cells().Row(), 1);
    EXPECT_TRUE(ButtonsAre(false));
}

TEST_F(AssessRevokeTest, SecondRevokeOfALineCallsTheProcedureAgain) {
    Open(alone);
    for (int i = 0; i < 2; ++i) {
        ExpectQuestion(MsgAnswer::Yes);
        gateway.Expect(AssessRevokeCommand(u"731"_s, u""_s, u"HB"_s));
        ExpectRevoked();
        ExpectList(QString(), alone);
        Click(Revoke());
    }
    EXPECT_TRUE(gateway.IsDone());
}
