#include "suite/PickDialog.h"

#include "text/UCase.h"
#include "toolkit/Controls.h"
#include "toolkit/Keys.h"
#include "toolkit/ListView.h"
#include "toolkit/Picker.h"
#include "toolkit/Twips.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kListHeight = 4800;
constexpr int kScrollBarWidth = 500;
// Stands in no name and no code.
constexpr QChar kCellMark = u'\n';

/// How well a row answers a search text: not at all, with every word of it somewhere, or with a column that
/// begins with it.
enum class Match { None, Words, Beginning };

/// A search text, made ready once for all rows.
class Wanted {
  public:
    explicit Wanted(const QString& text)
        : mBeginning(kCellMark + UCase(text.trimmed()))
        , mWords(mBeginning.sliced(1).split(u' ', Qt::SkipEmptyParts)) {}

    Match In(const QString& row) const {
        if (row.contains(mBeginning))
            return Match::Beginning;
        const bool all = std::all_of(mWords.begin(), mWords.end(),
                                     [&](const QString& word) { return row.contains(word); });
        return all ? Match::Words : Match::None;
    }

  private:
    QString mBeginning;
    QStringList mWords;
};

/// What is searched in a row: its columns in capitals, each behind a mark.
QString SearchText(const RowData& rows, size_t row, const std::vector<size_t>& fields) {
    QString text;
    for (const size_t field : fields)
        text += kCellMark + UCase(rows.Cell(row, field).TextOrEmpty());
    return text;
}

} // namespace

bool AnyRowMatches(const RowData& rows, std::span<const GridColumn> columns, const QString& text) {
    const std::vector<size_t> fields = FieldNumbers(rows, columns);
    const Wanted wanted(text);
    for (size_t row = 0; row < rows.RowCount(); ++row) {
        if (wanted.In(SearchText(rows, row, fields)) != Match::None)
            return true;
    }
    return false;
}

PickDialog::PickDialog(const QString& title, std::span<const GridColumn> columns,
                       std::shared_ptr<const RowData> rows, const QString& text)
    : mFields(FieldNumbers(*rows, columns))
    , mRows(std::move(rows)) {
    for (size_t row = 0; row < mRows->RowCount(); ++row)
        mSearchTexts.push_back(SearchText(*mRows, row, mFields));
    Layout(title, columns);
    Filter(text);
    if (mShown.empty())
        Filter({});
    txtPick->setText(text);
    txtPick->selectAll();
    Wire();
}

void PickDialog::Layout(const QString& title, std::span<const GridColumn> columns) {
    setObjectName(u"PickDialog"_s);
    setWindowTitle(title);
    txtPick = NewTextBox(u"txtPick"_s, this);
    lstPick = new ListView(this);
    lstPick->setObjectName(u"lstPick"_s);
    lstPick->setAccessibleName(title);
    lstPick->SetColumns(columns);
    int width = kScrollBarWidth;
    for (const GridColumn& column : columns)
        width += column.width;
    lstPick->SetStartSize({width, kListHeight});
    cmdPick = NewButton(u"cmdPick"_s, u"&Select"_s, this);
    cmdPick->setDefault(true);
    cmdCancel = NewButton(u"cmdCancel"_s, u"Cancel"_s, this);
    cmdCancel->setAutoDefault(false);
    auto* grid = new QGridLayout(this);
    AddLabelled(*grid, 0, 0, u"Search"_s, txtPick);
    grid->addWidget(lstPick, 1, 0, 1, 2);
    grid->addLayout(RightAligned({cmdPick, cmdCancel}), 2, 0, 1, 2);
    txtPick->setFocus();
}

void PickDialog::Wire() {
    connect(txtPick, &QLineEdit::textChanged, this, &PickDialog::Filter);
    connect(lstPick->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &PickDialog::lstPick_RowChange);
    connect(cmdPick, &QPushButton::clicked, this, &PickDialog::Pick);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    OnKeyDown(txtPick, [this](int keyCode) { return txtPick_KeyDown(keyCode); });
    WirePicker({.list = lstPick,
                .pick = [this] { Pick(); },
                .button = cmdPick,
                .keepsEnter = true,
                .box = txtPick,
                .downToList = false});
}

void PickDialog::lstPick_RowChange() {
    cmdPick->setEnabled(lstPick->currentIndex().isValid());
}

void PickDialog::Filter(const QString& text) {
    mShown.clear();
    std::vector<size_t> others;
    const Wanted wanted(text);
    for (size_t row = 0; row < mSearchTexts.size(); ++row) {
        const Match match = wanted.In(mSearchTexts[row]);
        if (match != Match::None)
            (match == Match::Beginning ? mShown : others).push_back(row);
    }
    mShown.insert(mShown.end(), others.begin(), others.end());
    auto shown = std::make_shared<RowData>();
    shown->columns = mRows->columns;
    const size_t width = mRows->columns.size();
    for (const size_t row : mShown) {
        for (size_t column = 0; column < width; ++column)
            shown->Add(mRows->Cell(row, column));
    }
    lstPick->SetRows(shown);
    // All rows are as good as none: an Enter that comes too early must not take the first one of them.
    if (text.trimmed().isEmpty())
        lstPick->setCurrentIndex({});
    lstPick_RowChange();
}

bool PickDialog::txtPick_KeyDown(int keyCode) {
    if (keyCode != Key::kDown && keyCode != Key::kUp)
        return false;
    // The marked row moves while the text keeps the focus, so that typing and choosing mix.
    const int row = lstPick->currentIndex().row() + (keyCode == Key::kDown ? 1 : -1);
    if (row >= 0 && row < lstPick->RowCount())
        lstPick->setCurrentIndex(lstPick->model()->index(row, 0));
    return true;
}

void PickDialog::Pick() {
    const int row = lstPick->currentIndex().row();
    if (row < 0)
        return;
    mPicked = mShown[static_cast<size_t>(row)];
    accept();
}
