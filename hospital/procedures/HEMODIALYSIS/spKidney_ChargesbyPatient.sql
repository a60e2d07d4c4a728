-- Every charge line of the unit on one admission or visit, in the order of entry.
USE HEMODIALYSIS;
GO

CREATE PROCEDURE dbo.spKidney_ChargesbyPatient
    @IdNum varchar(10)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT c.RefNum, c.TransDate, c.ItemID, c.Description, c.Units AS Quantity, c.Amount, c.UserID AS UserId,
           c.RevenueID
    FROM BILLING..tbPatientCharges AS c
    WHERE c.IdNum = @IdNum AND c.SourceDept = 'HC'
    ORDER BY c.ChargeID;
END
GO
