#pragma once

#include "patients/PatientFrames.h"
#include "toolkit/Form.h"

#include <optional>

class FlexGrid;
class QGroupBox;
class QHBoxLayout;
class QPrinter;
class QPushButton;

/// "Reprint Charge Slip": prints the duplicate of a slip for a patient found by number, from the unit's own
/// list of charges.
///
/// The print table is emptied and filled line by line, and other workstations do the same with it at any
/// time; a failure in between leaves it partial until the next print empties it.
class frmReprint : public Form, private SearchPatientBoxes {
    Q_OBJECT

  public:
    frmReprint();

    /// Prints the duplicate and then the older slip layout, on the printer given and without asking. Raises
    /// 482 when the printer does not take it.
    ///
    /// Kept: no control calls it.
    void PrintDirect(QPrinter& printer);

  protected:
    void Form_Load() override;
    void Form_Activate() override;

  private:
    void Layout();
    QGroupBox* LayoutCharges();
    QHBoxLayout* LayoutActions();
    void Wire();

    void cmbPatientCode_KeyPress(int& keyAscii);
    void txtIDNum_KeyPress(int& keyAscii);
    void grdTable_RowColChange();
    void cmdPrint_Click();

    bool FindInPatient();
    bool FindOutPatient();
    void LoadCharges();
    void PutUpGrid();
    void WriteLinesOfSlip();
    QString IssuerName() const;
    std::optional<QString> FormulaText(const QString& formula) const;

    FlexGrid* grdTable;
    QPushButton* cmdPrint;
    QPushButton* cmdClose;

    QString mSlipNo;
    /// "mm/dd/yyyy".
    QString mSlipDate;
    /// The user who entered the line.
    QString mEncoder;
    QString mPatientName;
    QString mCompany;
    /// Admission or visit number.
    QString mIdNum;
    /// "OPD" for out-patients.
    QString mRoomId;
};
