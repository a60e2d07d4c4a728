#include "torture/TortureTable.h"

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostShown = 20;

} // namespace

void TortureTable::Add(const QString& what, const QString& figure) {
    mLines.emplace_back(what, figure);
}

void TortureTable::AddProblems(const QString& where, const QStringList& problems) {
    for (const QString& problem : problems)
        mProblems << where + u": "_s + problem;
}

void TortureTable::Print() const {
    for (const auto& [what, figure] : mLines)
        std::printf("%-70s %s\n", qPrintable(what), qPrintable(figure));
    for (const QString& problem : mProblems.first(std::min(mProblems.size(), kMostShown)))
        std::printf("WRONG  %s\n", qPrintable(problem));
    if (mProblems.size() > kMostShown)
        std::printf("WRONG  and %d more\n", int(mProblems.size() - kMostShown));
    std::printf("%s\n", AllWell() ? "all well" : "NOT WELL");
}
