-- Takes back one line of an assessment. A line that was revoked before keeps the date of the first time.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_AssessRevoke
    @AssessNum int,
    @RefNum varchar(20),
    @RevenueID varchar(5)
AS
BEGIN
    SET NOCOUNT ON; SET XACT_ABORT ON;
    BEGIN TRANSACTION;

    INSERT INTO BILLING..tbAuditTrail (AuditDate, Event, RefNum, HospNum, IdNum)
    SELECT GETDATE(), 'REVOKE', COALESCE(a.RefNum, ''), a.HospNum, a.IdNum
    FROM BILLING..tbCashAssessment AS a
    WHERE a.AssessNum = @AssessNum AND COALESCE(a.RefNum, '') = @RefNum AND a.Revenueid = @RevenueID
      AND a.RevokeDate IS NULL;

    UPDATE BILLING..tbCashAssessment
    SET RevokeDate = GETDATE()
    WHERE AssessNum = @AssessNum AND COALESCE(RefNum, '') = @RefNum AND Revenueid = @RevenueID AND RevokeDate IS NULL;

    COMMIT TRANSACTION;
END
GO
