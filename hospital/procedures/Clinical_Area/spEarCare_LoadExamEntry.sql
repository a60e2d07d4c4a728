-- The pending requests for one admission as lines of the charge screen, column for column, priced by the rate of
-- the patient's room.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_LoadExamEntry
    @IdNum varchar(10)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT x.RevenueID AS Department, x.ItemID AS Code, x.OtherRevenue AS Particular,
           CAST(x.Quantity AS varchar(10)) AS Quantity,
           CAST(CAST(x.Rate AS decimal(12, 2)) AS varchar(15)) AS Price,
           CAST(CAST(x.Rate * x.Quantity AS decimal(12, 2)) AS varchar(15)) AS Amount,
           x.WithItems AS [With Items],
           CASE WHEN x.Rate = 0 THEN 'Y' ELSE 'N' END AS ZeroPrice,
           CASE WHEN x.SearchInventory = 1 THEN 'Y' ELSE 'N' END AS FromStock,
           COALESCE(x.LocationID, '') AS LocationID, '' AS Column11, '' AS Column12
    FROM (
        SELECT n.RequestNum, n.RevenueID, n.ItemID, n.Quantity, s.OtherRevenue, r.WithItems, r.SearchInventory,
               r.LocationID,
               CASE k.RoomClassID WHEN 'B' THEN s.RateB WHEN 'C' THEN s.RateC WHEN 'D' THEN s.RateD
                                  WHEN 'E' THEN s.RateE WHEN 'F' THEN s.RateF WHEN 'G' THEN s.RateG
                                  WHEN 'H' THEN s.RateH ELSE s.RateA END AS Rate
        FROM RADIOLOGY..tbNurseRequest AS n
        INNER JOIN PATIENT_DATA..tbpatient AS p ON p.IdNum = n.IdNum
        INNER JOIN build_file..tbCoOtherRevenue AS s ON s.RevenueID = n.RevenueID AND s.ItemID = n.ItemID
        INNER JOIN build_file..tbCoRevenue AS r ON r.RevenueID = n.RevenueID
        LEFT JOIN build_file..tbCoRoom AS k ON k.RoomID = p.RoomID
        WHERE n.IdNum = @IdNum AND n.DeptCode = 'HC' AND n.Status = 'P'
    ) AS x
    ORDER BY x.RequestNum;
END
GO
