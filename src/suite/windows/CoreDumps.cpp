#include "suite/CoreDumps.h"

#include <windows.h>

// A process whose crashes are not reported leaves no memory behind. Other processes of the same user may read
// it here, as they may read all that is his.
void ForbidCoreDumps() {
    SetErrorMode(GetErrorMode() | SEM_NOGPFAULTERRORBOX);
}
