#include "charges/commands.h"
#include "support/tds/EngineSession.h"
#include "support/tds/TestDataSources.h"
#include "torture/Torture.h"
#include "torture/Ward.h"

#include <QDir>

#include <array>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// The hospital is reached over the wire, each round through a server of its own.
class ServedWard : public Ward {
  public:
    using Ward::Ward;

    /// A slip is saved, and the server is cut in the middle of its batch of that number, behind that part of
    /// the answer; `runs` tells whether it has run the batch.
    void Cut(int batch, bool runs, int percent);

    const std::set<QString>& Failures() const { return mFailures; }

  protected:
    void Open() override { StartServer(EngineSessions(Folder().HospitalPath())); }
    void Close() override { mServer.reset(); }
    Clerk AnyClerk() override { return {kUser, kPassword}; }

  private:
    void StartServer(const TdsResponder::NewSession& sessions);

    static inline const QString kUser = QStringLiteral("NURSE");
    static inline const QString kPassword = QStringLiteral("nurse");
    std::unique_ptr<TdsResponder> mServer;
    std::set<QString> mFailures;
};

void ServedWard::StartServer(const TdsResponder::NewSession& sessions) {
    mServer = std::make_unique<TdsResponder>(sessions);
    mServer->Admit(kUser, kPassword);
    const QString name = TestDataSources::Instance().Add(mServer->Port(), u"Hospital"_s);
    QDir().mkpath(Folder().File(u"TARVEN"_s));
    Folder().Write(u"TARVEN/Hemodialysis.ini"_s, u"[General]\nDataSource=%1\n"_s.arg(name).toUtf8());
}

void ServedWard::Cut(int batch, bool runs, int percent) {
    const QString where = u"cut at batch %1, %2"_s.arg(batch).arg(
        !runs ? u"not run"_s : u"run, %1 % of the answer sent"_s.arg(percent));
    StartServer([batch, runs, percent, hospital = EngineSessions(Folder().HospitalPath())](
                    const TdsLogin& login) -> TdsResponder::Handler {
        return [batch, runs, percent, answered = hospital(login), number = -1](const QString& text,
                                                                               TdsAnswer& answer) mutable {
            if (number >= 0 || text == ChargeSlipCounterCommand())
                ++number;
            if (number == batch && !runs)
                answer.Cut();
            answered(text, answer);
            if (number == batch)
                answer.CutInside(percent);
        };
    });
    const auto shift = Start(true);
    if (!shift->Ends(kEndPatience))
        Report(where, {u"the program does not notice it"_s});
    shift->Kill();
    const QString failure = shift->Journal().Mark(Mark::kFailure);
    if (failure.isEmpty())
        Report(where, {u"the program has told no failure"_s});
    mFailures.insert(failure);
    Close();
    Look(where);
}

/// What a cut leaves of a batch.
struct CutPlace {
    bool runs;
    int percent;
};
constexpr std::array kCutPlaces = {CutPlace{false, 0}, CutPlace{true, 0}, CutPlace{true, 50}};
/// Of a slip of three lines: the counter read and written, the print table emptied, two for each line.
constexpr int kBatchesOfASlip = 9;

/// Where a test has time for few, those in the middle of which the most is at stake.
bool IsOfTheShortOnes(int batch, const CutPlace& place) {
    constexpr int kBumpOfTheCounter = 1;
    constexpr int kFirstLine = 3;
    return (batch == kBumpOfTheCounter || batch == kFirstLine) && place.runs && place.percent == 0;
}

void CutEverywhere(TortureTable& table, const TortureSize& size) {
    ServedWard ward(size, Ward::Clock::time_point::max());
    int cuts = 0;
    for (int batch = 0; batch < kBatchesOfASlip; ++batch) {
        for (const CutPlace& place : kCutPlaces) {
            if (size.isShort && !IsOfTheShortOnes(batch, place))
                continue;
            ward.Cut(batch, place.runs, place.percent);
            ++cuts;
        }
    }
    ward.WorkOnceMore();
    table.Add(u"server cut in the middle of a save"_s, cuts);
    ward.TellIn(table, u"server cut"_s);
    for (const QString& failure : ward.Failures())
        table.Add(u"what the clerk then sees"_s, failure);
}

} // namespace

void TortureByKills(TortureTable& table, const TortureSize& size) {
    KillOnOneFile(table, size);
    constexpr std::chrono::milliseconds kShort(3500);
    constexpr int kWirePart = 5;
    ServedWard onTheWire(size, EndOf(size, kShort));
    onTheWire.Kill(size.times / kWirePart);
    onTheWire.WorkOnceMore();
    onTheWire.TellIn(table, u"over the wire"_s);
    CutEverywhere(table, size);
}
