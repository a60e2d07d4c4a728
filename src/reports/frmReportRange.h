#pragma once

#include "gateway/Value.h"
#include "reports/PeriodReports.h"
#include "toolkit/Form.h"

#include <QString>

#include <vector>

class DatePicker;
class QGroupBox;
class QHBoxLayout;
class QPushButton;

/// "Report Date": asks for the first and the last day of a report and shows it. One screen serves all the
/// department's reports of a period; the report type, which the menu sets before it shows the screen, tells
/// them apart.
class frmReportRange : public Form {
    Q_OBJECT

  public:
    frmReportRange();

    /// Which report the screen shows. It outlives the screen, and may be set while the screen stands.
    static void SetReportType(::ReportType type) { storedType = type; }
    // Kept: the property answers 0 whatever was stored.
    static int ReportType() { return 0; }

  protected:
    void Form_Load() override;

  private:
    void Layout();
    QGroupBox* LayoutRange();
    QHBoxLayout* LayoutActions();
    void Wire();

    void cmdView_Click();

    void RunRoutine();
    std::vector<Value> RangeValues();

    inline static ::ReportType storedType = ::ReportType::None;

    DatePicker* dtpStartDate;
    DatePicker* dtpEndDate;
    QPushButton* cmdView;
    QPushButton* cmdClose;
    /// Both days as the report takes them, "mm/dd/yyyy".
    QString mStartDate;
    QString mEndDate;
};
