#pragma once

#include "text/RunTimeError.h"

/// A command that needs more memory than there is, or than it may have.
RunTimeError OutOfMemory();

/// What the failure that is being handled means to whoever sent the command: itself where it is a
/// RunTimeError, 701 where memory gave out, and 8624 for any other. Only inside of a catch block.
RunTimeError FailureInHand();

/// Does a gateway's work. Whatever fails in it leaves it as a RunTimeError: that is the one failure which
/// screens know how to show.
template <class Work> decltype(auto) WithinBoundary(Work work) {
    try {
        return work();
    } catch (...) {
        throw FailureInHand();
    }
}
