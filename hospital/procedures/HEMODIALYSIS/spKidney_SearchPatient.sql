-- The admissions (I), visits (O) or both (empty) that have charges on their accounts, in the order of names. The text is
-- the beginning of a last name, or a whole hospital, admission or visit number; an empty text brings all. Blanks at its end
-- do not count. The picker gives back the second column.
USE HEMODIALYSIS;
GO

CREATE PROCEDURE dbo.spKidney_SearchPatient
    @PatientType varchar(1),
    @Search varchar(60)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT x.HospNum AS [Hospital Num], x.IdNum AS [Adm. Num], x.Name AS [Patient Name],
           x.BillingDate AS [Billing Date],
           CASE WHEN x.BillingDate IS NULL THEN 'OPEN' ELSE 'CLOSED' END AS [Charging Status],
           x.DcrDate AS [Discharge Date]
    FROM (
        SELECT m.HospNum, p.IdNum, RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)) AS Name,
               p.BillingDate, p.DcrDate
        FROM PATIENT_DATA..tbmaster AS m
        INNER JOIN PATIENT_DATA..tbpatient AS p ON p.HospNum = m.HospNum
        WHERE @PatientType <> 'O' AND m.LastName >= RTRIM(@Search)
          AND m.LastName <= CONCAT(RTRIM(@Search), REPLICATE('Z', 30))
          AND LEFT(m.LastName, LEN(@Search)) = @Search

        UNION ALL
        SELECT m.HospNum, p.IdNum, RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)), p.BillingDate,
               p.DcrDate
        FROM PATIENT_DATA..tbmaster AS m
        INNER JOIN PATIENT_DATA..tbpatient AS p ON p.HospNum = m.HospNum
        WHERE @PatientType <> 'O' AND @Search <> '' AND m.HospNum = @Search

        UNION ALL
        SELECT m.HospNum, p.IdNum, RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)), p.BillingDate,
               p.DcrDate
        FROM PATIENT_DATA..tbpatient AS p
        INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = p.HospNum
        WHERE @PatientType <> 'O' AND @Search <> '' AND p.IdNum = @Search

        UNION ALL
        SELECT m.HospNum, o.IdNum, RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)), o.BillingDate,
               o.DcrDate
        FROM PATIENT_DATA..tbmaster AS m
        INNER JOIN PATIENT_DATA..tboutpatient AS o ON o.HospNum = m.HospNum
        WHERE @PatientType <> 'I' AND m.LastName >= RTRIM(@Search)
          AND m.LastName <= CONCAT(RTRIM(@Search), REPLICATE('Z', 30))
          AND LEFT(m.LastName, LEN(@Search)) = @Search

        UNION ALL
        SELECT m.HospNum, o.IdNum, RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)), o.BillingDate,
               o.DcrDate
        FROM PATIENT_DATA..tbmaster AS m
        INNER JOIN PATIENT_DATA..tboutpatient AS o ON o.HospNum = m.HospNum
        WHERE @PatientType <> 'I' AND @Search <> '' AND m.HospNum = @Search

        UNION ALL
        SELECT m.HospNum, o.IdNum, RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)), o.BillingDate,
               o.DcrDate
        FROM PATIENT_DATA..tboutpatient AS o
        INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = o.HospNum
        WHERE @PatientType <> 'I' AND @Search <> '' AND o.IdNum = @Search
    ) AS x
    WHERE EXISTS (SELECT c.ChargeID FROM BILLING..tbPatientCharges AS c WHERE c.IdNum = x.IdNum)
    ORDER BY x.Name, x.IdNum;
END
GO
