#pragma once

#include "components/Component.h"

class CommandGateway;

/// The diagnosis codes component, DiagnosisCodeLib.clsDiagnosisCodes. It receives the connection and is not
/// used.
class clsDiagnosisCodes : public Component {
  public:
    virtual void SetActiveConnection(CommandGateway* connection) = 0;
};
