#include "patients/CashWalkInGround.h"
#include "patients/frmCashWalkInPatient.h"
#include "support/CaseName.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class frmCashWalkInTest : public CashWalkInGround {};

TEST_F(frmCashWalkInTest, BeginsWithAnEmptyBoxAndAPictureOnItsSearch) {
    const auto& list = Open(two);
    EXPECT_EQ(Find<QLineEdit>(list, "txtCash").text(), u""_s);
    EXPECT_FALSE(Find<QPushButton>(list, "cmdSearch").icon().isNull());
}

TEST_F(frmCashWalkInTest, EveryInputIsSpoken) {
    const auto& list = Open(two);
    for (const char* name : {"txtCash", "cmdSearch", "MSHFlexCash"})
        EXPECT_FALSE(Find<QWidget>(list, name).accessibleName().isEmpty()) << name;
}

TEST_F(frmCashWalkInTest, SearchesAtOnceAndShowsTheHitsUnderTheirOwnHeadings) {
    const auto& list = Open(two);
    const FlexCells& cells = Grid(list).Cells();
    ASSERT_EQ(cells.Rows(), 3);
    ASSERT_EQ(cells.Cols(), 6);
    const std::vector<std::vector<QString>> expected = {
        {u"ADM. #"_s, u"HOSP. #"_s, u"PATIENT NAME"_s, u"ADM. DATE"_s, u"AdmissionNum"_s},
        {u"104233"_s, u"100085"_s, u"CRUZ, ANA SY"_s, u"11/3/2026 2:15:00 PM"_s, u"A-104233"_s},
        {u"10231B"_s, u"100090"_s, u"CRUZ, EVA UY"_s, u"11/4/2026"_s, u"10231B"_s}};
    for (int row = 0; row < 3; ++row) {
        for (int col = 1; col < 6; ++col)
            EXPECT_EQ(cells.TextMatrix(row, col), expected[size_t(row)][size_t(col) - 1]);
    }
}

TEST_F(frmCashWalkInTest, ColumnsHaveTheirWidthsAndTheAdmissionNumberIsHidden) {
    const auto& list = Open(two);
    const FlexGrid& grid = Grid(list);
    const std::vector<int> widths = {1, 1200, 1000, 3000, 1000, 1};
    for (int col = 0; col < 6; ++col)
        EXPECT_EQ(grid.ColWidth(col), widths[size_t(col)]);
    EXPECT_TRUE(grid.isColumnHidden(4));
    EXPECT_FALSE(grid.isColumnHidden(3));
}

struct KindCase {
    const char* name;
    int option;
    QString letter;
    QString command;
    CursorType cursor;
    LockType lock;
    bool registers;
};

class KindTest : public frmCashWalkInTest, public testing::WithParamInterface<KindCase> {};

INSTANTIATE_TEST_SUITE_P(
    PatientTypes, KindTest,
    testing::Values(KindCase{"Inpatient", 0, u"I"_s, GetCashPatientCommand(u"CRUZ"_s, u"1"_s),
                             CursorType::ForwardOnly, LockType::Optimistic, false},
                    KindCase{"OutPatient", 1, u"O"_s, GetCashPatientCommand(u"CRUZ"_s, u"2"_s),
                             CursorType::ForwardOnly, LockType::Optimistic, false},
                    KindCase{"WalkIn", 2, u"W"_s, GetCashPatientCommand(u"CRUZ"_s, u"3"_s),
                             CursorType::Unspecified, LockType::Unspecified, true}),
    CaseName());

TEST_P(KindTest, OptionOfTheAssessmentDecidesWhoIsListedWhateverTheLetterWas) {
    for (const QString& before : {u"I"_s, u"O"_s, u"W"_s}) {
        gPatientType = before;
        assessment.typeOn = GetParam().option;
        gateway.Expect(GetParam().command, CashPatients(two));
        const auto& list = OpenAsItStands();
        EXPECT_EQ(gPatientType, GetParam().letter);
        EXPECT_EQ(Grid(list).Cells().Rows(), 3);
        Screens::Clear();
    }
}

TEST_P(KindTest, WithoutAnOptionTheLetterStays) {
    gPatientType = GetParam().letter;
    assessment.typeOn = -1;
    gateway.Expect(GetParam().command, CashPatients(two));
    OpenAsItStands();
    EXPECT_EQ(gPatientType, GetParam().letter);
}

TEST_P(KindTest, CursorIsThatOfTheKind) {
    assessment.typeOn = GetParam().option;
    Open(two);
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].cursor, GetParam().cursor);
    EXPECT_EQ(gateway.Openings()[0].lock, GetParam().lock);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Server);
}

TEST_P(KindTest, ListIsReadThroughTheConnectionOfTheSession) {
    gConnection = nullptr;
    assessment.typeOn = GetParam().option;
    EXPECT_EQ(Grid(Open(two)).Cells().Rows(), 3);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_P(KindTest, OnlyWalkInsCanBeRegistered) {
    assessment.typeOn = GetParam().option;
    const auto& list = Open(two);
    EXPECT_EQ(Find<QPushButton>(list, "cmdRegister").isEnabled(), GetParam().registers);
    // The option may be changed behind the list; the next search follows it.
    assessment.typeOn = GetParam().registers ? 0 : 2;
    ExpectList(u"CRUZ"_s, GetParam().registers ? u"1"_s : u"3"_s, two);
    Click(Find<QPushButton>(list, "cmdSearch"));
    EXPECT_EQ(Find<QPushButton>(list, "cmdRegister").isEnabled(), !GetParam().registers);
}

TEST_F(frmCashWalkInTest, LetterOfNoTypeSendsNothingAndFaultsOnTheClosedRows) {
    assessment.typeOn = -1;
    for (const QString& letter : {u""_s, u"i"_s, u"C"_s}) {
        gPatientType = letter;
        EXPECT_EQ(OpenFails(), RunTime::kObjectClosed) << letter.toStdString();
        Screens::Clear();
    }
}

TEST_F(frmCashWalkInTest, SearchTextIsCopiedAsItStandsAndSentTrimmed) {
    gCashSearchText = u"  o'brien, ana  "_s;
    gateway.Expect(GetCashPatientCommand(u"o'brien, ana"_s, u"1"_s), CashPatients(two));
    OpenAsItStands();
    EXPECT_EQ(gCashSearchCopy, u"  o'brien, ana  "_s);
}

TEST_F(frmCashWalkInTest, FailingCommandIsNotTrapped) {
    gateway.ExpectFailure(GetCashPatientCommand(u"CRUZ"_s, u"1"_s),
                          RunTimeError(105, u"Unclosed quotation mark"_s));
    EXPECT_EQ(OpenFails(), 105);
}

TEST_F(frmCashWalkInTest, RowsAreClosedAfterEachSearch) {
    Open(two);
    EXPECT_EQ(gCashRecordset.State(), RowSet::Status::Closed);
}

TEST_F(frmCashWalkInTest, KeysAreNotChanged) {
    const auto& list = Open(two);
    auto& box = Find<QLineEdit>(list, "txtCash");
    Type(box, u"Dela Peña"_s);
    EXPECT_EQ(box.text(), u"Dela Peña"_s);
}

TEST_F(frmCashWalkInTest, EachKeyPassesOnTheTextBeforeItAndMakesAFreshRowSet) {
    const auto& list = Open(two);
    auto& box = Find<QLineEdit>(list, "txtCash");
    gCashRecordset = RowSet(CashPatients(two), false);
    Type(box, u"L"_s);
    EXPECT_EQ(gCashSearchText, u""_s);
    EXPECT_EQ(gCashRecordset.State(), RowSet::Status::Closed);
    Type(box, u"IM"_s);
    EXPECT_EQ(gCashSearchText, u"LI"_s);
    EXPECT_EQ(gCashSearchCopy, u"CRUZ"_s) << "only a search takes the copy";
    EXPECT_EQ(gateway.Openings().size(), 1U);
}

TEST_F(frmCashWalkInTest, EnterSearchesByTheWholeText) {
    const auto& list = Open(two);
    auto& box = Find<QLineEdit>(list, "txtCash");
    Type(box, u"Lim"_s);
    ExpectList(u"Lim"_s, u"1"_s, {{u"1"_s, u"2"_s, u"LIM, JO"_s}});
    Press(box, Qt::Key_Return);
    EXPECT_EQ(gCashSearchText, u"Lim"_s);
    EXPECT_EQ(gCashSearchCopy, u"Lim"_s);
    EXPECT_EQ(Grid(list).Cells().Rows(), 2);
    EXPECT_EQ(Grid(list).Cells().TextMatrix(1, 3), u"LIM, JO"_s);
    EXPECT_EQ(Grid(list).Cells().Row(), 1);
}

TEST_F(frmCashWalkInTest, SearchButtonAfterTypingGoesByAllButTheLastKey) {
    const auto& list = Open(two);
    Type(Find<QLineEdit>(list, "txtCash"), u"LIM"_s);
    ExpectList(u"LI"_s, u"1"_s, two);
    Click(Find<QPushButton>(list, "cmdSearch"));
}

TEST_F(frmCashWalkInTest, SearchButtonWithoutAKeyRepeatsTheSearchOfTheAssessment) {
    const auto& list = Open(two);
    ExpectList(u"CRUZ"_s, u"1"_s, {});
    Click(Find<QPushButton>(list, "cmdSearch"));
    EXPECT_EQ(Grid(list).Cells().TextMatrix(1, 3), u""_s);
}

TEST_F(frmCashWalkInTest, NobodyFoundGivesOneBlankRowOutsideTheTabOrderAndNoMessage) {
    const auto& list = Open({});
    const FlexGrid& grid = Grid(list);
    ASSERT_EQ(grid.Cells().Rows(), 2);
    for (int col = 0; col < 6; ++col)
        EXPECT_EQ(grid.Cells().TextMatrix(1, col), u""_s);
    EXPECT_TRUE(messages.Shown().empty());
    const QRect row = grid.CellRect(1, 3).translated(-grid.viewport()->pos());
    EXPECT_EQ(grid.viewport()->grab().toImage().pixelColor(row.center()), QColor(Qt::white))
        << "no mark on it";
    Find<QLineEdit>(list, "txtCash").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Find<QPushButton>(list, "cmdSearch"));
}

TEST_F(frmCashWalkInTest, GridOfHitsIsATabStop) {
    const auto& list = Open(two);
    EXPECT_EQ(QApplication::focusWidget(), &Find<QLineEdit>(list, "txtCash"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Grid(list));
}

TEST_F(frmCashWalkInTest, GridTakenOutOfTheTabOrderStaysOutForThisOpening) {
    const auto& list = Open({});
    ExpectList(u"CRUZ"_s, u"1"_s, two);
    Click(Find<QPushButton>(list, "cmdSearch"));
    EXPECT_EQ(Grid(list).focusPolicy(), Qt::NoFocus);
    Screens::Clear();
    EXPECT_EQ(Grid(Open(two)).focusPolicy(), Qt::TabFocus);
}

TEST_F(frmCashWalkInTest, DoubleClickTakesThePatientIntoTheAssessment) {
    const auto& list = Open(two);
    DoubleClickRow(list, 1);
    EXPECT_EQ(gHospitalNumber, u"100085"_s);
    EXPECT_EQ(gIDNumber, u"104233"_s);
    EXPECT_EQ(assessment.enabled, 1);
    EXPECT_EQ(assessment.boxes, (std::map<QString, QString>{{u"txtSname"_s, u"CRUZ, ANA SY"_s},
                                                            {u"txtHospNum"_s, u"100085"_s},
                                                            {u"txtIdnum"_s, u"104233"_s}}));
    EXPECT_EQ(assessment.order,
              (std::vector<QString>{u"fraExams"_s, u"txtSname"_s, u"txtHospNum"_s, u"txtIdnum"_s}));
    EXPECT_FALSE(Screens::IsLoaded<frmCashWalkIn>());
}

class AnyCashKeyTest : public frmCashWalkInTest, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(Keys, AnyCashKeyTest,
                         testing::Values(Qt::Key_Return, Qt::Key_Space, Qt::Key_X, Qt::Key_Backspace));

TEST_P(AnyCashKeyTest, PicksTheCurrentRow) {
    const auto& list = Open(two);
    Grid(list).Cells().SetRow(2);
    QTest::keyClick(&Grid(list), static_cast<Qt::Key>(GetParam()));
    EXPECT_EQ(assessment.boxes[u"txtSname"_s], u"CRUZ, EVA UY"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmCashWalkIn>());
}

TEST_F(frmCashWalkInTest, EscapeAndCtrlWLeaveAndPickNothing) {
    for (const QKeyCombination keys : {QKeyCombination(Qt::Key_Escape), Qt::CTRL | Qt::Key_W}) {
        const auto& list = Open(two);
        Grid(list).Cells().SetRow(2);
        QTest::keyClick(&Grid(list), keys.key(), keys.keyboardModifiers());
        EXPECT_TRUE(assessment.boxes.empty());
        EXPECT_FALSE(Screens::IsLoaded<frmCashWalkIn>());
    }
}

TEST_F(frmCashWalkInTest, ArrowKeysMoveAndPickNothing) {
    const auto& list = Open(two);
    QTest::keyClick(&Grid(list), Qt::Key_Down);
    EXPECT_EQ(Grid(list).Cells().Row(), 2);
    EXPECT_TRUE(assessment.boxes.empty());
}

struct ClassCase {
    const char* name;
    CashPatient patient;
    bool isLookedUp;
};

class RoomClassTest : public frmCashWalkInTest, public testing::WithParamInterface<ClassCase> {};

INSTANTIATE_TEST_SUITE_P(
    Numbers, RoomClassTest,
    testing::Values(
        ClassCase{"NoIdNumber", {u""_s, u"100085"_s, u"X"_s, {}, u"A1"_s}, false},
        ClassCase{"IdNumberEndsInB", {u"10231B"_s, u"100085"_s, u"X"_s, {}, u"A1"_s}, false},
        ClassCase{"IdNumberEndsInBAndBlanks", {u"10231B  "_s, u"1"_s, u"X"_s, {}, u"A1"_s}, false},
        ClassCase{"HospitalNumberNotNumeric", {u"104"_s, u"W000012"_s, u"X"_s, {}, u"A1"_s}, false},
        ClassCase{"HospitalNumberEmpty", {u"104"_s, u""_s, u"X"_s, {}, u"A1"_s}, false},
        ClassCase{"Admission", {u"104233"_s, u"100085"_s, u"X"_s, {}, u"A1"_s}, true},
        ClassCase{"SmallB", {u"104233b"_s, u"100085"_s, u"X"_s, {}, u"A1"_s}, true},
        ClassCase{"BInTheMiddle", {u"10B233"_s, u"100085"_s, u"X"_s, {}, u"A1"_s}, true},
        ClassCase{"IdNumberOfBlanks", {u"  "_s, u"100085"_s, u"X"_s, {}, u"A1"_s}, true}),
    CaseName());

TEST_P(RoomClassTest, IsThatOfTheRoomForAnAdmissionAndAForEverybodyElse) {
    gRoomClass = u"H"_s;
    DoubleClickRow(Open({GetParam().patient}), 1);
    EXPECT_EQ(gRoomClass, GetParam().isLookedUp ? u"C"_s : u"A"_s);
    EXPECT_EQ(personFinder->validated,
              GetParam().isLookedUp ? std::vector<QString>{u"A1"_s} : std::vector<QString>{});
}

TEST_F(frmCashWalkInTest, AdmissionThatIsNotFoundLeavesTheClassOfThePatientBefore) {
    personFinder->hasAdmission = false;
    gRoomClass = u"F"_s;
    DoubleClickRow(Open(two), 1);
    EXPECT_EQ(personFinder->validated, std::vector<QString>{u"A-104233"_s});
    EXPECT_EQ(gRoomClass, u"F"_s);
    EXPECT_EQ(assessment.boxes[u"txtSname"_s], u"CRUZ, ANA SY"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmCashWalkIn>());
}

TEST_F(frmCashWalkInTest, PatientMasterCannotChangeTheNumberInHand) {
    class Rewriting : public FakePersonFinder {
        bool ValidateAdmission(QString& idNumber) override {
            idNumber = u"CHANGED"_s;
            return false;
        }
    };
    gPersonFinder = std::make_shared<Rewriting>();
    DoubleClickRow(Open(two), 1);
    EXPECT_EQ(gIDNumber, u"104233"_s);
    EXPECT_EQ(assessment.boxes[u"txtIdnum"_s], u"104233"_s);
}

TEST_F(frmCashWalkInTest, AdmissionWithoutARoomFaultsAfterTheBoxesAreFilled) {
    personFinder->admission.Room = {};
    DoubleClickRow(Open(two), 1);
    EXPECT_EQ(TakeFailure(), RunTime::kObjectNotSet);
    EXPECT_EQ(assessment.boxes.size(), 3U);
    EXPECT_TRUE(Screens::IsLoaded<frmCashWalkIn>());
}

TEST_F(frmCashWalkInTest, PickOnTheBlankRowGivesEmptyFieldsAndClassA) {
    for (const bool byKey : {false, true}) {
        gHospitalNumber = gIDNumber = gRoomClass = u"before"_s;
        assessment.boxes = {{u"txtSname"_s, u"before"_s}};
        const auto& list = Open({});
        if (byKey)
            QTest::keyClick(&Grid(list), Qt::Key_Space);
        else
            DoubleClickRow(list, 1);
        EXPECT_EQ(gHospitalNumber, u""_s);
        EXPECT_EQ(gIDNumber, u""_s);
        EXPECT_EQ(assessment.boxes,
                  (std::map<QString, QString>{
                      {u"txtSname"_s, u""_s}, {u"txtHospNum"_s, u""_s}, {u"txtIdnum"_s, u""_s}}));
        EXPECT_EQ(gRoomClass, u"A"_s);
        EXPECT_TRUE(personFinder->validated.empty());
        EXPECT_FALSE(Screens::IsLoaded<frmCashWalkIn>());
    }
}

TEST_F(frmCashWalkInTest, CloseChangesNothing) {
    gHospitalNumber = u"H"_s;
    gRoomClass = u"F"_s;
    Click(Find<QPushButton>(Open(two), "Command1"));
    EXPECT_FALSE(Screens::IsLoaded<frmCashWalkIn>());
    EXPECT_EQ(gHospitalNumber, u"H"_s);
    EXPECT_EQ(gRoomClass, u"F"_s);
    EXPECT_TRUE(assessment.order.empty());
}

TEST_F(frmCashWalkInTest, RegisterClosesTheListAndShowsTheRegistrationModally) {
    assessment.typeOn = 2;
    const auto& list = Open(two);
    bool seen = false;
    WhileModal([&](Form& screen) {
        seen = true;
        EXPECT_NE(dynamic_cast<frmCashWalkInPatient*>(&screen), nullptr);
        EXPECT_TRUE(screen.IsModal());
        EXPECT_FALSE(Screens::IsLoaded<frmCashWalkIn>());
    });
    Click(Find<QPushButton>(list, "cmdRegister"));
    EXPECT_TRUE(seen);
    EXPECT_FALSE(Screens::IsLoaded<frmCashWalkIn>());
    EXPECT_FALSE(Screens::IsLoaded<frmCashWalkInPatient>());
}

TEST_F(frmCashWalkInTest, RegisteredWalkInIsPickedAndTheWaitingScreenHasItsFocusBack) {
    assessment.typeOn = 2;
    auto& waiting = Screens::Get<Form>();
    auto* name = new QLineEdit(&waiting);
    waiting.Show();
    Activate(waiting);
    name->setFocus();
    ExpectList(u"CRUZ"_s, u"3"_s, {});
    WhileModal([&](Form& list) {
        WhileModal([&](Form& registration) {
            Find<QLineEdit>(registration, "txtInfo(0)").setText(u"LIM"_s);
            gateway.Expect(EarCareAddCashPatientCommand(NameAlone(u"LIM"_s)));
            ExpectList(u"LIM"_s, u"3"_s, {{u""_s, u"W000026"_s, u"LIM,"_s}});
            WhileModal([&](Form& again) {
                EXPECT_NE(&again, &list);
                DoubleClickRow(again, 1);
            });
            Click(Find<QPushButton>(registration, "cmdOption(0)"));
        });
        Click(Find<QPushButton>(list, "cmdRegister"));
    });
    Screens::Get<frmCashWalkIn>().ShowModal();
    EXPECT_EQ(assessment.boxes[u"txtHospNum"_s], u"W000026"_s);
    EXPECT_EQ(Form::Active(), &waiting);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    RunEvents();
    EXPECT_EQ(QApplication::focusWidget(), name);
}
