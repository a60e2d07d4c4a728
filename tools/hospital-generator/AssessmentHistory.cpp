#include "AssessmentHistory.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Generator {

namespace {

constexpr int kFirstAssessment = 5001;
constexpr int kFirstReceipt = 310'001;
/// One of so many is a single line without a number.
constexpr int kSingleLines = 10;

enum class Fate { Open, Paid, Revoked };

struct Payer {
    QString name;
    QString hospNum;
    QString idNum;
    int roomClass = 0;
};

struct Assessment {
    Moment moment;
    /// Empty for a single line without a number.
    QString refNum;
    Payer payer;
    Fate fate = Fate::Open;
    const Doctor* doctor = nullptr;
    QString user = {};
    /// Of a paid one.
    QString receipt = {};
};

struct Line {
    QString centre;
    QString code;
    QString description;
    qint64 price = 0;
};

/// Makes the assessments one by one.
class AssessmentMaker {
  public:
    AssessmentMaker(const HospitalSize& size, const Catalogue& catalogue, const PatientList& patients,
                    Prng& prng, InsertWriter& writer)
        : mCatalogue(catalogue)
        , mPatients(patients)
        , mPrng(prng)
        , mWriter(writer) {
        for (int i = 0; i < size.assessments; ++i)
            mMoments.push_back(
                {-prng.Between(1, size.months * kDaysPerMonth), prng.Between(7 * 60, 17 * 60)});
        std::ranges::sort(mMoments);
    }

    int Make() {
        int number = kFirstAssessment;
        int count = 0;
        for (const Moment moment : mMoments) {
            if (++count % kSingleLines == 0) {
                // Few as they are, they take turns, so that each fate is met among them.
                MakeOne(moment, {}, 1, Fate(count / kSingleLines % 3));
            } else {
                const Fate fate = PickFate();
                MakeOne(moment, QString::number(number++), mPrng.Between(1, 4), fate);
            }
        }
        mWriter.Finish();
        return number;
    }

  private:
    Payer PickPayer(Moment moment) {
        const int kind = mPrng.Below(3);
        if (kind == 0 && !mPatients.walkIns.empty()) {
            const Person& person = mPrng.Pick(mPatients.walkIns);
            return {person.Name(), person.hospNum, {}, 0};
        }
        const auto& episodes = kind == 1 ? mPatients.admissions : mPatients.visits;
        // The last episode that had begun by then.
        const auto next = std::ranges::upper_bound(episodes, moment, {}, &Episode::admitted);
        const auto begun = int(next - episodes.begin());
        if (begun == 0)
            return {u"REYES, WALTER"_s, {}, {}, 0};
        const Episode& episode = episodes[size_t(begun - 1 - mPrng.Below(std::min(begun, 5)))];
        const Person& person = mPatients.persons[episode.person];
        return {person.Name(), person.hospNum, episode.idNum,
                episode.inPatient ? mCatalogue.rooms[episode.room].roomClass : 0};
    }

    Fate PickFate() {
        const int chance = mPrng.Below(100);
        if (chance < 50)
            return Fate::Paid;
        return chance < 65 ? Fate::Revoked : Fate::Open;
    }

    /// A package is taken apart when an assessment is saved and never becomes a line of its own.
    bool IsPackage(size_t service) const { return mCatalogue.services[service].centre == "YP"_L1; }

    /// The service of the first line, so that every assessment has one.
    size_t PickFirst() {
        size_t first = 0;
        do
            first = size_t(mPrng.Below(int(mCatalogue.services.size())));
        while (IsPackage(first));
        return first;
    }

    void MakeOne(Moment moment, const QString& refNum, int lines, Fate fate) {
        Assessment assessment{.moment = moment, .refNum = refNum, .payer = PickPayer(moment), .fate = fate};
        assessment.doctor = &mPrng.Pick(mCatalogue.doctors);
        assessment.user = mPrng.Chance(50) ? u"NURSE"_s : u"CLERK"_s;
        if (fate == Fate::Paid)
            assessment.receipt = QString::number(mNextReceipt++);
        const size_t first = PickFirst();
        for (size_t i = 0; i < size_t(lines); ++i) {
            const size_t number = (first + i) % mCatalogue.services.size();
            const Service& service = mCatalogue.services[number];
            if (i == 3)
                WriteLine(assessment, StockLine(mPrng.Pick(mCatalogue.stock)));
            else if (!IsPackage(number))
                WriteLine(assessment, {service.centre, service.code, service.name,
                                       service.rates[size_t(assessment.payer.roomClass)]});
        }
    }

    static Line StockLine(const StockItem& item) {
        return {item.section == "1"_L1 ? u"HB"_s : u"HD"_s, item.code, item.name, item.priceIn};
    }

    void WriteLine(const Assessment& assessment, const Line& line) {
        const Doctor& doctor = *assessment.doctor;
        const Moment moment = assessment.moment;
        const int quantity = mPrng.Chance(80) ? 1 : 2;
        mWriter.Begin()
            .TextOrNull(assessment.refNum)
            .Text(assessment.payer.name)
            .Text(assessment.payer.hospNum)
            .Text(assessment.payer.idNum)
            .Text(line.centre)
            .Text(line.code)
            .Text(line.description)
            .Text(QString::number(quantity))
            .Number(quantity)
            .Money(line.price * quantity)
            .Text(u"HC")
            .Text(assessment.user)
            .Text(doctor.code)
            .Text(u"DR. "_s + doctor.firstName + u' ' + doctor.lastName)
            .Date(moment)
            .TextOrNull(assessment.receipt)
            .Date(assessment.fate == Fate::Paid ? std::optional(moment.Plus(15)) : std::nullopt)
            .Date(assessment.fate == Fate::Revoked ? std::optional(moment.Plus(40)) : std::nullopt)
            .TextOrNull(assessment.fate == Fate::Revoked ? assessment.user : QString())
            .End();
    }

    const Catalogue& mCatalogue;
    const PatientList& mPatients;
    Prng& mPrng;
    InsertWriter& mWriter;
    std::vector<Moment> mMoments;
    int mNextReceipt = kFirstReceipt;
};

} // namespace

int WriteAssessments(const HospitalSize& size, const Catalogue& catalogue, const PatientList& patients,
                     Prng& prng, InsertWriter& writer) {
    return AssessmentMaker(size, catalogue, patients, prng, writer).Make();
}

} // namespace Generator
