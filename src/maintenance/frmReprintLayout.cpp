#include "maintenance/frmReprint.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Look.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// How frmReprint looks; what it does stands in frmReprint.cpp.

namespace {

constexpr QSize kReprintListSize(11100, 3800);

} // namespace

void frmReprint::Layout() {
    setObjectName(u"frmReprint"_s);
    setWindowTitle(u"Reprint Charge Slip"_s);
    QLabel* heading = NewHeading(u"Reprint Charge Slip"_s, this);
    heading->setObjectName(u"Label1"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addWidget(heading);
    layout->addWidget(NewSearchPatientFrame(*this, this));
    layout->addWidget(LayoutCharges(), 1);
    layout->addLayout(LayoutActions());
    SetTabOrder({cmbPatientCode, txtIDNum, grdTable, cmdPrint, cmdClose});
    cmbPatientCode->setFocus();
}

QGroupBox* frmReprint::LayoutCharges() {
    QGroupBox* frame2 = NewFrame(u"Frame2"_s, u"Charges"_s, this);
    grdTable = NewList(u"grdTable"_s, u"Charges"_s, kReprintListSize, frame2);
    auto* layout = new QVBoxLayout(frame2);
    layout->addWidget(grdTable);
    return frame2;
}

QHBoxLayout* frmReprint::LayoutActions() {
    cmdPrint = NewButton(u"cmdPrint"_s, u"Print"_s, this);
    cmdPrint->setEnabled(false);
    cmdClose = NewButton(u"cmdClose"_s, u"Exit"_s, this);
    return RightAligned({cmdPrint, cmdClose});
}
