#pragma once

#include "catalogue/commands.h"
#include "support/ScriptedGateway.h"

/// A revenue centre as the server lists it.
struct RevenueCentre {
    QString name;
    Value code;
    QString withItems = QStringLiteral("Y");
    Value searchInventory = false;
    Value location = {};
};

/// What the search of revenue centres answers: the name in the picker's first column and the code in its
/// second.
inline std::shared_ptr<const RowData> RevenueRows(const std::vector<RevenueCentre>& centres) {
    std::vector<std::vector<Value>> rows;
    for (const RevenueCentre& centre : centres)
        rows.push_back({centre.name, centre.code, centre.withItems, centre.searchInventory, centre.location});
    return Rows({QStringLiteral("Revenue"), QStringLiteral("RevenueID"), QStringLiteral("WithItems"),
                 QStringLiteral("SearchInventory"), QStringLiteral("LocationID")},
                std::move(rows));
}

/// What the revenue picker sends for the text in its search box.
inline QString ListedRevenueCommand(const QString& text) {
    return RevenueListQuery().replace(QStringLiteral("##"), text);
}

/// Expects the exact match of the centre's code, and answers it.
inline void ExpectExact(ScriptedGateway& gateway, const RevenueCentre& centre) {
    gateway.Expect(ExactRevenueCommand(centre.code.ToText()), RevenueRows({centre}));
}
