#pragma once

#include "figures/BenchLine.h"
#include "figures/Turns.h"

#include <QByteArrayView>
#include <QString>

#include <functional>
#include <vector>

/// The table that the benchmarks print: what was measured, the product's value, the bare limit measured in
/// the same run, their ratio with its bounds, and the ratio that is promised.
class BenchTable {
  public:
    /// One line whose two roads were run in turns. `promised` is the largest ratio that is still good, 0 for
    /// none.
    void Add(const QString& what, const Turns& turns, const QString& unit, double promised);
    /// The same where each road was measured once.
    void Add(const QString& what, double value, double bare, const QString& unit, double promised);
    /// One line about figures with a fixed limit of their own.
    void AddLimit(const QString& what, std::vector<double> values, double limit, const QString& unit);
    void AddLimit(const QString& what, double value, double limit, const QString& unit);
    void Print() const;
    bool AllGood() const;
    const std::vector<BenchLine>& Lines() const { return mLines; }

  private:
    std::vector<BenchLine> mLines;
};

/// The middle one of some figures.
double Median(std::vector<double> figures);

/// The median of that many timed runs, in milliseconds.
double MedianMilliseconds(int runs, const std::function<void()>& run);

/// The largest memory that the process has held so far, in megabytes.
double PeakMegabytes();

/// Forgets the peak of what ran before, so that the next PeakSinceReset tells of one thing alone.
void ResetPeak();

/// The largest memory held since then, in megabytes.
double PeakSinceReset();

/// A number that the system tells of this process in its status, under that name.
double ProcessFigure(QByteArrayView name);

/// The memory that the process holds now, in megabytes.
double CurrentMegabytes();
