-- What the program's users may do in the hospital's databases, procedure by procedure and table by table. What the
-- workstation's screens, its sign-on, its components and the reports' templates can send is granted to the role
-- tarven_hemodialysis; what stands ready in the program with no way in, to tarven_hemodialysis_standby, whose members
-- are members of the first role too. Tables that procedures alone use are granted to nobody. A test compares this file
-- with every command text and template of the program.

-- Of the users the sign-on reads what it names and nothing else. The duplicate of a slip reads whole rows.
USE PASSWORD;
GO
GRANT SELECT ON dbo.tbPasswordMain (EmployeeID, LastName, FirstName, Initial, Active) TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbPasswordDept TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbPasswordMain TO tarven_hemodialysis_standby;
GO
USE build_file;
GO
GRANT SELECT ON dbo.tbCoAddress TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbCoCivilStatus TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbCoCompany TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbCoDoctor TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbCoOtherRevenue TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbCoRoom TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbCoStation TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbcoultraexam TO tarven_hemodialysis_standby;
GO
USE PATIENT_DATA;
GO
GRANT SELECT ON dbo.tbhospitalInfo TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbmaster TO tarven_hemodialysis;
GRANT SELECT ON dbo.tboutpatient TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbpatient TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spReports_CensusAll TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spReports_CensusStation TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spAddCashPatient TO tarven_hemodialysis_standby;
GRANT EXECUTE ON dbo.spGlobal_ListWalkIn TO tarven_hemodialysis_standby;
GRANT EXECUTE ON dbo.spGlobal_LoadWalkIn TO tarven_hemodialysis_standby;
GRANT EXECUTE ON dbo.spGlobal_UpdateWalkIn TO tarven_hemodialysis_standby;
GRANT EXECUTE ON dbo.spGlobal_WalkIn TO tarven_hemodialysis_standby;
GO
-- The number of the next assessment is written through its row; lines are written by procedures alone.
USE BILLING;
GO
GRANT SELECT ON dbo.tbAssessmentNum TO tarven_hemodialysis;
GRANT UPDATE ON dbo.tbAssessmentNum (AssessmentNum) TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbCashAssessment TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spGlobal_RegisteredOPD TO tarven_hemodialysis_standby;
GO
-- The number of the next slip likewise. A save empties the print table by a plain statement.
USE Clinical_Area;
GO
GRANT SELECT ON dbo.tbEarCareChargeSlip TO tarven_hemodialysis;
GRANT UPDATE ON dbo.tbEarCareChargeSlip (ChargeSlip) TO tarven_hemodialysis;
GRANT SELECT, DELETE ON dbo.tbEarCareChargePrint TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.SpEarCare_List_AllCharges TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_Add_CashPatient TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_Append_Charging TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_AssessRevoke TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_Assessment TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_AssessmentStatus TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_DumpChargeSlip TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_GetCashPatient TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_GetPatient TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_GlobalDumpChargeSlip TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_LoadExamEntry TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_NurseRequest TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_ReprintChargeSlip TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_SaveChargePrint TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_SearchRevenue TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_UpdateCharging TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spEarCare_VerifyCharges TO tarven_hemodialysis;
GO
USE RADIOLOGY;
GO
GRANT EXECUTE ON dbo.spRadio_CheckPending TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spRadio_Consultation TO tarven_hemodialysis_standby;
GRANT EXECUTE ON dbo.spRadio_RevokeNurseRequest TO tarven_hemodialysis_standby;
GO
USE HEMODIALYSIS;
GO
GRANT SELECT ON dbo.tbhemopackage TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbHemodialysisResultEntry TO tarven_hemodialysis_standby;
GRANT EXECUTE ON dbo.spKidney_ChargesbyPatient TO tarven_hemodialysis_standby;
GRANT EXECUTE ON dbo.spKidney_Rates TO tarven_hemodialysis_standby;
GRANT EXECUTE ON dbo.spKidney_SaveChargePrint TO tarven_hemodialysis_standby;
GRANT EXECUTE ON dbo.spKidney_SaveHemodialysisTreatMentRecord TO tarven_hemodialysis_standby;
GRANT EXECUTE ON dbo.spKidney_SearchPatient TO tarven_hemodialysis_standby;
GO
-- A package that is given out whole links its items' cards to itself, which no save does yet.
USE INVENTORY;
GO
GRANT SELECT ON dbo.tbInvMaster TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spStock_AppendStockCard TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbInvStockCard TO tarven_hemodialysis_standby;
GRANT UPDATE ON dbo.tbInvStockCard (PackageID) TO tarven_hemodialysis_standby;
GO
USE REPORTS;
GO
GRANT EXECUTE ON dbo.spReports_Audit TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spReports_Company TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spReports_Income TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spReports_IncomeCash TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spReports_Ledger TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spReports_Statistics TO tarven_hemodialysis;
GRANT EXECUTE ON dbo.spReports_ChargeSlip TO tarven_hemodialysis_standby;
GO
