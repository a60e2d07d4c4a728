-- Writes one movement on a stock card. A movement of type C takes an issue back: the charge line that it names is
-- reversed on the patient's account as well, unless every charge of its amount has its reversal. Any other type is an
-- issue.
USE INVENTORY;
GO

CREATE PROCEDURE dbo.spStock_AppendStockCard
    @HospNum varchar(10),
    @IdNum varchar(10),
    @ItemID varchar(10),
    @TransDate datetime,
    @RefNum varchar(20),
    @Quantity float,
    @Amount money,
    @UserID varchar(10),
    @ChargeLine varchar(12) = '',
    @RoomID varchar(20) = '',
    @RecordType varchar(1) = '',
    @PatientType varchar(1) = ''
AS
BEGIN
    SET NOCOUNT ON; SET XACT_ABORT ON;
    BEGIN TRANSACTION;

    INSERT INTO INVENTORY..tbInvStockCard
        (TransDate, ItemID, SectionID, RecordType, RefNum, QtyIn, QtyOut, Amount, HospNum, IdNum, PatientType, RoomID,
         UserID, EntryDate)
    SELECT @TransDate, i.ItemID, i.SectionID, 'I', @RefNum, 0, @Quantity, @Amount, @HospNum, @IdNum, @PatientType,
           @RoomID, @UserID, GETDATE()
    FROM INVENTORY..tbInvMaster AS i
    WHERE @RecordType <> 'C' AND i.ItemID = @ItemID;

    INSERT INTO INVENTORY..tbInvStockCard
        (TransDate, ItemID, SectionID, RecordType, RefNum, QtyIn, QtyOut, Amount, HospNum, IdNum, PatientType, RoomID,
         UserID, EntryDate)
    SELECT @TransDate, i.ItemID, i.SectionID, 'C', c.RefNum, @Quantity, 0, @Amount, c.HospNum, c.IdNum, @PatientType,
           @RoomID, @UserID, GETDATE()
    FROM BILLING..tbPatientCharges AS c
    INNER JOIN build_file..tbCoRevenue AS r ON r.RevenueID = c.RevenueID
    INNER JOIN INVENTORY..tbInvMaster AS i ON i.ItemID = c.ItemID AND i.SectionID = r.LocationID
    WHERE @RecordType = 'C' AND @Amount < 0 AND r.SearchInventory = 1
      AND c.ChargeID = CAST(@ChargeLine AS int) AND c.IdNum = @IdNum AND c.RecordType = 'D'
      AND (SELECT SUM(CASE WHEN t.RecordType = 'D' THEN 1 ELSE -1 END) FROM BILLING..tbPatientCharges AS t
           WHERE t.IdNum = c.IdNum AND t.RefNum = c.RefNum AND t.ItemID = c.ItemID AND t.RevenueID = c.RevenueID
             AND ABS(t.Amount) = 0 - @Amount) > 0;

    INSERT INTO BILLING..tbPatientCharges
        (HospNum, IdNum, PatientType, TransDate, RevenueID, RecordType, ItemID, Description, Quantity, Units, Amount,
         RefNum, UserID, RoomID, DoctorID, DoctorName, SourceDept, EntryDate)
    SELECT c.HospNum, c.IdNum, c.PatientType, @TransDate, c.RevenueID, 'C', c.ItemID, c.Description,
           CASE WHEN c.Quantity = '' THEN '' ELSE CONCAT('-', c.Quantity) END, 0 - @Quantity, @Amount, c.RefNum, @UserID, @RoomID, c.DoctorID, c.DoctorName,
           c.SourceDept, GETDATE()
    FROM BILLING..tbPatientCharges AS c
    WHERE @RecordType = 'C' AND @Amount < 0
      AND c.ChargeID = CAST(@ChargeLine AS int) AND c.IdNum = @IdNum AND c.RecordType = 'D'
      AND (SELECT SUM(CASE WHEN t.RecordType = 'D' THEN 1 ELSE -1 END) FROM BILLING..tbPatientCharges AS t
           WHERE t.IdNum = c.IdNum AND t.RefNum = c.RefNum AND t.ItemID = c.ItemID AND t.RevenueID = c.RevenueID
             AND ABS(t.Amount) = 0 - @Amount) > 0;

    COMMIT TRANSACTION;
END
GO
