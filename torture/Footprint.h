#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

/// What a process holds at one moment, figure by figure in the order of `Figures`.
namespace Footprint {

struct Figure {
    QStringView what;
    /// How many of its units a graph's number stands for, and how that number is called.
    double perUnit;
    QStringView unit;
    /// By how much the figure may grow over the part of a shift that is judged, in its own units. 0 for not
    /// at all; nothing where it is shown only.
    std::optional<double> mostGrowth;
};

constexpr double kKilobyte = 1024.0;
constexpr double kMegabyte = 1024.0 * kKilobyte;

// The sanitizers hold freed memory back for a while, to see whether somebody still uses it.
#ifdef TARVEN_SANITIZED
inline constexpr std::optional<double> kMostMemory = std::nullopt;
#else
inline constexpr std::optional<double> kMostMemory = 10 * kMegabyte;
#endif

// The database's own cache takes in the pages of a file that grows by what is posted, up to a bound of its
// own; so it is told for itself and is no part of the other memory.
inline constexpr std::array kFigures = {
    Figure{u"heap in use", kMegabyte, u"MB", 2 * kMegabyte},
    Figure{u"memory of the process", kMegabyte, u"MB", kMostMemory},
    Figure{u"the file's pages in the cache", kKilobyte, u"KB", std::nullopt},
    Figure{u"open descriptors", 1, u"", 0},
    Figure{u"threads", 1, u"", 0},
    Figure{u"timers", 1, u"", 0},
    // The toolkit's store of drawings has one that comes and goes.
    Figure{u"running clocks", 1, u"", 1},
    Figure{u"widgets", 1, u"", 0},
    // Up to some few that the toolkit ends when it comes to it.
    Figure{u"objects of the toolkit", 1, u"", 5},
    Figure{u"statements kept prepared", 1, u"", 0},
};

using Sample = std::array<double, kFigures.size()>;

/// What this process holds. Called on the user interface's thread, while a session stands on the trial
/// hospital and no screen is open.
Sample Take();

QString TextOf(const Sample& sample);
/// Raises std::runtime_error for a text that is none.
Sample SampleIn(const QString& text);

} // namespace Footprint
