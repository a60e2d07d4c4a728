#pragma once

#include "toolkit/Form.h"

class DatePicker;
class FlexGrid;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QTabWidget;

/// "Walk-in Patient Update": finds a walk-in on its first tab and corrects the record on its second. It
/// checks nothing; an update that meets no record goes unnoticed. No menu opens it in this release.
class frmWalkInUpdate : public Form {
    Q_OBJECT

  public:
    frmWalkInUpdate();

  protected:
    void Form_Load() override;
    void Form_Activate() override;

  private:
    void Layout();
    QWidget* LayoutSearch();
    QGroupBox* LayoutList();
    QWidget* LayoutRecord();
    void MakeRecordControls(QWidget* page);
    void PlaceRecordControls(QGridLayout& grid);
    void SetOrderOfWork();
    void Wire();
    void WireRecord();

    void cmdEdit_Click();
    void dtpBirthDate_Change();
    void txtZipCode_KeyPress(int& keyAscii);
    void cmdZipCode_Click();
    void cmdSave_Click();

    void ListWalkIns();
    void LoadRecord(const QString& hospitalNumber);
    void ClearRecord();
    void TakeAddress(const QString& code);
    QString BirthDateText() const;

    QTabWidget* ssWalkIn;
    QComboBox* cmbSearchBy;
    QLineEdit* txtSearch;
    FlexGrid* grdTable;
    QPushButton* cmdEdit;
    QLineEdit* txtHospNum;
    QLineEdit* txtLastName;
    QLineEdit* txtFirstName;
    QLineEdit* txtMiddleName;
    DatePicker* dtpBirthDate;
    QLineEdit* txtAge;
    QComboBox* cmbSex;
    /// The index is the civil status code, 6 the empty entry.
    QComboBox* cmbCivil;
    QLineEdit* txtAddress1;
    QLineEdit* txtAddress2;
    /// Town and province as the list of addresses has them. Never sent.
    QLineEdit* txtAddress3;
    QLineEdit* txtZipCode;
    QPushButton* cmdZipCode;
    QPushButton* cmdSave;
    QPushButton* cmdClose;
};
