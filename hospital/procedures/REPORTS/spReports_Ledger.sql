-- What the unit charged to one admission or visit and took back again, in the order of time, with the balance behind
-- each line.
USE REPORTS;
GO

CREATE PROCEDURE dbo.spReports_Ledger
    @IdNum varchar(10)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT c.TransDate, c.RefNum, c.RevenueID, c.ItemID, c.Description, c.Quantity, c.UserID,
           CASE WHEN c.RecordType = 'C' THEN NULL ELSE c.Amount END AS Charged,
           CASE WHEN c.RecordType = 'C' THEN c.Amount ELSE NULL END AS Cancelled, c.Amount,
           (SELECT SUM(b.Amount) FROM BILLING..tbPatientCharges AS b
            WHERE b.IdNum = @IdNum AND b.SourceDept = 'HC'
              AND (b.TransDate < c.TransDate OR b.TransDate = c.TransDate AND b.ChargeID <= c.ChargeID)) AS Balance
    FROM BILLING..tbPatientCharges AS c
    WHERE c.IdNum = @IdNum AND c.SourceDept = 'HC'
    ORDER BY c.TransDate, c.ChargeID;
END
GO
