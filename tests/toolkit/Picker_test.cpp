#include "support/CaseName.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/Picker.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>
#include <set>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A window with a search box, a list of three rows and a button that picks; what happens is noted.
class PickerTest : public ScreenTest {
  protected:
    PickerTest()
        : box(new QLineEdit(&window))
        , list(new FlexGrid(&window))
        , button(new QPushButton(&window)) {
        auto* layout = new QVBoxLayout(&window);
        for (QWidget* control : QList<QWidget*>{box, list, button})
            layout->addWidget(control);
        list->Cells().Bind(Rows({u"Name"_s}, {{u"CRUZ"_s}, {u"DIAZ"_s}, {u"REYES"_s}}));
        list->Cells().SetRow(2);
        window.resize(600, 400);
        box->setFocus();
        Activate(window);
    }

    /// A picker over the three controls, which notes what it does.
    Picker Noting() {
        return {.list = list,
                .pick = [this] { events += u"pick "_s + list->CurrentText(1); },
                .button = button,
                .box = box,
                .enter = [this] { events += u"search "_s + box->text(); }};
    }

    void DoubleClickRow(int row) {
        QWidget& rows = *list->viewport();
        DoubleClick(rows, list->CellRect(row, 1).center() - rows.pos());
    }

    QWidget window;
    QLineEdit* box;
    FlexGrid* list;
    QPushButton* button;
    QStringList events;
};

TEST_F(PickerTest, EnterInTheBoxSearchesForItsTextInCapitals) {
    WirePicker(Noting());
    Type(*box, u"cruñ"_s);
    EXPECT_EQ(events, QStringList());
    Press(*box, Qt::Key_Return);
    EXPECT_EQ(events, QStringList(u"search CRUÑ"_s));
}

TEST_F(PickerTest, AKeyThatIsHeldDownPicksNothingAndMovesOn) {
    Picker picker = Noting();
    picker.keys = PickKeys::Any;
    WirePicker(picker);
    list->setFocus();
    for (const auto& [key, text] : {std::pair(Qt::Key_Return, u"\r"_s), std::pair(Qt::Key_A, u"a"_s)}) {
        QKeyEvent repeat(QEvent::KeyPress, key, Qt::NoModifier, text, true);
        QApplication::sendEvent(list, &repeat);
    }
    EXPECT_EQ(events, QStringList());
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(list, &down);
    Press(*list, Qt::Key_Return);
    EXPECT_EQ(events, QStringList(u"pick REYES"_s));
}

TEST_F(PickerTest, ABoxWithoutCapitalsKeepsItsLetters) {
    Picker picker = Noting();
    picker.capitals = false;
    WirePicker(picker);
    Type(*box, u"cru"_s);
    Press(*box, Qt::Key_Return);
    EXPECT_EQ(events, QStringList(u"search cru"_s));
}

TEST_F(PickerTest, ABoxThatSearchesForNothingTakesEnterAndGoesOn) {
    Picker picker = Noting();
    picker.enter = {};
    WirePicker(picker);
    Press(*box, Qt::Key_Return);
    EXPECT_EQ(events, QStringList());
}

TEST_F(PickerTest, DownLeadsFromTheBoxToTheRowThatIsCurrent) {
    WirePicker(Noting());
    Press(*box, Qt::Key_Down);
    EXPECT_TRUE(list->hasFocus());
    EXPECT_EQ(list->Cells().Row(), 2);
}

TEST_F(PickerTest, DownLeadsToTheRowThatIsMarkedFirst) {
    Picker picker = Noting();
    picker.markFirst = [this] { list->Cells().SetRow(1); };
    WirePicker(picker);
    Press(*box, Qt::Key_Down);
    EXPECT_TRUE(list->hasFocus());
    EXPECT_EQ(list->Cells().Row(), 1);
}

TEST_F(PickerTest, DownStaysInTheBoxWhereItDoesNotLeadOn) {
    Picker picker = Noting();
    picker.downToList = false;
    WirePicker(picker);
    Press(*box, Qt::Key_Down);
    EXPECT_TRUE(box->hasFocus());
}

TEST_F(PickerTest, UpStaysInTheBox) {
    WirePicker(Noting());
    Press(*box, Qt::Key_Up);
    EXPECT_TRUE(box->hasFocus());
}

TEST_F(PickerTest, AListWithoutABoxPicksAllTheSame) {
    Picker picker = Noting();
    picker.box = nullptr;
    WirePicker(picker);
    list->setFocus();
    Press(*list, Qt::Key_Return);
    Type(*box, u"cru"_s);
    EXPECT_EQ(box->text(), u"cru"_s);
    EXPECT_EQ(events, QStringList(u"pick DIAZ"_s));
}

TEST_F(PickerTest, ADoubleClickPicksItsRowWhateverTheKeysDo) {
    for (const PickKeys keys : {PickKeys::None, PickKeys::Enter, PickKeys::Any}) {
        Picker picker = Noting();
        picker.list = new FlexGrid(&window);
        picker.list->setFixedSize(200, 80);
        picker.keys = keys;
        int picked = 0;
        picker.pick = [&picked] { ++picked; };
        picker.box = nullptr;
        WirePicker(picker);
        picker.list->show();
        DoubleClick(*picker.list->viewport(), QPoint(40, 40));
        EXPECT_EQ(picked, 1);
    }
}

TEST_F(PickerTest, NothingIsPickedWhileTheButtonIsDisabled) {
    WirePicker(Noting());
    button->setEnabled(false);
    DoubleClickRow(3);
    Press(*list, Qt::Key_Return);
    EXPECT_EQ(events, QStringList());
    button->setEnabled(true);
    DoubleClickRow(3);
    Press(*list, Qt::Key_Return);
    EXPECT_EQ(events, (QStringList{u"pick REYES"_s, u"pick REYES"_s}));
}

TEST_F(PickerTest, WithoutAButtonItAlwaysPicks) {
    Picker picker = Noting();
    picker.button = nullptr;
    WirePicker(picker);
    button->setEnabled(false);
    DoubleClickRow(1);
    EXPECT_EQ(events, QStringList(u"pick CRUZ"_s));
}

struct PickKeysCase {
    const char* name;
    PickKeys keys;
    std::set<Qt::Key> picking;
};

class PickerKeysTest : public PickerTest, public testing::WithParamInterface<PickKeysCase> {};

TEST_P(PickerKeysTest, TheseKeysOfTheListPick) {
    Picker picker = Noting();
    picker.keys = GetParam().keys;
    WirePicker(picker);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_A, Qt::Key_Space, Qt::Key_Backspace,
                              Qt::Key_Escape, Qt::Key_Home}) {
        events.clear();
        list->setFocus();
        Press(*list, key);
        EXPECT_EQ(events.size(), GetParam().picking.contains(key) ? 1 : 0) << key;
    }
}

INSTANTIATE_TEST_SUITE_P(Lists, PickerKeysTest,
                         testing::Values(PickKeysCase{"None", PickKeys::None, {}},
                                         PickKeysCase{
                                             "Enter", PickKeys::Enter, {Qt::Key_Return, Qt::Key_Enter}},
                                         PickKeysCase{"Any",
                                                      PickKeys::Any,
                                                      {Qt::Key_Return, Qt::Key_Enter, Qt::Key_A,
                                                       Qt::Key_Space, Qt::Key_Backspace}}),
                         CaseName());

TEST_F(PickerTest, TheKeysThatWidenAColumnPickNothing) {
    Picker picker = Noting();
    picker.keys = PickKeys::Any;
    WirePicker(picker);
    list->setFocus();
    const int before = list->columnWidth(list->currentIndex().column());
    QKeyEvent widen(QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier, u"+"_s);
    QCoreApplication::sendEvent(list, &widen);
    EXPECT_EQ(events, QStringList());
    EXPECT_GT(list->columnWidth(list->currentIndex().column()), before);
}

/// Notes the keys that reach it.
class HearingList : public FlexGrid {
  public:
    using FlexGrid::FlexGrid;

    std::vector<int> keys;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        keys.push_back(event->key());
        event->accept();
    }
};

TEST_F(PickerTest, TheEnterThatPicksGoesOnUnlessItIsKept) {
    for (const bool keeps : {false, true}) {
        auto* hearing = new HearingList(&window);
        hearing->show();
        WirePicker({.list = hearing, .pick = [] {}, .keepsEnter = keeps});
        hearing->setFocus();
        Press(*hearing, Qt::Key_Return);
        Press(*hearing, Qt::Key_A);
        EXPECT_EQ(hearing->keys.size(), keeps ? 1U : 2U);
        EXPECT_EQ(hearing->keys.back(), Qt::Key_A);
    }
}

TEST_F(PickerTest, HandlersOfTheBoxThatAreAddedBehindItDoNotHearOfTheDown) {
    WirePicker(Noting());
    std::vector<int> heard;
    OnKeyDown(box, [&heard](int keyCode) {
        heard.push_back(keyCode);
        return false;
    });
    Press(*box, Qt::Key_Return);
    Press(*box, Qt::Key_Down);
    EXPECT_EQ(heard, std::vector<int>{Key::kEnter});
}

} // namespace
