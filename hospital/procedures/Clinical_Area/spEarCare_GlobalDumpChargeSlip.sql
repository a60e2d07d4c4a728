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

    INSERT INTO Clinical_Area..tbGlobalChargePrint (ItemID, Description, Quantity, Price, Amount, UserID, PrintDate)
    VALUES (@ItemID, @Description, @Quantity, @Price, @Amount, @UserID, GETDATE());
END
GO
