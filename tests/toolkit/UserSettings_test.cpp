#include "support/PrintQt.h"
#include "toolkit/DisplaySize.h"
#include "toolkit/UserSettings.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A machine whose administrator has said with what its users begin, and a user who has chosen nothing yet.
class UserSettingsTest : public testing::Test {
  protected:
    UserSettingsTest() {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, mUser.path());
        QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, mMachine.path());
        QSettings machine(mMachine.filePath(u"TARVEN/Hemodialysis.ini"_s), QSettings::IniFormat);
        machine.setValue("DataSource", u"San Roque"_s);
        machine.setValue("DisplaySize", 150);
    }
    ~UserSettingsTest() override {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, mUsersOwn);
        QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, mMachinesOwn);
    }

  private:
    static QString FolderOf(QSettings::Scope scope) {
        const QString file = QSettings(QSettings::IniFormat, scope, u"TARVEN"_s).fileName();
        return file.chopped(u"/TARVEN.ini"_s.size());
    }

    const QString mUsersOwn = FolderOf(QSettings::UserScope);
    const QString mMachinesOwn = FolderOf(QSettings::SystemScope);
    QTemporaryDir mUser;
    QTemporaryDir mMachine;
};

TEST_F(UserSettingsTest, AUserBeginsWithWhatTheMachineHas) {
    EXPECT_EQ(UserSettings().value("DataSource").toString(), u"San Roque"_s);
    EXPECT_EQ(DisplaySize::Chosen(), 150);
}

TEST_F(UserSettingsTest, WhatTheUserChoosesCountsForHimAlone) {
    UserSettings().setValue("DataSource", u"Trial hospital"_s);
    DisplaySize::Choose(DisplaySize::kAutomatic);
    EXPECT_EQ(UserSettings().value("DataSource").toString(), u"Trial hospital"_s);
    EXPECT_EQ(DisplaySize::Chosen(), DisplaySize::kAutomatic) << "automatic is a choice too";
    const QSettings machine(QSettings::IniFormat, QSettings::SystemScope, u"TARVEN"_s, u"Hemodialysis"_s);
    EXPECT_EQ(machine.value("DataSource").toString(), u"San Roque"_s);
}

} // namespace
