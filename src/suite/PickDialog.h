#pragma once

#include "toolkit/GridColumn.h"

#include <QDialog>
#include <QString>

#include <memory>
#include <span>
#include <vector>

class ListView;
class QLineEdit;
class QPushButton;

/// Whether a row holds every word of the text somewhere in the columns, letter case aside. A column whose
/// field the rows lack raises 3265, here and in the dialogue.
bool AnyRowMatches(const RowData& rows, std::span<const GridColumn> columns, const QString& text);

/// The suite's incremental pick list: as the search text is typed, the rows with a column that begins with
/// it, then those that hold every word of it somewhere. Up and Down move the mark, Enter takes the marked
/// row, Escape gives up.
class PickDialog : public QDialog {
    Q_OBJECT

  public:
    /// `text` is the first search text. Where nothing was keyed, or no row matches it, all rows are offered
    /// and none is marked, so that an Enter that comes too early picks nothing; the text is marked for typing
    /// over.
    PickDialog(const QString& title, std::span<const GridColumn> columns, std::shared_ptr<const RowData> rows,
               const QString& text);

    /// The picked row of the data given, once the dialogue was accepted.
    size_t PickedRow() const { return mPicked; }

  private:
    void Layout(const QString& title, std::span<const GridColumn> columns);
    void Wire();

    void Filter(const QString& text);
    void lstPick_RowChange();
    bool txtPick_KeyDown(int keyCode);
    void Pick();

    std::vector<size_t> mFields;
    std::shared_ptr<const RowData> mRows;
    /// What is searched in each row, made once for all keys.
    std::vector<QString> mSearchTexts;
    /// The rows of the data that the list shows now.
    std::vector<size_t> mShown;
    size_t mPicked = 0;

    QLineEdit* txtPick;
    ListView* lstPick;
    QPushButton* cmdPick;
    QPushButton* cmdCancel;
};
