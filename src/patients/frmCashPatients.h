#pragma once

#include "components/Ref.h"
#include "gateway/Value.h"
#include "patients/CashPatientSearches.h"
#include "toolkit/Form.h"

#include <QString>

class FlexGrid;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class RowSet;

/// Finds a cash patient for a caller who reads the result from the members below: a walk-in by name or number
/// from a list, an out-patient or in-patient by an exact text. No screen of this release opens it.
///
/// The members outlive the screen: callers set them before it loads and read them after it has closed.
class frmCashPatients : public Form {
    Q_OBJECT

  public:
    frmCashPatients();

    /// The walk-in's number, or the visit's or admission's; empty when nobody was selected.
    inline static Value ResultCode = QString();
    /// True when a patient was selected.
    inline static Value Valid = false;
    /// "C" walk-in, "O" out-patient, "I" in-patient. Set by the selection.
    inline static Value PatientType = QString();
    /// What the search is for, shown when the screen loads.
    static void SetPatientRecord(const QString& text) { mPatientRecord = text; }
    /// Kept: the member is there to be set; reading it gives nothing.
    static QString PatientRecord() { return {}; }

    /// Kept: nothing in this release makes these two, so looking for an out-patient or an in-patient fails.
    inline static Ref<VisitByText> outPatientSearch;
    inline static Ref<AdmissionByText> admissionSearch;

  protected:
    void Form_Load() override;
    void Form_Activate() override;

  private:
    void Layout();
    void Wire();

    void cmbPatientType_Click();
    void cmbPatientType_KeyPress(int& keyAscii);
    void txtSearch_Enter();
    void cmdSelect_Click();
    void cmdClose_Click();
    void cmdAdd_Click();

    void ResetGrid();
    void SearchWalkIns();
    void FillGrid(const RowSet& found);
    void FindOutPatient();
    void FindInPatient();

    inline static QString mPatientRecord;

    QLabel* lblPatient;
    QComboBox* cmbPatientType;
    QComboBox* cmbSearch;
    QLineEdit* txtSearch;
    FlexGrid* grdTable;
    QPushButton* cmdSelect;
    QPushButton* cmdAdd;
    QPushButton* cmdClose;
};
