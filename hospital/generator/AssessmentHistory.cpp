#include "AssessmentHistory.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstAssessment = 5001;
constexpr int kFirstReceipt = 310'001;
constexpr int kDaysPerMonth = 30;

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
    const Doctor* doctor = nullptr;
    QString user = {};
    bool paid = false;
    bool revoked = false;
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
            // Every twentieth is a single line without a number.
            const bool alone = ++count % 20 == 0;
            MakeOne(moment, alone ? QString() : QString::number(number++), alone ? 1 : mPrng.Between(1, 4));
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

    void MakeOne(Moment moment, const QString& refNum, int lines) {
        Assessment assessment{.moment = moment, .refNum = refNum, .payer = PickPayer(moment)};
        assessment.doctor = &mPrng.Pick(mCatalogue.doctors);
        assessment.user = mPrng.Chance(50) ? u"NURSE"_s : u"CLERK"_s;
        const int fate = mPrng.Below(100);
        assessment.paid = fate < 50;
        assessment.revoked = !assessment.paid && fate < 65;
        if (assessment.paid)
            assessment.receipt = QString::number(mNextReceipt++);
        const auto first = size_t(mPrng.Below(int(mCatalogue.services.size())));
        for (size_t i = 0; i < size_t(lines); ++i) {
            const Service& service = mCatalogue.services[(first + i) % mCatalogue.services.size()];
            if (i == 3)
                WriteLine(assessment, StockLine(mPrng.Pick(mCatalogue.stock)));
            // A package is taken apart when an assessment is saved and never becomes a line of its own.
            else if (service.centre != "YP"_L1)
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
            .Date(assessment.paid ? std::optional(moment.Plus(15)) : std::nullopt)
            .Date(assessment.revoked ? std::optional(moment.Plus(40)) : std::nullopt)
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
