#include "patients/frmWalkInUpdate.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "text/Clock.h"
#include "text/DateDiff.h"
#include "text/Format.h"
#include "text/RunTimeError.h"
#include "text/Val.h"
#include "toolkit/DatePicker.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Keys.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Picker.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <array>

using namespace Qt::StringLiterals;

namespace {

enum Tab { kList, kRecord };

constexpr int kHospitalNumber = 1;
constexpr std::array kUpdateColumns = {GridColumn{.width = 0}, GridColumn{u"Hospital #", 1500},
                                       GridColumn{u"Last Name", 2250}, GridColumn{u"First Name", 2250},
                                       GridColumn{u"Middle Name", 2250}};

constexpr int kMale = 0;
constexpr int kFemale = 1;
constexpr int kNoCivilStatus = 6;

/// The entry of the civil status list for a record's code; raises 380 for a code that has none.
int CivilStatusIndex(const Value& code, int entries) {
    if (code.ToText().isEmpty())
        return kNoCivilStatus;
    const qint64 index = code.ToInteger();
    if (index < 0 || index >= entries)
        throw RunTime::Error(RunTime::kInvalidPropertyValue);
    return int(index);
}

} // namespace

frmWalkInUpdate::frmWalkInUpdate() {
    Layout();
    Wire();
}

void frmWalkInUpdate::Wire() {
    WirePicker({.list = grdTable,
                .pick = [this] { cmdEdit_Click(); },
                .button = cmdEdit,
                .box = txtSearch,
                .enter = [this] { ListWalkIns(); }});
    connect(cmdEdit, &QPushButton::clicked, this, &frmWalkInUpdate::cmdEdit_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
    WireRecord();
}

void frmWalkInUpdate::WireRecord() {
    for (QLineEdit* box : {txtLastName, txtFirstName, txtMiddleName, txtAddress1, txtAddress2, txtAddress3})
        UpperCaseKeys(box);
    const QList<QWidget*> chain = {txtLastName, txtFirstName, txtMiddleName, dtpBirthDate, cmbSex,
                                   cmbCivil,    txtAddress1,  txtAddress2,   txtZipCode};
    for (qsizetype i = 1; i < chain.size(); ++i) {
        OnKeyPress(chain[i - 1], [next = chain[i]](int& key) {
            if (key == Key::kEnter)
                next->setFocus();
        });
    }
    connect(dtpBirthDate, &DatePicker::Change, this, &frmWalkInUpdate::dtpBirthDate_Change);
    OnKeyPress(txtZipCode, [this](int& key) { txtZipCode_KeyPress(key); });
    connect(cmdZipCode, &QPushButton::clicked, this, &frmWalkInUpdate::cmdZipCode_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmWalkInUpdate::cmdSave_Click);
}

void frmWalkInUpdate::Form_Load() {
    cmbSearchBy->addItems({u"Last Name"_s, u"Hospital #"_s});
    cmbSearchBy->setCurrentIndex(0);
    cmbSex->addItems({u"MALE"_s, u"FEMALE"_s});
    cmbCivil->addItems(
        {u"CHILD"_s, u"SINGLE"_s, u"MARRIED"_s, u"WIDOW/ER"_s, u"SEPARATED"_s, u"DIVORCED"_s, QString()});
    // Nothing is chosen until a record is loaded.
    cmbSex->setCurrentIndex(-1);
    cmbCivil->setCurrentIndex(-1);
    ssWalkIn->setCurrentIndex(kList);
    // It opens empty, with today as its base.
    dtpBirthDate->SetValue(Today());
    dtpBirthDate->SetValue(std::nullopt);
}

void frmWalkInUpdate::Form_Activate() {
    txtSearch->setFocus();
}

void frmWalkInUpdate::ListWalkIns() {
    RowSet found =
        gConnection->Open(ListWalkInCommand(Format(cmbSearchBy->currentIndex(), u"0"), txtSearch->text()),
                          CursorType::Dynamic, LockType::Optimistic, CursorLocation::Client);
    cmdEdit->setEnabled(!found.Eof());
    grdTable->SetRedraw(false);
    grdTable->Cells().Bind(found.Data());
    found.Close();
    grdTable->SetColumns(kUpdateColumns);
    grdTable->SetRedraw(true);
    txtSearch->setFocus();
}

void frmWalkInUpdate::cmdEdit_Click() {
    LoadRecord(grdTable->CurrentText(kHospitalNumber));
    ssWalkIn->setCurrentIndex(kRecord);
    // Where Enter sets out from; the number is not what the clerk came to change.
    txtLastName->setFocus();
}

void frmWalkInUpdate::LoadRecord(const QString& hospitalNumber) {
    RowSet record =
        gConnection->Open(LoadWalkInCommand(hospitalNumber), CursorType::Dynamic, LockType::Optimistic);
    if (!record.Eof()) {
        txtHospNum->setText(record.Fields(u"HospNum").ToText());
        txtLastName->setText(record.Fields(u"LastName").ToText());
        txtFirstName->setText(record.Fields(u"FirstName").ToText());
        txtMiddleName->setText(record.Fields(u"MiddleName").ToText());
        dtpBirthDate->SetValue(Today());
        const Value& birthDate = record.Fields(u"BirthDate");
        dtpBirthDate->SetValue(birthDate.IsNull() ? std::nullopt : std::optional(birthDate.ToDate()));
        txtAge->setText(record.Fields(u"Age").ToText());
        cmbSex->setCurrentIndex(record.Fields(u"Sex").ToText() == u"M"_s ? kMale : kFemale);
        cmbCivil->setCurrentIndex(CivilStatusIndex(record.Fields(u"CivilStatusid"), cmbCivil->count()));
        txtAddress1->setText(record.Fields(u"Address1").ToText());
        txtAddress2->setText(record.Fields(u"Address2").ToText());
        txtAddress3->setText(record.Fields(u"Address3").ToText());
        txtZipCode->setText(record.Fields(u"ZipCode").ToText());
    }
    record.Close();
}

void frmWalkInUpdate::ClearRecord() {
    for (QLineEdit* box : {txtHospNum, txtLastName, txtFirstName, txtMiddleName, txtAge, txtAddress1,
                           txtAddress2, txtAddress3, txtZipCode})
        box->clear();
    dtpBirthDate->SetValue(std::nullopt);
    cmbSex->setCurrentIndex(-1);
    cmbCivil->setCurrentIndex(-1);
}

void frmWalkInUpdate::dtpBirthDate_Change() {
    const std::optional<DateTime> birthDate = dtpBirthDate->Value();
    if (!birthDate)
        return;
    // Kept: calendar years alone, whether or not the birthday has passed, and the clerk cannot decline.
    const auto years = double(DateDiff(DateInterval::Year, *birthDate, Today()));
    if (years == Val(txtAge->text()))
        return;
    MsgBox({.text = u"The patient's age will be updated to "_s + Format(years, u"0") + u"."_s});
    txtAge->setText(Format(years, u"0"));
}

void frmWalkInUpdate::txtZipCode_KeyPress(int& keyAscii) {
    if (keyAscii != Key::kEnter)
        return;
    TakeAddress(txtZipCode->text());
    // On its way from the box the key would press the button that has the focus now.
    if (cmdSave->hasFocus())
        keyAscii = 0;
}

void frmWalkInUpdate::cmdZipCode_Click() {
    TakeAddress(QString());
}

void frmWalkInUpdate::TakeAddress(const QString& code) {
    gListing->SetSearchMode(true);
    QString found = code;
    if (!gListing->SearchListing(found, ListingKind::kAddress))
        return;
    const AddressListing& address = gListing->AddressRecord();
    txtZipCode->setText(address.ResultCode);
    txtAddress3->setText(address.Town + u", "_s + address.Province);
    cmdSave->setFocus();
}

QString frmWalkInUpdate::BirthDateText() const {
    const std::optional<DateTime> birthDate = dtpBirthDate->Value();
    return birthDate ? Format(*birthDate, u"mm/dd/yyyy") : QString();
}

void frmWalkInUpdate::cmdSave_Click() {
    // Pressed by its key the button leaves the focus in the picker, and the age has to go with the date. A
    // text that is no date is not sent, and no other date goes in its place.
    if (!dtpBirthDate->TakeKeyed())
        return;
    const WalkInEntry entry{.lastName = txtLastName->text(),
                            .firstName = txtFirstName->text(),
                            .middleName = txtMiddleName->text(),
                            .street = txtAddress1->text(),
                            .barangay = txtAddress2->text(),
                            .townCode = txtZipCode->text(),
                            .birthDate = BirthDateText(),
                            .age = txtAge->text(),
                            .sex = cmbSex->currentText().left(1),
                            .civilStatusCode = Format(cmbCivil->currentIndex(), u"0")};
    gCurrentUser->SQLConnection()->ExecuteNoResult(UpdateWalkInCommand(txtHospNum->text(), entry));
    // Kept: it says so too where the number met no record.
    MsgBox({.text = u"Patient's information has been updated."_s, .icon = MsgIcon::Information});
    ClearRecord();
    ssWalkIn->setCurrentIndex(kList);
    ListWalkIns();
}
