-- Cancels one charge line of a service or a doctor's fee by a reversal on the account, in the name of the user who is
-- signed on. The line is known by its amount and quantity, and the reversal is the line's in all but that: what is told
-- about the patient's type does not count. Nothing happens where every such charge has its reversal, where the line given
-- is a reversal itself, or where another department has entered it.
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
    SET NOCOUNT ON; SET XACT_ABORT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;
    IF COALESCE(@UserID, '') <> SUSER_SNAME()
        THROW 50002, 'The entry names another user than the one who is signed on. Nothing was recorded.', 1;
    IF COALESCE(@RecordType, '') <> 'C'
        THROW 50003, 'The entry is of a kind that is not recorded here. Nothing was recorded.', 1;
    BEGIN TRANSACTION;

    -- Cancellations on one account queue at its first line, holding nothing yet. Each holding the line that it is about,
    -- two of them would wait for each other's when they count.
    UPDATE BILLING..tbPatientCharges
    SET EntryDate = EntryDate
    WHERE ChargeID = (SELECT MIN(f.ChargeID) FROM BILLING..tbPatientCharges AS f WHERE f.IdNum = @IdNum);

    -- While an account's very first line is being posted, a server with row versions shows it to the one and not yet to
    -- the other. A slip has one workstation that posts its lines one after the other, so its first line is one for all.
    UPDATE BILLING..tbPatientCharges
    SET EntryDate = EntryDate
    WHERE ChargeID = (SELECT MIN(f.ChargeID) FROM BILLING..tbPatientCharges AS f WHERE f.RefNum = @RefNum);

    -- Whatever took the amount back counts as a reversal, whether it bears the line's quantity or another one.
    INSERT INTO BILLING..tbPatientCharges
        (HospNum, IdNum, PatientType, TransDate, RevenueID, RecordType, ItemID, Description, Quantity, Units, Amount,
         RefNum, UserID, RoomID, DoctorID, DoctorName, SourceDept, EntryDate)
    SELECT c.HospNum, c.IdNum, c.PatientType, @TransDate, c.RevenueID, 'C', c.ItemID, c.Description,
           CASE WHEN c.Quantity = '' THEN '' ELSE CONCAT('-', c.Quantity) END, 0 - c.Units, 0 - c.Amount, c.RefNum,
           SUSER_SNAME(), @RoomID, c.DoctorID, c.DoctorName, c.SourceDept, GETDATE()
    FROM BILLING..tbPatientCharges AS c
    WHERE c.ChargeID = (SELECT MIN(o.ChargeID) FROM BILLING..tbPatientCharges AS o
                        WHERE o.IdNum = @IdNum AND o.HospNum = @HospNum AND o.RefNum = @RefNum AND o.ItemID = @ItemID
                          AND o.RevenueID = @RevenueID AND o.RecordType = 'D' AND o.Amount = @Amount
                          AND o.Quantity = @Quantity AND o.SourceDept = 'HC')
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
