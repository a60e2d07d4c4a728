#include "check/NoConnection.h"

#include "text/RunTimeError.h"

CommandGateway::Outcome NoConnection::Run(const QString&) {
    throw RunTimeError(RunTime::kObjectClosed, RunTime::TextOf(RunTime::kObjectClosed));
}
