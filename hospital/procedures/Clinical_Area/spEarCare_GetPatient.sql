-- In-patients still in the hospital (I) or the visits of out-patients (O), in the order of their names. The text
-- is the beginning of a last name, or a whole hospital, admission or visit number; an empty text brings all. Blanks at its
-- end do not count.
-- In-patients are few, so one search on the open admissions finds them all. Visits are many: those of a number and
-- those of a name are searched apart, since the index of names gives the order of tens of thousands without a sort.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_GetPatient
    @PatientType varchar(1),
    @Search varchar(60)
AS
BEGIN
    SET NOCOUNT ON;

    IF @PatientType = 'I'
        SELECT m.HospNum AS [hospital #], p.IdNum AS [Admission #],
               RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)) AS [Patient Name],
               p.AdmDate AS [admission date], p.BillingDate AS [Billing Date]
        FROM PATIENT_DATA..tbpatient AS p
        INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = p.HospNum
        WHERE p.DcrDate IS NULL
          AND (LEFT(m.LastName, LEN(@Search)) = @Search OR m.HospNum = @Search OR p.IdNum = @Search)
        ORDER BY m.LastName, m.FirstName, m.MiddleName, p.IdNum;
    ELSE IF EXISTS (SELECT 1 FROM PATIENT_DATA..tbmaster AS m WHERE m.HospNum = @Search)
         OR EXISTS (SELECT 1 FROM PATIENT_DATA..tboutpatient AS o WHERE o.IdNum = @Search)
        SELECT x.[hospital #], x.[Admission #], x.[Patient Name], x.[admission date], x.[Billing Date]
        FROM (
            SELECT m.HospNum AS [hospital #], o.IdNum AS [Admission #],
                   RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)) AS [Patient Name],
                   o.AdmDate AS [admission date], o.BillingDate AS [Billing Date],
                   m.LastName, m.FirstName, m.MiddleName
            FROM PATIENT_DATA..tbmaster AS m
            INNER JOIN PATIENT_DATA..tboutpatient AS o ON o.HospNum = m.HospNum
            WHERE @PatientType = 'O' AND m.HospNum = @Search

            UNION ALL
            SELECT m.HospNum, o.IdNum, RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)),
                   o.AdmDate, o.BillingDate, m.LastName, m.FirstName, m.MiddleName
            FROM PATIENT_DATA..tboutpatient AS o
            INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = o.HospNum
            WHERE @PatientType = 'O' AND o.IdNum = @Search
        ) AS x
        ORDER BY x.LastName, x.FirstName, x.MiddleName, x.[Admission #];
    ELSE
        SELECT m.HospNum AS [hospital #], o.IdNum AS [Admission #],
               RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)) AS [Patient Name],
               o.AdmDate AS [admission date], o.BillingDate AS [Billing Date]
        FROM PATIENT_DATA..tbmaster AS m
        INNER JOIN PATIENT_DATA..tboutpatient AS o ON o.HospNum = m.HospNum
        WHERE @PatientType = 'O' AND m.LastName >= RTRIM(@Search)
          AND m.LastName <= CONCAT(RTRIM(@Search), REPLICATE('Z', 30))
          AND LEFT(m.LastName, LEN(@Search)) = @Search
        ORDER BY m.LastName, m.FirstName, m.MiddleName, o.IdNum;
END
GO
