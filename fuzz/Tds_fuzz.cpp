#include "fuzz/Fuzz.h"
#include "fuzz/ReadAll.h"
#include "odbc/OdbcGateway.h"
#include "support/tds/TdsResponder.h"
#include "support/tds/TestDataSources.h"

#include <functional>
#include <fuzzer/FuzzedDataProvider.h>

using namespace Qt::StringLiterals;

// What a server answers, through the driver into rows: result sets of every type with any content, errors,
// messages, ends, and cuts in between.

namespace {

constexpr int kTypes = int(TdsType::NVarCharMax) + 1;
constexpr size_t kLongestText = 300;

/// What an answer says, piece by piece. The server says it beside the thread that asks.
using Piece = std::function<void(TdsAnswer&)>;
using Plan = std::vector<Piece>;

QString TextOf(FuzzedDataProvider& input) {
    return QString::fromStdString(input.ConsumeRandomLengthString(kLongestText));
}

TdsColumn ColumnOf(FuzzedDataProvider& input) {
    TdsColumn column;
    column.name = TextOf(input).left(128);
    column.type = static_cast<TdsType>(input.ConsumeIntegralInRange(0, kTypes - 1));
    column.length = input.ConsumeIntegralInRange(1, 4000);
    column.precision = input.ConsumeIntegralInRange(1, 18);
    column.scale = input.ConsumeIntegralInRange(0, column.precision);
    return column;
}

QByteArray CellOf(FuzzedDataProvider& input) {
    return QByteArray::fromStdString(input.ConsumeRandomLengthString(kLongestText));
}

/// A result set with its rows.
void AddRows(Plan& plan, FuzzedDataProvider& input) {
    std::vector<TdsColumn> columns;
    for (int i = input.ConsumeIntegralInRange(1, 6); i > 0; --i)
        columns.push_back(ColumnOf(input));
    plan.push_back([columns](TdsAnswer& answer) { answer.Columns(columns); });
    for (int row = input.ConsumeIntegralInRange(0, 8); row > 0; --row) {
        std::vector<std::optional<QByteArray>> cells;
        for (size_t i = 0; i < columns.size(); ++i)
            cells.push_back(input.ConsumeBool() ? std::optional(CellOf(input)) : std::nullopt);
        plan.push_back([cells](TdsAnswer& answer) { answer.RawRow(cells); });
    }
}

void AddPiece(Plan& plan, FuzzedDataProvider& input) {
    const auto number = input.ConsumeIntegral<int>();
    switch (input.ConsumeIntegralInRange(0, 5)) {
    case 0:
        plan.push_back([number](TdsAnswer& answer) { answer.Done(number); });
        break;
    case 1:
        plan.push_back([number, text = TextOf(input), severity = input.ConsumeIntegralInRange(0, 25)](
                           TdsAnswer& answer) { answer.Error(number, text, severity); });
        break;
    case 2:
        plan.push_back([number, text = TextOf(input)](TdsAnswer& answer) { answer.Info(number, text); });
        break;
    case 3:
        plan.push_back([](TdsAnswer& answer) { answer.Send(); });
        break;
    default:
        AddRows(plan, input);
    }
}

Plan PlanOf(FuzzedDataProvider& input) {
    Plan plan;
    const bool cut = input.ConsumeIntegralInRange(0, 15) == 15;
    while (input.remaining_bytes() > 0)
        AddPiece(plan, input);
    if (cut)
        plan.push_back([](TdsAnswer& answer) { answer.Cut(); });
    return plan;
}

/// The program's connection to a server, both made anew once it is lost.
class Connection {
  public:
    Connection()
        : mServer([this]() -> TdsResponder::Handler {
            return [this](const QString&, TdsAnswer& answer) {
                for (const Piece& piece : *std::atomic_load(&mPlan))
                    piece(answer);
            };
        })
        , mSource(TestDataSources::Instance().Add(mServer.Port()))
        , mGateway(mSource, u"NURSE"_s, u"nurse"_s) {
        TestDataSources::Instance().Remove(mSource);
    }

    /// False when the connection is lost.
    bool Ask(Plan plan) {
        std::atomic_store(&mPlan, std::make_shared<const Plan>(std::move(plan)));
        try {
            ReadAll(mGateway.Execute(u"fuzz"_s));
        } catch (const RunTimeError& error) {
            return error.State() != "08S01"_L1;
        }
        mServer.ForgetBatches();
        return true;
    }

  private:
    std::shared_ptr<const Plan> mPlan = std::make_shared<const Plan>();
    TdsResponder mServer;
    QString mSource;
    OdbcGateway mGateway;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static std::optional<Connection> connection;
    if (!connection)
        connection.emplace();
    FuzzedDataProvider input(data, size);
    if (!connection->Ask(PlanOf(input)))
        connection.reset();
    return 0;
}
