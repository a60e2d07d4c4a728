#include "desk/WindowManager.h"

#include <QFile>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

/// The program behind a service of the bus.
QString ProgramOf(const QString& service) {
    QFile file(u"/usr/share/dbus-1/services/%1.service"_s.arg(service));
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : file.readAll().split('\n')) {
            if (line.startsWith("Exec="))
                return QString::fromUtf8(line.mid(5).trimmed());
        }
    }
    throw std::runtime_error("the service " + service.toStdString() + " is not installed");
}

} // namespace

RunningWindowManager::RunningWindowManager(WindowManager manager, QProcessEnvironment settings) {
    if (manager == WindowManager::Openbox)
        mManager.emplace(u"openbox"_s, QStringList{u"--sm-disable"_s}, settings);
    if (manager != WindowManager::Xfwm4)
        return;
    mBus.emplace(u"dbus-daemon"_s, QStringList{u"--session"_s, u"--nofork"_s, u"--print-address=1"_s},
                 settings);
    settings.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, QString::fromLatin1(mBus->ReadLine()));
    // Started here and not by the bus, it is gone when the test's folder goes.
    mSettings.emplace(ProgramOf(u"org.xfce.Xfconf"_s), QStringList(), settings);
    mManager.emplace(u"xfwm4"_s, QStringList{u"--compositor=off"_s, u"--sm-client-disable"_s}, settings);
}

void RunningWindowManager::Pause() {
    kill(pid_t(mManager->Process().processId()), SIGSTOP);
}

void RunningWindowManager::GoOn() {
    kill(pid_t(mManager->Process().processId()), SIGCONT);
}
