#include "suite/CurrentUser.h"
#include "suite/LiveConnection.h"
#include "suite/Passwords.h"
#include "suite/SuiteTest.h"
#include "support/FixedClock.h"

#include <QComboBox>
#include <QDirIterator>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <sys/prctl.h>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

/// A session over two data sources, whose settings lie in a folder of the test's own.
class CurrentUserTest : public SuiteTest {
  protected:
    CurrentUserTest() {
        SetLiveConnection(nullptr);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    }

    std::unique_ptr<CurrentUser> NewSession() {
        std::vector<std::unique_ptr<DataSource>> sources;
        sources.push_back(std::make_unique<FakeSource>(u"Trial hospital"_s, Path()));
        sources.push_back(std::make_unique<FakeSource>(u"San Roque"_s, Path()));
        auto session = std::make_unique<CurrentUser>(std::move(sources));
        session->SetPasswordDeptCode(u"HC"_s);
        return session;
    }

    static void SignOn(QDialog& dialog, const QString& user, const QString& password, int source = 0) {
        Find<QComboBox>(dialog, "cmbDataSource").setCurrentIndex(source);
        Find<QLineEdit>(dialog, "txtUser").setText(user);
        Find<QLineEdit>(dialog, "txtPassword").setText(password);
        Click(Find<QPushButton>(dialog, "cmdOK"));
    }

    QTemporaryDir settings;
};

void ExpectNobody(const CurrentUser& session) {
    EXPECT_FALSE(session.Connected());
    EXPECT_EQ(session.SQLConnection(), nullptr);
    EXPECT_EQ(LiveConnection(), nullptr);
    for (const QString& text :
         {session.Initial(), session.EmployeeName(), session.EmployeeCode(), session.ServerName(),
          session.Database(), session.UserId(), session.serverpassword()})
        EXPECT_EQ(text, QString());
}

TEST_F(CurrentUserTest, IsNobodyBeforeTheSignOn) {
    ExpectNobody(*NewSession());
}

TEST_F(CurrentUserTest, IsNobodyAfterASignOnThatWasCancelled) {
    const auto session = NewSession();
    const OnDialog cancel([](QDialog& dialog) { Click(Find<QPushButton>(dialog, "cmdCancel")); });
    session->ShowMain();
    ExpectNobody(*session);
    EXPECT_TRUE(QDir(settings.path()).isEmpty()) << "nothing is remembered";
}

TEST_F(CurrentUserTest, IsTheUserWhoSignedOn) {
    const auto session = NewSession();
    const OnDialog signOn([](QDialog& dialog) { SignOn(dialog, u"NURSE"_s, u"nurse"_s, 1); });
    session->ShowMain();
    EXPECT_TRUE(session->Connected());
    ASSERT_NE(session->SQLConnection(), nullptr);
    EXPECT_EQ(LiveConnection(), session->SQLConnection());
    EXPECT_EQ(session->EmployeeCode(), u"NURSE"_s);
    EXPECT_EQ(session->EmployeeName(), u"MARISSA VILLANUEVA"_s);
    EXPECT_EQ(session->Initial(), u"MSV"_s);
    EXPECT_EQ(session->ServerName(), u"San Roque"_s);
    EXPECT_EQ(session->UserId(), u"NURSE"_s);
    EXPECT_EQ(session->serverpassword(), u"nurse"_s);
    session->SQLConnection()->SetDefaultDatabase(u"PASSWORD"_s);
    EXPECT_EQ(session->Database(), u"PASSWORD"_s);
}

TEST_F(CurrentUserTest, TakesItsConnectionAlongWhenItGoes) {
    auto session = NewSession();
    const OnDialog signOn([](QDialog& dialog) { SignOn(dialog, u"NURSE"_s, u"nurse"_s); });
    session->ShowMain();
    ASSERT_NE(LiveConnection(), nullptr);
    session.reset();
    EXPECT_EQ(LiveConnection(), nullptr);
}

TEST_F(CurrentUserTest, SignsOnForTheDepartmentThatItWasGiven) {
    const auto session = NewSession();
    session->SetPasswordDeptCode(u"LB"_s);
    const OnDialog signOn([](QDialog& dialog) { SignOn(dialog, u"LAB"_s, u"lab"_s); });
    session->ShowMain();
    EXPECT_EQ(session->EmployeeCode(), u"LAB"_s);
}

TEST_F(CurrentUserTest, BeginsWithTheDataSourceOfTheLastSignOn) {
    {
        const OnDialog signOn([](QDialog& dialog) { SignOn(dialog, u"NURSE"_s, u"nurse"_s, 1); });
        NewSession()->ShowMain();
    }
    const OnDialog look([](QDialog& dialog) {
        EXPECT_EQ(Find<QComboBox>(dialog, "cmbDataSource").currentText(), u"San Roque"_s);
        EXPECT_EQ(Find<QLineEdit>(dialog, "txtUser").text(), QString());
        EXPECT_EQ(Find<QLineEdit>(dialog, "txtPassword").text(), QString());
        dialog.reject();
    });
    NewSession()->ShowMain();
}

TEST_F(CurrentUserTest, KeepsNoDataSourceThatNobodyHasChosen) {
    const OnDialog signOn([](QDialog& dialog) { SignOn(dialog, u"NURSE"_s, u"nurse"_s); });
    NewSession()->ShowMain();
    EXPECT_TRUE(QDir(settings.path()).isEmpty()) << "what an administrator names later counts for him";
}

TEST_F(CurrentUserTest, TellsTheUserWhatFailedInHisNameSinceHeLastSignedOn) {
    FakeSource desk(u"Trial hospital"_s, Path());
    desk.workstation = u"DESK2"_s;
    TrySignOn(desk, u"NURSE"_s, u"nurse"_s, {u"HC"_s});
    const auto nextDay = FixedClock(Moment().AddDays(1));
    TrySignOn(desk, u"NURSE"_s, u"wrong"_s, {u"HC"_s});
    TrySignOn(desk, u"NURSE"_s, u"wrong"_s, {u"HC"_s});
    const auto dayAfter = FixedClock(Moment().AddDays(2));
    std::vector<std::unique_ptr<DataSource>> sources;
    auto source = std::make_unique<FakeSource>(u"Trial hospital"_s, Path());
    source->workstation = u"DESK1"_s;
    sources.push_back(std::move(source));
    CurrentUser session(std::move(sources));
    session.SetPasswordDeptCode(u"HC"_s);
    messages.Expect({.text = u"2 failed sign-ons since 11/21/2026 10:15:00 AM.\nThe last one was at DESK2 on "
                             "11/22/2026 10:15:00 AM."_s,
                     .icon = MsgIcon::Information,
                     .title = u"Sign On"_s});
    const OnDialog signOn([](QDialog& dialog) { SignOn(dialog, u"NURSE"_s, u"nurse"_s); });
    session.ShowMain();
    EXPECT_TRUE(session.Connected());
}

TEST_F(CurrentUserTest, LeavesNoCoreDumpOnceAPasswordCanBeTyped) {
    const OnDialog look([](QDialog& dialog) {
        rlimit limit = {};
        EXPECT_EQ(getrlimit(RLIMIT_CORE, &limit), 0);
        EXPECT_EQ(limit.rlim_cur, 0U);
        EXPECT_EQ(limit.rlim_max, 0U);
        EXPECT_EQ(prctl(PR_GET_DUMPABLE), 0);
        dialog.reject();
    });
    NewSession()->ShowMain();
}

TEST_F(CurrentUserTest, WritesThePasswordNowhere) {
    const QString password = u"Waling-Waling 1899"_s;
    Run(u"UPDATE PASSWORD..tbPasswordMain SET PasswordHash = '%1' WHERE EmployeeID = 'NURSE'"_s.arg(
        HashPassword(password)));
    auto session = NewSession();
    {
        const OnDialog signOn([&password](QDialog& dialog) { SignOn(dialog, u"NURSE"_s, password); });
        session->ShowMain();
    }
    EXPECT_EQ(session->serverpassword(), password);
    session.reset();
    int files = 0;
    for (const QString& folder : {settings.path(), QFileInfo(Path()).path()}) {
        QDirIterator entries(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            QFile file(entries.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray content = file.readAll();
            const auto wide =
                QByteArray::fromRawData(reinterpret_cast<const char*>(password.utf16()),
                                        password.size() * static_cast<qsizetype>(sizeof(QChar)));
            EXPECT_FALSE(content.contains(password.toUtf8())) << file.fileName().toStdString();
            EXPECT_FALSE(content.contains(wide)) << file.fileName().toStdString();
            ++files;
        }
    }
    EXPECT_GE(files, 2) << "the settings and the hospital";
}

TEST_F(CurrentUserTest, OwnsItsDialogueByTheMainWindow) {
    QWidget mainWindow;
    Activate(mainWindow);
    const auto session = NewSession();
    session->SethwndParentForm(mainWindow.winId());
    const OnDialog look([&mainWindow](QDialog& dialog) {
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(dialog.windowHandle()->transientParent(), mainWindow.windowHandle());
        dialog.reject();
    });
    session->ShowMain();
}

} // namespace
