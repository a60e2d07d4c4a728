#pragma once

#include "components/clsDiagnosisCodes.h"

/// The diagnosis codes component: it takes the connection, as the start hands it over, and has no use for it.
class DiagnosisCodes : public clsDiagnosisCodes {
  public:
    void SetActiveConnection(CommandGateway*) override {}
};
