#include "charges/commands.h"
#include "odbc/OdbcGateway.h"
#include "support/tds/TestDataSources.h"
#include "text/RunTimeError.h"
#include "torture/DeskPlan.h"
#include "torture/DeskServer.h"
#include "torture/Torture.h"
#include "torture/TortureTable.h"

#include <QRegularExpression>

#include <algorithm>
#include <atomic>
#include <latch>
#include <optional>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;
using Time = DeskPace::Time;

constexpr int kMostDesks = 200;
constexpr int kReckonedDesks = 1000;
constexpr Time kMeasured = std::chrono::seconds(50);
constexpr Time kMeasuredOfMost = std::chrono::seconds(120);
constexpr Time kMeasuredOfSlow = std::chrono::seconds(35);
/// What a net and a server that have to work may need.
constexpr std::chrono::milliseconds kSlowAnswer(10);
constexpr int kShortDesks = 12;
constexpr Time kMeasuredShort = std::chrono::milliseconds(1500);
/// So that all that a desk does comes in a second and a half.
constexpr double kShortHurry = 120;

/// What the desks of one run have in common.
struct DeskRun {
    const DeskRecord& record;
    QString source;
    std::latch signedOn;
    std::latch mayBegin{1};
    Clock::time_point begin;
};

/// One desk: a connection of its own, and the commands of its plan at their moments.
class ReplayedDesk {
  public:
    ReplayedDesk(DeskRun& run, int number, std::vector<DeskDeed> plan)
        : mRun(run)
        , mUser(u"DESK%1"_s.arg(number))
        , mPlan(std::move(plan)) {}

    /// Signs on, waits for the others, and works through the plan; in a thread of its own.
    void Work();

    const QString& Failure() const { return mFailure; }
    /// Microseconds from each command to the end of its answer.
    const std::map<DeskWork, std::vector<double>>& Answers() const { return mAnswers; }
    /// Numbers that another desk took first.
    int Lost() const { return mLost; }
    /// By how much the latest question came too late.
    Time Latest() const { return mLatest; }
    /// What the server has to have got, by DeskServer's keys.
    void Foretell(QHash<QString, qint64>& texts) const;

  private:
    std::unique_ptr<OdbcGateway> Connect() const;
    void SignOn();
    void Do(const DeskDeed& deed);
    void Say(OdbcGateway& gateway, DeskWork work, const Conversation& said);
    void Send(OdbcGateway& gateway, DeskWork work, const QString& command);
    /// Takes a number from the counter as the charge screen does, and once more where another desk was
    /// faster; the clerk of a real one has to start the program again.
    void TakeNumber(OdbcGateway& gateway, DeskWork work);
    bool TryToTakeNumber(OdbcGateway& gateway, DeskWork work);
    template <class Step> void Measure(DeskWork work, const Step& step);

    DeskRun& mRun;
    QString mUser;
    std::vector<DeskDeed> mPlan;
    std::unique_ptr<OdbcGateway> mGateway;
    QString mFailure;
    std::map<DeskWork, std::vector<double>> mAnswers;
    int mLost = 0;
    Time mLatest{};
};

std::unique_ptr<OdbcGateway> ReplayedDesk::Connect() const {
    return std::make_unique<OdbcGateway>(mRun.source, mUser, u"p"_s);
}

template <class Step> void ReplayedDesk::Measure(DeskWork work, const Step& step) {
    const auto begin = Clock::now();
    step();
    mAnswers[work].push_back(std::chrono::duration<double, std::micro>(Clock::now() - begin).count());
}

bool ReplayedDesk::TryToTakeNumber(OdbcGateway& gateway, DeskWork work) {
    RowSet counter;
    Measure(work, [&] {
        counter = gateway.Open(ChargeSlipCounterCommand(), CursorType::Dynamic, LockType::Optimistic);
    });
    counter.SetField(u"ChargeSlip", counter.Fields(u"ChargeSlip").ToInteger() + 1);
    try {
        Measure(work, [&] { counter.Update(); });
        return true;
    } catch (const RunTimeError& error) {
        if (error.Number() != RunTime::kRowChanged)
            throw;
        return false;
    }
}

void ReplayedDesk::TakeNumber(OdbcGateway& gateway, DeskWork work) {
    while (!TryToTakeNumber(gateway, work))
        ++mLost;
}

void ReplayedDesk::Send(OdbcGateway& gateway, DeskWork work, const QString& command) {
    static const QRegularExpression use(u"^USE \\[(.*)\\]$"_s);
    if (command == ChargeSlipCounterCommand())
        TakeNumber(gateway, work);
    else if (const auto database = use.match(command); database.hasMatch())
        gateway.SetDefaultDatabase(database.captured(1));
    else if (DeskServer::KeyOf(command) == command)
        Measure(work, [&] { gateway.Execute(command); });
}

void ReplayedDesk::Say(OdbcGateway& gateway, DeskWork work, const Conversation& said) {
    for (const QString& command : said.commands)
        Send(gateway, mRun.record.workOf.value(command, work), command);
}

void ReplayedDesk::SignOn() {
    mGateway = Connect();
    for (const Conversation& said : mRun.record.works.at(DeskWork::SignOn))
        Say(*mGateway, DeskWork::SignOn, said);
}

void ReplayedDesk::Do(const DeskDeed& deed) {
    const auto due = mRun.begin + std::chrono::duration_cast<Clock::duration>(deed.moment);
    std::this_thread::sleep_until(due);
    if (deed.work == DeskWork::Asking)
        mLatest = std::max<Time>(mLatest, Clock::now() - due);
    if (deed.said.isApart)
        Say(*Connect(), deed.work, deed.said);
    else
        Say(*mGateway, deed.work, deed.said);
}

void ReplayedDesk::Work() {
    try {
        SignOn();
    } catch (const RunTimeError& error) {
        mFailure = error.Description();
    }
    mRun.signedOn.count_down();
    mRun.mayBegin.wait();
    try {
        for (const DeskDeed& deed : mPlan)
            Do(deed);
    } catch (const RunTimeError& error) {
        mFailure = error.Description();
    }
}

void ReplayedDesk::Foretell(QHash<QString, qint64>& texts) const {
    for (const DeskDeed& deed : mPlan) {
        for (const QString& command : deed.said.commands)
            ++texts[DeskServer::KeyOf(command)];
    }
    if (mLost == 0)
        return;
    texts[ChargeSlipCounterCommand()] += mLost;
    texts[DeskServer::KeyOf(u"UPDATE x SET ChargeSlip=2 WHERE ChargeSlip=1"_s)] += mLost;
}

QString Decimals(double figure, int decimals) {
    return QString::number(figure, 'f', decimals);
}

/// The median and the 95th percentile, in milliseconds.
QString MedianAnd95th(std::vector<double> microseconds) {
    if (microseconds.empty())
        return u"-"_s;
    std::ranges::sort(microseconds);
    const auto part = [&microseconds](double share) {
        const auto at = size_t(share * double(microseconds.size()));
        return Decimals(microseconds[std::min(at, microseconds.size() - 1)] / 1000, 2);
    };
    return part(0.5) + u' ' + part(0.95);
}

/// Who has signed on sends nothing of a sign-on any more but what a report's connection begins with.
QString NameAmongDesks(DeskWork work) {
    return work == DeskWork::SignOn ? u"database of a report's connection"_s : NameOf(work);
}

/// How many desks work for how long, at a server that needs so much longer for each answer.
struct DeskDay {
    int desks = 0;
    Time length{};
    std::chrono::milliseconds delay{};
    DeskPace pace{};

    QString Name() const;
};

QString DeskDay::Name() const {
    return u"%1 desks"_s.arg(desks) +
           (delay.count() == 0 ? QString() : u", each answer %1 ms later"_s.arg(delay.count()));
}

/// So many desks for some time, and what is told of them.
class DeskCrowd {
  public:
    DeskCrowd(const DeskRecord& record, const DeskDay& day, unsigned seed);

    void Work();
    QStringList Problems();
    void TellIn(TortureTable& table, const QString& where) const;
    /// What that many desks would ask for, in the proportion of these.
    void Reckon(TortureTable& table, int desks) const;

  private:
    QStringList DifferingCounts() const;
    DeskServer::Traffic All() const;
    /// How long the commands of a kind took, or all but those of the sign-on.
    std::vector<double> AnswersTo(std::optional<DeskWork> kind) const;
    QString OneKind(DeskWork work, const DeskServer::Traffic& traffic) const;

    const DeskDay mDay;
    DeskServer mServer;
    DeskRun mRun;
    std::vector<std::unique_ptr<ReplayedDesk>> mDesks;
};

DeskCrowd::DeskCrowd(const DeskRecord& record, const DeskDay& day, unsigned seed)
    : mDay(day)
    , mServer(record, day.delay)
    , mRun{.record = record,
           .source = TestDataSources::Instance().Add(mServer.Port()),
           .signedOn = std::latch(day.desks),
           .begin = {}} {
    constexpr unsigned kSeedsOfARun = 10000;
    for (int number = 1; number <= day.desks; ++number) {
        const unsigned own = seed * kSeedsOfARun + unsigned(number);
        mDesks.push_back(
            std::make_unique<ReplayedDesk>(mRun, number, PlanDesk(record, day.pace, day.length, own)));
    }
}

void DeskCrowd::Work() {
    std::vector<std::jthread> threads;
    for (const auto& desk : mDesks)
        threads.emplace_back([&desk] { desk->Work(); });
    mRun.signedOn.wait();
    mServer.BeginToCount();
    mRun.begin = Clock::now();
    mRun.mayBegin.count_down();
    threads.clear();
    mServer.Close();
}

QStringList DeskCrowd::DifferingCounts() const {
    QHash<QString, qint64> foretold;
    for (const auto& desk : mDesks)
        desk->Foretell(foretold);
    QStringList problems;
    for (auto text = foretold.begin(); text != foretold.end(); ++text) {
        if (const qint64 came = mServer.ByText().value(text.key()); came != text.value())
            problems << u"%1 came %2 times, not %3"_s.arg(text.key()).arg(came).arg(text.value());
    }
    for (auto text = mServer.ByText().begin(); text != mServer.ByText().end(); ++text) {
        if (!foretold.contains(text.key()))
            problems << text.key() + u" came, and nobody meant to send it"_s;
    }
    return problems;
}

QStringList DeskCrowd::Problems() {
    QStringList problems = mServer.TakeProblems() + DifferingCounts();
    for (const auto& desk : mDesks) {
        if (!desk->Failure().isEmpty())
            problems << u"a desk has failed: "_s + desk->Failure();
        else if (!desk->Answers().contains(DeskWork::Asking))
            problems << u"a desk was never answered"_s;
    }
    return problems;
}

DeskServer::Traffic DeskCrowd::All() const {
    DeskServer::Traffic all = mServer.Logons();
    // A logon is no command.
    all.exchanges = 0;
    for (const auto& [work, traffic] : mServer.ByWork()) {
        all.exchanges += traffic.exchanges;
        all.received += traffic.received;
        all.sent += traffic.sent;
    }
    return all;
}

std::vector<double> DeskCrowd::AnswersTo(std::optional<DeskWork> kind) const {
    std::vector<double> answers;
    for (const auto& desk : mDesks) {
        for (const auto& [work, times] : desk->Answers()) {
            if (kind ? work == *kind : work != DeskWork::SignOn)
                answers.insert(answers.end(), times.begin(), times.end());
        }
    }
    return answers;
}

QString DeskCrowd::OneKind(DeskWork work, const DeskServer::Traffic& traffic) const {
    const auto count = double(traffic.exchanges);
    return u"%1; %2 %3; %4"_s.arg(Decimals(count / mDay.length.count(), 2),
                                  Decimals(double(traffic.received) / count, 0),
                                  Decimals(double(traffic.sent) / count, 0),
                                  work == DeskWork::SignOn ? u"-"_s : MedianAnd95th(AnswersTo(work)));
}

void DeskCrowd::TellIn(TortureTable& table, const QString& where) const {
    const double seconds = mDay.length.count();
    const auto add = [&](const QString& what, const QString& figure) {
        table.Add(where + u": "_s + what, figure);
    };
    const DeskServer::Traffic all = All();
    add(u"commands a second"_s, Decimals(double(all.exchanges) / seconds, 1));
    add(u"by kind"_s, u"commands a second; bytes of one, to the server and back; ms"_s);
    for (const auto& [work, traffic] : mServer.ByWork())
        add(u"  "_s + NameAmongDesks(work), OneKind(work, traffic));
    add(u"kB/s to the server, from it"_s, Decimals(double(all.received) / seconds / 1000, 1) + u' ' +
                                              Decimals(double(all.sent) / seconds / 1000, 1));
    add(u"connections that stand; others opened a second"_s,
        u"%1 %2"_s.arg(mDesks.size()).arg(Decimals(double(mServer.Logons().exchanges) / seconds, 2)));
    add(u"answer to any command, median and 95th percentile, ms"_s, MedianAnd95th(AnswersTo(std::nullopt)));
    add(u"responder's processor, of one core, %"_s,
        Decimals(double(mServer.ProcessorTime()) / seconds / 1e7, 1));
    const auto isBehind = [this](const auto& desk) { return desk->Latest() > mDay.pace.asking; };
    add(u"desks that fell behind by a question"_s, QString::number(std::ranges::count_if(mDesks, isBehind)));
    int lost = 0;
    for (const auto& desk : mDesks)
        lost += desk->Lost();
    add(u"slips saved, numbers lost to another desk"_s,
        u"%1 %2"_s.arg(mServer.ByText().value(ClearChargePrintCommand())).arg(lost));
    add(u"slips read for printing, of them with another desk's lines or not whole"_s,
        u"%1 %2"_s.arg(mServer.SlipsRead()).arg(mServer.SlipsSpoilt()));
}

void DeskCrowd::Reckon(TortureTable& table, int desks) const {
    const DeskServer::Traffic all = All();
    const double share = double(desks) / double(mDesks.size()) / mDay.length.count();
    const QString where = u"%1 desks, reckoned: "_s.arg(desks);
    table.Add(where + u"commands a second"_s, Decimals(double(all.exchanges) * share, 0));
    table.Add(where + u"kB/s to the server, from it"_s, Decimals(double(all.received) * share / 1000, 0) +
                                                            u' ' +
                                                            Decimals(double(all.sent) * share / 1000, 0));
    table.Add(where + u"connections that stand; others opened a second"_s,
              u"%1 %2"_s.arg(desks).arg(Decimals(double(mServer.Logons().exchanges) * share, 1)));
    table.Add(where + u"responder's processor, of one core, %"_s,
              Decimals(double(mServer.ProcessorTime()) * share / 1e7, 0));
}

/// What is called, or the first words of a statement.
QString CalledIn(const QString& command) {
    static const QRegularExpression called(u"^(?:select|delete|use|update)\\b.*?(?=\\swhere|$)|^\\S+"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    return called.match(command).captured();
}

void TellRecord(TortureTable& table, const DeskRecord& record) {
    for (const auto& [work, conversations] : record.works) {
        int commands = 0;
        int apart = 0;
        std::map<QString, int> called;
        for (const Conversation& said : conversations) {
            apart += said.isApart ? 1 : 0;
            for (const QString& command : said.commands) {
                ++called[CalledIn(command)];
                ++commands;
            }
        }
        table.Add(u"one "_s + NameOf(work) + u": commands, connections of its own"_s,
                  u"%1 %2"_s.arg(commands).arg(apart));
        for (const auto& [text, count] : called)
            table.Add(u"  "_s + text, count);
    }
}

void TellDesks(TortureTable& table, const DeskRecord& record, const DeskDay& day, unsigned seed) {
    DeskCrowd crowd(record, day, seed);
    crowd.Work();
    table.AddProblems(day.Name(), crowd.Problems());
    crowd.TellIn(table, day.Name());
    if (day.desks == kMostDesks && day.delay.count() == 0)
        crowd.Reckon(table, kReckonedDesks);
}

std::vector<DeskDay> DaysOf(const TortureSize& size) {
    if (size.isShort)
        return {{.desks = size.desks == 0 ? kShortDesks : size.desks,
                 .length = kMeasuredShort,
                 .pace = DeskPace().Hurried(kShortHurry)}};
    if (size.desks != 0)
        return {{.desks = size.desks, .length = kMeasured}};
    return {{.desks = 1, .length = kMeasured},
            {.desks = 10, .length = kMeasured},
            {.desks = 100, .length = kMeasured},
            {.desks = kMostDesks, .length = kMeasuredOfMost},
            {.desks = kMostDesks, .length = kMeasuredOfSlow, .delay = kSlowAnswer}};
}

} // namespace

void TortureByDesks(TortureTable& table, const TortureSize& size) {
    const DeskRecord record = RecordDesk();
    TellRecord(table, record);
    for (const DeskDay& day : DaysOf(size))
        TellDesks(table, record, day, size.seed);
}
