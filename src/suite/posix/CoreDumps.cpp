#include "suite/CoreDumps.h"

#include <sys/prctl.h>
#include <sys/resource.h>

void ForbidCoreDumps() {
    constexpr rlimit kNothing{0, 0};
    setrlimit(RLIMIT_CORE, &kNothing);
    // A system that hands crashes to a program of its own does not ask for the limit, but for this.
    prctl(PR_SET_DUMPABLE, 0);
}
