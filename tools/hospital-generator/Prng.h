#pragma once

#include <QtGlobal>

#include <utility>
#include <vector>

namespace Generator {

/// A small generator of pseudo-random numbers (SplitMix64) that gives the same row of numbers on every
/// machine and with every library, so that a generated hospital never changes by itself. Two numbers are
/// never drawn among the arguments of one call: compilers take those in different orders.
class Prng {
  public:
    explicit Prng(quint64 seed)
        : mState(seed) {}

    /// A number from 0 up to, not including, `bound`, which is at least 1.
    int Below(int bound) { return int((Next() >> 32) * quint64(bound) >> 32); }
    /// A number from `low` to `high`, both included.
    int Between(int low, int high) { return low + Below(high - low + 1); }
    /// True in `percent` of 100 cases.
    bool Chance(int percent) { return Below(100) < percent; }
    /// One of the list's elements, by reference.
    template <typename List> const auto& Pick(const List& list) {
        return list[size_t(Below(int(std::size(list))))];
    }

    template <typename T> void Shuffle(std::vector<T>& list) {
        for (int i = int(list.size()) - 1; i > 0; --i)
            std::swap(list[size_t(i)], list[size_t(Below(i + 1))]);
    }

  private:
    quint64 Next() {
        quint64 z = (mState += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }

    quint64 mState;
};

} // namespace Generator
