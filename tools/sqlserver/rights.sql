-- What the program reads and writes by plain statements, for the role of its users. The procedures are granted by
-- tools/deploy-sqlserver, each one that stands in hospital/procedures; nothing else is.
USE PASSWORD;
GO
GRANT SELECT ON dbo.tbPasswordMain TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbPasswordDept TO tarven_hemodialysis;
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
GRANT SELECT ON dbo.tbcoultraexam TO tarven_hemodialysis;
GO
USE PATIENT_DATA;
GO
GRANT SELECT ON dbo.tbhospitalInfo TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbmaster TO tarven_hemodialysis;
GRANT SELECT ON dbo.tboutpatient TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbpatient TO tarven_hemodialysis;
GO
-- The number of the next assessment is written through its row; lines are written by procedures alone.
USE BILLING;
GO
GRANT SELECT, UPDATE ON dbo.tbAssessmentNum TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbCashAssessment TO tarven_hemodialysis;
GO
-- The number of the next slip likewise. A save empties the print table by a plain statement.
USE Clinical_Area;
GO
GRANT SELECT, UPDATE ON dbo.tbEarCareChargeSlip TO tarven_hemodialysis;
GRANT SELECT, DELETE ON dbo.tbEarCareChargePrint TO tarven_hemodialysis;
GO
USE HEMODIALYSIS;
GO
GRANT SELECT ON dbo.tbHemodialysisResultEntry TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbhemopackage TO tarven_hemodialysis;
GO
USE INVENTORY;
GO
GRANT SELECT ON dbo.tbInvMaster TO tarven_hemodialysis;
GRANT SELECT ON dbo.tbInvStockCard TO tarven_hemodialysis;
GO
