#include "toolkit/TypeAhead.h"

// The system reads a key only when what the one before has done is over, and gives it to the window that is
// in front then.
void KeepTypedAhead() {}

bool IsMadeUpPress(quint64 /*moment*/) {
    return false;
}
