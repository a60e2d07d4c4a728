#include "components/clsCurrentUser.h"
#include "components/ComponentRegistry.h"
#include "components/ReportConnector.h"
#include "suite/LiveConnection.h"
#include "suite/OdbcSource.h"
#include "suite/RegisterSuite.h"
#include "suite/SignOn.h"
#include "suite/SignOnDialog.h"
#include "suite/SuiteTest.h"
#include "support/tds/EngineSession.h"
#include "support/tds/TestDataSources.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

const QString kPassword = u"the server's own"_s;
const QString kWrong = u"The user or the password is wrong."_s;

/// A server that has the trial hospital's data and lets NURSE in, as a data source of this machine.
class OdbcSourceTest : public SuiteTest {
  protected:
    OdbcSourceTest() { server.Admit(u"NURSE"_s, kPassword); }
    ~OdbcSourceTest() override { TestDataSources::Instance().Remove(name); }

    TdsResponder server{EngineSessions(Path())};
    QString name = TestDataSources::Instance().Add(server.Port());
    OdbcSource source{name};
};

/// Keys a logon into the sign-on window; gives the problem that the window then tells.
QString TryAs(QDialog& dialog, const QString& dataSource, const QString& user, const QString& password) {
    auto& list = Find<QComboBox>(dialog, "cmbDataSource");
    list.setCurrentIndex(list.findText(dataSource));
    Find<QLineEdit>(dialog, "txtUser").setText(user);
    Find<QLineEdit>(dialog, "txtPassword").setText(password);
    Click(Find<QPushButton>(dialog, "cmdOK"));
    return Find<QLabel>(dialog, "lblProblem").text();
}

} // namespace

TEST_F(OdbcSourceTest, StandsAndIsNotMadeHere) {
    EXPECT_EQ(source.Name(), name);
    EXPECT_FALSE(source.NeedsMaking());
    EXPECT_FALSE(source.CanBeMadeAnew());
    EXPECT_EQ(source.Hint(), QString());
}

TEST_F(OdbcSourceTest, TheServersLogonProvesThePassword) {
    const SignOnOutcome outcome = TrySignOn(source, u"NURSE"_s, kPassword, {u"HC"_s});
    ASSERT_NE(outcome.user, nullptr) << outcome.refusal.toStdString();
    EXPECT_EQ(outcome.user->employeeCode, u"NURSE"_s);
    EXPECT_EQ(outcome.user->employeeName, u"MARISSA VILLANUEVA"_s);
    EXPECT_EQ(outcome.user->initial, u"MSV"_s);
    EXPECT_EQ(server.Logins().back().user, u"NURSE"_s);
}

TEST_F(OdbcSourceTest, TheHashesPlayNoPartOnAServer) {
    TrySignOn(source, u"NURSE"_s, kPassword, {u"HC"_s});
    ASSERT_FALSE(server.Batches().isEmpty());
    for (const QString& batch : server.Batches())
        EXPECT_FALSE(batch.contains(u"PasswordHash"_s)) << batch.toStdString();
}

TEST_F(OdbcSourceTest, APasswordThatTheServerRefusesIsWrong) {
    for (const QString& password : {u"nurse"_s, QString()})
        EXPECT_EQ(TrySignOn(source, u"NURSE"_s, password, {u"HC"_s}).refusal, kWrong);
    EXPECT_EQ(TrySignOn(source, u"NOBODY"_s, kPassword, {u"HC"_s}).refusal, kWrong);
}

TEST_F(OdbcSourceTest, AUserOfTheServerWhoIsNotTheHospitalsIsRefused) {
    server.Admit(u"backup"_s, kPassword);
    EXPECT_EQ(TrySignOn(source, u"backup"_s, kPassword, {u"HC"_s}).refusal,
              u"backup may not sign on for department HC."_s);
}

TEST_F(OdbcSourceTest, AUserOfAnotherDepartmentIsRefused) {
    server.Admit(u"LAB"_s, kPassword);
    EXPECT_EQ(TrySignOn(source, u"LAB"_s, kPassword, {u"HC"_s}).refusal,
              u"LAB may not sign on for department HC."_s);
}

TEST_F(OdbcSourceTest, AnotherLogonInTheUsersNameIsHisAsHeTypedIt) {
    server.Admit(u"nurse"_s, kPassword);
    const SignOnOutcome outcome = TrySignOn(source, u"nurse"_s, kPassword, {u"HC"_s});
    ASSERT_NE(outcome.user, nullptr);
    EXPECT_EQ(outcome.user->employeeCode, u"NURSE"_s);
    EXPECT_EQ(outcome.user->userId, u"nurse"_s);
}

TEST_F(OdbcSourceTest, WhatIsWrongWithADataSourceIsToldAndMayBeTriedAgain) {
    TestDataSources::Instance().Add(u"No driver"_s, u"Driver=/nowhere/libdriver.so\n"_s);
    TdsResponder gone{EngineSessions(Path())};
    const QString goneName = TestDataSources::Instance().Add(gone.Port());
    gone.Close();
    std::vector<std::unique_ptr<DataSource>> sources;
    for (const QString& offered : {u"No driver"_s, goneName, u"Unknown"_s, name})
        sources.push_back(std::make_unique<OdbcSource>(offered));
    SignOnDialog dialog(sources, u"HC"_s);
    Activate(dialog);
    EXPECT_EQ(TryAs(dialog, u"No driver"_s, u"NURSE"_s, kPassword),
              u"Can't open lib '/nowhere/libdriver.so' : file not found"_s);
    EXPECT_EQ(TryAs(dialog, goneName, u"NURSE"_s, kPassword),
              u"Unable to connect: Adaptive Server is unavailable or does not exist"_s);
    EXPECT_EQ(TryAs(dialog, u"Unknown"_s, u"NURSE"_s, kPassword),
              u"Data source name not found and no default driver specified"_s);
    EXPECT_EQ(TryAs(dialog, name, u"NURSE"_s, u"wrong"_s), kWrong + u" Two tries are left."_s);
    TryAs(dialog, name, u"NURSE"_s, kPassword);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    TestDataSources::Instance().Remove(u"No driver"_s);
    TestDataSources::Instance().Remove(goneName);
}

TEST_F(OdbcSourceTest, AMistakeOfTheServersIsToldInTheSignOnWindow) {
    TdsResponder closed([]() -> TdsResponder::Handler {
        return [](const QString&, TdsAnswer& answer) {
            answer.Error(229, u"The SELECT permission was denied on the object 'tbPasswordMain'."_s, 14);
        };
    });
    const QString closedName = TestDataSources::Instance().Add(closed.Port());
    std::vector<std::unique_ptr<DataSource>> sources;
    sources.push_back(std::make_unique<OdbcSource>(closedName));
    SignOnDialog dialog(sources, u"HC"_s);
    Activate(dialog);
    EXPECT_EQ(TryAs(dialog, closedName, u"NURSE"_s, kPassword),
              u"The SELECT permission was denied on the object 'tbPasswordMain'."_s);
    TestDataSources::Instance().Remove(closedName);
}

namespace {

/// The suite as the program starts it, with settings of the test's own.
class OdbcSuiteTest : public OdbcSourceTest {
  protected:
    OdbcSuiteTest() {
        SetLiveConnection(nullptr);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
        RegisterSuite(folder.path());
    }
    ~OdbcSuiteTest() override { SetReportConnector({}); }

    static Ref<clsCurrentUser> NewSession() {
        auto user = CreateObject<clsCurrentUser>(u"TARVEN_User.clsCurrentUser"_s);
        user->SetPasswordDeptCode(u"HC"_s);
        return user;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(OdbcSuiteTest, TheSignOnOffersTheDataSourcesBesideTheTrialHospital) {
    TestDataSources::Instance().Add(server.Port(), u"Annex"_s);
    TestDataSources::Instance().Add(server.Port(), u"Trial hospital"_s);
    const auto session = NewSession();
    const OnDialog look([this](QDialog& dialog) {
        const auto& list = Find<QComboBox>(dialog, "cmbDataSource");
        QStringList names;
        for (int i = 0; i < list.count(); ++i)
            names.append(list.itemText(i));
        EXPECT_EQ(names.first(), u"Trial hospital"_s);
        EXPECT_EQ(names.count(u"Trial hospital"_s), 1) << "a report could not tell two apart";
        EXPECT_TRUE(names.contains(u"Annex"_s));
        EXPECT_LT(names.indexOf(u"Annex"_s), names.indexOf(name));
        dialog.reject();
    });
    session->ShowMain();
    TestDataSources::Instance().Remove(u"Annex"_s);
    TestDataSources::Instance().Remove(u"Trial hospital"_s);
}

TEST_F(OdbcSuiteTest, TheSessionOnAServerIsRememberedAndGivesItsLogonForReports) {
    auto session = NewSession();
    {
        const OnDialog signOn([this](QDialog& dialog) { TryAs(dialog, name, u"NURSE"_s, kPassword); });
        session->ShowMain();
    }
    ASSERT_TRUE(session->Connected());
    session->SQLConnection()->SetDefaultDatabase(u"PASSWORD"_s);
    EXPECT_EQ(session->ServerName(), name);
    EXPECT_EQ(session->Database(), u"PASSWORD"_s);
    EXPECT_EQ(session->UserId(), u"NURSE"_s);
    EXPECT_EQ(session->serverpassword(), kPassword);
    EXPECT_EQ(FindLiveConnection(session->SQLConnection()->ConnectionString()), session->SQLConnection());
    EXPECT_FALSE(session->SQLConnection()->ConnectionString().contains(kPassword));

    session = NewSession();
    const OnDialog look([this](QDialog& dialog) {
        EXPECT_EQ(Find<QComboBox>(dialog, "cmbDataSource").currentText(), name);
        dialog.reject();
    });
    session->ShowMain();
}

TEST_F(OdbcSuiteTest, AReportLogsOnByItselfWithTheFourTexts) {
    const auto connection = ConnectReport({name, u"Clinical_Area"_s, u"NURSE"_s, kPassword});
    ASSERT_NE(connection, nullptr);
    EXPECT_EQ(server.Logins().size(), 1U);
    EXPECT_EQ(server.Batches(), QStringList{u"USE [Clinical_Area]"_s});
    EXPECT_EQ(connection->CommandTimeout(), 30) << "the main window alone sets another one";
    EXPECT_FALSE(connection->Execute(u"select * from PATIENT_DATA..tbhospitalInfo"_s).Eof());
}

TEST_F(OdbcSuiteTest, AReportWithAWrongPasswordIsRefusedByTheServer) {
    try {
        ConnectReport({name, u"Clinical_Area"_s, u"NURSE"_s, u"wrong"_s});
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 18456);
    }
}
