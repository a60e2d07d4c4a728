#include "patients/frmCashWalkInPatient.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "patients/frmCashWalkIn.h"
#include "patients/PatientContext.h"
#include "text/Clock.h"
#include "text/DateDiff.h"
#include "text/RunTimeError.h"
#include "text/ToText.h"
#include "text/Trim.h"
#include "toolkit/Controls.h"
#include "toolkit/DatePicker.h"
#include "toolkit/Keys.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Screens.h"
#include "toolkit/SendKeys.h"
#include "toolkit/Twips.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

namespace Info {
constexpr size_t kLastName = 0;
constexpr size_t kFirstName = 1;
constexpr size_t kMiddleName = 2;
constexpr size_t kAge = 3;
constexpr size_t kStreet = 4;
constexpr size_t kBarangay = 5;
constexpr size_t kTown = 6;
constexpr size_t kCivilStatus = 7;
} // namespace Info

constexpr int kSave = 0;
constexpr int kCancel = 1;
constexpr auto kEmptyBirth = "/  /"_L1;
constexpr int kAgeLength = 2;
/// Leap years are not allowed for.
constexpr qint64 kDaysOfAYear = 365;
constexpr int kBoxWidth = 4200;
constexpr int kDateWidth = 1500;

/// The keys of the age box that reach it: digits, the point, the slash, Backspace.
bool IsAgeKey(int keyAscii) {
    return keyAscii == 0 || keyAscii == Key::kBackspace || (keyAscii >= 46 && keyAscii <= 57);
}

/// The trap of the boxes' keys. Kept: a lookup that raises goes on as one that found nothing, with the
/// message of an unknown code.
bool SearchTrapped(QString code, int kind) {
    try {
        return gListing->SearchListing(code, kind);
    } catch (const RunTimeError&) {
        return false;
    }
}

void TellNoSuchCode() {
    MsgBox({.text = u"Code not exist!"_s});
}

/// Whole years of 365 days from the date to today, the part of a year cut off on either side of today. Raises
/// 13 for a text that is no date.
QString AgeToday(const QString& birthDate) {
    return ToText(DateDiff(DateInterval::Day, Value(birthDate).ToDate(), Today()) / kDaysOfAYear);
}

QPushButton* NewCodePicker(const QString& name, const QString& purpose, QWidget* parent) {
    QPushButton* picker = NewPicker(name, purpose, purpose, parent);
    picker->setText(u".."_s);
    // Enter in the box before it opens the same list; the Tab sent by a lookup passes on to the next box.
    picker->setFocusPolicy(Qt::ClickFocus);
    return picker;
}

} // namespace

frmCashWalkInPatient::frmCashWalkInPatient() {
    Layout();
    Wire();
}

void frmCashWalkInPatient::Layout() {
    setObjectName(u"frmCashWalkInPatient"_s);
    setWindowTitle(u"Walk-In Patient"_s);
    MakeControls();
    auto* grid = new QGridLayout(this);
    AddLabelled(*grid, 0, 0, u"Lastname :"_s, txtInfo[Info::kLastName]);
    AddLabelled(*grid, 1, 0, u"Firstname :"_s, txtInfo[Info::kFirstName]);
    AddLabelled(*grid, 2, 0, u"Middlename :"_s, txtInfo[Info::kMiddleName]);
    AddLabelled(*grid, 3, 0, u"Date of Birth :"_s, mskBirth);
    AddLabelled(*grid, 4, 0, u"Age :"_s, txtInfo[Info::kAge]);
    AddLabelled(*grid, 5, 0, u"St./House No. :"_s, txtInfo[Info::kStreet]);
    AddLabelled(*grid, 6, 0, u"Barangay :"_s, txtInfo[Info::kBarangay]);
    AddLabelled(*grid, 7, 0, u"Town/Province :"_s, txtInfo[Info::kTown]);
    grid->addWidget(cmdTown, 7, 2);
    AddLabelled(*grid, 8, 0, u"Civil Status :"_s, txtInfo[Info::kCivilStatus]);
    grid->addWidget(cmdCivil, 8, 2);
    AddLabelled(*grid, 9, 0, u"Sex :"_s, cboSex);
    grid->addLayout(RightAligned({cmdOption[0], cmdOption[1]}), 10, 0, 1, 3);
    SetOrderOfWork();
}

void frmCashWalkInPatient::MakeControls() {
    for (size_t i = 0; i < txtInfo.size(); ++i)
        txtInfo[i] = NewTextBox(u"txtInfo(%1)"_s.arg(i), this);
    txtInfo[Info::kLastName]->setMinimumWidth(TwipsToPixels(kBoxWidth));
    txtInfo[Info::kAge]->setMaxLength(kAgeLength);
    txtInfo[Info::kAge]->setMaximumWidth(TwipsToPixels(kDateWidth));
    mskBirth = NewDatePicker(u"mskBirth"_s, this);
    mskBirth->setMaximumWidth(TwipsToPixels(kDateWidth));
    cmdTown = NewCodePicker(u"cmdTown"_s, u"Pick the town"_s, this);
    cmdCivil = NewCodePicker(u"cmdCivil"_s, u"Pick the civil status"_s, this);
    cboSex = NewCombo(u"cboSex"_s, {u"Male"_s, u"Female"_s}, this);
    cboSex->setMaximumWidth(TwipsToPixels(kDateWidth));
    for (size_t i = 0; i < cmdOption.size(); ++i)
        cmdOption[i] = NewButton(u"cmdOption(%1)"_s.arg(i), i == kSave ? u"&Save"_s : u"&Cancel"_s, this);
}

void frmCashWalkInPatient::SetOrderOfWork() {
    SetTabOrder({txtInfo[0], txtInfo[1], txtInfo[2], mskBirth, txtInfo[3], txtInfo[4], txtInfo[5], txtInfo[6],
                 cmdTown, txtInfo[7], cmdCivil, cboSex, cmdOption[0], cmdOption[1]});
    txtInfo[Info::kLastName]->setFocus();
}

void frmCashWalkInPatient::Wire() {
    for (size_t i = 0; i < txtInfo.size(); ++i)
        OnKeyPress(txtInfo[i], [this, i](int& key) { txtInfo_KeyPress(static_cast<int>(i), key); });
    OnKeyPress(mskBirth, [this](int& key) { mskBirth_KeyPress(key); });
    connect(cmdTown, &QPushButton::clicked, this, &frmCashWalkInPatient::cmdTown_Click);
    connect(cmdCivil, &QPushButton::clicked, this, &frmCashWalkInPatient::cmdCivil_Click);
    SetCloseButton(cmdOption[kCancel]);
    for (size_t i = 0; i < cmdOption.size(); ++i)
        connect(cmdOption[i], &QPushButton::clicked, this,
                [this, i] { cmdOption_Click(static_cast<int>(i)); });
}

void frmCashWalkInPatient::Form_Load() {
    cboSex->setCurrentIndex(0);
}

void frmCashWalkInPatient::txtInfo_KeyPress(int index, int& keyAscii) {
    // Kept: letters stay as they are typed. The component that would make them upper case is not made in this
    // release.
    switch (static_cast<size_t>(index)) {
    case Info::kAge:
        if (IsAgeKey(keyAscii))
            return;
        break;
    case Info::kTown:
        TownKey(keyAscii);
        return;
    case Info::kCivilStatus:
        CivilKey(keyAscii);
        return;
    default:
        if (keyAscii != Key::kEnter)
            return;
    }
    SendTab();
    keyAscii = 0;
}

void frmCashWalkInPatient::TownKey(int& keyAscii) {
    if (keyAscii != Key::kEnter)
        return;
    if (TakeTown(SearchTrapped(txtInfo[Info::kTown]->text(), ListingKind::kAddress)))
        keyAscii = 0;
}

void frmCashWalkInPatient::CivilKey(int& keyAscii) {
    if (keyAscii != Key::kEnter)
        return;
    if (TakeCivilStatus(SearchTrapped(txtInfo[Info::kCivilStatus]->text(), ListingKind::kCivilStatus)))
        keyAscii = 0;
}

void frmCashWalkInPatient::cmdTown_Click() {
    QString code = txtInfo[Info::kTown]->text();
    TakeTown(gListing->SearchListing(code, ListingKind::kAddress));
}

void frmCashWalkInPatient::cmdCivil_Click() {
    QString code;
    TakeCivilStatus(gListing->SearchListing(code, ListingKind::kCivilStatus));
}

bool frmCashWalkInPatient::TakeTown(bool found) {
    if (!found) {
        TellNoSuchCode();
        return false;
    }
    const AddressListing& address = gListing->AddressRecord();
    mTownCode = address.ResultCode;
    txtInfo[Info::kTown]->setText(Trim(address.Town) + u", "_s + Trim(address.Province));
    SendTab();
    return true;
}

bool frmCashWalkInPatient::TakeCivilStatus(bool found) {
    if (!found) {
        TellNoSuchCode();
        return false;
    }
    const CivilStatusListing& status = gListing->CivilStatusRecord();
    mCivilStatusCode = status.ResultCode;
    txtInfo[Info::kCivilStatus]->setText(status.CivilStatus);
    SendTab();
    return true;
}

void frmCashWalkInPatient::mskBirth_KeyPress(int& keyAscii) {
    if (keyAscii != Key::kEnter)
        return;
    if (Trim(mskBirth->Text()) != kEmptyBirth)
        txtInfo[Info::kAge]->setText(AgeToday(mskBirth->Text()));
    SendTab();
    keyAscii = 0;
}

void frmCashWalkInPatient::cmdOption_Click(int index) {
    if (index == kSave) {
        Save();
        return;
    }
    // Kept: the question speaks of the program, and only the screen closes.
    const MsgAnswer answer = MsgBox({.text = u"Are you sure to close this program?"_s,
                                     .icon = MsgIcon::Question,
                                     .title = u"OPD Registration System"_s,
                                     .buttons = MsgButtons::OkCancel});
    if (answer != MsgAnswer::Cancel)
        Unload();
}

void frmCashWalkInPatient::Save() {
    const QString lastName = txtInfo[Info::kLastName]->text();
    const QString firstName = txtInfo[Info::kFirstName]->text();
    if (Trim(lastName).isEmpty() && Trim(firstName).isEmpty()) {
        MsgBox({.text = u"Please enter the Patient`s lastname and firstname!"_s, .title = u"Message"_s});
        txtInfo[Info::kLastName]->setFocus();
        return;
    }
    gCurrentUser->SQLConnection()->ExecuteNoResult(
        EarCareAddCashPatientCommand({.lastName = lastName,
                                      .firstName = firstName,
                                      .middleName = txtInfo[Info::kMiddleName]->text(),
                                      .street = txtInfo[Info::kStreet]->text(),
                                      .barangay = txtInfo[Info::kBarangay]->text(),
                                      .townCode = mTownCode,
                                      .birthDate = Trim(mskBirth->Text()),
                                      .age = txtInfo[Info::kAge]->text(),
                                      .sex = Trim(cboSex->currentText()) == u"Male"_s ? u"M"_s : u"F"_s,
                                      .civilStatusCode = mCivilStatusCode}));
    gPatientType = u"W"_s;
    gCashSearchText = lastName;
    Unload();
    Screens::Get<frmCashWalkIn>().ShowModal();
}
