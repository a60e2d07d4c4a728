#pragma once

#include "toolkit/Form.h"

#include <QString>

#include <array>

class DatePicker;
class QComboBox;
class QLineEdit;
class QPushButton;

/// Registers a walk-in from the cash patient list and brings the list back with the new name.
class frmCashWalkInPatient : public Form {
    Q_OBJECT

  public:
    frmCashWalkInPatient();

  protected:
    void Form_Load() override;

  private:
    void Layout();
    void MakeControls();
    void SetOrderOfWork();
    void Wire();

    void txtInfo_KeyPress(int index, int& keyAscii);
    void mskBirth_KeyPress(int& keyAscii);
    void cmdTown_Click();
    void cmdCivil_Click();
    void cmdOption_Click(int index);

    void TownKey(int& keyAscii);
    void CivilKey(int& keyAscii);
    bool TakeTown(bool found);
    bool TakeCivilStatus(bool found);
    void Save();

    /// 0 last name, 1 first name, 2 middle name, 3 age, 4 street, 5 barangay, 6 town, 7 civil status.
    std::array<QLineEdit*, 8> txtInfo;
    DatePicker* mskBirth;
    QPushButton* cmdTown;
    QPushButton* cmdCivil;
    QComboBox* cboSex;
    /// 0 "&Save", 1 "&Cancel".
    std::array<QPushButton*, 2> cmdOption;
    /// The codes of the last lookups that found something.
    QString mTownCode;
    QString mCivilStatusCode;
};
