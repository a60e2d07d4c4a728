#include "support/FreshVariables.h"

#include "components/shared.h"
#include "patients/PatientContext.h"

void ResetShared() {
    for (QString* text : {&gIniPath, &gDeptCode, &gDeptDesc, &gDeptCodeCopy, &gDeptDescCopy, &gHospitalName,
                          &gHospitalAddress, &gHospitalTin, &gCompanyName, &gChargeMode, &gSlipNumber,
                          &gStockSection, &gCashSearchText})
        text->clear();
    gByGeneric = gUseGenericList = gSlipTableCleared = false;
    gLineCount = gLineCount2 = 0;
    gConnection = nullptr;
    gCurrentUser = {};
    gPersonFinder = {};
    gListing = {};
    gStockItem = {};
    gStockList = gStockListBasic = {};
    gDiagnosisCodes = {};
    gResultView = gStatement = gWardRequest = gWardResults = gWardConfinement = gWardConfinementResults = {};
}

void ResetPatientContext() {
    for (QString* text :
         {&gPatientType, &gHospitalNumber, &gIDNumber, &gRoomClass, &gStationName, &gAccountNumber, &gCompany,
          &gAdmissionDate, &gDischargeDate, &gRoomID, &gCashSearchCopy, &gUltraExam, &gUltraExamID})
        text->clear();
    gCashRecordset = RowSet();
    for (Value* value : {&gDoctor1, &gDoctor2, &gDoctor3, &gDoctor2Code})
        *value = QString();
    gDaysConfined = 0;
}
