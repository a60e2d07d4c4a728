#include "maintenance/frmListCharges.h"

#include "components/DepartmentCodes.h"
#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "maintenance/commands.h"
#include "patients/frmSearchPatient.h"
#include "patients/LoadPatient.h"
#include "patients/PatientContext.h"
#include "reports/Reports.h"
#include "reports/SlipHeading.h"
#include "text/Clock.h"
#include "text/Format.h"
#include "text/ToText.h"
#include "text/Trim.h"
#include "text/UCase.h"
#include "text/Val.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Picker.h"
#include "toolkit/Screens.h"
#include "toolkit/SendKeys.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The columns of the list, which are read by their place alone.
namespace Column {
constexpr int kDepartment = 1;
constexpr int kItem = 2;
constexpr int kQuantity = 4;
constexpr int kAmount = 5;
constexpr int kSlip = 6;
constexpr int kChargeLine = 9;
} // namespace Column

constexpr std::array kChargesColumns = {GridColumn{u"  ", 1},
                                        GridColumn{u"Dept. ", 500, {}, Qt::AlignLeft},
                                        GridColumn{u"Item. #", 800, {}, Qt::AlignLeft},
                                        GridColumn{u" Item   Description    ", 3500, {}, Qt::AlignLeft},
                                        GridColumn{u"QTY", 800, {}, Qt::AlignLeft},
                                        GridColumn{u"Amount ", 900, {}, Qt::AlignLeft},
                                        GridColumn{u"ChargeSlip #", 1800, {}, Qt::AlignLeft},
                                        GridColumn{.width = 2000}};

constexpr int kReprint = 0;

/// The departments whose lines are services, matched to the letter. Every other line is a stock item.
bool IsService(const QString& department) {
    return department == Department::kEarCare || department == Department::kDoctorsFee;
}

} // namespace

class frmListCharges::Target : public FinderTarget {
  public:
    explicit Target(frmListCharges& screen)
        : mScreen(screen) {}

    QString FinderText() const override { return mScreen.txtLastName->text(); }

    void LoadPick() override { LoadForList({.name = mScreen, .info = mScreen}); }

    void Picked() override {
        FlexCells& cells = mScreen.mshflexList->Cells();
        cells.Clear();
        cells.SetCell(0, 0);
    }

  private:
    frmListCharges& mScreen;
};

FinderTarget& ListChargesTarget() {
    return *Screens::Get<frmListCharges>().mTarget;
}

frmListCharges::frmListCharges()
    : mTarget(std::make_unique<Target>(*this)) {
    Layout();
    Wire();
}

frmListCharges::~frmListCharges() = default;

void frmListCharges::Wire() {
    for (QRadioButton* option : Option1) {
        // A click on the choice that stands counts too: another screen may have changed the type meanwhile.
        connect(option, &QRadioButton::clicked, this, &frmListCharges::Option1_Click);
        connect(option, &QRadioButton::toggled, this, &frmListCharges::Option1_Click);
    }
    OnKeyPress(txtLastName, [this](int& key) { txtLastName_KeyPress(key); });
    connect(cmdList, &QPushButton::clicked, this, &frmListCharges::cmdList_Click);
    for (int index = 0; index < int(cmdOption.size()); ++index)
        connect(cmdOption[size_t(index)], &QPushButton::clicked, this,
                [this, index] { cmdOption_Click(index); });
    WirePicker({.list = mshflexList, .pick = [this] { CancelCharge(); }, .keys = PickKeys::None});
}

void frmListCharges::Form_Load() {
    MoveTo(1800, 2000);
    Option1_Click();
}

void frmListCharges::Option1_Click() {
    if (Option1[0]->isChecked())
        gPatientType = u"I"_s;
    else if (Option1[1]->isChecked())
        gPatientType = u"O"_s;
}

void frmListCharges::txtLastName_KeyPress(int& keyAscii) {
    keyAscii = UCase(QChar(keyAscii)).unicode();
    if (keyAscii == Key::kEnter) {
        SendTab();
        Screens::Get<frmSearchPatient>().Show();
    }
}

void frmListCharges::cmdList_Click() {
    Get_Charges();
    // Kept: always so; a list that came back empty leaves the buttons enabled out of sight.
    if (mshflexList->Cells().Col() >= 0)
        EnableOptions();
}

void frmListCharges::cmdOption_Click(int index) {
    if (index == kReprint)
        ReprintSlip();
    else
        CancelCharge();
}

void frmListCharges::PutUpGrid() {
    FlexCells& cells = mshflexList->Cells();
    cells.Clear();
    cells.SetRows(2);
    cells.SetCols(int(kChargesColumns.size()));
    mshflexList->SetColumns(kChargesColumns);
}

void frmListCharges::EnableOptions() {
    for (QPushButton* button : cmdOption)
        button->setEnabled(true);
}

void frmListCharges::ShowOptions(bool shown) {
    for (QPushButton* button : cmdOption)
        button->setVisible(shown);
}

void frmListCharges::Get_Charges() {
    PutUpGrid();
    RowSet charges = gCurrentUser->SQLConnection()->Open(ListAllChargesCommand(txtPno->text(), txtId->text()),
                                                         CursorType::Static, LockType::ReadOnly);
    FlexCells& cells = mshflexList->Cells();
    cells.Bind(charges.Data());
    const bool isEmpty = cells.Rows() == 1;
    txtMessage->setVisible(isEmpty);
    mshflexList->setVisible(!isEmpty);
    if (isEmpty) {
        // Kept: a later list does not bring them back into sight; the next cancellation does.
        ShowOptions(false);
    } else {
        EnableOptions();
        cells.SetRow(1);
    }
    charges.Close();
}

void frmListCharges::ReprintSlip() {
    const QString slipNumber = Trim(mshflexList->CurrentText(Column::kSlip));
    // The database is told first: a slip that fails to print counts as printed again.
    gCurrentUser->SQLConnection()->ExecuteNoResult(ReprintChargeSlipCommand(slipNumber));
    const QString name = Trim(txtLastName->text()) + u", "_s + Trim(txtFirstName->text()) + u" "_s +
                         Trim(txtMiddleName->text());
    OpenChargeSlip({.number = slipNumber,
                    .patientName = name,
                    .admissionNumber = txtId->text(),
                    .hospitalNumber = txtPno->text(),
                    .room = txtRoom->text(),
                    .account = gAccountNumber,
                    .station = gStationName});
    ShowReport(false, u"RE-Print ChargeSlip"_s, false);
}

/// Whether nothing is left of the current line. A line that the database does not know counts as standing.
bool frmListCharges::IsTakenBack() const {
    RowSet left = gCurrentUser->SQLConnection()->Open(
        VerifyChargesCommand(txtId->text(), mshflexList->CurrentText(Column::kItem),
                             mshflexList->CurrentText(Column::kSlip),
                             mshflexList->CurrentText(Column::kDepartment)),
        CursorType::ForwardOnly, LockType::Optimistic);
    const bool isTakenBack = !left.Eof() && left.Fields(u"Amount").ToDouble() <= 0;
    if (isTakenBack)
        MsgBox({.text = u"Can't Cancel this Charges. The Total Amount is already Zero!"_s,
                .icon = MsgIcon::Critical,
                .title = u"Message"_s});
    left.Close();
    return isTakenBack;
}

void frmListCharges::CancelCharge() {
    ShowOptions(true);
    if (IsTakenBack())
        return;
    if (MsgBox({.text = u"Are you sure you want to Cancel this Charge?"_s,
                .icon = MsgIcon::Question,
                .buttons = MsgButtons::YesNo}) != MsgAnswer::Yes)
        return;
    const QString department = mshflexList->CurrentText(Column::kDepartment);
    if (IsService(department))
        CancelService(department);
    else
        CancelStockItem(department);
    Get_Charges();
}

void frmListCharges::CancelStockItem(const QString& department) {
    const QString moment = Format(Now(), u"mm/dd/yyyy hh:mm:ss AM/PM");
    // Kept: a line of HC never comes here, so the entry is "PH".
    const QString source =
        department == Department::kEarCare ? Department::kCentralSupply : Department::kPharmacy;
    StockCardEntry entry = {.hospitalNumber = txtPno->text(),
                            .idNumber = txtId->text(),
                            .itemID = mshflexList->CurrentText(Column::kItem),
                            .moment = moment,
                            .referenceNumber = mshflexList->CurrentText(Column::kSlip),
                            .quantity = Val(mshflexList->CurrentText(Column::kQuantity)),
                            .position7 = 0,
                            .amount = Val(ToText(Val(mshflexList->CurrentText(Column::kAmount)) * -1)),
                            .userCode = gCurrentUser->EmployeeCode(),
                            .chargeLine = mshflexList->CurrentText(Column::kChargeLine),
                            .room = txtRoom->text(),
                            .position15 = 1,
                            .position16 = source,
                            .position17 = source,
                            .recordType = u"C"_s,
                            .patientType = FinderPatientType(),
                            .position26 = 0};
    gStockItem->Drug().AppendStockCard(entry);
}

void frmListCharges::CancelService(const QString& department) {
    const QString moment = Format(Now(), u"MM/DD/YYYY hh:mm:ss AM/PM");
    const QString room =
        Option1[0]->isChecked() ? gPersonFinder->Admission().Room->RoomID.ToText() : u"OPD/ER"_s;
    gCurrentUser->SQLConnection()->ExecuteNoResult(
        UpdateChargingCommand({.hospitalNumber = txtPno->text(),
                               .idNumber = txtId->text(),
                               .itemID = mshflexList->CurrentText(Column::kItem),
                               .amount = mshflexList->CurrentText(Column::kAmount),
                               .quantity = mshflexList->CurrentText(Column::kQuantity),
                               .moment = moment,
                               .department = department,
                               .userCode = gCurrentUser->EmployeeCode(),
                               .patientType = gPatientType,
                               .room = room,
                               .slipNumber = mshflexList->CurrentText(Column::kSlip)}));
}
