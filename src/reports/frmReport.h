#pragma once

#include "reports/ViewerWindow.h"

class ReportViewer;

/// The window of the reports that are opened directly. Its opener sets the title and the viewer's switches,
/// gives it the report and has it viewed.
class frmReport : public ViewerWindow {
    Q_OBJECT

  public:
    frmReport();

    ReportViewer* const crvReport;

  protected:
    void Form_Unload() override;
};
