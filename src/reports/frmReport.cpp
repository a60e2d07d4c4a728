#include "reports/frmReport.h"

#include "report/viewer/ReportViewer.h"
#include "toolkit/Workspace.h"

using namespace Qt::StringLiterals;

frmReport::frmReport()
    : ViewerWindow(u"crvReport"_s)
    , crvReport(&Viewer()) {
    setObjectName(u"frmReport"_s);
}

void frmReport::Form_Unload() {
    crvReport->StopWork();
    if (Workspace* workspace = Workspace::Current())
        workspace->EnableMenuItem(u"mnuMLedger"_s, true);
}
