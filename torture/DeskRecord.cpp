#include "torture/DeskRecord.h"

#include "nursing/commands.h"
#include "suite/RegisterSuite.h"
#include "support/hospital/ProgramFolder.h"
#include "support/tds/EngineSession.h"
#include "support/tds/TestDataSources.h"
#include "torture/Commands.h"
#include "torture/EndWithTorture.h"
#include "torture/Torture.h"
#include "workstation/ClerkKeys.h"
#include "workstation/KeyedProgram.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <mutex>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRecordPatience = 120000;
constexpr std::chrono::milliseconds kIdle(300);

struct NamedWork {
    DeskWork work;
    const char* name;
};
constexpr std::array kWorks = {NamedWork{DeskWork::Asking, "asking for requests"},
                               NamedWork{DeskWork::SignOn, "sign-on"},
                               NamedWork{DeskWork::Search, "search of a patient"},
                               NamedWork{DeskWork::Keying, "keying of ten lines"},
                               NamedWork{DeskWork::Save, "save and slip"},
                               NamedWork{DeskWork::List, "list of charges"},
                               NamedWork{DeskWork::Report, "report"}};

/// Tells the recorder what comes next, and waits until it knows.
void Begin(DeskWork work) {
    Tell(NameOf(work));
    std::fflush(stdout);
    std::getchar();
}

/// Two medicines, seven services, a doctor's fee.
void KeyTenLines(Driver& clerk) {
    constexpr int kLastEmptyLine = 8;
    clerk.TabTo(u"txtEntry"_s);
    // Department, code, quantity, price; a medicine has an amount of its own.
    for (int line = 1; line <= 2; ++line)
        Key(clerk, {u"hb"_s, u"M000%1"_s.arg(line), u"2"_s, QString(), QString()});
    for (int line = 3; line <= 9; ++line) {
        Key(clerk, {u"hc"_s, u"HC00%1"_s.arg(line - 2), u"1"_s, QString()});
        // The grid is given another line by one more Enter.
        if (line == kLastEmptyLine)
            clerk.Press(Qt::Key_Return);
    }
    Key(clerk, {u"md"_s, u"D003"_s, u"1500"_s});
}

void SaveSlip(Driver& clerk) {
    PressSave(clerk);
    clerk.ExpectScreen(u"frmReportviewer"_s);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmPostCharges"_s);
}

void ListCharges(Driver& clerk) {
    FindPatient(clerk, u"mnuListCharges"_s, u"de guz"_s);
    clerk.TabTo(u"cmdList"_s);
    clerk.Press(Qt::Key_Return);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmListCharges"_s);
}

void ViewReport(Driver& clerk) {
    clerk.ChooseMenu(u"mnuReportAudit"_s);
    clerk.ExpectFocus(u"dtpStartDate"_s);
    // A month, whose number is the first part of the date.
    clerk.Press(Qt::Key_Down);
    clerk.TabTo(u"cmdView"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmReportviewer"_s);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmReportviewer"_s);
}

void WorkTheRecordedShift(Driver& clerk) {
    SignOn(clerk);
    Begin(DeskWork::Search);
    FindPatient(clerk, u"mnuInTransactionEntry"_s, u"de guz"_s);
    Begin(DeskWork::Keying);
    KeyTenLines(clerk);
    Begin(DeskWork::Save);
    SaveSlip(clerk);
    Begin(DeskWork::List);
    ListCharges(clerk);
    Begin(DeskWork::Report);
    ViewReport(clerk);
    Begin(DeskWork::Asking);
    std::this_thread::sleep_for(kIdle);
}

/// Takes down what comes over the wire while a work goes on.
class Recorder {
  public:
    explicit Recorder(const QString& hospital)
        : mSessions(EngineSessions(hospital)) {}

    void Begin(DeskWork work) {
        const std::lock_guard lock(mMutex);
        mWork = work;
    }
    TdsResponder::Handler NewSession(const TdsLogin& login);
    const DeskRecord& Record() const { return mRecord; }

  private:
    void Take(int session, const QString& batch, const QByteArray& answer);
    /// The conversation of the work that goes on in which that session speaks.
    Conversation& Current(int session);

    TdsResponder::NewSession mSessions;
    std::mutex mMutex;
    DeskWork mWork = DeskWork::SignOn;
    int mCount = 0;
    int mSpeaking = -1;
    DeskWork mSpokenIn = DeskWork::SignOn;
    DeskRecord mRecord;
};

TdsResponder::Handler Recorder::NewSession(const TdsLogin& login) {
    const std::lock_guard lock(mMutex);
    return [this, session = mCount++, answered = mSessions(login)](const QString& batch, TdsAnswer& answer) {
        answered(batch, answer);
        Take(session, batch, answer.Whole());
    };
}

Conversation& Recorder::Current(int session) {
    std::vector<Conversation>& conversations = mRecord.works[mWork];
    if (conversations.empty() || session != mSpeaking || mWork != mSpokenIn)
        conversations.push_back({.isApart = session != 0, .commands = {}});
    mSpeaking = session;
    mSpokenIn = mWork;
    return conversations.back();
}

void Recorder::Take(int session, const QString& batch, const QByteArray& answer) {
    const std::lock_guard lock(mMutex);
    mRecord.answers[batch] = answer;
    if (batch == CheckPendingCommand()) {
        mRecord.works[DeskWork::Asking] = {{.isApart = false, .commands = {batch}}};
        mRecord.workOf[batch] = DeskWork::Asking;
        return;
    }
    Current(session).commands << batch;
    if (!mRecord.workOf.contains(batch))
        mRecord.workOf[batch] = mWork;
}

/// The program in a process of its own, as its clerk works.
void LetWork(const ProgramFolder& folder, Recorder& recorder) {
    QProcess desk;
    desk.setProcessEnvironment(folder.Environment());
    EndWithTorture(desk);
    desk.start(QCoreApplication::applicationFilePath(), {u"desk-shift"_s, folder.Path()});
    while (desk.waitForReadyRead(kRecordPatience) || desk.canReadLine()) {
        while (desk.canReadLine()) {
            const QString word = QString::fromUtf8(desk.readLine()).trimmed();
            for (const NamedWork& named : kWorks) {
                if (word != QLatin1String(named.name))
                    continue;
                recorder.Begin(named.work);
                desk.write("\n");
            }
        }
    }
    desk.waitForFinished(kRecordPatience);
    if (desk.exitStatus() != QProcess::NormalExit || desk.exitCode() != 0)
        throw std::runtime_error("the recorded desk has failed: " +
                                 desk.readAllStandardError().toStdString());
}

void RequireTenLines(const DeskRecord& record) {
    constexpr int kLines = 10;
    const QStringList texts = record.answers.keys();
    const auto isPosted = [](const QString& text) {
        return TakeApart(text).kind == SentCommand::Kind::Charge;
    };
    if (std::ranges::count_if(texts, isPosted) != kLines)
        throw std::runtime_error("the recorded slip has not the lines that were keyed");
}

} // namespace

QString NameOf(DeskWork work) {
    for (const NamedWork& named : kWorks) {
        if (named.work == work)
            return QString::fromLatin1(named.name);
    }
    return {};
}

DeskRecord RecordDesk() {
    const ProgramFolder folder;
    Recorder recorder(folder.HospitalPath());
    TdsResponder server([&recorder](const TdsLogin& login) { return recorder.NewSession(login); });
    const QString name = TestDataSources::Instance().Add(server.Port(), u"Hospital"_s);
    QDir().mkpath(folder.File(u"TARVEN"_s));
    folder.Write(u"TARVEN/Hemodialysis.ini"_s, u"[General]\nDataSource=%1\n"_s.arg(name).toUtf8());
    LetWork(folder, recorder);
    server.Close();
    RequireTenLines(recorder.Record());
    return recorder.Record();
}

int RunDeskShift(const QStringList& arguments) {
    const QString folder = arguments.value(0);
    return RunKeyedProgram(
        folder, [&] { RegisterSuite(folder + u"/data"_s); }, WorkTheRecordedShift);
}
