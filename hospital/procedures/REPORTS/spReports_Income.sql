-- The unit's charges of in-patients (I) or out-patients (O) in the days from @Start to @End, by department and service.
-- A cancellation counts on the day on which it was made. An item without a code goes by its description.
USE REPORTS;
GO

CREATE PROCEDURE dbo.spReports_Income
    @PatientType varchar(1),
    @Start datetime,
    @End datetime
AS
BEGIN
    SET NOCOUNT ON;

    SELECT x.RevenueID, COALESCE(r.Revenue, '') AS Department, x.ItemID, x.Service, x.Charges, x.Quantity, x.Charged,
           x.Cancelled, x.Net
    FROM (
        SELECT c.RevenueID, c.ItemID, MAX(c.Description) AS Service,
               SUM(CASE WHEN c.RecordType = 'C' THEN 0 ELSE 1 END) AS Charges, SUM(c.Units) AS Quantity,
               SUM(CASE WHEN c.RecordType = 'C' THEN 0 ELSE c.Amount END) AS Charged,
               SUM(CASE WHEN c.RecordType = 'C' THEN c.Amount ELSE 0 END) AS Cancelled, SUM(c.Amount) AS Net
        FROM BILLING..tbPatientCharges AS c
        WHERE c.TransDate >= @Start AND c.TransDate < DATEADD(day, 1, @End) AND c.SourceDept = 'HC'
          AND c.PatientType = @PatientType
        GROUP BY c.RevenueID, c.ItemID, CASE WHEN c.ItemID = '' THEN c.Description ELSE '' END
    ) AS x
    LEFT JOIN build_file..tbCoRevenue AS r ON r.RevenueID = x.RevenueID
    ORDER BY x.RevenueID, x.Service, x.ItemID;
END
GO
