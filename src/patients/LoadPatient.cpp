#include "patients/LoadPatient.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "patients/frmSearchPatient.h"
#include "patients/PatientContext.h"
#include "text/Clock.h"
#include "text/DateDiff.h"
#include "text/Format.h"
#include "text/IsDate.h"
#include "text/RunTimeError.h"
#include "toolkit/Screens.h"

#include <QLineEdit>
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

template <class Boxes> void SetNames(const Boxes& boxes, const PatientRecord& patient) {
    boxes.txtLastName->setText(CutTrailingBlanks(patient.LastName));
    boxes.txtFirstName->setText(CutTrailingBlanks(patient.FirstName));
    boxes.txtMiddleName->setText(CutTrailingBlanks(patient.MiddleName));
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

bool LoadVisitForCharges(const ChargedPatientBoxes& boxes) {
    if (!OpenVisit())
        return false;
    OutPatientVisit& visit = gPersonFinder->PatientClass().clsOutPatient;
    const PatientRecord& patient = visit.Patient();
    const AdmissionRecord& admission = gPersonFinder->Admission();
    SetNames(boxes.name, patient);
    boxes.name.txtSex->setText(patient.Sex.ToText());
    boxes.name.txtDob->setText(patient.BirthDate.ToText());
    SetAccount(admission);
    boxes.name.txtAge->setText(patient.Age.ToText());
    boxes.info.txtPno->setText(patient.HospitalNumber.ToText());
    boxes.info.txtId->setText(gIDNumber);
    boxes.info.txtRoom->setText(u"OPD"_s);
    boxes.info.txtDateAdmitted->setText(DateText(visit.AdmissionDate()));
    gDaysConfined = DaysSince(visit.AdmissionDate());
    gDoctor1 = admission.AttendingDoctor1->completename;
    boxes.info.txtDoctor->setText(gDoctor1.ToText());
    // Kept: the class of the admission side takes the place of the "A" of every visit.
    gRoomClass = admission.Room->roomclassid.ToText();
    return true;
}

bool LoadAdmissionForCharges(const ChargedPatientBoxes& boxes) {
    if (!OpenAdmission())
        return false;
    const AdmissionRecord& admission = gPersonFinder->Admission();
    SetNames(boxes.name, *admission.Patient);
    boxes.name.txtSex->setText(admission.Patient->Sex.ToText());
    boxes.name.txtDob->setText(admission.Patient->BirthDate.ToText());
    SetAccount(admission);
    boxes.name.txtAge->setText(admission.Age.ToText());
    boxes.info.txtPno->setText(admission.HospitalNumber.ToText());
    boxes.info.txtId->setText(admission.IDNumber.ToText());
    boxes.info.txtRoom->setText(admission.Room->RoomID.ToText());
    boxes.info.txtDateAdmitted->setText(DateText(admission.AdmissionDate));
    gDaysConfined = DaysSince(admission.AdmissionDate);
    gDoctor1 = admission.AttendingDoctor1->completename;
    boxes.info.txtDoctor->setText(gDoctor1.ToText());
    gRoomClass = admission.Room->roomclassid.ToText();
    // Kept: the name stays on the screen; the shared variable goes over to the code.
    gDoctor1 = admission.AttendingDoctor1->Code;
    gDoctor2Code = admission.AttendingDoctor2->Code;
    return true;
}

bool LoadVisitForLedger(const SearchPatientBoxes& boxes) {
    if (!OpenVisit())
        return false;
    const PatientRecord& patient = gPersonFinder->PatientClass().clsOutPatient.Patient();
    SetNames(boxes, patient);
    boxes.txtHospNum->setText(patient.HospitalNumber.ToText());
    boxes.txtIDNum->setText(gIDNumber);
    gRoomClass = gPersonFinder->Admission().Room->roomclassid.ToText();
    return true;
}

bool LoadAdmissionForLedger(const SearchPatientBoxes& boxes) {
    if (!OpenAdmission())
        return false;
    const AdmissionRecord& admission = gPersonFinder->Admission();
    SetNames(boxes, *admission.Patient);
    boxes.txtHospNum->setText(admission.HospitalNumber.ToText());
    boxes.txtIDNum->setText(admission.IDNumber.ToText());
    gRoomID = admission.Room->RoomID.ToText();
    gAdmissionDate = DateText(admission.AdmissionDate);
    return true;
}

/// Any type but "I" is treated as out-patient here.
template <class Boxes>
bool Load(const Boxes& boxes, bool (*inPatient)(const Boxes&), bool (*outPatient)(const Boxes&)) {
    ReadVisitDoctors();
    const auto path = gPatientType == u"I"_s ? inPatient : outPatient;
    const bool isFound = path(boxes);
    Screens::Unload<frmSearchPatient>();
    return isFound;
}

} // namespace

bool LoadForPost(const ChargedPatientBoxes& boxes) {
    return Load(boxes, LoadAdmissionForCharges, LoadVisitForCharges);
}

void LoadForList(const ChargedPatientBoxes& boxes) {
    Load(boxes, LoadAdmissionForCharges, LoadVisitForCharges);
}

void LoadForLedger(const SearchPatientBoxes& boxes) {
    Load(boxes, LoadAdmissionForLedger, LoadVisitForLedger);
}
