#include "PatientList.h"

#include "CatalogueData.h"
#include "NameLists.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace Generator {

namespace {

constexpr int kFirstHospNum = 100'001;
constexpr int kFirstAccountNum = 500'001;
constexpr int kFirstAdmission = 700'001;
constexpr int kFirstVisit = 104'001;

/// Makes the episodes of a hospital. Who comes for dialysis as an out-patient and who is in the hospital now
/// have no other episode.
class EpisodeMaker {
  public:
    EpisodeMaker(const HospitalSize& size, const Catalogue& catalogue, Prng& prng)
        : mSize(size)
        , mCatalogue(catalogue)
        , mPrng(prng)
        , mCompanies(CompanyRows())
        , mOrder(size_t(size.patients)) {
        std::iota(mOrder.begin(), mOrder.end(), size_t(0));
        mPrng.Shuffle(mOrder);
    }

    void Make(PatientList& list) {
        AddChronicVisits(list);
        AddInPatients(list);
        mFirstFree = mNext;
        AddPastAdmissions(list);
        AddSingleVisits(list);
        Number(list.admissions, kFirstAdmission, {});
        Number(list.visits, kFirstVisit, u"B"_s);
    }

    /// The person who has a single visit in any case.
    size_t PersonWithVisit() const { return mOrder[mFirstFree]; }
    /// The n-th of the regular patients and of those who are in the hospital now, from 0.
    size_t Regular(size_t n) const { return mOrder[n]; }
    size_t InPatient(size_t n) const { return mOrder[mFirstFree - size_t(mSize.inPatients) + n]; }

  private:
    int HistoryDays() const { return mSize.months * kDaysPerMonth; }
    size_t Following() { return mOrder[mNext++ % mOrder.size()]; }
    /// Somebody who neither comes for dialysis nor is in the hospital now.
    size_t Anybody() { return mOrder[mFirstFree + size_t(mPrng.Below(int(mOrder.size() - mFirstFree)))]; }
    int Doctor() { return mPrng.Below(int(mCatalogue.doctors.size())); }
    /// The first eight doctors of the list are the unit's own.
    int Nephrologist() { return mPrng.Below(8); }
    QString Company() {
        return (mPrng.Chance(40) ? mCompanies[0] : mPrng.Pick(mCompanies)).section(u'|', 0, 0);
    }

    Episode MakeEpisode(size_t person, bool inPatient, Moment admitted) {
        Episode episode;
        episode.person = person;
        episode.inPatient = inPatient;
        episode.admitted = admitted;
        episode.company = Company();
        episode.doctor1 = Doctor();
        if (mPrng.Chance(40))
            episode.doctor2 = Doctor();
        return episode;
    }

    /// The regular patients: one visit number a month, closed and billed when the month ends; the last is
    /// open.
    void AddChronicVisits(PatientList& list) {
        const int regulars = mSize.Regulars();
        for (int i = 0; i < regulars; ++i) {
            const size_t person = Following();
            const QString company = Company();
            const int doctor = Nephrologist();
            int start = -HistoryDays() + mPrng.Below(4);
            for (int month = 0; month < mSize.months; ++month) {
                const int next = -HistoryDays() + (month + 1) * kDaysPerMonth + mPrng.Below(4);
                Episode visit = MakeEpisode(person, false, {start, mPrng.Between(300, 480)});
                visit.company = company;
                visit.doctor1 = doctor;
                if (mPrng.Chance(10))
                    visit.doctor3 = Doctor();
                visit.dialysis = true;
                visit.shift = i % 2;
                if (month + 1 < mSize.months) {
                    visit.discharged = Moment{next - 1, 17 * 60};
                    visit.billed = Moment{next - 1, 18 * 60};
                }
                list.visits.push_back(visit);
                start = next;
            }
        }
    }

    /// Who lies in the hospital now, each in a bed of its own, beds of every class in turn. The account of
    /// every fifteenth is closed already. One came today.
    void AddInPatients(PatientList& list) {
        std::vector<size_t> beds;
        std::vector<std::vector<size_t>> byClass(kRoomClassCount);
        for (size_t i = 0; i < mCatalogue.rooms.size(); ++i)
            byClass[size_t(mCatalogue.rooms[i].roomClass)].push_back(i);
        for (size_t row = 0; beds.size() < mCatalogue.rooms.size(); ++row)
            for (const auto& rooms : byClass)
                if (row < rooms.size())
                    beds.push_back(rooms[row]);

        for (int i = 0; i < mSize.inPatients; ++i) {
            const bool closed = i % 15 == 7;
            const Moment admitted = i == 0 ? Moment{0, 0}
                                           : Moment{-mPrng.Between(closed ? 3 : 1, i % 7 == 0 ? 45 : 14),
                                                    mPrng.Below(Moment::kMinutesPerDay)};
            Episode admission = MakeEpisode(Following(), true, admitted);
            admission.room = beds[size_t(i)];
            if (closed) {
                admission.billed = Moment{-1, 16 * 60};
            } else if (i % 2 == 0) {
                admission.dialysis = true;
                admission.shift = i / 2 % 2;
                admission.doctor1 = Nephrologist();
            }
            list.admissions.push_back(admission);
        }
    }

    void AddPastAdmissions(PatientList& list) {
        for (int i = mSize.inPatients; i < mSize.admissions; ++i) {
            const int start = -mPrng.Between(12, HistoryDays());
            const Moment admitted{start, mPrng.Below(Moment::kMinutesPerDay)};
            Episode admission = MakeEpisode(Anybody(), true, admitted);
            admission.room = size_t(mPrng.Below(int(mCatalogue.rooms.size())));
            const Moment discharged{start + mPrng.Between(2, 10), mPrng.Between(8 * 60, 17 * 60)};
            admission.discharged = discharged;
            admission.billed = discharged.Plus(-mPrng.Between(20, 90));
            admission.dialysis = mPrng.Chance(40);
            admission.shift = mPrng.Below(2);
            list.admissions.push_back(admission);
        }
    }

    /// Who came once: for a consultation, for the care of an access. Those of today came at no stated time.
    void AddSingleVisits(PatientList& list) {
        const int count = mSize.visits - int(list.visits.size());
        for (int i = 0; i < count; ++i) {
            const int day = i < 4 ? 0 : -mPrng.Between(1, HistoryDays());
            const Moment admitted{day, day == 0 ? 0 : mPrng.Between(6 * 60, 16 * 60)};
            Episode visit = MakeEpisode(i == 0 ? PersonWithVisit() : Anybody(), false, admitted);
            if (day < -2 ? mPrng.Chance(90) : day < 0 && mPrng.Chance(40)) {
                visit.discharged = admitted.Plus(mPrng.Between(60, 300));
                if (mPrng.Chance(70))
                    visit.billed = visit.discharged->Plus(30);
            }
            list.visits.push_back(visit);
        }
    }

    static void Number(std::vector<Episode>& episodes, int first, const QString& suffix) {
        std::ranges::stable_sort(episodes, {}, &Episode::admitted);
        for (Episode& episode : episodes)
            episode.idNum = QString::number(first++) + suffix;
    }

    const HospitalSize& mSize;
    const Catalogue& mCatalogue;
    Prng& mPrng;
    QStringList mCompanies;
    std::vector<size_t> mOrder;
    size_t mNext = 0;
    size_t mFirstFree = 0;
};

Person MakePerson(Prng& prng) {
    Person person;
    person.male = prng.Chance(50);
    person.lastName = prng.Pick(Surnames());
    person.firstName = prng.Pick(person.male ? MaleNames() : FemaleNames());
    if (!prng.Chance(4))
        person.middleName = prng.Pick(Surnames());
    person.birthDate = BaseDay().addDays(-prng.Between(16 * 365, 88 * 365));
    person.civilStatus = QString::number(person.Age() < 18 ? 0 : prng.Between(1, 5));
    person.street = u"%1 %2"_s.arg(prng.Between(1, 980)).arg(prng.Pick(Streets()));
    person.barangay = prng.Pick(Barangays());
    person.zipCode = prng.Pick(Towns()).zipCode;
    return person;
}

} // namespace

QString Person::Name() const {
    return (lastName + ", "_L1 + firstName + u' ' + middleName).trimmed();
}

int Person::Age() const {
    const QDate today = BaseDay();
    const bool birthdayPassed =
        std::pair(today.month(), today.day()) >= std::pair(birthDate.month(), birthDate.day());
    return today.year() - birthDate.year() - (birthdayPassed ? 0 : 1);
}

PatientList MakePatientList(const HospitalSize& size, const Catalogue& catalogue, Prng& prng) {
    PatientList list;
    for (int i = 0; i < size.patients; ++i) {
        Person person = MakePerson(prng);
        person.hospNum = QString::number(kFirstHospNum + i);
        person.accountNum = QString::number(kFirstAccountNum + i);
        list.persons.push_back(person);
    }
    for (int i = 0; i < size.walkIns; ++i) {
        Person person = MakePerson(prng);
        person.hospNum = u"W%1"_s.arg(i + 1, 6, 10, QChar(u'0'));
        if (i % 5 == 4)
            person.birthDate = {};
        list.walkIns.push_back(person);
        list.registered.push_back({-prng.Between(1, size.months * kDaysPerMonth), prng.Between(360, 960)});
    }
    std::ranges::sort(list.registered);

    EpisodeMaker maker(size, catalogue, prng);
    maker.Make(list);
    // Names that have to be on file among in-patients and out-patients, whatever the dice say.
    static const QString surnames[] = {u"DELA CRUZ"_s, u"DELA CRUZ"_s, u"DE LOS SANTOS"_s, u"MUÑOZ"_s,
                                       u"PEÑA"_s,      u"CASTAÑEDA"_s, u"ÑIGUEZ"_s};
    for (size_t i = 0; i < std::size(surnames); ++i) {
        list.persons[maker.Regular(i)].lastName = surnames[i];
        list.persons[maker.InPatient(i)].lastName = surnames[i];
    }
    // The one name with an apostrophe.
    Person& person = list.persons[maker.PersonWithVisit()];
    person.male = true;
    person.lastName = u"O'BRIEN"_s;
    person.firstName = u"MICHAEL"_s;
    return list;
}

} // namespace Generator
