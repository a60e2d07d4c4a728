#include "support/tds/TestDataSources.h"
#include "toolkit/Application.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    // The build lists the test cases by running this program, and a build has no display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The machine's own data sources, its settings and its user's are none of the tests' business.
    TestDataSources::Instance();
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope,
                       settings.filePath(QStringLiteral("machine")));
    const Application application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
