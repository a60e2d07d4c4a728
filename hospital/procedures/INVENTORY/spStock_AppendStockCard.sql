-- Writes one movement on a stock card, in the name of the user who is signed on. Without a record type it is an issue.
-- Type C takes an issue back: the charge line that the entry names is reversed on the patient's account as well, unless
-- every such charge has its reversal or another department has entered it. The entry must give the line as it stands:
-- slip, item, quantity, and the amount as a negative.
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
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;
    IF COALESCE(@UserID, '') <> SUSER_SNAME()
        THROW 50002, 'The entry names another user than the one who is signed on. Nothing was recorded.', 1;
    IF COALESCE(@RecordType, '-') NOT IN ('', 'C')
        THROW 50003, 'The entry is of a kind that is not recorded here. Nothing was recorded.', 1;
    IF @RecordType = '' AND (@Quantity < 0 OR @Amount < 0)
        THROW 50005, 'Only a cancellation gives something back. Nothing was recorded.', 1;
    BEGIN TRANSACTION;

    -- Cancellations on one account queue at its first line and then at the slip's, as those of services do in
    -- spEarCare_UpdateCharging.
    UPDATE BILLING..tbPatientCharges
    SET EntryDate = EntryDate
    WHERE @RecordType = 'C'
      AND ChargeID = (SELECT MIN(f.ChargeID) FROM BILLING..tbPatientCharges AS f WHERE f.IdNum = @IdNum);

    UPDATE BILLING..tbPatientCharges
    SET EntryDate = EntryDate
    WHERE @RecordType = 'C'
      AND ChargeID = (SELECT MIN(f.ChargeID) FROM BILLING..tbPatientCharges AS f WHERE f.RefNum = @RefNum);

    INSERT INTO INVENTORY..tbInvStockCard
        (TransDate, ItemID, SectionID, RecordType, RefNum, QtyIn, QtyOut, Amount, HospNum, IdNum, PatientType, RoomID,
         UserID, EntryDate)
    SELECT @TransDate, i.ItemID, i.SectionID, 'I', @RefNum, 0, @Quantity, @Amount, @HospNum, @IdNum, @PatientType,
           @RoomID, SUSER_SNAME(), GETDATE()
    FROM INVENTORY..tbInvMaster AS i
    WHERE @RecordType = '' AND i.ItemID = @ItemID;

    INSERT INTO INVENTORY..tbInvStockCard
        (TransDate, ItemID, SectionID, RecordType, RefNum, QtyIn, QtyOut, Amount, HospNum, IdNum, PatientType, RoomID,
         UserID, EntryDate)
    SELECT @TransDate, i.ItemID, i.SectionID, 'C', c.RefNum, c.Units, 0, 0 - c.Amount, c.HospNum, c.IdNum,
           c.PatientType, @RoomID, SUSER_SNAME(), GETDATE()
    FROM BILLING..tbPatientCharges AS c
    INNER JOIN build_file..tbCoRevenue AS r ON r.RevenueID = c.RevenueID
    INNER JOIN INVENTORY..tbInvMaster AS i ON i.ItemID = c.ItemID AND i.SectionID = r.LocationID
    WHERE @RecordType = 'C' AND r.SearchInventory = 1
      AND c.ChargeID = CAST(@ChargeLine AS int) AND c.IdNum = @IdNum AND c.HospNum = @HospNum AND c.RefNum = @RefNum
      AND c.ItemID = @ItemID AND c.RecordType = 'D' AND c.Amount = 0 - @Amount AND c.Units = @Quantity
      AND c.SourceDept = 'HC'
      AND (SELECT SUM(CASE WHEN t.RecordType = 'D' AND t.Amount > 0 THEN 1 ELSE -1 END)
           FROM BILLING..tbPatientCharges AS t
           WHERE t.IdNum = c.IdNum AND t.HospNum = c.HospNum AND t.RefNum = c.RefNum AND t.ItemID = c.ItemID
             AND t.RevenueID = c.RevenueID AND ABS(t.Amount) = c.Amount) > 0
      AND (SELECT SUM(CASE WHEN t.RecordType = 'D' AND t.Amount > 0 THEN 1 ELSE -1 END)
           FROM BILLING..tbPatientCharges AS t
           WHERE t.IdNum = c.IdNum AND t.HospNum = c.HospNum AND t.RefNum = c.RefNum AND t.ItemID = c.ItemID
             AND t.RevenueID = c.RevenueID AND ABS(t.Amount) = c.Amount AND ABS(t.Units) = ABS(c.Units)) > 0;

    -- By the same rule as the movement: nobody else has taken anything back on the account in between.
    INSERT INTO BILLING..tbPatientCharges
        (HospNum, IdNum, PatientType, TransDate, RevenueID, RecordType, ItemID, Description, Quantity, Units, Amount,
         RefNum, UserID, RoomID, DoctorID, DoctorName, SourceDept, EntryDate)
    SELECT c.HospNum, c.IdNum, c.PatientType, @TransDate, c.RevenueID, 'C', c.ItemID, c.Description,
           CASE WHEN c.Quantity = '' THEN '' ELSE CONCAT('-', c.Quantity) END, 0 - c.Units, 0 - c.Amount, c.RefNum,
           SUSER_SNAME(), @RoomID, c.DoctorID, c.DoctorName, c.SourceDept, GETDATE()
    FROM BILLING..tbPatientCharges AS c
    WHERE @RecordType = 'C'
      AND c.ChargeID = CAST(@ChargeLine AS int) AND c.IdNum = @IdNum AND c.HospNum = @HospNum AND c.RefNum = @RefNum
      AND c.ItemID = @ItemID AND c.RecordType = 'D' AND c.Amount = 0 - @Amount AND c.Units = @Quantity
      AND c.SourceDept = 'HC'
      AND (SELECT SUM(CASE WHEN t.RecordType = 'D' AND t.Amount > 0 THEN 1 ELSE -1 END)
           FROM BILLING..tbPatientCharges AS t
           WHERE t.IdNum = c.IdNum AND t.HospNum = c.HospNum AND t.RefNum = c.RefNum AND t.ItemID = c.ItemID
             AND t.RevenueID = c.RevenueID AND ABS(t.Amount) = c.Amount) > 0
      AND (SELECT SUM(CASE WHEN t.RecordType = 'D' AND t.Amount > 0 THEN 1 ELSE -1 END)
           FROM BILLING..tbPatientCharges AS t
           WHERE t.IdNum = c.IdNum AND t.HospNum = c.HospNum AND t.RefNum = c.RefNum AND t.ItemID = c.ItemID
             AND t.RevenueID = c.RevenueID AND ABS(t.Amount) = c.Amount AND ABS(t.Units) = ABS(c.Units)) > 0;

    COMMIT TRANSACTION;
END
GO
