#include "charges/commands.h"
#include "components/DepartmentCodes.h"
#include "hospital/HospitalScripts.h"
#include "support/hospital/ProgramFolder.h"
#include "torture/Commands.h"
#include "torture/Crowd.h"
#include "torture/EndWithTorture.h"
#include "torture/Marks.h"
#include "torture/Torture.h"
#include "torture/TortureTable.h"
#include "torture/WholeHospital.h"
#include "trial/HospitalFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLongWait = 3600000;
constexpr std::array kCrowds = {1, 2, 4, 8, 16};
constexpr std::array kShortCrowds = {1, 4};
constexpr int kShortSaves = 6;
/// The pace of a real department: one save a minute at each desk.
constexpr int kRealPause = 60;
constexpr int kRealSaves = 4;

const std::array<std::pair<QString, QString>, 3>& Users() {
    static const std::array<std::pair<QString, QString>, 3> users = {
        {{u"NURSE"_s, u"nurse"_s}, {u"CLERK"_s, u"clerk"_s}, {u"ADMIN"_s, u"admin"_s}}};
    return users;
}

/// Microseconds of one kind, as a crowd has taken them.
class Times {
  public:
    void Add(qint64 microseconds) { mTimes.push_back(microseconds); }
    double Milliseconds(double part) {
        if (mTimes.empty())
            return 0;
        std::ranges::sort(mTimes);
        return double(mTimes[std::min(mTimes.size() - 1, size_t(part * double(mTimes.size())))]) / 1000;
    }
    double MeanMilliseconds() const {
        return mTimes.empty() ? 0
                              : double(std::accumulate(mTimes.begin(), mTimes.end(), qint64(0))) /
                                    double(mTimes.size()) / 1000;
    }

  private:
    std::vector<qint64> mTimes;
};

/// What the journals tell of the saves: how long they took, and how long a counter's number was known before
/// it was taken.
struct Saves {
    int done = 0;
    int lost = 0;
    Times save;
    Times window;
    qint64 first = std::numeric_limits<qint64>::max();
    qint64 last = 0;

    void Take(const ReadJournal& journal);
    double Seconds() const { return double(last - first) / 1e6; }
    double LostPerThousand() const { return done + lost == 0 ? 0 : 1000.0 * lost / (done + lost); }
};

void Saves::Take(const ReadJournal& journal) {
    qint64 begin = 0;
    qint64 end = 0;
    const auto endSave = [&] {
        if (begin != 0)
            save.Add(end - begin);
        begin = 0;
    };
    for (const JournaledCommand& sent : journal.commands) {
        const SentCommand::Kind kind = TakeApart(sent.text).kind;
        if (kind == SentCommand::Kind::ReadSlip) {
            endSave();
            begin = sent.sent;
            first = std::min(first, begin);
        } else if (kind == SentCommand::Kind::TakeSlip) {
            window.Add(sent.ended - begin);
            done += sent.rowsAffected == 1 ? 1 : 0;
            lost += sent.rowsAffected == 0 ? 1 : 0;
            // What was lost is no save whose time counts.
            begin = sent.rowsAffected == 1 ? begin : 0;
        } else if (kind == SentCommand::Kind::Charge) {
            end = sent.ended;
            last = std::max(last, end);
        }
    }
    endSave();
}

/// So many desks at one hospital.
class Crowd {
  public:
    Crowd(int desks, const TortureSize& size, int pause);

    /// Lets them work, and looks at what they leave. Answers what is wrong.
    QStringList Work(int saves);
    Saves& Done() { return mSaves; }
    const QString& Seen() const { return mSeen; }

  private:
    void PrepareShared() const;
    void Start(int desk, int saves);
    /// Waits for a desk's word. Raises std::runtime_error where it says nothing more.
    static void Hear(QProcess& desk, const QByteArray& word);
    void LetGo();
    QStringList Leave();

    const int mCount;
    const TortureSize mSize;
    const int mPause;
    ProgramFolder mFolder;
    std::unique_ptr<WholeHospital> mHospital;
    std::vector<std::unique_ptr<QProcess>> mDesks;
    Saves mSaves;
    QString mSeen;
};

Crowd::Crowd(int desks, const TortureSize& size, int pause)
    : mCount(desks)
    , mSize(size)
    , mPause(pause) {
    PrepareShared();
    mHospital = std::make_unique<WholeHospital>(mFolder.HospitalPath());
    QDir().mkpath(mFolder.File(u"journals"_s));
}

void Crowd::PrepareShared() const {
    const auto hospital = HospitalFile::Open(mFolder.HospitalPath(), HospitalScripts());
    hospital->SetSessionUser(u"NURSE"_s);
    for (const FilledLine& line : SharedSlip::Lines()) {
        hospital->ExecuteNoResult(AppendChargingCommand({.hospitalNumber = SharedSlip::kHospNum,
                                                         .admissionNumber = SharedSlip::kIdNum,
                                                         .moment = u"11/21/2026 10:15:00 AM"_s,
                                                         .department = line.department,
                                                         .code = line.code,
                                                         .quantity = u"1"_s,
                                                         .slipNumber = SharedSlip::kNumber,
                                                         .amount = u"100"_s,
                                                         .userCode = u"NURSE"_s,
                                                         .room = u"P306"_s,
                                                         .requestingDoctorCode = {},
                                                         .admittingDoctorName = {},
                                                         .patientType = u"I"_s,
                                                         .particular = u"SHARED"_s}));
        hospital->ExecuteNoResult(AssessmentCommand({.number = SharedSlip::kAssessment,
                                                     .patientName = u"SHARED, ANA"_s,
                                                     .code = line.code,
                                                     .department = line.department,
                                                     .quantity = u"1"_s,
                                                     .amount = u"100"_s,
                                                     .userCode = u"NURSE"_s,
                                                     .hospitalNumber = {},
                                                     .visitNumber = {},
                                                     .requestingDoctorCode = {},
                                                     .requestingDoctorName = {}}));
    }
}

void Crowd::Start(int desk, int saves) {
    const auto& [user, password] = Users()[size_t(desk) % Users().size()];
    const CrowdDesk plan = {.folder = mFolder.Path(),
                            .journal = mFolder.File(u"journals/desk-%1"_s.arg(desk)),
                            .user = user,
                            .password = password,
                            .saves = saves,
                            .pause = mPause,
                            .seed = mSize.seed * 100 + unsigned(desk)};
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(mFolder.Environment());
    EndWithTorture(*process);
    process->start(QCoreApplication::applicationFilePath(), QStringList{u"crowd-desk"_s} + plan.Arguments());
    mDesks.push_back(std::move(process));
}

void Crowd::Hear(QProcess& desk, const QByteArray& word) {
    while (!desk.canReadLine()) {
        if (!desk.waitForReadyRead(kLongWait))
            throw std::runtime_error("a desk says nothing more: " +
                                     desk.readAllStandardError().toStdString());
    }
    if (desk.readLine().trimmed() != word)
        throw std::runtime_error("a desk says something else");
}

void Crowd::LetGo() {
    for (const auto& desk : mDesks) {
        desk->write("\n");
        desk->waitForBytesWritten(kLongWait);
    }
}

QStringList Crowd::Leave() {
    QStringList problems;
    for (const auto& desk : mDesks) {
        desk->waitForFinished(kLongWait);
        if (desk->exitStatus() == QProcess::CrashExit || desk->exitCode() != 0)
            problems << u"a desk has failed: "_s + QString::fromUtf8(desk->readAllStandardError()).trimmed();
    }
    return problems;
}

QStringList Crowd::Work(int saves) {
    for (int desk = 0; desk < mCount; ++desk) {
        Start(desk, saves);
        // One after the other: who signs on while others do waits for them.
        Hear(*mDesks.back(), "ready");
    }
    LetGo();
    for (const auto& desk : mDesks)
        Hear(*desk, "posted");
    LetGo();
    QStringList problems = Leave();
    const std::vector<ReadJournal> journals = JournalsIn(mFolder.File(u"journals"_s));
    for (const ReadJournal& journal : journals) {
        mSaves.Take(journal);
        if (const QString seen = journal.Mark(Mark::kFailure); !seen.isEmpty())
            mSeen = seen;
    }
    return problems + mHospital->Problems(journals);
}

QString Figure(double figure, int decimals = 1) {
    return QString::number(figure, 'f', decimals);
}

/// Runs a crowd and tells it in the table. Answers what a clerk has seen who lost.
QString Torture(TortureTable& table, const TortureSize& size, int desks, int pause, int saves) {
    const QString where =
        u"%1 desks%2"_s.arg(desks).arg(pause == 0 ? u", no pause"_s : u", a save a minute"_s);
    Crowd crowd(desks, size, pause);
    table.AddProblems(where, crowd.Work(saves));
    Saves& done = crowd.Done();
    table.Add(where + u": slips saved, lost"_s, u"%1, %2"_s.arg(done.done).arg(done.lost));
    table.Add(where + u": saves a second"_s, Figure(done.done / done.Seconds(), 2));
    table.Add(where + u": a save, median and 95th percentile, ms"_s,
              u"%1 %2"_s.arg(Figure(done.save.Milliseconds(0.5)), Figure(done.save.Milliseconds(0.95))));
    table.Add(
        where + u": from the counter's read to its write, median and 95th, ms"_s,
        u"%1 %2"_s.arg(Figure(done.window.Milliseconds(0.5), 2), Figure(done.window.Milliseconds(0.95), 2)));
    table.Add(where + u": saves lost of 1,000"_s, Figure(done.LostPerThousand()));
    if (pause != 0)
        table.Add(where + u": to be expected of 1,000 by the windows measured"_s,
                  Figure((desks - 1) * done.window.MeanMilliseconds() / pause, 2));
    return crowd.Seen();
}

} // namespace

QStringList CrowdDesk::Arguments() const {
    return {folder,
            journal,
            user,
            password,
            QString::number(saves),
            QString::number(pause),
            QString::number(seed)};
}

CrowdDesk CrowdDesk::In(const QStringList& arguments) {
    return {.folder = arguments.value(0),
            .journal = arguments.value(1),
            .user = arguments.value(2),
            .password = arguments.value(3),
            .saves = arguments.value(4).toInt(),
            .pause = arguments.value(5).toInt(),
            .seed = arguments.value(6).toUInt()};
}

std::vector<FilledLine> SharedSlip::Lines() {
    std::vector<FilledLine> lines;
    for (int number = 1; number <= 6; ++number)
        lines.push_back({Department::kEarCare, u"HC00%1"_s.arg(number)});
    for (int number = 1; number <= 4; ++number)
        lines.push_back({Department::kMedicines, u"M000%1"_s.arg(number)});
    return lines;
}

void TortureByCrowd(TortureTable& table, const TortureSize& size) {
    QString seen;
    const auto crowd = [&](int desks, int pause, int saves) {
        if (const QString now = Torture(table, size, desks, pause, saves); !now.isEmpty())
            seen = now;
    };
    if (size.desks != 0) {
        crowd(size.desks, 0, std::max(1, size.times / size.desks));
    } else if (size.isShort) {
        for (const int desks : kShortCrowds)
            crowd(desks, 0, kShortSaves);
    } else {
        for (const int desks : kCrowds)
            crowd(desks, 0, std::max(1, size.times / desks));
        for (const int desks : {4, 16})
            crowd(desks, kRealPause, kRealSaves);
    }
    if (!seen.isEmpty())
        table.Add(u"what the clerk sees who loses"_s, seen);
}
