#include "maintenance/frmListCharges.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Look.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// How frmListCharges looks; what it does stands in frmListCharges.cpp.

namespace {

constexpr QSize kChargesListSize(10900, 3000);
/// The fixed column and the nine fields of a charge, as the list has them from the first one on.
constexpr int kColumnsOfACharge = 10;

} // namespace

void frmListCharges::Layout() {
    setObjectName(u"frmListCharges"_s);
    setWindowTitle(u"List of Charges"_s);
    LetMaximize();
    auto* top = new QHBoxLayout;
    top->addWidget(NewPatientNameFrame(*this, this), 1);
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

QGroupBox* frmListCharges::LayoutHospitalInfo() {
    QGroupBox* frame1 = NewHospitalInfoFrame(*this, this);
    txtDoctor->setReadOnly(true);
    txtDoctor->setFocusPolicy(Qt::NoFocus);
    return frame1;
}

QGroupBox* frmListCharges::LayoutList() {
    QGroupBox* fraList = NewFrame(u"fraList"_s, u"List of Charges Entered"_s, this);
    txtMessage = NewShownBox(u"txtMessage"_s, fraList);
    txtMessage->setText(u"No Charges Entered........"_s);
    txtMessage->setAccessibleName(u"Message"_s);
    txtMessage->setVisible(false);
    mshflexList = NewList(u"mshflexList"_s, u"Charges entered"_s, kChargesListSize, fraList);
    mshflexList->Cells().SetCols(kColumnsOfACharge);
    auto* layout = new QVBoxLayout(fraList);
    layout->addWidget(txtMessage, 0, Qt::AlignTop);
    layout->addWidget(mshflexList, 1);
    return fraList;
}

QVBoxLayout* frmListCharges::LayoutActions() {
    cmdList = NewButton(u"cmdList"_s, u"&List of Charges Entered"_s, this);
    auto* layout = new QVBoxLayout;
    layout->addWidget(cmdList);
    layout->addSpacing(Space::kWide);
    for (size_t i = 0; i < cmdOption.size(); ++i) {
        cmdOption[i] = NewButton(u"cmdOption(%1)"_s.arg(i),
                                 i == 0 ? u"Re-print ChargeSlip"_s : u"Cancel Charges"_s, this);
        cmdOption[i]->setEnabled(false);
        layout->addWidget(cmdOption[i]);
    }
    layout->addStretch(1);
    return layout;
}

void frmListCharges::SetOrderOfWork() {
    SetTabOrder({Option1[0], Option1[1], txtLastName, cmdList, mshflexList, cmdOption[0], cmdOption[1]});
    txtLastName->setFocus();
}
