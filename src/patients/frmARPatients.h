#pragma once

#include "gateway/RowSet.h"
#include "gateway/Value.h"
#include "toolkit/Form.h"

#include <QString>

class FlexGrid;
class QComboBox;
class QGroupBox;
class QHBoxLayout;
class QLineEdit;
class QPushButton;

/// Picks a patient who has a billing record. No screen of this release opens it.
///
/// The members outlive the screen: callers set them before it loads and read them after it has closed.
class frmARPatients : public Form {
    Q_OBJECT

  public:
    frmARPatients();

    /// Kept: nothing sets it; it reads as the empty text.
    static QString IdNum() { return {}; }
    /// Kept: it can be set, and nothing reads it.
    static void SetPatientRecord(const QString& text) { mPatientRecord = text; }
    /// The number of the patient who was selected, in the second column of the list.
    static const Value& ResultCode() { return mResultCode; }
    /// The type of the patients to list.
    inline static QString PatientType;
    /// Kept: the caller's; the screen searches by its own box.
    inline static QString SearchText;
    /// True once a patient was selected.
    // Kept: neither a new opening nor a close takes it back, so it tells of every selection since the start.
    static bool Valid() { return mValid; }

  protected:
    void Form_Load() override;

  private:
    void Layout();
    QHBoxLayout* LayoutSearch();
    QGroupBox* LayoutList();
    QHBoxLayout* LayoutActions();
    void Wire();

    void cmdSelect_Click();

    void Search();

    inline static QString mPatientRecord;
    inline static Value mResultCode = QString();
    inline static bool mValid = false;

    QComboBox* cmbSearch;
    QLineEdit* txtSearch;
    FlexGrid* grdTable;
    QPushButton* cmdSelect;
    QPushButton* cmdClose;
    RowSet mFound;
};
