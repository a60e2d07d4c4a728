#pragma once

#include "charges/ChargeGrid.h"
#include "patients/FinderTarget.h"
#include "patients/PatientFrames.h"
#include "toolkit/Form.h"

#include <QStringList>

class ChargeGrid;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/// "Post Charges": posts services, medicines and doctors' fees straight to an in-patient's or out-patient's
/// account under a charge slip number, and prints the slip.
class frmPostCharges : public Form, public FinderTarget, private PatientNameBoxes, private HospitalInfoBoxes {
    Q_OBJECT

  public:
    frmPostCharges();

    /// The patient's name as the slip shows it.
    QString SlipPatientName;

    /// Saves the lines. False when there is nothing to save, which it tells.
    ///
    /// Each line costs two commands, nothing stands in a transaction, and the counter is bumped before the
    /// first line: a failure in between leaves what was sent before it.
    bool SaveCharges();

    /// Whether the code stands on another line of the current line's department.
    bool Check_Code(const QString& strCode) const;

    /// Writes the items of a package on their stock cards under the reference number, for the patient shown.
    ///
    /// Kept: no path calls it in this release; a save passes over the lines of packages.
    void ExpandPackage(QString& referenceNumber, const QString& packageCode);

    /// The lines, for a ward's request that fills them.
    ChargeGrid& Charges() { return *mGrid; }

    /// The boxes that a ward's request fills.
    struct RequestBoxes {
        const PatientNameBoxes& name;
        const HospitalInfoBoxes& info;
        QLineEdit* txtDocID;
        QLineEdit* txtRequestingDoc;
    };
    RequestBoxes Boxes() const { return {*this, *this, txtDocID, txtRequestingDoc}; }
    /// Notes that the patient in hand is the one whom the screen shows. Where another one is taken later, on
    /// another screen, the clerk is told when he comes back.
    void HoldPatient();

    QString FinderText() const override;
    void LoadPick() override;
    void Picked() override;

  protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    bool HoldsWork() const override { return !mGrid->IsEmpty(); }

  private:
    void Layout();
    QGroupBox* LayoutHospitalInfo();
    QHBoxLayout* LayoutRequestingDoctor();
    QGroupBox* LayoutCharges();
    QGroupBox* LayoutDepartments();
    QGroupBox* LayoutMessage();
    QGroupBox* LayoutActions();
    void Wire();
    void SetOrderOfWork();

    void txtLastName_KeyPress(int& keyAscii);
    void txtFirstName_Change(const QString& text);
    void txtDocID_KeyPress(int& keyAscii);
    void Command2_Click();
    void cmdPrint_Click();

    void TellPatientInHand();

    QString TakeSlipNumber();
    void SaveLine(int row);
    void PrintSlip();

    QLineEdit* txtDocID;
    QLineEdit* txtRequestingDoc;
    QPushButton* Command2;
    QLineEdit* txtTAmount;
    ChargeGrid* mGrid;
    QGroupBox* Frame2;
    QGroupBox* Frame4;
    QPushButton* cmdPrint;
    QPushButton* Command1;
    QLabel* lblDepartment;
    QLabel* lblDeptCode;
    QLabel* lblMessage;
    QStringList mHeld;
};
