#pragma once

/// The fields of a treatment record, each a text. This list is the one place where they stand: the record's
/// members, reads and writes, the arguments of the save and the columns of the load follow it, in this order.
/// The names are those of the columns of the hospital's table, letter for letter.
///
/// BFR is the flow that was ordered, Bfr1 to Bfr4 are what the machine showed; Time1 to Time4 are the times
/// of the machine readings, TIMETIME1 to TIMETIME10 those of the vital signs.
// clang-format off
#define TREATMENT_FIELDS(FIELD) \
    /* Identity. */                                                             \
    FIELD(HospNum) /* hospital number of the patient */                         \
    FIELD(IdNum) /* admission or visit number */                                \
    FIELD(RequestNum) /* request number of the treatment */                     \
    FIELD(DialysisNumber) /* running number of the dialysis */                  \
    FIELD(MachineNumber) /* number of the machine used */                       \
    FIELD(PatientType) /* patient type */                                       \
    FIELD(ResultDate) /* date of the record */                                  \
    FIELD(UserId) /* user who entered the record */                             \
    /* Run. */                                                                  \
    FIELD(HdStartTime) /* time hemodialysis started */                          \
    FIELD(HdEndTime) /* time hemodialysis ended */                              \
    FIELD(DryWeight) /* dry weight */                                           \
    FIELD(WtPreHD) /* weight before hemodialysis */                             \
    FIELD(WtPostHD) /* weight after hemodialysis */                             \
    FIELD(PostHDRemarks) /* remarks after hemodialysis */                       \
    /* Nurses. */                                                               \
    FIELD(HdNursePatient1) /* first nurse on the patient */                     \
    FIELD(HdNursePatient2) /* second nurse on the patient */                    \
    FIELD(HdNurseMachine1) /* first nurse on the machine */                     \
    FIELD(HdNurseMachine2) /* second nurse on the machine */                    \
    /* Prescription. */                                                         \
    FIELD(UFV) /* ultrafiltration volume */                                     \
    FIELD(BFR) /* blood flow rate ordered */                                    \
    FIELD(DFR) /* dialysate flow rate ordered */                                \
    FIELD(Duration) /* duration of the treatment */                             \
    FIELD(Bath) /* dialysate bath */                                            \
    FIELD(Heparin) /* heparin */                                                \
    FIELD(TxParameters) /* treatment parameters */                              \
    FIELD(DialyzerType) /* dialyzer type */                                     \
    FIELD(DialyzerUse) /* dialyzer use */                                       \
    FIELD(BloodLineUse) /* blood line use */                                    \
    FIELD(PhysiciansOrders) /* physician's orders */                            \
    FIELD(SignificantData) /* significant data */                               \
    /* Machine readings. */                                                     \
    FIELD(Time1) /* time of machine reading 1 */                                \
    FIELD(Time2) /* time of machine reading 2 */                                \
    FIELD(Time3) /* time of machine reading 3 */                                \
    FIELD(Time4) /* time of machine reading 4 */                                \
    FIELD(Bfr1) /* blood flow rate at machine reading 1 */                      \
    FIELD(Bfr2) /* blood flow rate at machine reading 2 */                      \
    FIELD(Bfr3) /* blood flow rate at machine reading 3 */                      \
    FIELD(Bfr4) /* blood flow rate at machine reading 4 */                      \
    FIELD(AP1) /* arterial pressure at machine reading 1 */                     \
    FIELD(AP2) /* arterial pressure at machine reading 2 */                     \
    FIELD(AP3) /* arterial pressure at machine reading 3 */                     \
    FIELD(AP4) /* arterial pressure at machine reading 4 */                     \
    FIELD(VP1) /* venous pressure at machine reading 1 */                       \
    FIELD(VP2) /* venous pressure at machine reading 2 */                       \
    FIELD(VP3) /* venous pressure at machine reading 3 */                       \
    FIELD(VP4) /* venous pressure at machine reading 4 */                       \
    FIELD(TMP1) /* transmembrane pressure at machine reading 1 */               \
    FIELD(TMP2) /* transmembrane pressure at machine reading 2 */               \
    FIELD(TMP3) /* transmembrane pressure at machine reading 3 */               \
    FIELD(TMP4) /* transmembrane pressure at machine reading 4 */               \
    /* Vital signs. */                                                          \
    FIELD(TIMETIME1) /* time of vital signs reading 1 */                        \
    FIELD(TIMETIME2) /* time of vital signs reading 2 */                        \
    FIELD(TIMETIME3) /* time of vital signs reading 3 */                        \
    FIELD(TIMETIME4) /* time of vital signs reading 4 */                        \
    FIELD(TIMETIME5) /* time of vital signs reading 5 */                        \
    FIELD(TIMETIME6) /* time of vital signs reading 6 */                        \
    FIELD(TIMETIME7) /* time of vital signs reading 7 */                        \
    FIELD(TIMETIME8) /* time of vital signs reading 8 */                        \
    FIELD(TIMETIME9) /* time of vital signs reading 9 */                        \
    FIELD(TIMETIME10) /* time of vital signs reading 10 */                      \
    FIELD(BP1) /* blood pressure at vital signs reading 1 */                    \
    FIELD(BP2) /* blood pressure at vital signs reading 2 */                    \
    FIELD(BP3) /* blood pressure at vital signs reading 3 */                    \
    FIELD(BP4) /* blood pressure at vital signs reading 4 */                    \
    FIELD(BP5) /* blood pressure at vital signs reading 5 */                    \
    FIELD(BP6) /* blood pressure at vital signs reading 6 */                    \
    FIELD(BP7) /* blood pressure at vital signs reading 7 */                    \
    FIELD(BP8) /* blood pressure at vital signs reading 8 */                    \
    FIELD(BP9) /* blood pressure at vital signs reading 9 */                    \
    FIELD(BP10) /* blood pressure at vital signs reading 10 */                  \
    FIELD(CR1) /* cardiac rate at vital signs reading 1 */                      \
    FIELD(CR2) /* cardiac rate at vital signs reading 2 */                      \
    FIELD(CR3) /* cardiac rate at vital signs reading 3 */                      \
    FIELD(CR4) /* cardiac rate at vital signs reading 4 */                      \
    FIELD(CR5) /* cardiac rate at vital signs reading 5 */                      \
    FIELD(CR6) /* cardiac rate at vital signs reading 6 */                      \
    FIELD(CR7) /* cardiac rate at vital signs reading 7 */                      \
    FIELD(CR8) /* cardiac rate at vital signs reading 8 */                      \
    FIELD(CR9) /* cardiac rate at vital signs reading 9 */                      \
    FIELD(CR10) /* cardiac rate at vital signs reading 10 */                    \
    FIELD(RR1) /* respiratory rate at vital signs reading 1 */                  \
    FIELD(RR2) /* respiratory rate at vital signs reading 2 */                  \
    FIELD(RR3) /* respiratory rate at vital signs reading 3 */                  \
    FIELD(RR4) /* respiratory rate at vital signs reading 4 */                  \
    FIELD(RR5) /* respiratory rate at vital signs reading 5 */                  \
    FIELD(RR6) /* respiratory rate at vital signs reading 6 */                  \
    FIELD(RR7) /* respiratory rate at vital signs reading 7 */                  \
    FIELD(RR8) /* respiratory rate at vital signs reading 8 */                  \
    FIELD(RR9) /* respiratory rate at vital signs reading 9 */                  \
    FIELD(RR10) /* respiratory rate at vital signs reading 10 */                \
    FIELD(TEMP1) /* temperature at vital signs reading 1 */                     \
    FIELD(TEMP2) /* temperature at vital signs reading 2 */                     \
    FIELD(TEMP3) /* temperature at vital signs reading 3 */                     \
    FIELD(TEMP4) /* temperature at vital signs reading 4 */                     \
    FIELD(TEMP5) /* temperature at vital signs reading 5 */                     \
    FIELD(TEMP6) /* temperature at vital signs reading 6 */                     \
    FIELD(TEMP7) /* temperature at vital signs reading 7 */                     \
    FIELD(TEMP8) /* temperature at vital signs reading 8 */                     \
    FIELD(TEMP9) /* temperature at vital signs reading 9 */                     \
    FIELD(TEMP10) /* temperature at vital signs reading 10 */                   \
    /* Pre-dialysis assessment. */                                              \
    FIELD(Arrived) /* arrival entry */                                          \
    FIELD(ArrAmbulatory) /* arrived ambulatory */                               \
    FIELD(ArrWheelChair) /* arrived in a wheelchair */                          \
    FIELD(ArrOther) /* arrived some other way */                                \
    FIELD(ArrText) /* free text on arrival */                                   \
    FIELD(GaitSteady) /* gait steady */                                         \
    FIELD(GaitAssisted) /* gait assisted */                                     \
    FIELD(GaitOther) /* gait other */                                           \
    FIELD(GaitText) /* free text on gait */                                     \
    FIELD(LOCAlert) /* level of consciousness: alert */                         \
    FIELD(LOCConfused) /* level of consciousness: confused */                   \
    FIELD(LOCDrowsy) /* level of consciousness: drowsy */                       \
    FIELD(LOCStupor) /* level of consciousness: stupor */                       \
    FIELD(LOCOthers) /* level of consciousness: others */                       \
    FIELD(LOCText) /* free text on level of consciousness */                    \
    FIELD(NVENone) /* neck vein engorgement: none */                            \
    FIELD(NVEProminent) /* neck vein engorgement: prominent */                  \
    FIELD(NVEOthers) /* neck vein engorgement: others */                        \
    FIELD(NVEText) /* free text on neck veins */                                \
    FIELD(BreathingNormal) /* breathing normal */                               \
    FIELD(BreathingDyspneic) /* breathing dyspneic */                           \
    FIELD(BreathingOthers) /* breathing others */                               \
    FIELD(BreathingText) /* free text on breathing */                           \
    FIELD(LungsClear) /* lungs clear */                                         \
    FIELD(LungsRales) /* lungs with rales */                                    \
    FIELD(LungsRalesText) /* free text on rales */                              \
    FIELD(LungsOthers) /* lungs others */                                       \
    FIELD(LungsText) /* free text on lungs */                                   \
    FIELD(HeartRhythRegular) /* heart rhythm regular */                         \
    FIELD(HeartRhythIrregular) /* heart rhythm irregular */                     \
    FIELD(HeartRhythOthers) /* heart rhythm others */                           \
    FIELD(HeartRhythText) /* free text on heart rhythm */                       \
    FIELD(EdemaNone) /* edema: none */                                          \
    FIELD(EdemaFaceEyes) /* edema of face and eyes */                           \
    FIELD(EdemaAscites) /* ascites */                                           \
    FIELD(EdemaUpperExt) /* edema of upper extremities */                       \
    FIELD(EdemaLowerExt) /* edema of lower extremities */                       \
    FIELD(EdemaText) /* free text on edema */                                   \
    FIELD(EmotionalAppropriate) /* emotional state appropriate */               \
    FIELD(EmotionalIndifferent) /* emotional state indifferent */               \
    FIELD(EmotionalOthers) /* emotional state others */                         \
    FIELD(EmotionalText) /* free text on emotional state */                     \
    FIELD(SleepGood) /* sleep good */                                           \
    FIELD(SleepFair) /* sleep fair */                                           \
    FIELD(SleepPoor) /* sleep poor */                                           \
    FIELD(AppetiteGood) /* appetite good */                                     \
    FIELD(AppetiteFair) /* appetite fair */                                     \
    FIELD(AppetitePoor) /* appetite poor */                                     \
    FIELD(AccessCondGood) /* condition of the vascular access good */           \
    FIELD(AccessCondOthers) /* condition of the vascular access others */       \
    FIELD(AccessCondText) /* free text on the access */                         \
    FIELD(ComplaintsNone) /* no complaints */                                   \
    FIELD(ComplaintsOthers) /* other complaints */                              \
    FIELD(ComplaintsText) /* free text on complaints */                         \
    FIELD(PreDialysisNurse) /* nurse of the pre-dialysis assessment */          \
    /* Machine safety checks. */                                                \
    FIELD(SCCond) /* safety check: conductivity */                              \
    FIELD(SCTemp) /* safety check: temperature */                               \
    FIELD(SCIntrlk) /* safety check: interlock */                               \
    FIELD(SCByPass) /* safety check: bypass */                                  \
    FIELD(SCBleak) /* safety check: blood leak */                               \
    FIELD(SCAirDTK) /* safety check: air detector */                            \
    /* Dialysate and dialyzer. */                                               \
    FIELD(DialysateNa) /* dialysate sodium */                                   \
    FIELD(DialysateBIC) /* dialysate bicarbonate */                             \
    FIELD(DialysateK) /* dialysate potassium */                                 \
    FIELD(DialysateCa) /* dialysate calcium */                                  \
    FIELD(DialysateDex) /* dialysate dextrose */                                \
    FIELD(DialysateT) /* dialysate temperature */                               \
    FIELD(DialysateCond) /* dialysate conductivity */                           \
    FIELD(Prime) /* prime entry of the dialyzer check */                        \
    FIELD(Resid) /* residual entry of the dialyzer check */                     \
    FIELD(ID1) /* first identification entry of the dialyzer check */           \
    FIELD(ID2) /* second identification entry of the dialyzer check */          \
    /* Intradialytic course. */                                                 \
    FIELD(TreatmentUneventful) /* the treatment was uneventful */               \
    FIELD(TreatmentEventful) /* the treatment was eventful */                   \
    FIELD(IntraDialyticTime1) /* time of intradialytic event 1 */               \
    FIELD(IntraDialyticTime2) /* time of intradialytic event 2 */               \
    FIELD(IntraDialyticTime3) /* time of intradialytic event 3 */               \
    FIELD(IntraDialyticTime4) /* time of intradialytic event 4 */               \
    FIELD(IntraDialyticTime5) /* time of intradialytic event 5 */               \
    FIELD(IntraDialyticTime6) /* time of intradialytic event 6 */               \
    FIELD(IntraDialyticEvent1) /* intradialytic event 1 */                      \
    FIELD(IntraDialyticEvent2) /* intradialytic event 2 */                      \
    FIELD(IntraDialyticEvent3) /* intradialytic event 3 */                      \
    FIELD(IntraDialyticEvent4) /* intradialytic event 4 */                      \
    FIELD(IntraDialyticEvent5) /* intradialytic event 5 */                      \
    FIELD(IntraDialyticEvent6) /* intradialytic event 6 */                      \
    /* Post-dialysis evaluation. */                                             \
    FIELD(PDEvalAccessCare) /* post-dialysis evaluation: access care given */   \
    FIELD(PDEvalAccessText) /* free text on access care */                      \
    FIELD(PDEvalEPO) /* post-dialysis evaluation: erythropoietin given */       \
    FIELD(PDEvalEPOText) /* free text on erythropoietin */                      \
    FIELD(PDEvalPxCondFair) /* patient condition fair */                        \
    FIELD(PDEvalPxCondOthers) /* patient condition others */                    \
    FIELD(PDEvalPxCondText) /* free text on patient condition */                \
    FIELD(PDEvalBreathNormal) /* breathing normal after dialysis */             \
    FIELD(PDEvalBreathDysp) /* breathing dyspneic after dialysis */             \
    FIELD(PDEvalBreathOthers) /* breathing others after dialysis */             \
    FIELD(PDEvalBreathText) /* free text on breathing after dialysis */         \
    FIELD(PDEvalDischarge) /* discharge entry */                                \
    FIELD(PDEvalDcrAmbulatory) /* discharged ambulatory */                      \
    FIELD(PDEvalDcrWheel) /* discharged in a wheelchair */                      \
    FIELD(PDEvalDcrOThers) /* discharged some other way; kept: the capital T */ \
    FIELD(PDEvalDcrText) /* free text on discharge */                           \
    FIELD(PDEvalNurse) /* nurse of the post-dialysis evaluation */
// clang-format on
