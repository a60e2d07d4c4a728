-- The wards' pending requests to the department, the oldest first, one row a requested item.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_NurseRequest
AS
BEGIN
    SET NOCOUNT ON;

    SELECT n.HospNum, n.IdNum AS IDNum, m.LastName, m.FirstName AS Firstname, m.MiddleName AS Middlename, n.ItemID,
           s.OtherRevenue AS ItemDesc, n.RevenueID, n.RequestedBy AS [Requesting Nurse], n.RequestDate, n.Quantity,
           n.StationID, m.Sex, m.CivilStatusID, m.BirthDate,
           CAST(DATEDIFF(year, m.BirthDate, GETDATE())
                - CASE WHEN MONTH(GETDATE()) * 100 + DAY(GETDATE()) < MONTH(m.BirthDate) * 100 + DAY(m.BirthDate)
                       THEN 1 ELSE 0 END AS varchar(3)) AS Age,
           CONVERT(varchar(10), p.AdmDate, 101) AS AdmDate, p.RoomID, n.DoctorID,
           CONCAT('DR. ', d.FirstName, ' ', d.LastName) AS [Requesting Doctor], n.DeptCode, n.Remarks,
           'I' AS PatientType, n.RequestNum
    FROM RADIOLOGY..tbNurseRequest AS n
    INNER JOIN PATIENT_DATA..tbpatient AS p ON p.IdNum = n.IdNum
    INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = n.HospNum
    LEFT JOIN build_file..tbCoOtherRevenue AS s ON s.RevenueID = n.RevenueID AND s.ItemID = n.ItemID
    LEFT JOIN build_file..tbCoDoctor AS d ON d.DoctorID = n.DoctorID
    WHERE n.DeptCode = 'HC' AND n.Status = 'P'
    ORDER BY n.RequestDate, n.RequestNum;
END
GO
