#include "Benches.h"
#include "BenchTable.h"
#include "GiveUp.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStartRuns = 15;

double RunChild(const QString& program, const QString& mode) {
    return MedianMilliseconds(1, [&] {
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
    std::vector<double> ours;
    std::vector<double> bare;
    for (int run = 0; run < kStartRuns; ++run) {
        ours.push_back(RunChild(self, u"--sign-on-window"_s));
        bare.push_back(RunChild(self, u"--empty-window"_s));
    }
    table.Add(u"start to the painted sign-on window, against an empty main window"_s, Median(ours),
              Median(bare), u"ms"_s, 1.5);
}
