#include "support/FakeComponents.h"

using namespace Qt::StringLiterals;

namespace {

/// Raises the failure that the test has set, once.
void RaiseOnce(std::optional<RunTimeError>& failure) {
    if (!failure)
        return;
    const RunTimeError error = *failure;
    failure.reset();
    throw error;
}

} // namespace

void ComingFailure::Call() {
    if (error && after-- == 0)
        RaiseOnce(error);
}

bool FakeListing::SearchListing(QString& code, int kind) {
    searches.push_back({code, kind, section});
    RaiseOnce(failure);
    if (answers.empty())
        return false;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
}

bool FakeStockItem::InitConnect(const QString& connectionString) {
    connections.push_back(connectionString);
    return connects;
}

bool FakeStockItem::SearchDrug(const QString& text, const QString& section) {
    RaiseOnce(failure);
    for (const Item& item : items) {
        if (item.code == text && item.section == section) {
            mItem = item;
            return true;
        }
    }
    return false;
}

QString FakeStockItem::DrugCode() const {
    codeFailure.Call();
    return mItem.code;
}

QString FakeStockItem::DrugName() const {
    nameFailure.Call();
    return mItem.name;
}

StockPrices FakeStockItem::Invent() const {
    priceFailure.Call();
    return mItem.prices;
}

void FakeStockItem::AppendStockCard(StockCardEntry& entry) {
    RaiseOnce(failure);
    entries.push_back(entry);
}

bool FakeStockList::InitConnection(const QString& connectionString) {
    connections.push_back(connectionString);
    return connects;
}

QString FakeStockList::ShowList(const QString& text, bool flag, const QString& section) {
    showings.push_back({text, flag, section});
    RaiseOnce(failure);
    return pick.value_or(text);
}

void FakePersonFinder::FillAdmission() {
    auto station = std::make_shared<StationRecord>();
    station->Description = u"STATION 3"_s;
    auto room = std::make_shared<RoomRecord>();
    room->RoomID = u"301-A"_s;
    room->roomclassid = u"C"_s;
    room->Station = station;
    auto account = std::make_shared<AccountRecord>();
    account->AccountNumber = u"500123"_s;
    account->Company = u"PHILHEALTH"_s;
    auto patient = std::make_shared<PatientRecord>();
    patient->LastName = u"DELA CRUZ  "_s;
    patient->FirstName = u"JUAN "_s;
    patient->MiddleName = u"PEÑA   "_s;
    patient->Sex = u"M"_s;
    patient->BirthDate = DateTime::FromFields({1960, 5, 6}).value();
    patient->Account = account;
    auto doctor1 = std::make_shared<DoctorRecord>();
    doctor1->completename = u"DR. LUIS CASTAÑEDA"_s;
    doctor1->Code = u"D003"_s;
    auto doctor2 = std::make_shared<DoctorRecord>();
    doctor2->completename = u"DR. GRACE FONACIER"_s;
    doctor2->Code = u"D007"_s;
    admission.IDNumber = u"104233"_s;
    admission.HospitalNumber = u"100085"_s;
    admission.AdmissionDate = DateTime::FromFields({2026, 11, 3, 14, 15, 0, 0}).value();
    admission.Age = u"66"_s;
    admission.Patient = patient;
    admission.Account = account;
    admission.Room = room;
    admission.AttendingDoctor1 = doctor1;
    admission.AttendingDoctor2 = doctor2;
    static_cast<PatientRecord&>(*this) = *patient;
    Age = u"66"_s;
    HospitalNumber = u"100085"_s;
    visitDate = DateTime::FromFields({2026, 11, 20, 8, 5, 0, 0}).value();
}

bool FakePersonFinder::InitConnection(CommandGateway* gateway, const QString& server) {
    connection = gateway;
    remoteServer = server;
    return connects;
}

bool FakePersonFinder::ValidateAdmission(QString& idNumber) {
    validated.push_back(idNumber);
    return hasAdmission;
}

bool FakePersonFinder::OpenOutPatient(QString& idNumber, QString& hospitalNumber) {
    opened.push_back(idNumber + u'/' + hospitalNumber);
    return hasVisit;
}

bool FakePersonFinder::LoadPatient(QString& hospitalNumber) {
    loaded.push_back(hospitalNumber);
    return hasPatient;
}
