#include "patients/frmWalkInUpdate.h"
#include "toolkit/Controls.h"
#include "toolkit/DatePicker.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Look.h"
#include "toolkit/Twips.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// How frmWalkInUpdate looks; what it does stands in frmWalkInUpdate.cpp.

namespace {

constexpr QSize kUpdateListSize(8750, 3900);
constexpr int kShortWidth = 1500;

} // namespace

void frmWalkInUpdate::Layout() {
    setObjectName(u"frmWalkInUpdate"_s);
    setWindowTitle(u"Walk-in Patient Update"_s);
    ssWalkIn = new QTabWidget(this);
    ssWalkIn->setObjectName(u"ssWalkIn"_s);
    ssWalkIn->addTab(LayoutSearch(), u"Search"_s);
    ssWalkIn->addTab(LayoutRecord(), u"Patient Information"_s);
    cmdClose = NewButton(u"cmdClose"_s, u"&Close"_s, this);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addWidget(ssWalkIn, 1);
    layout->addWidget(cmdClose, 0, Qt::AlignRight);
    SetOrderOfWork();
}

QWidget* frmWalkInUpdate::LayoutSearch() {
    auto* page = new QWidget(ssWalkIn);
    cmbSearchBy = NewCombo(u"cmbSearchBy"_s, {}, page);
    txtSearch = NewTextBox(u"txtSearch"_s, page);
    txtSearch->setAccessibleName(u"Search text"_s);
    cmdEdit = NewButton(u"cmdEdit"_s, u"&Edit"_s, page);
    cmdEdit->setEnabled(false);
    auto* search = new QGridLayout;
    AddLabelled(*search, 0, 0, u"Search by"_s, cmbSearchBy);
    search->addWidget(txtSearch, 0, 2);
    search->setColumnStretch(2, 1);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(search);
    layout->addWidget(LayoutList(), 1);
    layout->addWidget(cmdEdit, 0, Qt::AlignRight);
    return page;
}

QGroupBox* frmWalkInUpdate::LayoutList() {
    QGroupBox* frame = NewFrame({}, u"Search List"_s, ssWalkIn);
    grdTable = NewList(u"grdTable"_s, u"Search List"_s, kUpdateListSize, frame);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(grdTable);
    return frame;
}

QWidget* frmWalkInUpdate::LayoutRecord() {
    auto* page = new QWidget(ssWalkIn);
    MakeRecordControls(page);
    auto* fields = new QGridLayout;
    PlaceRecordControls(*fields);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(fields);
    layout->addStretch();
    layout->addWidget(cmdSave, 0, Qt::AlignRight);
    return page;
}

void frmWalkInUpdate::MakeRecordControls(QWidget* page) {
    txtHospNum = NewTextBox(u"txtHospNum"_s, page);
    txtLastName = NewTextBox(u"txtLastName"_s, page);
    txtFirstName = NewTextBox(u"txtFirstName"_s, page);
    txtMiddleName = NewTextBox(u"txtMiddleName"_s, page);
    dtpBirthDate = NewDatePicker(u"dtpBirthDate"_s, page);
    txtAge = NewTextBox(u"txtAge"_s, page);
    cmbSex = NewCombo(u"cmbSex"_s, {}, page);
    cmbCivil = NewCombo(u"cmbCivil"_s, {}, page);
    txtAddress1 = NewTextBox(u"txtAddress1"_s, page);
    txtAddress2 = NewTextBox(u"txtAddress2"_s, page);
    txtAddress3 = NewTextBox(u"txtAddress3"_s, page);
    txtZipCode = NewTextBox(u"txtZipCode"_s, page);
    cmdZipCode = NewPicker(u"cmdZipCode"_s, u"Pick the town"_s, u"Pick the town from the list"_s, page);
    cmdSave = NewButton(u"cmdSave"_s, u"&Save"_s, page);
    for (QWidget* box : QList<QWidget*>{txtHospNum, dtpBirthDate, txtAge, cmbSex, cmbCivil, txtZipCode})
        box->setFixedWidth(TwipsToPixels(kShortWidth));
}

void frmWalkInUpdate::PlaceRecordControls(QGridLayout& grid) {
    AddLabelled(grid, 0, 0, u"Hospital #"_s, txtHospNum);
    AddLabelled(grid, 1, 0, u"Last Name"_s, txtLastName);
    AddLabelled(grid, 2, 0, u"First Name"_s, txtFirstName);
    AddLabelled(grid, 3, 0, u"Middle Name"_s, txtMiddleName);
    AddLabelled(grid, 4, 0, u"Birth Date:"_s, dtpBirthDate);
    AddLabelled(grid, 5, 0, u"Age"_s, txtAge);
    AddLabelled(grid, 6, 0, u"Sex:"_s, cmbSex);
    AddLabelled(grid, 7, 0, u"Civil Status"_s, cmbCivil);
    AddLabelled(grid, 8, 0, u"House # / Street"_s, txtAddress1);
    AddLabelled(grid, 9, 0, u"Barangay"_s, txtAddress2);
    AddLabelled(grid, 10, 0, u"Town /  Province"_s, txtAddress3);
    AddLabelled(grid, 11, 0, u"Zip Code"_s, txtZipCode);
    auto* zipCode = new QHBoxLayout;
    zipCode->addWidget(txtZipCode);
    zipCode->addWidget(cmdZipCode);
    zipCode->addStretch();
    grid.addLayout(zipCode, 11, 1);
    grid.setColumnStretch(1, 1);
}

/// The boxes of the record stand in the order in which Enter moves through them.
void frmWalkInUpdate::SetOrderOfWork() {
    SetTabOrder({cmbSearchBy, txtSearch, grdTable, cmdEdit, txtHospNum, txtLastName, txtFirstName,
                 txtMiddleName, dtpBirthDate, txtAge, cmbSex, cmbCivil, txtAddress1, txtAddress2, txtAddress3,
                 txtZipCode, cmdZipCode, cmdSave, cmdClose});
}
