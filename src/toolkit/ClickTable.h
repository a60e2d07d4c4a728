#pragma once

#include <QTableView>

/// What the grid and the list have in common: a table that is read and not edited, in which one cell or row
/// is marked, and which tells clicks as the run-time does.
class ClickTable : public QTableView {
    Q_OBJECT

  public:
    explicit ClickTable(QWidget* parent);

    /// Letters do not search in the table; they belong to the screen.
    void keyboardSearch(const QString&) override {}

  Q_SIGNALS:
    /// The mouse button went up, once for a double click too.
    void Click();
    /// The second click of two, before its button goes up.
    void DblClick();

  protected:
    // A screen reader is told of the cell in which the clerk is, columns that are not shown left out.
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void SpeakCurrent();

    /// The button that comes up belongs to a double click, which was a click before.
    bool mDoubleClicked = false;
};
