#pragma once

#include <QtGlobal>

#include <cstddef>
#include <vector>

/// Whole numbers in their order, each in no more bytes than those around it need: a million of small ones
/// takes a megabyte.
class NarrowNumbers {
  public:
    void Add(quint32 number);
    quint32 At(size_t place) const { return Read(mBlocks[place / kBlock], place % kBlock); }
    void Set(size_t place, quint32 number);
    size_t Size() const { return mSize; }

  private:
    static constexpr size_t kBlock = 4096;

    /// Numbers of one width, the lowest byte of each first.
    struct Block {
        std::vector<quint8> bytes;
        size_t width = 1;
    };

    static quint32 Read(const Block& block, size_t place) {
        const quint8* bytes = block.bytes.data() + place * block.width;
        quint32 number = 0;
        for (size_t i = block.width; i-- > 0;)
            number = number << 8 | bytes[i];
        return number;
    }
    static void Append(Block& block, quint32 number);
    static void Widen(Block& block, quint32 number);

    std::vector<Block> mBlocks;
    size_t mSize = 0;
};
