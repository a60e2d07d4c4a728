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
           CONCAT(m.LastName, ', ', m.FirstName, ' ', m.MiddleName) AS Patient,
           CASE WHEN m.Sex = 'M' THEN 'MALE' ELSE 'FEMALE' END AS Sex, m.BirthDate,
           CONVERT(varchar(10), p.AdmDate, 101) AS AdmDate, p.RoomID, t.Station,
           CONCAT('DR. ', d.FirstName, ' ', d.LastName) AS Doctor, n.RequestedBy, n.RevenueID, n.ItemID,
           COALESCE(s.OtherRevenue, '') AS ItemDesc, n.Quantity, n.Remarks
    FROM RADIOLOGY..tbNurseRequest AS n
    INNER JOIN PATIENT_DATA..tbpatient AS p ON p.IdNum = n.IdNum
    INNER JOIN PATIENT_DATA..tbmaster AS m ON m.HospNum = n.HospNum
    LEFT JOIN build_file..tbCoStation AS t ON t.StationID = n.StationID
    LEFT JOIN build_file..tbCoDoctor AS d ON d.DoctorID = n.DoctorID
    LEFT JOIN build_file..tbCoOtherRevenue AS s ON s.RevenueID = n.RevenueID AND s.ItemID = n.ItemID
    LEFT JOIN PATIENT_DATA..tbhospitalInfo AS h ON 1 = 1
    WHERE n.RequestNum = @RequestNum;
END
GO
