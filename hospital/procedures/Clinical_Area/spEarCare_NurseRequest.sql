-- The wards' pending requests to the department, the oldest first, one row a requested item. Every request that is
-- counted as pending is listed: what is not on file, such as a patient, an admission or an item, is left blank.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_NurseRequest
AS
BEGIN
    SET NOCOUNT ON;

    SELECT n.HospNum, n.IdNum AS IDNum, m.LastName, m.FirstName AS Firstname, m.MiddleName AS Middlename, n.ItemID,
           COALESCE(s.OtherRevenue, i.ItemName, '') AS ItemDesc, n.RevenueID, n.RequestedBy AS [Requesting Nurse],
           n.RequestDate, n.Quantity, n.StationID, m.Sex, m.CivilStatusID, m.BirthDate,
           CAST(DATEDIFF(year, m.BirthDate, GETDATE())
                - CASE WHEN MONTH(GETDATE()) * 100 + DAY(GETDATE()) < MONTH(m.BirthDate) * 100 + DAY(m.BirthDate)
                       THEN 1 ELSE 0 END AS varchar(3)) AS Age,
           CONVERT(varchar(10), COALESCE(p.AdmDate, o.AdmDate), 101) AS AdmDate,
           COALESCE(p.RoomID, CASE WHEN o.IdNum IS NULL THEN '' ELSE 'OPD' END) AS RoomID, n.DoctorID,
           CASE WHEN d.DoctorID IS NULL THEN '' ELSE CONCAT('DR. ', d.FirstName, ' ', d.LastName) END
               AS [Requesting Doctor],
           n.DeptCode, n.Remarks, CASE WHEN o.IdNum IS NULL THEN 'I' ELSE 'O' END AS PatientType, n.RequestNum
    FROM RADIOLOGY..tbNurseRequest AS n
    LEFT JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = n.HospNum
    LEFT JOIN PATIENT_DATA..tbpatient AS p ON p.IdNum = n.IdNum
    LEFT JOIN PATIENT_DATA..tboutpatient AS o ON o.IdNum = n.IdNum
    LEFT JOIN build_file..tbCoOtherRevenue AS s ON s.RevenueID = n.RevenueID AND s.ItemID = n.ItemID
    LEFT JOIN build_file..tbCoRevenue AS r ON r.RevenueID = n.RevenueID AND r.SearchInventory = 1
    LEFT JOIN INVENTORY..tbInvMaster AS i ON i.ItemID = n.ItemID AND i.SectionID = r.LocationID
    LEFT JOIN build_file..tbCoDoctor AS d ON d.DoctorID = n.DoctorID
    WHERE n.DeptCode = 'HC' AND n.Status = 'P'
    ORDER BY n.RequestDate, n.RequestNum;
END
GO
