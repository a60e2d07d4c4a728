#include "gateway/NarrowNumbers.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr quint32 kMost = std::numeric_limits<quint32>::max();

void ExpectAll(const NarrowNumbers& numbers, const std::vector<quint32>& wanted) {
    ASSERT_EQ(numbers.Size(), wanted.size());
    for (size_t i = 0; i < wanted.size(); ++i)
        ASSERT_EQ(numbers.At(i), wanted[i]) << i;
}

} // namespace

TEST(NarrowNumbers, KeepsNumbersOfEveryWidthInAnyOrder) {
    const std::vector<quint32> wanted{0, 255, 256, 1, 65535, 65536, 7, 0xFFFFFF, 0x1000000, kMost, 0};
    NarrowNumbers numbers;
    for (const quint32 number : wanted)
        numbers.Add(number);
    ExpectAll(numbers, wanted);
}

TEST(NarrowNumbers, KeepsManyOfThem) {
    std::vector<quint32> wanted;
    NarrowNumbers numbers;
    for (quint32 i = 0; i < 20000; ++i) {
        wanted.push_back(i * i);
        numbers.Add(i * i);
    }
    ExpectAll(numbers, wanted);
}

TEST(NarrowNumbers, ANumberIsSetWhereverItStandsAndHoweverWideItIs) {
    std::vector<quint32> wanted(10000, 3);
    NarrowNumbers numbers;
    for (const quint32 number : wanted)
        numbers.Add(number);
    for (const size_t place : {size_t(0), size_t(4095), size_t(4096), size_t(9999)}) {
        wanted[place] = kMost - quint32(place);
        numbers.Set(place, wanted[place]);
        ExpectAll(numbers, wanted);
    }
    wanted[0] = 2;
    numbers.Set(0, 2);
    ExpectAll(numbers, wanted);
}
