#pragma once

#include "gateway/Boundary.h"

#include <QtGlobal>

/// The memory that the rows of one command may take.
class MemoryBound {
  public:
    /// In bytes.
    explicit MemoryBound(qint64 most)
        : mLeft(most) {}

    /// Counts what was taken; raises 701 where it is too much.
    void Take(qint64 bytes) {
        mLeft -= bytes;
        if (mLeft < 0)
            throw OutOfMemory();
    }

  private:
    qint64 mLeft;
};
