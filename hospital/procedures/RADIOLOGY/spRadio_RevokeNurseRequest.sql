-- Takes back a ward's pending request.
USE RADIOLOGY;
GO

CREATE PROCEDURE dbo.spRadio_RevokeNurseRequest
    @RequestNum int,
    @UserID varchar(10)
AS
BEGIN
    SET NOCOUNT ON;

    UPDATE RADIOLOGY..tbNurseRequest
    SET Status = 'X', ClosedBy = @UserID, ClosedDate = GETDATE()
    WHERE RequestNum = @RequestNum AND Status = 'P';
END
GO
