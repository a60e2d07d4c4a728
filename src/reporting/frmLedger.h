#pragma once

#include "gateway/Value.h"
#include "patients/FinderTarget.h"
#include "toolkit/Form.h"

#include <vector>

class QComboBox;
class QGroupBox;
class QHBoxLayout;
class QLineEdit;
class QPushButton;

/// "Patient's Ledger": prints the ledger of one admission or visit, which the patient finder brings.
///
/// Nothing is checked before the report is opened: an empty screen gives the report empty values.
class frmLedger : public Form, public FinderTarget {
    Q_OBJECT

  public:
    frmLedger();

    QString FinderText() const override;
    void SetBox(const QString& name, const QString& text) override;
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

    QComboBox* cmbPatientCode;
    QLineEdit* txtIDNum;
    QLineEdit* txtHospNum;
    QLineEdit* txtLastName;
    QLineEdit* txtFirstName;
    QLineEdit* txtMiddleName;
    QPushButton* cmdView;
    QPushButton* cmdClose;
    // Kept: three values of the report that nothing fills; they are sent empty.
    QString mFirstSpare;
    QString mSecondSpare;
    QString mThirdSpare;
};
