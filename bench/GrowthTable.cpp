#include "GrowthTable.h"

#include "GiveUp.h"

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

void GrowthTable::BeginSize(int patients) {
    mSizes.push_back(patients);
}

void GrowthTable::Add(const QString& operation, double milliseconds) {
    const auto known =
        std::find_if(mRows.begin(), mRows.end(), [&](const Row& row) { return row.operation == operation; });
    Row& row = known == mRows.end() ? mRows.emplace_back(Row{operation, {}}) : *known;
    row.milliseconds.push_back(milliseconds);
}

double GrowthTable::Last(const QString& operation) const {
    const auto row = std::find_if(mRows.begin(), mRows.end(),
                                  [&](const Row& known) { return known.operation == operation; });
    if (row == mRows.end())
        GiveUp(operation + u" was not measured"_s);
    return row->milliseconds.back();
}

void GrowthTable::Print() const {
    std::printf("%-52s", "milliseconds; hospital with so many patients:");
    for (const int size : mSizes)
        std::printf(" %9d", size);
    std::printf(" %8s\n", "times");
    for (const Row& row : mRows) {
        std::printf("%-52s", qPrintable(row.operation));
        for (const double milliseconds : row.milliseconds)
            std::printf(" %9.2f", milliseconds);
        std::printf(" %8.1f\n", row.Growth());
    }
}
