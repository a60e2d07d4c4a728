#pragma once

#include "toolkit/Workspace.h"

#include <QMainWindow>

class MainArea;
class PendingMonitor;
enum class ReportType;
class StatusPanel;
struct MenuEntry;

/// The main window: menu bar, toolbar, status bar and the area in which the screens show. It routes: it sets
/// the shared mode variables and opens a screen, and computes nothing.
class frmMain : public QMainWindow, private Workspace {
    Q_OBJECT

  public:
    frmMain();
    ~frmMain() override;

    /// Makes the main window, shows it and runs its load.
    static void Open();

    /// Signs the user on, takes the connection, reads the hospital record and hands the connection to the
    /// components. Unloads the window and ends the process when nobody signs on.
    void Form_Load();
    /// Closes the open screens and the window, and with it the program. Asks nothing.
    void UnloadMain();

    /// Opens the patient finder. Kept: nothing calls it.
    void OpenSearchPatient();
    /// Opens the correction of a walk-in's record, modally. Kept: nothing calls it.
    void OpenWalkInUpdate();

    /// The toolbar's buttons and dropdown items by their keys, compared exactly.
    void Toolbar1_ButtonClick(const QString& key);
    void Toolbar1_ButtonMenuClick(const QString& key);

  protected:
    void closeEvent(QCloseEvent* event) override;
    /// The menu's shortcuts come before a text box's own use of the same keys.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    friend struct MenuEntry;

    QMdiArea* Area() override;
    void EnableMenuItem(const QString& name, bool enabled) override;

    void Layout();
    void LayoutMenu();
    void AddMenuEntry(const MenuEntry& entry);
    void LayoutToolbar();
    void LayoutStatusBar();
    void LayoutPendingStrip();

    void TakeConnection();
    void ReadHospitalRecord();
    void CreateWardComponents();
    void HandOutConnection();
    void TellWhereOneIs();

    void mnuAssessment_Click();
    void mnuInTransactionEntry_Click();
    void mnuOutTransaction_Click();
    void mnuExit_Click();
    void mnuCensus_Click();
    void mnuLedger_Click();
    void mnuMLedger_Click();
    void mnuReportStatus_Click();
    void mnuListCharges_Click();
    void mnuDuplicate_Click();
    void mSetup_Click();
    void mnuAbout_Click();
    void OpenPostCharges(const QString& patientType);
    void OpenReportRange(ReportType type);
    void AskAndClose();

    MainArea* mArea = nullptr;
    PendingMonitor* mPendingMonitor = nullptr;
    /// The three panels of the status bar. The second and third show date and time, whatever their text is.
    StatusPanel* mPanel1 = nullptr;
    StatusPanel* mPanel2 = nullptr;
    StatusPanel* mPanel3 = nullptr;
};
