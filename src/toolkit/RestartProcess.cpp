#include "toolkit/RestartProcess.h"

#include "toolkit/BeginAnew.h"

void RestartProcess() {
    RestartProcessSeam()();
}

Seam<void()>& RestartProcessSeam() {
    static Seam<void()> seam(BeginAnew);
    return seam;
}
