#include "support/smallhospital/GatewayTexts.h"

#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

QStringList RowTexts(const RowSet& rows) {
    const auto data = rows.Data();
    QStringList texts;
    for (size_t row = 0; row < data->RowCount(); ++row) {
        QStringList cells;
        for (size_t column = 0; column < data->columns.size(); ++column) {
            const Value& value = data->Cell(row, column);
            cells << (value.IsNull() ? u"NULL"_s : value.ToText());
        }
        texts << cells.join(u'|');
    }
    return texts;
}

QStringList RowTexts(CommandGateway& gateway, const QString& command) {
    return RowTexts(gateway.Execute(command));
}

RaisedError FailureOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RunTimeError& error) {
        return {error.Number(), error.Description(), error.State()};
    }
    return {};
}

RaisedError FailureOf(CommandGateway& gateway, const QString& command) {
    return FailureOf([&] { gateway.Execute(command); });
}
