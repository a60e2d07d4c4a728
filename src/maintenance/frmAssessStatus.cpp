#include "maintenance/frmAssessStatus.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "maintenance/commands.h"
#include "reports/ReportFiles.h"
#include "reports/Reports.h"
#include "text/IsDate.h"
#include "text/Trim.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Look.h"
#include "toolkit/ModalStack.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Picker.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <array>
#include <chrono>

using namespace Qt::StringLiterals;

namespace {

/// The columns of the list that are read. The other ones are shown only.
namespace Column {
constexpr int kAssessmentNumber = 1;
constexpr int kReference = 5;
constexpr int kStatus = 7;
constexpr int kRevenueCode = 8;
} // namespace Column

using AssessmentColumns = std::array<GridColumn, 10>;
/// The list shows under the names of its fields.
constexpr AssessmentColumns kColumnsAtLoad = {{{.width = 250},
                                               {.width = 0},
                                               {.width = 3000},
                                               {.width = 1000},
                                               {.width = 4000},
                                               {.width = 1000},
                                               {.width = 1000},
                                               {.width = 1250},
                                               {.width = 0},
                                               {.width = 0}}};
/// A searched list gives the patients' names more room and leaves out the third field.
constexpr AssessmentColumns kColumnsAfterSearch = {{{.width = 250},
                                                    {.width = 0},
                                                    {.width = 4000},
                                                    {.width = 0},
                                                    {.width = 3250},
                                                    {.width = 1250},
                                                    {.width = 1000},
                                                    {.width = 1250},
                                                    {.width = 0},
                                                    {.width = 0}}};

constexpr QSize kListSize(11900, 5200);
constexpr std::chrono::milliseconds kBlinkInterval(500);
constexpr QSize kPictureSize(32, 32);

QPixmap PictureOf(int number) {
    return ProgramIcon(u"assessment%1"_s.arg(number)).pixmap(kPictureSize);
}

bool MayBeActedOn(const QString& status) {
    return IsDate(status) || status.startsWith("OR"_L1);
}

} // namespace

frmAssessStatus::frmAssessStatus() {
    Layout();
    Wire();
}

void frmAssessStatus::Layout() {
    // The pictures lie in a static library, whose resources nobody else would take up.
    setObjectName(u"frmAssessStatus"_s);
    setWindowTitle(u"Assessment Status"_s);
    grdTable = NewList(u"grdTable"_s, u"Assessments"_s, kListSize, this);
    Timer1 = new QTimer(this);
    Timer1->setObjectName(u"Timer1"_s);
    Timer1->setInterval(kBlinkInterval);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addLayout(LayoutHeading());
    layout->addLayout(LayoutSearch());
    layout->addWidget(grdTable, 1);
    layout->addLayout(LayoutActions());
    SetTabOrder({txtSearch, grdTable, cmdRevoke, cmdPrint, cmdClose});
    txtSearch->setFocus();
}

QHBoxLayout* frmAssessStatus::LayoutHeading() {
    ImageList1 = {PictureOf(1), PictureOf(2)};
    Picture1 = new QLabel(this);
    Picture1->setObjectName(u"Picture1"_s);
    Picture1->setFixedSize(kPictureSize);
    Picture1->setPixmap(ImageList1[0]);
    QLabel* heading = NewHeading(u"Assessment Status     "_s, this);
    heading->setObjectName(u"Label1"_s);
    auto* row = new QHBoxLayout;
    row->addWidget(Picture1);
    row->addWidget(heading, 1);
    return row;
}

QHBoxLayout* frmAssessStatus::LayoutSearch() {
    txtSearch = NewTextBox(u"txtSearch"_s, this);
    auto* search = new QGridLayout;
    QLabel* label = AddLabelled(*search, 0, 0, u"Enter LastName"_s, txtSearch);
    label->setObjectName(u"Label2"_s);
    auto* row = new QHBoxLayout;
    row->addLayout(search, 1);
    row->addStretch(1);
    return row;
}

QHBoxLayout* frmAssessStatus::LayoutActions() {
    auto* lblLabel = new QLabel(u"Double-click on the entry you want to be revoked."_s, this);
    lblLabel->setObjectName(u"lblLabel"_s);
    cmdRevoke = NewButton(u"cmdRevoke"_s, u"Revoke"_s, this);
    cmdPrint = NewButton(u"cmdPrint"_s, u"Print"_s, this);
    cmdClose = NewButton(u"cmdClose"_s, u"Cancel"_s, this);
    auto* row = new QHBoxLayout;
    row->addWidget(lblLabel, 1);
    row->addWidget(cmdRevoke);
    row->addWidget(cmdPrint);
    row->addWidget(cmdClose);
    return row;
}

void frmAssessStatus::Wire() {
    WirePicker({.list = grdTable,
                .pick = [this] { cmdRevoke_Click(); },
                .button = cmdRevoke,
                .box = txtSearch,
                .capitals = false,
                .enter = [this] { txtSearch_Enter(); },
                .downToList = false});
    connect(grdTable, &FlexGrid::RowColChange, this, &frmAssessStatus::grdTable_RowColChange);
    connect(cmdRevoke, &QPushButton::clicked, this, &frmAssessStatus::cmdRevoke_Click);
    connect(cmdPrint, &QPushButton::clicked, this, &frmAssessStatus::cmdPrint_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
    connect(Timer1, &QTimer::timeout, this, &frmAssessStatus::Timer1_Timer);
}

void frmAssessStatus::Form_Load() {
    // Kept: the two buttons are enabled until the clerk first moves, whatever the first row holds.
    BindList(QString());
    grdTable->SetColumns(kColumnsAtLoad);
    Timer1->start();
}

bool frmAssessStatus::Form_QueryUnload() {
    // Kept: the question speaks of the program and bears another system's name; OK closes this screen alone.
    return MsgBox({.text = u"Are you sure to close this program?"_s,
                   .icon = MsgIcon::Question,
                   .title = u"OPD Registration System"_s,
                   .buttons = MsgButtons::OkCancel}) == MsgAnswer::Ok;
}

void frmAssessStatus::BindList(const QString& lastName) {
    RowSet rows = gCurrentUser->SQLConnection()->Execute(AssessmentStatusCommand(lastName));
    grdTable->Cells().Bind(rows.Data());
    rows.Close();
}

void frmAssessStatus::RebindList(const QString& lastName) {
    const FlexCells& cells = grdTable->Cells();
    const int row = cells.Row();
    const int col = cells.Col();
    BindList(lastName);
    // A list that is bound anew stands on its first cell; from any other one that is a move.
    if (cells.Row() != row || cells.Col() != col)
        grdTable_RowColChange();
}

void frmAssessStatus::txtSearch_Enter() {
    RebindList(txtSearch->text());
    grdTable->SetColumns(kColumnsAfterSearch);
}

void frmAssessStatus::grdTable_RowColChange() {
    const bool enabled = MayBeActedOn(grdTable->CurrentText(Column::kStatus));
    cmdRevoke->setEnabled(enabled);
    cmdPrint->setEnabled(enabled);
}

void frmAssessStatus::cmdRevoke_Click() {
    if (MsgBox({.text = u"Are you sure to revoke?"_s,
                .icon = MsgIcon::Question,
                .buttons = MsgButtons::YesNo}) != MsgAnswer::Yes)
        return;
    const QString reference = grdTable->CurrentText(Column::kReference);
    if (!reference.isEmpty())
        RevokeEveryLineOf(reference);
    else
        gCurrentUser->SQLConnection()->ExecuteNoResult(
            AssessRevokeCommand(grdTable->CurrentText(Column::kAssessmentNumber), reference,
                                grdTable->CurrentText(Column::kRevenueCode)));
    // Kept: it says so too where the reference had no lines and nothing was revoked.
    MsgBox({.text = u"Assessment has been revoked."_s, .icon = MsgIcon::Information});
    // Kept: the search text and its column widths stay over the list of all.
    RebindList(QString());
}

/// Each line is a write of its own: a failure leaves the lines before it revoked.
void frmAssessStatus::RevokeEveryLineOf(const QString& reference) {
    CommandGateway& connection = *gCurrentUser->SQLConnection();
    RowSet lines =
        connection.Open(LinesOfReferenceCommand(Trim(reference)), CursorType::Dynamic, LockType::ReadOnly);
    while (!lines.Eof()) {
        // The lines are found by the trimmed reference and revoked by the one that the list shows.
        connection.ExecuteNoResult(AssessRevokeCommand(lines.Fields(u"AssessNum").ToText(), reference,
                                                       lines.Fields(u"RevenueID").ToText()));
        lines.MoveNext();
    }
    lines.Close();
}

void frmAssessStatus::cmdPrint_Click() {
    const QString reference = Trim(grdTable->CurrentText(Column::kReference));
    RowSet lines = gCurrentUser->SQLConnection()->Open(AssessmentSlipCommand(reference), CursorType::Dynamic,
                                                       LockType::ReadOnly, CursorLocation::Client);
    QString number;
    QString name;
    QString hospitalNumber;
    QString visitNumber;
    if (lines.RecordCount() > 0) {
        name = lines.Fields(u"Name").TextOrEmpty();
        hospitalNumber = lines.Fields(u"HospNum").TextOrEmpty();
        visitNumber = lines.Fields(u"IdNum").TextOrEmpty();
        number = lines.Fields(u"RefNum").TextOrEmpty();
        // Kept: read and dropped; the slip takes these from its report file.
        for (const QStringView field : {u"Quantity", u"Amount", u"TransDate"})
            lines.Fields(field).TextOrEmpty();
    }
    lines.Close();
    OpenReport(PathOf(ReportFile::kAssessmentDuplicate),
               {number, name, hospitalNumber, visitNumber, u"CASH"_s, gCurrentUser->EmployeeName()});
    ShowReport(false, u"Re-Print Assessment Slip"_s, false);
}

void frmAssessStatus::Timer1_Timer() {
    // A message box holds the blink.
    if (qobject_cast<QMessageBox*>(ModalStack::Top()))
        return;
    Picture1->setPixmap(ImageList1[mPhase ? 0 : 1]);
    mPhase = !mPhase;
}
