#include "reports/frmCensus.h"

#include "report/ReportEngine.h"
#include "report/viewer/ReportViewer.h"
#include "reports/frmReport.h"
#include "reports/Reports.h"
#include "toolkit/Controls.h"
#include "toolkit/Look.h"
#include "toolkit/ProgramFiles.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <memory>

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
    gReport = ReportEngine().OpenReport(
        ProgramDirectory() + (byStation ? u"\\Reports\\CensusStation.rpt"_s : u"\\Reports\\CensusAll.rpt"_s),
        kOpenOption);
    for (ReportTable& table : gReport->Tables())
        SetTableLogOn(table, u"PATIENT_DATA"_s);
    auto window = std::make_unique<frmReport>();
    window->crvReport->EnableGroupTree(byStation);
    window->crvReport->SetSwitch259(true);
    window->crvReport->SetReportSource(gReport.Shared());
    window->crvReport->ViewReport();
    window->setWindowTitle(u"Census Report"_s);
    // The window goes on showing what it has, and deletes itself when it is closed.
    window.release()->Show();
    gReport = nullptr;
}
