#pragma once

#include "toolkit/Form.h"

#include <QPixmap>

#include <array>

class FlexGrid;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

/// "Assessment Status": lists the department's cash assessments, revokes one, and prints the slip of one
/// again.
///
/// A row may be acted on while its status is a date (it waits for payment) or begins with "OR" (it is paid).
/// Every line of an assessment bears its reference number, and all of them are revoked together; a line
/// without one stands alone.
class frmAssessStatus : public Form {
    Q_OBJECT

  public:
    frmAssessStatus();

  protected:
    void Form_Load() override;
    bool Form_QueryUnload() override;

  private:
    void Layout();
    QHBoxLayout* LayoutHeading();
    QHBoxLayout* LayoutSearch();
    QHBoxLayout* LayoutActions();
    void Wire();

    void txtSearch_Enter();
    void grdTable_RowColChange();
    void cmdRevoke_Click();
    void cmdPrint_Click();
    void Timer1_Timer();

    void BindList(const QString& lastName);
    void RebindList(const QString& lastName);
    void RevokeEveryLineOf(const QString& reference);

    QLabel* Picture1;
    std::array<QPixmap, 2> ImageList1;
    QTimer* Timer1;
    QLineEdit* txtSearch;
    FlexGrid* grdTable;
    QPushButton* cmdRevoke;
    QPushButton* cmdPrint;
    QPushButton* cmdClose;
    /// The picture shows its second image.
    bool mPhase = false;
};
