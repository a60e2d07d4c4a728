-- Corrects the record of one walk-in, keeps the record as it was, and leaves a trace of who did it. An empty birth date
-- is none; so is a civil status that is no code of the list (6 stands for its empty entry, -1 for no entry). An unknown
-- number changes nothing.
USE PATIENT_DATA;
GO

CREATE PROCEDURE dbo.spGlobal_UpdateWalkIn
    @HospNum varchar(10),
    @LastName varchar(30),
    @FirstName varchar(30),
    @MiddleName varchar(30),
    @BirthDate varchar(20),
    @Age varchar(3),
    @Sex varchar(1),
    @CivilStatus varchar(2),
    @HouseStreet varchar(60),
    @Barangay varchar(40),
    @ZipCode varchar(10)
AS
BEGIN
    SET NOCOUNT ON; SET XACT_ABORT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;
    BEGIN TRANSACTION;

    -- The record is held before it is copied: what another clerk corrects at the same moment is kept as well.
    UPDATE PATIENT_DATA..tbwalkin
    SET Age = Age
    WHERE HospNum = @HospNum;

    INSERT INTO PATIENT_DATA..tbWalkInHistory
        (ReplacedBy, ReplacedDate, HospNum, LastName, FirstName, MiddleName, Sex, BirthDate, Age, CivilStatusID,
         HouseStreet, Barangay, ZipCode, RegDate, RegisteredBy)
    SELECT SUSER_SNAME(), GETDATE(), w.HospNum, w.LastName, w.FirstName, w.MiddleName, w.Sex, w.BirthDate, w.Age,
           w.CivilStatusID, w.HouseStreet, w.Barangay, w.ZipCode, w.RegDate, w.RegisteredBy
    FROM PATIENT_DATA..tbwalkin AS w
    WHERE w.HospNum = @HospNum;

    UPDATE PATIENT_DATA..tbwalkin
    SET LastName = @LastName,
        FirstName = @FirstName,
        MiddleName = @MiddleName,
        BirthDate = CASE WHEN @BirthDate = '' THEN NULL ELSE CAST(@BirthDate AS datetime) END,
        Age = @Age,
        Sex = @Sex,
        CivilStatusID = CASE WHEN @CivilStatus IN ('6', '-1') THEN '' ELSE @CivilStatus END,
        HouseStreet = @HouseStreet,
        Barangay = @Barangay,
        ZipCode = @ZipCode
    WHERE HospNum = @HospNum;

    INSERT INTO BILLING..tbAuditTrail (AuditDate, Event, HospNum, UserID)
    SELECT GETDATE(), 'WALK-IN UPDATE', w.HospNum, SUSER_SNAME()
    FROM PATIENT_DATA..tbwalkin AS w
    WHERE w.HospNum = @HospNum;

    COMMIT TRANSACTION;
END
GO
