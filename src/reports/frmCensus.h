#pragma once

#include "toolkit/Form.h"

#include <array>

class QHBoxLayout;
class QPushButton;
class QRadioButton;

/// "Inpatient Census": prints the census of the patients who are in the hospital, by name or by station.
class frmCensus : public Form {
    Q_OBJECT

  public:
    frmCensus();

  private:
    void Layout();
    QHBoxLayout* LayoutActions();
    void Wire();

    void cmdView_Click();

    void PrintCensus();

    std::array<QRadioButton*, 2> optCensus;
    QPushButton* cmdView;
    QPushButton* cmdClose;
};
