-- Cancels one charge line of a service or a doctor's fee by a reversal on the account. The line is known by its
-- amount. Nothing happens where every charge of that amount has its reversal, or where the line given is a reversal
-- itself.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_UpdateCharging
    @HospNum varchar(10),
    @IdNum varchar(10),
    @ItemID varchar(10),
    @Amount money,
    @Quantity varchar(20),
    @TransDate datetime,
    @RevenueID varchar(5),
    @UserID varchar(10),
    @PatientType varchar(1),
    @RecordType varchar(1),
    @RoomID varchar(20),
    @RefNum varchar(20),
    @Remarks varchar(100) = ''
AS
BEGIN
    SET NOCOUNT ON;

    INSERT INTO BILLING..tbPatientCharges
        (HospNum, IdNum, PatientType, TransDate, RevenueID, RecordType, ItemID, Description, Quantity, Units, Amount,
         RefNum, UserID, RoomID, DoctorID, DoctorName, SourceDept, EntryDate)
    SELECT c.HospNum, c.IdNum, @PatientType, @TransDate, c.RevenueID, @RecordType, c.ItemID, c.Description,
           CASE WHEN @Quantity = '' THEN '' ELSE CONCAT('-', @Quantity) END, 0 - CAST(@Quantity AS float), 0 - @Amount,
           c.RefNum, @UserID, @RoomID, c.DoctorID, c.DoctorName, c.SourceDept, GETDATE()
    FROM BILLING..tbPatientCharges AS c
    WHERE @Amount > 0
      AND c.ChargeID = (SELECT MIN(o.ChargeID) FROM BILLING..tbPatientCharges AS o
                        WHERE o.IdNum = @IdNum AND o.HospNum = @HospNum AND o.RefNum = @RefNum AND o.ItemID = @ItemID
                          AND o.RevenueID = @RevenueID AND o.RecordType = 'D' AND o.Amount = @Amount)
      AND (SELECT SUM(CASE WHEN t.RecordType = 'D' THEN 1 ELSE -1 END) FROM BILLING..tbPatientCharges AS t
           WHERE t.IdNum = @IdNum AND t.RefNum = @RefNum AND t.ItemID = @ItemID AND t.RevenueID = @RevenueID
             AND ABS(t.Amount) = @Amount) > 0;
END
GO
