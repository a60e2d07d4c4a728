#include "reports/frmLedger.h"

#include "components/shared.h"
#include "patients/frmSearchPatient.h"
#include "patients/LoadPatient.h"
#include "patients/PatientContext.h"
#include "reports/ReportFiles.h"
#include "reports/Reports.h"
#include "text/IsNumeric.h"
#include "toolkit/Controls.h"
#include "toolkit/Keys.h"
#include "toolkit/Look.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Screens.h"
#include "toolkit/SendKeys.h"
#include "toolkit/Workspace.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kInPatient = 0;

} // namespace

frmLedger::frmLedger() {
    Layout();
    Wire();
}

void frmLedger::Layout() {
    setObjectName(u"frmLedger"_s);
    setWindowTitle(u"Patient's Ledger"_s);
    QLabel* heading = NewHeading(u"Patients Ledger"_s, this);
    heading->setObjectName(u"Label2"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addWidget(heading);
    layout->addWidget(LayoutSearch());
    layout->addStretch(1);
    layout->addLayout(LayoutActions());
    SetTabOrder({cmbPatientCode, txtIDNum, cmdView, cmdClose});
    cmbPatientCode->setFocus();
}

QGroupBox* frmLedger::LayoutSearch() {
    QGroupBox* frame1 = NewSearchPatientFrame(*this, this);
    cmbPatientCode->addItems({u"Inpatient"_s, u"Outpatient"_s});
    // Neither is chosen at the start, so that choosing the first one is a choice too.
    cmbPatientCode->setCurrentIndex(-1);
    return frame1;
}

QHBoxLayout* frmLedger::LayoutActions() {
    cmdView = NewButton(u"cmdView"_s, u"&View"_s, this);
    cmdClose = NewButton(u"cmdClose"_s, u"Exit"_s, this);
    return RightAligned({cmdView, cmdClose});
}

void frmLedger::Wire() {
    // Choosing the item that stands counts too: another screen may have changed the type meanwhile.
    connect(cmbPatientCode, &QComboBox::activated, this, &frmLedger::cmbPatientCode_Click);
    connect(cmbPatientCode, &QComboBox::currentIndexChanged, this, &frmLedger::cmbPatientCode_Click);
    OnKeyPress(txtIDNum, [this](int& key) { txtIDNum_KeyPress(key); });
    connect(cmdView, &QPushButton::clicked, this, &frmLedger::cmdView_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
}

void frmLedger::Form_Load() {
    MoveTo(4000, 2000);
}

void frmLedger::Form_Unload() {
    if (Workspace* workspace = Workspace::Current())
        workspace->EnableMenuItem(u"mnuMLedger"_s, true);
}

QString frmLedger::FinderText() const {
    return txtIDNum->text();
}

void frmLedger::LoadPick() {
    LoadForLedger(*this);
}

void frmLedger::cmbPatientCode_Click() {
    gPatientType = cmbPatientCode->currentIndex() == kInPatient ? u"I"_s : u"O"_s;
    txtIDNum->setFocus();
}

void frmLedger::txtIDNum_KeyPress(int& keyAscii) {
    if (keyAscii == Key::kEnter) {
        SendTab();
        Screens::Get<frmSearchPatient>().Show();
    }
}

void frmLedger::cmdView_Click() {
    SetMousePointer(MousePointer::Wait);
    PrintLedger();
    SetMousePointer(MousePointer::Default);
    Unload();
}

std::vector<Value> frmLedger::LedgerValues() const {
    // Kept: the letter goes by the shape of the number, whatever the patient code says. A visit number ends
    // in a letter.
    const QString patientType = IsNumeric(txtIDNum->text().trimmed()) ? u"I"_s : u"O"_s;
    // Kept: on a screen without a patient the room and the admission date are those of a former one.
    const QString name =
        txtLastName->text() + u", "_s + txtFirstName->text() + u" "_s + txtMiddleName->text();
    return {patientType,        txtIDNum->text(), gHospitalName,  name,
            txtHospNum->text(), gRoomID,          gAdmissionDate, mFirstSpare,
            mSecondSpare,       gHospitalAddress, mThirdSpare};
}

void frmLedger::PrintLedger() {
    OpenReport(PathOf(ReportFile::kLedger), LedgerValues());
    ShowReport(false, u"Patients Ledger!"_s, false);
}
