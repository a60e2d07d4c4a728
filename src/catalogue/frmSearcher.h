#pragma once

#include "toolkit/Form.h"

class FlexGrid;
class QCheckBox;
class QHBoxLayout;
class QLineEdit;
class QPushButton;

/// "Ultra Exam": picks an ultrasound examination, whose name and code go into gUltraExam and gUltraExamID.
/// Nothing in this release opens it.
class frmSearcher : public Form {
    Q_OBJECT

  public:
    frmSearcher();

  protected:
    void Form_Load() override;

  private:
    void Layout();
    QHBoxLayout* LayoutSearch();
    QHBoxLayout* LayoutActions();
    void Wire();

    void txtSearchStr_GotFocus();
    void txtSearchStr_KeyPress(int& keyAscii);
    void SearchBehindThePaste();
    void cmdSelect_Click();
    void cmdCancel_Click();

    void BindExams(const QString& command);

    QLineEdit* txtSearchStr;
    /// Kept: nothing asks whether it is on.
    QCheckBox* chkAutoSearch;
    FlexGrid* grdDispWindow;
    QPushButton* cmdSelect;
    QPushButton* cmdCancel;
    /// Kept: true from the load on, and read by nothing.
    bool mLoaded = false;
    bool mSearchDue = false;
};
