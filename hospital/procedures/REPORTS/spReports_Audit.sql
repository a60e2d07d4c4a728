-- What the unit's users did in the days from @Start to @End, by user and time: charges posted and cancelled,
-- assessments made and revoked, charge slips printed again. OnAccount is the amount that an act put on a patient's
-- account, AtCashier the amount that it asked for at the cashier; what was taken back is negative. An act whose user was
-- not recorded comes last.
USE REPORTS;
GO

CREATE PROCEDURE dbo.spReports_Audit
    @Start datetime,
    @End datetime
AS
BEGIN
    SET NOCOUNT ON;

    SELECT x.UserID,
           CASE WHEN x.UserID = '' THEN 'USER NOT RECORDED'
                ELSE CONCAT(x.UserID, '   ', u.LastName, CASE WHEN u.LastName IS NULL THEN '' ELSE ', ' END,
                            u.FirstName) END AS UserName,
           x.Moment, x.Event, x.RefNum, x.Patient, x.RevenueID, x.ItemID, x.Particular, x.Quantity, x.OnAccount,
           x.AtCashier
    FROM (
        SELECT c.UserID, c.TransDate AS Moment, 1 AS Kind, c.ChargeID AS Number,
               CASE WHEN c.RecordType = 'C' THEN 'Cancelled' ELSE 'Posted' END AS Event, c.RefNum,
               CASE WHEN m.HospNum IS NULL THEN ''
                ELSE CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName) END AS Patient, c.RevenueID, c.ItemID,
               c.Description AS Particular, c.Quantity, c.Amount AS OnAccount, CAST(NULL AS money) AS AtCashier
        FROM BILLING..tbPatientCharges AS c
        LEFT JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = c.HospNum
        WHERE c.TransDate >= @Start AND c.TransDate < DATEADD(day, 1, @End) AND c.SourceDept = 'HC'
        UNION ALL
        SELECT a.UserID, a.TransDate, 2, a.AssessNum, 'Assessed', COALESCE(a.RefNum, ''), a.Name, a.Revenueid, a.ItemID,
               a.Description, a.Quantity, CAST(NULL AS money), a.Amount
        FROM BILLING..tbCashAssessment AS a
        WHERE a.TransDate >= @Start AND a.TransDate < DATEADD(day, 1, @End) AND a.DeptCode = 'HC'
        UNION ALL
        SELECT COALESCE(a.RevokedBy, ''), a.RevokeDate, 3, a.AssessNum, 'Revoked', COALESCE(a.RefNum, ''), a.Name, a.Revenueid, a.ItemID,
               a.Description, a.Quantity, CAST(NULL AS money), 0 - a.Amount
        FROM BILLING..tbCashAssessment AS a
        WHERE a.RevokeDate >= @Start AND a.RevokeDate < DATEADD(day, 1, @End) AND a.DeptCode = 'HC'
        UNION ALL
        SELECT t.UserID, t.AuditDate, 4, t.AuditID, 'Re-printed', t.RefNum,
               COALESCE((SELECT TOP 1 CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)
                         FROM BILLING..tbPatientCharges AS c
                         INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = c.HospNum
                         WHERE c.RefNum = t.RefNum AND c.SourceDept = 'HC' ORDER BY c.ChargeID), ''),
               '', '', CONCAT('RE-PRINT NO. ', t.Times, ' OF THE SLIP'), '', CAST(NULL AS money), CAST(NULL AS money)
        FROM BILLING..tbAuditTrail AS t
        WHERE t.AuditDate >= @Start AND t.AuditDate < DATEADD(day, 1, @End) AND t.Event = 'REPRINT'
    ) AS x
    LEFT JOIN PASSWORD..tbPasswordMain AS u ON u.EmployeeID = x.UserID
    ORDER BY CASE WHEN x.UserID = '' THEN 1 ELSE 0 END, x.UserID, x.Moment, x.Kind, x.Number;
END
GO
