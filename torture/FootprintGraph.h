#pragma once

#include "torture/Footprint.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// The samples of a shift as a picture (SVG): a strip for each figure, the time that is not judged in grey.
/// `along` tells what the samples are taken along.
QByteArray FootprintGraph(const std::vector<Footprint::Sample>& samples, const QString& along);
