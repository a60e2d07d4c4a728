#include "suite/CurrentUser.h"

#include "gateway/CommandGateway.h"
#include "suite/DataSource.h"
#include "suite/LiveConnection.h"
#include "suite/Passwords.h"
#include "suite/SignOnDialog.h"
#include "toolkit/ShowModal.h"

#include <QSettings>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

const QString kDataSourceSetting = u"DataSource"_s;

/// Where the session remembers the data source of the last sign-on, for this user of the machine.
QSettings Remembered() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"TARVEN"_s, u"Hemodialysis"_s);
}

} // namespace

CurrentUser::CurrentUser(std::vector<std::unique_ptr<DataSource>> sources)
    : mSources(std::move(sources)) {}

CurrentUser::~CurrentUser() {
    SetLiveConnection(nullptr);
    WipePassword(mPassword);
}

void CurrentUser::ShowMain() {
    SignOnDialog dialog(mSources, Remembered().value(kDataSourceSetting).toString(), mDeptCode);
    dialog.winId();
    if (QWidget* parent = QWidget::find(mParentWindow))
        dialog.windowHandle()->setTransientParent(parent->windowHandle());
    if (!ShowModal(dialog))
        return;
    mUser = dialog.TakeUser();
    mPassword = dialog.TakePassword();
    mSourceName = dialog.SourceName();
    // A convenience: where it cannot be written, the next sign-on begins with the first data source.
    Remembered().setValue(kDataSourceSetting, mSourceName);
    SetLiveConnection(mUser->connection.get());
}

bool CurrentUser::Connected() const {
    return mUser && mUser->connection->Connected();
}

CommandGateway* CurrentUser::SQLConnection() const {
    return mUser ? mUser->connection.get() : nullptr;
}

QString CurrentUser::Initial() const {
    return mUser ? mUser->initial : QString();
}

QString CurrentUser::EmployeeName() const {
    return mUser ? mUser->employeeName : QString();
}

QString CurrentUser::EmployeeCode() const {
    return mUser ? mUser->employeeCode : QString();
}

QString CurrentUser::Database() const {
    return mUser ? mUser->connection->DefaultDatabase() : QString();
}

QString CurrentUser::UserId() const {
    return mUser ? mUser->userId : QString();
}
