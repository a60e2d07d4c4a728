#include "patients/CashTarget.h"

#include "text/RunTimeError.h"

namespace {

CashTargetSource registered;

} // namespace

void RegisterCashTarget(CashTargetSource source) {
    registered = std::move(source);
}

CashTarget& WaitingCashTarget() {
    if (!registered)
        throw RunTime::Error(RunTime::kObjectNotSet);
    return registered();
}
