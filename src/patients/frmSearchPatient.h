#pragma once

#include "toolkit/Form.h"

#include <QString>

#include <array>

class ListView;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTimer;

/// The patient finder, "Patient List": lists in-patients or out-patients on file for the screen that waits in
/// gChargeMode, refuses closed accounts, and loads the pick into that screen.
class frmSearchPatient : public Form {
    Q_OBJECT

  public:
    frmSearchPatient();

    /// Index 0 "In-Patient", index 1 "Out-Patient".
    ///
    /// Kept: the clerk can flip them and the search goes by gPatientType all the same. A reader from outside
    /// after the finder has closed reaches a fresh instance with both off, which reads as out-patient.
    std::array<QRadioButton*, 2> optPatientType;

    /// Fills the list of a freshly opened finder by the field of the waiting screen.
    void RefillFromTarget();

  protected:
    void Form_Load() override;
    void Form_Unload() override;

  private:
    void Layout();
    void LayoutInPlace();
    void Wire();

    void cmdSearch_Click();
    void txtLastName_Enter();
    void ListView1_ColumnClick(int column);
    void ListView1_Click();
    void ListView1_DblClick();

    void Fill(const QString& text);
    void TakeSelectedRow();
    void RepeatCommandOfTarget();
    void LoadTarget();

    QLineEdit* txtLastName;
    QPushButton* cmdSearch;
    ListView* ListView1;
    QTimer* Timer1;
};

/// Asks a finder that may be closed. The instance that the question makes out of sight is dropped with it:
/// left there, it would be the finder of the next patient, with the hits of the one before.
class FinderQuestion {
  public:
    FinderQuestion() = default;
    FinderQuestion(const FinderQuestion&) = delete;
    FinderQuestion& operator=(const FinderQuestion&) = delete;
    ~FinderQuestion();

    /// The patient type by the finder's options, for the entries on stock cards: "I" or "O".
    ///
    /// Kept: once the finder is closed the question makes a fresh one out of sight, which fills itself by its
    /// waiting screen and has no option on. The answer is "O" then, for in-patients too.
    QString PatientType();

  private:
    bool mMadeIt = false;
};

/// The patient type by the finder's options, asked once.
QString FinderPatientType();
