#pragma once

#include "gateway/Value.h"
#include "patients/FinderTarget.h"
#include "patients/PatientFrames.h"
#include "toolkit/Form.h"

#include <vector>

class QGroupBox;
class QHBoxLayout;
class QPushButton;

/// "Patient's Ledger": prints the ledger of one admission or visit, which the patient finder brings.
///
/// Nothing is checked before the report is opened: an empty screen gives the report empty values.
class frmLedger : public Form, public FinderTarget, private SearchPatientBoxes {
    Q_OBJECT

  public:
    frmLedger();

    QString FinderText() const override;
    void LoadPick() override;
    void Picked() override {}

  protected:
    void Form_Load() override;
    void Form_Unload() override;

  private:
    void Layout();
    QGroupBox* LayoutSearch();
    QHBoxLayout* LayoutActions();
    void Wire();

    void cmbPatientCode_Click();
    void txtIDNum_KeyPress(int& keyAscii);
    void cmdView_Click();

    void PrintLedger();
    std::vector<Value> LedgerValues() const;

    QPushButton* cmdView;
    QPushButton* cmdClose;
    // Kept: three values of the report that nothing fills; they are sent empty.
    QString mFirstSpare;
    QString mSecondSpare;
    QString mThirdSpare;
};
