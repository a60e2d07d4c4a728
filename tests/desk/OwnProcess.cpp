#include "desk/OwnProcess.h"

#include <csignal>
#include <stdexcept>
#include <sys/prctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kEndPatience = 60000;
/// For ending when it is asked to.
constexpr int kLastWords = 5000;

/// What belongs to the machine and to the build, not to somebody's desktop.
const QStringList kOfTheMachine = {u"PATH"_s,         u"TZ"_s,           u"LD_LIBRARY_PATH"_s,
                                   u"ASAN_OPTIONS"_s, u"LSAN_OPTIONS"_s, u"UBSAN_OPTIONS"_s};

QProcessEnvironment OwnEnvironment(const QProcessEnvironment& settings) {
    const QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    QProcessEnvironment own;
    for (const QString& name : kOfTheMachine) {
        if (all.contains(name))
            own.insert(name, all.value(name));
    }
    own.insert(u"LANG"_s, u"C.UTF-8"_s);
    own.insert(settings);
    return own;
}

} // namespace

OwnProcess::OwnProcess(const QString& program, const QStringList& arguments,
                       const QProcessEnvironment& settings) {
    mProcess.setProcessEnvironment(OwnEnvironment(settings));
    mProcess.setChildProcessModifier([] {
        setpgid(0, 0);
        // Not killed outright: an X server takes its lock file away with it.
        prctl(PR_SET_PDEATHSIG, SIGTERM);
    });
    mProcess.start(program, arguments);
    if (!mProcess.waitForStarted(kEndPatience))
        throw std::runtime_error(
            ("cannot start "_L1 + program + "; \"tools/setup test\" installs what is missing"_L1)
                .toStdString());
}

OwnProcess::~OwnProcess() {
    if (mProcess.state() == QProcess::NotRunning)
        return;
    const pid_t group = -pid_t(mProcess.processId());
    kill(group, SIGTERM);
    if (mProcess.waitForFinished(kLastWords))
        return;
    kill(group, SIGKILL);
    mProcess.waitForFinished(kEndPatience);
}

QByteArray OwnProcess::ReadLine() {
    while (!mProcess.canReadLine()) {
        if (!mProcess.waitForReadyRead(kEndPatience))
            throw std::runtime_error(mProcess.program().toStdString() +
                                     " says nothing more: " + mProcess.readAllStandardError().toStdString());
    }
    return mProcess.readLine().trimmed();
}
