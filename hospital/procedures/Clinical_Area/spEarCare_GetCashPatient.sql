-- Patients who may pay cash, in the order of their names: in-patients still in the hospital (1), the visits of
-- out-patients (2), walk-ins (3). The text is the beginning of a last name or a whole number; an empty text brings
-- all. Blanks at its end do not count. A walk-in has no admission, so the first and the last column are empty, and may have been registered by a last or
-- a first name alone.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_GetCashPatient
    @Search varchar(60),
    @Kind varchar(1)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT x.[ADM. #], x.[HOSP. #], x.[PATIENT NAME], CAST(x.[ADM. DATE] AS date) AS [ADM. DATE], x.AdmissionNum
    FROM (
        SELECT p.IdNum AS [ADM. #], m.HospNum AS [HOSP. #],
               RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)) AS [PATIENT NAME],
               p.AdmDate AS [ADM. DATE], p.IdNum AS AdmissionNum, m.LastName, m.FirstName, m.MiddleName
        FROM PATIENT_DATA..tbpatient AS p
        INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = p.HospNum
        WHERE @Kind = '1' AND p.DcrDate IS NULL
          AND (LEFT(m.LastName, LEN(@Search)) = @Search OR m.HospNum = @Search OR p.IdNum = @Search)

        UNION ALL
        SELECT o.IdNum, m.HospNum, RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)), o.AdmDate,
               o.IdNum, m.LastName, m.FirstName, m.MiddleName
        FROM PATIENT_DATA..tbmaster AS m
        INNER JOIN PATIENT_DATA..tboutpatient AS o ON o.HospNum = m.HospNum
        WHERE @Kind = '2' AND m.LastName >= RTRIM(@Search)
          AND m.LastName <= CONCAT(RTRIM(@Search), REPLICATE('Z', 30))
          AND LEFT(m.LastName, LEN(@Search)) = @Search

        UNION ALL
        SELECT o.IdNum, m.HospNum, RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)), o.AdmDate,
               o.IdNum, m.LastName, m.FirstName, m.MiddleName
        FROM PATIENT_DATA..tbmaster AS m
        INNER JOIN PATIENT_DATA..tboutpatient AS o ON o.HospNum = m.HospNum
        WHERE @Kind = '2' AND @Search <> '' AND m.HospNum = @Search

        UNION ALL
        SELECT o.IdNum, m.HospNum, RTRIM(CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName)), o.AdmDate,
               o.IdNum, m.LastName, m.FirstName, m.MiddleName
        FROM PATIENT_DATA..tboutpatient AS o
        INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = o.HospNum
        WHERE @Kind = '2' AND @Search <> '' AND o.IdNum = @Search

        UNION ALL
        SELECT '', w.HospNum,
               RTRIM(CONCAT(w.LastName, CASE WHEN w.LastName = '' OR w.FirstName = '' THEN '' ELSE ', ' END,
                            w.FirstName, ' ', w.MiddleName)),
               w.RegDate, '', w.LastName, w.FirstName, w.MiddleName
        FROM PATIENT_DATA..tbwalkin AS w
        WHERE @Kind = '3' AND w.LastName >= RTRIM(@Search)
          AND w.LastName <= CONCAT(RTRIM(@Search), REPLICATE('Z', 30))
          AND LEFT(w.LastName, LEN(@Search)) = @Search

        UNION ALL
        SELECT '', w.HospNum,
               RTRIM(CONCAT(w.LastName, CASE WHEN w.LastName = '' OR w.FirstName = '' THEN '' ELSE ', ' END,
                            w.FirstName, ' ', w.MiddleName)),
               w.RegDate, '', w.LastName, w.FirstName, w.MiddleName
        FROM PATIENT_DATA..tbwalkin AS w
        WHERE @Kind = '3' AND @Search <> '' AND w.HospNum = @Search
    ) AS x
    ORDER BY x.LastName, x.FirstName, x.MiddleName, x.[HOSP. #], x.[ADM. #];
END
GO
