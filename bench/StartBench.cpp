#include "Benches.h"
#include "BenchTable.h"
#include "GiveUp.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

double RunChild(const QString& program, const QString& mode) {
    return Milliseconds([&] {
        QProcess child;
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(program, {mode});
        if (!child.waitForFinished() || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
            GiveUp(mode + u" failed"_s);
    });
}

} // namespace

void BenchStart(BenchTable& table, const char* program) {
    const QString self = QString::fromLocal8Bit(program);
    const Turns turns = InTurns([&] { return RunChild(self, u"--sign-on-window"_s); },
                                [&] { return RunChild(self, u"--empty-window"_s); });
    table.Add(u"start to the painted sign-on window, against an empty main window"_s, turns, u"ms"_s, 1.5);
}
