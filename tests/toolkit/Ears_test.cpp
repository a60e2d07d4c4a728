#include "support/PrintQt.h"
#include "toolkit/Ears.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/RecordedForm.h"

#include <QAccessible>
#include <QLabel>
#include <QTimer>

#include <array>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// A grid of three columns, the middle one hidden, with two lines.
class EarsOfAGrid : public testing::Test {
  protected:
    EarsOfAGrid() {
        static constexpr std::array kColumns = {
            GridColumn{.width = 0}, GridColumn{.heading = u"Code", .width = 900},
            GridColumn{.heading = u"Key", .width = 0}, GridColumn{.heading = u"Name", .width = 900}};
        grid.SetColumns(kColumns);
        grid.Cells().SetRows(3);
        for (int row = 1; row <= 2; ++row) {
            for (int col = 1; col <= 3; ++col)
                grid.Cells().SetTextMatrix(row, col, u"%1/%2"_s.arg(row).arg(col));
        }
    }

    QAccessibleInterface& Ear() { return *QAccessible::queryAccessibleInterface(&grid); }
    QAccessibleTableInterface& Table() { return *Ear().tableInterface(); }

    static QString NameOf(const QAccessibleInterface* ear) {
        return ear ? ear->text(QAccessible::Name) : u"none"_s;
    }
    QStringList Children() {
        QStringList names;
        for (int i = 0; i < Ear().childCount(); ++i)
            names << NameOf(Ear().child(i));
        return names;
    }

    FlexGrid grid;
};

TEST_F(EarsOfAGrid, HearTheColumnsThatAreShownAndNoOthers) {
    EXPECT_EQ(Ear().role(), QAccessible::Table);
    EXPECT_EQ(Table().columnCount(), 2);
    EXPECT_EQ(Table().rowCount(), 2);
    EXPECT_EQ(Table().columnDescription(1), u"Name"_s);
    EXPECT_EQ(NameOf(Table().cellAt(1, 1)), u"2/3"_s);
    EXPECT_THAT(Children(), ElementsAre(u"Code"_s, u"Name"_s, u"1/1"_s, u"1/3"_s, u"2/1"_s, u"2/3"_s));
    EXPECT_EQ(Table().cellAt(0, 2), nullptr);
    EXPECT_EQ(Table().cellAt(-1, 0), nullptr);
}

TEST_F(EarsOfAGrid, FindAChildAgainByItsNumber) {
    for (int i = 0; i < Ear().childCount(); ++i)
        EXPECT_EQ(Ear().indexOfChild(Ear().child(i)), i);
    EXPECT_EQ(Ear().child(6), nullptr);
}

TEST_F(EarsOfAGrid, HearTheHeadingOfACell) {
    const QAccessibleInterface* cell = Table().cellAt(1, 1);
    const QAccessibleTableCellInterface* place =
        const_cast<QAccessibleInterface*>(cell)->tableCellInterface();
    EXPECT_EQ(place->rowIndex(), 1);
    EXPECT_EQ(place->columnIndex(), 1);
    ASSERT_EQ(place->columnHeaderCells().size(), 1);
    EXPECT_EQ(NameOf(place->columnHeaderCells().front()), u"Name"_s);
    EXPECT_EQ(place->columnHeaderCells().front()->role(), QAccessible::ColumnHeader);
}

TEST_F(EarsOfAGrid, HearACellsNewTextAndForgetACutLine) {
    QAccessibleInterface* cell = Table().cellAt(1, 0);
    grid.Cells().SetTextMatrix(2, 1, u"new"_s);
    EXPECT_EQ(NameOf(cell), u"new"_s);
    grid.Cells().SetRows(2);
    EXPECT_EQ(Table().rowCount(), 1);
    EXPECT_EQ(Table().cellAt(1, 0), nullptr);
}

TEST_F(EarsOfAGrid, HearTheFirstCellOfARowWhoseOwnIsHidden) {
    grid.show();
    grid.activateWindow();
    grid.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return grid.hasFocus(); }));
    grid.Cells().SetCell(2, 2);
    EXPECT_EQ(NameOf(Ear().focusChild()), u"2/1"_s);
    grid.Cells().SetCell(2, 3);
    EXPECT_EQ(NameOf(Ear().focusChild()), u"2/3"_s);
    EXPECT_TRUE(Ear().focusChild()->state().focused);
}

TEST(EarsOfAScreen, HearADialogueWhileItIsModal) {
    QWidget window;
    auto* inside = new RecordedForm<'E'>;
    inside->setParent(&window);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(inside)->role(), QAccessible::Client);
    auto* modal = new RecordedForm<'F'>;
    modal->setWindowTitle(u"Assessment Status"_s);
    QAccessible::Role role = QAccessible::NoRole;
    bool isModal = false;
    QString name;
    QTimer::singleShot(0, modal, [&] {
        const QAccessibleInterface* ear = QAccessible::queryAccessibleInterface(modal);
        role = ear->role();
        isModal = ear->state().modal;
        name = ear->text(QAccessible::Name);
        modal->Unload();
    });
    modal->ShowModal();
    EXPECT_EQ(role, QAccessible::Dialog);
    EXPECT_TRUE(isModal);
    EXPECT_EQ(name, u"Assessment Status"_s);
}

TEST(EarsOfAControl, HearWhatItIsSpokenAs) {
    QLabel strip;
    SpeakAs(strip, QAccessible::AlertMessage);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&strip)->role(), QAccessible::AlertMessage);
}

} // namespace
