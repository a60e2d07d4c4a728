#pragma once

#include "support/ScriptedGateway.h"
#include "text/DateTime.h"

#include <map>

/// A registered out-patient visit as the hospital tells of it, with some columns of the test's own.
inline std::vector<std::pair<QString, Value>> Visit(const std::map<QString, Value>& changed = {}) {
    using namespace Qt::StringLiterals;
    std::vector<std::pair<QString, Value>> visit = {
        {u"IdNum"_s, u"104233B"_s},
        {u"LastName"_s, u"DELA CRUZ"_s},
        {u"FirstName"_s, u"ANA"_s},
        {u"MiddleName"_s, u"SY"_s},
        {u"AdmDate"_s, *DateTime::FromFields({.year = 2026, .month = 11, .day = 3, .hour = 13, .minute = 5})},
        {u"HospNum"_s, u"100233"_s},
        {u"AccountNum"_s, u"500233"_s},
        {u"Company"_s, u"PHILHEALTH"_s},
        {u"DcrDate"_s,
         *DateTime::FromFields({.year = 2026, .month = 11, .day = 20, .hour = 9, .minute = 30})},
        {u"BillingDate"_s, *DateTime::FromFields({.year = 2026, .month = 11, .day = 21})},
        {u"CivilStatus"_s, u"2"_s},
        {u"Sex"_s, u"F"_s},
        {u"BirthDate"_s, *DateTime::FromFields({.year = 1984, .month = 2, .day = 29})},
        {u"Age"_s, 42},
        {u"HouseStreet"_s, u"12 RIZAL ST."_s},
        {u"Barangay"_s, u"POBLACION"_s},
        {u"Town"_s, u"QUEZON CITY"_s},
        {u"Province"_s, u"METRO MANILA"_s}};
    for (auto& [name, value] : visit) {
        if (const auto own = changed.find(name); own != changed.end())
            value = own->second;
    }
    return visit;
}

/// So many visits.
inline std::shared_ptr<const RowData>
Visits(const std::vector<std::vector<std::pair<QString, Value>>>& visits) {
    std::vector<QString> columns;
    for (const auto& [name, value] : Visit())
        columns.push_back(name);
    std::vector<std::vector<Value>> rows;
    for (const auto& visit : visits) {
        std::vector<Value>& row = rows.emplace_back();
        for (const auto& [name, value] : visit)
            row.push_back(value);
    }
    return Rows(columns, rows);
}
