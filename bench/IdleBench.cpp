#include "Benches.h"
#include "BenchSession.h"
#include "BenchTable.h"
#include "driver/Driver.h"
#include "driver/SignOn.h"
#include "GiveUp.h"
#include "hospital/HospitalScripts.h"
#include "shell/Main.h"
#include "toolkit/Application.h"
#include "toolkit/ProgramFiles.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalFile.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds kIdle{60};
/// The line types a letter twenty times a second; the question and the flash, four times each, ought to fall
/// together with it.
constexpr double kWakeUps = 30;
constexpr int kTicks = 10000;
constexpr int kWarmUp = 1000;
/// The requests come at moments that are spread over the quarter of a second between two questions.
constexpr int kRequests = 15;
constexpr std::chrono::milliseconds kLater{17};

/// The processor time of the whole process so far, in seconds.
double ProcessorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

/// How often the user interface's thread has slept until something woke it.
double Sleeps() {
    return ProcessFigure("\nvoluntary_ctxt_switches:");
}

/// Every timer of the strip elapses that often, faster than by the clock, painting included.
void Tick(int times) {
    const auto timers = VisibleControl(u"frmMain"_s).findChildren<QTimer*>();
    for (int tick = 0; tick < times; ++tick) {
        for (QTimer* timer : timers) {
            if (timer->isActive())
                QMetaObject::invokeMethod(timer, "timeout");
        }
        QCoreApplication::processEvents();
    }
}

/// From a ward's request, entered over the ward's own connection, to the strip on the screen, in seconds; the
/// median. The last one goes on waiting.
double SecondsToTheStrip(Driver& clerk) {
    const auto ward = HospitalFile::Open(ProgramDirectory() + u"/trial-hospital.db"_s, HospitalScripts());
    std::vector<double> times;
    for (int request = 0; request < kRequests; ++request) {
        ward->ExecuteNoResult(u"UPDATE RADIOLOGY..tbNurseRequest SET Status = 'X' WHERE Status = 'P'"_s);
        clerk.ExpectNoScreen(u"Picture1"_s);
        std::this_thread::sleep_for(kLater * request);
        const auto start = std::chrono::steady_clock::now();
        ward->ExecuteNoResult(
            u"INSERT INTO RADIOLOGY..tbNurseRequest (RequestDate, DeptCode, HospNum, IdNum, StationID, "
            "DoctorID, RequestedBy, RevenueID, ItemID, Quantity) VALUES (GETDATE(), 'HC', '100089', "
            "'700132', '2W', 'D023', 'LIWANAG, ISABEL RN', 'HC', 'HC018', 1)"_s);
        clerk.ExpectScreen(u"Picture1"_s);
        times.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return Median(times);
}

void StayIdle(Driver& clerk) {
    SignOn(clerk);
    // The trial hospital has requests that wait.
    clerk.ExpectScreen(u"pctPending"_s);
    const double strip = SecondsToTheStrip(clerk);
    const double before = ProcessorSeconds();
    const double slept = Sleeps();
    std::this_thread::sleep_for(kIdle);
    const double used = ProcessorSeconds() - before;
    const double woken = Sleeps() - slept;
    clerk.OnScreen([used, woken, strip] {
        Tick(kWarmUp);
        const double held = CurrentMegabytes();
        Tick(kTicks);
        std::printf("%f %f %f %f\n", used, woken, CurrentMegabytes() - held, strip);
    });
}

} // namespace

int ShowIdleProgram(int& argumentCount, char** arguments) {
    const Application application(argumentCount, arguments);
    const QTemporaryDir folder;
    SetUpProgram(folder.path());
    Driver clerk;
    QTimer::singleShot(0, &application, Main);
    clerk.Start(StayIdle, [](const QString& failure) {
        std::fputs(qPrintable(failure), stderr);
        QCoreApplication::exit(failure.isEmpty() ? 0 : 1);
    });
    return Application::exec();
}

void BenchIdle(BenchTable& table, const char* program) {
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QString::fromLocal8Bit(program), {u"--idle"_s});
    if (!child.waitForFinished(10 * 60 * 1000) || child.exitStatus() != QProcess::NormalExit ||
        child.exitCode() != 0)
        GiveUp(u"the idle program failed"_s);
    const QList<QByteArray> figures = child.readAllStandardOutput().trimmed().split(' ');
    if (figures.size() != 4)
        GiveUp(u"the idle program did not tell its figures"_s);
    table.AddLimit(u"the idle program with requests pending, %1 s, of one core"_s.arg(kIdle.count()),
                   figures.value(0).toDouble() / double(kIdle.count()) * 100, 0.5, u"%"_s);
    table.AddLimit(u"how often it wakes in a second"_s, figures.value(1).toDouble() / double(kIdle.count()),
                   kWakeUps, u""_s);
    table.AddLimit(u"memory that %1 ticks of the monitor leave"_s.arg(kTicks), figures.value(2).toDouble(),
                   0.5, u"MB"_s);
    table.AddLimit(u"from a ward's request to the strip, median of %1"_s.arg(kRequests),
                   figures.value(3).toDouble(), 0.5, u"s"_s);
}
