#include "reports/frmCensus.h"

#include "reports/frmReport.h"
#include "reports/ReportFiles.h"
#include "reports/Reports.h"
#include "toolkit/Controls.h"
#include "toolkit/Look.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kByName = 0;
constexpr size_t kByStation = 1;

} // namespace

frmCensus::frmCensus() {
    Layout();
    Wire();
}

void frmCensus::Layout() {
    setObjectName(u"frmCensus"_s);
    setWindowTitle(u"Inpatient Census"_s);
    QLabel* heading = NewHeading(u"Inpatient Census     "_s, this);
    heading->setObjectName(u"Label1"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addWidget(heading);
    for (size_t i = 0; i < optCensus.size(); ++i) {
        optCensus[i] = new QRadioButton(i == kByName ? u"All patients arranged alphabetically"_s
                                                     : u"All patients grouped by station"_s,
                                        this);
        optCensus[i]->setObjectName(u"optCensus(%1)"_s.arg(i));
        layout->addWidget(optCensus[i]);
    }
    optCensus[kByName]->setChecked(true);
    layout->addSpacing(Space::kNormal);
    layout->addStretch(1);
    layout->addLayout(LayoutActions());
    optCensus[kByName]->setFocus();
}

QHBoxLayout* frmCensus::LayoutActions() {
    cmdView = NewButton(u"cmdView"_s, u"&View"_s, this);
    cmdClose = NewButton(u"cmdClose"_s, u"&Close"_s, this);
    return RightAligned({cmdView, cmdClose});
}

void frmCensus::Wire() {
    connect(cmdView, &QPushButton::clicked, this, &frmCensus::cmdView_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
}

void frmCensus::cmdView_Click() {
    PrintCensus();
    Unload();
}

void frmCensus::PrintCensus() {
    const bool byStation = optCensus[kByStation]->isChecked();
    OpenReportOn(u"PATIENT_DATA"_s,
                 PathOf(byStation ? ReportFile::kCensusByStation : ReportFile::kCensusByName));
    ViewReport(u"Census Report"_s, byStation, ViewerSwitch::Switch259).release()->Show();
    gReport = nullptr;
}
