#include "torture/FilesDesk.h"

#include "support/FixedClock.h"
#include "torture/JournaledSuite.h"
#include "torture/RandomShift.h"
#include "torture/Torture.h"
#include "workstation/ClerkKeys.h"
#include "workstation/KeyedProgram.h"

#include <QDateTime>
#include <QStandardPaths>

#include <csignal>
#include <cstdio>
#include <grp.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString kWaits = u"waits"_s;

/// To the system's administrator no file is read-only, and no clerk is one.
void BecomeOrdinaryUser() {
    constexpr unsigned kNobody = 65534;
    if (::geteuid() != 0)
        return;
    if (::setgroups(0, nullptr) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)
        throw std::runtime_error("cannot become an ordinary user");
    // It has gone with the other rights.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

DateTime MomentOf(const QString& text) {
    const QDateTime moment = QDateTime::fromString(text, u"yyyy-MM-dd hh:mm"_s);
    return DateTime::FromFields({moment.date().year(), moment.date().month(), moment.date().day(),
                                 moment.time().hour(), moment.time().minute()})
        .value();
}

bool StandsOnTheScreen(const QString& name) {
    try {
        VisibleControl(name);
        return true;
    } catch (const DriverError&) {
        return false;
    }
}

/// Waits until the program has taken the sign-on or has told why not; the hospital may have to be made
/// before.
void AwaitTheSignOn(Driver& clerk) {
    const auto isAnswered = [] {
        return !StandsOnTheScreen(u"SignOnDialog"_s) || StandsOnTheScreen(u"lblProblem"_s);
    };
    constexpr int kMostSteps = 3;
    for (int i = 1; i < kMostSteps; ++i) {
        try {
            return clerk.WaitFor(isAnswered, u"the answer to the sign-on"_s);
        } catch (const DriverError&) {
            continue;
        }
    }
    clerk.WaitFor(isAnswered, u"the answer to the sign-on"_s);
}

/// Whether the clerk is in; why not is marked in the journal.
bool GetsIn(Driver& clerk, Journal& journal) {
    clerk.ExpectScreen(u"SignOnDialog"_s);
    // In small letters, with the one of which not every language makes the same capital.
    clerk.Type(u"admin"_s);
    clerk.Press(Qt::Key_Tab);
    clerk.Type(u"admin"_s);
    clerk.Press(Qt::Key_Return);
    AwaitTheSignOn(clerk);
    bool isIn = false;
    clerk.OnScreen([&isIn] { isIn = !StandsOnTheScreen(u"SignOnDialog"_s); });
    journal.Mark(isIn ? Mark::kSignedOn : Mark::kRefused + clerk.Text(u"lblProblem"_s));
    return isIn;
}

/// Tells the torture that the slip is keyed, and waits for its word.
void WaitBeforeTheSave() {
    std::printf("%s\n", kBeforeSave);
    std::fflush(stdout);
    std::getchar();
}

void PostOneSlip(Driver& clerk, const FilesDesk& desk, Journal& journal) {
    if (!GetsIn(clerk, journal))
        return;
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"ñig"_s);
    KeyThreeLines(clerk);
    if (desk.waits)
        WaitBeforeTheSave();
    PressSave(clerk);
    CloseSlip(clerk);
}

} // namespace

QStringList FilesDesk::Arguments() const {
    return {folder, data, journal, moment, waits ? kWaits : QString()};
}

FilesDesk FilesDesk::In(const QStringList& arguments) {
    return {.folder = arguments.value(0),
            .data = arguments.value(1),
            .journal = arguments.value(2),
            .moment = arguments.value(3),
            .waits = arguments.value(4) == kWaits};
}

int RunFilesDesk(const QStringList& arguments) {
    BecomeOrdinaryUser();
    const FilesDesk desk = FilesDesk::In(arguments);
    const auto clock = FixedClock(MomentOf(desk.moment));
    Journal journal(desk.journal);
    return RunKeyedProgram(
        desk.folder,
        [&] {
            // The program's own words for its folder need its name, which it has by now.
            const QString own = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
            RegisterJournaledSuite(desk.data.isEmpty() ? own : desk.data, journal);
            ReadFailures(journal);
        },
        [&](Driver& clerk) { PostOneSlip(clerk, desk, journal); });
}
