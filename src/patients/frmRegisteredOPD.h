#pragma once

#include "gateway/Value.h"
#include "toolkit/Form.h"

#include <QString>

class FlexGrid;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLineEdit;
class QPushButton;
class RowSet;

/// Picks one registered out-patient visit by last name or number.
///
/// The members outlive the screen: callers set them before it loads and read them after it has closed.
class frmRegisteredOPD : public Form {
    Q_OBJECT

  public:
    frmRegisteredOPD();

    /// The number of the visit that was selected; empty when none was.
    inline static Value ResultCode = QString();
    /// True when a visit was selected.
    inline static Value Valid = false;
    /// What the search is for; the screen's caption.
    inline static QString PatientRecord;
    /// Kept: it can be set, and nothing reads it.
    static void SetPatientType(const Value& type) { mPatientType = type; }

  protected:
    void Form_Load() override;
    void Form_Activate() override;

  private:
    void Layout();
    QGridLayout* LayoutSearch();
    QGroupBox* LayoutList();
    QHBoxLayout* LayoutActions();
    void Wire();

    void cmdSelect_Click();
    void cmdClose_Click();

    void Search();
    void EmptyGrid();

    inline static Value mPatientType = QString();

    QComboBox* cmbSearch;
    QLineEdit* txtSearch;
    QCheckBox* chkCurrent;
    FlexGrid* grdTable;
    QPushButton* cmdSelect;
    QPushButton* cmdClose;
};
