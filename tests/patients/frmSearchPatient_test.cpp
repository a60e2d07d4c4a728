#include "patients/frmSearchPatient.h"
#include "patients/SearchPatientGround.h"
#include "support/CaseName.h"
#include "support/PaintCounter.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Twips.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

using namespace Qt::StringLiterals;

class frmSearchPatientTest : public SearchPatientGround {};

TEST_F(frmSearchPatientTest, StandsAtItsPlaceUnderItsCaption) {
    const auto& finder = Open(u"Post"_s, {});
    EXPECT_EQ(finder.windowTitle(), u"Patient List"_s);
    EXPECT_EQ(workspace.Area()->subWindowList().front()->pos(),
              QPoint(TwipsToPixels(3500), TwipsToPixels(1000)));
    EXPECT_EQ(Find<QLabel>(finder, "Label1").text(), u"LastName"_s);
    EXPECT_EQ(Find<QPushButton>(finder, "cmdSearch").text(), u"Search"_s);
    EXPECT_EQ(finder.optPatientType[0]->text(), u"In-Patient"_s);
    EXPECT_EQ(finder.optPatientType[1]->text(), u"Out-Patient"_s);
}

TEST_F(frmSearchPatientTest, HasFiveColumns) {
    const auto& finder = Open(u"Post"_s, {});
    const ListView& list = List(finder);
    const std::vector<std::pair<QString, int>> columns = {{u"HOSPITAL #"_s, 1300},
                                                          {u"ADMISSION #"_s, 1300},
                                                          {u"PATIENT NAME"_s, 2200},
                                                          {u"ADMISSION DATE"_s, 1800},
                                                          {u"BILLING DATE"_s, 1800}};
    ASSERT_EQ(list.model()->columnCount(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(list.model()->headerData(i, Qt::Horizontal).toString(), columns[size_t(i)].first);
        EXPECT_EQ(list.columnWidth(i), TwipsToPixels(columns[size_t(i)].second));
    }
}

TEST_F(frmSearchPatientTest, OpensWithAnEmptyNameAndNoOptionOn) {
    targets[u"Post"_s].finderText = u"CRUZ"_s;
    const auto& finder = Open(u"Post"_s, three);
    EXPECT_EQ(Find<QLineEdit>(finder, "txtLastName").text(), u""_s);
    EXPECT_FALSE(finder.optPatientType[0]->isChecked());
    EXPECT_FALSE(finder.optPatientType[1]->isChecked());
}

struct FillCase {
    const char* name;
    bool timerRuns;
};

class FirstFillTest : public frmSearchPatientTest, public testing::WithParamInterface<FillCase> {};

INSTANTIATE_TEST_SUITE_P(Modes, FirstFillTest,
                         testing::Values(FillCase{"Post", true}, FillCase{"List", true},
                                         FillCase{"Ledger", false}),
                         CaseName());

TEST_P(FirstFillTest, TakesItsTextFromTheWaitingScreenAsItStands) {
    const QString mode = QString::fromLatin1(GetParam().name);
    targets[mode].finderText = u" o'brien "_s;
    gateway.Expect(GetPatientCommand(u"I"_s, u" o'brien "_s), Patients(three));
    gChargeMode = mode;
    EXPECT_EQ(Names(Screens::Get<frmSearchPatient>()),
              (std::vector<QString>{u"CRUZ"_s, u"SANTOS"_s, u"ABAD"_s}));
}

TEST_P(FirstFillTest, UsesADynamicOptimisticServerCursor) {
    Open(QString::fromLatin1(GetParam().name), three);
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Server);
}

TEST_P(FirstFillTest, TimerRunsForTheChargeScreensAndDoesNothing) {
    const auto& finder = Open(QString::fromLatin1(GetParam().name), three);
    auto& timer = Find<QTimer>(finder, "Timer1");
    EXPECT_EQ(timer.interval(), 500);
    EXPECT_EQ(timer.isActive(), GetParam().timerRuns);
    // A command sent by the tick would fail the test: none is expected.
    QTimerEvent tick(timer.timerId());
    QApplication::sendEvent(&timer, &tick);
    EXPECT_EQ(Names(finder).size(), 3U);
}

TEST_F(frmSearchPatientTest, UnknownModeLeavesTheListEmptyAndSendsNothing) {
    const auto& finder = Open(u"Census"_s, {});
    EXPECT_EQ(List(finder).RowCount(), 0);
    EXPECT_FALSE(Find<QTimer>(finder, "Timer1").isActive());
}

TEST_F(frmSearchPatientTest, WrongLetterSendsNothingAndFaultsOnTheClosedRows) {
    for (const QString& type : {u"W"_s, u""_s, u"i"_s}) {
        gPatientType = type;
        gChargeMode = u"Post"_s;
        EXPECT_EQ(OpenFails(), RunTime::kObjectClosed) << type.toStdString();
        Screens::Clear();
    }
}

TEST_F(frmSearchPatientTest, NullInALaterRowFaultsToo) {
    gChargeMode = u"Post"_s;
    gateway.Expect(
        GetPatientCommand(u"I"_s, u"Post text"_s),
        Rows({u"hospital #"_s, u"Admission #"_s, u"Patient Name"_s, u"admission date"_s, u"Billing Date"_s},
             {std::vector<Value>(5, u"x"_s), {u"x"_s, Value(), u"x"_s, u"x"_s, u"x"_s}}));
    EXPECT_EQ(OpenFails(), RunTime::kInvalidUseOfNull);
}

TEST_F(frmSearchPatientTest, OutPatientsAreListedUnderTheirLetter) {
    gPatientType = u"O"_s;
    gateway.Expect(GetPatientCommand(u"O"_s, u"Post text"_s), Patients(three));
    gChargeMode = u"Post"_s;
    EXPECT_EQ(Names(Screens::Get<frmSearchPatient>()).size(), 3U);
}

TEST_F(frmSearchPatientTest, FailingCommandIsNotTrapped) {
    gChargeMode = u"Post"_s;
    gateway.ExpectFailure(GetPatientCommand(u"I"_s, u"Post text"_s),
                          RunTimeError(105, u"Unclosed quotation mark"_s));
    EXPECT_EQ(OpenFails(), 105);
}

TEST_F(frmSearchPatientTest, ShowsTheFiveFieldsOfAPatientInTheServersOrder) {
    const DateTime admitted = DateTime::FromFields({2026, 11, 3, 14, 15, 0, 0}).value();
    const auto& finder = Open(u"Post"_s, {{u"300"_s, u"A3"_s, u"CRUZ"_s, admitted, Value()},
                                          {u"100"_s, u"A1"_s, u"SANTOS"_s, Value(), admitted.DateOnly()}});
    ASSERT_EQ(List(finder).RowCount(), 2);
    const std::vector<std::vector<QString>> expected = {
        {u"300"_s, u"A3"_s, u"CRUZ"_s, u"11/3/2026 2:15:00 PM"_s, u""_s},
        {u"100"_s, u"A1"_s, u"SANTOS"_s, u""_s, u"11/3/2026"_s}};
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 5; ++column)
            EXPECT_EQ(Cell(finder, row, column), expected[size_t(row)][size_t(column)]);
    }
}

TEST_F(frmSearchPatientTest, EachRowBeginsWithASmallIcon) {
    const auto& finder = Open(u"Post"_s, three);
    const QAbstractItemModel& rows = *List(finder).model();
    for (int row = 0; row < 3; ++row) {
        EXPECT_FALSE(rows.index(row, 0).data(Qt::DecorationRole).value<QIcon>().isNull()) << row;
        EXPECT_FALSE(rows.index(row, 1).data(Qt::DecorationRole).isValid()) << row;
    }
}

TEST_F(frmSearchPatientTest, NullInTheFirstThreeColumnsFaults) {
    const std::vector<QString> columns = {u"hospital #"_s, u"Admission #"_s, u"Patient Name"_s,
                                          u"admission date"_s, u"Billing Date"_s};
    for (size_t null = 0; null < 3; ++null) {
        std::vector<Value> row(5, u"x"_s);
        row[null] = Value();
        gChargeMode = u"Post"_s;
        gateway.Expect(GetPatientCommand(u"I"_s, u"Post text"_s), Rows(columns, {row}));
        EXPECT_EQ(OpenFails(), RunTime::kInvalidUseOfNull) << null;
        Screens::Clear();
    }
}

TEST_F(frmSearchPatientTest, EmptyResultGivesAnEmptyListAndNoMessage) {
    const auto& finder = Open(u"Post"_s, {});
    EXPECT_EQ(List(finder).RowCount(), 0);
    EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(frmSearchPatientTest, SearchReplacesTheRows) {
    const auto& finder = Open(u"Post"_s, three);
    Type(Find<QLineEdit>(finder, "txtLastName"), u"o'b ñ"_s);
    gateway.Expect(GetPatientCommand(u"I"_s, u"O'B Ñ"_s), Patients({{u"9"_s, u"A9"_s, u"O'B"_s}}));
    Click(Find<QPushButton>(finder, "cmdSearch"));
    EXPECT_EQ(Names(finder), std::vector<QString>{u"O'B"_s});
}

TEST_F(frmSearchPatientTest, SearchShowsItsSignBeforeItAsks) {
    const auto& finder = Open(u"Post"_s, three);
    Find<QPushButton>(finder, "cmdSearch").setFocus();
    RunEvents();
    const PaintCounter counter(List(finder).viewport());
    ExpectList(u""_s, {});
    Find<QPushButton>(finder, "cmdSearch").click();
    EXPECT_EQ(counter.paints, 1) << "what is painted without an event's turn";
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(frmSearchPatientTest, NameOfAnyLengthGoesThrough) {
    const auto& finder = Open(u"Post"_s, three);
    const QString name(200, u'Ñ');
    Type(Find<QLineEdit>(finder, "txtLastName"), name);
    EXPECT_EQ(Find<QLineEdit>(finder, "txtLastName").text(), name);
    ExpectList(name, {});
    Click(Find<QPushButton>(finder, "cmdSearch"));
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmSearchPatientTest, OpeningAndSearchGoThroughTheConnectionOfTheSession) {
    gConnection = nullptr;
    const auto& finder = Open(u"Post"_s, three);
    ExpectList(u""_s, {});
    Click(Find<QPushButton>(finder, "cmdSearch"));
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(frmSearchPatientTest, SearchThatFindsNobodyEmptiesTheList) {
    const auto& finder = Open(u"Post"_s, three);
    ExpectList(u""_s, {});
    Click(Find<QPushButton>(finder, "cmdSearch"));
    EXPECT_EQ(List(finder).RowCount(), 0);
}

TEST_F(frmSearchPatientTest, SearchWithAnEmptyNameSendsAnEmptyArgument) {
    const auto& finder = Open(u"Post"_s, {});
    gateway.Expect(GetPatientCommand(u"I"_s, u""_s), Patients(three));
    Click(Find<QPushButton>(finder, "cmdSearch"));
    EXPECT_EQ(Names(finder).size(), 3U);
}

TEST_F(frmSearchPatientTest, OptionsDoNotChangeTheSearch) {
    const auto& finder = Open(u"Post"_s, {});
    finder.optPatientType[1]->click();
    EXPECT_EQ(gPatientType, u"I"_s);
    gateway.Expect(GetPatientCommand(u"I"_s, u""_s), Patients(three));
    Click(Find<QPushButton>(finder, "cmdSearch"));
}

TEST_F(frmSearchPatientTest, EachSearchGoesByTheLetterOfItsMoment) {
    const auto& finder = Open(u"Post"_s, {});
    gPatientType = u"O"_s;
    gateway.Expect(GetPatientCommand(u"O"_s, u""_s), Patients(three));
    Click(Find<QPushButton>(finder, "cmdSearch"));
    EXPECT_EQ(Names(finder).size(), 3U);
    gPatientType = u"W"_s;
    Click(Find<QPushButton>(finder, "cmdSearch"));
    EXPECT_EQ(TakeFailure(), RunTime::kObjectClosed);
}

TEST_F(frmSearchPatientTest, ControlsStayWhereTheyAreWhenTheWindowGrows) {
    const auto& finder = Open(u"Post"_s, three);
    const auto places = [&finder] {
        std::vector<QRect> all;
        for (const QWidget* control : finder.findChildren<QWidget*>())
            if (!control->objectName().startsWith(u"qt_"_s))
                all.push_back(QRect(control->mapTo(&finder, QPoint()), control->size()));
        return all;
    };
    RunEvents();
    const std::vector<QRect> before = places();
    finder.parentWidget()->resize(finder.parentWidget()->size() + QSize(200, 120));
    RunEvents();
    EXPECT_EQ(places(), before);
}

TEST_F(frmSearchPatientTest, KeysBecomeUpperCaseAndEnterSearches) {
    const auto& finder = Open(u"Post"_s, {});
    auto& name = Find<QLineEdit>(finder, "txtLastName");
    Type(name, u"niño"_s);
    EXPECT_EQ(name.text(), u"NIÑO"_s);
    ExpectList(u"NIÑO"_s, three);
    Press(name, Qt::Key_Return);
    EXPECT_EQ(Names(finder).size(), 3U);
}

TEST_F(frmSearchPatientTest, EnterSendsATabThatReachesTheRowsFound) {
    const auto& finder = Open(u"Post"_s, {});
    auto& name = Find<QLineEdit>(finder, "txtLastName");
    name.setFocus();
    ExpectList(u""_s, three);
    Press(name, Qt::Key_Return);
    EXPECT_TRUE(name.hasFocus());
    RunEvents();
    EXPECT_TRUE(List(finder).hasFocus());
}

TEST_F(frmSearchPatientTest, SentTabPassesOverAnEmptyList) {
    const auto& finder = Open(u"Post"_s, {});
    auto& name = Find<QLineEdit>(finder, "txtLastName");
    name.setFocus();
    ExpectList(u""_s, {});
    Press(name, Qt::Key_Return);
    RunEvents();
    EXPECT_TRUE(Find<QPushButton>(finder, "cmdSearch").hasFocus());
}

TEST_F(frmSearchPatientTest, NameHasTheFocusFirstAndTabGoesDownTheOrderOfWork) {
    const auto& finder = Open(u"Post"_s, three);
    for (QWidget* control :
         std::vector<QWidget*>{&Find<QLineEdit>(finder, "txtLastName"), &List(finder),
                               &Find<QPushButton>(finder, "cmdSearch"), finder.optPatientType[0]}) {
        EXPECT_EQ(QApplication::focusWidget(), control);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

TEST_F(frmSearchPatientTest, FirstHeaderClickSortsDescendingAndTheSecondAscending) {
    const auto& finder = Open(u"Post"_s, three);
    ClickHeader(finder, 2);
    EXPECT_EQ(Names(finder), (std::vector<QString>{u"SANTOS"_s, u"CRUZ"_s, u"ABAD"_s}));
    ClickHeader(finder, 2);
    EXPECT_EQ(Names(finder), (std::vector<QString>{u"ABAD"_s, u"CRUZ"_s, u"SANTOS"_s}));
}

TEST_F(frmSearchPatientTest, ClickOnAnotherHeaderKeepsFlippingTheOneOrder) {
    const auto& finder = Open(u"Post"_s, three);
    ClickHeader(finder, 2);
    ClickHeader(finder, 0);
    EXPECT_EQ(Names(finder), (std::vector<QString>{u"SANTOS"_s, u"ABAD"_s, u"CRUZ"_s}));
    ClickHeader(finder, 1);
    EXPECT_EQ(Names(finder), (std::vector<QString>{u"CRUZ"_s, u"ABAD"_s, u"SANTOS"_s}));
}

TEST_F(frmSearchPatientTest, SecondOpeningBringsTheSameInstance) {
    const auto& finder = Open(u"Post"_s, three);
    Screens::Get<frmSearchPatient>().Show();
    EXPECT_EQ(&Screens::Get<frmSearchPatient>(), &finder);
}
