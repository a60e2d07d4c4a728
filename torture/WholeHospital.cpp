#include "torture/WholeHospital.h"

#include "support/hospital/FreshHospital.h"
#include "torture/Commands.h"
#include "trial/EmbeddedGateway.h"
#include "trial/sqlite/SqliteDatabase.h"

#include <QFile>
#include <QTemporaryDir>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

using Kind = SentCommand::Kind;

const QString kSlips = u"the slip counter"_s;
const QString kAssessments = u"the assessment counter"_s;
const QString kWalkIns = u"the walk-in counter"_s;

const QMap<QString, QString> kCounterCommands = {
    {kSlips, u"SELECT ChargeSlip FROM Clinical_Area..tbEarCareChargeSlip"_s},
    {kAssessments, u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum"_s},
    {kWalkIns, u"SELECT WalkInNum FROM PATIENT_DATA..tbWalkInNum"_s}};

/// How often something may be in the hospital: as often as it was answered, and once more for each time that
/// nobody knows.
struct Expected {
    int answered = 0;
    int open = 0;
};

/// Money as a key, whichever way it was written.
QString Money(const QString& text) {
    return QString::number(text.toDouble(), 'f', 4);
}

/// What tells a line from others: its arguments by their places, the one with that place as money.
QString KeyOf(const QStringList& arguments, const QList<int>& places, int money) {
    QStringList key;
    for (const int place : places)
        key << (place == money ? Money(arguments.value(place)) : arguments.value(place));
    return key.join(u'|');
}

// Where the money stands in the two keys that follow.
constexpr int kAmountOfACharge = 6;
constexpr int kAmountOfAnAssessment = 5;

/// A charge: slip, hospital number, admission, centre, item, quantity, amount, user.
QString ChargeKey(const QStringList& arguments) {
    return KeyOf(arguments, {7, 0, 1, 3, 5, 6, 8, 9}, 8);
}

/// An assessment's line: number, name, item, centre, quantity, amount, user.
QString AssessmentKey(const QStringList& arguments) {
    return KeyOf(arguments, {0, 1, 2, 3, 4, 5, 7}, 5);
}

/// What is cancelled: slip, hospital number, admission, item, size of the amount. A stock card's entry tells
/// it in an order of its own, with no centre.
QString CancellationKey(const SentCommand& command) {
    const bool isStock = command.kind == Kind::CancelStock;
    const QList<int> places = isStock ? QList<int>{4, 0, 1, 2} : QList<int>{11, 0, 1, 2};
    QString amount = command.arguments.value(isStock ? 6 : 3);
    return KeyOf(command.arguments, places, -1) + u'|' + Money(amount.remove(u'-'));
}

QString SlipText(const QString& number) {
    return u'H' + number + u'C';
}

} // namespace

/// A hospital's file as it lies there, with what was written and not yet taken into it.
class HospitalCopy {
  public:
    explicit HospitalCopy(const QString& path)
        : mPath(mFolder.filePath(u"hospital.db"_s)) {
        const QString log = u"-wal"_s;
        if (!QFile::copy(path, mPath) || (QFile::exists(path + log) && !QFile::copy(path + log, mPath + log)))
            throw std::runtime_error("cannot copy " + path.toStdString());
        mGateway = std::make_unique<EmbeddedGateway>(mPath);
    }

    EmbeddedGateway& Gateway() { return *mGateway; }

  private:
    QTemporaryDir mFolder;
    QString mPath;
    std::unique_ptr<EmbeddedGateway> mGateway;
};

/// One look at the hospital.
class WholeHospital::Look {
  public:
    Look(WholeHospital& hospital, const std::vector<ReadJournal>& journals)
        : mHospital(hospital)
        , mJournals(journals) {}

    QStringList Problems();

  private:
    using Counts = QMap<QString, Expected>;

    void Report(const QString& problem) { mProblems << problem; }
    void Read();
    void Count(Counts& counts, const QString& key, const JournaledCommand& command);
    void TakeNumber(const QString& counter, const QString& number, const JournaledCommand& command,
                    const QString& desk);
    /// A number and the lines under it come from one save, so from one desk.
    void ComesFrom(const QString& slip, const QString& desk);
    void Compare(const QString& what, const Counts& expected, const Rows& rows, int money = -1);
    void CompareCounter(const QString& counter, qint64 atLeast, qint64 atMost);
    void CompareCounters();
    void CompareReversals();
    void CompareRevokes();
    void CompareStock();

    WholeHospital& mHospital;
    const std::vector<ReadJournal>& mJournals;
    QStringList mProblems;
    Counts mCharges;
    Counts mAssessments;
    Counts mCancellations;
    Counts mRevokes;
    Counts mRegistrations;
    /// The numbers that were taken, by their counters.
    QMap<QString, Counts> mNumbers;
    QMap<QString, QString> mDesks;
};

void WholeHospital::Look::Count(Counts& counts, const QString& key, const JournaledCommand& command) {
    Expected& expected = counts[key];
    if (command.outcome == JournaledCommand::Outcome::Answered)
        ++expected.answered;
    else
        ++expected.open;
}

void WholeHospital::Look::TakeNumber(const QString& counter, const QString& number,
                                     const JournaledCommand& command, const QString& desk) {
    const bool lost = command.outcome == JournaledCommand::Outcome::Answered && command.rowsAffected == 0;
    if (lost)
        return;
    Count(mNumbers[counter], number, command);
    if (mNumbers[counter][number].answered > 1)
        Report(u"%1 gave the number %2 twice, the second time at %3"_s.arg(counter, number, desk));
    if (command.outcome == JournaledCommand::Outcome::Answered)
        ComesFrom(counter == kSlips ? SlipText(number) : number, desk);
}

void WholeHospital::Look::ComesFrom(const QString& slip, const QString& desk) {
    const QString first = mDesks.value(slip, desk);
    if (first != desk)
        Report(u"%1 has lines of %2 and of %3"_s.arg(slip, first, desk));
    mDesks.insert(slip, desk);
}

void WholeHospital::Look::Read() {
    for (const ReadJournal& journal : mJournals) {
        for (const JournaledCommand& sent : journal.commands) {
            const SentCommand command = TakeApart(sent.text);
            switch (command.kind) {
            case Kind::Charge:
                Count(mCharges, ChargeKey(command.arguments), sent);
                ComesFrom(command.arguments.value(7), journal.name);
                break;
            case Kind::Assessment:
                Count(mAssessments, AssessmentKey(command.arguments), sent);
                ComesFrom(command.arguments.value(0), journal.name);
                break;
            case Kind::CancelService:
            case Kind::CancelStock:
                Count(mCancellations, CancellationKey(command), sent);
                break;
            case Kind::Revoke:
                Count(mRevokes, command.arguments.value(0), sent);
                break;
            case Kind::Registration:
                Count(mRegistrations, command.arguments.mid(0, 3).join(u'|'), sent);
                break;
            case Kind::TakeSlip:
                TakeNumber(kSlips, command.arguments.value(0), sent, journal.name);
                break;
            case Kind::TakeAssessment:
                TakeNumber(kAssessments, command.arguments.value(0), sent, journal.name);
                break;
            default:
                break;
            }
        }
    }
}

/// The cells of a row are its key, the one with that number as money.
void WholeHospital::Look::Compare(const QString& what, const Counts& expected, const Rows& rows, int money) {
    QMap<QString, int> found;
    for (QStringList row : rows) {
        if (money >= 0)
            row[money] = Money(row[money]);
        ++found[row.join(u'|')];
    }
    for (auto there = found.begin(); there != found.end(); ++there) {
        const Expected wanted = expected.value(there.key());
        if (there.value() > wanted.answered + wanted.open)
            Report(u"%1 is there %2 times, and was sent %3 times: %4"_s.arg(what)
                       .arg(there.value())
                       .arg(wanted.answered + wanted.open)
                       .arg(there.key()));
    }
    for (auto wanted = expected.begin(); wanted != expected.end(); ++wanted) {
        if (found.value(wanted.key()) < wanted->answered)
            Report(u"%1 was answered %2 times and is there %3 times: %4"_s.arg(what)
                       .arg(wanted->answered)
                       .arg(found.value(wanted.key()))
                       .arg(wanted.key()));
    }
}

void WholeHospital::Look::CompareCounter(const QString& counter, qint64 atLeast, qint64 atMost) {
    const qint64 now = mHospital.Number(kCounterCommands[counter]);
    const qint64 taken = now - mHospital.mFirst[counter];
    if (now < mHospital.mLast[counter])
        Report(u"%1 has gone back from %2 to %3"_s.arg(counter).arg(mHospital.mLast[counter]).arg(now));
    if (taken < atLeast || taken > atMost)
        Report(u"%1 has given %2 numbers, and between %3 and %4 were taken"_s.arg(counter)
                   .arg(taken)
                   .arg(atLeast)
                   .arg(atMost));
    mHospital.mLast[counter] = now;
}

void WholeHospital::Look::CompareCounters() {
    for (const QString& counter : {kSlips, kAssessments}) {
        qint64 answered = 0;
        qint64 open = 0;
        for (const Expected& number : std::as_const(mNumbers[counter])) {
            answered += number.answered > 0 ? 1 : 0;
            open += number.answered == 0 ? 1 : 0;
        }
        CompareCounter(counter, answered, answered + open);
    }
    const qint64 registered =
        mHospital.Number(u"SELECT COUNT(*) FROM PATIENT_DATA..tbwalkin"_s) - mHospital.mBeginning.walkIn;
    CompareCounter(kWalkIns, registered, registered);
}

void WholeHospital::Look::CompareReversals() {
    const qint64 first = mHospital.mBeginning.charge;
    // Of an item on a slip no more is taken back than was charged, whichever amounts tell it.
    for (
        const QStringList& row : mHospital.Query(
            u"SELECT RefNum, HospNum, IdNum, ItemID, SUM(CASE WHEN RecordType = 'D' THEN 1 ELSE 0 END), SUM(CASE "
            "WHEN RecordType = 'C' THEN 1 ELSE 0 END) FROM BILLING..tbPatientCharges GROUP BY RefNum, HospNum, "
            "IdNum, ItemID, ABS(Amount)"_s)) {
        if (row[5].toInt() > row[4].toInt())
            Report(u"charged %1 times and taken back %2 times: %3"_s.arg(row[4], row[5],
                                                                         row.mid(0, 4).join(u'|')));
    }
    QMap<QString, int> reversed;
    for (const QStringList& row : mHospital.Query(
             u"SELECT RefNum, HospNum, IdNum, ItemID, ABS(Amount) FROM BILLING..tbPatientCharges WHERE "
             "RecordType = 'C' AND ChargeID > %1"_s.arg(first)))
        ++reversed[row.mid(0, 4).join(u'|') + u'|' + Money(row[4])];
    // Of many who cancel one charge the first one reverses it, and the others find it reversed.
    for (auto sent = mCancellations.begin(); sent != mCancellations.end(); ++sent) {
        if (sent->answered > 0 && reversed.value(sent.key()) == 0)
            Report(u"the cancellation was answered and nothing is reversed: "_s + sent.key());
    }
    for (auto there = reversed.begin(); there != reversed.end(); ++there) {
        if (!mCancellations.contains(there.key()))
            Report(u"nobody has cancelled what is reversed: "_s + there.key());
    }
}

void WholeHospital::Look::CompareRevokes() {
    const auto revoked =
        mHospital.Query(u"SELECT AssessNum FROM BILLING..tbCashAssessment WHERE RevokeDate IS NOT NULL"_s);
    QMap<QString, int> found;
    for (const QStringList& row : revoked)
        ++found[row[0]];
    for (auto sent = mRevokes.begin(); sent != mRevokes.end(); ++sent) {
        if (sent->answered > 0 && !found.contains(sent.key()))
            Report(u"the revoke was answered and the line is not revoked: "_s + sent.key());
    }
    const qint64 recorded = mHospital.Number(
        u"SELECT COUNT(*) FROM BILLING..tbAuditTrail WHERE Event = 'REVOKE' AND AuditID > %1"_s.arg(
            mHospital.mBeginning.audit));
    const qint64 lines = qint64(revoked.size()) - mHospital.mBeginning.revoked;
    if (recorded != lines)
        Report(u"%1 lines are revoked, and %2 revokes recorded"_s.arg(lines).arg(recorded));
}

/// Each line of an item from stock has its movement, and each movement its line.
void WholeHospital::Look::CompareStock() {
    const auto charged = mHospital.Query(
        u"SELECT c.RefNum, c.ItemID, c.IdNum, c.RecordType, SUM(c.Units), SUM(c.Amount) FROM BILLING..tbPatientCharges "
        "AS c INNER JOIN build_file..tbCoRevenue AS r ON r.RevenueID = c.RevenueID INNER JOIN INVENTORY..tbInvMaster "
        "AS i ON i.ItemID = c.ItemID AND i.SectionID = r.LocationID WHERE r.SearchInventory = 1 AND c.ChargeID > %1 "
        "GROUP BY c.RefNum, c.ItemID, c.IdNum, c.RecordType"_s.arg(mHospital.mBeginning.charge));
    const auto moved = mHospital.Query(
        u"SELECT RefNum, ItemID, IdNum, CASE WHEN RecordType = 'I' THEN 'D' ELSE 'C' END, SUM(QtyOut - QtyIn), "
        "SUM(Amount) FROM INVENTORY..tbInvStockCard WHERE StockCardID > %1 GROUP BY RefNum, ItemID, IdNum, RecordType"_s
            .arg(mHospital.mBeginning.stockCard));
    QMap<QString, QString> cards;
    const auto sums = [](const QStringList& row) { return Money(row[4]) + u" for "_s + Money(row[5]); };
    for (const QStringList& row : moved)
        cards.insert(row.mid(0, 4).join(u'|'), sums(row));
    for (const QStringList& row : charged) {
        const QString key = row.mid(0, 4).join(u'|');
        if (const QString card = cards.take(key); card != sums(row))
            Report(u"the account has %1 and the stock card %2: %3"_s.arg(sums(row), card, key));
    }
    for (const QString& key : cards.keys())
        Report(u"the stock card has what no account has: "_s + key);
}

QStringList WholeHospital::Look::Problems() {
    if (!mHospital.FileIsSound())
        return {u"the file is damaged"_s};
    Read();
    CompareCounters();
    Compare(
        u"a charge"_s, mCharges,
        mHospital.Query(u"SELECT RefNum, HospNum, IdNum, RevenueID, ItemID, Quantity, Amount, UserID FROM "
                        "BILLING..tbPatientCharges WHERE RecordType = 'D' AND ChargeID > %1"_s.arg(
                            mHospital.mBeginning.charge)),
        kAmountOfACharge);
    Compare(u"an assessment's line"_s, mAssessments,
            mHospital.Query(
                u"SELECT RefNum, Name, ItemID, Revenueid, Quantity, Amount, UserID FROM "
                "BILLING..tbCashAssessment WHERE AssessNum > %1"_s.arg(mHospital.mBeginning.assessment)),
            kAmountOfAnAssessment);
    Compare(u"a walk-in"_s, mRegistrations,
            mHospital.Query(
                u"SELECT LastName, FirstName, MiddleName FROM PATIENT_DATA..tbwalkin WHERE HospNum >= "
                "'W%1'"_s.arg(mHospital.mFirst[kWalkIns], 6, 10, QChar(u'0'))));
    CompareReversals();
    CompareRevokes();
    CompareStock();
    return mProblems;
}

WholeHospital::WholeHospital(const QString& path)
    : mPath(path)
    , mCopy(std::make_unique<HospitalCopy>(path)) {
    mBeginning = {
        .charge = Number(u"SELECT MAX(ChargeID) FROM BILLING..tbPatientCharges"_s),
        .assessment = Number(u"SELECT MAX(AssessNum) FROM BILLING..tbCashAssessment"_s),
        .stockCard = Number(u"SELECT MAX(StockCardID) FROM INVENTORY..tbInvStockCard"_s),
        .audit = Number(u"SELECT MAX(AuditID) FROM BILLING..tbAuditTrail"_s),
        .revoked = Number(u"SELECT COUNT(*) FROM BILLING..tbCashAssessment WHERE RevokeDate IS NOT NULL"_s),
        .walkIn = Number(u"SELECT COUNT(*) FROM PATIENT_DATA..tbwalkin"_s)};
    for (auto counter = kCounterCommands.begin(); counter != kCounterCommands.end(); ++counter)
        mFirst[counter.key()] = Number(counter.value());
    mLast = mFirst;
}

WholeHospital::~WholeHospital() = default;

QStringList WholeHospital::Problems(const std::vector<ReadJournal>& journals) {
    mCopy = std::make_unique<HospitalCopy>(mPath);
    return Look(*this, journals).Problems();
}

bool WholeHospital::FileIsSound() const {
    // A connection that writes would take into the file what a desk has left beside it.
    SqliteDatabase database(mPath, SqliteDatabase::Mode::Reading);
    return database.RunForValue(u"PRAGMA integrity_check"_s) == Cell(QByteArray("ok"));
}

WholeHospital::Rows WholeHospital::Query(const QString& command) const {
    Rows rows;
    for (const QString& row : HospitalRows(mCopy->Gateway(), command))
        rows.push_back(row.split(u'|'));
    return rows;
}

qint64 WholeHospital::Number(const QString& command) const {
    return Query(command).front().front().toLongLong();
}

WorkDone WorkIn(const std::vector<ReadJournal>& journals) {
    WorkDone work;
    for (const ReadJournal& journal : journals) {
        for (const JournaledCommand& sent : journal.commands) {
            if (sent.outcome != JournaledCommand::Outcome::Answered)
                continue;
            ++work.answered;
            const Kind kind = TakeApart(sent.text).kind;
            const bool takes = kind == Kind::TakeSlip || kind == Kind::TakeAssessment;
            work.charges += kind == Kind::Charge ? 1 : 0;
            work.assessments += kind == Kind::Assessment ? 1 : 0;
            work.cancellations += kind == Kind::CancelService || kind == Kind::CancelStock ? 1 : 0;
            work.revokes += kind == Kind::Revoke ? 1 : 0;
            work.registrations += kind == Kind::Registration ? 1 : 0;
            work.numbers += takes && sent.rowsAffected == 1 ? 1 : 0;
            work.lostRaces += takes && sent.rowsAffected == 0 ? 1 : 0;
        }
    }
    return work;
}
