#pragma once

#include "patients/CashTarget.h"
#include "toolkit/Form.h"

#include <array>

class ChargeGrid;
class QFrame;
class QGroupBox;
class QHBoxLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;

/// "Assessment Entry": writes what a cash patient has to pay as a numbered assessment, and prints the slip
/// that the patient carries to the cashier. Nothing is posted to an account.
class frmAssessment : public Form, public CashTarget, private CashPatientBoxes {
    Q_OBJECT

  public:
    frmAssessment();

    /// Saves the lines under the next assessment number, which `number` and gSlipNumber receive. False when
    /// the name or the lines are missing, which it tells.
    ///
    /// Nothing stands in a transaction, and the counter is bumped before the first line: a failure in between
    /// leaves a partial assessment under a spent number. An empty counter table raises 3021.
    bool SaveAssessment(QString& number);

    /// Turns a package into its items: reads them and writes nothing. The amount is not used.
    void ExpandPackage(const QString& referenceNumber, const QString& packageCode, const QString& amount);

    /// Whether the code stands on another line of the current line's department.
    bool Check_Code(const QString& strCode) const;

    bool PatientTypeOn(int index) const override;
    void EnableExams() override;
    const CashPatientBoxes& Boxes() const override { return *this; }

  protected:
    void Form_Load() override;
    void Form_Unload() override;

  private:
    void Layout();
    QFrame* LayoutHeading();
    QGroupBox* LayoutPatientType();
    QGroupBox* LayoutPatientName();
    QGroupBox* LayoutRequestingDoctor();
    QGroupBox* LayoutDepartments();
    QGroupBox* LayoutExams();
    QHBoxLayout* LayoutActions();
    void Wire();
    void SetOrderOfWork();

    void optType_Click(size_t index);
    void cmdSearch_Click();
    void txtSname_KeyPress(int& keyAscii);
    void txtDoctorID_KeyPress(int& keyAscii);
    void cmdDoctor_Click();
    void cmdSave_Click();
    void cmdPrint_Click();
    void cmdClose_Click();

    QString TakeAssessmentNumber();
    void SaveLine(int row, const QString& number);
    void FillPrintTable();
    void PrintSlip();
    /// Ends the patient's work; the next one gets a fresh screen.
    void LeavePatient();

    QPushButton* cmdSearch;
    std::array<QRadioButton*, 3> optType;
    QLineEdit* txtDoctorID;
    QLineEdit* txtDoctor;
    QPushButton* cmdDoctor;
    QGroupBox* fraExams;
    QLineEdit* txtGross;
    ChargeGrid* mGrid;
    QPushButton* cmdSave;
    QPushButton* cmdPrint;
    QPushButton* cmdClose;
};
