#pragma once

#include "toolkit/Colors.h"

#include <algorithm>
#include <optional>
#include <string_view>

/// A dark desktop for as long as this lives, where the command line has --dark; made before the application.
inline std::optional<Seam<bool()>::Replacement> DarkDesktopIfAsked(int argc, char** argv) {
    const bool isAsked =
        std::any_of(argv, argv + argc, [](const char* word) { return std::string_view(word) == "--dark"; });
    if (!isAsked)
        return std::nullopt;
    return std::optional<Seam<bool()>::Replacement>(std::in_place, DarkDesktopSeam(), [] { return true; });
}
