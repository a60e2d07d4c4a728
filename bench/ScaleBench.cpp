#include "Benches.h"
#include "BenchSession.h"
#include "BenchTable.h"
#include "charges/ChargeColumns.h"
#include "charges/frmPostCharges.h"
#include "components/DepartmentCodes.h"
#include "components/shared.h"
#include "driver/FilledGrid.h"
#include "GiveUp.h"
#include "GrowthTable.h"
#include "maintenance/frmListCharges.h"
#include "MeasuredReports.h"
#include "patients/frmSearchPatient.h"
#include "patients/PatientContext.h"
#include "reports/Reports.h"
#include "ScaleHospital.h"
#include "toolkit/ListView.h"
#include "toolkit/Screens.h"

#include <QCoreApplication>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kHospitals = {1000, 10000, 100000, 1000000};
/// Names and numbers that are keyed, of patients from all over the hospital.
constexpr int kKeyed = 300;
constexpr int kFirstVisit = 104'001;
constexpr int kListRuns = 3;
constexpr int kSlipRuns = 15;
constexpr int kSlipLines = 8;
constexpr int kDayRuns = 3;

/// What a beginning with 50,000 hits may take to its first page.
constexpr double kManyHits = 400;
const auto kTwentieth = u"a twentieth of all visits listed"_s;
const auto kSurnames = u"a surname keyed whole, 95th percentile of 300"_s;
const auto kNumbers = u"a number keyed, 95th percentile of 300"_s;

/// A patient who is looked for.
struct Keyed {
    QString surname;
    QString hospitalNumber;
    QString visit;
};

double Percentile95(std::vector<double> figures) {
    const auto at = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() * 95 / 100);
    std::nth_element(figures.begin(), at, figures.end());
    return *at;
}

void PaintWindow(QWidget& window) {
    QCoreApplication::processEvents();
    window.grab();
}

/// Waits until a list that has been filled is on the screen.
class PaintedList : public QObject {
  public:
    explicit PaintedList(QWidget& viewport) { viewport.installEventFilter(this); }

    void Wait() {
        mIsPainted = false;
        while (!mIsPainted)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        mIsPainted |= event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

  private:
    bool mIsPainted = false;
};

/// The clerk's work on one hospital.
class WorkAtScale {
  public:
    WorkAtScale(GrowthTable& growth, const QString& hospital, int patients)
        : mGrowth(growth)
        , mConnections(hospital)
        , mSession(SignOnTo(hospital))
        , mPatients(patients) {
        gPatientType = u"O"_s;
    }
    WorkAtScale(const WorkAtScale&) = delete;
    WorkAtScale& operator=(const WorkAtScale&) = delete;
    ~WorkAtScale() {
        Screens::Clear();
        gReport = nullptr;
        gConnection = nullptr;
        gCurrentUser = {};
    }

    void MeasureFinder() {
        mFinder = &Screens::Get<frmSearchPatient>();
        mFinder->Show();
        PaintWindow(*mFinder);
        const std::vector<Keyed> keyed = KeyedPatients();
        std::vector<double> names;
        std::vector<double> numbers;
        for (size_t i = 0; i < keyed.size(); ++i) {
            names.push_back(Search(keyed[i].surname));
            numbers.push_back(Search(i % 2 == 0 ? keyed[i].hospitalNumber : keyed[i].visit));
        }
        mGrowth.Add(kSurnames, Percentile95(names));
        mGrowth.Add(kNumbers, Percentile95(numbers));
        MeasureHits(kTwentieth, LetterOfATwentieth());
        MeasureHits(u"all visits listed"_s, {});
        Screens::Clear();
    }

    void MeasureSave() {
        auto& screen = Screens::Get<frmPostCharges>();
        const Keyed patient = KeyedPatient(0);
        screen.Boxes().info.txtPno->setText(patient.hospitalNumber);
        screen.Boxes().info.txtId->setText(patient.visit);
        screen.Boxes().info.txtRoom->setText(u"OPD"_s);
        screen.Boxes().info.txtDoctor->setText(u"DR. BENEDICTO QUIOGUE"_s);
        std::vector<FilledLine> lines;
        lines.reserve(kSlipLines);
        for (int number = 1; number <= kSlipLines; ++number)
            lines.push_back({Department::kEarCare, u"HC%1"_s.arg(number, 3, 10, QChar(u'0'))});
        FillGrid(screen, kPostChargesDifferences, lines);
        mGrowth.Add(u"a slip of %1 lines saved"_s.arg(kSlipLines),
                    MedianMilliseconds(kSlipRuns, [&screen] { screen.SaveCharges(); }));
        Screens::Clear();
    }

    void MeasureList() {
        auto& screen = Screens::Get<frmListCharges>();
        screen.Show();
        PaintWindow(screen);
        const QString account = mConnections.LongestAccount();
        screen.findChild<QLineEdit*>(u"txtId"_s)->setText(account);
        screen.findChild<QLineEdit*>(u"txtPno"_s)->setText(HospitalNumberOf(account));
        auto* list = screen.findChild<QPushButton*>(u"cmdList"_s);
        mGrowth.Add(u"charges of the longest account listed"_s, MedianMilliseconds(kSlipRuns, [&] {
                        list->click();
                        PaintWindow(screen);
                    }));
        Screens::Clear();
    }

    void MeasureReports() {
        const DateTime day = mConnections.LastDay();
        for (const PeriodReport& report : kPeriodReports)
            MeasureReport(report.name, [&] { OpenPeriod(report, day, 1); });
        for (const DirectReport& report : kCensusReports)
            MeasureReport(report.name, [&] { OpenCensus(report); });
        const QString account = mConnections.LongestAccount();
        MeasureReport(kLedger.name, [&] { OpenLedger(account); });
    }

  private:
    QString Asked(const QString& query) const {
        return mConnections.Connect()->Execute(query).Fields(0).ToText();
    }

    QString HospitalNumberOf(const QString& account) const {
        return Asked(
            u"select top 1 HospNum from BILLING..tbPatientCharges where IdNum = '%1'"_s.arg(account));
    }

    Keyed KeyedPatient(int number) const {
        const QString visit = u"%1B"_s.arg(kFirstVisit + number * (mPatients / kKeyed));
        const RowSet patient = mConnections.Connect()->Execute(
            u"select m.LastName, m.HospNum from PATIENT_DATA..tboutpatient as o inner join "
            "PATIENT_DATA..tbmaster as m on m.HospNum = o.HospNum where o.IdNum = '%1'"_s.arg(visit));
        return {patient.Fields(0).ToText(), patient.Fields(1).ToText(), visit};
    }

    std::vector<Keyed> KeyedPatients() const {
        std::vector<Keyed> keyed;
        for (int number = 0; number < kKeyed; ++number) {
            Keyed patient = KeyedPatient(number);
            // Kept: an apostrophe that is keyed breaks the command.
            if (!patient.surname.contains(u'\''))
                keyed.push_back(std::move(patient));
        }
        return keyed;
    }

    /// The first letter whose patients have the number of visits that is nearest to a twentieth of all.
    QString LetterOfATwentieth() const {
        const RowSet letters = mConnections.Connect()->Execute(
            u"select top 1 x.Letter from (select left(m.LastName, 1) as Letter from PATIENT_DATA..tbmaster as m "
            "inner join PATIENT_DATA..tboutpatient as o on o.HospNum = m.HospNum) as x group by x.Letter "
            "order by abs(count(*) - %1)"_s.arg(mPatients / 20));
        return letters.Fields(0).ToText();
    }

    /// From Enter to the painted list, in milliseconds.
    double Search(const QString& text) {
        auto* box = mFinder->findChild<QLineEdit*>(u"txtLastName"_s);
        box->setFocus();
        box->setText(text);
        QCoreApplication::processEvents();
        PaintedList list(*mFinder->findChild<ListView*>()->viewport());
        return Milliseconds([&] {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s);
            QCoreApplication::sendEvent(box, &press);
            list.Wait();
        });
    }

    void MeasureHits(const QString& what, const QString& text) {
        std::vector<double> times;
        times.reserve(kListRuns);
        for (int run = 0; run < kListRuns; ++run)
            times.push_back(Search(text));
        mGrowth.Add(what, Median(times));
        std::fprintf(stderr, "%d patients, '%s': %d hits, %.0f ms\n", mPatients, qPrintable(text),
                     mFinder->findChild<ListView*>()->RowCount(), Median(times));
    }

    template <class Open> void MeasureReport(const char* name, Open open) {
        std::vector<double> times;
        for (int run = 0; run < kDayRuns; ++run) {
            open();
            times.push_back(Milliseconds([] { ShowFirstPage(); }));
        }
        mGrowth.Add(QString::fromLatin1(name), Median(times));
    }

    GrowthTable& mGrowth;
    ReportConnections mConnections;
    std::shared_ptr<BenchSession> mSession;
    int mPatients;
    frmSearchPatient* mFinder = nullptr;
};

/// A copy to work on: slips are saved into it.
QString CopyOfScaleHospital(const QTemporaryDir& folder, int patients) {
    QString copy = folder.filePath(u"%1.db"_s.arg(patients));
    if (!QFile::copy(ScaleHospital(patients), copy))
        GiveUp(u"cannot copy the hospital to "_s + copy);
    return copy;
}

void MeasureHospital(GrowthTable& growth, int patients) {
    const QTemporaryDir folder;
    const QString hospital = CopyOfScaleHospital(folder, patients);
    growth.BeginSize(patients);
    WorkAtScale work(growth, hospital, patients);
    work.MeasureFinder();
    work.MeasureSave();
    work.MeasureList();
    work.MeasureReports();
}

} // namespace

void BenchScale(BenchTable& table, int most) {
    if (most != 0 && most < kHospitals.front())
        GiveUp(u"the smallest hospital has %1 patients"_s.arg(kHospitals.front()));
    GrowthTable growth;
    for (const int patients : kHospitals) {
        if (most == 0 || patients <= most)
            MeasureHospital(growth, patients);
    }
    growth.Print();
    if (growth.Largest() == kHospitals.back())
        table.AddLimit(u"a beginning with 50,000 hits of a million, Enter to the first page"_s,
                       growth.Last(kTwentieth), kManyHits, u"ms"_s);
    for (const GrowthTable::Row& row : growth.Rows())
        table.AddLimit(row.operation + u", smallest to largest hospital: times"_s, row.Growth(),
                       growth.GrowthOfPatients(), u""_s);
}
