-- Records the re-print of a slip, with its time, its user and how often it has been re-printed by now, and puts the
-- slip's lines, reversals included, into the print table. A number that is empty or that no line bears is no slip, and no
-- re-print of one is recorded.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_ReprintChargeSlip
    @RefNum varchar(20)
AS
BEGIN
    SET NOCOUNT ON; SET XACT_ABORT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;
    BEGIN TRANSACTION;

    -- Re-prints of one slip queue at its first line, so that each one counts those before it.
    UPDATE BILLING..tbPatientCharges
    SET EntryDate = EntryDate
    WHERE ChargeID = (SELECT MIN(f.ChargeID) FROM BILLING..tbPatientCharges AS f WHERE f.RefNum = @RefNum);

    DELETE FROM Clinical_Area..tbEarCareChargePrint;

    INSERT INTO Clinical_Area..tbEarCareChargePrint (ItemID, Amount, Quantity, RevenueID, Description, SlipKind)
    SELECT c.ItemID, c.Amount, c.Quantity, c.RevenueID, c.Description, 'R'
    FROM BILLING..tbPatientCharges AS c
    WHERE c.RefNum = @RefNum AND c.SourceDept = 'HC'
    ORDER BY c.ChargeID;

    INSERT INTO BILLING..tbAuditTrail (AuditDate, Event, RefNum, UserID, Times)
    SELECT GETDATE(), 'REPRINT', @RefNum, SUSER_SNAME(), x.Times
    FROM (SELECT COUNT(*) + 1 AS Times FROM BILLING..tbAuditTrail AS a
          WHERE a.RefNum = @RefNum AND a.Event = 'REPRINT') AS x
    WHERE @RefNum <> ''
      AND EXISTS (SELECT c.ChargeID FROM BILLING..tbPatientCharges AS c WHERE c.RefNum = @RefNum);

    COMMIT TRANSACTION;
END
GO
