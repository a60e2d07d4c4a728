#include "maintenance/frmReprint.h"
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
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// How frmReprint looks; what it does stands in frmReprint.cpp.

namespace {

constexpr int kColumns = 9;
constexpr int kQuantity = 5;
constexpr int kAmount = 6;
constexpr int kFixedColumnWidth = 250;
constexpr int kGridWidth = 11100;
constexpr int kGridHeight = 3800;

} // namespace

void frmReprint::Layout() {
    setObjectName(u"frmReprint"_s);
    setWindowTitle(u"Reprint Charge Slip"_s);
    QLabel* heading = NewHeading(u"Reprint Charge Slip"_s, this);
    heading->setObjectName(u"Label1"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addWidget(heading);
    layout->addWidget(LayoutSearch());
    layout->addWidget(LayoutCharges(), 1);
    layout->addLayout(LayoutActions());
    const QList<QWidget*> order = {cmbPatientCode, txtIDNum, grdTable, cmdPrint, cmdClose};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    cmbPatientCode->setFocus();
}

QGroupBox* frmReprint::LayoutSearch() {
    auto* frame1 = new QGroupBox(u"Search Patient"_s, this);
    frame1->setObjectName(u"Frame1"_s);
    cmbPatientCode = new QComboBox(frame1);
    cmbPatientCode->setObjectName(u"cmbPatientCode"_s);
    txtIDNum = NewTextBox(u"txtIDNum"_s, frame1);
    txtHospNum = NewShownBox(u"txtHospNum"_s, frame1);
    txtLastName = NewShownBox(u"txtLastName"_s, frame1);
    txtFirstName = NewShownBox(u"txtFirstName"_s, frame1);
    txtMiddleName = NewShownBox(u"txtMiddleName"_s, frame1);
    auto* grid = new QGridLayout(frame1);
    AddLabelled(*grid, 0, 0, u"Patient Code:"_s, cmbPatientCode);
    AddLabelled(*grid, 1, 0, u"Admission No.:"_s, txtIDNum);
    AddLabelled(*grid, 2, 0, u"Hospital No.:"_s, txtHospNum);
    AddLabelled(*grid, 0, 2, u"Last Name:"_s, txtLastName);
    AddLabelled(*grid, 1, 2, u"First Name:"_s, txtFirstName);
    AddLabelled(*grid, 2, 2, u"Middle Name:"_s, txtMiddleName);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 2);
    return frame1;
}

QGroupBox* frmReprint::LayoutCharges() {
    auto* frame2 = new QGroupBox(u"Charges"_s, this);
    frame2->setObjectName(u"Frame2"_s);
    grdTable = new FlexGrid(frame2);
    grdTable->setObjectName(u"grdTable"_s);
    grdTable->setAccessibleName(u"Charges"_s);
    grdTable->SetRowSelect(true);
    grdTable->setMinimumSize(TwipsToPixels(kGridWidth), TwipsToPixels(kGridHeight));
    grdTable->Cells().SetCols(kColumns);
    grdTable->SetColWidth(0, kFixedColumnWidth);
    for (const int number : {kQuantity, kAmount})
        grdTable->Cells().SetAlignment(number, Qt::AlignRight);
    auto* layout = new QVBoxLayout(frame2);
    layout->addWidget(grdTable);
    return frame2;
}

QHBoxLayout* frmReprint::LayoutActions() {
    cmdPrint = new QPushButton(u"Print"_s, this);
    cmdPrint->setObjectName(u"cmdPrint"_s);
    cmdPrint->setEnabled(false);
    cmdClose = new QPushButton(u"Exit"_s, this);
    cmdClose->setObjectName(u"cmdClose"_s);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(cmdPrint);
    row->addWidget(cmdClose);
    return row;
}
