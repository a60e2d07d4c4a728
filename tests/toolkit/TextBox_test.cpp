#include "support/CaseName.h"
#include "support/ScreenTest.h"
#include "toolkit/Controls.h"
#include "toolkit/Keys.h"
#include "toolkit/TextBox.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMegabyte = 1 << 20;

class TextBoxTest : public ScreenTest {
  protected:
    TextBoxTest() {
        auto* layout = new QVBoxLayout(&window);
        box = NewTextBox(u"txtBox"_s, &window);
        layout->addWidget(box);
        Activate(window);
        box->setFocus();
    }
    ~TextBoxTest() override { QGuiApplication::clipboard()->clear(); }

    static void Copy(const QString& text) { QGuiApplication::clipboard()->setText(text); }
    void PasteByKey() {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, u"\x16"_s);
        QApplication::sendEvent(box, &key);
    }
    void PasteByMenu() {
        const std::unique_ptr<QMenu> menu(box->createStandardContextMenu());
        for (QAction* action : menu->actions()) {
            if (action->text().contains(u"Paste"_s))
                action->trigger();
        }
    }
    void Drop(const QString& text) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(box, &enter);
        QDropEvent drop(QPointF(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(box, &drop);
    }

    QWidget window;
    QLineEdit* box;
};

TEST_F(TextBoxTest, ShowsATextThatItCutsWholeInATip) {
    const QString name = u"DE LOS SANTOS-VILLANUEVA, <MARIA> CRISTINA"_s;
    box->setFixedWidth(120);
    box->setText(name);
    EXPECT_EQ(TipAt(*box, box->rect().center()), u"<p>"_s + name.toHtmlEscaped()) << "and it is no markup";
    box->setReadOnly(true);
    EXPECT_EQ(TipAt(*box, box->rect().center()), u"<p>"_s + name.toHtmlEscaped());
    box->setText(u"DE LEON"_s);
    EXPECT_EQ(TipAt(*box, box->rect().center()), QString()) << "what is seen whole needs none";
}

TEST_F(TextBoxTest, TellsNoPasswordInATip) {
    box->setFixedWidth(40);
    box->setEchoMode(QLineEdit::Password);
    box->setText(u"a password that is longer than its box"_s);
    EXPECT_EQ(TipAt(*box, box->rect().center()), QString());
}

} // namespace

struct PasteCase {
    const char* name;
    QString copied;
    QString shown;
};

class TextBoxPasteTest : public TextBoxTest, public testing::WithParamInterface<PasteCase> {};

TEST_P(TextBoxPasteTest, LosesWhatNobodySees) {
    QStringList changes;
    QObject::connect(box, &QLineEdit::textChanged, box, [&](const QString& text) { changes << text; });
    Copy(GetParam().copied);
    PasteByKey();
    EXPECT_EQ(box->text(), GetParam().shown);
    EXPECT_EQ(changes, GetParam().shown.isEmpty() ? QStringList() : QStringList(GetParam().shown))
        << "nobody hears of another text";
    box->clear();
    PasteByMenu();
    EXPECT_EQ(box->text(), GetParam().shown) << "by the menu";
    box->clear();
    Drop(GetParam().copied);
    EXPECT_EQ(box->text(), GetParam().shown) << "dropped";
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TextBoxPasteTest,
    testing::Values(PasteCase{"PlainText", u" Dela Peña, 12-B "_s, u" Dela Peña, 12-B "_s},
                    PasteCase{"FirstOfSeveralLines", u"DELA CRUZ\r\n100234\n"_s, u"DELA CRUZ"_s},
                    PasteCase{"FirstOfSeveralCells", u"2\t3360.00\n"_s, u"2"_s},
                    PasteCase{"FirstThatHoldsAnything", u"\t \t\n\t2\t3360.00"_s, u"2"_s},
                    PasteCase{"ControlCharacters", u"A\x01\x16\x1b\x7f\u009fZ"_s, u"AZ"_s},
                    PasteCase{"LineAndParagraphSeparators", u"A\u2028B\u2029C"_s, u"A"_s},
                    PasteCase{"MarksOfDirectionAndOfOrder", u"\ufeffA\u202eB\u200bC"_s, u"ABC"_s},
                    PasteCase{"LineEndsAlone", u"\r\n"_s, u""_s},
                    PasteCase{"BeyondTheBasicPlane", u"A\U0001F600"_s, u"A\U0001F600"_s}),
    CaseName());

TEST_F(TextBoxTest, PasteTakesThePlaceOfWhatIsMarked) {
    box->setText(u"DELA CRUZ"_s);
    box->setSelection(5, 4);
    Copy(u"PEÑA"_s);
    PasteByKey();
    EXPECT_EQ(box->text(), u"DELA PEÑA"_s);
    box->selectAll();
    Copy(u"\n"_s);
    PasteByKey();
    EXPECT_EQ(box->text(), u"DELA PEÑA"_s) << "nothing is no text to put there";
}

TEST_F(TextBoxTest, MegabyteIsCutWhereTheBoxIsFull) {
    Copy(QString(kMegabyte, u'x'));
    PasteByKey();
    EXPECT_EQ(box->text(), QString(box->maxLength(), u'x'));
    PasteByMenu();
    EXPECT_EQ(box->text().size(), box->maxLength()) << "a full box takes no more";
    box->setSelection(0, 10);
    Copy(u"0123456789ab"_s);
    PasteByKey();
    EXPECT_EQ(box->text(), u"0123456789"_s + QString(box->maxLength() - 10, u'x'));
}

TEST_F(TextBoxTest, MegabyteOfLineEndsLeavesTheTextBehindThem) {
    Copy(QString(kMegabyte, u'\n') + u"CRUZ"_s);
    PasteByKey();
    EXPECT_EQ(box->text(), u"CRUZ"_s);
}

TEST_F(TextBoxTest, LimitOfTheBoxItselfHolds) {
    box->setMaxLength(30);
    Copy(QString(kMegabyte, u'x'));
    PasteByKey();
    EXPECT_EQ(box->text().size(), 30);
    box->setText(QString(28, u'x'));
    Copy(u"\nab\tc"_s);
    PasteByKey();
    EXPECT_EQ(box->text(), QString(28, u'x') + u"ab"_s);
}

TEST_F(TextBoxTest, HalfACharacterStaysAway) {
    box->setMaxLength(2);
    Copy(u"A\U0001F600"_s);
    PasteByKey();
    EXPECT_EQ(box->text(), u"A"_s);
}

TEST_F(TextBoxTest, ABoxWithoutALimitTakesEveryCharacterThatIsTyped) {
    box->setText(QString(255, u'x'));
    Type(*box, u"abc"_s);
    EXPECT_EQ(box->text(), QString(255, u'x') + u"abc"_s);
}

TEST_F(TextBoxTest, WhatTheProgramSetsStaysWhole) {
    box->setText(u"a\tb\n"_s);
    EXPECT_EQ(box->text(), u"a\tb\n"_s);
}

TEST_F(TextBoxTest, PasteIsUpperCasedWhereTypingIs) {
    UpperCaseKeys(box);
    Copy(u"dela peña\n"_s);
    PasteByKey();
    EXPECT_EQ(box->text(), u"DELA PEÑA"_s);
    box->clear();
    PasteByMenu();
    EXPECT_EQ(box->text(), u"DELA PEÑA"_s);
    box->clear();
    Drop(u"cruz"_s);
    EXPECT_EQ(box->text(), u"CRUZ"_s);
}

TEST_F(TextBoxTest, KeyThatTheBoxSwallowsIsNotPasted) {
    OnKeyPress(box, [](int& key) {
        if (key == u',')
            key = 0;
    });
    Copy(u"1,250.00"_s);
    PasteByKey();
    EXPECT_EQ(box->text(), u"1250.00"_s);
}

TEST_F(TextBoxTest, BoxThatSwallowsTheKeyOfPastingPastesNothing) {
    QList<int> keys;
    OnKeyPress(box, [&keys](int& key) {
        keys << key;
        key = 0;
    });
    Copy(u"AB"_s);
    PasteByKey();
    PasteByMenu();
    Drop(u"AB"_s);
    EXPECT_EQ(box->text(), u""_s);
    EXPECT_EQ(keys, (QList<int>{22, 22, 22})) << "each road is one Ctrl+V";
}

TEST_F(TextBoxTest, BoxThatIsOnlyShownTakesNothing) {
    QLineEdit* shown = NewShownBox(u"txtAge"_s, &window);
    shown->setText(u"42"_s);
    Copy(u"43"_s);
    qobject_cast<TextBox*>(shown)->paste();
    EXPECT_EQ(shown->text(), u"42"_s);
}

TEST_F(TextBoxTest, PasteIsUndone) {
    Type(*box, u"A"_s);
    Copy(u"BC"_s);
    PasteByKey();
    ASSERT_EQ(box->text(), u"ABC"_s);
    box->undo();
    EXPECT_NE(box->text(), u"ABC"_s);
}
