-- What is left of one item on one slip after its reversals. No row where nothing was charged.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_VerifyCharges
    @IdNum varchar(10),
    @ItemID varchar(10),
    @RefNum varchar(20),
    @RevenueID varchar(5)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT SUM(c.Amount) AS Amount
    FROM BILLING..tbPatientCharges AS c
    WHERE c.IdNum = @IdNum AND c.RefNum = @RefNum AND c.ItemID = @ItemID AND c.RevenueID = @RevenueID
    GROUP BY c.IdNum;
END
GO
