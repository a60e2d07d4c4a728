#include "Benches.h"
#include "BenchSession.h"
#include "BenchTable.h"
#include "components/shared.h"
#include "GiveUp.h"
#include "hospital/HospitalScripts.h"
#include "RecordedStatements.h"
#include "trial/HospitalEngine.h"
#include "trial/HospitalFile.h"
#include "trial/sqlite/SqliteStatement.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTexts = 200;
constexpr int kCalls = 20;
constexpr int kSteps = 10;
constexpr int kCommandsUntraced = 2000;

/// One command of the day, whose text is another each time.
struct MeasuredText {
    QString label;
    std::function<QString(int number)> text;
};

void ReadRow(sqlite3_stmt* statement) {
    QStringList row;
    for (int i = 0; i < sqlite3_column_count(statement); ++i)
        row << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)),
                                 sqlite3_column_bytes(statement, i));
}

/// What a text costs whoever speaks to SQLite itself: prepare, read what comes, throw away.
void RunAndRead(SqliteDatabase& database, const QByteArray& sql) {
    sqlite3_stmt* statement = nullptr;
    int outcome =
        sqlite3_prepare_v2(database.Handle(), sql.constData(), int(sql.size()), &statement, nullptr);
    while (outcome == SQLITE_OK || outcome == SQLITE_ROW) {
        outcome = sqlite3_step(statement);
        if (outcome == SQLITE_ROW)
            ReadRow(statement);
    }
    sqlite3_finalize(statement);
    if (outcome != SQLITE_DONE)
        GiveUp(QString::fromUtf8(sqlite3_errmsg(database.Handle())));
}

/// Statements that are prepared once, as whoever speaks to SQLite itself would keep them.
class BareSteps {
  public:
    BareSteps(SqliteDatabase& database, const std::vector<QByteArray>& statements) {
        for (const QByteArray& sql : statements)
            mSteps.emplace_back(database, QString::fromUtf8(sql), true);
    }

    void Run() {
        for (SqliteStatement& step : mSteps) {
            const StatementRun run(step);
            while (step.Step())
                ReadRow(step.Handle());
        }
    }

  private:
    std::vector<SqliteStatement> mSteps;
};

/// Command texts with other literals each time. They are composed before the clock starts.
class NewTexts {
  public:
    NewTexts(int count, std::function<QString(int number)> text)
        : mCount(count)
        , mText(std::move(text)) {}

    void Compose() {
        mTexts.clear();
        for (int i = 0; i < mCount; ++i)
            mTexts << mText(mNext++);
    }
    void SendEach(const std::function<void(const QString& text)>& send) const {
        for (const QString& text : mTexts)
            send(text);
    }
    void SendTo(EmbeddedGateway& gateway) const {
        SendEach([&gateway](const QString& text) { gateway.Execute(text); });
    }

  private:
    int mCount;
    std::function<QString(int number)> mText;
    QStringList mTexts;
    int mNext = 0;
};

void AddRatio(BenchTable& table, const QString& label, double promised, NewTexts& texts,
              const std::function<void()>& ours, const std::function<void()>& bare) {
    const auto timed = [&texts](const std::function<void()>& run) -> TimedRun {
        return [&texts, &run] {
            texts.Compose();
            return Milliseconds(run);
        };
    };
    table.Add(label, InTurns(timed(ours), timed(bare)), u"ms"_s, promised);
}

/// A number of as many digits as the hospital's, and a name of another length than the one before.
QString NumberOf(int number) {
    return QString::number(700000 + number % 300);
}
QString NameOf(int number) {
    static const QStringList kNames = {u"CRUZ"_s,     u"DELA"_s, u"MACAPAGAL"_s, u"REYES"_s,
                                       u"BAUTISTA"_s, u"ONG"_s,  u"LIM"_s,       u"VILLANUEVA"_s};
    return kNames[number % kNames.size()] + QString::number(number);
}

std::vector<MeasuredText> DayTexts() {
    return {
        {u"an in-patient by his number"_s,
         [](int number) {
             return u"SELECT m.HospNum, m.LastName, m.FirstName, m.MiddleName, m.Sex, m.BirthDate, p.IdNum, "
                    "p.RoomID, r.RoomClassID, s.Station FROM PATIENT_DATA..tbpatient AS p INNER JOIN "
                    "PATIENT_DATA..tbmaster AS m ON m.HospNum = p.HospNum LEFT JOIN build_file..tbCoRoom AS "
                    "r ON r.RoomID = p.RoomID LEFT JOIN build_file..tbCoStation AS s ON s.StationID = "
                    "r.StationID WHERE p.IdNum = '"_s +
                    NumberOf(number) + u'\'';
         }},
        {u"a patient by his number"_s,
         [](int number) {
             return u"SELECT HospNum, LastName, FirstName, MiddleName, Sex, BirthDate, AccountNum FROM "
                    "PATIENT_DATA..tbmaster WHERE HospNum = '"_s +
                    QString::number(100000 + number) + u'\'';
         }},
        {u"patients by the beginning of a name"_s,
         [](int number) {
             const QString name = NameOf(number);
             return u"SELECT TOP 20 HospNum, LastName, FirstName FROM PATIENT_DATA..tbmaster WHERE LastName >= '"_s +
                    name + u"' AND LastName <= '"_s + name + u"ZZZ' AND Sex = 'F' ORDER BY LastName"_s;
         }},
        {u"an assessment's lines"_s,
         [](int number) {
             return u"SELECT AssessNum, RefNum, Revenueid FROM BILLING..tbCashAssessment WHERE RefNum = '"_s +
                    QString::number(5000 + number) + u'\'';
         }},
    };
}

/// A procedure of ten statements. They read, since with those that write it is the disk that is measured.
Script TenSteps() {
    const QString step =
        u"SELECT HospNum, LastName, FirstName FROM PATIENT_DATA..tbmaster WHERE HospNum = @Number;\n"_s;
    return {u"procedures/Clinical_Area/ten.sql"_s,
            u"USE Clinical_Area;\nGO\nCREATE PROCEDURE dbo.spTenSteps @Number varchar(10) AS BEGIN\n"_s +
                step.repeated(kSteps) + u"END\nGO\n"_s};
}

/// The statements that reach the database while something is done.
std::vector<QByteArray> Recorded(const BenchSession& session, const std::function<void()>& work) {
    const RecordedStatements recorded(session.Gateway().Engine().Database());
    work();
    return recorded.Statements();
}

void MeasureText(BenchTable& table, const BenchSession& session, const MeasuredText& measured) {
    NewTexts texts(kTexts, measured.text);
    const auto send = [&] { texts.SendTo(session.Gateway()); };
    texts.Compose();
    const std::vector<QByteArray> statements = Recorded(session, send);
    AddRatio(table, u"%1 new texts: %2"_s.arg(kTexts).arg(measured.label), 1.3, texts, send, [&] {
        for (const QByteArray& sql : statements)
            RunAndRead(session.Gateway().Engine().Database(), sql);
    });
}

void MeasureProcedure(BenchTable& table, const BenchSession& session) {
    // The same patient on both roads, since one who stands elsewhere in the index costs another time.
    const QString call = u"Clinical_Area..spTenSteps '100085'"_s;
    NewTexts texts(kCalls, [&call](int) { return QString(call); });
    EmbeddedGateway& gateway = session.Gateway();
    const auto once = [&] { gateway.Execute(call); };
    BareSteps bare(gateway.Engine().Database(), Recorded(session, once));
    AddRatio(
        table, u"%1 calls of a procedure of ten statements"_s.arg(kCalls), 1.2, texts,
        [&] { texts.SendTo(gateway); },
        [&] {
            for (int i = 0; i < kCalls; ++i)
                bare.Run();
        });
}

/// A gateway whose commands can be run without a look whether somebody traces them.
class UnaskedGateway : public EmbeddedGateway {
  public:
    using EmbeddedGateway::EmbeddedGateway;
    void RunUnasked(const QString& command) { Run(command); }
};

void MeasureTraceWhenOff(BenchTable& table, const QString& hospital) {
    UnaskedGateway gateway(hospital, EmbeddedGateway::Access::Reading);
    NewTexts texts(kCommandsUntraced, [](int number) {
        return u"SELECT LastName FROM PATIENT_DATA..tbmaster WHERE HospNum = '%1'"_s.arg(NumberOf(number));
    });
    AddRatio(
        table, u"%1 commands that nobody traces; bare: none asks for a trace"_s.arg(kCommandsUntraced), 1.02,
        texts, [&] { texts.SendEach([&](const QString& text) { gateway.ExecuteNoResult(text); }); },
        [&] { texts.SendEach([&](const QString& text) { gateway.RunUnasked(text); }); });
}

} // namespace

void BenchStatements(BenchTable& table) {
    const QTemporaryDir folder;
    std::vector<Script> scripts = HospitalScripts();
    scripts.push_back(TenSteps());
    const QString path = folder.filePath(u"statements.db"_s);
    HospitalFile::Create(path, scripts);
    const auto session = SignOnTo(path);
    for (const MeasuredText& measured : DayTexts())
        MeasureText(table, *session, measured);
    MeasureProcedure(table, *session);
    MeasureTraceWhenOff(table, path);
    gConnection = nullptr;
    gCurrentUser = {};
}
