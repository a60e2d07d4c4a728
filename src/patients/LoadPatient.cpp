#include "patients/LoadPatient.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "patients/FinderTarget.h"
#include "patients/frmSearchPatient.h"
#include "patients/PatientContext.h"
#include "text/Clock.h"
#include "text/DateDiff.h"
#include "text/Format.h"
#include "text/IsDate.h"
#include "text/RunTimeError.h"
#include "toolkit/Screens.h"

#include <QRadioButton>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kDatePattern = u"mm/dd/yyyy";

QString CutTrailingBlanks(const Value& value) {
    QString text = value.ToText();
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString DateText(const Value& date) {
    return Format(date.ToDate(), kDatePattern);
}

/// The date without its time of day, by way of its text.
DateTime DayOf(const DateTime& date) {
    const auto day = ParseDate(Format(date, kDatePattern));
    if (!day)
        throw RunTime::Error(RunTime::kTypeMismatch);
    return *day;
}

/// Whole days from the date to today, each cut to its day first.
qint16 DaysSince(const Value& date) {
    const qint64 days = DateDiff(DateInterval::Day, DayOf(date.ToDate()), DayOf(Now()));
    if (days < std::numeric_limits<qint16>::min() || days > std::numeric_limits<qint16>::max())
        throw RunTime::Error(RunTime::kOverflow);
    return static_cast<qint16>(days);
}

/// The steps common to the three routines: the visit's doctors. Kept: without a row the three keep what they
/// held, also from a former patient.
void ReadVisitDoctors() {
    gDaysConfined = 0;
    RowSet rows = gCurrentUser->SQLConnection()->Open(OutPatientCommand(gIDNumber), CursorType::Dynamic,
                                                      LockType::Optimistic);
    if (rows.Eof())
        return;
    gDoctor1 = rows.Fields(u"DoctorID1").TextOrEmpty();
    gDoctor2 = rows.Fields(u"DoctorID2").TextOrEmpty();
    gDoctor3 = rows.Fields(u"DoctorID3").TextOrEmpty();
}

void SetNames(FinderTarget& target, const PatientRecord& patient) {
    target.SetBox(u"txtLastName"_s, CutTrailingBlanks(patient.LastName));
    target.SetBox(u"txtFirstName"_s, CutTrailingBlanks(patient.FirstName));
    target.SetBox(u"txtMiddleName"_s, CutTrailingBlanks(patient.MiddleName));
}

/// Kept: account, station and company come from the admission side, for a visit too: the patient master
/// answers there for the visit that was opened.
void SetAccount(const AdmissionRecord& admission) {
    gAccountNumber = admission.Patient->Account->AccountNumber.ToText();
    gStationName = admission.Room->Station->Description.ToText();
    gCompany = admission.Account->Company.ToText();
}

/// Opens the visit and its patient. False when either is missing; what was written by then stays.
bool OpenVisit() {
    OutPatientVisit& visit = gPersonFinder->PatientClass().clsOutPatient;
    if (!visit.OpenOutPatient(gIDNumber, gHospitalNumber))
        return false;
    gRoomClass = u"A"_s;
    gAdmissionDate = visit.AdmissionDate().ToText();
    gDischargeDate = visit.dischargeDate().ToDouble() == 0 ? QString() : visit.dischargeDate().ToText();
    gRoomID = u"OPD"_s;
    return visit.Patient().LoadPatient(gHospitalNumber);
}

bool OpenAdmission() {
    Screens::Get<frmSearchPatient>().optPatientType[0]->setChecked(true);
    return gPersonFinder->ValidateAdmission(gIDNumber);
}

void LoadVisitForCharges(FinderTarget& target) {
    if (!OpenVisit())
        return;
    OutPatientVisit& visit = gPersonFinder->PatientClass().clsOutPatient;
    const PatientRecord& patient = visit.Patient();
    const AdmissionRecord& admission = gPersonFinder->Admission();
    SetNames(target, patient);
    target.SetBox(u"txtSex"_s, patient.Sex.ToText());
    target.SetBox(u"txtDob"_s, patient.BirthDate.ToText());
    SetAccount(admission);
    target.SetBox(u"txtAge"_s, patient.Age.ToText());
    target.SetBox(u"txtPno"_s, patient.HospitalNumber.ToText());
    target.SetBox(u"txtId"_s, gIDNumber);
    target.SetBox(u"txtRoom"_s, u"OPD"_s);
    target.SetBox(u"txtDateAdmitted"_s, DateText(visit.AdmissionDate()));
    gDaysConfined = DaysSince(visit.AdmissionDate());
    gDoctor1 = admission.AttendingDoctor1->completename;
    target.SetBox(u"txtDoctor"_s, gDoctor1.ToText());
    // Kept: the class of the admission side takes the place of the "A" of every visit.
    gRoomClass = admission.Room->roomclassid.ToText();
}

void LoadAdmissionForCharges(FinderTarget& target) {
    if (!OpenAdmission())
        return;
    const AdmissionRecord& admission = gPersonFinder->Admission();
    SetNames(target, *admission.Patient);
    target.SetBox(u"txtSex"_s, admission.Patient->Sex.ToText());
    target.SetBox(u"txtDob"_s, admission.Patient->BirthDate.ToText());
    SetAccount(admission);
    target.SetBox(u"txtAge"_s, admission.Age.ToText());
    target.SetBox(u"txtPno"_s, admission.HospitalNumber.ToText());
    target.SetBox(u"txtId"_s, admission.IDNumber.ToText());
    target.SetBox(u"txtRoom"_s, admission.Room->RoomID.ToText());
    target.SetBox(u"txtDateAdmitted"_s, DateText(admission.AdmissionDate));
    gDaysConfined = DaysSince(admission.AdmissionDate);
    gDoctor1 = admission.AttendingDoctor1->completename;
    target.SetBox(u"txtDoctor"_s, gDoctor1.ToText());
    gRoomClass = admission.Room->roomclassid.ToText();
    // Kept: the name stays on the screen; the shared variable goes over to the code.
    gDoctor1 = admission.AttendingDoctor1->Code;
    gDoctor2Code = admission.AttendingDoctor2->Code;
}

void LoadVisitForLedger(FinderTarget& target) {
    if (!OpenVisit())
        return;
    const PatientRecord& patient = gPersonFinder->PatientClass().clsOutPatient.Patient();
    SetNames(target, patient);
    target.SetBox(u"txtHospNum"_s, patient.HospitalNumber.ToText());
    target.SetBox(u"txtIDNum"_s, gIDNumber);
    gRoomClass = gPersonFinder->Admission().Room->roomclassid.ToText();
}

void LoadAdmissionForLedger(FinderTarget& target) {
    if (!OpenAdmission())
        return;
    const AdmissionRecord& admission = gPersonFinder->Admission();
    SetNames(target, *admission.Patient);
    target.SetBox(u"txtHospNum"_s, admission.HospitalNumber.ToText());
    target.SetBox(u"txtIDNum"_s, admission.IDNumber.ToText());
    gRoomID = admission.Room->RoomID.ToText();
    gAdmissionDate = DateText(admission.AdmissionDate);
}

using LoadPath = void (*)(FinderTarget&);

/// Any type but "I" is treated as out-patient here.
void Load(const QString& chargeMode, LoadPath inPatient, LoadPath outPatient) {
    ReadVisitDoctors();
    const LoadPath path = gPatientType == u"I"_s ? inPatient : outPatient;
    path(FinderTargetOf(chargeMode));
    Screens::Unload<frmSearchPatient>();
}

} // namespace

void LoadForPost() {
    Load(u"Post"_s, LoadAdmissionForCharges, LoadVisitForCharges);
}

void LoadForList() {
    Load(u"List"_s, LoadAdmissionForCharges, LoadVisitForCharges);
}

void LoadForLedger() {
    Load(u"Ledger"_s, LoadAdmissionForLedger, LoadVisitForLedger);
}
