#pragma once

#include "odbc/OdbcGateway.h"
#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "support/tds/TdsResponder.h"
#include "support/tds/TestDataSources.h"

#include <gtest/gtest.h>
#include <memory>

/// A gateway to a responder that answers each batch as the test says. A batch that the test has no answer for
/// is answered as a command without a result.
class OdbcServer : public testing::Test {
  protected:
    OdbcServer()
        : mServer([this]() -> TdsResponder::Handler {
            return [this](const QString& batch, TdsAnswer& answer) {
                if (mAnswer)
                    mAnswer(batch, answer);
            };
        })
        , mSource(TestDataSources::Instance().Add(mServer.Port()))
        , mGateway(Connect()) {}

    std::unique_ptr<OdbcGateway> Connect() {
        return std::make_unique<OdbcGateway>(mSource, QStringLiteral("NURSE"), QStringLiteral("nurse"));
    }

    /// How the server answers from now on. A command must have been answered before the next change.
    void AnswerWith(TdsResponder::Handler answer) { mAnswer = std::move(answer); }

    /// What a command fails with.
    RaisedError FailureOfCommand(const QString& command = QStringLiteral("anything")) {
        return FailureOf(*mGateway, command);
    }

    TdsResponder::Handler mAnswer;
    TdsResponder mServer;
    QString mSource;
    std::unique_ptr<OdbcGateway> mGateway;
};
