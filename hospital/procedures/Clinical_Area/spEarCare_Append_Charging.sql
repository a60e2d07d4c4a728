-- Posts one charge line to the patient's account, in the name of the user who is signed on. A line of a centre that
-- takes its items from stock is issued on the stock card too, and of the wards' pending requests for the same item of the
-- same patient the oldest one is closed, and those behind it as far as the line's quantity reaches: what a ward has asked
-- for since the lines were loaded goes on waiting. It charges and never gives back: that is for the cancellations, which
-- look what stands.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_Append_Charging
    @HospNum varchar(10),
    @IdNum varchar(10),
    @TransDate datetime,
    @RevenueID varchar(5),
    @RecordType varchar(1),
    @ItemID varchar(10),
    @Quantity varchar(20),
    @RefNum varchar(20),
    @Amount money,
    @UserID varchar(10),
    @RoomID varchar(20),
    @DoctorID varchar(10),
    @DoctorName varchar(100),
    @PatientType varchar(1),
    @Description varchar(100)
AS
BEGIN
    SET NOCOUNT ON; SET XACT_ABORT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;
    IF COALESCE(@UserID, '') <> SUSER_SNAME()
        THROW 50002, 'The entry names another user than the one who is signed on. Nothing was recorded.', 1;
    IF COALESCE(@RecordType, '') <> 'D'
        THROW 50003, 'The entry is of a kind that is not recorded here. Nothing was recorded.', 1;
    IF @Amount < 0 OR CAST(@Quantity AS float) < 0
        THROW 50005, 'Only a cancellation gives something back. Nothing was recorded.', 1;
    BEGIN TRANSACTION;

    -- The requests are held before they are counted: of two clerks who charge the same item each closes his own.
    UPDATE RADIOLOGY..tbNurseRequest
    SET Remarks = Remarks
    WHERE IdNum = @IdNum AND DeptCode = 'HC' AND RevenueID = @RevenueID AND ItemID = @ItemID AND Status = 'P';

    INSERT INTO BILLING..tbPatientCharges
        (HospNum, IdNum, PatientType, TransDate, RevenueID, RecordType, ItemID, Description, Quantity, Units, Amount,
         RefNum, UserID, RoomID, DoctorID, DoctorName, SourceDept, EntryDate)
    VALUES
        (@HospNum, @IdNum, @PatientType, @TransDate, @RevenueID, 'D', @ItemID, @Description, @Quantity,
         CAST(@Quantity AS float), @Amount, @RefNum, SUSER_SNAME(), @RoomID, @DoctorID, @DoctorName, 'HC', GETDATE());

    INSERT INTO INVENTORY..tbInvStockCard
        (TransDate, ItemID, SectionID, RecordType, RefNum, QtyIn, QtyOut, Amount, HospNum, IdNum, PatientType, RoomID,
         UserID, EntryDate)
    SELECT @TransDate, i.ItemID, i.SectionID, 'I', @RefNum, 0, CAST(@Quantity AS float), @Amount, @HospNum, @IdNum,
           @PatientType, @RoomID, SUSER_SNAME(), GETDATE()
    FROM build_file..tbCoRevenue AS r
    INNER JOIN INVENTORY..tbInvMaster AS i ON i.SectionID = r.LocationID
    WHERE r.RevenueID = @RevenueID AND r.SearchInventory = 1 AND i.ItemID = @ItemID;

    UPDATE RADIOLOGY..tbNurseRequest
    SET Status = 'D', SlipNo = @RefNum, ClosedBy = SUSER_SNAME(), ClosedDate = GETDATE()
    WHERE RequestNum IN (
        SELECT n.RequestNum
        FROM RADIOLOGY..tbNurseRequest AS n
        INNER JOIN RADIOLOGY..tbNurseRequest AS q
            ON q.IdNum = n.IdNum AND q.DeptCode = n.DeptCode AND q.RevenueID = n.RevenueID AND q.ItemID = n.ItemID
               AND q.Status = n.Status AND q.RequestNum <= n.RequestNum
        WHERE n.IdNum = @IdNum AND n.DeptCode = 'HC' AND n.RevenueID = @RevenueID AND n.ItemID = @ItemID
          AND n.Status = 'P'
        GROUP BY n.RequestNum
        HAVING COUNT(*) = 1 OR SUM(q.Quantity) <= CAST(@Quantity AS float));

    COMMIT TRANSACTION;
END
GO
