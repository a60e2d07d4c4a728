#pragma once

#include <QString>
#include <QStringList>

/// The names of a treatment record's fields in their order, written out by themselves: as the procedure's
/// arguments stand and as the hospital's table has its columns.
inline QStringList FieldNames() {
    using namespace Qt::StringLiterals;
    return QString(
               u"HospNum IdNum RequestNum DialysisNumber MachineNumber PatientType ResultDate UserId "
               u"HdStartTime "
               "HdEndTime DryWeight WtPreHD WtPostHD PostHDRemarks HdNursePatient1 HdNursePatient2 "
               "HdNurseMachine1 "
               "HdNurseMachine2 UFV BFR DFR Duration Bath Heparin TxParameters DialyzerType DialyzerUse "
               "BloodLineUse "
               "PhysiciansOrders SignificantData Time1 Time2 Time3 Time4 Bfr1 Bfr2 Bfr3 Bfr4 AP1 AP2 AP3 AP4 "
               "VP1 VP2 "
               "VP3 VP4 TMP1 TMP2 TMP3 TMP4 TIMETIME1 TIMETIME2 TIMETIME3 TIMETIME4 TIMETIME5 TIMETIME6 "
               "TIMETIME7 "
               "TIMETIME8 TIMETIME9 TIMETIME10 BP1 BP2 BP3 BP4 BP5 BP6 BP7 BP8 BP9 BP10 CR1 CR2 CR3 CR4 CR5 "
               "CR6 CR7 "
               "CR8 CR9 CR10 RR1 RR2 RR3 RR4 RR5 RR6 RR7 RR8 RR9 RR10 TEMP1 TEMP2 TEMP3 TEMP4 TEMP5 TEMP6 "
               "TEMP7 "
               "TEMP8 TEMP9 TEMP10 Arrived ArrAmbulatory ArrWheelChair ArrOther ArrText GaitSteady "
               "GaitAssisted "
               "GaitOther GaitText LOCAlert LOCConfused LOCDrowsy LOCStupor LOCOthers LOCText NVENone "
               "NVEProminent "
               "NVEOthers NVEText BreathingNormal BreathingDyspneic BreathingOthers BreathingText LungsClear "
               "LungsRales LungsRalesText LungsOthers LungsText HeartRhythRegular HeartRhythIrregular "
               "HeartRhythOthers HeartRhythText EdemaNone EdemaFaceEyes EdemaAscites EdemaUpperExt "
               "EdemaLowerExt "
               "EdemaText EmotionalAppropriate EmotionalIndifferent EmotionalOthers EmotionalText SleepGood "
               "SleepFair SleepPoor AppetiteGood AppetiteFair AppetitePoor AccessCondGood AccessCondOthers "
               "AccessCondText ComplaintsNone ComplaintsOthers ComplaintsText PreDialysisNurse SCCond SCTemp "
               "SCIntrlk SCByPass SCBleak SCAirDTK DialysateNa DialysateBIC DialysateK DialysateCa "
               "DialysateDex "
               "DialysateT DialysateCond Prime Resid ID1 ID2 TreatmentUneventful TreatmentEventful "
               "IntraDialyticTime1 IntraDialyticTime2 IntraDialyticTime3 IntraDialyticTime4 "
               "IntraDialyticTime5 "
               "IntraDialyticTime6 IntraDialyticEvent1 IntraDialyticEvent2 IntraDialyticEvent3 "
               "IntraDialyticEvent4 "
               "IntraDialyticEvent5 IntraDialyticEvent6 PDEvalAccessCare PDEvalAccessText PDEvalEPO "
               "PDEvalEPOText "
               "PDEvalPxCondFair PDEvalPxCondOthers PDEvalPxCondText PDEvalBreathNormal PDEvalBreathDysp "
               "PDEvalBreathOthers PDEvalBreathText PDEvalDischarge PDEvalDcrAmbulatory PDEvalDcrWheel "
               "PDEvalDcrOThers PDEvalDcrText PDEvalNurse"_s)
        .split(u' ');
}
