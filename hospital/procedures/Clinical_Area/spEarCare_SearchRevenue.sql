-- Revenue centres by code: kind 1 finds the exact code, kind 2 and kind 0 (the picker's list) what begins with the
-- text, code or name. The picker takes the code from the second column.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_SearchRevenue
    @Kind varchar(1),
    @Search varchar(60)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT r.Revenue, r.RevenueID, r.WithItems, r.SearchInventory, r.LocationID
    FROM build_file..tbCoRevenue AS r
    WHERE (@Kind = '1' AND r.RevenueID = @Search)
       OR (@Kind IN ('0', '2')
           AND (LEFT(r.RevenueID, LEN(@Search)) = @Search OR LEFT(r.Revenue, LEN(@Search)) = @Search))
    ORDER BY r.Revenue, r.RevenueID;
END
GO
