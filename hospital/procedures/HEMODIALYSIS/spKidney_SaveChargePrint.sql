-- Adds one line to the duplicate of a slip that is about to be printed.
USE HEMODIALYSIS;
GO

CREATE PROCEDURE dbo.spKidney_SaveChargePrint
    @ItemID varchar(20),
    @Amount money,
    @Quantity varchar(20),
    @RevenueID varchar(5),
    @Description varchar(100)
AS
BEGIN
    SET NOCOUNT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;

    INSERT INTO Clinical_Area..tbEarCareChargePrint (ItemID, Amount, Quantity, RevenueID, Description, SlipKind)
    VALUES (@ItemID, @Amount, @Quantity, @RevenueID, @Description, 'R');
END
GO
