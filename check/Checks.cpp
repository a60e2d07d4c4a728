#include "check/Checks.h"

#include "check/DeskChecks.h"
#include "check/HospitalChecks.h"
#include "check/ObjectChecks.h"
#include "check/ServerChecks.h"
#include "text/RunTimeError.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kChecks = {Check{"driver", LookAtDriver},
                                Check{"encryption", LookAtEncryption, true},
                                Check{"server version", LookAtVersion},
                                Check{"login language", LookAtLanguage},
                                Check{"login name", LookAtLogin},
                                Check{"clock", LookAtClock},
                                Check{"collation", LookAtCollation},
                                Check{"databases", LookAtDatabases},
                                Check{"procedures", LookAtProcedures},
                                Check{"answers", LookAtAnswers},
                                Check{"tables", LookAtTables},
                                Check{"rights", LookAtRights},
                                Check{"isolation", LookAtIsolation},
                                Check{"chaining", LookAtChaining},
                                Check{"hospital record", LookAtRecord},
                                Check{"counters", LookAtCounters},
                                Check{"department", LookAtDepartment},
                                Check{"templates", LookAtTemplates, true},
                                Check{"printers", LookAtPrinters, true},
                                Check{"configuration", LookAtConfiguration, true},
                                Check{"folders", LookAtFolders, true},
                                Check{"round trip", LookAtRoundTrip}};

Findings Look(const Check& check, const Ground& ground) {
    try {
        return check.look(ground);
    } catch (const RunTimeError& error) {
        return {Fails(QString::fromLatin1(check.name), error.Description(),
                      u"docs/deployment.md tells what the check asks, and what right that needs"_s)};
    }
}

} // namespace

Findings LookAtEverything(const Ground& ground, const Hear& hear) {
    Findings all;
    for (const Check& check : kChecks) {
        if (!ground.connection.Connected() && !check.isOfDesk)
            continue;
        for (const Finding& finding : Look(check, ground)) {
            hear(finding);
            all.push_back(finding);
        }
    }
    return all;
}

bool HasFaults(const Findings& findings) {
    return std::ranges::any_of(findings, [](const Finding& f) { return f.verdict == Verdict::Fault; });
}
