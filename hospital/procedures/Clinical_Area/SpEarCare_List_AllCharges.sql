-- What the department has charged to one admission or visit, reversals included, in the order of entry. The last
-- column is the line's own number, by which the cancellation of a stock item finds it.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.SpEarCare_List_AllCharges
    @HospNum varchar(10),
    @IdNum varchar(10),
    @DeptCode varchar(5)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT c.RevenueID AS [Dept.], c.ItemID AS [Item. #], c.Description AS [Item Description], c.Quantity AS [QTY],
           c.Amount, c.RefNum AS [ChargeSlip #], c.TransDate AS [Date], c.UserID AS [User], c.ChargeID AS [Line #]
    FROM BILLING..tbPatientCharges AS c
    WHERE c.IdNum = @IdNum AND c.HospNum = @HospNum AND c.SourceDept = @DeptCode
    ORDER BY c.ChargeID;
END
GO
