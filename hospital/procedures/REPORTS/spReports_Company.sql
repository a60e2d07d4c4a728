-- The unit's charges of in-patients (I) or out-patients (O) in the days from @Start to @End, by the company that pays
-- and by admission or visit. A cancellation counts on the day on which it was made. Whoever has no company on file
-- pays himself. Slips are those posted in these days.
USE REPORTS;
GO

CREATE PROCEDURE dbo.spReports_Company
    @PatientType varchar(1),
    @Start datetime,
    @End datetime
AS
BEGIN
    SET NOCOUNT ON;

    SELECT x.CompanyID, COALESCE(o.Company, x.CompanyID) AS Company, x.HospNum, x.IdNum,
           CASE WHEN m.HospNum IS NULL THEN ''
                ELSE CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName) END AS Patient, x.Slips, x.Charged,
           x.Cancelled, x.Net
    FROM (
        SELECT g.HospNum, g.IdNum, COALESCE(p.CompanyID, v.CompanyID, 'PER') AS CompanyID, g.Slips, g.Charged,
               g.Cancelled, g.Net
        FROM (
            SELECT c.HospNum, c.IdNum,
                   COUNT(DISTINCT CASE WHEN c.RecordType <> 'C' THEN c.RefNum ELSE NULL END) AS Slips,
                   SUM(CASE WHEN c.RecordType = 'C' THEN 0 ELSE c.Amount END) AS Charged,
                   SUM(CASE WHEN c.RecordType = 'C' THEN c.Amount ELSE 0 END) AS Cancelled, SUM(c.Amount) AS Net
            FROM BILLING..tbPatientCharges AS c
            WHERE c.TransDate >= @Start AND c.TransDate < DATEADD(day, 1, @End) AND c.SourceDept = 'HC'
              AND c.PatientType = @PatientType
            GROUP BY c.HospNum, c.IdNum
        ) AS g
        LEFT JOIN PATIENT_DATA..tbpatient AS p ON p.IdNum = g.IdNum
        LEFT JOIN PATIENT_DATA..tboutpatient AS v ON v.IdNum = g.IdNum
    ) AS x
    LEFT JOIN build_file..tbCoCompany AS o ON o.CompanyID = x.CompanyID
    LEFT JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = x.HospNum
    ORDER BY Company, x.CompanyID, m.LastName, m.FirstName, m.MiddleName, x.IdNum;
END
GO
