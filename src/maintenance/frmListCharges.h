#pragma once

#include "patients/FinderTarget.h"
#include "patients/PatientFrames.h"
#include "toolkit/Form.h"

#include <array>
#include <memory>

class FlexGrid;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QVBoxLayout;

/// "List of Charges": lists what the department has charged to one admission or visit, prints a slip again,
/// and takes a line back.
///
/// A service or a doctor's fee is taken back on the account, a stock item on its stock card. Between a line's
/// verification and its cancellation nothing is held: two clerks may cancel the same line.
class frmListCharges : public Form, private PatientNameBoxes, private HospitalInfoBoxes {
    Q_OBJECT

  public:
    frmListCharges();
    ~frmListCharges() override;

    /// Rebuilds the list from the database, for the patient shown.
    void Get_Charges();

  protected:
    void Form_Load() override;

  private:
    friend FinderTarget& ListChargesTarget();

    /// The screen as the finder knows it.
    class Target;

    void Layout();
    QGroupBox* LayoutPatientType();
    QGroupBox* LayoutHospitalInfo();
    QGroupBox* LayoutList();
    QVBoxLayout* LayoutActions();
    void SetOrderOfWork();
    void Wire();

    void Option1_Click();
    void txtLastName_KeyPress(int& keyAscii);
    void cmdList_Click();
    void cmdOption_Click(int index);

    void PutUpGrid();
    void EnableOptions();
    void ShowOptions(bool shown);
    void ReprintSlip();
    void CancelCharge();
    bool IsTakenBack() const;
    void CancelStockItem(const QString& department);
    void CancelService(const QString& department);

    std::unique_ptr<Target> mTarget;
    std::array<QRadioButton*, 2> Option1;
    QPushButton* cmdList;
    std::array<QPushButton*, 2> cmdOption;
    QLineEdit* txtMessage;
    FlexGrid* mshflexList;
};

/// The list of charges as the screen that waits for the finder; a first touch makes it.
FinderTarget& ListChargesTarget();
