#include "gateway/NarrowNumbers.h"

#include <utility>

namespace {

size_t WidthOf(quint32 number) {
    size_t width = 1;
    while (number >>= 8)
        ++width;
    return width;
}

} // namespace

void NarrowNumbers::Add(quint32 number) {
    if (mSize % kBlock == 0) {
        if (!mBlocks.empty())
            mBlocks.back().bytes.shrink_to_fit();
        mBlocks.emplace_back();
    }
    Widen(mBlocks.back(), number);
    Append(mBlocks.back(), number);
    ++mSize;
}

void NarrowNumbers::Set(size_t place, quint32 number) {
    Block& block = mBlocks[place / kBlock];
    Widen(block, number);
    quint8* bytes = block.bytes.data() + place % kBlock * block.width;
    for (size_t i = 0; i < block.width; ++i)
        bytes[i] = quint8(number >> 8 * i);
}

void NarrowNumbers::Append(Block& block, quint32 number) {
    for (size_t i = 0; i < block.width; ++i)
        block.bytes.push_back(quint8(number >> 8 * i));
}

/// Makes room for the number in each place of the block.
void NarrowNumbers::Widen(Block& block, quint32 number) {
    const size_t width = WidthOf(number);
    if (width <= block.width)
        return;
    const Block narrow = std::exchange(block, {{}, width});
    for (size_t place = 0; place < narrow.bytes.size() / narrow.width; ++place)
        Append(block, Read(narrow, place));
}
