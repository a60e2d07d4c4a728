-- One ward request as the consultation form shows it. The form reaches this database alone, so the names of the
-- hospital, the patient, the station, the doctor and the item come with the row.
USE RADIOLOGY;
GO

CREATE PROCEDURE dbo.spRadio_Consultation
    @RequestNum int
AS
BEGIN
    SET NOCOUNT ON;

    SELECT h.company, h.Address1, n.RequestNum, n.RequestDate, n.HospNum, n.IdNum,
           CASE WHEN m.HospNum IS NULL THEN '' ELSE CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName) END
               AS Patient,
           CASE WHEN m.HospNum IS NULL THEN '' WHEN m.Sex = 'M' THEN 'MALE' ELSE 'FEMALE' END AS Sex, m.BirthDate,
           CONVERT(varchar(10), COALESCE(p.AdmDate, o.AdmDate), 101) AS AdmDate,
           COALESCE(p.RoomID, CASE WHEN o.IdNum IS NULL THEN '' ELSE 'OPD' END) AS RoomID, t.Station,
           CASE WHEN d.DoctorID IS NULL THEN '' ELSE CONCAT('DR. ', d.FirstName, ' ', d.LastName) END AS Doctor,
           n.RequestedBy, n.RevenueID, n.ItemID, COALESCE(s.OtherRevenue, i.ItemName, '') AS ItemDesc, n.Quantity,
           n.Remarks
    FROM RADIOLOGY..tbNurseRequest AS n
    LEFT JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = n.HospNum
    LEFT JOIN PATIENT_DATA..tbpatient AS p ON p.IdNum = n.IdNum
    LEFT JOIN PATIENT_DATA..tboutpatient AS o ON o.IdNum = n.IdNum
    LEFT JOIN build_file..tbCoStation AS t ON t.StationID = n.StationID
    LEFT JOIN build_file..tbCoDoctor AS d ON d.DoctorID = n.DoctorID
    LEFT JOIN build_file..tbCoOtherRevenue AS s ON s.RevenueID = n.RevenueID AND s.ItemID = n.ItemID
    LEFT JOIN build_file..tbCoRevenue AS r ON r.RevenueID = n.RevenueID AND r.SearchInventory = 1
    LEFT JOIN INVENTORY..tbInvMaster AS i ON i.ItemID = n.ItemID AND i.SectionID = r.LocationID
    LEFT JOIN PATIENT_DATA..tbhospitalInfo AS h ON 1 = 1
    WHERE n.RequestNum = @RequestNum;
END
GO
