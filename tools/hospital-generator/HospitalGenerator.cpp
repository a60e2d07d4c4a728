#include "HospitalGenerator.h"

#include "AssessmentHistory.h"
#include "Catalogue.h"
#include "CatalogueData.h"
#include "ChargeHistory.h"
#include "InsertWriter.h"
#include "NameLists.h"
#include "PatientList.h"
#include "TreatmentRecords.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Generator {

namespace {

constexpr quint64 kSeed = 20'260'101;

/// Writes the scripts in their order. What one script settles, such as the patients, the later ones refer to.
class HospitalWriter {
  public:
    HospitalWriter(const HospitalSize& size, const HospitalSink& sink)
        : mSize(size)
        , mSink(sink)
        , mPrng(kSeed)
        , mCatalogue(MakeCatalogue(size))
        , mPatients(MakePatientList(size, mCatalogue, mPrng)) {}

    void Run() {
        WriteUsers();
        WriteCatalogue();
        WriteStock();
        WritePatients();
        WriteCharges();
        WriteStockCards();
        WriteAssessmentsAndTrail();
        WriteRequests();
        WriteTreatments();
        WriteDates();
    }

  private:
    InsertWriter Into(const QString& table, const QString& columns) {
        return {[this](const QString& statement) { Emit(statement); }, table, columns};
    }
    void Emit(const QString& statement) { mSink(mScript, statement); }
    /// Inserts rows of fields between bars, as the hand-written lists have them.
    void WriteRows(const QString& table, const QString& columns, const QStringList& rows);
    void WriteOneNumber(const QString& table, const QString& column, int number);

    void WriteUsers();
    void WriteCatalogue();
    void WriteCentres();
    void WriteServices();
    void WriteDoctors();
    void WriteRooms();
    void WriteTownsAndExams();
    void WriteStock();
    void WritePatients();
    void WriteEpisodes();
    void WriteWalkIns();
    void WriteCharges();
    void WriteStockCards();
    void WriteAssessmentsAndTrail();
    void WriteRequests();
    void WriteTreatments();
    void WriteDates();
    void MoveDates(const QString& table, const QStringList& columns);

    const HospitalSize& mSize;
    const HospitalSink& mSink;
    Prng mPrng;
    Catalogue mCatalogue;
    PatientList mPatients;
    ChargeHistory mHistory;
    QString mScript;
};

void HospitalWriter::WriteRows(const QString& table, const QString& columns, const QStringList& rows) {
    InsertWriter writer = Into(table, columns);
    for (const QString& row : rows) {
        writer.Begin();
        for (const QString& field : row.split(u'|'))
            writer.Text(field);
        writer.End();
    }
    writer.Finish();
}

void HospitalWriter::WriteOneNumber(const QString& table, const QString& column, int number) {
    InsertWriter writer = Into(table, column);
    writer.Begin().Number(number).End();
    writer.Finish();
}

/// The passwords are nurse, clerk, admin and lab, as libsodium's crypto_pwhash_str gives them.
void HospitalWriter::WriteUsers() {
    mScript = u"10-users"_s;
    WriteRows(u"PASSWORD..tbPasswordMain"_s,
              u"EmployeeID, LastName, FirstName, MiddleName, Initial, PasswordHash"_s,
              {u"NURSE|VILLANUEVA|MARISSA|SORIANO|MSV|$argon2id$v=19$m=65536,t=2,p=1$BoJgjXcHYTq0XDXKPpV/tQ$"
               "L07US8M65R8ZSJC0NiakRyx9nZoMvyoVZWVYKhxNzDI"_s,
               u"CLERK|MAGBANUA|JOEL|PEÑA|JPM|$argon2id$v=19$m=65536,t=2,p=1$SGsnNxkrXoMSNryYEMSmlA$"
               "cc3XvFXM2QUIwee25DYL/mLd12vgl0XYTc5K4/yBYHE"_s,
               u"ADMIN|SALAZAR|TERESITA|DIZON|TDS|$argon2id$v=19$m=65536,t=2,p=1$zRg9WbTmAULegnvOxV1maQ$"
               "IyCKVYCoZPEK0kgLN37fO+hrY/qT8pxhT4n0OojVdRU"_s,
               u"LAB|OCAMPO|RENATO|CRUZ|RCO|$argon2id$v=19$m=65536,t=2,p=1$fSt7/JTi3OoMjgGFSmATBg$"
               "WNhDOejc3QwBSiTbpnJeOUEi/zpAa2FOx9PE/rDqAl4"_s});
    WriteRows(u"PASSWORD..tbPasswordDept"_s, u"EmployeeID, DeptCode"_s,
              {u"NURSE|HC"_s, u"CLERK|HC"_s, u"ADMIN|*"_s, u"LAB|LB"_s});
}

void HospitalWriter::WriteCatalogue() {
    mScript = u"20-catalogue"_s;
    Emit(u"INSERT INTO PATIENT_DATA..tbhospitalInfo (company, Address1, TinNo, Bygeneric) VALUES\n"
         "('SAN RAFAEL GENERAL HOSPITAL','148 MABINI ST., POBLACION, SAN RAFAEL','004-512-778-000',0);"_s);
    WriteCentres();
    WriteServices();
    WriteDoctors();
    WriteRooms();
    WriteRows(u"build_file..tbCoCompany"_s, u"CompanyID, Company"_s, CompanyRows());
    WriteRows(
        u"build_file..tbCoCivilStatus"_s, u"CivilStatusID, CivilStatus"_s,
        {u"0|CHILD"_s, u"1|SINGLE"_s, u"2|MARRIED"_s, u"3|WIDOW/ER"_s, u"4|SEPARATED"_s, u"5|DIVORCED"_s});
    WriteTownsAndExams();
}

void HospitalWriter::WriteCentres() {
    InsertWriter centres =
        Into(u"build_file..tbCoRevenue"_s, u"RevenueID, Revenue, WithItems, SearchInventory, LocationID"_s);
    for (const Centre& centre : mCatalogue.centres)
        centres.Begin()
            .Text(centre.code)
            .Text(centre.name)
            .Text(centre.withItems ? u"Y" : u"N")
            .Number(centre.fromStock ? 1 : 0)
            .TextOrNull(centre.location)
            .End();
    centres.Finish();
}

void HospitalWriter::WriteDoctors() {
    InsertWriter doctors =
        Into(u"build_file..tbCoDoctor"_s, u"DoctorID, LastName, FirstName, MiddleName, Specialty"_s);
    for (const Doctor& doctor : mCatalogue.doctors)
        doctors.Begin()
            .Text(doctor.code)
            .Text(doctor.lastName)
            .Text(doctor.firstName)
            .Text(doctor.middleName)
            .Text(doctor.specialty)
            .End();
    doctors.Finish();
}

void HospitalWriter::WriteRooms() {
    WriteRows(u"build_file..tbCoStation"_s, u"StationID, Station"_s, StationRows());
    QStringList classes;
    for (const QString& row : RoomRows())
        classes.push_back(row.section(u'|', 0, 1));
    WriteRows(u"build_file..tbCoRoomClass"_s, u"RoomClassID, RoomClass"_s, classes);
    InsertWriter rooms = Into(u"build_file..tbCoRoom"_s, u"RoomID, RoomClassID, StationID"_s);
    rooms.Begin().Text(u"OPD").Text(u"A").Text(u"OPD").End();
    for (const Room& room : mCatalogue.rooms)
        rooms.Begin()
            .Text(room.code)
            .Text(QString(QLatin1Char(kRoomClasses[room.roomClass])))
            .Text(room.station)
            .End();
    rooms.Finish();
}

void HospitalWriter::WriteTownsAndExams() {
    InsertWriter towns = Into(u"build_file..tbCoAddress"_s, u"ZipCode, Town, Province"_s);
    for (const Town& town : Towns())
        towns.Begin().Text(town.zipCode).Text(town.town).Text(town.province).End();
    towns.Finish();
    QStringList exams;
    for (const QString& name : UltraExamNames())
        exams.push_back(u"US%1|%2"_s.arg(exams.size() + 1, 3, 10, QChar(u'0')).arg(name));
    WriteRows(u"build_file..tbcoultraexam"_s, u"ultraexamid, ultraexam"_s, exams);
}

void HospitalWriter::WriteServices() {
    InsertWriter services =
        Into(u"build_file..tbCoOtherRevenue"_s,
             u"RevenueID, ItemID, OtherRevenue, RateA, RateB, RateC, RateD, RateE, RateF, RateG, RateH"_s);
    for (const Service& service : mCatalogue.services) {
        services.Begin().Text(service.centre).Text(service.code).Text(service.name);
        for (const qint64 rate : service.rates)
            services.Money(rate);
        services.End();
    }
    services.Finish();

    InsertWriter packages =
        Into(u"HEMODIALYSIS..tbhemopackage"_s, u"PackageCode, RevenueID, ItemID, Quantity, Amount"_s);
    for (const PackageItem& item : mCatalogue.packageItems)
        packages.Begin()
            .Text(item.package)
            .Text(item.centre)
            .Text(item.code)
            .Number(item.quantity)
            .Money(item.amount)
            .End();
    packages.Finish();
}

void HospitalWriter::WriteStock() {
    mScript = u"30-stock"_s;
    InsertWriter stock =
        Into(u"INVENTORY..tbInvMaster"_s,
             u"ItemID, ItemName, GenericName, Unit, SectionID, SellingPriceOut, SellingPriceIn"_s);
    for (const StockItem& item : mCatalogue.stock)
        stock.Begin()
            .Text(item.code)
            .Text(item.name)
            .Text(item.generic)
            .Text(item.unit)
            .Text(item.section)
            .Money(item.priceOut)
            .Money(item.priceIn)
            .End();
    stock.Finish();
}

void HospitalWriter::WritePatients() {
    mScript = u"40-patients"_s;
    InsertWriter master =
        Into(u"PATIENT_DATA..tbmaster"_s,
             u"HospNum, LastName, FirstName, MiddleName, Sex, BirthDate, CivilStatusID, HouseStreet, "
             "Barangay, ZipCode, AccountNum"_s);
    for (const Person& person : mPatients.persons)
        master.Begin()
            .Text(person.hospNum)
            .Text(person.lastName)
            .Text(person.firstName)
            .Text(person.middleName)
            .Text(person.male ? u"M" : u"F")
            .Date(person.birthDate)
            .Text(person.civilStatus)
            .Text(person.street)
            .Text(person.barangay)
            .Text(person.zipCode)
            .Text(person.accountNum)
            .End();
    master.Finish();
    WriteEpisodes();
    WriteWalkIns();
}

void HospitalWriter::WriteEpisodes() {
    const auto doctor = [this](int index) {
        return index < 0 ? QString() : mCatalogue.doctors[size_t(index)].code;
    };
    InsertWriter admissions =
        Into(u"PATIENT_DATA..tbpatient"_s,
             u"IdNum, HospNum, AdmDate, DcrDate, BillingDate, RoomID, CompanyID, DoctorID1, DoctorID2"_s);
    for (const Episode& admission : mPatients.admissions)
        admissions.Begin()
            .Text(admission.idNum)
            .Text(mPatients.persons[admission.person].hospNum)
            .Date(admission.admitted)
            .Date(admission.discharged)
            .Date(admission.billed)
            .Text(mCatalogue.rooms[admission.room].code)
            .Text(admission.company)
            .Text(doctor(admission.doctor1))
            .TextOrNull(doctor(admission.doctor2))
            .End();
    admissions.Finish();

    InsertWriter visits =
        Into(u"PATIENT_DATA..tboutpatient"_s,
             u"IdNum, HospNum, AdmDate, DcrDate, BillingDate, CompanyID, DoctorID1, DoctorID2, DoctorID3"_s);
    for (const Episode& visit : mPatients.visits)
        visits.Begin()
            .Text(visit.idNum)
            .Text(mPatients.persons[visit.person].hospNum)
            .Date(visit.admitted)
            .Date(visit.discharged)
            .Date(visit.billed)
            .Text(visit.company)
            .TextOrNull(doctor(visit.doctor1))
            .TextOrNull(doctor(visit.doctor2))
            .TextOrNull(doctor(visit.doctor3))
            .End();
    visits.Finish();
}

void HospitalWriter::WriteWalkIns() {
    InsertWriter walkIns =
        Into(u"PATIENT_DATA..tbwalkin"_s, u"HospNum, LastName, FirstName, MiddleName, Sex, BirthDate, Age, "
                                          "CivilStatusID, HouseStreet, Barangay, ZipCode, RegDate, "
                                          "RegisteredBy"_s);
    for (size_t i = 0; i < mPatients.walkIns.size(); ++i) {
        const Person& person = mPatients.walkIns[i];
        walkIns.Begin()
            .Text(person.hospNum)
            .Text(person.lastName)
            .Text(person.firstName)
            .Text(person.middleName)
            .Text(person.male ? u"M" : u"F");
        if (person.birthDate.isValid())
            walkIns.Date(person.birthDate).Text(QString::number(person.Age()));
        else
            walkIns.TextOrNull({}).Text({});
        walkIns.Text(person.civilStatus)
            .Text(person.street)
            .Text(person.barangay)
            .Text(person.zipCode)
            .Date(mPatients.registered[i])
            .Text(i % 2 == 0 ? u"CLERK" : u"NURSE")
            .End();
    }
    walkIns.Finish();
    WriteOneNumber(u"PATIENT_DATA..tbWalkInNum"_s, u"WalkInNum"_s, int(mPatients.walkIns.size()) + 1);
}

void HospitalWriter::WriteCharges() {
    mScript = u"50-charges"_s;
    InsertWriter writer =
        Into(u"BILLING..tbPatientCharges"_s,
             u"HospNum, IdNum, PatientType, TransDate, RevenueID, RecordType, ItemID, Description, "
             "Quantity, Units, Amount, RefNum, UserID, RoomID, DoctorID, DoctorName, SourceDept, "
             "EntryDate"_s);
    mHistory = ChargeMaker(mSize, mCatalogue, mPatients, mPrng, writer).Make();
    WriteOneNumber(u"Clinical_Area..tbEarCareChargeSlip"_s, u"ChargeSlip"_s, mHistory.nextSlip);
}

/// What was on hand before the first charge, and the issues, which follow from the charges by the rule that
/// posting goes by.
void HospitalWriter::WriteStockCards() {
    mScript = u"60-stock-cards"_s;
    const Moment before{-mSize.months * 30 - 1, 8 * 60};
    InsertWriter writer = Into(u"INVENTORY..tbInvStockCard"_s,
                               u"TransDate, ItemID, SectionID, RecordType, RefNum, QtyIn, EntryDate"_s);
    for (const StockItem& item : mCatalogue.stock) {
        const auto issued = mHistory.issued.find(item.code);
        const int used = issued == mHistory.issued.end() ? 0 : issued->second;
        writer.Begin()
            .Date(before)
            .Text(item.code)
            .Text(item.section)
            .Text(u"B")
            .Text({})
            .Number(used + mPrng.Between(20, 200))
            .Date(before)
            .End();
    }
    writer.Finish();
    Emit(u"INSERT INTO INVENTORY..tbInvStockCard\n"
         "    (TransDate, ItemID, SectionID, RecordType, RefNum, QtyIn, QtyOut, Amount, HospNum, IdNum, "
         "PatientType,\n"
         "     RoomID, UserID, EntryDate)\n"
         "SELECT c.TransDate, c.ItemID, i.SectionID, CASE WHEN c.RecordType = 'C' THEN 'C' ELSE 'I' END, "
         "c.RefNum,\n"
         "       CASE WHEN c.RecordType = 'C' THEN 0 - c.Units ELSE 0 END,\n"
         "       CASE WHEN c.RecordType = 'C' THEN 0 ELSE c.Units END, c.Amount, c.HospNum, c.IdNum, "
         "c.PatientType,\n"
         "       c.RoomID, c.UserID, c.EntryDate\n"
         "FROM BILLING..tbPatientCharges AS c\n"
         "INNER JOIN build_file..tbCoRevenue AS r ON r.RevenueID = c.RevenueID\n"
         "INNER JOIN INVENTORY..tbInvMaster AS i ON i.ItemID = c.ItemID AND i.SectionID = r.LocationID\n"
         "WHERE r.SearchInventory = 1\n"
         "ORDER BY c.ChargeID;"_s);
}

void HospitalWriter::WriteAssessmentsAndTrail() {
    mScript = u"70-assessments"_s;
    InsertWriter writer =
        Into(u"BILLING..tbCashAssessment"_s,
             u"RefNum, Name, HospNum, IdNum, Revenueid, ItemID, Description, Quantity, Units, "
             "Amount, DeptCode, UserID, DoctorID, DoctorName, TransDate, ORNum, ORDate, RevokeDate, "
             "RevokedBy"_s);
    const int next = WriteAssessments(mSize, mCatalogue, mPatients, mPrng, writer);
    WriteOneNumber(u"BILLING..tbAssessmentNum"_s, u"AssessmentNum"_s, next);

    InsertWriter reprints = Into(u"BILLING..tbAuditTrail"_s, u"AuditDate, Event, RefNum, UserID"_s);
    for (const Reprint& reprint : mHistory.reprints)
        reprints.Begin().Date(reprint.moment).Text(u"REPRINT").Text(reprint.slip).Text(reprint.user).End();
    reprints.Finish();
    Emit(u"INSERT INTO BILLING..tbAuditTrail (AuditDate, Event, RefNum, HospNum, IdNum, UserID)\n"
         "SELECT a.RevokeDate, 'REVOKE', COALESCE(a.RefNum, ''), a.HospNum, a.IdNum, a.RevokedBy\n"
         "FROM BILLING..tbCashAssessment AS a\n"
         "WHERE a.RevokeDate IS NOT NULL\n"
         "ORDER BY a.AssessNum;"_s);
    Emit(u"INSERT INTO BILLING..tbAuditTrail (AuditDate, Event, HospNum, UserID)\n"
         "SELECT w.RegDate, 'WALK-IN', w.HospNum, w.RegisteredBy\n"
         "FROM PATIENT_DATA..tbwalkin AS w\n"
         "ORDER BY w.HospNum;"_s);
}

void HospitalWriter::WriteRequests() {
    mScript = u"80-requests"_s;
    AddOpenRequests(mSize, mCatalogue, mPatients, mPrng, mHistory.requests);
    std::ranges::stable_sort(mHistory.requests, {}, &WardRequest::requested);
    InsertWriter writer =
        Into(u"RADIOLOGY..tbNurseRequest"_s,
             u"RequestDate, DeptCode, HospNum, IdNum, StationID, DoctorID, RequestedBy, RevenueID, "
             "ItemID, Quantity, Remarks, Status, SlipNo, ClosedBy, ClosedDate"_s);
    for (const WardRequest& request : mHistory.requests)
        writer.Begin()
            .Date(request.requested)
            .Text(u"HC")
            .Text(mPatients.persons[request.admission->person].hospNum)
            .Text(request.admission->idNum)
            .Text(mCatalogue.rooms[request.admission->room].station)
            .Text(request.doctor)
            .Text(request.nurse)
            .Text(request.centre)
            .Text(request.item)
            .Number(1)
            .Text(request.remarks)
            .Text(QString(request.status))
            .TextOrNull(request.slip)
            .TextOrNull(request.closedBy)
            .Date(request.closed)
            .End();
    writer.Finish();
}

void HospitalWriter::WriteTreatments() {
    mScript = u"85-treatments"_s;
    const TreatmentRecords records = MakeTreatmentRecords(mPatients, mHistory.treatments);
    InsertWriter writer = Into(u"HEMODIALYSIS..tbHemodialysisResultEntry"_s, records.columns.join(", "_L1));
    for (const QStringList& row : records.rows) {
        writer.Begin();
        for (const QString& value : row)
            writer.TextOrNull(value);
        writer.End();
    }
    writer.Finish();
}

/// Everything moves from the base day to today, so that the hospital is never a day old. Birth dates stand.
void HospitalWriter::WriteDates() {
    mScript = u"90-dates"_s;
    MoveDates(u"PATIENT_DATA..tbpatient"_s, {u"AdmDate"_s, u"DcrDate"_s, u"BillingDate"_s});
    MoveDates(u"PATIENT_DATA..tboutpatient"_s, {u"AdmDate"_s, u"DcrDate"_s, u"BillingDate"_s});
    MoveDates(u"PATIENT_DATA..tbwalkin"_s, {u"RegDate"_s});
    MoveDates(u"BILLING..tbPatientCharges"_s, {u"TransDate"_s, u"EntryDate"_s});
    MoveDates(u"BILLING..tbCashAssessment"_s, {u"TransDate"_s, u"ORDate"_s, u"RevokeDate"_s});
    MoveDates(u"BILLING..tbAuditTrail"_s, {u"AuditDate"_s});
    MoveDates(u"INVENTORY..tbInvStockCard"_s, {u"TransDate"_s, u"EntryDate"_s});
    MoveDates(u"RADIOLOGY..tbNurseRequest"_s, {u"RequestDate"_s, u"ClosedDate"_s});
    // The date of a treatment record is a text, as a nurse writes it.
    Emit(u"UPDATE HEMODIALYSIS..tbHemodialysisResultEntry\n"
         "SET ResultDate = CONVERT(varchar(10), DATEADD(day, DATEDIFF(day, '%1', GETDATE()),\n"
         "                                              CAST(ResultDate AS datetime)), 101);"_s.arg(
             DayText(BaseDay())));
    Emit(u"UPDATE PATIENT_DATA..tbwalkin\n"
         "SET Age = CAST(DATEDIFF(year, BirthDate, GETDATE())\n"
         "               - CASE WHEN MONTH(GETDATE()) * 100 + DAY(GETDATE()) < MONTH(BirthDate) * 100 + "
         "DAY(BirthDate)\n"
         "                      THEN 1 ELSE 0 END AS varchar(3))\n"
         "WHERE BirthDate IS NOT NULL;"_s);
}

void HospitalWriter::MoveDates(const QString& table, const QStringList& columns) {
    QStringList moves;
    for (const QString& column : columns)
        moves.push_back(
            u"%1 = DATEADD(day, DATEDIFF(day, '%2', GETDATE()), %1)"_s.arg(column, DayText(BaseDay())));
    Emit(u"UPDATE %1\nSET %2;"_s.arg(table, moves.join(u",\n    "_s)));
}

} // namespace

void GenerateHospital(const HospitalSize& size, const HospitalSink& sink) {
    CheckSize(size);
    HospitalWriter(size, sink).Run();
}

} // namespace Generator
