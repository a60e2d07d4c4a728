#include "reports/frmReportviewer.h"

#include "report/viewer/ReportViewer.h"
#include "reports/Reports.h"

using namespace Qt::StringLiterals;

frmReportviewer::frmReportviewer()
    : ViewerWindow(u"CRViewer1"_s) {
    setObjectName(u"frmReportviewer"_s);
}

void frmReportviewer::SetShowGroupTree(bool /*showGroupTree*/) {}

void frmReportviewer::SetDirectPrint(bool /*directPrint*/) {}

void frmReportviewer::Form_Load() {
    Viewer().SetReportSource(gReport.Shared());
    Viewer().Zoom(ReportViewer::kPageWidth);
    Viewer().DisplayGroupTree(false);
    Viewer().EnableGroupTree(false);
    Viewer().ViewReport();
}

void frmReportviewer::Form_Unload() {
    Viewer().StopWork();
    gReport = nullptr;
}
