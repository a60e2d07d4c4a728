#include "BenchTable.h"

#include "GiveUp.h"

#include <QFile>

#include <algorithm>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// What the system tells about this process.
QByteArray ReadProcess(const QString& name) {
    QFile file(u"/proc/self/"_s + name);
    if (!file.open(QIODevice::ReadOnly))
        GiveUp(u"cannot read "_s + file.fileName());
    return file.readAll();
}

} // namespace

void BenchTable::Add(const QString& what, double value, double bare, const QString& unit, double promised) {
    mLines.push_back({what, unit, value, bare, promised, false});
}

void BenchTable::AddLimit(const QString& what, double value, double limit, const QString& unit) {
    mLines.push_back({what, unit, value, limit, 1.0, true});
}

bool BenchTable::IsGood(const Line& line) {
    return line.promised == 0 || line.value <= line.promised * line.bare;
}

bool BenchTable::AllGood() const {
    return std::all_of(mLines.begin(), mLines.end(), IsGood);
}

void BenchTable::Print() const {
    std::printf("%-62s %11s %11s %6s %9s\n", "what", "ours", "bare", "ratio", "promised");
    for (const Line& line : mLines) {
        std::printf("%-62s %8.2f %-2s %8.2f %-2s %6.2f %9s %s\n", qPrintable(line.what), line.value,
                    qPrintable(line.unit), line.bare, qPrintable(line.unit), line.value / line.bare,
                    line.isLimit ? "(limit)" : qPrintable(QString::number(line.promised, 'f', 2)),
                    IsGood(line) ? "" : "<- too much");
    }
}

double Median(std::vector<double> figures) {
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

double MedianMilliseconds(int runs, const std::function<void()>& run) {
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        const auto start = std::chrono::steady_clock::now();
        run();
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    return Median(std::move(times));
}

double PeakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024;
}

double CurrentMegabytes() {
    return ReadProcess(u"statm"_s).split(' ').value(1).toDouble() * double(sysconf(_SC_PAGESIZE)) /
           (1024 * 1024);
}

void ResetPeak() {
    QFile file(u"/proc/self/clear_refs"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write("5") != 1 || !file.flush())
        GiveUp(u"cannot forget the peak of memory: "_s + file.errorString());
}

double PeakSinceReset() {
    return ProcessFigure("VmHWM:") / 1024;
}

double ProcessFigure(QByteArrayView name) {
    const QByteArray text = ReadProcess(u"status"_s);
    const qsizetype at = text.indexOf(name);
    if (at < 0)
        GiveUp(u"the system does not tell "_s + QString::fromLatin1(name));
    return text.mid(at + name.size()).simplified().split(' ').value(0).toDouble();
}
