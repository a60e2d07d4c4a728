#include "RandomMonth.h"

#include "charges/commands.h"
#include "maintenance/commands.h"
#include "suite/LiveConnection.h"
#include "text/Format.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kSecondsPerDay = 24 * 60 * 60;
/// Days before the month and behind it on which the unit works, too.
constexpr int kDaysAround = 4;
constexpr int kDaysOfMonth = 31;

QString MoneyText(Money amount) {
    return u"%1.%2"_s.arg(amount / 100).arg(amount % 100, 2, 10, QChar(u'0'));
}

} // namespace

RandomMonth::RandomMonth(EmbeddedGateway& gateway, std::uint32_t seed)
    : mGateway(gateway)
    , mRandom(seed) {
    SetLiveConnection(&gateway);
    mStock.InitConnect(gateway.ConnectionString());
    EmptyTheAccounts();
    ReadAccounts();
    Work();
    KeepBooks();
}

RandomMonth::~RandomMonth() {
    SetLiveConnection(nullptr);
}

DateTime RandomMonth::FirstDay() {
    return DateTime::FromFields({.year = 2026, .month = 12, .day = 1, .hour = 0}).value();
}

DateTime RandomMonth::LastDay() {
    return FirstDay().AddDays(kDaysOfMonth - 1);
}

bool RandomMonth::IsInMonth() const {
    return mNow >= FirstDay() && mNow < LastDay().AddDays(1);
}

void RandomMonth::SetTime(int day, int second) {
    mNow = DateTime::FromMilliseconds(FirstDay().AddDays(day).Milliseconds() + qint64(second) * 1000);
}

QString RandomMonth::Moment() const {
    return Format(mNow, u"mm/dd/yyyy hh:mm:ss AM/PM");
}

QString RandomMonth::SignOn() {
    const QString user = Below(2) ? u"NURSE"_s : u"CLERK"_s;
    mGateway.SetSessionUser(user);
    return user;
}

void RandomMonth::EmptyTheAccounts() {
    for (const QString& table : {u"tbPatientCharges"_s, u"tbCashAssessment"_s, u"tbAuditTrail"_s})
        mGateway.ExecuteNoResult(u"DELETE BILLING.."_s + table);
}

/// Patients in the hospital, and visits, of all companies.
void RandomMonth::ReadAccounts() {
    for (const auto& [type, command] :
         {std::pair(u"I"_s, u"SELECT TOP 12 p.HospNum, p.IdNum, p.RoomID, o.Company FROM "
                            "PATIENT_DATA..tbpatient AS p INNER JOIN build_file..tbCoCompany AS o "
                            "ON o.CompanyID = p.CompanyID WHERE p.DcrDate IS NULL ORDER BY p.IdNum"_s),
          std::pair(u"O"_s, u"SELECT TOP 18 p.HospNum, p.IdNum, 'OPD' AS RoomID, o.Company FROM "
                            "PATIENT_DATA..tboutpatient AS p INNER JOIN build_file..tbCoCompany AS o "
                            "ON o.CompanyID = p.CompanyID ORDER BY p.IdNum DESC"_s)}) {
        for (RowSet rows = mGateway.Execute(command); !rows.Eof(); rows.MoveNext())
            mAccounts.push_back({rows.Fields(u"HospNum").ToText(), rows.Fields(u"IdNum").ToText(),
                                 rows.Fields(u"RoomID").ToText(), type, rows.Fields(u"Company").ToText()});
    }
}

void RandomMonth::Work() {
    for (int day = -kDaysAround; day < kDaysOfMonth + kDaysAround; ++day) {
        // The first and the last second of each day are worked in.
        const int acts = 7 + Below(6);
        for (int i = 0; i < acts; ++i) {
            SetTime(day, i == acts - 1 ? kSecondsPerDay - 1 : i * (kSecondsPerDay / acts));
            DoAnything();
        }
    }
}

void RandomMonth::DoAnything() {
    switch (Below(9)) {
    case 0:
    case 1:
        CancelOne();
        break;
    case 2:
    case 3:
        Assess();
        break;
    case 4:
        PayOne();
        break;
    case 5:
        RevokeOne();
        break;
    default:
        PostSlip();
    }
}

/// A line on an account, in the books of all days and of the month.
void RandomMonth::Book(const QString& patientType, const Account& account, Money amount) {
    mBooks.accounts[account.idNum] += amount;
    if (!IsInMonth())
        return;
    mBooks.income[patientType] += amount;
    mBooks.companies[{patientType, account.company}] += amount;
    mBooks.days[Format(mNow, u"mm/dd/yyyy")] += amount;
}

QString RandomMonth::TakeSlipNumber() {
    RowSet counter = mGateway.Open(ChargeSlipCounterCommand(), CursorType::Dynamic, LockType::Optimistic);
    const Value number = counter.Fields(u"ChargeSlip");
    counter.SetField(u"ChargeSlip", number.ToInteger() + 1);
    counter.Update();
    return u"H"_s + number.ToText().trimmed() + u"C"_s;
}

/// A slip has each item once, as the charge screen sees to.
void RandomMonth::PostSlip() {
    const Account account = mAccounts[size_t(Below(int(mAccounts.size())))];
    const QString slip = TakeSlipNumber();
    const int lines = 1 + Below(5);
    const int first = Below(5);
    mBooks.slipsOfMonth[account.type] += IsInMonth() ? 1 : 0;
    for (int i = 0; i < lines; ++i)
        PostLine(account, slip, (first + i) % 5);
    if (Below(10) == 0)
        PostOfTheLaboratory(account);
    if (Below(12) == 0) {
        mGateway.ExecuteNoResult(ReprintChargeSlipCommand(slip));
        ++mBooks.reprints;
        CountAct();
    }
}

void RandomMonth::PostLine(const Account& account, const QString& slip, int kind) {
    struct Item {
        QString centre;
        QString code;
        QString name;
    };
    static const Item items[] = {{u"HC"_s, u"HC001"_s, u"HEMODIALYSIS TREATMENT"_s},
                                 {u"HB"_s, u"M0002"_s, u"EPOETIN ALFA 4000 IU"_s},
                                 {u"HD"_s, u"S0018"_s, u"FISTULA NEEDLE G15"_s},
                                 {u"MD"_s, u"D003"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s},
                                 {u"MS"_s, u""_s, u"MISCELLANEOUS"_s}};
    const Item& item = items[kind];
    const Money amount = Price();
    const QString quantity = item.centre == "MD"_L1 ? QString() : QString::number(1 + Below(3));
    mGateway.ExecuteNoResult(AppendChargingCommand({.hospitalNumber = account.hospNum,
                                                    .admissionNumber = account.idNum,
                                                    .moment = Moment(),
                                                    .department = item.centre,
                                                    .code = item.code,
                                                    .quantity = quantity,
                                                    .slipNumber = slip,
                                                    .amount = MoneyText(amount),
                                                    .userCode = SignOn(),
                                                    .room = account.room,
                                                    .requestingDoctorCode = u"D005"_s,
                                                    .admittingDoctorName = u"DR. GRACE FONACIER"_s,
                                                    .patientType = account.type,
                                                    .particular = item.name}));
    mCharges.push_back({account, slip, item.centre, item.code, quantity, amount});
    ++mBooks.charges;
    CountAct();
    mBooks.chargesOfMonth[account.type] += IsInMonth() ? 1 : 0;
    Book(account.type, account, amount);
}

/// Another department's charge on the same account, which is none of the unit's business.
void RandomMonth::PostOfTheLaboratory(const Account& account) {
    mGateway.ExecuteNoResult(
        u"INSERT INTO BILLING..tbPatientCharges (HospNum, IdNum, PatientType, TransDate, RevenueID, "
        u"RecordType, "
        "ItemID, Description, Quantity, Units, Amount, RefNum, UserID, RoomID, DoctorID, DoctorName, "
        "SourceDept, "
        "EntryDate) VALUES "
        "('%1','%2','%3','%4','LB','D','LB001','CREATININE','1',1,180.25,'L1C','LAB','%5','D005','',"
        "'LB','%4')"_s.arg(account.hospNum, account.idNum, account.type, Moment(), account.room));
}

/// Takes a line back, and now and then one that was taken back before: two clerks may cancel the same line.
/// The second time nothing happens, and so it is with a line that is free.
void RandomMonth::CancelOne() {
    if (mCharges.empty())
        return;
    Charge& charge = mCharges[size_t(Below(int(mCharges.size())))];
    const bool isService = charge.centre == "HC"_L1 || charge.centre == "MD"_L1;
    // The list tells the letter of its own choice, which the clerk may have left wrong; the reversal is of
    // its line's type all the same.
    const QString told = !isService || Below(6) > 0      ? charge.account.type
                         : charge.account.type == "I"_L1 ? u"O"_s
                                                         : u"I"_s;
    if (isService)
        CancelService(charge, told);
    else
        CancelStock(charge);
    if (charge.cancelled || charge.amount == 0) {
        ++mBooks.cancellationsInVain;
        return;
    }
    charge.cancelled = true;
    ++mBooks.cancellations;
    CountAct();
    mBooks.cancellationsOfMonth += IsInMonth() ? 1 : 0;
    Book(charge.account.type, charge.account, -charge.amount);
}

void RandomMonth::CancelService(const Charge& charge, const QString& patientType) {
    mGateway.ExecuteNoResult(UpdateChargingCommand({.hospitalNumber = charge.account.hospNum,
                                                    .idNumber = charge.account.idNum,
                                                    .itemID = charge.code,
                                                    .amount = MoneyText(charge.amount),
                                                    .quantity = charge.quantity,
                                                    .moment = Moment(),
                                                    .department = charge.centre,
                                                    .userCode = SignOn(),
                                                    .patientType = patientType,
                                                    .room = charge.account.room,
                                                    .slipNumber = charge.slip}));
}

/// The line's own number comes from the list of charges, as on the screen.
void RandomMonth::CancelStock(const Charge& charge) {
    QString line;
    const QString list = ListAllChargesCommand(charge.account.hospNum, charge.account.idNum);
    for (RowSet rows = mGateway.Execute(list); !rows.Eof() && line.isEmpty(); rows.MoveNext()) {
        if (rows.Fields(u"ChargeSlip #").ToText() == charge.slip &&
            rows.Fields(u"Dept.").ToText() == charge.centre)
            line = rows.Fields(u"Line #").ToText();
    }
    StockCardEntry entry = {.hospitalNumber = charge.account.hospNum,
                            .idNumber = charge.account.idNum,
                            .itemID = charge.code,
                            .moment = Moment(),
                            .referenceNumber = charge.slip,
                            .quantity = charge.quantity.toDouble(),
                            .amount = double(-charge.amount) / 100,
                            .userCode = SignOn(),
                            .chargeLine = line,
                            .room = charge.account.room,
                            .position16 = u"PH"_s,
                            .position17 = u"PH"_s,
                            .recordType = u"C"_s,
                            .patientType = u"O"_s};
    clsStockItem& stock = mStock;
    stock.Drug().AppendStockCard(entry);
}

/// An assessment of some lines; one in five has a single line without a number.
void RandomMonth::Assess() {
    const bool hasNumber = Below(5) > 0;
    const QString number = hasNumber ? QString::number(60'000 + mBooks.assessments) : QString();
    const int lines = hasNumber ? 1 + Below(3) : 1;
    static const QString codes[] = {u"HC001"_s, u"HC005"_s, u"HC010"_s};
    for (int i = 0; i < lines; ++i) {
        const Money amount = Price();
        mGateway.ExecuteNoResult(AssessmentCommand({.number = number,
                                                    .patientName = u"REYES, WALTER"_s,
                                                    .code = codes[i],
                                                    .department = u"HC"_s,
                                                    .quantity = u"1"_s,
                                                    .amount = MoneyText(amount),
                                                    .userCode = SignOn(),
                                                    .hospitalNumber = u"W000001"_s,
                                                    .visitNumber = u""_s,
                                                    .requestingDoctorCode = u"D001"_s,
                                                    .requestingDoctorName = u"DR. ROBERTO ALCARAZ"_s}));
        const QString line =
            mGateway.Execute(u"SELECT MAX(AssessNum) FROM BILLING..tbCashAssessment"_s).Fields(0).ToText();
        mAssessments.push_back({number, line, u"HC"_s, amount, false, false, IsInMonth()});
        CountAct();
        if (IsInMonth())
            mBooks.assessed += amount;
    }
    ++mBooks.assessments;
}

/// The cashier's act, who knows the line by its own number. He may be late: a line that was revoked is paid,
/// too.
void RandomMonth::PayOne() {
    if (mAssessments.empty())
        return;
    Assessment& line = mAssessments[size_t(Below(int(mAssessments.size())))];
    if (line.paid)
        return;
    mGateway.ExecuteNoResult(
        u"UPDATE BILLING..tbCashAssessment SET ORNum = '310001', ORDate = '%1' WHERE AssessNum = %2"_s.arg(
            Moment(), line.line));
    line.paid = true;
    mBooks.paidBehindRevoke += line.revoked ? 1 : 0;
    if (IsInMonth())
        mBooks.paid += line.amount;
}

/// Revokes every line that bears the reference, as the screen does; paid lines and lines that were revoked
/// before are among them.
void RandomMonth::RevokeOne() {
    if (mAssessments.empty())
        return;
    const Assessment chosen = mAssessments[size_t(Below(int(mAssessments.size())))];
    if (chosen.number.isEmpty()) {
        mGateway.ExecuteNoResult(AssessRevokeCommand(chosen.line, QString(), chosen.centre));
    } else {
        for (RowSet rows = mGateway.Execute(LinesOfReferenceCommand(chosen.number)); !rows.Eof();
             rows.MoveNext())
            mGateway.ExecuteNoResult(AssessRevokeCommand(rows.Fields(u"AssessNum").ToText(),
                                                         rows.Fields(u"RefNum").ToText(),
                                                         rows.Fields(u"Revenueid").ToText()));
    }
    for (Assessment& line : mAssessments) {
        const bool isMeant =
            chosen.number.isEmpty() ? line.line == chosen.line : line.number == chosen.number;
        if (!isMeant || line.revoked)
            continue;
        line.revoked = true;
        ++mBooks.revokes;
        CountAct();
        if (!IsInMonth())
            continue;
        mBooks.assessed -= line.amount;
        if (line.paid)
            mBooks.paidAndRevoked += line.amount;
    }
}

/// What waits for payment is known only at the end.
void RandomMonth::KeepBooks() {
    for (const Assessment& line : mAssessments)
        if (line.isOfTheMonth && !line.paid && !line.revoked)
            mBooks.unpaid += line.amount;
}
