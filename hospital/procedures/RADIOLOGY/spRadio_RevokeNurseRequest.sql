-- Takes back a ward's pending request, in the name of the user who is signed on.
USE RADIOLOGY;
GO

CREATE PROCEDURE dbo.spRadio_RevokeNurseRequest
    @RequestNum int,
    @UserID varchar(10)
AS
BEGIN
    SET NOCOUNT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;
    IF COALESCE(@UserID, '') <> SUSER_SNAME()
        THROW 50002, 'The entry names another user than the one who is signed on. Nothing was recorded.', 1;

    UPDATE RADIOLOGY..tbNurseRequest
    SET Status = 'X', ClosedBy = SUSER_SNAME(), ClosedDate = GETDATE()
    WHERE RequestNum = @RequestNum AND Status = 'P';
END
GO
