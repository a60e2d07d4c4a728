#include "torture/Flatness.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

/// Of a figure that is counted, the line nearest to samples that do not move may lie askew by less.
constexpr double kHalfOfOne = 0.5;

double Mean(const std::vector<double>& samples) {
    return std::accumulate(samples.begin(), samples.end(), 0.0) / double(samples.size());
}

/// How much the nearest line rises from one sample to the next.
double Slope(const std::vector<double>& samples) {
    const double middle = double(samples.size() - 1) / 2;
    const double mean = Mean(samples);
    double together = 0;
    double spread = 0;
    for (size_t i = 0; i < samples.size(); ++i) {
        const double place = double(i) - middle;
        together += place * (samples[i] - mean);
        spread += place * place;
    }
    return together / spread;
}

} // namespace

size_t Flatness::Beginning(size_t samples) {
    return samples / 3;
}

double Flatness::Growth(const std::vector<double>& samples) {
    const std::vector<double> judged(samples.begin() + std::ptrdiff_t(Beginning(samples.size())),
                                     samples.end());
    return judged.size() < 2 ? 0 : Slope(judged) * double(judged.size() - 1);
}

std::vector<double> Flatness::SeriesOf(const std::vector<Footprint::Sample>& samples, size_t figure) {
    std::vector<double> series;
    series.reserve(samples.size());
    for (const Footprint::Sample& sample : samples)
        series.push_back(sample[figure]);
    return series;
}

QStringList Flatness::Problems(const std::vector<Footprint::Sample>& samples) {
    QStringList problems;
    for (size_t i = 0; i < Footprint::kFigures.size(); ++i) {
        const Footprint::Figure& figure = Footprint::kFigures[i];
        const double growth = Growth(SeriesOf(samples, i));
        if (figure.mostGrowth && growth > *figure.mostGrowth + kHalfOfOne)
            problems << u"%1: grown by %2 %3"_s.arg(figure.what)
                            .arg(growth / figure.perUnit, 0, 'f', 2)
                            .arg(figure.unit)
                            .trimmed();
    }
    return problems;
}
