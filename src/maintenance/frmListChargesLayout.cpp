#include "maintenance/frmListCharges.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Look.h"
#include "toolkit/Twips.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// How frmListCharges looks; what it does stands in frmListCharges.cpp.

namespace {

constexpr int kGridWidth = 11000;
constexpr int kGridHeight = 3000;
/// The fixed column and the nine fields of a charge, as the list has them from the first one on.
constexpr int kColumnsOfACharge = 10;

QGroupBox* NewFrame(const QString& name, const QString& caption, QWidget* parent) {
    auto* frame = new QGroupBox(caption, parent);
    frame->setObjectName(name);
    return frame;
}

} // namespace

void frmListCharges::Layout() {
    setObjectName(u"frmListCharges"_s);
    setWindowTitle(u"List of Charges"_s);
    auto* top = new QHBoxLayout;
    top->addWidget(LayoutPatientName(), 1);
    top->addWidget(LayoutHospitalInfo(), 1);
    auto* side = new QVBoxLayout;
    side->addWidget(LayoutPatientType());
    side->addLayout(LayoutActions());
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(LayoutList(), 1);
    bottom->addLayout(side);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addLayout(top);
    layout->addLayout(bottom, 1);
    SetOrderOfWork();
}

QGroupBox* frmListCharges::LayoutPatientType() {
    QGroupBox* frame2 = NewFrame(u"Frame2"_s, u"Patient Type"_s, this);
    auto* layout = new QVBoxLayout(frame2);
    for (size_t i = 0; i < Option1.size(); ++i) {
        Option1[i] = new QRadioButton(i == 0 ? u"In Patient"_s : u"Out Patient"_s, frame2);
        Option1[i]->setObjectName(u"Option1(%1)"_s.arg(i));
        layout->addWidget(Option1[i]);
    }
    Option1[0]->setChecked(true);
    return frame2;
}

QGroupBox* frmListCharges::LayoutPatientName() {
    QGroupBox* frame3 = NewFrame(u"frame3"_s, u"Patient Name"_s, this);
    txtLastName = NewTextBox(u"txtLastName"_s, frame3);
    txtFirstName = NewShownBox(u"txtFirstName"_s, frame3);
    txtMiddleName = NewShownBox(u"txtMiddleName"_s, frame3);
    txtSex = NewShownBox(u"txtSex"_s, frame3);
    txtDob = NewShownBox(u"txtDob"_s, frame3);
    txtAge = NewShownBox(u"txtAge"_s, frame3);
    auto* grid = new QGridLayout(frame3);
    AddLabelled(*grid, 0, 0, u"Last Name"_s, txtLastName);
    AddLabelled(*grid, 1, 0, u"First Name"_s, txtFirstName);
    AddLabelled(*grid, 2, 0, u"Middle Name"_s, txtMiddleName);
    AddLabelled(*grid, 0, 2, u"Sex"_s, txtSex);
    AddLabelled(*grid, 1, 2, u"Birthdate"_s, txtDob);
    AddLabelled(*grid, 2, 2, u"Age"_s, txtAge);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 1);
    return frame3;
}

QGroupBox* frmListCharges::LayoutHospitalInfo() {
    QGroupBox* frame1 = NewFrame(u"Frame1"_s, u"Hospital Info"_s, this);
    txtPno = NewShownBox(u"txtPno"_s, frame1);
    txtId = NewShownBox(u"txtId"_s, frame1);
    txtDateAdmitted = NewShownBox(u"txtDateAdmitted"_s, frame1);
    txtRoom = NewShownBox(u"txtRoom"_s, frame1);
    txtDoctor = NewShownBox(u"txtDoctor"_s, frame1);
    txtDoctorID = NewShownBox(u"txtDoctorID"_s, frame1);
    txtDoctorID->setAccessibleName(u"Admitting doctor's code"_s);
    txtDoctorID->setMaximumWidth(TwipsToPixels(900));
    auto* grid = new QGridLayout(frame1);
    AddLabelled(*grid, 0, 0, u"Hospital No."_s, txtPno);
    AddLabelled(*grid, 0, 2, u"Admission No."_s, txtId);
    AddLabelled(*grid, 1, 0, u"Admission Date"_s, txtDateAdmitted);
    AddLabelled(*grid, 1, 2, u"Room No."_s, txtRoom);
    AddLabelled(*grid, 2, 0, u"Admitting Dr.:"_s, txtDoctor);
    auto* doctor = new QHBoxLayout;
    doctor->addWidget(txtDoctor, 1);
    doctor->addWidget(txtDoctorID);
    grid->addLayout(doctor, 2, 1, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return frame1;
}

QGroupBox* frmListCharges::LayoutList() {
    QGroupBox* fraList = NewFrame(u"fraList"_s, u"List of Charges Entered"_s, this);
    txtMessage = NewShownBox(u"txtMessage"_s, fraList);
    txtMessage->setText(u"No Charges Entered........"_s);
    txtMessage->setAccessibleName(u"Message"_s);
    txtMessage->setVisible(false);
    mshflexList = new FlexGrid(fraList);
    mshflexList->setObjectName(u"mshflexList"_s);
    mshflexList->setAccessibleName(u"Charges entered"_s);
    mshflexList->SetRowSelect(true);
    mshflexList->setMinimumSize(TwipsToPixels(kGridWidth), TwipsToPixels(kGridHeight));
    mshflexList->Cells().SetCols(kColumnsOfACharge);
    auto* layout = new QVBoxLayout(fraList);
    layout->addWidget(txtMessage, 0, Qt::AlignTop);
    layout->addWidget(mshflexList, 1);
    return fraList;
}

QVBoxLayout* frmListCharges::LayoutActions() {
    cmdList = new QPushButton(u"&List of Charges Entered"_s, this);
    cmdList->setObjectName(u"cmdList"_s);
    auto* layout = new QVBoxLayout;
    layout->addWidget(cmdList);
    layout->addSpacing(Space::kWide);
    for (size_t i = 0; i < cmdOption.size(); ++i) {
        cmdOption[i] = new QPushButton(i == 0 ? u"Re-print ChargeSlip"_s : u"Cancel Charges"_s, this);
        cmdOption[i]->setObjectName(u"cmdOption(%1)"_s.arg(i));
        cmdOption[i]->setEnabled(false);
        layout->addWidget(cmdOption[i]);
    }
    layout->addStretch(1);
    return layout;
}

void frmListCharges::SetOrderOfWork() {
    const QList<QWidget*> order = {Option1[0],  Option1[1],   txtLastName, cmdList,
                                   mshflexList, cmdOption[0], cmdOption[1]};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    txtLastName->setFocus();
}
