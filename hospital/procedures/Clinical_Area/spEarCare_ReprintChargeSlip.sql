-- Records the re-print of a slip, with its time and how often it has been re-printed by now, and puts the slip's lines,
-- reversals included, into the print table. An empty number is no slip, and no re-print of one is recorded.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_ReprintChargeSlip
    @RefNum varchar(20)
AS
BEGIN
    SET NOCOUNT ON; SET XACT_ABORT ON;
    BEGIN TRANSACTION;

    DELETE FROM Clinical_Area..tbEarCareChargePrint;

    INSERT INTO Clinical_Area..tbEarCareChargePrint (ItemID, Amount, Quantity, RevenueID, Description, SlipKind)
    SELECT c.ItemID, c.Amount, c.Quantity, c.RevenueID, c.Description, 'R'
    FROM BILLING..tbPatientCharges AS c
    WHERE c.RefNum = @RefNum AND c.SourceDept = 'HC'
    ORDER BY c.ChargeID;

    INSERT INTO BILLING..tbAuditTrail (AuditDate, Event, RefNum, Times)
    SELECT GETDATE(), 'REPRINT', @RefNum, x.Times
    FROM (SELECT COUNT(*) + 1 AS Times FROM BILLING..tbAuditTrail AS a
          WHERE a.RefNum = @RefNum AND a.Event = 'REPRINT') AS x
    WHERE @RefNum <> '';

    COMMIT TRANSACTION;
END
GO
