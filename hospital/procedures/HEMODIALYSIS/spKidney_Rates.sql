-- The rate list of a revenue centre, in the order of the items' names.
USE HEMODIALYSIS;
GO

CREATE PROCEDURE dbo.spKidney_Rates
    @RevenueID varchar(5)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT s.ItemID AS [Code], s.OtherRevenue AS [Description], s.RateA AS [Rate A], s.RateB AS [Rate B],
           s.RateC AS [Rate C], s.RateD AS [Rate D], s.RateE AS [Rate E], s.RateF AS [Rate F], s.RateG AS [Rate G],
           s.RateH AS [Rate H]
    FROM build_file..tbCoOtherRevenue AS s
    WHERE s.RevenueID = @RevenueID
    ORDER BY s.OtherRevenue, s.ItemID;
END
GO
