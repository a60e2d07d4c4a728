-- The department's assessments, the newest first, of the patients whose name begins with the text; blanks at its end
-- do not count. Status is the date while the line waits for payment, the receipt once it is paid, and otherwise REVOKED.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_AssessmentStatus
    @Kind varchar(1),
    @Search varchar(60)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT a.AssessNum, a.Name AS [Patient Name], a.HospNum AS [Hospital #], a.Description, a.RefNum, a.Amount,
           CASE WHEN a.RevokeDate IS NOT NULL THEN 'REVOKED'
                WHEN a.ORNum IS NOT NULL THEN CONCAT('OR ', a.ORNum)
                ELSE CONVERT(varchar(10), a.TransDate, 101) END AS Status,
           a.Revenueid AS RevenueID, a.IdNum
    FROM BILLING..tbCashAssessment AS a
    WHERE @Kind = '1' AND a.DeptCode = 'HC'
      AND a.Name >= RTRIM(@Search)
      AND a.Name <= CONCAT(RTRIM(@Search), REPLICATE('Z', 30))
      AND LEFT(a.Name, LEN(@Search)) = @Search
    ORDER BY a.TransDate DESC, a.AssessNum DESC;
END
GO
