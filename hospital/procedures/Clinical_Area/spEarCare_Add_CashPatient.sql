-- Registers a walk-in under the next walk-in number. An empty birth date arrives as the empty mask of the entry
-- box.
USE Clinical_Area;
GO

CREATE PROCEDURE dbo.spEarCare_Add_CashPatient
    @LastName varchar(30),
    @FirstName varchar(30),
    @MiddleName varchar(30),
    @HouseStreet varchar(60),
    @Barangay varchar(40),
    @ZipCode varchar(10),
    @BirthDate varchar(20),
    @Age varchar(3),
    @Sex varchar(1),
    @CivilStatusID varchar(1)
AS
BEGIN
    SET NOCOUNT ON; SET XACT_ABORT ON;
    IF COALESCE(SUSER_SNAME(), '') = ''
        THROW 50001, 'Nobody is signed on, so nothing was recorded. Sign on and try again.', 1;
    BEGIN TRANSACTION;

    UPDATE PATIENT_DATA..tbWalkInNum SET WalkInNum = WalkInNum + 1;

    INSERT INTO PATIENT_DATA..tbwalkin
        (HospNum, LastName, FirstName, MiddleName, Sex, BirthDate, Age, CivilStatusID, HouseStreet, Barangay, ZipCode,
         RegDate, RegisteredBy)
    SELECT CONCAT('W', RIGHT(CONCAT('000000', n.WalkInNum - 1), 6)), @LastName, @FirstName, @MiddleName, @Sex,
           CASE WHEN LTRIM(REPLACE(REPLACE(@BirthDate, '/', ' '), '_', ' ')) = '' THEN NULL
                ELSE CAST(@BirthDate AS datetime) END,
           @Age, @CivilStatusID, @HouseStreet, @Barangay, @ZipCode, GETDATE(), SUSER_SNAME()
    FROM PATIENT_DATA..tbWalkInNum AS n;

    INSERT INTO BILLING..tbAuditTrail (AuditDate, Event, HospNum, UserID)
    SELECT GETDATE(), 'WALK-IN', CONCAT('W', RIGHT(CONCAT('000000', n.WalkInNum - 1), 6)), SUSER_SNAME()
    FROM PATIENT_DATA..tbWalkInNum AS n;

    COMMIT TRANSACTION;
END
GO
