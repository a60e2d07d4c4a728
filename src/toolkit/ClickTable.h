#pragma once

#include <QTableView>

/// What the grid and the list have in common: a table that is read and not edited, in which one cell or row
/// is marked, and which tells clicks as the run-time does. A text that its column cuts stands whole in a tip;
/// Ctrl and plus make the current column wider, Ctrl and minus narrower.
class ClickTable : public QTableView {
    Q_OBJECT

  public:
    explicit ClickTable(QWidget* parent);

    /// The size with which its screen opens, in twips. From then on it grows and shrinks with the screen.
    void SetStartSize(const QSize& twips) { mStartSize = twips; }
    /// Makes the current column wider or narrower with Ctrl++ and Ctrl+-; false for another key.
    bool ResizesColumn(const QKeyEvent& event);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Letters do not search in the table; they belong to the screen.
    void keyboardSearch(const QString&) override {}

  Q_SIGNALS:
    /// The mouse button went up, once for a double click too.
    void Click();
    /// The second click of two, before its button goes up.
    void DblClick();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    /// For the headings.
    bool eventFilter(QObject* watched, QEvent* event) override;
    // A screen reader is told of the cell in which the clerk is, columns that are not shown left out.
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    bool ShowWholeCell(const QHelpEvent& event);
    bool ShowWholeHeading(const QHelpEvent& event);

    void SpeakCurrent();

    /// Invalid where none was set.
    QSize mStartSize;
    /// The button that comes up belongs to a double click, which was a click before.
    bool mDoubleClicked = false;
};
