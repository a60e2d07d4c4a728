-- Adds one line to the assessment slip that is about to be printed.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_DumpChargeSlip
    @ItemID varchar(20),
    @Description varchar(100),
    @Quantity varchar(20),
    @Amount money,
    @RevenueID varchar(5)
AS
BEGIN
    SET NOCOUNT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;

    INSERT INTO Clinical_Area..tbEarCareChargePrint (ItemID, Amount, Quantity, RevenueID, Description, SlipKind)
    VALUES (@ItemID, @Amount, @Quantity, @RevenueID, @Description, 'C');
END
GO
