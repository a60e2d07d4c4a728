#include "patients/frmSearchPatient.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "patients/FinderTarget.h"
#include "patients/LoadPatient.h"
#include "patients/PatientContext.h"
#include "text/RunTimeError.h"
#include "toolkit/Controls.h"
#include "toolkit/ListView.h"
#include "toolkit/Look.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Picker.h"
#include "toolkit/Screens.h"
#include "toolkit/SendKeys.h"
#include "toolkit/Twips.h"
#include "toolkit/Workspace.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <array>
#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr int kIdNumber = 1;
constexpr int kBillingDate = 4;
/// Of the first columns, which are read without a guard.
constexpr size_t kUnguarded = 3;
constexpr std::array kFinderColumns = {GridColumn{u"HOSPITAL #", 1300, u"hospital #"},
                                       GridColumn{u"ADMISSION #", 1300, u"Admission #"},
                                       GridColumn{u"PATIENT NAME", 2200, u"Patient Name"},
                                       GridColumn{u"ADMISSION DATE", 1800, u"admission date"},
                                       GridColumn{u"BILLING DATE", 1800, u"Billing Date"}};
constexpr int kListWidth = 8900;
constexpr int kListHeight = 4200;
constexpr std::chrono::milliseconds kTimerInterval(500);

RowSet OpenPatients(const QString& text) {
    // Without a letter of a patient type nothing is sent, and the reader meets a closed row set.
    if (gPatientType != u"I"_s && gPatientType != u"O"_s)
        return {};
    return gCurrentUser->SQLConnection()->Open(GetPatientCommand(gPatientType, text), CursorType::Dynamic,
                                               LockType::Optimistic);
}

/// A Null in a column without a guard raises 94; a column that is not there raises 3265.
void CheckUnguarded(const RowData& rows) {
    const std::vector<size_t> fields = FieldNumbers(rows, kFinderColumns);
    for (size_t row = 0; row < rows.RowCount(); ++row) {
        for (size_t i = 0; i < kUnguarded; ++i) {
            if (rows.Cell(row, fields[i]).IsNull())
                throw RunTime::Error(RunTime::kInvalidUseOfNull);
        }
    }
}

} // namespace

frmSearchPatient::frmSearchPatient() {
    Layout();
    Wire();
}

void frmSearchPatient::Layout() {
    setObjectName(u"frmSearchPatient"_s);
    setWindowTitle(u"Patient List"_s);
    LetMaximize();
    txtLastName = NewTextBox(u"txtLastName"_s, this);
    ListView1 = new ListView(this);
    ListView1->setObjectName(u"ListView1"_s);
    ListView1->setAccessibleName(u"Patients found"_s);
    ListView1->SetRowIcon(ProgramIcon(u"patient"_s));
    ListView1->setFixedSize(TwipsToPixels(kListWidth), TwipsToPixels(kListHeight));
    cmdSearch = NewButton(u"cmdSearch"_s, u"Search"_s, this);
    for (size_t i = 0; i < optPatientType.size(); ++i) {
        optPatientType[i] = new QRadioButton(i == 0 ? u"In-Patient"_s : u"Out-Patient"_s, this);
        optPatientType[i]->setObjectName(u"optPatientType(%1)"_s.arg(i));
    }
    Timer1 = new QTimer(this);
    Timer1->setObjectName(u"Timer1"_s);
    Timer1->setInterval(kTimerInterval);

    LayoutInPlace();
    // The order of work: a name, then the row.
    SetTabOrder({txtLastName, ListView1, cmdSearch, optPatientType[0], optPatientType[1]});
    txtLastName->setFocus();
}

/// Kept: the controls stand where they are, whatever size the window is given.
void frmSearchPatient::LayoutInPlace() {
    auto* body = new QWidget(this);
    auto* place = new QGridLayout(this);
    place->setContentsMargins(0, 0, 0, 0);
    place->addWidget(body, 0, 0, Qt::AlignLeft | Qt::AlignTop);
    auto* grid = new QGridLayout(body);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    auto* search = new QGridLayout;
    QLabel* label = AddLabelled(*search, 0, 0, u"LastName"_s, txtLastName);
    label->setObjectName(u"Label1"_s);
    auto* row = new QHBoxLayout;
    row->addLayout(search, 1);
    row->addWidget(cmdSearch);
    row->addSpacing(Space::kWide);
    row->addWidget(optPatientType[0]);
    row->addWidget(optPatientType[1]);
    grid->addLayout(row, 0, 0);
    grid->addWidget(ListView1, 1, 0);
}

void frmSearchPatient::Wire() {
    connect(cmdSearch, &QPushButton::clicked, this, &frmSearchPatient::cmdSearch_Click);
    connect(ListView1, &ListView::ColumnClick, this, &frmSearchPatient::ListView1_ColumnClick);
    connect(ListView1, &ListView::Click, this, &frmSearchPatient::ListView1_Click);
    // Kept: any key picks.
    WirePicker({.list = ListView1,
                .pick = [this] { ListView1_DblClick(); },
                .keys = PickKeys::Any,
                .box = txtLastName,
                .enter = [this] { txtLastName_Enter(); },
                .downToList = false});
}

void frmSearchPatient::Form_Load() {
    MoveTo(3500, 1000);
    ListView1->SetColumns(kFinderColumns);
    RefillFromTarget();
    // Kept: the timer runs and nothing listens to it; the list is never refreshed on a clock.
    if (gChargeMode == u"Post"_s || gChargeMode == u"List"_s)
        Timer1->start();
}

void frmSearchPatient::Form_Unload() {
    if (Workspace* workspace = Workspace::Current())
        workspace->EnableMenuItem(u"mnuMLedger"_s, false);
}

void frmSearchPatient::RefillFromTarget() {
    if (const FinderTarget* target = FinderTargetOf(gChargeMode))
        Fill(target->FinderText());
}

void frmSearchPatient::Fill(const QString& text) {
    const ListSearching sign(*ListView1);
    RowSet rows = OpenPatients(text);
    if (!rows.Eof()) {
        CheckUnguarded(*rows.Data());
        ListView1->SetRows(rows.Data());
    }
    rows.Close();
}

void frmSearchPatient::cmdSearch_Click() {
    ListView1->ClearRows();
    Fill(txtLastName->text());
}

void frmSearchPatient::txtLastName_Enter() {
    SendTab();
    cmdSearch_Click();
}

void frmSearchPatient::ListView1_ColumnClick(int column) {
    // Kept: one toggle for the whole list, so a click on another column reverses the direction too.
    const bool ascending = ListView1->SortOrder() == Qt::AscendingOrder;
    ListView1->SetSortOrder(ascending ? Qt::DescendingOrder : Qt::AscendingOrder);
    ListView1->SetSortKey(column - 1);
}

void frmSearchPatient::TakeSelectedRow() {
    gHospitalNumber = ListView1->CurrentText(0);
    gIDNumber = ListView1->CurrentText(kIdNumber);
}

void frmSearchPatient::ListView1_Click() {
    TakeSelectedRow();
    if (Workspace* workspace = Workspace::Current())
        workspace->EnableMenuItem(u"mnuMLedger"_s, true);
}

/// Kept: the answer is not read. A text in the waiting screen's field that the server refuses fails here.
void frmSearchPatient::RepeatCommandOfTarget() {
    RowSet rows;
    if (const FinderTarget* target = FinderTargetOf(gChargeMode)) {
        const QString command = GetPatientCommand(gPatientType, target->FinderText());
        rows = gCurrentUser->SQLConnection()->Open(command, CursorType::Dynamic, LockType::Optimistic);
    }
    rows.Close();
}

void frmSearchPatient::ListView1_DblClick() {
    TakeSelectedRow();
    RepeatCommandOfTarget();
    if (!ListView1->CurrentText(kBillingDate).isEmpty()) {
        MsgBox(
            {.text =
                 u"Patient's Account has already been closed, If you have charges to adjust, pls. notify the "
                 "billing for further instructions."_s,
             .icon = MsgIcon::Exclamation,
             .title = u"Message"_s});
        return;
    }
    LoadTarget();
}

void frmSearchPatient::LoadTarget() {
    FinderTarget* target = FinderTargetOf(gChargeMode);
    if (!target)
        throw RunTime::Error(RunTime::kObjectNotSet);
    target->LoadPick();
    // The finder is closed by now; this screen is only waiting to be deleted.
    target->Picked();
}

FinderQuestion::~FinderQuestion() {
    if (mMadeIt)
        Screens::Drop<frmSearchPatient>();
}

QString FinderQuestion::PatientType() {
    mMadeIt = mMadeIt || !Screens::IsLoaded<frmSearchPatient>();
    return Screens::Get<frmSearchPatient>().optPatientType[0]->isChecked() ? u"I"_s : u"O"_s;
}

QString FinderPatientType() {
    return FinderQuestion().PatientType();
}
