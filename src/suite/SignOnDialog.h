#pragma once

#include "suite/SignOn.h"

#include <QDialog>

#include <chrono>
#include <memory>
#include <span>

class DataSource;
class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QTimer;

/// The sign-on window: user, password, data source, and how large the program is drawn. Three wrong tries
/// close it. Where the hospital asks for a wait before it looks at a password, the window waits, tells how
/// long, and then goes on by itself.
class SignOnDialog : public QDialog {
    Q_OBJECT

  public:
    /// The data sources must outlive the dialogue, which begins with the one that was kept.
    SignOnDialog(std::span<const std::unique_ptr<DataSource>> sources, const QString& deptCode);
    ~SignOnDialog() override;

    /// The user after the dialogue was accepted, null otherwise.
    std::unique_ptr<SignedOnUser> TakeUser() { return std::move(mUser); }
    /// The password that the user typed. The dialogue forgets it.
    QString TakePassword();
    /// The name of the data source chosen.
    QString SourceName() const;
    /// Keeps the data source chosen among the user's settings, for the next dialogue to begin with. The one
    /// that the dialogue began with is nobody's choice: where an administrator names another one later, that
    /// counts.
    void KeepSource();

  private:
    void Layout();
    void LayoutDisplaySize();
    QLayout* LayoutButtons();
    void Wire();

    void cmbDataSource_Change();
    void cmbDisplaySize_Click();
    void TellOfDisplaySize();
    void TellOfMissingSource(const QString& name);
    void cmdOK_Click();
    void cmdMakeAnew_Click();

    DataSource& Source() const;
    bool MakeHospital(bool anew);
    bool MayMakeAnew();
    bool SignsOnToReplace();
    void Try(bool waited);
    void Wait(std::chrono::seconds wait);
    void tmrWait_Timer();
    void SetWaiting(bool waiting);
    void Refuse(const QString& reason);
    void ForgetPassword();
    void ShowProblem(const QString& text);
    void MakeRoom();

    std::span<const std::unique_ptr<DataSource>> mSources;
    QString mDeptCode;
    /// The data source with which this dialogue, or the next one, begins.
    QString mBeganWith;
    std::unique_ptr<SignedOnUser> mUser;
    int mTriesLeft = 3;
    std::chrono::steady_clock::time_point mWaitEnd;

    QLineEdit* txtUser;
    QLineEdit* txtPassword;
    QComboBox* cmbDataSource;
    QComboBox* cmbDisplaySize;
    QLabel* lblHint;
    QLabel* lblProblem;
    QPushButton* cmdMakeAnew;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
    QTimer* tmrWait;
};
