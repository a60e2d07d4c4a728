#include "ChargeHistory.h"

#include "NameLists.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Generator {

namespace {

constexpr int kFirstSlip = 1001;
constexpr int kFirstLabSlip = 20001;
constexpr int kOpens = 6 * 60;
constexpr int kWorkingMinutes = 14 * 60;

const QString& Clerk(Prng& prng) {
    static const QString users[] = {u"NURSE"_s, u"CLERK"_s};
    return users[prng.Below(2)];
}

} // namespace

ChargeMaker::ChargeMaker(const HospitalSize& size, const Catalogue& catalogue, const PatientList& patients,
                         Prng& prng, InsertWriter& writer)
    : mSize(size)
    , mCatalogue(catalogue)
    , mPatients(patients)
    , mPrng(prng)
    , mWriter(writer)
    , mNextLabSlip(kFirstLabSlip) {
    mHistory.nextSlip = kFirstSlip;
}

ChargeHistory ChargeMaker::Make() {
    size_t turn = 0;
    for (int day = -mSize.months * kDaysPerMonth; day < 0; ++day) {
        const std::vector<const Episode*> due = Due(day);
        const int slips = std::min(mSize.slipsPerDay, int(due.size()));
        for (int i = 0; i < slips; ++i) {
            const int minute = kOpens + (i * kWorkingMinutes + mPrng.Below(kWorkingMinutes)) / slips;
            const Episode& episode = *due[turn++ % due.size()];
            MakeSlip(episode, {day, minute});
            if (episode.inPatient && mPrng.Chance(10))
                MakeLabSlip(episode, {day, minute + 20});
        }
    }
    mWriter.Finish();
    return std::move(mHistory);
}

/// Who has a treatment on that day: open since the day before at least, on the days of the patient's shift.
/// One day in seven the unit is closed.
std::vector<const Episode*> ChargeMaker::Due(int day) const {
    std::vector<const Episode*> due;
    const int weekday = (day % 7 + 7) % 7;
    if (weekday == 6)
        return due;
    for (const auto* episodes : {&mPatients.admissions, &mPatients.visits})
        for (const Episode& episode : *episodes)
            if (episode.dialysis && weekday % 2 == episode.shift && episode.admitted.day < day &&
                (!episode.discharged || day < episode.discharged->day))
                due.push_back(&episode);
    return due;
}

int ChargeMaker::RoomClass(const Episode& episode) const {
    return episode.inPatient ? mCatalogue.rooms[episode.room].roomClass : 0;
}

ChargeMaker::Line ChargeMaker::ServiceLine(const QString& centre, const QString& code, int quantity,
                                           int roomClass) const {
    const Service& service = mCatalogue.ServiceOf(centre, code);
    return {centre, code, service.name, quantity, service.rates[size_t(roomClass)] * quantity};
}

/// Stock is charged at its in-patient price, out-patients included.
ChargeMaker::Line ChargeMaker::StockLine(const QString& centre, const QString& code, int quantity) {
    const StockItem& item = mCatalogue.StockOf(code);
    mHistory.issued[code] += quantity;
    return {centre, code, item.name, quantity, item.priceIn * quantity};
}

ChargeMaker::Line ChargeMaker::FeeLine(int doctor, int roomClass) const {
    static constexpr qint64 fees[kRoomClassCount] = {800'00,  900'00,  1000'00, 1200'00,
                                                     1500'00, 1800'00, 1200'00, 0};
    const Doctor& d = mCatalogue.doctors[size_t(doctor)];
    return {u"MD"_s, d.code, u"(PF) DR. "_s + d.lastName + ", "_L1 + d.firstName, 0, fees[roomClass]};
}

/// One treatment: the machine, a new or a reprocessed dialyzer, needles, heparin, every other time
/// erythropoietin, now and then iron, oxygen or something that has no code, and the nephrologist's fee.
std::vector<ChargeMaker::Line> ChargeMaker::TreatmentLines(const Episode& episode) {
    static const QString treatments[] = {u"HC001"_s, u"HC001"_s, u"HC001"_s, u"HC001"_s, u"HC001"_s,
                                         u"HC001"_s, u"HC009"_s, u"HC009"_s, u"HC005"_s, u"HC010"_s};
    static const QString dialyzers[] = {u"S0001"_s, u"S0002"_s, u"S0003"_s,
                                        u"S0004"_s, u"S0007"_s, u"S0008"_s};
    static const QString needles[] = {u"S0018"_s, u"S0019"_s, u"S0020"_s};
    static const QString epoetins[] = {u"M0001"_s, u"M0002"_s, u"M0002"_s, u"M0003"_s};
    const int roomClass = RoomClass(episode);

    std::vector<Line> lines;
    const bool bedside = mCatalogue.rooms[episode.room].station == "ICU"_L1 && episode.inPatient;
    lines.push_back(ServiceLine(u"HC"_s, bedside ? u"HC007"_s : mPrng.Pick(treatments), 1, roomClass));
    if (mPrng.Chance(30)) {
        lines.push_back(StockLine(u"HD"_s, mPrng.Pick(dialyzers), 1));
        lines.push_back(StockLine(u"HD"_s, u"S0014"_s, 1));
    } else {
        lines.push_back(ServiceLine(u"HC"_s, u"HC018"_s, 1, roomClass));
    }
    if (mPrng.Chance(70))
        lines.push_back(StockLine(u"HD"_s, mPrng.Pick(needles), 2));
    if (mPrng.Chance(60))
        lines.push_back(StockLine(u"HB"_s, u"M0010"_s, 1));
    if (mPrng.Chance(50))
        lines.push_back(StockLine(u"HB"_s, mPrng.Pick(epoetins), 1));
    if (mPrng.Chance(10))
        lines.push_back(StockLine(u"HB"_s, u"M0016"_s, 1));
    if (mPrng.Chance(5))
        lines.push_back(ServiceLine(u"OX"_s, u"OX001"_s, mPrng.Between(1, 4), roomClass));
    if (mPrng.Chance(2))
        lines.push_back({u"MS"_s, {}, u"MISCELLANEOUS"_s, 1, qint64{mPrng.Between(1, 12)} * 50'00});
    if (mPrng.Chance(40))
        lines.push_back(FeeLine(episode.doctor1, roomClass));
    return lines;
}

/// Writes the slip's lines. One slip in fifty has a line that was cancelled soon after.
void ChargeMaker::MakeSlip(const Episode& episode, Moment moment) {
    const QString slip = u"H%1C"_s.arg(mHistory.nextSlip++);
    const QString user = Clerk(mPrng);
    const std::vector<Line> lines = TreatmentLines(episode);
    mHistory.treatments.push_back({&episode, moment, slip, user});
    for (const Line& line : lines)
        Write(episode, moment, line, false, slip, user, u"HC"_s);
    if (mPrng.Chance(2)) {
        const Line& line = lines.back();
        const QString& canceller = Clerk(mPrng);
        Write(episode, moment.Plus(mPrng.Between(5, 40)), line, true, slip, canceller, u"HC"_s);
        if (line.centre == "HB"_L1 || line.centre == "HD"_L1)
            mHistory.issued[line.code] -= line.quantity;
    }
    if (mPrng.Chance(1))
        mHistory.reprints.push_back({slip, moment.Plus(mPrng.Between(60, 200)), user});
    if (episode.inPatient && mPrng.Chance(15))
        Remember(episode, moment, lines.front(), slip);
}

/// A slip of the laboratory, which posts to the same accounts.
void ChargeMaker::MakeLabSlip(const Episode& episode, Moment moment) {
    const QString slip = u"L%1C"_s.arg(mNextLabSlip++);
    for (const QString& code : {u"LB001"_s, u"LB004"_s})
        Write(episode, moment, ServiceLine(u"LB"_s, code, 1, RoomClass(episode)), false, slip, u"LAB"_s,
              u"LB"_s);
}

void ChargeMaker::Write(const Episode& episode, Moment moment, const Line& line, bool reversal,
                        const QString& slip, const QString& user, const QString& department) {
    const qint64 sign = reversal ? -1 : 1;
    const Doctor& requesting =
        mCatalogue.doctors[size_t(episode.doctor2 >= 0 ? episode.doctor2 : episode.doctor1)];
    mWriter.Begin()
        .Text(mPatients.persons[episode.person].hospNum)
        .Text(episode.idNum)
        .Text(episode.inPatient ? u"I" : u"O")
        .Date(moment)
        .Text(line.centre)
        .Text(reversal ? u"C" : u"D")
        .Text(line.code)
        .Text(line.description)
        .Text(line.quantity == 0 ? QString() : QString::number(sign * line.quantity))
        .Number(sign * line.quantity)
        .Money(sign * line.amount)
        .Text(slip)
        .Text(user)
        .Text(episode.inPatient ? mCatalogue.rooms[episode.room].code : u"OPD"_s)
        .Text(requesting.code)
        .Text(mCatalogue.doctors[size_t(episode.doctor1)].CompleteName())
        .Text(department)
        .Date(moment)
        .End();
}

/// The ward had asked for the treatment some hours before.
void ChargeMaker::Remember(const Episode& episode, Moment moment, const Line& line, const QString& slip) {
    WardRequest request;
    request.requested = moment.Plus(-mPrng.Between(60, 300));
    request.admission = &episode;
    request.doctor = mCatalogue.doctors[size_t(episode.doctor1)].code;
    request.nurse = NurseName(mPrng);
    request.centre = line.centre;
    request.item = line.code;
    request.status = u'D';
    request.slip = slip;
    request.closedBy = u"NURSE"_s;
    request.closed = moment;
    mHistory.requests.push_back(request);
}

QString NurseName(Prng& prng) {
    const QString& firstName = prng.Pick(FemaleNames());
    return u"%1, %2 RN"_s.arg(prng.Pick(Surnames()), firstName);
}

void AddOpenRequests(const HospitalSize& size, const Catalogue& catalogue, const PatientList& patients,
                     Prng& prng, std::vector<WardRequest>& requests) {
    static const QString items[] = {u"HC001"_s, u"HC003"_s, u"HC014"_s, u"HC013"_s, u"HC021"_s};
    static const QString remarks[] = {u""_s, u"FOR POTASSIUM 6.8"_s, u"WITH FEMORAL CATHETER"_s,
                                      u"PLEASE FETCH BY WHEELCHAIR"_s, u"FOR TREATMENT BEFORE TRANSFUSION"_s};
    std::vector<const Episode*> inPatients;
    for (const Episode& admission : patients.admissions)
        if (!admission.discharged && !admission.billed && admission.admitted.day < -1)
            inPatients.push_back(&admission);
    prng.Shuffle(inPatients);
    // The stations in turn, so that the queue never comes from one ward alone.
    std::vector<const Episode*> chosen;
    for (size_t round = 0; chosen.size() < inPatients.size(); ++round)
        for (const Station& station : catalogue.stations) {
            size_t seen = 0;
            for (const Episode* admission : inPatients)
                if (catalogue.rooms[admission->room].station == station.code && seen++ == round)
                    chosen.push_back(admission);
        }

    constexpr int kRevoked = 4;
    for (int i = 0; i < size.pendingRequests + kRevoked; ++i) {
        const bool revoked = i >= size.pendingRequests;
        WardRequest request;
        // The first patient of the queue waits for two things.
        request.admission = chosen[size_t(i == 1 ? 0 : i) % chosen.size()];
        request.requested = {-1, prng.Between(19 * 60, 23 * 60 + 50)};
        request.doctor = catalogue.doctors[size_t(request.admission->doctor1)].code;
        request.nurse = NurseName(prng);
        request.centre = u"HC"_s;
        request.item = items[size_t(i) % std::size(items)];
        request.remarks = prng.Pick(remarks);
        if (revoked) {
            request.status = u'X';
            request.closedBy = u"CLERK"_s;
            request.closed = request.requested.Plus(5);
        }
        requests.push_back(request);
    }
}

} // namespace Generator
