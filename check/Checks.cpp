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
                                Check{"encryption", LookAtEncryption},
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
                                Check{"templates", LookAtTemplates},
                                Check{"printers", LookAtPrinters},
                                Check{"configuration", LookAtConfiguration},
                                Check{"folders", LookAtFolders},
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

Findings LookAtEverything(const Ground& ground, const std::function<void(const Finding&)>& tell) {
    Findings all;
    for (const Check& check : kChecks) {
        for (const Finding& finding : Look(check, ground)) {
            tell(finding);
            all.push_back(finding);
        }
    }
    return all;
}

bool HasFaults(const Findings& findings) {
    return std::ranges::any_of(findings, [](const Finding& f) { return f.verdict == Verdict::Fault; });
}
