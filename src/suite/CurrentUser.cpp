#include "suite/CurrentUser.h"

#include "gateway/CommandGateway.h"
#include "suite/CoreDumps.h"
#include "suite/DataSource.h"
#include "suite/LiveConnection.h"
#include "suite/Passwords.h"
#include "suite/SignOnDialog.h"
#include "toolkit/MsgBox.h"
#include "toolkit/ShowModal.h"

#include <QWindow>

using namespace Qt::StringLiterals;

CurrentUser::CurrentUser(std::vector<std::unique_ptr<DataSource>> sources)
    : mSources(std::move(sources)) {}

CurrentUser::~CurrentUser() {
    SetLiveConnection(nullptr);
    WipePassword(mPassword);
}

void CurrentUser::ShowMain() {
    ForbidCoreDumps();
    SignOnDialog dialog(mSources, mDeptCode);
    dialog.winId();
    if (QWidget* parent = QWidget::find(mParentWindow))
        dialog.windowHandle()->setTransientParent(parent->windowHandle());
    if (!ShowModal(dialog))
        return;
    mUser = dialog.TakeUser();
    mPassword = dialog.TakePassword();
    mSourceName = dialog.SourceName();
    dialog.KeepSource();
    SetLiveConnection(mUser->connection.get());
    if (mUser->failed)
        MsgBox({.text = TextOf(*mUser->failed), .icon = MsgIcon::Information, .title = dialog.windowTitle()});
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
