-- How many of the wards' requests wait for a department. Asked four times a second by each workstation, so it is
-- one search on an index.
USE RADIOLOGY;
GO

CREATE PROCEDURE dbo.spRadio_CheckPending
    @DeptCode varchar(5)
AS
BEGIN
    SET NOCOUNT ON;

    SELECT COUNT(*) AS TotalPending
    FROM RADIOLOGY..tbNurseRequest AS n
    WHERE n.DeptCode = @DeptCode AND n.Status = 'P';
END
GO
