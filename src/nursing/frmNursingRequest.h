#pragma once

#include "toolkit/Form.h"

class FlexGrid;
class QHBoxLayout;
class QPushButton;

/// The queue of the wards' requests. Picking one fills the in-patient charge screen with its patient and its
/// exams, ready to be posted.
class frmNursingRequest : public Form {
    Q_OBJECT

  public:
    frmNursingRequest();

    /// Loads the exams of an id number into the charge screen's grid. Without any the grid stays as it is.
    void LoadExam(const QString& IdNum);

    /// Shows the consultation form of a request and returns when it has been closed.
    void PrintConsultation(const QString& strRequestNum);

  protected:
    void Form_Load() override;

  private:
    void Layout();
    QHBoxLayout* LayoutActions();
    void Wire();

    void LoadRequests();
    void ProcessRequest();

    void grdRequest_DblClick();
    void cmdCancel_Click();
    void Command1_Click();

    FlexGrid* grdRequest;
    QPushButton* Command1;
    QPushButton* cmdCancel;
    QPushButton* cmdClose;
    /// Kept: whether the last request had exams; nothing reads it.
    bool mHasExams = false;
};
