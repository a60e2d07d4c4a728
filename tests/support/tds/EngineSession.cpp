#include "support/tds/EngineSession.h"

#include "text/RunTimeError.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalEngine.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLongestText = 4000;

TdsColumn ColumnOf(const Value& value) {
    struct Describe {
        TdsColumn operator()(std::monostate) const { return {}; }
        TdsColumn operator()(bool) const { return {.type = TdsType::Bit}; }
        TdsColumn operator()(qint64) const { return {.type = TdsType::BigInt}; }
        TdsColumn operator()(const Decimal& decimal) const {
            const qsizetype point = decimal.text.indexOf(u'.');
            const auto scale = point < 0 ? 0 : static_cast<int>(decimal.text.size() - point - 1);
            return {.type = TdsType::Decimal, .scale = scale};
        }
        TdsColumn operator()(double) const { return {.type = TdsType::Float}; }
        // The engine keeps milliseconds, which the server's older type would round.
        TdsColumn operator()(DateTime) const { return {.type = TdsType::DateTime2}; }
        TdsColumn operator()(const QString&) const { return {.length = kLongestText}; }
    };
    return std::visit(Describe{}, value.Get());
}

/// The first value of a column that is not Null decides, and among decimals the one with the most digits
/// behind its point.
TdsColumn ColumnOf(const RowData& rows, size_t column) {
    TdsColumn described;
    for (size_t row = 0; row < rows.RowCount(); ++row) {
        if (rows.Cell(row, column).IsNull())
            continue;
        const TdsColumn found = ColumnOf(rows.Cell(row, column));
        if (found.type != TdsType::Decimal) {
            described = found;
            break;
        }
        if (described.type != TdsType::Decimal || found.scale > described.scale)
            described = found;
    }
    described.name = rows.columns[column];
    return described;
}

void AnswerFromEngine(EmbeddedGateway& hospital, const QString& batch, TdsAnswer& answer) {
    // This is how a driver sets the database of names without one.
    static const QRegularExpression use(u"^use \\[(.*)\\]$"_s, QRegularExpression::CaseInsensitiveOption);
    try {
        if (const auto match = use.match(batch); match.hasMatch()) {
            hospital.SetDefaultDatabase(match.captured(1));
            answer.DatabaseChanged(match.captured(1));
            answer.Done();
            return;
        }
        const CommandResult result = hospital.Engine().Run(batch);
        if (result.rows)
            AnswerWithRows(answer, *result.rows);
        else
            answer.Done(result.rowsAffected);
    } catch (const RunTimeError& error) {
        answer.Error(error.Number(), error.Description());
    }
}

} // namespace

TdsResponder::NewSession EngineSessions(const QString& path) {
    return [path](const TdsLogin& login) -> TdsResponder::Handler {
        auto hospital = std::make_shared<EmbeddedGateway>(path);
        hospital->SetSessionUser(login.user);
        return [hospital](const QString& batch, TdsAnswer& answer) {
            AnswerFromEngine(*hospital, batch, answer);
        };
    };
}

void AnswerWithRows(TdsAnswer& answer, const RowData& rows) {
    std::vector<TdsColumn> columns;
    for (size_t i = 0; i < rows.columns.size(); ++i)
        columns.push_back(ColumnOf(rows, i));
    answer.Columns(columns);
    for (size_t row = 0; row < rows.RowCount(); ++row) {
        std::vector<Value> cells;
        for (size_t column = 0; column < columns.size(); ++column)
            cells.push_back(rows.Cell(row, column));
        answer.Row(cells);
    }
    answer.Done(qint64(rows.RowCount()));
}
