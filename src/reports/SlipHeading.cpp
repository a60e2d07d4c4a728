#include "reports/SlipHeading.h"

#include "components/shared.h"
#include "reports/ReportFiles.h"
#include "reports/Reports.h"
#include "text/Clock.h"
#include "text/Format.h"

void OpenChargeSlip(const SlipHeading& slip) {
    OpenReport(PathOf(ReportFile::kChargeSlip),
               {slip.number, Format(Now(), u"mm/dd/yyyy"), slip.patientName, slip.admissionNumber,
                slip.hospitalNumber, slip.room, Format(Now(), u"hh:mm:ss AM/PM"), slip.account, slip.station,
                gCurrentUser->EmployeeName()});
}
