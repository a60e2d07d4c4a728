#pragma once

#include "support/hospital/HospitalTest.h"

#include <functional>
#include <utility>
#include <vector>

/// Tests of several workstations on one hospital, each a process of its own.
class ManyWorkstations : public HospitalTest {
  protected:
    /// What a workstation does on its own connection. It calls `meet` where it waits for the others: all go
    /// on together as soon as each one has come there or has ended.
    using Work = std::function<void(EmbeddedGateway& gateway, const std::function<void()>& meet)>;

    /// Runs the works at once, each with one of the users signed on, and waits for their ends. Tells which
    /// ones came to their end without an error; the text of one goes to standard error.
    std::vector<bool> RunAtOnce(const std::vector<std::pair<QString, Work>>& works);
};
