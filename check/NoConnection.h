#pragma once

#include "gateway/CommandGateway.h"

/// Stands where nobody could be signed on: what lies on the workstation can be looked at all the same.
class NoConnection : public CommandGateway {
  public:
    bool Connected() const override { return false; }
    QString ConnectionString() const override { return {}; }

  protected:
    Outcome Run(const QString& command) override;
};
