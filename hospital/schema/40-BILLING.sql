-- What patients owe: charges on the accounts, and the assessments that cash patients pay at the cashier.
USE BILLING;
GO

-- Every charge line of every account. RecordType D is a charge and C the reversal of one, with its amount and units
-- negative; nothing is ever taken out, so an account is the sum of its lines. Quantity stands as it was keyed, empty
-- for a doctor's fee; Units is the same as a number. SourceDept is the department that entered the line.
CREATE TABLE dbo.tbPatientCharges (
    ChargeID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    IdNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    PatientType char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    TransDate datetime NOT NULL,
    RevenueID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RecordType char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    ItemID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Description varchar(100) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Quantity varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Units float NOT NULL,
    Amount money NOT NULL,
    RefNum varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    UserID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RoomID varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    DoctorID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    DoctorName varchar(100) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    SourceDept varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    EntryDate datetime NOT NULL
);
CREATE INDEX ixPatientChargesIdNum ON dbo.tbPatientCharges (IdNum);
CREATE INDEX ixPatientChargesRefNum ON dbo.tbPatientCharges (RefNum);
CREATE INDEX ixPatientChargesTransDate ON dbo.tbPatientCharges (TransDate);
GO

-- One row: the number that the next assessment gets.
CREATE TABLE dbo.tbAssessmentNum (
    AssessmentNum int NOT NULL
);
GO

-- Lines that cash patients have to pay. RefNum is the number of the whole assessment, Null on a line that stands
-- alone; AssessNum is the line's own number. The cashier fills ORNum and ORDate on payment.
CREATE TABLE dbo.tbCashAssessment (
    AssessNum int IDENTITY(1,1) NOT NULL PRIMARY KEY,
    RefNum varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    Name varchar(100) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    IdNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Revenueid varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    ItemID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Description varchar(100) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Quantity varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Units float NOT NULL,
    Amount money NOT NULL,
    DeptCode varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    UserID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    DoctorID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    DoctorName varchar(100) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    TransDate datetime NOT NULL,
    ORNum varchar(12) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    ORDate datetime NULL,
    RevokeDate datetime NULL,
    -- Null on a line that is not revoked, or was before users were recorded.
    RevokedBy varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NULL
);
CREATE INDEX ixCashAssessmentRefNum ON dbo.tbCashAssessment (RefNum);
CREATE INDEX ixCashAssessmentName ON dbo.tbCashAssessment (Name);
CREATE INDEX ixCashAssessmentTransDate ON dbo.tbCashAssessment (TransDate);
CREATE INDEX ixCashAssessmentORDate ON dbo.tbCashAssessment (ORDate);
CREATE INDEX ixCashAssessmentRevokeDate ON dbo.tbCashAssessment (RevokeDate);
GO

-- What leaves no other trace: re-prints, revoked assessments, registrations.
CREATE TABLE dbo.tbAuditTrail (
    AuditID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
    AuditDate datetime NOT NULL,
    Event varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RefNum varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    IdNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    UserID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    -- How often the event has come to the number by now.
    Times int NOT NULL DEFAULT 1
);
CREATE INDEX ixAuditTrailRefNum ON dbo.tbAuditTrail (RefNum);
CREATE INDEX ixAuditTrailDate ON dbo.tbAuditTrail (AuditDate);
GO
