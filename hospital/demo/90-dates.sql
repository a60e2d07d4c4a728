-- Written by generate-hospital; change hospital/generator instead.

UPDATE PATIENT_DATA..tbpatient
SET AdmDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), AdmDate),
    DcrDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), DcrDate),
    BillingDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), BillingDate);
GO

UPDATE PATIENT_DATA..tboutpatient
SET AdmDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), AdmDate),
    DcrDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), DcrDate),
    BillingDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), BillingDate);
GO

UPDATE PATIENT_DATA..tbwalkin
SET RegDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), RegDate);
GO

UPDATE BILLING..tbPatientCharges
SET TransDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), TransDate),
    EntryDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), EntryDate);
GO

UPDATE BILLING..tbCashAssessment
SET TransDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), TransDate),
    ORDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), ORDate),
    RevokeDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), RevokeDate);
GO

UPDATE BILLING..tbAuditTrail
SET AuditDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), AuditDate);
GO

UPDATE INVENTORY..tbInvStockCard
SET TransDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), TransDate),
    EntryDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), EntryDate);
GO

UPDATE RADIOLOGY..tbNurseRequest
SET RequestDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), RequestDate),
    ClosedDate = DATEADD(day, DATEDIFF(day, '20260101', GETDATE()), ClosedDate);
GO

UPDATE HEMODIALYSIS..tbHemodialysisResultEntry
SET ResultDate = CONVERT(varchar(10), DATEADD(day, DATEDIFF(day, '20260101', GETDATE()),
                                              CAST(ResultDate AS datetime)), 101);
GO

UPDATE PATIENT_DATA..tbwalkin
SET Age = CAST(DATEDIFF(year, BirthDate, GETDATE())
               - CASE WHEN MONTH(GETDATE()) * 100 + DAY(GETDATE()) < MONTH(BirthDate) * 100 + DAY(BirthDate)
                      THEN 1 ELSE 0 END AS varchar(3))
WHERE BirthDate IS NOT NULL;
GO

