#include "TreatmentRecords.h"

#include "NameLists.h"

#include <QMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Generator {

namespace {

/// Its own row of numbers, so that the other scripts stay as they are.
constexpr quint64 kTreatmentSeed = 20'260'203;
constexpr size_t kRecords = 24;
constexpr int kMachines = 12;
constexpr int kHours = 4;
constexpr int kMachineReadings = 4;
/// One every half hour, at the start and at the end.
constexpr int kVitalSigns = 2 * kHours + 1;

/// Minutes of the day as "06:30AM".
QString TimeText(int minute) {
    const int hour = minute / 60 % 24;
    return u"%1:%2%3"_s.arg(hour % 12 == 0 ? 12 : hour % 12, 2, 10, QChar(u'0'))
        .arg(minute % 60, 2, 10, QChar(u'0'))
        .arg(hour < 12 ? u"AM"_s : u"PM"_s);
}

/// Tenths as "58.5".
QString TenthsText(int tenths) {
    return u"%1.%2"_s.arg(tenths / 10).arg(tenths % 10);
}

/// Makes one record, group by group.
class RecordMaker {
  public:
    RecordMaker(const Treatment& treatment, Prng& prng)
        : mTreatment(treatment)
        , mPrng(prng)
        , mDryTenths(prng.Between(420, 780))
        , mGainTenths(prng.Between(12, 38))
        , mStart(treatment.moment.minute)
        , mNurse(NurseName(prng))
        // A machine's prescription and what it then shows.
        , mFlow(mPrng.Between(5, 7) * 50)
        , mEventful(mPrng.Chance(30)) {}

    QMap<QString, QString> Make(const Person& person, int number, bool evaluated) {
        Identity(person, number);
        Run();
        Prescription();
        MachineReadings();
        VitalSigns();
        AssessmentBefore();
        ComplaintsBefore();
        MachineChecks();
        Course();
        Evaluation(evaluated);
        return mFields;
    }

  private:
    void Set(const QString& name, const QString& value) { mFields[name] = value; }
    void SetNth(const QString& name, int number, const QString& value) {
        mFields[name + QString::number(number)] = value;
    }
    /// Checks one of the boxes.
    void Check(const QStringList& names, int chosen) {
        for (int i = 0; i < int(names.size()); ++i)
            Set(names[i], i == chosen ? u"1"_s : QString());
    }

    void Identity(const Person& person, int number) {
        const Episode& episode = *mTreatment.episode;
        Set(u"HospNum"_s, person.hospNum);
        Set(u"IdNum"_s, episode.idNum);
        Set(u"RequestNum"_s, mTreatment.slip);
        Set(u"DialysisNumber"_s, QString::number(number));
        Set(u"MachineNumber"_s, QString::number(mPrng.Between(1, kMachines)));
        Set(u"PatientType"_s, episode.inPatient ? u"I"_s : u"O"_s);
        Set(u"ResultDate"_s, DayText(BaseDay().addDays(mTreatment.moment.day)));
        Set(u"UserId"_s, mTreatment.user);
    }

    void Run() {
        Set(u"HdStartTime"_s, TimeText(mStart));
        Set(u"HdEndTime"_s, TimeText(mStart + kHours * 60));
        Set(u"DryWeight"_s, TenthsText(mDryTenths));
        Set(u"WtPreHD"_s, TenthsText(mDryTenths + mGainTenths));
        Set(u"WtPostHD"_s, TenthsText(mDryTenths + mPrng.Between(0, 4)));
        Set(u"PostHDRemarks"_s, mEventful ? u"FOR CLOSE MONITORING NEXT RUN"_s : u"TOLERATED THE RUN"_s);
        Set(u"HdNursePatient1"_s, mNurse);
        Set(u"HdNurseMachine1"_s, mNurse);
        Set(u"HdNursePatient2"_s, NurseName(mPrng));
    }

    void Prescription() {
        static const QString dialyzers[] = {u"F6 HPS"_s, u"F7 HPS"_s, u"F8 HPS"_s, u"ELISIO 17H"_s};
        const int use = mPrng.Between(1, 6);
        Set(u"UFV"_s, TenthsText(mGainTenths + 3) + u" L"_s);
        Set(u"BFR"_s, QString::number(mFlow));
        Set(u"DFR"_s, u"500"_s);
        Set(u"Duration"_s, QString::number(kHours) + u" HRS"_s);
        Set(u"Bath"_s, u"BICARBONATE"_s);
        Set(u"Heparin"_s, mPrng.Chance(80) ? u"2000 U BOLUS, 1000 U/HR"_s : u"HEPARIN FREE"_s);
        Set(u"TxParameters"_s, u"NA 138, TEMP 36.5"_s);
        Set(u"DialyzerType"_s, mPrng.Pick(dialyzers));
        Set(u"DialyzerUse"_s, QString::number(use));
        Set(u"BloodLineUse"_s, QString::number(use));
        Set(u"PhysiciansOrders"_s, u"HD 3X A WEEK, EPOETIN AFTER EACH RUN"_s);
        Set(u"SignificantData"_s, mPrng.Chance(30) ? u"HBSAG NONREACTIVE, HGB 9.8"_s : QString());
    }

    /// The pressures creep up while the fibres clot.
    void MachineReadings() {
        for (int i = 1; i <= kMachineReadings; ++i) {
            SetNth(u"Time"_s, i, TimeText(mStart + (i - 1) * 60 + 5));
            SetNth(u"Bfr"_s, i, QString::number(i == 1 ? mFlow - 50 : mFlow));
            SetNth(u"AP"_s, i, QString::number(-(mPrng.Between(110, 140) + 5 * i)));
            SetNth(u"VP"_s, i, QString::number(mPrng.Between(100, 130) + 8 * i));
            SetNth(u"TMP"_s, i, QString::number(mPrng.Between(60, 90) + 10 * i));
        }
    }

    /// The pressure falls while fluid is taken off; in an eventful run it drops in the third hour.
    void VitalSigns() {
        const int systolic = mPrng.Between(14, 18) * 10;
        const int pulse = mPrng.Between(72, 88);
        for (int i = 1; i <= kVitalSigns; ++i) {
            const bool drop = mEventful && i == 6;
            const int now = drop ? 80 : systolic - 5 * (i - 1);
            SetNth(u"TIMETIME"_s, i, TimeText(mStart + (i - 1) * 30));
            SetNth(u"BP"_s, i, u"%1/%2"_s.arg(now).arg(drop ? 50 : now / 2 + mPrng.Between(0, 8)));
            SetNth(u"CR"_s, i, QString::number(drop ? pulse + 28 : pulse + mPrng.Between(-4, 6)));
            SetNth(u"RR"_s, i, QString::number(mPrng.Between(18, 22)));
            SetNth(u"TEMP"_s, i, TenthsText(mPrng.Between(362, 370)));
        }
    }

    void AssessmentBefore() {
        const bool walks = !mTreatment.episode->inPatient || mPrng.Chance(30);
        Set(u"Arrived"_s, TimeText(mStart - mPrng.Between(10, 30)));
        Check({u"ArrAmbulatory"_s, u"ArrWheelChair"_s}, walks ? 0 : 1);
        Check({u"GaitSteady"_s, u"GaitAssisted"_s}, walks ? 0 : 1);
        Check({u"LOCAlert"_s, u"LOCDrowsy"_s}, mPrng.Chance(90) ? 0 : 1);
        Check({u"NVENone"_s, u"NVEProminent"_s}, mGainTenths > 30 ? 1 : 0);
        Check({u"BreathingNormal"_s, u"BreathingDyspneic"_s}, mGainTenths > 34 ? 1 : 0);
        Check({u"LungsClear"_s, u"LungsRales"_s}, mGainTenths > 32 ? 1 : 0);
        Set(u"LungsRalesText"_s, mGainTenths > 32 ? u"BIBASAL"_s : QString());
        Check({u"HeartRhythRegular"_s, u"HeartRhythIrregular"_s}, mPrng.Chance(92) ? 0 : 1);
        Check({u"EdemaNone"_s, u"EdemaLowerExt"_s}, mGainTenths > 25 ? 1 : 0);
        Set(u"EdemaText"_s, mGainTenths > 25 ? u"GRADE 1, BIPEDAL"_s : QString());
    }

    void ComplaintsBefore() {
        Check({u"EmotionalAppropriate"_s, u"EmotionalIndifferent"_s}, mPrng.Chance(95) ? 0 : 1);
        Check({u"SleepGood"_s, u"SleepFair"_s, u"SleepPoor"_s}, mPrng.Below(3));
        Check({u"AppetiteGood"_s, u"AppetiteFair"_s, u"AppetitePoor"_s}, mPrng.Below(3));
        Set(u"AccessCondGood"_s, u"1"_s);
        Set(u"AccessCondText"_s, mPrng.Chance(75) ? u"AVF LEFT, GOOD THRILL"_s : u"PERMCATH RIGHT IJ"_s);
        const bool complains = mPrng.Chance(20);
        Check({u"ComplaintsNone"_s, u"ComplaintsOthers"_s}, complains ? 1 : 0);
        Set(u"ComplaintsText"_s, complains ? u"PRURITUS"_s : QString());
        Set(u"PreDialysisNurse"_s, mNurse);
    }

    void MachineChecks() {
        for (const QString& check :
             {u"SCCond"_s, u"SCTemp"_s, u"SCIntrlk"_s, u"SCByPass"_s, u"SCBleak"_s, u"SCAirDTK"_s})
            Set(check, u"1"_s);
        Set(u"DialysateNa"_s, u"138"_s);
        Set(u"DialysateBIC"_s, u"32"_s);
        Set(u"DialysateK"_s, mPrng.Chance(80) ? u"2.0"_s : u"3.0"_s);
        Set(u"DialysateCa"_s, u"1.5"_s);
        Set(u"DialysateDex"_s, u"100"_s);
        Set(u"DialysateT"_s, u"36.5"_s);
        Set(u"DialysateCond"_s, u"13."_s + QString::number(mPrng.Between(8, 9)));
        Set(u"Prime"_s, u"1"_s);
        Set(u"Resid"_s, u"NEG"_s);
        Set(u"ID1"_s, mNurse.section(u',', 0, 0));
        Set(u"ID2"_s, mFields[u"HdNursePatient2"_s].section(u',', 0, 0));
    }

    void Course() {
        Check({u"TreatmentUneventful"_s, u"TreatmentEventful"_s}, mEventful ? 1 : 0);
        Set(u"IntraDialyticTime1"_s, mEventful ? TimeText(mStart + 150) : QString());
        Set(u"IntraDialyticEvent1"_s,
            mEventful ? u"BP 80/50, DIZZY. TRENDELENBURG, PNSS 200 ML, UF OFF"_s : QString());
        Set(u"IntraDialyticTime2"_s, mEventful ? TimeText(mStart + 165) : QString());
        Set(u"IntraDialyticEvent2"_s, mEventful ? u"BP 110/70, UF RESUMED"_s : QString());
    }

    void Evaluation(bool evaluated) {
        const auto set = [&](const QString& name, const QString& value) {
            Set(name, evaluated ? value : QString());
        };
        const bool walks = mFields[u"ArrAmbulatory"_s] == u"1"_s;
        set(u"PDEvalAccessCare"_s, u"1"_s);
        set(u"PDEvalAccessText"_s, u"PRESSURE DRESSING APPLIED"_s);
        set(u"PDEvalEPO"_s, u"1"_s);
        set(u"PDEvalEPOText"_s, u"4000 U SC"_s);
        set(u"PDEvalPxCondFair"_s, u"1"_s);
        set(u"PDEvalBreathNormal"_s, u"1"_s);
        set(u"PDEvalDischarge"_s, TimeText(mStart + kHours * 60 + 20));
        set(u"PDEvalDcrAmbulatory"_s, walks ? u"1"_s : QString());
        set(u"PDEvalDcrWheel"_s, walks ? QString() : u"1"_s);
        set(u"PDEvalNurse"_s, mNurse);
    }

    const Treatment& mTreatment;
    Prng& mPrng;
    int mDryTenths;
    int mGainTenths;
    int mStart;
    QString mNurse;
    int mFlow;
    bool mEventful;
    QMap<QString, QString> mFields;
};

} // namespace

TreatmentRecords MakeTreatmentRecords(const PatientList& patients, const std::vector<Treatment>& treatments) {
    Prng prng(kTreatmentSeed);
    TreatmentRecords records;
    const size_t first = treatments.size() - std::min(treatments.size(), kRecords);
    for (size_t i = first; i < treatments.size(); ++i) {
        const Treatment& treatment = treatments[i];
        const auto number =
            std::count_if(treatments.begin(), treatments.begin() + std::ptrdiff_t(i) + 1,
                          [&](const Treatment& other) { return other.episode == treatment.episode; });
        const QMap<QString, QString> fields =
            RecordMaker(treatment, prng)
                .Make(patients.persons[treatment.episode->person], int(number), i + 1 < treatments.size());
        records.columns = fields.keys();
        records.rows.emplace_back(fields.values());
    }
    return records;
}

} // namespace Generator
