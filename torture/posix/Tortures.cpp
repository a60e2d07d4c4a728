#include "torture/Tortures.h"

#include "torture/Torture.h"

namespace {

constexpr NamedTorture kTortures[] = {{"kill", TortureByKills},
                                      {"crowd", TortureByCrowd},
                                      {"files", TortureByFiles},
                                      {"longshift", TortureByLongShift},
                                      {"desks", TortureByDesks}};

constexpr NamedProcess kProcesses[] = {{"shift", RunShift},
                                       {"crowd-desk", RunCrowdDesk},
                                       {"files-desk", RunFilesDesk},
                                       {"long-shift", RunLongShift},
                                       {"desk-shift", RunDeskShift}};

} // namespace

std::span<const NamedTorture> Tortures() {
    return kTortures;
}

std::span<const NamedProcess> TortureProcesses() {
    return kProcesses;
}
