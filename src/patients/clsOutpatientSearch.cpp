#include "patients/clsOutpatientSearch.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/commands.h"
#include "patients/frmRegisteredOPD.h"
#include "text/Format.h"
#include "toolkit/Screens.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kDate = u"mm/dd/yyyy";
constexpr QStringView kTime = u"hh:mmAM/PM";

/// All registrations, by number.
RowSet OpenVisits(const QString& number) {
    return gConnection->Open(RegisteredOPDCommand(u"0"_s, u"1"_s, number), CursorType::Dynamic,
                             LockType::Optimistic, CursorLocation::Client);
}

QString TextOrEmpty(const Value& moment, QStringView pattern) {
    return moment.IsNull() ? QString() : Format(moment.ToDate(), pattern);
}

} // namespace

bool clsOutpatientSearch::ValidatePatient(QString& AdmNum) {
    RowSet visits = OpenVisits(AdmNum);
    if (visits.RecordCount() != 1) {
        frmRegisteredOPD::PatientRecord = AdmNum;
        Screens::Get<frmRegisteredOPD>().ShowModal();
        if (!frmRegisteredOPD::Valid.ToBoolean())
            return false;
        AdmNum = frmRegisteredOPD::ResultCode.ToText();
        visits.Close();
        visits = OpenVisits(AdmNum);
    }
    TakeVisit(visits);
    TakePerson(visits);
    visits.Close();
    return true;
}

void clsOutpatientSearch::TakeVisit(const RowSet& visits) {
    mIDNumber = visits.Fields(u"IdNum").ToText();
    mHospitalNumber = visits.Fields(u"HospNum").ToText();
    mLastName = visits.Fields(u"LastName").ToText();
    mFirstName = visits.Fields(u"FirstName").ToText();
    mMiddleName = visits.Fields(u"MiddleName").ToText();
    mAccountNum = visits.Fields(u"AccountNum").TextOrEmpty();
    mCompany = visits.Fields(u"Company").ToText();
    mAdmDate = Format(visits.Fields(u"AdmDate").ToDate(), kDate);
    mAdmTime = Format(visits.Fields(u"AdmDate").ToDate(), kTime);
    mDcrDate = TextOrEmpty(visits.Fields(u"DcrDate"), kDate);
    mDcrTime = TextOrEmpty(visits.Fields(u"DcrDate"), kTime);
    mBillingDate = TextOrEmpty(visits.Fields(u"BillingDate"), kDate);
}

void clsOutpatientSearch::TakePerson(const RowSet& visits) {
    const QString civilStatus = visits.Fields(u"CivilStatus").ToText();
    mCivilStatus = civilStatus.isEmpty() ? u"1"_s : civilStatus;
    mSex = visits.Fields(u"Sex").TextOrEmpty();
    mBirthDate = visits.Fields(u"BirthDate").TextOrEmpty();
    mAge = visits.Fields(u"Age").TextOrEmpty();
    mHouseStreet = visits.Fields(u"HouseStreet").TextOrEmpty();
    mBarangay = visits.Fields(u"Barangay").TextOrEmpty();
    mTown = visits.Fields(u"Town").TextOrEmpty();
    mProvince = visits.Fields(u"Province").TextOrEmpty();
}
