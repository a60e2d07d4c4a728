#pragma once

#include <QString>

#include <vector>

/// How the time of each operation grows with the hospital: a row for each of them, a column for each size.
class GrowthTable {
  public:
    /// Begins the next column.
    void BeginSize(int patients);
    /// The operation's time in that column, in milliseconds.
    void Add(const QString& operation, double milliseconds);
    /// The columns, and how many times the last one is the first.
    void Print() const;

    struct Row {
        QString operation;
        std::vector<double> milliseconds;

        /// How many times as long the operation takes in the largest hospital as in the smallest.
        double Growth() const { return milliseconds.back() / milliseconds.front(); }
    };
    const std::vector<Row>& Rows() const { return mRows; }
    int Largest() const { return mSizes.back(); }
    /// The operation's time in the largest hospital.
    double Last(const QString& operation) const;
    /// How many times as many patients the largest hospital has as the smallest.
    double GrowthOfPatients() const { return double(mSizes.back()) / mSizes.front(); }

  private:
    std::vector<int> mSizes;
    std::vector<Row> mRows;
};
