#include "toolkit/Workspace.h"

namespace {

Workspace* current = nullptr;

} // namespace

Workspace* Workspace::Current() {
    return current;
}

void Workspace::SetCurrent(Workspace* workspace) {
    current = workspace;
}
