-- The pending requests for one admission or visit as lines of the charge screen, column for column. A service is
-- priced by the rate of the patient's room, rate A where he has none; a stock item by its in-patient price. What is
-- neither comes without name and price.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_LoadExamEntry
    @IdNum varchar(10)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT x.RevenueID AS Department, x.ItemID AS Code, x.Particular,
           CAST(x.Quantity AS varchar(10)) AS Quantity,
           CAST(CAST(x.Rate AS decimal(12, 2)) AS varchar(15)) AS Price,
           CAST(CAST(x.Rate * x.Quantity AS decimal(12, 2)) AS varchar(15)) AS Amount,
           x.WithItems AS [With Items],
           CASE WHEN x.Rate = 0 THEN 'Y' ELSE 'N' END AS ZeroPrice,
           CASE WHEN x.SearchInventory = 1 THEN 'Y' ELSE 'N' END AS FromStock,
           COALESCE(x.LocationID, '') AS LocationID, '' AS Column11, '' AS Column12
    FROM (
        SELECT n.RequestNum, n.RevenueID, n.ItemID, n.Quantity, COALESCE(s.OtherRevenue, i.ItemName, '') AS Particular,
               COALESCE(r.WithItems, 'N') AS WithItems, r.SearchInventory, r.LocationID,
               CASE WHEN s.ItemID IS NULL THEN COALESCE(i.SellingPriceIn, 0)
                    WHEN k.RoomClassID = 'B' THEN s.RateB WHEN k.RoomClassID = 'C' THEN s.RateC
                    WHEN k.RoomClassID = 'D' THEN s.RateD WHEN k.RoomClassID = 'E' THEN s.RateE
                    WHEN k.RoomClassID = 'F' THEN s.RateF WHEN k.RoomClassID = 'G' THEN s.RateG
                    WHEN k.RoomClassID = 'H' THEN s.RateH ELSE s.RateA END AS Rate
        FROM RADIOLOGY..tbNurseRequest AS n
        LEFT JOIN PATIENT_DATA..tbpatient AS p ON p.IdNum = n.IdNum
        LEFT JOIN build_file..tbCoRoom AS k ON k.RoomID = p.RoomID
        LEFT JOIN build_file..tbCoOtherRevenue AS s ON s.RevenueID = n.RevenueID AND s.ItemID = n.ItemID
        LEFT JOIN build_file..tbCoRevenue AS r ON r.RevenueID = n.RevenueID
        LEFT JOIN INVENTORY..tbInvMaster AS i
            ON i.ItemID = n.ItemID AND i.SectionID = r.LocationID AND r.SearchInventory = 1
        WHERE n.IdNum = @IdNum AND n.DeptCode = 'HC' AND n.Status = 'P'
    ) AS x
    ORDER BY x.RequestNum;
END
GO
