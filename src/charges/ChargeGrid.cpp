#include "charges/ChargeGrid.h"

#include "components/shared.h"
#include "toolkit/Controls.h"
#include "toolkit/Ears.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Focus.h"
#include "toolkit/Keys.h"
#include "toolkit/MsgBox.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 9;

/// What the grid shows of the columns, in their places.
std::array<GridColumn, Column::kCount> GridColumnsOf(const ChargeGridDifferences& screen) {
    std::array<GridColumn, Column::kCount> shown;
    for (const ChargeColumn& column : ChargeColumns(screen))
        shown[size_t(column.column)] = {
            .heading = column.heading, .width = column.width, .alignment = column.alignment};
    return shown;
}

/// How the editor aligns a column's text: as the grid does.
Qt::Alignment AlignmentOf(const ChargeGridDifferences& screen, int col) {
    const Qt::Alignment alignment = GridColumnsOf(screen)[size_t(col)].alignment;
    return alignment ? alignment : Qt::AlignLeft;
}

} // namespace

ChargeGrid::ChargeGrid(QWidget* frame, QLineEdit* total, const ChargeGridDifferences& differences)
    : QObject(frame)
    , grdTable(new FlexGrid(frame))
    , txtEntry(NewTextBox(u"txtEntry"_s, frame))
    , mTotal(total)
    , mLines(grdTable->Cells(), differences)
    , mLookup(grdTable->Cells(), mLines, *this) {
    grdTable->setObjectName(u"grdTable"_s);
    grdTable->setAccessibleName(u"Charges"_s);
    // Until it lies over its first cell.
    txtEntry->setAccessibleName(u"Entry of the current cell"_s);
    txtEntry->setFrame(false);
    txtEntry->setProperty("floating", true);
    txtEntry->hide();
    Wire();
}

void ChargeGrid::Wire() {
    connect(grdTable, &FlexGrid::LeaveCell, this, [this] { grdTable_LeaveCell(); });
    connect(grdTable, &FlexGrid::EnterCell, this, [this] { grdTable_EnterCell(); });
    connect(grdTable, &FlexGrid::RowColChange, this, &ChargeGrid::grdTable_RowColChange);
    connect(grdTable, &FlexGrid::Click, this, &ChargeGrid::grdTable_Click);
    OnGotFocus(grdTable, [this] { grdTable_GotFocus(); });
    connect(txtEntry, &QLineEdit::textChanged, this, &ChargeGrid::txtEntry_Change);
    OnKeyDown(txtEntry, [this](int keyCode) {
        return txtEntry_KeyDown(keyCode, QGuiApplication::keyboardModifiers());
    });
    OnKeyPress(txtEntry, [this](int& key) { txtEntry_KeyPress(key); });
    OnGotFocus(txtEntry, [this] { txtEntry_GotFocus(); });
    txtEntry->installEventFilter(this);
    grdTable->viewport()->installEventFilter(this);
    for (QScrollBar* bar : {grdTable->horizontalScrollBar(), grdTable->verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &ChargeGrid::PlaceEditor);
    connect(grdTable->horizontalHeader(), &QHeaderView::sectionResized, this, &ChargeGrid::PlaceEditor);
}

FlexCells& ChargeGrid::Cells() {
    return grdTable->Cells();
}

const FlexCells& ChargeGrid::Cells() const {
    return grdTable->Cells();
}

QString ChargeGrid::Text(int row, int col) const {
    return Cells().TextMatrix(row, col);
}

void ChargeGrid::SetRedraw(bool on) {
    grdTable->SetRedraw(on);
}

void ChargeGrid::ResetLineCount() {
    gLineCount = 0;
    gLineCount2 = 0;
}

void ChargeGrid::SetupGrid() {
    mLines.ResetColumns();
    FlexCells& cells = Cells();
    const bool isCut = cells.Rows() > kRows;
    cells.SetCols(Column::kCount);
    cells.SetRows(kRows);
    grdTable->SetColumns(GridColumnsOf(mLines.Differences()));
    FollowCutGrid();
    if (isCut)
        ComputeTotal();
}

void ChargeGrid::FollowCutGrid() {
    if (mEditorRow < Cells().Rows())
        return;
    // The line under the editor is gone; left where it was, its text would be keyed into another line.
    ++mCutLines;
    const int line = FirstEmptyLine();
    if (line == 0) {
        HideEditor();
        return;
    }
    Cells().SetCell(line, Column::kDepartment);
    TakeCell();
}

bool ChargeGrid::IsEmptyLine(int row) const {
    for (int col = Column::kDepartment; col <= Column::kAmount; ++col) {
        if (!Text(row, col).isEmpty())
            return false;
    }
    return true;
}

int ChargeGrid::FirstEmptyLine() const {
    for (int row = 1; row < Cells().Rows(); ++row) {
        if (IsEmptyLine(row))
            return row;
    }
    return 0;
}

bool ChargeGrid::IsEmpty() const {
    for (int row = 1; row < Cells().Rows(); ++row) {
        if (!IsEmptyLine(row))
            return false;
    }
    return true;
}

void ChargeGrid::OpenFirstEmptyLine() {
    int line = FirstEmptyLine();
    if (line == 0) {
        line = Cells().Rows();
        Cells().SetRows(line + 1);
    }
    Cells().SetRow(line);
    MoveToColumn(Column::kDepartment);
}

void ChargeGrid::HideEditor() {
    // Hidden while it has the focus, it would throw the focus along the tab chain.
    if (txtEntry->window()->focusWidget() == txtEntry) {
        const HeldGotFocus withoutOpening(grdTable);
        grdTable->setFocus();
    }
    txtEntry->hide();
    grdTable->Uncover(txtEntry->geometry().translated(-grdTable->pos()));
    mEditorRow = 0;
    mEditorCol = 0;
    grdTable->setFocusPolicy(Qt::TabFocus);
}

QString ChargeGrid::EditorText() const {
    return txtEntry->text();
}

void ChargeGrid::SetEditorText(const QString& text) {
    txtEntry->setText(text);
}

/// Called before each move made by code; nothing is due when a cell is left.
void ChargeGrid::grdTable_LeaveCell() {}

void ChargeGrid::grdTable_EnterCell() {
    mLines.SetAmountLock();
    FlexCells& cells = Cells();
    // Kept: over a closed cell the editor stays where it was, and what is keyed then goes into the closed
    // cell.
    if (mLines.IsLocked(cells.Col()))
        return;
    // Tab reaches the grid through its editor from now on, and Shift+Tab leaves it.
    grdTable->setFocusPolicy(Qt::NoFocus);
    grdTable->Reveal(cells.Row(), cells.Col());
    TakeCell();
    txtEntry->show();
    txtEntry->raise();
    txtEntry->setSelection(0, int(txtEntry->text().size()));
    txtEntry->setFocus();
}

void ChargeGrid::TakeCell() {
    const FlexCells& cells = Cells();
    txtEntry->setText(cells.Text());
    mEditorRow = cells.Row();
    mEditorCol = cells.Col();
    txtEntry->setAlignment(AlignmentOf(mLines.Differences(), mEditorCol));
    SpeakAnew(*txtEntry, u"%1, line %2"_s.arg(Text(0, mEditorCol)).arg(mEditorRow));
    PlaceEditor();
}

void ChargeGrid::PlaceEditor() {
    if (mEditorRow == 0)
        return;
    const QRect cell = grdTable->CellRect(mEditorRow, mEditorCol);
    const QRect before = txtEntry->geometry();
    const bool inSight = grdTable->viewport()->geometry().contains(cell.center());
    // A cell that was scrolled away takes the editor out of sight, but keeps it in use.
    txtEntry->setGeometry(inSight ? cell.translated(grdTable->pos())
                                  : QRect(QPoint(-2 * cell.width(), 0), cell.size()));
    if (txtEntry->geometry() != before)
        grdTable->Uncover(before.translated(-grdTable->pos()));
}

void ChargeGrid::grdTable_RowColChange() {
    FlexCells& cells = Cells();
    if (!cells.Text().isEmpty())
        return;
    cells.SetCol(Column::kDepartment);
    // The empty cell has been opened already; what is typed next belongs to the Department.
    if (txtEntry->hasFocus())
        grdTable_EnterCell();
}

void ChargeGrid::txtEntry_Change(const QString& text) {
    Cells().SetText(text);
}

/// Kept: Shift, Ctrl and Alt make no difference to the keys that move.
bool ChargeGrid::txtEntry_KeyDown(int keyCode, Qt::KeyboardModifiers /*shift*/) {
    const int row = Cells().Row();
    if (keyCode == Key::kUp && row > 1)
        MoveToRow(row - 1);
    else if (keyCode == Key::kDown && row < Cells().Rows() - 1)
        MoveToRow(row + 1);
    return keyCode == Key::kUp || keyCode == Key::kDown;
}

void ChargeGrid::MoveToRow(int row) {
    grdTable_LeaveCell();
    Cells().SetRow(row);
    grdTable_EnterCell();
}

void ChargeGrid::MoveToColumn(int col) {
    Cells().SetCol(col);
    grdTable_EnterCell();
}

void ChargeGrid::txtEntry_GotFocus() {
    if (mLines.PassesOverOnFocus()) {
        grdTable_LeaveCell();
        mLines.NextCell();
        grdTable_EnterCell();
    }
}

void ChargeGrid::txtEntry_KeyPress(int& keyAscii) {
    if (keyAscii == Key::kEnter) {
        if (!EnterInColumn())
            return;
        MoveOnFromColumn();
    }
    if (keyAscii == Key::kEscape) {
        grdTable_LeaveCell();
        // The key has done its work; the screen would take it as its own and close.
        keyAscii = 0;
        return;
    }
    keyAscii = mLines.FilterKey(keyAscii);
}

bool ChargeGrid::EnterInColumn() {
    const int col = Cells().Col();
    const ChargeGridDifferences& differences = mLines.Differences();
    if (col == Column::kDepartment) {
        DepartmentStep();
        return false;
    }
    if (col == differences.quantityCol)
        return EnterInQuantity();
    if (col == differences.priceCol)
        mLines.RewriteAsAmount();
    if (col == Column::kAmount) {
        mLines.RewriteAsAmount();
        ComputeTotal();
    }
    return true;
}

bool ChargeGrid::EnterInQuantity() {
    if (!CheckQuantity(Cells().Row())) {
        MsgBox({.text = u"Input quantity."_s, .icon = MsgIcon::Exclamation});
        grdTable_LeaveCell();
        MoveToColumn(mLines.Differences().quantityCol);
        return false;
    }
    mLines.ComputeAmount();
    ComputeTotal();
    return true;
}

/// Kept: the line plays no part; its entry is compared with the header's text alone.
bool ChargeGrid::CheckQuantity(int /*row*/) const {
    const QString entry = txtEntry->text();
    return !entry.isEmpty() && entry != Text(0, mLines.Differences().quantityCol);
}

void ChargeGrid::MoveOnFromColumn() {
    if (mLines.IsChecked(Cells().Col())) {
        QString code = Cells().Text();
        bool isDoctorsFee = mLines.OnDoctorsFeeLine();
        mLookup.EnterCode(code, isDoctorsFee);
        return;
    }
    grdTable_LeaveCell();
    mLines.NextCell();
    grdTable_EnterCell();
}

void ChargeGrid::DepartmentStep() {
    if (!Revenue)
        Revenue = std::make_unique<clsRevenueCode>();
    const int cutLines = mCutLines;
    const bool isValid = Revenue->ValidateRevenue(Cells().CurrentText(Column::kDepartment));
    // The list of departments has cut the keyed line off: what was picked is written over no charge that
    // stands.
    if (mCutLines != cutLines) {
        OpenFirstEmptyLine();
        return;
    }
    if (!isValid) {
        MoveToColumn(Column::kDepartment);
        return;
    }
    const int next = mLines.WriteCentre(*Revenue);
    mLookup.CurrentRevenueID = Revenue->RevenueID();
    ++gLineCount;
    MoveToColumn(next);
}

void ChargeGrid::ComputeTotal() {
    mTotal->setText(mLines.ComputeTotal());
}

bool ChargeGrid::HasLines() const {
    // Kept: every line is read and only the last one's department is asked for, then the first one's
    // particular. A grid with too few columns fails here, before a number is spent.
    QString lastDepartment;
    for (int row = 1; row < Cells().Rows(); ++row) {
        for (const int col :
             {Column::kCode, Column::kParticular, mLines.Differences().quantityCol, Column::kAmount})
            Text(row, col);
        lastDepartment = Text(row, Column::kDepartment);
    }
    if (!lastDepartment.isEmpty() || !Text(1, Column::kParticular).isEmpty())
        return true;
    MsgBox({.text = u"Please Enter type of Exam."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s});
    return false;
}

bool ChargeGrid::eventFilter(QObject* watched, QEvent* event) {
    if (watched == grdTable->viewport() && event->type() == QEvent::Resize) {
        PlaceEditor();
    } else if (watched == txtEntry && event->type() == QEvent::ShortcutOverride) {
        // Without this a button or the grid would take the keys that move between the cells.
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape || key == Qt::Key_Up ||
            key == Qt::Key_Down)
            event->accept();
    } else if (watched == txtEntry && event->type() == QEvent::KeyPress) {
        // The editor has the keys of the grid beneath it.
        return grdTable->ResizesColumn(static_cast<const QKeyEvent&>(*event));
    }
    return false;
}
