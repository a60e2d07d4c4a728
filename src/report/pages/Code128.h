#pragma once

#include <QString>

#include <optional>
#include <vector>

/// A text as bars of Code 128 (ISO/IEC 15417): the widths of bar, space, bar and so on in modules, from the
/// first bar of the start character to the last one of the stop character, the check character included.
/// Digits are packed two in a character where that is shorter. Empty for an empty text and for one with
/// characters beyond those of ASCII that can be seen.
std::vector<int> Code128(const QString& text);

/// What has to stay blank on each side of the bars, in modules.
constexpr int kQuietModules = 10;

/// How wide a module is, in points, where bars with their blank sides fill a width; nothing for no bars, and
/// for such as readers and office printers could not do with.
std::optional<double> ModuleIn(double width, const std::vector<int>& bars);
