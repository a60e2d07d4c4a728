#include "suite/PickDialog.h"
#include "support/CaseName.h"
#include "support/ScreenTest.h"
#include "text/RunTimeError.h"
#include "toolkit/ListView.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kColumns = {GridColumn{u"Code", 1000, u"DoctorID"},
                                 GridColumn{u"Last Name", 2200, u"LastName"},
                                 GridColumn{u"First Name", 2200, u"FirstName"}};

std::shared_ptr<const RowData> Doctors() {
    return Rows({u"DoctorID"_s, u"LastName"_s, u"FirstName"_s, u"Specialty"_s},
                {{u"D001"_s, u"ALCARAZ"_s, u"ROBERTO"_s, u"SURGERY"_s},
                 {u"D003"_s, u"CASTAÑEDA"_s, u"LUIS"_s, u"NEPHROLOGY"_s},
                 {u"D004"_s, u"DELA CRUZ"_s, u"ANTONIO"_s, u"NEPHROLOGY"_s},
                 {u"D005"_s, u"DELA CRUZ"_s, u"MARIA"_s, Value()},
                 {u"D009"_s, u"CRUZ"_s, u"DELIA"_s, u"NEPHROLOGY"_s}});
}

class PickDialogTest : public ScreenTest {
  protected:
    PickDialog& Open(const QString& text = {}) {
        dialog = std::make_unique<PickDialog>(u"Doctors"_s, kColumns, Doctors(), text);
        Activate(*dialog);
        return *dialog;
    }

    QLineEdit& Box() const { return Find<QLineEdit>(*dialog, "txtPick"); }
    ListView& List() const { return Find<ListView>(*dialog, "lstPick"); }

    QStringList Codes() const {
        QStringList codes;
        for (int row = 0; row < List().RowCount(); ++row)
            codes.push_back(List().model()->index(row, 0).data().toString());
        return codes;
    }

    std::unique_ptr<PickDialog> dialog;
};

const QStringList kAll = {u"D001"_s, u"D003"_s, u"D004"_s, u"D005"_s, u"D009"_s};

TEST_F(PickDialogTest, ShowsAllRowsUnderItsColumnsAndBeginsInTheSearchBox) {
    Open();
    EXPECT_EQ(dialog->windowTitle(), u"Doctors"_s);
    EXPECT_EQ(Codes(), kAll);
    EXPECT_EQ(List().model()->columnCount(), 3);
    EXPECT_EQ(List().model()->headerData(1, Qt::Horizontal).toString(), u"Last Name"_s);
    EXPECT_TRUE(Box().hasFocus());
}

TEST_F(PickDialogTest, AnEnterThatComesTooEarlyPicksNothingWhereNothingWasKeyedOrNothingMatched) {
    for (const QString& text : {QString(), u"  "_s, u"QQ"_s}) {
        Open(text);
        EXPECT_FALSE(List().currentIndex().isValid()) << text.toStdString();
        EXPECT_FALSE(Find<QPushButton>(*dialog, "cmdPick").isEnabled());
        Press(Box(), Qt::Key_Return);
        EXPECT_TRUE(dialog->isVisible()) << text.toStdString();
        Press(Box(), Qt::Key_Down);
        EXPECT_EQ(List().CurrentText(0), u"D001"_s) << "the first arrow marks the first row";
        Press(Box(), Qt::Key_Return);
        EXPECT_EQ(dialog->result(), QDialog::Accepted);
        EXPECT_EQ(dialog->PickedRow(), 0U);
    }
}

TEST_F(PickDialogTest, ATextThatIsTakenBackTakesTheMarkBackToo) {
    Open(u"MARIA"_s);
    EXPECT_EQ(List().CurrentText(0), u"D005"_s);
    Box().selectAll();
    Press(Box(), Qt::Key_Backspace);
    EXPECT_EQ(Codes(), kAll);
    EXPECT_FALSE(List().currentIndex().isValid());
}

TEST_F(PickDialogTest, TheListMarksItsFirstRowWhenTheClerkComesToIt) {
    Open(u"QQ"_s);
    Press(Box(), Qt::Key_Tab);
    ASSERT_TRUE(List().hasFocus());
    EXPECT_EQ(List().CurrentText(0), u"D001"_s);
    EXPECT_TRUE(List().selectionModel()->isRowSelected(0));
}

struct SearchCase {
    const char* name;
    QString text;
    QStringList codes;
};

class PickSearch : public PickDialogTest, public testing::WithParamInterface<SearchCase> {};

TEST_P(PickSearch, OffersTheseRowsInThisOrder) {
    Open();
    Type(Box(), GetParam().text);
    EXPECT_EQ(Codes(), GetParam().codes);
}

TEST_P(PickSearch, TheFirstTextSearchesTheSameWay) {
    Open(GetParam().text);
    EXPECT_EQ(Codes(), GetParam().codes.isEmpty() ? kAll : GetParam().codes);
    EXPECT_EQ(Box().text(), GetParam().text);
    EXPECT_EQ(Box().selectedText(), GetParam().text) << "it is marked for typing over";
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PickSearch,
    testing::Values(SearchCase{"BeginningsBeforeWords", u"CRUZ"_s, {u"D009"_s, u"D004"_s, u"D005"_s}},
                    SearchCase{"AnyColumn", u"MARIA"_s, {u"D005"_s}}, SearchCase{"TheCode", u"D00"_s, kAll},
                    SearchCase{"SeveralWordsInAnyOrder", u"MARIA DELA"_s, {u"D005"_s}},
                    SearchCase{"TwoWordsAsTheyStand", u"DELA CRUZ"_s, {u"D004"_s, u"D005"_s}},
                    SearchCase{"PartsOfWords", u"ELA RUZ"_s, {u"D004"_s, u"D005"_s}},
                    SearchCase{"LowerCase", u"castañeda"_s, {u"D003"_s}},
                    SearchCase{"ColumnsThatAreNotShownDoNotCount", u"NEPHROLOGY"_s, {}},
                    SearchCase{"Nothing", u"ZZZ"_s, {}}),
    CaseName());

TEST_F(PickDialogTest, TypedLettersAreUpperCase) {
    Open();
    Type(Box(), u"castañ"_s);
    EXPECT_EQ(Box().text(), u"CASTAÑ"_s);
}

TEST_F(PickDialogTest, UpAndDownMoveTheMarkWhileTheTextKeepsTheFocus) {
    Open(u"D00"_s);
    Press(Box(), Qt::Key_Up);
    EXPECT_EQ(List().CurrentText(0), u"D001"_s);
    Press(Box(), Qt::Key_Down);
    Press(Box(), Qt::Key_Down);
    EXPECT_EQ(List().CurrentText(0), u"D004"_s);
    Press(Box(), Qt::Key_Up);
    EXPECT_EQ(List().CurrentText(0), u"D003"_s);
    for (int i = 0; i < 9; ++i)
        Press(Box(), Qt::Key_Down);
    EXPECT_EQ(List().CurrentText(0), u"D009"_s);
    EXPECT_TRUE(Box().hasFocus());
}

TEST_F(PickDialogTest, EnterTakesTheMarkedRowOfTheDataGiven) {
    Open();
    Type(Box(), u"CRUZ"_s);
    Press(Box(), Qt::Key_Down);
    Press(Box(), Qt::Key_Return);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(dialog->PickedRow(), 2U) << "the second of the found rows is the third of all";
}

TEST_F(PickDialogTest, EnterAndDoubleClickInTheListAndTheButtonTakeTheRowToo) {
    Open(u"MARIA"_s);
    List().setFocus();
    Press(List(), Qt::Key_Return);
    EXPECT_EQ(dialog->PickedRow(), 3U);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    Open(u"MARIA"_s);
    DoubleClick(*List().viewport(), QPoint(10, 10));
    EXPECT_EQ(dialog->PickedRow(), 3U);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    Open(u"MARIA"_s);
    Click(Find<QPushButton>(*dialog, "cmdPick"));
    EXPECT_EQ(dialog->PickedRow(), 3U);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(PickDialogTest, EscapeAndCancelGiveUp) {
    Open();
    Press(Box(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    Open();
    Click(Find<QPushButton>(*dialog, "cmdCancel"));
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
}

TEST_F(PickDialogTest, WithoutAFoundRowNothingCanBeTaken) {
    Open();
    Type(Box(), u"ZZZ"_s);
    EXPECT_FALSE(Find<QPushButton>(*dialog, "cmdPick").isEnabled());
    Press(Box(), Qt::Key_Return);
    Press(Box(), Qt::Key_Down);
    EXPECT_TRUE(dialog->isVisible());
    Press(Box(), Qt::Key_Backspace);
    Press(Box(), Qt::Key_Backspace);
    Press(Box(), Qt::Key_Backspace);
    Press(Box(), Qt::Key_Down);
    EXPECT_TRUE(Find<QPushButton>(*dialog, "cmdPick").isEnabled());
}

TEST_F(PickDialogTest, AnEmptyResultOffersNothing) {
    dialog = std::make_unique<PickDialog>(u"Doctors"_s, kColumns,
                                          Rows({u"DoctorID"_s, u"LastName"_s, u"FirstName"_s}), u"A"_s);
    Activate(*dialog);
    EXPECT_EQ(Codes(), QStringList());
    EXPECT_FALSE(Find<QPushButton>(*dialog, "cmdPick").isEnabled());
}

TEST_F(PickDialogTest, AResultWithoutOneOfTheColumnsRaises3265) {
    try {
        PickDialog(u"Doctors"_s, kColumns, Rows({u"DoctorID"_s}), QString());
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 3265);
    }
}

TEST_F(PickDialogTest, AnyRowMatchesTellsWhetherTheListWouldFindSomething) {
    EXPECT_TRUE(AnyRowMatches(*Doctors(), kColumns, u"dela maria"_s));
    EXPECT_FALSE(AnyRowMatches(*Doctors(), kColumns, u"dela luis"_s));
    EXPECT_FALSE(AnyRowMatches(*Rows({u"DoctorID"_s, u"LastName"_s, u"FirstName"_s}), kColumns, u"A"_s));
}

} // namespace
