#include "suite/SignOnDialog.h"

#include "suite/DataSource.h"
#include "suite/Passwords.h"
#include "text/RunTimeError.h"
#include "toolkit/Controls.h"
#include "toolkit/DisplaySize.h"
#include "toolkit/MsgBox.h"
#include "toolkit/OpenedCombo.h"
#include "toolkit/RestartProcess.h"
#include "toolkit/Twips.h"
#include "toolkit/UserSettings.h"
#include "tsql/ServerError.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 5000;
constexpr std::chrono::milliseconds kWaitStep(200);
const QString kDataSourceSetting = u"DataSource"_s;

/// The progress of a making, which nobody can close: as long as it shows, the sign-on window under it takes
/// no key and no click, and nobody begins a second making inside the first.
class MakingWindow : public QProgressDialog {
  public:
    MakingWindow(const QString& title, QWidget* parent)
        : QProgressDialog(parent, Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
        setObjectName(u"MakingProgress"_s);
        setWindowTitle(title);
        setWindowModality(Qt::WindowModal);
        setCancelButton(nullptr);
        setAutoReset(false);
        show();
    }

    void Tell(int done, int total, const QString& what) {
        setMaximum(total);
        setLabelText(what);
        setValue(done);
        // A value that has not changed lets no events through by itself.
        QCoreApplication::processEvents();
    }

    void reject() override {}

  protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

} // namespace

SignOnDialog::SignOnDialog(std::span<const std::unique_ptr<DataSource>> sources, const QString& deptCode)
    : mSources(sources)
    , mDeptCode(deptCode) {
    Layout();
    for (const auto& source : mSources)
        cmbDataSource->addItem(source->Name());
    const QString kept = UserSettings().value(kDataSourceSetting).toString();
    cmbDataSource->setCurrentIndex(qMax(0, cmbDataSource->findText(kept)));
    mBeganWith = SourceName();
    cmbDisplaySize->setCurrentIndex(cmbDisplaySize->findData(DisplaySize::Chosen()));
    Wire();
    cmbDataSource_Change();
    TellOfDisplaySize();
    TellOfMissingSource(kept);
}

SignOnDialog::~SignOnDialog() {
    ForgetPassword();
}

void SignOnDialog::Layout() {
    setObjectName(u"SignOnDialog"_s);
    setWindowTitle(u"Sign On"_s);
    txtUser = NewTextBox(u"txtUser"_s, this);
    txtPassword = NewTextBox(u"txtPassword"_s, this);
    txtPassword->setEchoMode(QLineEdit::Password);
    cmbDataSource = NewCombo(u"cmbDataSource"_s, {}, this);
    LayoutDisplaySize();
    lblHint = new QLabel(this);
    lblHint->setObjectName(u"lblHint"_s);
    lblHint->setWordWrap(true);
    lblProblem = new QLabel(this);
    lblProblem->setObjectName(u"lblProblem"_s);
    lblProblem->setWordWrap(true);
    // It names files, whose names may look like markup.
    lblProblem->setTextFormat(Qt::PlainText);
    lblProblem->setProperty("problem", true);
    lblProblem->hide();
    tmrWait = new QTimer(this);

    auto* grid = new QGridLayout(this);
    grid->setColumnMinimumWidth(1, TwipsToPixels(kWidth));
    AddLabelled(*grid, 0, 0, u"&User"_s, txtUser);
    AddLabelled(*grid, 1, 0, u"&Password"_s, txtPassword);
    AddLabelled(*grid, 2, 0, u"&Data source"_s, cmbDataSource);
    AddLabelled(*grid, 3, 0, u"Display si&ze"_s, cmbDisplaySize);
    grid->addWidget(lblHint, 4, 1);
    grid->addWidget(lblProblem, 5, 0, 1, 2);
    grid->addLayout(LayoutButtons(), 6, 0, 1, 2);
    txtUser->setFocus();
}

void SignOnDialog::LayoutDisplaySize() {
    cmbDisplaySize = new OpenedCombo(this);
    cmbDisplaySize->setObjectName(u"cmbDisplaySize"_s);
    cmbDisplaySize->addItem(u"Automatic"_s, DisplaySize::kAutomatic);
    for (const int percent : DisplaySize::kPercents)
        cmbDisplaySize->addItem(u"%1 %"_s.arg(percent), percent);
    cmbDisplaySize->setToolTip(u"How large everything is drawn. The program begins anew."_s);
}

QLayout* SignOnDialog::LayoutButtons() {
    cmdMakeAnew = NewButton(u"cmdMakeAnew"_s, u"Make the trial hospital &anew..."_s, this);
    cmdMakeAnew->setAutoDefault(false);
    cmdOK = NewButton(u"cmdOK"_s, u"&Sign on"_s, this);
    cmdOK->setDefault(true);
    cmdCancel = NewButton(u"cmdCancel"_s, u"&Cancel"_s, this);
    cmdCancel->setAutoDefault(false);
    QHBoxLayout* buttons = RightAligned({cmdOK, cmdCancel});
    buttons->insertWidget(0, cmdMakeAnew);
    return buttons;
}

void SignOnDialog::Wire() {
    connect(cmbDataSource, &QComboBox::currentIndexChanged, this, &SignOnDialog::cmbDataSource_Change);
    connect(cmbDisplaySize, &QComboBox::activated, this, &SignOnDialog::cmbDisplaySize_Click);
    connect(cmdOK, &QPushButton::clicked, this, &SignOnDialog::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdMakeAnew, &QPushButton::clicked, this, &SignOnDialog::cmdMakeAnew_Click);
    connect(tmrWait, &QTimer::timeout, this, &SignOnDialog::tmrWait_Timer);
}

DataSource& SignOnDialog::Source() const {
    return *mSources[static_cast<size_t>(cmbDataSource->currentIndex())];
}

QString SignOnDialog::SourceName() const {
    return cmbDataSource->currentText();
}

// A convenience: where it cannot be written, the next sign-on begins with the first data source.
void SignOnDialog::KeepSource() {
    if (SourceName() == mBeganWith)
        return;
    UserSettings().setValue(kDataSourceSetting, SourceName());
    mBeganWith = SourceName();
}

QString SignOnDialog::TakePassword() {
    QString password = txtPassword->text();
    txtPassword->clear();
    return password;
}

void SignOnDialog::ForgetPassword() {
    QString password = TakePassword();
    WipePassword(password);
}

void SignOnDialog::cmbDataSource_Change() {
    lblHint->setText(Source().Hint());
    cmdMakeAnew->setVisible(Source().CanBeMadeAnew());
    if (isVisible())
        MakeRoom();
}

/// The toolkit scales from its start on, so the process begins anew, with what was chosen so far.
void SignOnDialog::cmbDisplaySize_Click() {
    const int percent = cmbDisplaySize->currentData().toInt();
    if (percent == DisplaySize::Chosen())
        return;
    DisplaySize::Choose(percent);
    KeepSource();
    RestartProcess();
    ShowProblem(u"The display size counts from the next start of the program."_s);
}

/// A size at which the main window would reach beyond the display is not drawn.
void SignOnDialog::TellOfDisplaySize() {
    const int drawn = DisplaySize::Drawn();
    const int chosen = DisplaySize::Chosen();
    if (drawn < chosen && drawn != DisplaySize::kAutomatic)
        ShowProblem(
            u"This display is too small for %1 %; the program is drawn at %2 %."_s.arg(chosen).arg(drawn));
}

/// Else who expects the hospital would find himself on another one without a word.
void SignOnDialog::TellOfMissingSource(const QString& name) {
    if (!name.isEmpty() && cmbDataSource->findText(name) < 0)
        ShowProblem(u"The data source \"%1\" is not set up on this machine."_s.arg(name));
}

void SignOnDialog::ShowProblem(const QString& text) {
    lblProblem->setText(text);
    lblProblem->setVisible(!text.isEmpty());
    MakeRoom();
}

/// A window does not grow by itself with lines that wrap; it would cut them.
void SignOnDialog::MakeRoom() {
    layout()->activate();
    setMinimumHeight(qMax(layout()->totalMinimumSize().height(), layout()->totalHeightForWidth(width())));
}

void SignOnDialog::cmdOK_Click() {
    ShowProblem({});
    Try(false);
}

void SignOnDialog::Try(bool waited) {
    try {
        if (Source().NeedsMaking() && !MakeHospital(false))
            return;
        SignOnOutcome outcome = TrySignOn(Source(), txtUser->text().trimmed(), txtPassword->text(),
                                          {.deptCode = mDeptCode, .waited = waited});
        if (outcome.wait.count() > 0) {
            Wait(outcome.wait);
        } else if (outcome.user) {
            mUser = std::move(outcome.user);
            accept();
        } else {
            Refuse(outcome.refusal);
        }
    } catch (const RunTimeError& error) {
        // The data source is to blame, not the user: no try is lost.
        ShowProblem(error.Description());
    }
}

void SignOnDialog::Wait(std::chrono::seconds wait) {
    mWaitEnd = std::chrono::steady_clock::now() + wait;
    SetWaiting(true);
    tmrWait_Timer();
}

void SignOnDialog::SetWaiting(bool waiting) {
    // Where the focus would else go from a button that is switched off: to Cancel, and the next Enter there.
    if (waiting)
        txtPassword->setFocus();
    txtUser->setReadOnly(waiting);
    txtPassword->setReadOnly(waiting);
    for (QWidget* control :
         std::initializer_list<QWidget*>{cmbDataSource, cmbDisplaySize, cmdOK, cmdMakeAnew})
        control->setEnabled(!waiting);
    if (waiting)
        tmrWait->start(kWaitStep);
    else
        tmrWait->stop();
}

void SignOnDialog::tmrWait_Timer() {
    const auto left = std::chrono::ceil<std::chrono::seconds>(mWaitEnd - std::chrono::steady_clock::now());
    if (left.count() > 0) {
        ShowProblem(
            u"There were too many failed sign-ons. The password is looked at in %1 %2."_s.arg(left.count())
                .arg(left.count() == 1 ? u"second"_s : u"seconds"_s));
        return;
    }
    SetWaiting(false);
    ShowProblem({});
    Try(true);
}

void SignOnDialog::Refuse(const QString& reason) {
    --mTriesLeft;
    ForgetPassword();
    if (mTriesLeft == 0) {
        MsgBox(
            {.text = reason + u"\n\nThat was the third try. The program ends."_s, .icon = MsgIcon::Critical});
        reject();
        return;
    }
    ShowProblem(reason + (mTriesLeft == 1 ? u" One try is left."_s : u" Two tries are left."_s));
    txtPassword->setFocus();
}

bool SignOnDialog::MakeHospital(bool anew) {
    MakingWindow window(Source().Name(), this);
    const auto tell = [&window](int done, int total, const QString& what) { window.Tell(done, total, what); };
    try {
        if (anew)
            Source().MakeAnew(tell);
        else
            Source().Make(tell);
        return true;
    } catch (const RunTimeError& error) {
        ShowProblem(error.Description());
        return false;
    }
}

bool SignOnDialog::SignsOnToReplace() {
    SignOnOutcome outcome;
    try {
        outcome = TrySignOn(Source(), txtUser->text().trimmed(), txtPassword->text(),
                            {.deptCode = mDeptCode, .toReplace = true});
    } catch (const RunTimeError& error) {
        // A hospital of which not even the users can be read is nobody's any more.
        if (error.Number() == static_cast<int>(Fault::Damaged))
            return true;
        throw;
    }
    if (outcome.wait.count() > 0)
        ShowProblem(
            u"There were too many failed sign-ons. Try again in %1 seconds."_s.arg(outcome.wait.count()));
    else if (!outcome.user)
        Refuse(outcome.refusal);
    return outcome.user != nullptr;
}

bool SignOnDialog::MayMakeAnew() {
    const bool holdsWork = Source().HoldsWork();
    if (holdsWork && txtUser->text().trimmed().isEmpty()) {
        ShowProblem(
            u"Somebody has worked in this hospital. Key your user and password before you make it anew."_s);
        txtUser->setFocus();
        return false;
    }
    const MsgAnswer answer =
        MsgBox({.text = u"Make the trial hospital anew? Everything that was keyed in it is lost."_s,
                .icon = MsgIcon::Question,
                .title = windowTitle(),
                .buttons = MsgButtons::YesNo,
                .defaultAnswer = MsgAnswer::No});
    return answer == MsgAnswer::Yes && (!holdsWork || SignsOnToReplace());
}

void SignOnDialog::cmdMakeAnew_Click() {
    ShowProblem({});
    try {
        if (!MayMakeAnew())
            return;
    } catch (const RunTimeError& error) {
        ShowProblem(error.Description());
        return;
    }
    if (MakeHospital(true))
        txtUser->setFocus();
}
