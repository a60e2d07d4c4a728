-- Takes back one line of an assessment, in the name of the user who is signed on. A line that was revoked before keeps
-- the date and the user of the first time.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_AssessRevoke
    @AssessNum int,
    @RefNum varchar(20),
    @RevenueID varchar(5)
AS
BEGIN
    SET NOCOUNT ON; SET XACT_ABORT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;
    BEGIN TRANSACTION;

    -- The line is held before it is looked at: of two clerks who revoke it at once the second one finds it revoked.
    UPDATE BILLING..tbCashAssessment
    SET DeptCode = DeptCode
    WHERE AssessNum = @AssessNum;

    INSERT INTO BILLING..tbAuditTrail (AuditDate, Event, RefNum, HospNum, IdNum, UserID)
    SELECT GETDATE(), 'REVOKE', COALESCE(a.RefNum, ''), a.HospNum, a.IdNum, SUSER_SNAME()
    FROM BILLING..tbCashAssessment AS a
    WHERE a.AssessNum = @AssessNum AND COALESCE(a.RefNum, '') = @RefNum AND a.Revenueid = @RevenueID
      AND a.RevokeDate IS NULL;

    UPDATE BILLING..tbCashAssessment
    SET RevokeDate = GETDATE(), RevokedBy = SUSER_SNAME()
    WHERE AssessNum = @AssessNum AND COALESCE(RefNum, '') = @RefNum AND Revenueid = @RevenueID AND RevokeDate IS NULL;

    COMMIT TRANSACTION;
END
GO
