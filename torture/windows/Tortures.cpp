#include "torture/Tortures.h"

#include "torture/Torture.h"
#include "torture/Ward.h"

namespace {

// The locks of a file are another mechanism here; the others ask nothing of the system that is not asked
// elsewhere.
constexpr NamedTorture kTortures[] = {{"kill", KillOnOneFile}};
constexpr NamedProcess kProcesses[] = {{"shift", RunShift}};

} // namespace

std::span<const NamedTorture> Tortures() {
    return kTortures;
}

std::span<const NamedProcess> TortureProcesses() {
    return kProcesses;
}
