#pragma once

#include "charges/ChargeGrid.h"
#include "patients/PatientContext.h"
#include "support/RevenueRows.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"

#include <QLineEdit>
#include <QTest>

/// A window with a charge grid, its total box and one more box.
class ChargeGridGround : public ScreenTest {
  protected:
    explicit ChargeGridGround(const ChargeGridDifferences& screen)
        : differences(screen)
        , frame(new QWidget(&window))
        , total(new QLineEdit(&window))
        , elsewhere(new QLineEdit(&window))
        , charges(new ChargeGrid(frame, total, differences))
        , grid(*charges->Grid())
        , editor(*charges->Editor())
        , cells(charges->Cells()) {
        window.setObjectName(QStringLiteral("window"));
        window.resize(1000, 450);
        elsewhere->move(10, 0);
        frame->setGeometry(5, 60, 980, 350);
        grid.setGeometry(10, 20, 900, 300);
        charges->SetupGrid();
        Activate(window);
        elsewhere->setFocus();
        gRoomClass = QStringLiteral("A");
        listing->service.ResultCode = QStringLiteral("S1");
        listing->service.OtherRevenue = QStringLiteral("CLEANING");
        listing->service.Rates = {101};
        listing->doctor = {QStringLiteral("D003"), QStringLiteral("CASTAÑEDA"), QStringLiteral("LUIS"),
                           QStringLiteral("PEÑA")};
        stockItem->items = {{QStringLiteral("52"),
                             QStringLiteral("G1"),
                             QStringLiteral("GAUZE"),
                             {.SellingPriceOut = 20, .SellingPriceIn = 12.5}}};
    }

    void Put(int row, int col, const QString& text) { cells.SetTextMatrix(row, col, text); }
    /// A line as it stands after its code was found.
    void PutLine(int row, const QString& department, const QString& zeroPrice) {
        Put(row, Column::kDepartment, department);
        Put(row, Column::kCode, QStringLiteral("S%1").arg(row));
        Put(row, differences.priceCol, QStringLiteral("101.00"));
        Put(row, differences.quantityCol, QStringLiteral("1"));
        Put(row, Column::kAmount, QStringLiteral("101.00"));
        Put(row, Column::kZeroPrice, zeroPrice);
    }
    QString At(int row, int col) const { return charges->Text(row, col); }

    std::pair<int, int> Place() const { return {cells.Row(), cells.Col()}; }
    QRect CellPlace(int row, int col) const { return grid.CellRect(row, col).translated(grid.pos()); }
    /// The editor lies over that cell, shows its text, all of it selected, and has the focus.
    void ExpectOpen(int row, int col) const {
        EXPECT_EQ(Place(), std::pair(row, col));
        EXPECT_EQ(editor.geometry(), CellPlace(row, col));
        EXPECT_EQ(editor.text(), At(row, col));
        EXPECT_EQ(editor.selectedText(), editor.text());
        EXPECT_TRUE(editor.isVisible());
        EXPECT_TRUE(editor.hasFocus());
    }

    /// The editor lies over that cell and shows its text from that side.
    void ExpectOver(int row, int col, Qt::Alignment side) const {
        EXPECT_EQ(editor.geometry(), CellPlace(row, col));
        EXPECT_EQ(editor.text(), At(row, col));
        EXPECT_EQ(editor.alignment() & Qt::AlignHorizontal_Mask, side);
    }

    void ClickCell(int row, int col) {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                          grid.CellRect(row, col).center() - grid.viewport()->pos());
    }
    /// Puts the current cell there and gives the grid the focus, as Tab does.
    void OpenByFocus(int row, int col) {
        elsewhere->setFocus();
        cells.SetCell(row, col);
        grid.setFocus();
    }
    void Enter() { Press(editor, Qt::Key_Return); }
    void Key(const QString& text) { Type(editor, text); }
    /// Keys a department that is known, and Enter.
    void KeyDepartment(const RevenueCentre& centre) {
        Key(centre.code.ToText());
        ExpectExact(gateway, centre);
        Enter();
    }
    /// Keys a code that is a service, and Enter.
    void KeyService() {
        listing->answers.push_back(true);
        Key(QStringLiteral("S1"));
        Enter();
    }

    const ChargeGridDifferences& differences;
    QWidget window;
    QWidget* frame;
    QLineEdit* total;
    QLineEdit* elsewhere;
    ChargeGrid* charges;
    FlexGrid& grid;
    QLineEdit& editor;
    FlexCells& cells;
};
