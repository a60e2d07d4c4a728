#pragma once

#include "charges/ChargeLines.h"
#include "charges/ItemLookup.h"
#include "patients/PatientContext.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexCells.h"

#include <functional>

/// An editor of nothing but a text, which writes down what is called by name.
class FakeEditor : public LineEditor {
  public:
    explicit FakeEditor(FlexCells& grid)
        : cells(grid) {}

    QString EditorText() const override { return text; }
    void SetEditorText(const QString& newText) override {
        text = newText;
        cells.SetText(newText);
    }
    void grdTable_LeaveCell() override { calls += QStringLiteral("Leave "); }
    void grdTable_EnterCell() override {
        calls += QStringLiteral("Enter(%1,%2) ").arg(cells.Row()).arg(cells.Col());
        text = cells.Text();
        if (onEnterCell)
            onEnterCell();
    }
    void SetRedraw(bool on) override { redraws.push_back(on); }

    FlexCells& cells;
    QString text;
    QString calls;
    std::vector<bool> redraws;
    std::function<void()> onEnterCell;
};

/// A charge screen's lookup over its lines; the clerk stands in the Code column of the first line.
class ItemLookupGround : public ScreenTest {
  protected:
    explicit ItemLookupGround(const ChargeGridDifferences& screen)
        : differences(screen)
        , lines(cells, differences)
        , editor(cells)
        , lookup(cells, lines, editor) {
        cells.SetCols(Column::kCount);
        cells.SetRows(9);
        lines.ResetColumns();
        stockItem->items = {{QStringLiteral("52"),
                             QStringLiteral("G1"),
                             QStringLiteral("GAUZE"),
                             {.SellingPriceOut = 20, .SellingPriceIn = 12.5}},
                            {QStringLiteral("1"),
                             QStringLiteral("M1"),
                             QStringLiteral("HEPARIN"),
                             {.SellingPriceOut = 300, .SellingPriceIn = 250}},
                            {QStringLiteral("52"),
                             QStringLiteral("F1"),
                             QStringLiteral("FREE TUBE"),
                             {.SellingPriceOut = 5, .SellingPriceIn = 0}}};
        listing->service.ResultCode = QStringLiteral("S1");
        listing->service.OtherRevenue = QStringLiteral("CLEANING");
        listing->service.Rates = {101, 102, 103, 104, 105, 106, 107, 108};
        listing->doctor = {QStringLiteral("D003"), QStringLiteral("CASTAÑEDA"), QStringLiteral("LUIS"),
                           QStringLiteral("PEÑA")};
        gRoomClass = QStringLiteral("B");
    }

    /// Keys a code into a line of a department and stays in its cell.
    void Key(int row, const QString& department, const QString& code) {
        cells.SetCell(row, Column::kCode);
        cells.SetTextMatrix(row, Column::kDepartment, department);
        editor.SetEditorText(code);
        lookup.CurrentRevenueID = department;
    }

    void PutItem(int row, const QString& department, const QString& code) {
        cells.SetTextMatrix(row, Column::kDepartment, department);
        cells.SetTextMatrix(row, Column::kCode, code);
    }

    bool LookUp(const QString& department, const QString& code) {
        Key(1, department, code);
        keyed = code;
        return lookup.LookupItem(keyed);
    }

    QString At(int row, int col) const { return cells.TextMatrix(row, col); }
    /// Code, particular, price and zero flag of the first line.
    std::vector<QString> Line() const {
        return {At(1, Column::kCode), At(1, Column::kParticular), At(1, differences.priceCol),
                At(1, Column::kZeroPrice)};
    }

    /// What the next search of a listing answers, services or doctors.
    void Found(bool found) { listing->answers.push_back(found); }

    const ChargeGridDifferences& differences;
    FlexCells cells;
    ChargeLines lines;
    FakeEditor editor;
    ItemLookup lookup;
    /// The code argument, which the lookup may change.
    QString keyed;
};
