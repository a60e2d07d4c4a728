-- The hospital's own record, its patients, their admissions and visits, and the walk-ins.
USE PATIENT_DATA;
GO

-- One row.
CREATE TABLE dbo.tbhospitalInfo (
    company varchar(100) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    Address1 varchar(100) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    TinNo varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    Bygeneric bit NOT NULL
);
GO

-- The patient master.
CREATE TABLE dbo.tbmaster (
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    LastName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    FirstName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    MiddleName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    Sex char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    BirthDate datetime NULL,
    CivilStatusID varchar(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '1',
    HouseStreet varchar(60) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    Barangay varchar(40) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    ZipCode varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    AccountNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL
);
-- Both this index and that of the visits hold all that the patient finder lists, so that a beginning with many hits
-- reads no rows from all over the tables.
CREATE INDEX ixMasterName ON dbo.tbmaster (LastName, FirstName, MiddleName, HospNum);
GO

-- Admissions of in-patients. DcrDate Null: still in the hospital. BillingDate set: the account is closed.
CREATE TABLE dbo.tbpatient (
    IdNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    AdmDate datetime NOT NULL,
    DcrDate datetime NULL,
    BillingDate datetime NULL,
    RoomID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    CompanyID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    DoctorID1 varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    DoctorID2 varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NULL
);
CREATE INDEX ixPatientHospNum ON dbo.tbpatient (HospNum);
CREATE INDEX ixPatientDcrDate ON dbo.tbpatient (DcrDate);
GO

-- Visits of out-patients; a visit number ends in B. A visit covers a month of treatments.
CREATE TABLE dbo.tboutpatient (
    IdNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    AdmDate datetime NOT NULL,
    DcrDate datetime NULL,
    BillingDate datetime NULL,
    CompanyID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    DoctorID1 varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    DoctorID2 varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    DoctorID3 varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NULL
);
CREATE INDEX ixOutPatientHospNum ON dbo.tboutpatient (HospNum, IdNum, AdmDate, BillingDate);
GO

-- Cash patients without a hospital record; their numbers begin with W.
CREATE TABLE dbo.tbwalkin (
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    LastName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    FirstName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    MiddleName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    Sex char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    BirthDate datetime NULL,
    Age varchar(3) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    CivilStatusID varchar(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    HouseStreet varchar(60) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    Barangay varchar(40) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    ZipCode varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    RegDate datetime NOT NULL,
    -- Empty where it was not recorded.
    RegisteredBy varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT ''
);
CREATE INDEX ixWalkInName ON dbo.tbwalkin (LastName, FirstName);
GO

-- What the record of a walk-in was before it was corrected, with who corrected it and when.
CREATE TABLE dbo.tbWalkInHistory (
    HistoryID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
    ReplacedBy varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    ReplacedDate datetime NOT NULL,
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    LastName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    FirstName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    MiddleName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Sex char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    BirthDate datetime NULL,
    Age varchar(3) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    CivilStatusID varchar(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    HouseStreet varchar(60) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Barangay varchar(40) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    ZipCode varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RegDate datetime NOT NULL,
    RegisteredBy varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL
);
CREATE INDEX ixWalkInHistory ON dbo.tbWalkInHistory (HospNum);
GO

-- One row: the number that the next walk-in gets.
CREATE TABLE dbo.tbWalkInNum (
    WalkInNum int NOT NULL
);
GO
