#include "suite/CoreDumps.h"

#include <windows.h>
// After the system's own types.
#include <werapi.h>

void ForbidCoreDumps() {
    SetErrorMode(GetErrorMode() | SEM_NOGPFAULTERRORBOX);
    WerSetFlags(WER_FAULT_REPORTING_FLAG_NOHEAP);
}
