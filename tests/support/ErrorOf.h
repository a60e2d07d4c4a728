#pragma once

#include "text/RunTimeError.h"

/// The number of the run-time error that an action raises, 0 for none.
template <class Action> int ErrorOf(Action action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.Number();
    }
    return 0;
}
