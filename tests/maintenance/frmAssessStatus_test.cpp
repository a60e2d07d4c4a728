#include "maintenance/AssessStatusGround.h"
#include "support/CaseName.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>

using namespace Qt::StringLiterals;

class frmAssessStatusTest : public AssessStatusGround {
  protected:
    static std::vector<int> Widths() {
        std::vector<int> widths;
        for (int col = 0; col < 10; ++col)
            widths.push_back(Grid().ColWidth(col));
        return widths;
    }
};

TEST_F(frmAssessStatusTest, OpensOverTheListOfAllInTheWidthsOfTheLoad) {
    Open({{u"731"_s, u"5017"_s, openStatus}, {u"730"_s, u""_s, u"OR 310002"_s, u"HB"_s}});
    EXPECT_EQ(Cells().Rows(), 3);
    EXPECT_EQ(Cells().Cols(), 10);
    EXPECT_EQ(Cells().TextMatrix(1, 1), u"731"_s);
    EXPECT_EQ(Cells().TextMatrix(2, 5), u""_s);
    EXPECT_EQ(Cells().TextMatrix(2, 7), u"OR 310002"_s);
    EXPECT_EQ(Widths(), (std::vector<int>{250, 0, 3000, 1000, 4000, 1000, 1000, 1250, 0, 0}));
    // The list is executed; only a row set has cursor settings.
    EXPECT_TRUE(gateway.Openings().empty());
}

TEST_F(frmAssessStatusTest, HeadersAreTheFieldNames) {
    Open({});
    EXPECT_EQ(Cells().TextMatrix(0, 0), u""_s);
    EXPECT_EQ(Cells().TextMatrix(0, 2), u"Patient Name"_s);
    EXPECT_EQ(Cells().TextMatrix(0, 7), u"Status"_s);
}

TEST_F(frmAssessStatusTest, ButtonsAreEnabledAtOpeningWhateverTheFirstRowHolds) {
    Open({{u"731"_s, u"5017"_s, u"REVOKED"_s}});
    EXPECT_TRUE(ButtonsAre(true));
}

TEST_F(frmAssessStatusTest, ButtonsAreEnabledAtOpeningOverAnEmptyList) {
    Open({});
    EXPECT_TRUE(ButtonsAre(true));
}

TEST_F(frmAssessStatusTest, TabGoesDownTheOrderOfWork) {
    Open({{u"731"_s, u"5017"_s, openStatus}});
    for (QWidget* control : std::vector<QWidget*>{&Box(), &Grid(), &Revoke(), &Print(), &Close()}) {
        EXPECT_EQ(QApplication::focusWidget(), control);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

struct StatusCase {
    const char* name;
    QString status;
    bool enabled;
};

class StatusTest : public frmAssessStatusTest, public testing::WithParamInterface<StatusCase> {};

INSTANTIATE_TEST_SUITE_P(Texts, StatusTest,
                         testing::Values(StatusCase{"Date", u"11/20/2026"_s, true},
                                         StatusCase{"DateWithTime", u"11/20/2026 10:15:00 AM"_s, true},
                                         StatusCase{"DayThatDoesNotExist", u"02/30/2026"_s, false},
                                         StatusCase{"Receipt", u"OR 310002"_s, true},
                                         StatusCase{"AnyTextBehindOR", u"ORDINARY"_s, true},
                                         StatusCase{"ORAlone", u"OR"_s, true},
                                         StatusCase{"ReceiptInLowerCase", u"or 310002"_s, false},
                                         StatusCase{"ReceiptInMixedCase", u"Or 310002"_s, false},
                                         StatusCase{"ORBehindABlank", u" OR 310002"_s, false},
                                         StatusCase{"Revoked", u"REVOKED"_s, false},
                                         StatusCase{"Blank", u""_s, false}),
                         CaseName());

TEST_P(StatusTest, DecidesTheButtonsWhenTheClerkMovesToTheRow) {
    // The row before it has the opposite effect, so that the move is seen to decide.
    Open({{u"1"_s, u"5001"_s, u"-"_s},
          {u"2"_s, u"5002"_s, GetParam().enabled ? u"REVOKED"_s : openStatus},
          {u"3"_s, u"5003"_s, GetParam().status}});
    ClickRow(2);
    EXPECT_TRUE(ButtonsAre(!GetParam().enabled));
    ClickRow(3);
    EXPECT_TRUE(ButtonsAre(GetParam().enabled));
}

TEST_F(frmAssessStatusTest, MoveToAnotherColumnOfTheSameRowDecidesToo) {
    Open({{u"1"_s, u"5001"_s, u"REVOKED"_s}});
    EXPECT_TRUE(ButtonsAre(true));
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {},
                      Grid().CellRect(1, 4).center() - Grid().viewport()->pos());
    EXPECT_TRUE(ButtonsAre(false));
}

TEST_F(frmAssessStatusTest, ArrowKeysMoveAndDecide) {
    Open({{u"1"_s, u"5001"_s, openStatus}, {u"2"_s, u"5002"_s, u"REVOKED"_s}});
    Press(Grid(), Qt::Key_Down);
    EXPECT_EQ(Cells().Row(), 2);
    EXPECT_TRUE(ButtonsAre(false));
    Press(Grid(), Qt::Key_Up);
    EXPECT_EQ(Cells().Row(), 1);
    EXPECT_TRUE(ButtonsAre(true));
}

TEST_F(frmAssessStatusTest, EnterSearchesAndSetsTheWidthsOfASearch) {
    Open({{u"1"_s, u"5001"_s, openStatus}, {u"2"_s, u"5002"_s, openStatus}});
    Search(u"DELA"_s, {{u"2"_s, u"5002"_s, openStatus}});
    EXPECT_EQ(Cells().Rows(), 2);
    EXPECT_EQ(Cells().TextMatrix(1, 1), u"2"_s);
    EXPECT_EQ(Widths(), (std::vector<int>{250, 0, 4000, 0, 3250, 1250, 1000, 1250, 0, 0}));
    EXPECT_EQ(Box().text(), u"DELA"_s);
}

TEST_F(frmAssessStatusTest, SearchSendsTheTextAsTyped) {
    Open({});
    Type(Box(), u" dela  Cruz "_s);
    EXPECT_EQ(Box().text(), u" dela  Cruz "_s);
    gateway.Expect(AssessmentStatusCommand(u" dela  Cruz "_s), Assessments({}));
    Press(Box(), Qt::Key_Return);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmAssessStatusTest, SearchWithAnEmptyTextListsAllInTheWidthsOfASearch) {
    Open({});
    Search(u""_s, {{u"1"_s, u"5001"_s, openStatus}});
    EXPECT_EQ(Cells().Rows(), 2);
    EXPECT_EQ(Widths()[3], 0);
}

TEST_F(frmAssessStatusTest, OtherKeysInTheSearchBoxDoNothing) {
    Open({{u"1"_s, u"5001"_s, openStatus}});
    Type(Box(), u"x"_s);
    Press(Box(), Qt::Key_Backspace);
    Press(Box(), Qt::Key_Down);
    EXPECT_EQ(Cells().Rows(), 2);
    EXPECT_EQ(Widths()[3], 1000);
}

TEST_F(frmAssessStatusTest, ApostropheInTheSearchIsTheServersError) {
    Open({});
    Box().setText(u"O'BRIEN"_s);
    gateway.ExpectFailure(AssessmentStatusCommand(u"O'BRIEN"_s),
                          RunTimeError(105, u"Unclosed quotation mark"_s));
    Press(Box(), Qt::Key_Return);
    EXPECT_EQ(TakeFailure(), 105);
}

TEST_F(frmAssessStatusTest, SearchFromTheFirstCellIsNoMoveAndDecidesNothing) {
    Open({{u"1"_s, u"5001"_s, u"REVOKED"_s}});
    Search(u"D"_s, {{u"2"_s, u"5002"_s, u"REVOKED"_s}});
    EXPECT_TRUE(ButtonsAre(true));
}

TEST_F(frmAssessStatusTest, SearchThatBringsTheClerkBackToTheFirstCellDecides) {
    Open({{u"1"_s, u"5001"_s, openStatus}, {u"2"_s, u"5002"_s, u"REVOKED"_s}});
    ClickRow(2);
    EXPECT_TRUE(ButtonsAre(false));
    Search(u"D"_s, {{u"3"_s, u"5003"_s, openStatus}});
    EXPECT_TRUE(ButtonsAre(true));
}

TEST_F(frmAssessStatusTest, SearchThatFindsNothingDisablesTheButtons) {
    Open({{u"1"_s, u"5001"_s, openStatus}});
    Search(u"QQQ"_s, {});
    EXPECT_EQ(Cells().Rows(), 1);
    EXPECT_TRUE(ButtonsAre(false));
}

TEST_F(frmAssessStatusTest, TimerRunsEveryHalfSecondFromTheLoad) {
    const auto& timer = Find<QTimer>(Open({}), "Timer1");
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(timer.interval(), 500);
    EXPECT_FALSE(timer.isSingleShot());
}

TEST_F(frmAssessStatusTest, EachTickChangesThePictureAndNothingElse) {
    const auto& screen = Open({{u"1"_s, u"5001"_s, openStatus}});
    auto& timer = Find<QTimer>(screen, "Timer1");
    timer.stop();
    const auto& picture = Find<QLabel>(screen, "Picture1");
    const auto imageOf = [](int number) {
        return ProgramIcon(u"assessment%1"_s.arg(number)).pixmap(32, 32).toImage();
    };
    ASSERT_FALSE(imageOf(1).isNull());
    ASSERT_NE(imageOf(1), imageOf(2));
    EXPECT_EQ(picture.pixmap(Qt::ReturnByValue).toImage(), imageOf(1));
    for (const int shown : {2, 1, 2}) {
        QMetaObject::invokeMethod(&timer, "timeout");
        EXPECT_EQ(picture.pixmap(Qt::ReturnByValue).toImage(), imageOf(shown));
    }
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmAssessStatusTest, AMessageBoxHoldsTheBlink) {
    const auto& screen = Open({{u"1"_s, u"5001"_s, openStatus}});
    auto& timer = Find<QTimer>(screen, "Timer1");
    timer.stop();
    const auto& picture = Find<QLabel>(screen, "Picture1");
    const QImage before = picture.pixmap(Qt::ReturnByValue).toImage();
    QMessageBox box;
    box.setModal(true);
    box.show();
    QMetaObject::invokeMethod(&timer, "timeout");
    EXPECT_EQ(picture.pixmap(Qt::ReturnByValue).toImage(), before);
    box.close();
    QMetaObject::invokeMethod(&timer, "timeout");
    EXPECT_NE(picture.pixmap(Qt::ReturnByValue).toImage(), before);
}

struct CloseCase {
    const char* name;
    void (*close)(frmAssessStatus&);
};

class CloseTest : public frmAssessStatusTest, public testing::WithParamInterface<CloseCase> {
  protected:
    void ExpectClosingQuestion(MsgAnswer answer) {
        messages.Expect({.text = u"Are you sure to close this program?"_s,
                         .icon = MsgIcon::Question,
                         .title = u"OPD Registration System"_s,
                         .buttons = MsgButtons::OkCancel},
                        answer);
    }
};

INSTANTIATE_TEST_SUITE_P(
    Ways, CloseTest,
    testing::Values(
        CloseCase{"CancelButton", [](frmAssessStatus& s) { Click(Find<QPushButton>(s, "cmdClose")); }},
        CloseCase{"EscapeInTheSearchBox",
                  [](frmAssessStatus& s) { Press(Find<QLineEdit>(s, "txtSearch"), Qt::Key_Escape); }},
        CloseCase{"EscapeInTheGrid",
                  [](frmAssessStatus& s) { Press(Find<FlexGrid>(s, "grdTable"), Qt::Key_Escape); }},
        CloseCase{"CloseBoxOfTheFrame", [](frmAssessStatus& s) { s.close(); }},
        CloseCase{"Unloading", [](frmAssessStatus&) { Screens::Unload<frmAssessStatus>(); }}),
    CaseName());

TEST_P(CloseTest, AsksAndCancelKeepsTheScreenOpen) {
    auto& screen = Open({{u"1"_s, u"5001"_s, openStatus}});
    ExpectClosingQuestion(MsgAnswer::Cancel);
    GetParam().close(screen);
    EXPECT_EQ(messages.Shown().size(), 1U);
    ASSERT_TRUE(Screens::IsLoaded<frmAssessStatus>());
    EXPECT_TRUE(Screen().isVisible());
    EXPECT_EQ(Cells().Rows(), 2);
}

TEST_P(CloseTest, AsksAndOkClosesTheScreen) {
    auto& screen = Open({});
    ExpectClosingQuestion(MsgAnswer::Ok);
    GetParam().close(screen);
    EXPECT_EQ(messages.Shown().size(), 1U);
    EXPECT_FALSE(Screens::IsLoaded<frmAssessStatus>());
}
