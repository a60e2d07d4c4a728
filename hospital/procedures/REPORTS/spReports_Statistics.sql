-- Counts and amounts of the unit's charges in the days from @Start to @End, twice: by service (Part 1, grouped by
-- department), and by day (Part 2, grouped by month). Each part comes to the same totals. A cancellation counts on the
-- day on which it was made.
USE REPORTS;
GO

CREATE PROCEDURE dbo.spReports_Statistics
    @Start datetime,
    @End datetime
AS
BEGIN
    SET NOCOUNT ON;

    SELECT x.Part, CASE WHEN x.Part = 1 THEN 'BY SERVICE' ELSE 'BY DAY' END AS PartName, x.GroupKey,
           CASE WHEN x.Part = 1 THEN CONCAT(x.GroupKey, '   ', r.Revenue) ELSE x.GroupKey END AS GroupName, x.ItemID,
           x.Label, x.Charges, x.Cancellations, x.Quantity, x.Amount
    FROM (
        SELECT 1 AS Part, c.RevenueID AS GroupKey, c.ItemID, MAX(c.Description) AS Label, MIN(c.TransDate) AS FirstDay,
               SUM(CASE WHEN c.RecordType = 'C' THEN 0 ELSE 1 END) AS Charges,
               SUM(CASE WHEN c.RecordType = 'C' THEN 1 ELSE 0 END) AS Cancellations, SUM(c.Units) AS Quantity,
               SUM(c.Amount) AS Amount
        FROM BILLING..tbPatientCharges AS c
        WHERE c.TransDate >= @Start AND c.TransDate < DATEADD(day, 1, @End) AND c.SourceDept = 'HC'
        GROUP BY c.RevenueID, c.ItemID, CASE WHEN c.ItemID = '' THEN c.Description ELSE '' END
        UNION ALL
        SELECT 2, CONCAT(LEFT(CONVERT(varchar(10), d.TransDay, 101), 2), '/',
                         RIGHT(CONVERT(varchar(10), d.TransDay, 101), 4)), '',
               CONVERT(varchar(10), d.TransDay, 101), CAST(d.TransDay AS datetime), d.Charges, d.Cancellations,
               d.Quantity, d.Amount
        FROM (
            SELECT CAST(c.TransDate AS date) AS TransDay,
                   SUM(CASE WHEN c.RecordType = 'C' THEN 0 ELSE 1 END) AS Charges,
                   SUM(CASE WHEN c.RecordType = 'C' THEN 1 ELSE 0 END) AS Cancellations, SUM(c.Units) AS Quantity,
                   SUM(c.Amount) AS Amount
            FROM BILLING..tbPatientCharges AS c
            WHERE c.TransDate >= @Start AND c.TransDate < DATEADD(day, 1, @End) AND c.SourceDept = 'HC'
            GROUP BY CAST(c.TransDate AS date)
        ) AS d
    ) AS x
    LEFT JOIN build_file..tbCoRevenue AS r ON x.Part = 1 AND r.RevenueID = x.GroupKey
    ORDER BY x.Part, CASE WHEN x.Part = 1 THEN x.GroupKey ELSE '' END,
             CASE WHEN x.Part = 2 THEN x.FirstDay ELSE NULL END, x.Label, x.ItemID;
END
GO
