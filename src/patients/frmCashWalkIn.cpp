#include "patients/frmCashWalkIn.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/CashTarget.h"
#include "patients/commands.h"
#include "patients/frmCashWalkInPatient.h"
#include "patients/PatientContext.h"
#include "text/IsNumeric.h"
#include "text/Trim.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/Look.h"
#include "toolkit/Picker.h"
#include "toolkit/Screens.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

namespace Column {
constexpr int kIdNumber = 1;
constexpr int kHospitalNumber = 2;
constexpr int kName = 3;
constexpr int kAdmission = 5;
} // namespace Column

/// The list before there are hits; the hits show under the names of their fields, as wide as these.
constexpr std::array kWalkInColumns = {GridColumn{u" ", 1},
                                       GridColumn{u"HOSP. #", 1200, {}, Qt::AlignLeft},
                                       GridColumn{u"PATIENT NAME                  ", 1000, {}, Qt::AlignLeft},
                                       GridColumn{u"ADM. DATE ", 3000, {}, Qt::AlignLeft},
                                       GridColumn{u"", 1000},
                                       GridColumn{.width = 1}};
constexpr QSize kWalkInListSize(6450, 3600);

/// A patient type of the assessment, and how its patients are listed.
struct CashKind {
    QString letter;
    QString argument;
    CursorType cursor;
    LockType lock;
};

/// In the order of the assessment's options.
const std::array<CashKind, 3>& CashKinds() {
    static const std::array<CashKind, 3> kinds = {{
        {u"I"_s, u"1"_s, CursorType::ForwardOnly, LockType::Optimistic},
        {u"O"_s, u"2"_s, CursorType::ForwardOnly, LockType::Optimistic},
        {u"W"_s, u"3"_s, CursorType::Unspecified, LockType::Unspecified},
    }};
    return kinds;
}

/// The option that is on decides the type of the patient; none on leaves the one before.
void TakePatientType(const CashTarget& assessment) {
    const auto& kinds = CashKinds();
    for (size_t i = 0; i < kinds.size(); ++i) {
        if (assessment.PatientTypeOn(static_cast<int>(i))) {
            gPatientType = kinds[i].letter;
            return;
        }
    }
}

/// Nothing is sent for a letter of no type; whoever reads the rows then meets a closed row set.
void OpenHits() {
    for (const CashKind& kind : CashKinds()) {
        if (kind.letter == gPatientType)
            gCashRecordset = gCurrentUser->SQLConnection()->Open(
                GetCashPatientCommand(Trim(gCashSearchCopy), kind.argument), kind.cursor, kind.lock);
    }
}

/// What the pick shows of the patient decides the class: a visit's number ends in "B", a walk-in has none,
/// and a hospital number with a letter in it is no in-patient's.
bool IsOutsideTheRooms(const QString& idNumber) {
    return idNumber.isEmpty() || Trim(idNumber).endsWith(u'B') || !IsNumeric(gHospitalNumber);
}

void TakeRoomClass(const QString& idNumber, const FlexGrid& hits) {
    if (IsOutsideTheRooms(idNumber)) {
        gRoomClass = u"A"_s;
        return;
    }
    // A copy: the patient master rewrites the number that it is given.
    QString admission = hits.CurrentText(Column::kAdmission);
    // Kept: an admission that is not found leaves the class of the patient before.
    if (gPersonFinder->ValidateAdmission(admission))
        gRoomClass = gPersonFinder->Admission().Room->roomclassid.ToText();
}

} // namespace

frmCashWalkIn::frmCashWalkIn() {
    Layout();
    Wire();
}

void frmCashWalkIn::Layout() {
    setObjectName(u"frmCashWalkIn"_s);
    setWindowTitle(u"Patient List"_s);
    QLabel* heading = NewHeading(u"Patient List"_s, this);
    heading->setObjectName(u"Label2"_s);
    txtCash = NewTextBox(u"txtCash"_s, this);
    txtCash->setAccessibleName(u"Name or number to search for"_s);
    cmdSearch = NewButton(u"cmdSearch"_s, QString(), this);
    cmdSearch->setIcon(ProgramIcon(u"patient"_s));
    cmdSearch->setAccessibleName(u"Search"_s);
    cmdSearch->setToolTip(u"Search"_s);
    MSHFlexCash = NewList(u"MSHFlexCash"_s, u"Patient List"_s, kWalkInListSize, this);
    cmdRegister = NewButton(u"cmdRegister"_s, u"&Register"_s, this);
    Command1 = NewButton(u"Command1"_s, u"&Close"_s, this);

    auto* search = new QHBoxLayout;
    search->addWidget(txtCash, 1);
    search->addWidget(cmdSearch);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addLayout(search);
    layout->addWidget(MSHFlexCash, 1);
    layout->addLayout(RightAligned({cmdRegister, Command1}));
    // The order of work: a name, then the row.
    SetTabOrder({txtCash, MSHFlexCash, cmdSearch, cmdRegister, Command1});
    txtCash->setFocus();
}

void frmCashWalkIn::Wire() {
    connect(cmdSearch, &QPushButton::clicked, this, &frmCashWalkIn::cmdSearch_Click);
    connect(cmdRegister, &QPushButton::clicked, this, &frmCashWalkIn::cmdRegister_Click);
    connect(Command1, &QPushButton::clicked, this, &Form::Unload);
    OnKeyPress(txtCash, [this](int& key) { txtCash_KeyPress(key); });
    // Kept: any key picks. The box remembers its text before it searches, so its keys are the screen's own.
    WirePicker({.list = MSHFlexCash, .pick = [this] { MSHFlexCash_DblClick(); }, .keys = PickKeys::Any});
}

void frmCashWalkIn::Form_Load() {
    MSHFlexCash->setFocusPolicy(Qt::TabFocus);
    FlexCells& cells = MSHFlexCash->Cells();
    cells.Clear();
    cells.SetRows(2);
    cells.SetCols(int(kWalkInColumns.size()));
    MSHFlexCash->SetColumns(kWalkInColumns);
    cmdSearch_Click();
}

void frmCashWalkIn::txtCash_KeyPress(int& keyAscii) {
    gCashRecordset = RowSet();
    // Kept: the text as it stood before this key. A click on the search button after typing goes by all but
    // the last key; Enter adds nothing, so it goes by the whole text.
    gCashSearchText = txtCash->text();
    if (keyAscii == Key::kEnter)
        cmdSearch_Click();
}

void frmCashWalkIn::cmdSearch_Click() {
    gCashSearchCopy = gCashSearchText;
    TakePatientType(WaitingCashTarget());
    OpenHits();
    FlexCells& cells = MSHFlexCash->Cells();
    const std::shared_ptr<const RowData> hits = gCashRecordset.Data();
    // The headings of the empty grid stand one column further left than the hits. Cutting the columns off
    // makes room for the hits' own.
    cells.SetCols(1);
    cells.Bind(hits);
    if (cells.Rows() == 1) {
        cells.SetRows(2);
        cells.SetCell(1, 1);
        // Kept: a later search that finds somebody does not bring the grid back among the tab stops.
        MSHFlexCash->setFocusPolicy(Qt::NoFocus);
    }
    gCashRecordset.Close();
    gCashRecordset = RowSet();
    cmdRegister->setEnabled(gPatientType == u"W"_s);
}

void frmCashWalkIn::MSHFlexCash_DblClick() {
    gHospitalNumber = MSHFlexCash->CurrentText(Column::kHospitalNumber);
    const QString idNumber = MSHFlexCash->CurrentText(Column::kIdNumber);
    gIDNumber = idNumber;
    CashTarget& assessment = WaitingCashTarget();
    assessment.EnableExams();
    const CashPatientBoxes& boxes = assessment.Boxes();
    boxes.txtSname->setText(MSHFlexCash->CurrentText(Column::kName));
    boxes.txtHospNum->setText(gHospitalNumber);
    boxes.txtIdnum->setText(idNumber);
    TakeRoomClass(idNumber, *MSHFlexCash);
    Unload();
}

void frmCashWalkIn::cmdRegister_Click() {
    Unload();
    Screens::Get<frmCashWalkInPatient>().ShowModal();
}
