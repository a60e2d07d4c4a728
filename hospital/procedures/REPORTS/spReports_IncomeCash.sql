-- What cash patients paid for the unit's assessments in the days from @Start to @End, by department and service. A line
-- counts on the day of its receipt; a paid line that was revoked is taken off on the day of the revoke. A line that was
-- paid after its revoke stays income: nothing took that money back. Unpaid is what was assessed in these days and still
-- waits for payment; it is no income.
USE REPORTS;
GO

CREATE PROCEDURE dbo.spReports_IncomeCash
    @Start datetime,
    @End datetime
AS
BEGIN
    SET NOCOUNT ON;

    SELECT x.RevenueID, COALESCE(r.Revenue, '') AS Department, x.ItemID, x.Service, x.Lines, x.Paid, x.Revoked, x.Net,
           x.Unpaid
    FROM (
        SELECT l.RevenueID, l.ItemID, MAX(l.Description) AS Service, SUM(l.IsPaid) AS Lines, SUM(l.Paid) AS Paid,
               SUM(l.Revoked) AS Revoked, SUM(l.Paid) + SUM(l.Revoked) AS Net, SUM(l.Unpaid) AS Unpaid
        FROM (
            SELECT a.Revenueid AS RevenueID, a.ItemID, a.Description, 1 AS IsPaid, a.Amount AS Paid,
                   CAST(0 AS money) AS Revoked, CAST(0 AS money) AS Unpaid
            FROM BILLING..tbCashAssessment AS a
            WHERE a.ORDate >= @Start AND a.ORDate < DATEADD(day, 1, @End) AND a.DeptCode = 'HC'
            UNION ALL
            SELECT a.Revenueid, a.ItemID, a.Description, 0, CAST(0 AS money), 0 - a.Amount, CAST(0 AS money)
            FROM BILLING..tbCashAssessment AS a
            WHERE a.RevokeDate >= @Start AND a.RevokeDate < DATEADD(day, 1, @End) AND a.DeptCode = 'HC'
              AND a.RevokeDate >= a.ORDate
            UNION ALL
            SELECT a.Revenueid, a.ItemID, a.Description, 0, CAST(0 AS money), CAST(0 AS money), a.Amount
            FROM BILLING..tbCashAssessment AS a
            WHERE a.TransDate >= @Start AND a.TransDate < DATEADD(day, 1, @End) AND a.DeptCode = 'HC'
              AND a.ORDate IS NULL AND a.RevokeDate IS NULL
        ) AS l
        GROUP BY l.RevenueID, l.ItemID, CASE WHEN l.ItemID = '' THEN l.Description ELSE '' END
    ) AS x
    LEFT JOIN build_file..tbCoRevenue AS r ON r.RevenueID = x.RevenueID
    ORDER BY x.RevenueID, x.Service, x.ItemID;
END
GO
