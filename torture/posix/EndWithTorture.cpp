#include "torture/EndWithTorture.h"

#include <QProcess>

#include <csignal>
#include <sys/prctl.h>

void EndWithTorture(QProcess& process) {
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
}
