#include "support/ScreenTest.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexCells.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Twips.h"

#include <QApplication>
#include <QHeaderView>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A list with a long name in a narrow column and a short code in a wide one.
class ClickTableTest : public testing::Test {
  protected:
    ClickTableTest()
        : mList(NewList(u"grdTable"_s, u"List"_s, {6000, 2000}, &mWindow)) {
        mList->Cells().Bind(
            Rows({u"A long heading"_s, u"Code"_s}, {{u"DELA CRUZ, <b>MARIA</b> TERESA"_s, u"7"_s}}));
        mName = ColumnOf(u"A long heading"_s);
        mCode = ColumnOf(u"Code"_s);
        mList->setColumnWidth(mName, 60);
        mList->setColumnWidth(mCode, 90);
        mList->resize(mList->sizeHint());
        mWindow.show();
        mList->setCurrentIndex(mList->model()->index(0, mName));
    }

    int ColumnOf(const QString& heading) const {
        int column = 0;
        while (mList->model()->headerData(column, Qt::Horizontal) != heading && column < 10)
            ++column;
        return column;
    }
    QString TipOfCell(int column) const {
        const QModelIndex cell = mList->model()->index(0, column);
        return TipAt(*mList->viewport(), mList->visualRect(cell).center());
    }
    QString TipOfHeading(int column) const {
        QHeaderView* header = mList->horizontalHeader();
        return TipAt(*header->viewport(),
                     {header->sectionViewportPosition(column) + 5, header->height() / 2});
    }

    QWidget mWindow;
    int mName = 0;
    int mCode = 0;
    FlexGrid* mList;
};

TEST_F(ClickTableTest, WhatAColumnCutsStandsWholeInATip) {
    EXPECT_EQ(TipOfCell(mName), u"<p>DELA CRUZ, &lt;b&gt;MARIA&lt;/b&gt; TERESA"_s) << "and is no markup";
    EXPECT_EQ(TipOfHeading(mName), u"<p>A long heading"_s);
    EXPECT_EQ(TipOfCell(mCode), QString()) << "what is seen whole needs none";
    EXPECT_EQ(TipOfHeading(mCode), QString());
}

TEST_F(ClickTableTest, KeysMakeTheCurrentColumnWiderAndNarrower) {
    const int current = mList->currentIndex().column();
    const auto width = [&] { return mList->columnWidth(current); };
    mList->setColumnWidth(current, 100);
    const int begin = width();
    QTest::keyClick(mList, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(width(), begin);
    QTest::keyClick(mList, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(width(), begin);
    QTest::keyClick(mList, Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_GT(width(), begin) << "where the plus lies above it";
    for (int i = 0; i < 200; ++i)
        QTest::keyClick(mList, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_GT(width(), 0) << "it can be seen and drawn out again";
    EXPECT_EQ(mList->currentIndex().column(), current);
}

TEST_F(ClickTableTest, AWidthOfTheClerksStaysWhenOtherRowsCome) {
    const int before = mList->columnWidth(mCode);
    mList->setColumnWidth(mCode, before + 40);
    mList->Cells().Bind(Rows({u"A long heading"_s, u"Code"_s}, {{u"DIAZ"_s, u"8"_s}}));
    EXPECT_EQ(mList->columnWidth(mCode), before + 40);
    mList->SetColWidth(mCode + 1, 3000);
    EXPECT_EQ(mList->columnWidth(mCode), TwipsToPixels(3000)) << "what the screen sets anew counts";
}

} // namespace
