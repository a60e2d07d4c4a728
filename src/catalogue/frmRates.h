#pragma once

#include "catalogue/clsRevenueCode.h"
#include "toolkit/Form.h"

#include <memory>

class FlexGrid;
class QGroupBox;
class QHBoxLayout;
class QLineEdit;
class QPushButton;

/// "List of Rates": the rate list of one revenue centre. No menu opens it in this release.
class frmRates : public Form {
    Q_OBJECT

  public:
    frmRates();

  protected:
    void Form_Load() override;
    void Form_Activate() override;

  private:
    void Layout();
    QHBoxLayout* LayoutCentre();
    QGroupBox* LayoutList();
    void Wire();

    void cmdSearch_Click();
    void txtRevenueID_KeyPress(int& keyAscii);
    void ShowRates(const clsRevenueCode& centre);

    QLineEdit* txtRevenueID;
    QPushButton* cmdSearch;
    QLineEdit* txtRevenueCenter;
    QGroupBox* fraList;
    FlexGrid* grdRates;
    QPushButton* cmdClose;
    /// Made by the first search and kept.
    std::unique_ptr<clsRevenueCode> mRevenue;
};
