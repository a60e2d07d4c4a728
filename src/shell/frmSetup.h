#pragma once

#include "toolkit/Form.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

/// "Setup": writes the department into the configuration file. The running program does not pick the change
/// up; it counts from the next start.
class frmSetup : public Form {
    Q_OBJECT

  public:
    frmSetup();

  protected:
    void Form_Load() override;

  private:
    void Layout();
    void Wire();

    void cmdOK_Click();

    QLineEdit* txtDeptCode;
    QLineEdit* txtDeptDesc;
    QPushButton* cmdSelDepartment;
    QCheckBox* chkOneInstance;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
};
