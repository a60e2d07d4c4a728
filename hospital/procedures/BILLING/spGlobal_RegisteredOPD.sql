-- The visits of out-patients, in the order of their names: all (0) or those that are still open (1), by the beginning
-- of the last name (0) or by a whole visit or hospital number (1). Blanks at the end of the text do not
-- count. The picker shows the first five columns.
USE BILLING;
GO

CREATE PROCEDURE dbo.spGlobal_RegisteredOPD
    @Current varchar(1),
    @Kind varchar(1),
    @Search varchar(60)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT o.IdNum, m.LastName, m.FirstName, m.MiddleName, CAST(o.AdmDate AS date) AS [Adm. Date], m.HospNum,
           m.AccountNum, c.Company, o.AdmDate, o.DcrDate, o.BillingDate, m.CivilStatusID AS CivilStatus, m.Sex, CAST(m.BirthDate AS date) AS BirthDate,
           DATEDIFF(year, m.BirthDate, GETDATE())
               - CASE WHEN MONTH(GETDATE()) * 100 + DAY(GETDATE()) < MONTH(m.BirthDate) * 100 + DAY(m.BirthDate)
                      THEN 1 ELSE 0 END AS Age,
           m.HouseStreet, m.Barangay, a.Town, a.Province
    FROM (
        SELECT v.IdNum
        FROM PATIENT_DATA..tbmaster AS p
        INNER JOIN PATIENT_DATA..tboutpatient AS v ON v.HospNum = p.HospNum
        WHERE @Kind = '0' AND p.LastName >= RTRIM(@Search)
          AND p.LastName <= CONCAT(RTRIM(@Search), REPLICATE('Z', 30))
          AND LEFT(p.LastName, LEN(@Search)) = @Search

        UNION ALL
        SELECT v.IdNum
        FROM PATIENT_DATA..tboutpatient AS v
        WHERE @Kind = '1' AND v.IdNum = @Search

        UNION ALL
        SELECT v.IdNum
        FROM PATIENT_DATA..tboutpatient AS v
        WHERE @Kind = '1' AND v.HospNum = @Search
    ) AS x
    INNER JOIN PATIENT_DATA..tboutpatient AS o ON o.IdNum = x.IdNum
    INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = o.HospNum
    INNER JOIN build_file..tbCoCompany AS c ON c.CompanyID = o.CompanyID
    LEFT JOIN build_file..tbCoAddress AS a ON a.ZipCode = m.ZipCode
    WHERE @Current <> '1' OR o.DcrDate IS NULL
    ORDER BY m.LastName, m.FirstName, m.MiddleName, o.IdNum;
END
GO
