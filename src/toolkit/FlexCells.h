#pragma once

#include "gateway/RowSet.h"
#include "toolkit/GridColumn.h"

#include <QAbstractTableModel>
#include <QString>

#include <memory>
#include <span>
#include <vector>

/// The cells of a grid, without a window: rows and columns counted with the fixed ones (row 0 holds the
/// headers, column 0 is the fixed narrow column), a text in each cell, and a current cell.
///
/// A grid can be bound to the rows of a result. The cells then show those rows, field n in column n + 1,
/// until a cell is written or the size is changed; from then on the texts are the grid's own.
///
/// Row and column numbers outside the grid raise 30009 and 30010, as the grid of the run-time does.
class FlexCells : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// A grid of two rows and two columns, the fixed ones included, with its current cell at 1, 1.
    explicit FlexCells(QObject* parent = nullptr);

    /// The number of rows, the header row included.
    int Rows() const { return mRows; }
    /// Texts of rows that remain stay; the current row moves up if it was cut off. At least 1, else 30009.
    void SetRows(int rows);
    /// The number of columns, the fixed one included.
    int Cols() const { return mCols; }
    /// Texts of columns that remain stay; the current column moves left if it was cut off. At least 1, else
    /// 30010.
    void SetCols(int cols);

    /// The current cell's row.
    int Row() const { return mRow; }
    /// Makes that row's cell in the current column the current one.
    void SetRow(int row);
    /// The current cell's column.
    int Col() const { return mCol; }
    /// Makes that column's cell in the current row the current one.
    void SetCol(int col);
    /// Makes that cell the current one.
    void SetCell(int row, int col);

    /// The text of a cell, row 0 being the headers.
    QString TextMatrix(int row, int col) const;
    /// Sets the text of a cell; the current cell stays where it is.
    void SetTextMatrix(int row, int col, const QString& text);
    /// The current cell's text.
    QString Text() const { return TextMatrix(mRow, mCol); }
    /// The current row's text in a column. There is always a current row; in a grid without lines it is that
    /// of the headers.
    QString CurrentText(int col) const { return TextMatrix(mRow, col); }
    /// Sets the current cell's text.
    void SetText(const QString& text) { SetTextMatrix(mRow, mCol, text); }

    /// Whether nobody has filled the grid since it was made or emptied: no cell and no header has a text.
    bool IsUnfilled() const { return !mIsFilled; }
    /// Whether no cell of the row has a text.
    bool IsBlank(int row) const;

    /// Empties every cell, the headers too; sizes stay.
    void Clear();
    /// Shows the rows of a result: one column more than it has fields, one row more than it has rows, the
    /// field names as headers where SetColumns gave none. The current cell becomes the first one. Decimals
    /// show as amounts and read as they are.
    void Bind(std::shared_ptr<const RowData> rows);
    /// Headings and alignments of the columns from the fixed one on; they stand over a binding too. Grows the
    /// grid until it has every column with a heading or an alignment. A grid that is bound has the columns of
    /// its result: a heading or an alignment for one that it lacks raises 30010.
    void SetColumns(std::span<const GridColumn> columns);

    /// Shows the header of a column in bold type or not.
    void SetHeaderBold(int col, bool bold);

    // The view's reading: its rows and columns are those without the fixed ones, which are its headers.
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  Q_SIGNALS:
    /// The current cell was set by code, or cut off and moved.
    void CurrentMoved();

  private:
    struct Column {
        QString heading;
        bool hasHeading = false;
        bool headerBold = false;
        Qt::Alignment alignment = {};
    };

    void CheckRow(int row) const;
    void CheckCol(int col) const;
    size_t At(int row, int col) const { return size_t(row) * size_t(mCols) + size_t(col); }
    /// Makes the texts the grid's own before the first write to a bound grid.
    void OwnTexts();
    /// Adds empty rows behind the others without setting up the view anew, so that a list can be written row
    /// by row.
    void AppendRows(int rows);
    void Resize(int rows, int cols);
    void SetHeading(int col, const QString& heading);
    void ClampCurrent();
    /// Aligns a column, its header included. Without it texts stand on the left, amounts of a result on the
    /// right.
    void SetAlignment(int col, Qt::Alignment alignment);
    Qt::Alignment AlignmentOf(int col) const;
    /// The text as the list shows it; it is read as TextMatrix has it.
    QString ShownText(int row, int col) const;

    int mRows = 2;
    int mCols = 2;
    int mRow = 1;
    int mCol = 1;
    std::vector<QString> mTexts;
    std::shared_ptr<const RowData> mBound;
    /// Of each column, the fixed one included, while rows are bound: whether they are amounts.
    std::vector<bool> mAmounts;
    bool mIsFilled = false;
    std::vector<Column> mColumns;
};
