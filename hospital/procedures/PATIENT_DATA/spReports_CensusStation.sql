-- Who is in the hospital now, by station, and in the order of their names there. Stations of one name are told apart by
-- StationKey. Whoever is missing in the patient master is listed by number.
USE PATIENT_DATA;
GO

CREATE PROCEDURE dbo.spReports_CensusStation
AS
BEGIN
    SET NOCOUNT ON;

    SELECT CASE WHEN m.HospNum IS NULL THEN ''
                ELSE CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName) END AS Patient, p.HospNum, p.IdNum, m.Sex,
           DATEDIFF(year, m.BirthDate, GETDATE())
               - CASE WHEN MONTH(GETDATE()) * 100 + DAY(GETDATE()) < MONTH(m.BirthDate) * 100 + DAY(m.BirthDate)
                      THEN 1 ELSE 0 END AS Age,
           p.AdmDate, DATEDIFF(day, p.AdmDate, GETDATE()) AS Days, p.RoomID, COALESCE(r.RoomClassID, '') AS RoomClass,
           COALESCE(s.Station, 'NO STATION') AS Station,
           RTRIM(CONCAT(COALESCE(s.Station, 'NO STATION'), '   ', s.StationID)) AS StationKey,
           COALESCE(o.Company, '') AS Company,
           CASE WHEN d.DoctorID IS NULL THEN '' ELSE CONCAT('DR. ', d.FirstName, ' ', d.LastName) END AS Doctor,
           CASE WHEN p.BillingDate IS NULL THEN '' ELSE 'BILLED' END AS Account
    FROM PATIENT_DATA..tbpatient AS p
    LEFT JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = p.HospNum
    LEFT JOIN build_file..tbCoRoom AS r ON r.RoomID = p.RoomID
    LEFT JOIN build_file..tbCoStation AS s ON s.StationID = r.StationID
    LEFT JOIN build_file..tbCoCompany AS o ON o.CompanyID = p.CompanyID
    LEFT JOIN build_file..tbCoDoctor AS d ON d.DoctorID = p.DoctorID1
    WHERE p.DcrDate IS NULL
    ORDER BY Station, s.StationID, m.LastName, m.FirstName, m.MiddleName, p.IdNum;
END
GO
