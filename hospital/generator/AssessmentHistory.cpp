#include "AssessmentHistory.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstAssessment = 5001;
constexpr int kFirstReceipt = 310'001;
constexpr int kDaysPerMonth = 30;
/// One of so many is a single line without a number.
constexpr int kSingleLines = 10;

enum class Fate { Open, Paid, Revoked };

struct Payer {
    QString name;
    QString hospNum;
    QString idNum;
    int roomClass = 0;
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
            if (++count % kSingleLines == 0)
                // Few as they are, they take turns, so that each fate is met among them.
                MakeOne(moment, {}, 1, Fate(count / kSingleLines % 3));
            else
                MakeOne(moment, QString::number(number++), mPrng.Between(1, 4), PickFate());
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
    bool IsPackage(int service) const { return mCatalogue.services[size_t(service)].centre == "YP"_L1; }

    /// The service of the first line, so that every assessment has one.
    int PickFirst() {
        int first = 0;
        do
            first = mPrng.Below(int(mCatalogue.services.size()));
        while (IsPackage(first));
        return first;
    }

    void MakeOne(Moment moment, const QString& refNum, int lines, Fate fate) {
        const Payer payer = PickPayer(moment);
        const Doctor& doctor = mPrng.Pick(mCatalogue.doctors);
        const QString user = mPrng.Chance(50) ? u"NURSE"_s : u"CLERK"_s;
        const bool paid = fate == Fate::Paid;
        const bool revoked = fate == Fate::Revoked;
        const QString receipt = paid ? QString::number(mNextReceipt++) : QString();
        const int first = PickFirst();
        for (int i = 0; i < lines; ++i) {
            QString centre;
            QString code;
            QString description;
            qint64 price = 0;
            if (i == 3) {
                const StockItem& item = mPrng.Pick(mCatalogue.stock);
                centre = item.section == "1"_L1 ? u"HB"_s : u"HD"_s;
                code = item.code;
                description = item.name;
                price = item.priceIn;
            } else {
                const int number = (first + i) % int(mCatalogue.services.size());
                if (IsPackage(number))
                    continue;
                const Service& service = mCatalogue.services[size_t(number)];
                centre = service.centre;
                code = service.code;
                description = service.name;
                price = service.rates[size_t(payer.roomClass)];
            }
            const int quantity = mPrng.Chance(80) ? 1 : 2;
            mWriter.Begin()
                .TextOrNull(refNum)
                .Text(payer.name)
                .Text(payer.hospNum)
                .Text(payer.idNum)
                .Text(centre)
                .Text(code)
                .Text(description)
                .Text(QString::number(quantity))
                .Number(quantity)
                .Money(price * quantity)
                .Text(u"HC")
                .Text(user)
                .Text(doctor.code)
                .Text(u"DR. "_s + doctor.firstName + u' ' + doctor.lastName)
                .Date(moment)
                .TextOrNull(receipt)
                .Date(paid ? std::optional(moment.Plus(15)) : std::nullopt)
                .Date(revoked ? std::optional(moment.Plus(40)) : std::nullopt)
                .End();
        }
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
