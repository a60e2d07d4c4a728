-- Keeps the hospital's copy of one printed line of an assessment slip, with its price and the user.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_GlobalDumpChargeSlip
    @ItemID varchar(20),
    @Description varchar(100),
    @Quantity varchar(20),
    @Price money,
    @Amount money,
    @UserID varchar(10)
AS
BEGIN
    SET NOCOUNT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;
    IF COALESCE(@UserID, '') <> SUSER_SNAME()
        THROW 50002, 'The entry names another user than the one who is signed on. Nothing was recorded.', 1;

    INSERT INTO Clinical_Area..tbGlobalChargePrint (ItemID, Description, Quantity, Price, Amount, UserID, PrintDate)
    VALUES (@ItemID, @Description, @Quantity, @Price, @Amount, SUSER_SNAME(), GETDATE());
END
GO
