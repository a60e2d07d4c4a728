-- The record of one walk-in, with the town of the zip code. An empty civil status is none.
USE PATIENT_DATA;
GO

CREATE PROCEDURE dbo.spGlobal_LoadWalkIn
    @HospNum varchar(10)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT w.HospNum, w.LastName, w.FirstName, w.MiddleName, w.BirthDate, w.Age, w.Sex,
           w.CivilStatusID AS CivilStatusid, w.HouseStreet AS Address1, w.Barangay AS Address2,
           CASE WHEN a.ZipCode IS NULL THEN '' ELSE CONCAT(a.Town, ', ', a.Province) END AS Address3, w.ZipCode
    FROM PATIENT_DATA..tbwalkin AS w
    LEFT JOIN build_file..tbCoAddress AS a ON a.ZipCode = w.ZipCode
    WHERE w.HospNum = @HospNum;
END
GO
