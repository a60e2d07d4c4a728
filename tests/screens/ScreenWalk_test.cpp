#include "screens/ScreenWalk.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/ScreenTest.h"
#include "toolkit/Controls.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <gmock/gmock.h>
#include <ostream>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A screen with two labelled inputs, a frame, a button and a timer, and the section that tells it.
class SmallScreen : public QWidget {
  public:
    SmallScreen() {
        setWindowTitle(u"Small"_s);
        frame->setObjectName(u"fraA"_s);
        combo->setObjectName(u"cmbA"_s);
        combo->addItems({u"One"_s});
        button->setObjectName(u"cmdA"_s);
        timer->setObjectName(u"tmrA"_s);
        timer->setInterval(250);
        AddLabelled(*grid, 0, 0, u"A :"_s, box);
        AddLabelled(*grid, 1, 0, u"B"_s, combo);
        grid->addWidget(frame, 2, 0);
        grid->addWidget(button, 3, 0);
        Activate(*this);
    }

    /// The label before the box.
    QLabel* LabelOfBox() { return findChildren<QLabel*>().at(0); }

    QGridLayout* grid = new QGridLayout(this);
    QLineEdit* box = NewTextBox(u"txtA"_s, this);
    QComboBox* combo = new QComboBox(this);
    QGroupBox* frame = new QGroupBox(u"Frame"_s, this);
    QPushButton* button = new QPushButton(u"&Go"_s, this);
    QTimer* timer = new QTimer(this);
};

ScreenSection Section() {
    ScreenSection section;
    section.name = "frmSmall";
    section.title = u"Small"_s;
    section.rows = {
        {u"txtA"_s, u"text box"_s, u"A :"_s, true, true, true, 2},
        {u"cmbA"_s, u"combo"_s, u"B"_s, true, true, true, 3},
        {u"fraA"_s, u"frame"_s, u"Frame"_s, true, true, false, 4},
        {u"cmdA"_s, u"button"_s, u"&Go"_s, true, true, true, 5},
        {u"tmrA"_s, u"timer"_s, u"250 ms"_s, std::nullopt, false, false, 6},
        {QString(), u"label"_s, u"B"_s, true, true, false, 7},
    };
    return section;
}

struct Change {
    std::string name;
    std::function<void(SmallScreen&)> change;
    QStringList faults;
};

void PrintTo(const Change& change, std::ostream* out) {
    *out << change.name;
}

class ScreenWalkTest : public ScreenTest, public testing::WithParamInterface<Change> {};

std::vector<Change> Changes() {
    return {
        {"Nothing", [](SmallScreen&) {}, {}},
        {"AnotherTitle",
         [](SmallScreen& s) { s.setWindowTitle(u"X"_s); },
         {u"the title is \"X\", not \"Small\""_s}},
        {"AnotherCaption",
         [](SmallScreen& s) { s.button->setText(u"Go"_s); },
         {u"line 5: cmdA: says \"Go\", not \"&Go\""_s}},
        {"AnotherInterval",
         [](SmallScreen& s) { s.timer->setInterval(50); },
         {u"line 6: tmrA: says \"50 ms\", not \"250 ms\""_s}},
        {"AnotherLabel",
         [](SmallScreen& s) { s.LabelOfBox()->setText(u"A:"_s); },
         {u"line 2: txtA: its label says \"A:\", not \"A :\""_s}},
        {"ALabelOfNobody",
         [](SmallScreen& s) { s.LabelOfBox()->setBuddy(nullptr); },
         {u"line 2: txtA: no label is its own; \"A :\" is wanted"_s}},
        {"AHiddenLabel",
         [](SmallScreen& s) { s.LabelOfBox()->hide(); },
         {u"line 2: txtA: its label is not seen where it is, or the other way round"_s}},
        {"AnInputReadOutOtherwise",
         [](SmallScreen& s) { s.combo->setAccessibleName(u"C"_s); },
         {u"line 3: cmbA: is read out as \"C\", not as its label"_s}},
        {"AButtonThatSaysNothing",
         [](SmallScreen& s) { s.button->setAccessibleName(u"..."_s); },
         {u"cmdA: read out as \"...\", which says nothing"_s}},
        {"AHiddenControl",
         [](SmallScreen& s) { s.frame->hide(); },
         {u"line 4: fraA: visible is no, not yes"_s}},
        {"ADisabledControl",
         [](SmallScreen& s) { s.frame->setEnabled(false); },
         {u"line 4: fraA: enabled is no, not yes"_s}},
        {"ARunningTimer",
         [](SmallScreen& s) {
             s.timer->start(100000);
             s.timer->setInterval(250);
         },
         {u"line 6: tmrA: enabled is yes, not no"_s}},
        {"AControlOfAnotherName",
         [](SmallScreen& s) { s.frame->setObjectName(u"fraB"_s); },
         {u"line 4: fraA: 0 controls of that name and kind"_s}},
        {"AControlTwice",
         [](SmallScreen& s) { (new QGroupBox(&s))->setObjectName(u"fraA"_s); },
         {u"line 4: fraA: 2 controls of that name and kind"_s}},
        {"AnUnnamedLabelOfAnotherText",
         [](SmallScreen& s) { s.findChildren<QLabel*>().at(1)->setText(u"X"_s); },
         {u"line 3: cmbA: its label says \"X\", not \"B\""_s,
          u"line 7: \"B\": 0 controls of that name and kind"_s}},
        {"AControlThatTheTableLacks",
         [](SmallScreen& s) {
             auto* more = new QPushButton(u"More"_s, &s);
             more->setObjectName(u"cmdB"_s);
             more->setFocusPolicy(Qt::NoFocus);
         },
         {u"cmdB: not in the table"_s}},
        {"AnInputWithoutAName",
         [](SmallScreen& s) { (new QPushButton(&s))->setFocusPolicy(Qt::NoFocus); },
         {u"an input without a name, read out as \"\""_s, u": read out as \"\", which says nothing"_s}},
        {"ABoxOfAnotherMake",
         [](SmallScreen& s) {
             auto* more = new QLineEdit(&s);
             more->setObjectName(u"txtB"_s);
             more->setAccessibleName(u"More"_s);
             more->setFocusPolicy(Qt::NoFocus);
         },
         {u"txtB: not in the table"_s, u"txtB: a box that takes what is pasted as it is"_s}},
        {"AnotherTabOrder",
         [](SmallScreen& s) { QWidget::setTabOrder(s.combo, s.box); },
         {u"Tab goes txtA, cmdA, cmbA, not txtA, cmbA, cmdA"_s}},
        {"AnInputThatTabPassesBy",
         [](SmallScreen& s) { s.combo->setFocusPolicy(Qt::ClickFocus); },
         {u"Tab goes txtA, cmdA, not txtA, cmbA, cmdA"_s}},
    };
}

TEST_P(ScreenWalkTest, IsFound) {
    SmallScreen screen;
    GetParam().change(screen);
    EXPECT_EQ(ScreenWalk(screen, Section()).Faults(), GetParam().faults);
}

INSTANTIATE_TEST_SUITE_P(ScreenWalk, ScreenWalkTest, testing::ValuesIn(Changes()), CaseName());

using ScreenWalkCells = ScreenTest;

TEST_F(ScreenWalkCells, ControlsAreOnlyLookedUp) {
    SmallScreen screen;
    screen.button->setText(u"Come"_s);
    screen.button->hide();
    ScreenSection section = Section();
    std::erase_if(section.rows, [](const ControlRow& row) { return row.name == u"cmdA"_s; });
    section.own = {u"cmdA"_s};
    EXPECT_THAT(ScreenWalk(screen, section).Faults(), IsEmpty());
    section.own << u"cmdB"_s;
    EXPECT_THAT(ScreenWalk(screen, section).Faults(), ElementsAre(u"cmdB: no control of that name"_s));
}

TEST_F(ScreenWalkCells, AnInputThatTabShouldPassByIsFound) {
    SmallScreen screen;
    ScreenSection section = Section();
    section.rows[1].isTabStop = false;
    EXPECT_THAT(ScreenWalk(screen, section).Faults(),
                ElementsAre(u"Tab goes txtA, cmbA, cmdA, not txtA, cmdA"_s));
}

TEST_F(ScreenWalkCells, WordsLeftOpenAreNotCompared) {
    SmallScreen screen;
    ScreenSection section = Section();
    section.title.reset();
    for (ControlRow& row : section.rows)
        row.visible = row.enabled = row.isTabStop = std::nullopt;
    section.rows[2].caption.reset();
    screen.setWindowTitle(u"X"_s);
    screen.frame->setTitle(u"X"_s);
    screen.frame->setEnabled(false);
    screen.frame->hide();
    screen.combo->setFocusPolicy(Qt::ClickFocus);
    EXPECT_THAT(ScreenWalk(screen, section).Faults(), IsEmpty());
}

} // namespace
