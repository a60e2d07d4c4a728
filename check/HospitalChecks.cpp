#include "check/HospitalChecks.h"

#include "catalogue/commands.h"
#include "nursing/commands.h"
#include "shell/commands.h"

#include <QElapsedTimer>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// As often as a workstation asks for the wards' requests.
constexpr double kAsksInASecond = 4;
constexpr int kTrips = 21;
/// In milliseconds; beyond it the questions alone take a tenth of a workstation's time.
constexpr double kSlowTrip = 25;

qint64 RowsOf(CommandGateway& connection, const QString& command) {
    return qint64(connection.Execute(command).Data()->RowCount());
}

double MillisecondsOf(CommandGateway& connection, const QString& command) {
    QElapsedTimer time;
    time.start();
    connection.ExecuteNoResult(command);
    return double(time.nsecsElapsed()) / 1e6;
}

} // namespace

Findings LookAtRecord(const Ground& ground) {
    const QString name = u"hospital record"_s;
    const RowSet rows = ground.connection.Execute(HospitalRecordCommand());
    const auto count = rows.Data()->RowCount();
    if (count != 1)
        return {Fails(name, u"%1 rows in PATIENT_DATA..tbhospitalInfo"_s.arg(count),
                      u"leave the hospital's one row there"_s)};
    const QString company = rows.Fields(u"company").TextOrEmpty();
    if (company.trimmed().isEmpty())
        return {Fails(name, u"it has no name"_s, u"write company in PATIENT_DATA..tbhospitalInfo"_s)};
    return {Ok(name, company)};
}

Findings LookAtCounters(const Ground& ground) {
    const QString name = u"counters"_s;
    Findings faults;
    QStringList seen;
    for (const auto& [key, column] : ground.needs.Counters()) {
        const QString table = ground.needs.tables[key].name;
        const RowSet rows = ground.connection.Execute(u"SELECT * FROM %1"_s.arg(table));
        const auto count = rows.Data()->RowCount();
        if (count != 1)
            faults.push_back(Fails(name, u"%1 has %2 rows"_s.arg(table).arg(count),
                                   u"leave one row there, with the last number that was given"_s));
        else if (rows.Fields(column).IsNull())
            faults.push_back(Fails(name, u"%1 has no number"_s.arg(table), u"write the last number there"_s));
        else
            seen << u"%1 at %2"_s.arg(table, rows.Fields(column).ToText());
    }
    return FaultsOr(std::move(faults), Ok(name, seen.join(u", "_s)));
}

Findings LookAtDepartment(const Ground& ground) {
    const QString name = u"department"_s;
    Findings faults;
    const auto users = RowsOf(ground.connection, u"SELECT EmployeeID FROM PASSWORD..tbPasswordDept WHERE DeptCode = '%1'"_s
                                                     .arg(ground.department));
    if (users == 0)
        faults.push_back(Fails(name, u"no user is entered for %1"_s.arg(ground.department),
                               u"enter the users in PASSWORD..tbPasswordDept"_s));
    const RowSet centre = ground.connection.Execute(ExactRevenueCommand(ground.department));
    if (centre.Eof())
        faults.push_back(Fails(name, u"no revenue centre is called %1"_s.arg(ground.department),
                               u"enter it in build_file..tbCoRevenue"_s));
    if (!faults.empty())
        return faults;
    return {Ok(name, u"%1 %2, %3 users"_s.arg(ground.department, centre.Fields(u"Revenue").TextOrEmpty())
                         .arg(users))};
}

Findings LookAtRoundTrip(const Ground& ground) {
    const QString name = u"round trip"_s;
    std::array<double, kTrips> times{};
    for (double& time : times)
        time = MillisecondsOf(ground.connection, CheckPendingCommand());
    std::ranges::sort(times);
    const double middle = times[times.size() / 2];
    const QString seen =
        u"%1 ms in the middle of %2, %3 ms the slowest; the four questions a second for the wards' "
        "requests take %4 ms of each second"_s.arg(middle, 0, 'f', 1)
            .arg(kTrips)
            .arg(times.back(), 0, 'f', 1)
            .arg(middle * kAsksInASecond, 0, 'f', 1);
    if (middle > kSlowTrip)
        return {Fails(name, seen, u"look at the net and at what else the server does; docs/scale.md"_s)};
    return {Ok(name, seen)};
}
