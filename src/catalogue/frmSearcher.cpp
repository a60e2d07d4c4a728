#include "catalogue/frmSearcher.h"

#include "catalogue/commands.h"
#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/PatientContext.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Focus.h"
#include "toolkit/Keys.h"
#include "toolkit/Look.h"
#include "toolkit/Picker.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kExam = 1;
constexpr int kExamId = 2;
constexpr std::array kExaminationColumns = {GridColumn{.width = 100}, GridColumn{.width = 4200},
                                            GridColumn{.width = 1500}};
constexpr QSize kExaminationListSize(6400, 3800);

RowSet OpenExams(const QString& command) {
    return gConnection->Open(command, CursorType::Dynamic, LockType::Optimistic, CursorLocation::Client);
}

/// True where the key changes the text; the box need not be given it again.
bool PutInto(QLineEdit& box, int keyAscii) {
    if (keyAscii == Key::kBackspace)
        box.backspace();
    else if (keyAscii >= u' ')
        box.insert(QChar(keyAscii));
    else
        return false;
    return true;
}

} // namespace

frmSearcher::frmSearcher() {
    Layout();
    Wire();
}

void frmSearcher::Layout() {
    setObjectName(u"frmSearcher"_s);
    setWindowTitle(u"Ultra Exam"_s);
    QLabel* lblTitle = NewHeading(u"Ultra Exam "_s, this);
    lblTitle->setObjectName(u"lblTitle"_s);
    grdDispWindow = NewList(u"grdDispWindow"_s, u"Ultra Exam"_s, kExaminationListSize, this);
    auto* lblHelpTip =
        new QLabel(u"Press [Select] Enter or Double Click on the Table to Select, Cancel to Abort"_s, this);
    lblHelpTip->setObjectName(u"lblHelpTip"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addWidget(lblTitle);
    layout->addLayout(LayoutSearch());
    layout->addWidget(grdDispWindow, 1);
    layout->addWidget(lblHelpTip);
    layout->addLayout(LayoutActions());
    SetTabOrder({txtSearchStr, grdDispWindow, chkAutoSearch, cmdSelect, cmdCancel});
    txtSearchStr->setFocus();
}

QHBoxLayout* frmSearcher::LayoutSearch() {
    txtSearchStr = NewTextBox(u"txtSearchStr"_s, this);
    txtSearchStr->setAccessibleName(u"Search text"_s);
    chkAutoSearch = new QCheckBox(u"AutoSearch"_s, this);
    chkAutoSearch->setObjectName(u"chkAutoSearch"_s);
    auto* search = new QHBoxLayout;
    search->addWidget(txtSearchStr, 1);
    search->addWidget(chkAutoSearch);
    return search;
}

QHBoxLayout* frmSearcher::LayoutActions() {
    cmdSelect = NewButton(u"cmdSelect"_s, u"&Select"_s, this);
    cmdCancel = NewButton(u"cmdCancel"_s, u"Cancel"_s, this);
    return RightAligned({cmdSelect, cmdCancel});
}

void frmSearcher::Wire() {
    OnGotFocus(txtSearchStr, [this] { txtSearchStr_GotFocus(); });
    OnKeyPress(txtSearchStr, [this](int& key) { txtSearchStr_KeyPress(key); });
    WirePicker({.list = grdDispWindow, .pick = [this] { cmdSelect_Click(); }, .keys = PickKeys::Any});
    connect(cmdSelect, &QPushButton::clicked, this, &frmSearcher::cmdSelect_Click);
    SetCloseButton(cmdCancel);
    connect(cmdCancel, &QPushButton::clicked, this, &frmSearcher::cmdCancel_Click);
}

void frmSearcher::Form_Load() {
    FlexCells& cells = grdDispWindow->Cells();
    cells.SetCols(int(kExaminationColumns.size()));
    grdDispWindow->SetColumns(kExaminationColumns);
    // Kept: the names of the fields take the place of these headings as soon as the list is bound, so they
    // are no part of the columns.
    cells.SetTextMatrix(0, kExam, u"Ultra Exam"_s);
    cells.SetTextMatrix(0, kExamId, u"Ultra ExamID"_s);
    BindExams(UltraExamsCommand());
    mLoaded = true;
}

void frmSearcher::BindExams(const QString& command) {
    RowSet exams = OpenExams(command);
    grdDispWindow->Cells().Bind(exams.Data());
    exams.Close();
}

void frmSearcher::txtSearchStr_GotFocus() {
    BindExams(SearchUltraExamCommand(txtSearchStr->text()));
}

/// The key is put into the box first: what is searched for is the text with it.
///
/// Kept: the focus leaves the box with each key, so the clerk has to come back for the next one.
void frmSearcher::txtSearchStr_KeyPress(int& keyAscii) {
    if (keyAscii == Key::kEscape)
        return;
    if (!txtSearchStr->hasFocus())
        return SearchBehindThePaste();
    if (PutInto(*txtSearchStr, keyAscii))
        keyAscii = 0;
    BindExams(SearchUltraExamCommand(txtSearchStr->text()));
    grdDispWindow->setFocus();
}

/// The key that pastes has searched and left the box. The characters of the text come to it all the same, one
/// right behind the other, and are searched for once they stand there.
void frmSearcher::SearchBehindThePaste() {
    if (std::exchange(mSearchDue, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            mSearchDue = false;
            BindExams(SearchUltraExamCommand(txtSearchStr->text()));
        },
        Qt::QueuedConnection);
}

void frmSearcher::cmdSelect_Click() {
    RowSet exams = OpenExams(UltraExamsCommand());
    if (!exams.Eof()) {
        // In a list without rows the current row is that of the headings; nothing is picked there.
        const bool isEmpty = grdDispWindow->Cells().Row() == 0;
        gUltraExam = isEmpty ? QString() : grdDispWindow->CurrentText(kExam);
        gUltraExamID = isEmpty ? QString() : grdDispWindow->CurrentText(kExamId);
    }
    exams.Close();
    Unload();
}

void frmSearcher::cmdCancel_Click() {
    gUltraExamID.clear();
    Unload();
}
