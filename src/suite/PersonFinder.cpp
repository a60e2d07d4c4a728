#include "suite/PersonFinder.h"

#include "gateway/CommandGateway.h"
#include "gateway/SqlText.h"
#include "text/Clock.h"

using namespace Qt::StringLiterals;

namespace {

/// The doctors and the account, which admissions and visits have alike.
const QString kSharedColumns = u"p.IdNum, p.HospNum, p.AdmDate, p.DcrDate, m.AccountNum, c.Company, "
                               "d1.DoctorID AS Code1, d1.FirstName AS First1, d1.LastName AS Last1, "
                               "d2.DoctorID AS Code2, d2.FirstName AS First2, d2.LastName AS Last2"_s;

const QString kSharedJoins = u" INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = p.HospNum"
                             " LEFT JOIN build_file..tbCoCompany AS c ON c.CompanyID = p.CompanyID"
                             " LEFT JOIN build_file..tbCoDoctor AS d1 ON d1.DoctorID = p.DoctorID1"
                             " LEFT JOIN build_file..tbCoDoctor AS d2 ON d2.DoctorID = p.DoctorID2"_s;

QString AdmissionCommand(const QString& idNumber) {
    return u"SELECT "_s + kSharedColumns +
           u", p.RoomID, r.RoomClassID, s.Station FROM PATIENT_DATA..tbpatient AS p"_s + kSharedJoins +
           u" LEFT JOIN build_file..tbCoRoom AS r ON r.RoomID = p.RoomID"
           " LEFT JOIN build_file..tbCoStation AS s ON s.StationID = r.StationID WHERE p.IdNum = "_s +
           SqlLiteral(idNumber);
}

QString VisitCommand(const QString& idNumber, const QString& hospitalNumber) {
    return u"SELECT "_s + kSharedColumns + u" FROM PATIENT_DATA..tboutpatient AS p"_s + kSharedJoins +
           u" WHERE p.IdNum = "_s + SqlLiteral(idNumber) + u" AND p.HospNum = "_s +
           SqlLiteral(hospitalNumber);
}

QString PatientCommand(const QString& hospitalNumber) {
    return u"SELECT HospNum, LastName, FirstName, MiddleName, Sex, BirthDate, AccountNum FROM "
           "PATIENT_DATA..tbmaster WHERE HospNum = "_s +
           SqlLiteral(hospitalNumber);
}

/// Whole years at the clock's date; an infant's age is in months. Empty without a birth date.
QString AgeAt(const Value& birthDate) {
    if (birthDate.IsNull())
        return {};
    const DateTime::Fields born = birthDate.ToDate().ToFields();
    const DateTime::Fields today = Today().ToFields();
    int months = (today.year - born.year) * 12 + today.month - born.month;
    if (today.day < born.day)
        --months;
    return months >= 12 ? QString::number(months / 12) : u"%1 mos."_s.arg(months);
}

QString SexText(const Value& sex) {
    return sex.TextOrEmpty() == u"M"_s ? u"MALE"_s : u"FEMALE"_s;
}

Value Guarded(const Value& value) {
    return value.TextOrEmpty();
}

Ref<DoctorRecord> DoctorOf(const RowSet& row, const QString& number) {
    auto doctor = std::make_shared<DoctorRecord>();
    doctor->Code = Guarded(row.Fields(u"Code"_s + number));
    const bool known = !row.Fields(u"Code"_s + number).IsNull();
    doctor->completename = known ? u"DR. "_s + row.Fields(u"First"_s + number).TextOrEmpty() + u' ' +
                                       row.Fields(u"Last"_s + number).TextOrEmpty()
                                 : QString();
    return doctor;
}

Ref<AccountRecord> AccountOf(const RowSet& row) {
    auto account = std::make_shared<AccountRecord>();
    account->AccountNumber = Guarded(row.Fields(u"AccountNum"));
    account->Company = Guarded(row.Fields(u"Company"));
    return account;
}

Ref<RoomRecord> NewRoom(const Value& roomID, const Value& roomClass, const Value& stationName) {
    auto room = std::make_shared<RoomRecord>();
    auto station = std::make_shared<StationRecord>();
    station->Description = stationName;
    room->RoomID = roomID;
    room->roomclassid = roomClass;
    room->Station = station;
    return room;
}

void ReadPerson(const RowSet& row, PatientRecord& person) {
    person.HospitalNumber = row.Fields(u"HospNum");
    person.LastName = row.Fields(u"LastName");
    person.FirstName = row.Fields(u"FirstName");
    person.MiddleName = Guarded(row.Fields(u"MiddleName"));
    person.Sex = SexText(row.Fields(u"Sex"));
    const Value& born = row.Fields(u"BirthDate");
    person.BirthDate = born.IsNull() ? Value(QString()) : born;
    person.Age = AgeAt(born);
}

/// What admissions and visits have alike.
AdmissionRecord ReadAdmission(const RowSet& row) {
    AdmissionRecord admission;
    admission.IDNumber = row.Fields(u"IdNum");
    admission.HospitalNumber = row.Fields(u"HospNum");
    admission.AdmissionDate = row.Fields(u"AdmDate");
    admission.Account = AccountOf(row);
    admission.AttendingDoctor1 = DoctorOf(row, u"1"_s);
    admission.AttendingDoctor2 = DoctorOf(row, u"2"_s);
    return admission;
}

} // namespace

bool PersonFinder::InitConnection(CommandGateway* connection, const QString&) {
    mConnection = connection;
    return mConnection && mConnection->Connected();
}

CommandGateway& PersonFinder::Connection() const {
    if (!mConnection)
        throw RunTime::Error(RunTime::kObjectNotSet);
    return *mConnection;
}

bool PersonFinder::ValidateAdmission(QString& idNumber) {
    const RowSet row = Connection().Execute(AdmissionCommand(idNumber));
    if (row.Eof())
        return false;
    AdmissionRecord admission = ReadAdmission(row);
    const Value& roomClass = row.Fields(u"RoomClassID");
    // A room that has no record leaves the admission without a room.
    if (!roomClass.IsNull())
        admission.Room = NewRoom(row.Fields(u"RoomID"), roomClass, Guarded(row.Fields(u"Station")));
    const RowSet personRow = Connection().Execute(PatientCommand(row.Fields(u"HospNum").ToText()));
    auto person = std::make_shared<PatientRecord>();
    ReadPerson(personRow, *person);
    person->Account = admission.Account;
    admission.Patient = person;
    admission.Age = person->Age;
    mAdmission = admission;
    idNumber = admission.IDNumber.ToText();
    return true;
}

bool PersonFinder::OpenOutPatient(QString& idNumber, QString& hospitalNumber) {
    const RowSet row = Connection().Execute(VisitCommand(idNumber, hospitalNumber));
    if (row.Eof())
        return false;
    mAdmission = ReadAdmission(row);
    mAdmission.Room = NewRoom(u"OPD"_s, u"A"_s, u"OUT-PATIENT"_s);
    mVisitDate = row.Fields(u"AdmDate");
    const Value& discharge = row.Fields(u"DcrDate");
    mDischargeDate = discharge.IsNull() ? Value(DateTime()) : discharge;
    idNumber = mAdmission.IDNumber.ToText();
    hospitalNumber = mAdmission.HospitalNumber.ToText();
    return true;
}

bool PersonFinder::LoadPatient(QString& hospitalNumber) {
    const RowSet row = Connection().Execute(PatientCommand(hospitalNumber));
    if (row.Eof())
        return false;
    ReadPerson(row, *this);
    Account = mAdmission.Account;
    mAdmission.Patient = std::make_shared<PatientRecord>(static_cast<const PatientRecord&>(*this));
    mAdmission.Age = Age;
    hospitalNumber = HospitalNumber.ToText();
    return true;
}
