#pragma once

#include "torture/Footprint.h"

#include <QStringList>

#include <vector>

/// Whether what a process holds stays as it is. The first third of the samples is the time in which a program
/// fills its caches; over the rest the line that lies nearest to the samples is judged, by how much it rises
/// from the first of them to the last.
namespace Flatness {

/// The first sample that is judged.
size_t Beginning(size_t samples);

/// By how much that line rises. 0 for fewer than two samples to judge.
double Growth(const std::vector<double>& samples);

/// One figure out of all samples.
std::vector<double> SeriesOf(const std::vector<Footprint::Sample>& samples, size_t figure);

/// What has grown by more than it may, each told with its growth.
QStringList Problems(const std::vector<Footprint::Sample>& samples);

} // namespace Flatness
