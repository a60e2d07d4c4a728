#include "support/CommandTexts.h"

#include "odbc/OdbcGateway.h"
#include "support/tds/TdsResponder.h"
#include "support/tds/TestDataSources.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace {

/// The way of a text to a server, kept for all texts of a test program.
class Wire {
  public:
    /// What the server is sent for a text.
    QString Carry(const QString& command) {
        mServer.ForgetBatches();
        try {
            mGateway.ExecuteNoResult(command);
        } catch (const RunTimeError& error) {
            return u"not sent: "_s + error.Description();
        }
        return mServer.Batches().join(u" | "_s);
    }

  private:
    TdsResponder mServer{[]() -> TdsResponder::Handler { return [](const QString&, TdsAnswer&) {}; }};
    OdbcGateway mGateway{TestDataSources::Instance().Add(mServer.Port()), u"NURSE"_s, u"nurse"_s};
};

} // namespace

testing::AssertionResult CrossesTheWireAs(const char* composedText, const char*, const QString& composed,
                                          const QString& golden) {
    static Wire wire;
    const QString carried = wire.Carry(composed);
    if (composed == golden && carried == golden)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << composedText << "\n  composed " << composed.toStdString() << "\n  sent     "
           << carried.toStdString() << "\n  golden   " << golden.toStdString();
}
