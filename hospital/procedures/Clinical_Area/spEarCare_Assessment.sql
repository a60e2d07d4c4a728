-- Records one line that a cash patient has to pay at the cashier. The name of the item is looked up here, since
-- the workstation sends the code alone: an item of the centre, a stock item, a doctor's fee, or the centre itself
-- where it has no items.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_Assessment
    @RefNum varchar(20),
    @Name varchar(100),
    @ItemID varchar(10),
    @RevenueID varchar(5),
    @Quantity varchar(20),
    @Amount money,
    @DeptCode varchar(5),
    @UserID varchar(10),
    @HospNum varchar(10),
    @IdNum varchar(10),
    @DoctorID varchar(10),
    @DoctorName varchar(100)
AS
BEGIN
    SET NOCOUNT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;
    IF COALESCE(@UserID, '') <> SUSER_SNAME()
        THROW 50002, 'The entry names another user than the one who is signed on. Nothing was recorded.', 1;
    IF COALESCE(@DeptCode, '') <> 'HC'
        THROW 50004, 'The entry names another department. Nothing was recorded.', 1;
    IF @Amount < 0 OR CAST(@Quantity AS float) < 0
        THROW 50005, 'Only a cancellation gives something back. Nothing was recorded.', 1;

    INSERT INTO BILLING..tbCashAssessment
        (RefNum, Name, HospNum, IdNum, Revenueid, ItemID, Description, Quantity, Units, Amount, DeptCode, UserID,
         DoctorID, DoctorName, TransDate)
    SELECT NULLIF(@RefNum, ''), @Name, @HospNum, @IdNum, @RevenueID, @ItemID,
           COALESCE((SELECT s.OtherRevenue FROM build_file..tbCoOtherRevenue AS s
                     WHERE s.RevenueID = @RevenueID AND s.ItemID = @ItemID),
                    (SELECT i.ItemName FROM INVENTORY..tbInvMaster AS i WHERE i.ItemID = @ItemID),
                    (SELECT CONCAT('(PF) DR. ', d.LastName, ', ', d.FirstName) FROM build_file..tbCoDoctor AS d
                     WHERE @RevenueID = 'MD' AND d.DoctorID = @ItemID),
                    (SELECT r.Revenue FROM build_file..tbCoRevenue AS r WHERE r.RevenueID = @RevenueID),
                    ''),
           @Quantity, CAST(@Quantity AS float), @Amount, @DeptCode, SUSER_SNAME(), @DoctorID, @DoctorName, GETDATE();
END
GO
