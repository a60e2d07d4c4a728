#pragma once

#include "reports/ViewerWindow.h"

/// The window that ShowReport presents gReport in. A new one for each report.
class frmReportviewer : public ViewerWindow {
    Q_OBJECT

  public:
    frmReportviewer();

    // Kept: both accept a value and forget it. In this release the group tree is always off and every report
    // is previewed, whatever a caller asks for; paper is made with the viewer's print button.
    void SetShowGroupTree(bool showGroupTree);
    void SetDirectPrint(bool directPrint);

  protected:
    void Form_Load() override;
    void Form_Unload() override;
};
