-- The lines of the slip that is about to be printed, for the older slip layout, whose tables are looked for in this
-- database.
USE REPORTS;
GO

CREATE PROCEDURE dbo.spReports_ChargeSlip
AS
BEGIN
    SET NOCOUNT ON;

    SELECT p.ItemID, p.RevenueID, p.Description, p.Quantity, p.Amount
    FROM Clinical_Area..tbEarCareChargePrint AS p
    ORDER BY p.PrintID;
END
GO
