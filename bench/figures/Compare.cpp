#include "Compare.h"

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

Verdict Judge(const Figure& before, const Figure& after) {
    if (before.WasMeasuredOnce() || after.WasMeasuredOnce())
        return Verdict::Unjudged;
    if (after.low > before.high)
        return Verdict::Worse;
    return after.high < before.low ? Verdict::Better : Verdict::Same;
}

const char* Name(Verdict verdict) {
    switch (verdict) {
    case Verdict::Same:
        return "same";
    case Verdict::Better:
        return "better";
    case Verdict::Worse:
        return "WORSE";
    case Verdict::Unjudged:
        break;
    }
    return "measured once";
}

auto Find(const std::vector<BenchLine>& lines, const QString& what) {
    return std::find_if(lines.begin(), lines.end(), [&](const BenchLine& line) { return line.what == what; });
}

QByteArray Text(const Figure& figure) {
    return u"%1 (%2-%3)"_s.arg(figure.value, 0, 'f', 2)
        .arg(figure.low, 0, 'f', 2)
        .arg(figure.high, 0, 'f', 2)
        .toLatin1();
}

void PrintMissing(const char* which, const std::vector<BenchLine>& lines,
                  const std::vector<BenchLine>& others) {
    for (const BenchLine& line : lines) {
        if (Find(others, line.what) == others.end())
            std::printf("only in the %s run: %s\n", which, qPrintable(line.what));
    }
}

} // namespace

std::vector<Difference> Differences(const std::vector<BenchLine>& before,
                                    const std::vector<BenchLine>& after) {
    std::vector<Difference> differences;
    for (const BenchLine& line : after) {
        if (const auto old = Find(before, line.what); old != before.end())
            differences.push_back({line.what, old->judged, line.judged, Judge(old->judged, line.judged)});
    }
    return differences;
}

bool PrintDifferences(const std::vector<BenchLine>& before, const std::vector<BenchLine>& after) {
    bool isNoneWorse = true;
    std::printf("%-72s %22s %22s %8s\n", "what", "before", "after", "change");
    for (const Difference& difference : Differences(before, after)) {
        std::printf("%-72s %22s %22s %+7.1f%% %s\n", qPrintable(difference.what),
                    Text(difference.before).constData(), Text(difference.after).constData(),
                    (difference.after.value / difference.before.value - 1) * 100, Name(difference.verdict));
        isNoneWorse = isNoneWorse && difference.verdict != Verdict::Worse;
    }
    PrintMissing("earlier", before, after);
    PrintMissing("later", after, before);
    return isNoneWorse;
}
