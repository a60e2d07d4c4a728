#include "patients/frmWalkIn.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "text/UCase.h"
#include "toolkit/Controls.h"
#include "toolkit/Keys.h"
#include "toolkit/MousePointer.h"
#include "toolkit/SendKeys.h"
#include "toolkit/Twips.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kNameLength = 30;
constexpr int kBirthLength = 10;
constexpr int kWalkInAgeLength = 3;
constexpr int kWalkInBoxWidth = 4200;
constexpr int kWalkInShortWidth = 1500;

/// A radio button for each caption inside the frame, one of them on.
template <size_t N>
void FillOptions(std::array<QRadioButton*, N>& options, const QString& name,
                 const std::array<QString, N>& captions, size_t on, QGroupBox* frame) {
    for (size_t i = 0; i < N; ++i) {
        options[i] = new QRadioButton(captions[i], frame);
        options[i]->setObjectName(u"%1(%2)"_s.arg(name).arg(i));
    }
    options[on]->setChecked(true);
}

/// The index of the option that is on as text, empty when none is.
template <size_t N> QString IndexOn(const std::array<QRadioButton*, N>& options) {
    for (size_t i = 0; i < N; ++i) {
        if (options[i]->isChecked())
            return QString::number(i);
    }
    return {};
}

QLineEdit* NewLimitedBox(const QString& name, int length, QWidget* parent) {
    QLineEdit* box = NewTextBox(name, parent);
    box->setMaxLength(length);
    return box;
}

} // namespace

frmWalkIn::frmWalkIn() {
    Layout();
    Wire();
}

void frmWalkIn::Layout() {
    setObjectName(u"frmWalkIn"_s);
    setWindowTitle(u"Walk-in Patient Entry"_s);
    MakeControls();
    auto* grid = new QGridLayout(this);
    AddLabelled(*grid, 0, 0, u"Last Name"_s, txtSname);
    AddLabelled(*grid, 1, 0, u"First Name"_s, txtFname);
    AddLabelled(*grid, 2, 0, u"Middle Name"_s, txtMname);
    AddLabelled(*grid, 3, 0, u"Birth Date"_s, txtBirth);
    AddLabelled(*grid, 4, 0, u"Age"_s, txtAge);
    grid->addWidget(LayoutSex(), 5, 0, 1, 2);
    grid->addWidget(LayoutCivilStatus(), 6, 0, 1, 2);
    AddLabelled(*grid, 7, 0, u"House No./Street"_s, txtHouse);
    AddLabelled(*grid, 8, 0, u"Barangay"_s, txtBarangay);
    AddLabelled(*grid, 9, 0, u"Zip Code"_s, txtZipCode);
    auto* zipCode = new QHBoxLayout;
    zipCode->addWidget(txtZipCode);
    zipCode->addWidget(cmdAddress);
    zipCode->addStretch();
    grid->addLayout(zipCode, 9, 1);
    AddLabelled(*grid, 10, 0, u"Province/Town"_s, txtTown);
    grid->addLayout(RightAligned({cmdSave, cmdClose}), 11, 0, 1, 2);
    SetOrderOfWork();
}

void frmWalkIn::MakeControls() {
    txtSname = NewLimitedBox(u"txtSname"_s, kNameLength, this);
    txtFname = NewLimitedBox(u"txtFname"_s, kNameLength, this);
    txtMname = NewLimitedBox(u"txtMname"_s, kNameLength, this);
    txtSname->setMinimumWidth(TwipsToPixels(kWalkInBoxWidth));
    txtBirth = NewLimitedBox(u"txtBirth"_s, kBirthLength, this);
    txtAge = NewLimitedBox(u"txtAge"_s, kWalkInAgeLength, this);
    txtHouse = NewLimitedBox(u"txtHouse"_s, kNameLength, this);
    txtBarangay = NewLimitedBox(u"txtBarangay"_s, kNameLength, this);
    txtZipCode = NewTextBox(u"txtZipCode"_s, this);
    for (QLineEdit* box : {txtBirth, txtAge, txtZipCode})
        box->setMaximumWidth(TwipsToPixels(kWalkInShortWidth));
    cmdAddress = NewPicker(u"cmdAddress"_s, u"Pick the town"_s, u"Pick the town from the list"_s, this);
    txtTown = NewTextBox(u"txtTown"_s, this);
    txtTown->setReadOnly(true);
    cmdSave = NewButton(u"cmdSave"_s, u"&Save"_s, this);
    cmdClose = NewButton(u"cmdClose"_s, u"&Close"_s, this);
}

QGroupBox* frmWalkIn::LayoutSex() {
    QGroupBox* frame = NewFrame({}, u"Sex"_s, this);
    FillOptions<2>(optSex, u"optSex"_s, {u"Male"_s, u"Female"_s}, 0, frame);
    auto* row = new QHBoxLayout(frame);
    for (QRadioButton* option : optSex)
        row->addWidget(option);
    row->addStretch();
    return frame;
}

QGroupBox* frmWalkIn::LayoutCivilStatus() {
    QGroupBox* frame = NewFrame({}, u"Civil Status"_s, this);
    FillOptions<6>(optCivil, u"optCivil"_s,
                   {u"Child"_s, u"Single"_s, u"Married"_s, u"Widow/er"_s, u"Separated"_s, u"Divorced"_s}, 1,
                   frame);
    auto* grid = new QGridLayout(frame);
    for (int i = 0; i < 6; ++i)
        grid->addWidget(optCivil[static_cast<size_t>(i)], i / 3, i % 3);
    return frame;
}

void frmWalkIn::SetOrderOfWork() {
    QList<QWidget*> order = {txtSname, txtFname, txtMname, txtBirth, txtAge};
    order.append(QList<QWidget*>(optSex.begin(), optSex.end()));
    order.append(QList<QWidget*>(optCivil.begin(), optCivil.end()));
    order.append({txtHouse, txtBarangay, txtZipCode, cmdAddress, txtTown, cmdSave, cmdClose});
    SetTabOrder(order);
    txtSname->setFocus();
}

void frmWalkIn::Wire() {
    for (QLineEdit* box : {txtSname, txtFname, txtMname, txtBirth, txtAge, txtHouse, txtBarangay, txtTown})
        OnKeyPress(box, [this](int& key) { TextBox_KeyPress(key); });
    OnKeyPress(txtZipCode, [this](int& key) { txtZipCode_KeyPress(key); });
    connect(cmdAddress, &QPushButton::clicked, this, &frmWalkIn::cmdAddress_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmWalkIn::cmdSave_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
}

void frmWalkIn::TextBox_KeyPress(int& keyAscii) {
    keyAscii = UCase(QChar(keyAscii)).unicode();
    if (keyAscii == Key::kEnter) {
        SendTab();
        keyAscii = 0;
    }
}

void frmWalkIn::txtZipCode_KeyPress(int& keyAscii) {
    if (keyAscii == Key::kEnter)
        TakeAddress(txtZipCode->text());
}

void frmWalkIn::cmdAddress_Click() {
    TakeAddress(QString());
}

void frmWalkIn::TakeAddress(const QString& code) {
    QString found = code;
    if (!gListing->SearchListing(found, ListingKind::kAddress))
        return;
    const AddressListing& address = gListing->AddressRecord();
    txtTown->setText(address.Town + u", "_s + address.Province);
    txtZipCode->setText(address.ResultCode);
}

void frmWalkIn::cmdSave_Click() {
    const QString sex = optSex[0]->isChecked() ? u"M"_s : u"F"_s;
    const QString civilStatus = IndexOn(optCivil);
    SetMousePointer(MousePointer::Wait);
    gConnection->ExecuteNoResult(AddCashPatientCommand({.lastName = txtSname->text(),
                                                        .firstName = txtFname->text(),
                                                        .middleName = txtMname->text(),
                                                        .street = txtHouse->text(),
                                                        .barangay = txtBarangay->text(),
                                                        .townCode = txtZipCode->text(),
                                                        .birthDate = txtBirth->text(),
                                                        .age = txtAge->text(),
                                                        .sex = sex,
                                                        .civilStatusCode = civilStatus}));
    SetMousePointer(MousePointer::Default);
    Unload();
}
