#pragma once

#include "toolkit/Form.h"

#include <QString>

class FlexGrid;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/// The general pick-a-row dialog: a title, a query with a slot for the search text, the rows in a grid that
/// follows each key, and the code of the chosen row.
///
/// The members below outlive the screen: callers write them before it loads and read what it found after it
/// has closed.
class frmSearch : public Form {
    Q_OBJECT

  public:
    frmSearch();

    /// Title of the dialog.
    inline static QString SearchCaption;
    /// Command text; each "##" in it takes the search text.
    inline static QString Query;
    /// First search text.
    inline static QString Criteria;
    /// Column 2 of the chosen row.
    static const QString& ResultCode() { return mResultCode; }
    /// True when a row was chosen.
    static bool Valid() { return mValid; }
    /// True: the caller fills the grid by hand and the search box is off.
    inline static bool DisableSearch = false;

    FlexGrid* grdDispWindow;

  protected:
    void Form_Load() override;
    void Form_Activate() override;

  private:
    void Layout();
    QHBoxLayout* LayoutSearch();
    QGroupBox* LayoutRecords();
    QHBoxLayout* LayoutActions();
    void Wire();

    bool txtSearchStr_KeyDown(int keyCode);
    void txtSearchStr_Change();
    void grdDispWindow_RowColChange();
    void cmdSelect_Click();
    void cmdCancel_Click();

    void FillGrid(const QString& text);
    void GoToTopVisibleRow();
    void PickTopVisibleRow();

    inline static QString mResultCode;
    inline static bool mValid = false;

    QLabel* lblHospital;
    QLabel* lblTitle;
    QLabel* lblSTitle;
    QLineEdit* txtSearchStr;
    QLabel* lblHelpTip;
    QPushButton* cmdSelect;
    QPushButton* cmdCancel;
    /// Up from a typed key until the fill that follows it.
    bool mSearchDue = false;
    int mRow = 0;
};
