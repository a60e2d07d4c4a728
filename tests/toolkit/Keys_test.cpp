#include "support/CaseName.h"
#include "support/ScreenTest.h"
#include "toolkit/Keys.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A window with a text box and one behind it.
class KeysTest : public ScreenTest {
  protected:
    KeysTest()
        : box(new QLineEdit(&window))
        , next(new QLineEdit(&window)) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        layout->addWidget(next);
        box->setFocus();
        Activate(window);
    }

    void RecordPresses() {
        OnKeyPress(box, [this](int& key) { presses.push_back(key); });
    }

    void RecordDowns() {
        OnKeyDown(box, [this](int key) {
            downs.push_back(key);
            return false;
        });
    }

    void Compose(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(box, &event);
    }

    QWidget window;
    QLineEdit* box;
    QLineEdit* next;
    std::vector<int> presses;
    std::vector<int> downs;
};

TEST_F(KeysTest, UpperCaseKeysTurnsEachKeyIntoItsUpperCaseForm) {
    UpperCaseKeys(box);
    Type(*box, u"peña 3é"_s);
    EXPECT_EQ(box->text(), u"PEÑA 3É"_s);
}

TEST_F(KeysTest, UpperCaseKeysTurnsComposedTextTooAndEditingKeysGoOnWorking) {
    UpperCaseKeys(box);
    Compose(u"mañ"_s);
    EXPECT_EQ(box->text(), u"MAÑ"_s);
    Press(*box, Qt::Key_Backspace);
    Press(*box, Qt::Key_Home);
    Press(*box, Qt::Key_Delete);
    EXPECT_EQ(box->text(), u"A"_s);
}

TEST_F(KeysTest, ATextSetByTheProgramIsLeftAlone) {
    UpperCaseKeys(box);
    box->setText(u"peña"_s);
    EXPECT_EQ(box->text(), u"peña"_s);
}

TEST_F(KeysTest, ZeroSwallowsTheKey) {
    OnKeyPress(box, [](int& key) {
        if (key == u'x')
            key = 0;
    });
    Type(*box, u"axb"_s);
    Compose(u"1x2"_s);
    EXPECT_EQ(box->text(), u"ab12"_s);
}

TEST_F(KeysTest, AComposedTextSwallowedWholeLeavesNothing) {
    OnKeyPress(box, [](int& key) { key = 0; });
    Compose(u"abc"_s);
    EXPECT_EQ(box->text(), QString());
}

TEST_F(KeysTest, AnotherCharacterMayTakeTheKeysPlace) {
    OnKeyPress(box, [](int& key) {
        if (key == u',')
            key = u'.';
    });
    Type(*box, u"1,5"_s);
    EXPECT_EQ(box->text(), u"1.5"_s);
}

TEST_F(KeysTest, HandlersRunInTheOrderInWhichTheyWereAdded) {
    UpperCaseKeys(box);
    RecordPresses();
    Type(*box, u"a"_s);
    EXPECT_EQ(presses, std::vector<int>{u'A'});
}

TEST_F(KeysTest, EachControlHasItsOwnHandlers) {
    UpperCaseKeys(box);
    RecordPresses();
    next->setFocus();
    Type(*next, u"a"_s);
    EXPECT_EQ(next->text(), u"a"_s);
    EXPECT_EQ(presses, std::vector<int>());
}

TEST_F(KeysTest, TheControlGetsTheKeyAfterTheHandler) {
    QString seen = u"unset"_s;
    OnKeyPress(box, [this, &seen](int&) { seen = box->text(); });
    Type(*box, u"a"_s);
    EXPECT_EQ(seen, QString());
    EXPECT_EQ(box->text(), u"a"_s);
}

TEST_F(KeysTest, KeyDownComesBeforeKeyPress) {
    QStringList order;
    OnKeyPress(box, [&order](int& key) { order.push_back(u"press %1"_s.arg(key)); });
    OnKeyDown(box, [&order](int key) {
        order.push_back(u"down %1"_s.arg(key));
        return false;
    });
    Press(*box, Qt::Key_Return);
    EXPECT_EQ(order, (QStringList{u"down 13"_s, u"press 13"_s}));
}

TEST_F(KeysTest, AKeyThatKeyDownKeepsReachesNobodyElse) {
    RecordPresses();
    OnKeyDown(box, [](int) { return true; });
    Type(*box, u"a"_s);
    EXPECT_EQ(presses, std::vector<int>());
    EXPECT_EQ(box->text(), QString());
}

TEST_F(KeysTest, EachComposedCharacterReachesKeyDownBeforeKeyPress) {
    QStringList order;
    OnKeyPress(box, [&order](int& key) { order.push_back(u"press %1"_s.arg(QChar(key))); });
    OnKeyDown(box, [&order](int key) {
        order.push_back(u"down %1"_s.arg(key));
        return false;
    });
    Compose(u"éñ"_s);
    EXPECT_EQ(order, (QStringList{u"down 0"_s, u"press é"_s, u"down 0"_s, u"press ñ"_s}));
    EXPECT_EQ(box->text(), u"éñ"_s);
}

TEST_F(KeysTest, AComposedTextThatIsNotCommittedYetReachesNoHandler) {
    RecordPresses();
    RecordDowns();
    QInputMethodEvent event(u"´"_s, {});
    QCoreApplication::sendEvent(box, &event);
    EXPECT_EQ(presses, std::vector<int>());
    EXPECT_EQ(downs, std::vector<int>());
}

TEST_F(KeysTest, AComposedCharacterThatKeyDownKeepsReachesNobodyElse) {
    RecordPresses();
    OnKeyDown(box, [](int) { return true; });
    Compose(u"é"_s);
    EXPECT_EQ(presses, std::vector<int>());
    EXPECT_EQ(box->text(), QString());
}

struct KeyCase {
    const char* name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    std::vector<int> presses;
    std::vector<int> downs;
};

class KeyCodes : public KeysTest, public testing::WithParamInterface<KeyCase> {};

TEST_P(KeyCodes, AreThese) {
    RecordPresses();
    RecordDowns();
    Press(*box, GetParam().key, GetParam().modifiers);
    EXPECT_EQ(presses, GetParam().presses);
    EXPECT_EQ(downs, GetParam().downs);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, KeyCodes,
    testing::Values(
        KeyCase{"Enter", Qt::Key_Return, Qt::NoModifier, {13}, {13}},
        KeyCase{"EnterOfTheNumberPad", Qt::Key_Enter, Qt::KeypadModifier, {13}, {13}},
        KeyCase{"Escape", Qt::Key_Escape, Qt::NoModifier, {27}, {0}},
        KeyCase{"Backspace", Qt::Key_Backspace, Qt::NoModifier, {8}, {0}},
        KeyCase{"Letter", Qt::Key_A, Qt::NoModifier, {u'a'}, {0}},
        KeyCase{"Blank", Qt::Key_Space, Qt::NoModifier, {u' '}, {0}},
        KeyCase{"Digit", Qt::Key_7, Qt::NoModifier, {u'7'}, {0}},
        KeyCase{"UpIsNoCharacter", Qt::Key_Up, Qt::NoModifier, {}, {38}},
        KeyCase{"DownIsNoCharacter", Qt::Key_Down, Qt::NoModifier, {}, {40}},
        KeyCase{"LeftIsNoCharacter", Qt::Key_Left, Qt::NoModifier, {}, {0}},
        KeyCase{"FunctionKeyIsNoCharacter", Qt::Key_F5, Qt::NoModifier, {}, {0}},
        KeyCase{"ShiftIsNoCharacter", Qt::Key_Shift, Qt::NoModifier, {}, {0}},
        KeyCase{"DeleteIsNoCharacter", Qt::Key_Delete, Qt::NoModifier, {}, {0}},
        KeyCase{"TabReachesNoHandler", Qt::Key_Tab, Qt::NoModifier, {}, {}},
        KeyCase{"OfShiftTabOnlyTheShiftReachesAHandler", Qt::Key_Backtab, Qt::ShiftModifier, {}, {0}}),
    CaseName());

TEST_F(KeysTest, ACtrlCombinationIsACharacterBelowTheBlank) {
    RecordPresses();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier, u"\x03"_s);
    QCoreApplication::sendEvent(box, &press);
    EXPECT_EQ(presses, std::vector<int>{3});
}

TEST_F(KeysTest, WhatCtrlMakesACommandIsNoCharacter) {
    RecordPresses();
    for (const QString& text : {u"+"_s, u"-"_s, u"="_s, u"0"_s}) {
        QKeyEvent press(QEvent::KeyPress, text.at(0).unicode(), Qt::ControlModifier, text);
        QCoreApplication::sendEvent(box, &press);
    }
    EXPECT_TRUE(presses.empty()) << "the keys that widen a column would pick a patient";
    QKeyEvent third(QEvent::KeyPress, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, u"@"_s);
    QCoreApplication::sendEvent(box, &third);
    EXPECT_EQ(presses, std::vector<int>{u'@'});
}

TEST_F(KeysTest, TabStillMovesTheFocus) {
    OnKeyPress(box, [](int& key) { key = 0; });
    OnKeyDown(box, [](int) { return true; });
    Press(*box, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
}

TEST_F(KeysTest, TheKeysThatLeaveAScreenAreNoCharacters) {
    RecordPresses();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_W, Qt::ControlModifier, u"\x17"_s);
    QCoreApplication::sendEvent(box, &press);
    EXPECT_TRUE(presses.empty()) << "a list from which any key picks would pick";
}

TEST_F(KeysTest, AHandlerMayMoveTheFocusAndTheKeyStillGoesToItsControl) {
    OnKeyPress(box, [this](int& key) {
        key = u'B';
        next->setFocus();
    });
    Type(*box, u"a"_s);
    EXPECT_EQ(box->text(), u"B"_s);
    EXPECT_EQ(next->text(), QString());
}

TEST_F(KeysTest, AHandlerMayCloseTheControl) {
    OnKeyPress(box, [this](int& key) {
        key = 0;
        box->deleteLater();
    });
    Type(*box, u"a"_s);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window.findChildren<QLineEdit*>().size(), 1);
}

} // namespace
