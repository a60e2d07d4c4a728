#include "Figure.h"

#include <algorithm>
#include <cmath>

Figure MiddleOf(std::vector<double> figures) {
    std::sort(figures.begin(), figures.end());
    const double count = double(figures.size());
    const double reach = 0.98 * std::sqrt(count);
    const double last = count - 1;
    const auto at = [&](double rank) { return figures[size_t(std::clamp(rank, 0.0, last))]; };
    return {at(std::floor(count / 2)), at(std::floor(count / 2 - reach)),
            at(std::ceil(count / 2 + reach) - 1)};
}
