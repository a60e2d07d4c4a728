#pragma once

#include "toolkit/Form.h"

class FlexGrid;
class QLineEdit;
class QPushButton;

/// The list from which an assessment takes a cash patient: in-patients, out-patients or walk-ins, by the
/// patient type of the assessment that waits. It searches by gCashSearchText as soon as it loads, copies the
/// pick into the assessment and the patient in hand, and works out the room class.
class frmCashWalkIn : public Form {
    Q_OBJECT

  public:
    frmCashWalkIn();

  protected:
    void Form_Load() override;

  private:
    void Layout();
    void Wire();

    void txtCash_KeyPress(int& keyAscii);
    void cmdSearch_Click();
    void MSHFlexCash_DblClick();
    void cmdRegister_Click();

    QLineEdit* txtCash;
    QPushButton* cmdSearch;
    FlexGrid* MSHFlexCash;
    QPushButton* cmdRegister;
    QPushButton* Command1;
};
