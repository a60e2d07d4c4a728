#pragma once

#include "toolkit/Form.h"

#include <array>

class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

/// "Walk-in Patient Entry", the older screen that registers a walk-in. It checks nothing and closes after the
/// save.
class frmWalkIn : public Form {
    Q_OBJECT

  public:
    frmWalkIn();

  private:
    void Layout();
    void MakeControls();
    QGroupBox* LayoutSex();
    QGroupBox* LayoutCivilStatus();
    void SetOrderOfWork();
    void Wire();

    void TextBox_KeyPress(int& keyAscii);
    void txtZipCode_KeyPress(int& keyAscii);
    void cmdAddress_Click();
    void cmdSave_Click();

    void TakeAddress(const QString& code);

    QLineEdit* txtSname;
    QLineEdit* txtFname;
    QLineEdit* txtMname;
    QLineEdit* txtBirth;
    QLineEdit* txtAge;
    /// 0 "Male", 1 "Female".
    std::array<QRadioButton*, 2> optSex;
    /// The index is the civil status code.
    std::array<QRadioButton*, 6> optCivil;
    QLineEdit* txtHouse;
    QLineEdit* txtBarangay;
    QLineEdit* txtZipCode;
    QPushButton* cmdAddress;
    QLineEdit* txtTown;
    QPushButton* cmdSave;
    QPushButton* cmdClose;
};
