#include "toolkit/EndProcess.h"

#include <cstdio>
#include <unistd.h>
#include <utility>

namespace {

std::function<void()> endInstead;

} // namespace

void EndProcess() {
    if (endInstead)
        endInstead();
    std::fflush(nullptr);
    _exit(0);
}

void SetEndOfProcess(std::function<void()> end) {
    endInstead = std::move(end);
}
