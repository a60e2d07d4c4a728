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

/// Bounds where there are any.
QByteArray Bounds(const Figure& judged) {
    if (judged.WasMeasuredOnce())
        return {};
    return u"%1-%2"_s.arg(judged.low, 0, 'f', 2).arg(judged.high, 0, 'f', 2).toLatin1();
}

/// A figure of the table, or nothing where the line has none.
QByteArray FigureOrNothing(double value, const QString& unit) {
    return value == 0 ? QByteArray() : u"%1 %2"_s.arg(value, 0, 'f', 2).arg(unit, -2).toLatin1();
}

void PrintLine(const BenchLine& line) {
    std::printf("%-72s %11s %11s %6s %11s %9s %s\n", qPrintable(line.what),
                u"%1 %2"_s.arg(line.ours, 0, 'f', 2).arg(line.unit, -2).toLatin1().constData(),
                FigureOrNothing(line.bare, line.unit).constData(),
                line.HasBare() ? QByteArray::number(line.judged.value, 'f', 2).constData() : "",
                Bounds(line.judged).constData(), FigureOrNothing(line.promised, {}).trimmed().constData(),
                line.IsGood() ? "" : "<- too much");
}

} // namespace

void BenchTable::Add(const QString& what, const Turns& turns, const QString& unit, double promised) {
    mLines.push_back({what, unit, Median(turns.ours), Median(turns.bare), turns.Ratio(), promised});
}

void BenchTable::Add(const QString& what, double value, double bare, const QString& unit, double promised) {
    mLines.push_back({what, unit, value, bare, MiddleOf({value / bare}), promised});
}

void BenchTable::AddLimit(const QString& what, std::vector<double> values, double limit,
                          const QString& unit) {
    const Figure figure = MiddleOf(std::move(values));
    mLines.push_back({what, unit, figure.value, 0, figure, limit});
}

void BenchTable::AddLimit(const QString& what, double value, double limit, const QString& unit) {
    AddLimit(what, std::vector{value}, limit, unit);
}

bool BenchTable::AllGood() const {
    return std::all_of(mLines.begin(), mLines.end(), [](const BenchLine& line) { return line.IsGood(); });
}

void BenchTable::Print() const {
    std::printf("%-72s %11s %11s %6s %11s %9s\n", "what", "ours", "bare", "ratio", "bounds", "promised");
    for (const BenchLine& line : mLines)
        PrintLine(line);
}

double Median(std::vector<double> figures) {
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

double MedianMilliseconds(int runs, const std::function<void()>& run) {
    std::vector<double> times;
    times.reserve(size_t(runs));
    for (int i = 0; i < runs; ++i)
        times.push_back(Milliseconds(run));
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
