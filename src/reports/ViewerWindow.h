#pragma once

#include "toolkit/Form.h"

class ReportViewer;

/// What the two viewer windows have in common: the viewer fills the window, and Escape closes it.
class ViewerWindow : public Form {
    Q_OBJECT

  public:
    QSize sizeHint() const override;

  protected:
    /// `name` is the viewer control's.
    explicit ViewerWindow(const QString& name);

    ReportViewer& Viewer() const { return *mViewer; }

    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    ReportViewer* mViewer;
};
