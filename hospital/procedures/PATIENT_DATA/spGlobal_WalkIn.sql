-- Walk-ins by the beginning of the last name (0) or by their number (1), in the order of their names. Blanks
-- at the end of the text do not count.
USE PATIENT_DATA;
GO

CREATE PROCEDURE dbo.spGlobal_WalkIn
    @SearchBy varchar(1),
    @Search varchar(60)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT w.HospNum, w.LastName, w.FirstName, w.MiddleName
    FROM PATIENT_DATA..tbwalkin AS w
    WHERE @SearchBy = '0' AND w.LastName >= RTRIM(@Search)
      AND w.LastName <= CONCAT(RTRIM(@Search), REPLICATE('Z', 30))
      AND LEFT(w.LastName, LEN(@Search)) = @Search
    UNION ALL
    SELECT w.HospNum, w.LastName, w.FirstName, w.MiddleName
    FROM PATIENT_DATA..tbwalkin AS w
    WHERE @SearchBy = '1' AND w.HospNum = @Search
    ORDER BY LastName, FirstName, MiddleName, HospNum;
END
GO
